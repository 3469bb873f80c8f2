#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXPen.h>

namespace TZObjects
{

class TXGraphicsEngine;

/// @throw Failure with `ExitCode::Drawing` when the backend refused.
void RequireDrawn(bool drawn);

/// A pen for solid lines with round ends and corners. @throw Failure with `ExitCode::Drawing`.
TXRefPtr<TXPen> SolidPen(const TXGraphicsEngine& engine, const TXColor& color, double width);

/// A brush of one colour. @throw Failure with `ExitCode::Drawing`.
TXRefPtr<TXBrush> SolidBrush(const TXGraphicsEngine& engine, const TXColor& color);

} // namespace TZObjects
