#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QPen>

class QPainter;

namespace txqt
{

/// Points and what each is for, in Qt's terms: moves, lines and curves.
struct OutlineView
{
    const double* points; ///< x and y in turn.
    const QPainterPath::ElementType* kinds;
    int count;
    Qt::FillRule fillRule;
};

/// These draw from arrays that are not Qt's. False, nothing drawn, when the painter's engine cannot do that.
/// @{
/// Fills with the painter's brush and outlines with its pen; what is not closed is outlined as far as it goes.
bool DrawOutline(QPainter& painter, const OutlineView& outline);
/// Fills as `QPainter::fillPath` does.
bool FillOutline(QPainter& painter, const OutlineView& outline, const QBrush& brush);
/// Strokes as `QPainter::strokePath` does.
bool StrokeOutline(QPainter& painter, const OutlineView& outline, const QPen& pen);
/// @}

} // namespace txqt
