#include <txmap/map/PixelPath.h>

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// Points closer than this to the one before do not change a pixel that anyone could see.
constexpr double kFinest = 0.125;

bool Close(const TXPoint& a, const TXPoint& b)
{
    return std::abs(a.x - b.x) < kFinest && std::abs(a.y - b.y) < kFinest;
}

} // namespace

int AppendLine(const View& view, const OGRSimpleCurve& line, double offset, std::vector<TXPoint>& points)
{
    const std::size_t first = points.size();
    const auto count = static_cast<std::size_t>(line.getNumPoints());
    if (count == 0)
        return 0;
    points.resize(first + count);
    constexpr int kStride = sizeof(TXPoint);
    line.getPoints(&points[first].x, kStride, &points[first].y, kStride);

    std::size_t kept = first;
    TXPoint last;
    for (std::size_t i = first; i < first + count; ++i)
    {
        if (!std::isfinite(points[i].x) || !std::isfinite(points[i].y))
            continue;
        last = view.ToPixel(points[i].x + offset, points[i].y);
        if (kept == first || !Close(last, points[kept - 1]))
            points[kept++] = last;
    }
    // The end of a line is where another one begins.
    if (kept > first)
        points[kept > first + 1 ? kept - 1 : kept++] = last;
    points.resize(kept);
    return static_cast<int>(kept - first);
}

int AppendRing(const View& view, const OGRSimpleCurve& ring, double offset, std::vector<TXPoint>& points)
{
    const std::size_t first = points.size();
    if (AppendLine(view, ring, offset, points) == 0)
        return 0;
    const TXPoint start = points[first];
    // The outline of a ring is drawn as it is given, so one that was left open is closed here.
    if (points.back().x != start.x || points.back().y != start.y)
        points.push_back(start);
    if (points.size() - first < 4)
    {
        points.resize(first);
        const TXPoint triangle[] = {start, {start.x + kFinest, start.y}, {start.x, start.y + kFinest}, start};
        points.insert(points.end(), std::begin(triangle), std::end(triangle));
    }
    return static_cast<int>(points.size() - first);
}

} // namespace txmap
