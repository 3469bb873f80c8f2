#include <txpluginqt/raster/RingGroups.h>

#include <algorithm>
#include <numeric>

#include <txpluginqt/raster/InkReach.h>

namespace txqt
{
namespace
{

constexpr int kComparisonsPerRing = 64;

const QPointF* PointsOf(const OutlineView& outline) { return reinterpret_cast<const QPointF*>(outline.points); }

QRectF BoundsOf(const QPointF* points, int count)
{
    double left = points->x();
    double right = left;
    double top = points->y();
    double bottom = top;
    for (int i = 1; i < count; ++i)
    {
        left = std::min(left, points[i].x());
        right = std::max(right, points[i].x());
        top = std::min(top, points[i].y());
        bottom = std::max(bottom, points[i].y());
    }
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

/// Puts what meets into one set each.
class Sets
{
public:
    explicit Sets(QVarLengthArray<int, 64>& parents) : parents(parents), count(parents.size())
    {
        std::iota(parents.begin(), parents.end(), 0);
    }

    int Count() const { return count; }

    int FirstOf(int member)
    {
        while (parents[member] != member)
            member = parents[member] = parents[parents[member]];
        return member;
    }

    void Unite(int one, int other)
    {
        const auto [first, second] = std::minmax({FirstOf(one), FirstOf(other)});
        parents[second] = first;
        count -= first != second ? 1 : 0;
    }

private:
    QVarLengthArray<int, 64>& parents;
    int count;
};

} // namespace

Rings RingsOf(const OutlineView& outline)
{
    Rings rings;
    for (int first = 0; first < outline.count;)
    {
        int next = first + 1;
        while (next < outline.count && outline.kinds[next] != QPainterPath::MoveToElement)
            ++next;
        rings.append({first, next - first, BoundsOf(PointsOf(outline) + first, next - first)});
        first = next;
    }
    return rings;
}

QRectF BoundsOf(const Rings& rings)
{
    QPointF topLeft = rings.first().bounds.topLeft();
    QPointF bottomRight = rings.first().bounds.bottomRight();
    for (const Ring& ring : rings)
    {
        topLeft = QPointF(std::min(topLeft.x(), ring.bounds.left()), std::min(topLeft.y(), ring.bounds.top()));
        bottomRight =
            QPointF(std::max(bottomRight.x(), ring.bounds.right()), std::max(bottomRight.y(), ring.bounds.bottom()));
    }
    return QRectF(topLeft, bottomRight);
}

RingGroups::RingGroups(const OutlineView& outline, const Rings& rings, const QTransform& transform, const QRect& device,
                       double reach)
    : outline(outline), rings(rings), groups(rings.size())
{
    QVarLengthArray<QRect, 64> pixels(rings.size());
    std::transform(rings.begin(), rings.end(), pixels.begin(),
                   [&](const Ring& ring)
                   { return TouchedPixels(ring.bounds.adjusted(-reach, -reach, reach, reach), transform); });
    for (int ring = 0; ring < rings.size(); ++ring)
        if (pixels[ring].intersects(device))
            order.append(ring);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return pixels[a].left() < pixels[b].left(); });

    Sets sets(groups);
    // Those that what comes from the left may still meet.
    QVarLengthArray<int, 64> open;
    for (const int ring : order)
    {
        const QRect& own = pixels[ring];
        for (int i = 0; i < open.size();)
        {
            if (++comparisons > kComparisonsPerRing * rings.size())
            {
                count = 1;
                return;
            }
            const QRect& other = pixels[open[i]];
            // Neighbours in a row would make one span.
            if (other.right() + 1 < own.left())
            {
                open[i] = open.back();
                open.removeLast();
                continue;
            }
            if (other.top() <= own.bottom() && own.top() <= other.bottom())
                sets.Unite(ring, open[i]);
            ++i;
        }
        open.append(ring);
    }
    count = sets.Count() - (rings.size() - order.size());
    for (int ring = 0; ring < groups.size(); ++ring)
        groups[ring] = sets.FirstOf(ring);
    // By the first ring of each group, and within a group as the shape has them.
    if (count > 1)
    {
        std::sort(order.begin(), order.end(),
                  [&](int a, int b) { return groups[a] != groups[b] ? groups[a] < groups[b] : a < b; });
        MakeRoom();
    }
}

void RingGroups::MakeRoom()
{
    // Before the first group is drawn, as memory may be short.
    int most = 0;
    int size = 0;
    for (int i = 0; i < order.size(); ++i)
    {
        const bool goesOn = i > 0 && groups[order[i]] == groups[order[i - 1]];
        size = (goesOn ? size : 0) + rings[order[i]].count;
        most = std::max(most, goesOn ? size : 0);
    }
    points.reserve(most);
    kinds.reserve(most);
}

OutlineView RingGroups::NextGroup(int& next)
{
    const int first = next;
    bool isConnected = true;
    int size = 0;
    for (; next < order.size() && groups[order[next]] == groups[order[first]]; ++next)
    {
        isConnected = isConnected && order[next] - order[first] == next - first;
        size += rings[order[next]].count;
    }
    if (isConnected)
    {
        const int at = rings[order[first]].first;
        return {outline.points + 2 * static_cast<std::ptrdiff_t>(at), outline.kinds + at, size, outline.fillRule};
    }
    points.clear();
    kinds.clear();
    for (int i = first; i < next; ++i)
    {
        const Ring& ring = rings[order[i]];
        points.append(PointsOf(outline) + ring.first, ring.count);
        kinds.append(outline.kinds + ring.first, ring.count);
    }
    return {reinterpret_cast<const double*>(points.constData()), kinds.constData(), size, outline.fillRule};
}

} // namespace txqt
