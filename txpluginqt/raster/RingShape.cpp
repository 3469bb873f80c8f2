#include <txpluginqt/raster/RingShape.h>

#include <algorithm>
#include <limits>
#include <optional>

#include <QPainter>
#include <QPolygonF>
#include <QVarLengthArray>

#include <txpluginqt/raster/InkReach.h>
#include <txpluginqt/raster/RingGroups.h>
#include <txpluginqt/raster/VectorOutline.h>
#include <txpluginqt/support/Conversions.h>

namespace txqt
{

using TZObjects::TXPoint;

namespace
{

/// Fewer are drawn as fast at once.
constexpr int kFewestRings = 4;

bool FillsAnything(const QBrush& brush)
{
    return brush.style() != Qt::NoBrush && (brush.style() != Qt::SolidPattern || brush.color().alpha() > 0);
}

/// The same as `DrawOutline`, by groups of rings where there are such groups.
bool DrawManyRings(QPainter& painter, const OutlineView& outline)
{
    const QPen& pen = painter.pen();
    const QBrush& brush = painter.brush();
    const bool antialiased = painter.testRenderHint(QPainter::Antialiasing);
    const bool filled = antialiased && FillsAnything(brush);
    const bool stroked = antialiased && pen.style() == Qt::SolidLine && IsFilledStroke(painter, pen);
    // Qt computes gradients and turned textures in steps that begin anew with each batch of pixels.
    const bool isUneven =
        (filled && brush.style() != Qt::SolidPattern) || (stroked && pen.brush().style() != Qt::SolidPattern);
    if ((!filled && !stroked) || isUneven)
        return DrawOutline(painter, outline);

    const Rings rings = RingsOf(outline);
    const double reach = stroked ? StrokeReach(pen) : 0.0;
    if (rings.size() < 2 || !CanBeDrawnInParts(painter, BoundsOf(rings).adjusted(-reach, -reach, reach, reach)))
        return DrawOutline(painter, outline);

    const QTransform& transform = painter.deviceTransform();
    const QRect device(0, 0, painter.device()->width(), painter.device()->height());
    std::optional<RingGroups> fills;
    std::optional<RingGroups> strokes;
    if (filled)
        fills.emplace(outline, rings, transform, device, 0.0);
    if (stroked)
        strokes.emplace(outline, rings, transform, device, reach);
    if ((!fills || fills->Count() < 2) && (!strokes || strokes->Count() < 2))
        return DrawOutline(painter, outline);

    // All fills come first: an outline may lie on a neighbour's.
    if (fills)
        fills->ForEach([&](const OutlineView& group) { FillOutline(painter, group, brush); });
    else if (brush.style() != Qt::NoBrush)
        FillOutline(painter, outline, brush);
    if (strokes)
        strokes->ForEach([&](const OutlineView& group) { StrokeOutline(painter, group, pen); });
    else if (pen.style() != Qt::NoPen)
        StrokeOutline(painter, outline, pen);
    return true;
}

} // namespace

RingShape::RingShape(const TXPoint* points, const int* counts, int rings) : points(points), counts(counts), rings(rings)
{
    for (int i = 0; i < rings; ++i)
        total += std::max(counts[i], 0);
}

bool RingShape::IsDrawable() const
{
    return total <= std::numeric_limits<int>::max() / 2 && AreDrawable(points, total);
}

bool RingShape::DrawInPlace(QPainter& painter) const
{
    QVarLengthArray<QPainterPath::ElementType, 256> kinds;
    kinds.reserve(static_cast<int>(total));
    for (int i = 0; i < rings; ++i)
        for (int k = 0; k < counts[i]; ++k)
            kinds.append(k == 0 ? QPainterPath::MoveToElement : QPainterPath::LineToElement);
    const OutlineView outline{reinterpret_cast<const qreal*>(points), kinds.constData(), kinds.size(), Qt::OddEvenFill};
    return rings < kFewestRings ? DrawOutline(painter, outline) : DrawManyRings(painter, outline);
}

template <class Convert>
QPainterPath RingShape::ConvertedPath(Convert convert) const
{
    QPainterPath path;
    const TXPoint* ring = points;
    for (int i = 0; i < rings; ++i)
    {
        if (counts[i] < 1)
            continue;
        QPolygonF polygon(counts[i]);
        std::transform(ring, ring + counts[i], polygon.begin(), convert);
        path.addPolygon(polygon);
        ring += counts[i];
    }
    return path;
}

QPainterPath RingShape::ToPath() const
{
    return ConvertedPath([](const TXPoint& point) { return QPointF(point.x, point.y); });
}

QPainterPath RingShape::ToRoundedPath() const
{
    return ConvertedPath([](const TXPoint& point) { return QPointF(RoundHalfAway(point.x), RoundHalfAway(point.y)); });
}

} // namespace txqt
