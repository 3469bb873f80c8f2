#include <txpluginqt/raster/RingShape.h>

#include <algorithm>
#include <limits>

#include <QPainter>
#include <QPolygonF>
#include <QVarLengthArray>

#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/support/Conversions.h>

namespace txqt
{

using TZObjects::TXPoint;

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
    kinds.resize(static_cast<int>(total));
    std::fill(kinds.begin(), kinds.end(), QPainterPath::LineToElement);
    int first = 0;
    for (int i = 0; i < rings; ++i)
        if (counts[i] > 0)
        {
            kinds[first] = QPainterPath::MoveToElement;
            first += counts[i];
        }
    const OutlineView outline{reinterpret_cast<const qreal*>(points), kinds.constData(), kinds.size(), Qt::OddEvenFill,
                              false};
    return DrawOutline(painter, outline);
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
