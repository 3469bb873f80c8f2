#pragma once

#include <QBrush>

class QPainter;
class QRasterPaintEngine;

namespace txqt
{

/// Why the rasteriser leaves an operation to QPainter.
enum class Refusal
{
    None,           ///< It does not.
    SwitchedOff,    ///< By the engine manager, or because its self-check failed.
    ThreadEnds,     ///< What the thread kept is gone already.
    NotAnImage,     ///< The painter paints on something else, such as a printer or a picture.
    Emulated,       ///< Qt draws through a painter of its own, as with gradients relative to a shape.
    NotAntialiased, ///< Qt rasterises in another way then.
    Perspective,    ///< Qt clips such outlines before it maps them.
    SystemClip      ///< The window system restricts the painter.
};

/// Says why the rasteriser does not draw outlines on this painter in its present state. What depends on an outline,
/// such as its size, is decided where it is drawn.
Refusal WhyNotRasterized(QPainter& painter);

/// The engine to draw with, or null with every refusal.
QRasterPaintEngine* RasterizerEngine(QPainter& painter);

/// False for a brush that Qt converts for each shape: of a gradient relative to something, or of a texture, which may
/// be one of more pixels to a unit.
bool IsPlain(const QBrush& brush);

} // namespace txqt
