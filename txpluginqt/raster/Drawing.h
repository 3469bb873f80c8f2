#pragma once

#include <optional>
#include <vector>

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QRect>

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
    bool isCurved; ///< False when there are no curves.
};

/// An outline that has arrays of its own.
struct Outline
{
    std::vector<QPointF> points;
    std::vector<QPainterPath::ElementType> kinds;
    Qt::FillRule fillRule = Qt::OddEvenFill;
    bool isCurved = false;

    OutlineView View() const
    {
        return {reinterpret_cast<const double*>(points.data()), kinds.data(), static_cast<int>(points.size()), fillRule,
                isCurved};
    }
};

/// The same outline with lines in place of curves, as Qt fills it where nothing is scaled.
Outline Flattened(const OutlineView& outline);

/// What a solid stroke covers, as Qt fills it.
/// @param pen not cosmetic. @return an outline to be filled by the winding rule; nothing when the rasteriser is off.
std::optional<Outline> StrokeOutlineOf(const OutlineView& outline, const QPen& pen);

/// These draw as QPainter's operations of the same names: the same pixels, several times as fast where the rasteriser
/// applies, and through QPainter elsewhere.
/// @{
void DrawPolygon(QPainter& painter, const QPointF* points, int count, Qt::FillRule rule);
void DrawPolyline(QPainter& painter, const QPointF* points, int count);
void DrawPoints(QPainter& painter, const QPointF* points, int count);
void DrawPath(QPainter& painter, const QPainterPath& path);
void DrawEllipse(QPainter& painter, const QRect& rect);
/// The angles are sixteenths of a degree, counter-clockwise.
void DrawArc(QPainter& painter, const QRectF& rect, int start, int span);
/// The angles are sixteenths of a degree, counter-clockwise.
void DrawPie(QPainter& painter, const QRectF& rect, int start, int span);
/// @}

/// These draw from arrays that are not Qt's. False, nothing drawn, when the painter's engine cannot do that.
/// @{
/// Fills with the painter's brush and outlines with its pen; what is not closed is outlined as far as it goes.
bool DrawOutline(QPainter& painter, const OutlineView& outline);
/// Fills as `QPainter::fillPath` does.
bool FillOutline(QPainter& painter, const OutlineView& outline, const QBrush& brush);
/// Strokes as `QPainter::strokePath` does.
bool StrokeOutline(QPainter& painter, const OutlineView& outline, const QPen& pen);
/// @}

/// True where Qt makes an outline of a stroke, which does not depend on the transform then, and fills it. Strokes up to
/// a pixel wide it draws in another way.
bool IsFilledStroke(const QPainter& painter, const QPen& pen);

} // namespace txqt
