#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXPen.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// @throw Failure with `ExitCode::Drawing` when the backend refused.
void RequireDrawn(bool drawn);

/// A pen for solid lines with round ends and corners. @throw Failure with `ExitCode::Drawing`.
TZObjects::TXRefPtr<TZObjects::TXPen> SolidPen(const TZObjects::TXGraphicsEngine& engine,
                                               const TZObjects::TXColor& color, double width);

/// A brush of one colour. @throw Failure with `ExitCode::Drawing`.
TZObjects::TXRefPtr<TZObjects::TXBrush> SolidBrush(const TZObjects::TXGraphicsEngine& engine,
                                                   const TZObjects::TXColor& color);

} // namespace txmap
