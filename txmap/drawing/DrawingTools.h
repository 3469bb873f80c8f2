#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXPen.h>

namespace TZObjects
{
class TXGraphics;
class TXGraphicsEngine;
struct TXRect;
} // namespace TZObjects

namespace txmap
{

/// @throw Failure with `ExitCode::Drawing` when the backend refused.
void RequireDrawn(bool drawn);

/// Draws along the edges of a box with the pen that is selected. @throw Failure with `ExitCode::Drawing`.
void DrawOutline(TZObjects::TXGraphics& surface, const TZObjects::TXRect& box);

/// A pen for solid lines with round ends and corners. @throw Failure with `ExitCode::Drawing`.
TZObjects::TXRefPtr<TZObjects::TXPen> SolidPen(const TZObjects::TXGraphicsEngine& engine,
                                               const TZObjects::TXColor& color, double width);

/// A brush of one colour. @throw Failure with `ExitCode::Drawing`.
TZObjects::TXRefPtr<TZObjects::TXBrush> SolidBrush(const TZObjects::TXGraphicsEngine& engine,
                                                   const TZObjects::TXColor& color);

} // namespace txmap
