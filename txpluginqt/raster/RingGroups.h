#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QTransform>
#include <QVarLengthArray>

#include <txpluginqt/raster/VectorOutline.h>

namespace txqt
{

/// A contour of an outline.
struct Ring
{
    int first; ///< In the outline's points.
    int count;
    QRectF bounds;
};

using Rings = QVarLengthArray<Ring, 64>;

/// The rings of an outline of lines.
Rings RingsOf(const OutlineView& outline);

/// What the bounds of one or more rings span. Unlike a union of rectangles it counts single points.
QRectF BoundsOf(const Rings& rings);

/// The rings of a shape in groups that may be drawn one after the other, as no two of them touch the same pixel or
/// neighbours in a row. Where the rings' order does not matter, that gives the same pixels as the shape drawn at once,
/// and it is faster: Qt's rasteriser looks for the place of each piece of an edge along the whole row of pixels.
class RingGroups
{
public:
    /// @param device the pixels that there are; rings elsewhere are left out. @param reach how far from its bounds a
    /// ring may be seen, in the units of its points. The outline and the rings must outlive this.
    RingGroups(const OutlineView& outline, const Rings& rings, const QTransform& transform, const QRect& device,
               double reach);

    /// 1 where finding the groups would take longer than they save.
    int Count() const { return count; }
    /// How often two rings were compared.
    int Comparisons() const { return comparisons; }

    /// Calls @p draw with each group as an `OutlineView`.
    template <class Draw>
    void ForEach(Draw draw)
    {
        for (int next = 0; next < order.size();)
            draw(NextGroup(next));
    }

private:
    OutlineView NextGroup(int& next);
    void MakeRoom();

    const OutlineView& outline;
    const Rings& rings;
    QVarLengthArray<int, 64> groups; ///< Of each ring, by its number.
    QVarLengthArray<int, 64> order;  ///< The rings' numbers, group by group.
    int count = 0;
    int comparisons = 0;
    // A group whose rings do not follow one another.
    QVarLengthArray<QPointF, 256> points;
    QVarLengthArray<QPainterPath::ElementType, 256> kinds;
};

} // namespace txqt
