#pragma once

#include <QPainter>
#include <QPen>
#include <QRect>
#include <QTransform>

namespace txqt
{

/// True when outlines that have no pixel in common may be drawn one by one on this painter: Qt's rasteriser is at work,
/// with a transform that keeps rectangles, and @p bounds is not so far away that Qt clips before it rasterises.
bool CanBeDrawnInParts(const QPainter& painter, const QRectF& bounds);

/// The pixels of the device that filling an outline of these bounds may touch. The bounds must not be farther away than
/// `CanBeDrawnInParts` allows.
QRect TouchedPixels(const QRectF& bounds, const QTransform& transform);

/// True where Qt makes an outline of a stroke, which does not depend on the transform then, and fills it. Strokes up to
/// a pixel wide it draws in another way.
bool IsFilledStroke(const QPainter& painter, const QPen& pen);

/// How far from the line a stroke may reach, with its joins and caps, in the units of the pen.
double StrokeReach(const QPen& pen);

} // namespace txqt
