#include <txmap/map/DateLine.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kCrossing = 0.75;
// Data that was cut ends at the date line up to rounding.
constexpr double kTolerance = 3e-9;

/// The columns of a line, each nearest to the one before. Empty when they are that already.
std::vector<double> ContinuousColumns(const std::vector<TXPoint>& points, std::size_t first)
{
    std::vector<double> columns;
    double shift = 0.0;
    for (std::size_t i = first + 1; i < points.size(); ++i)
    {
        const double step = points[i].x - points[i - 1].x;
        if (std::abs(step) > kCrossing)
            shift -= std::round(step);
        if (columns.empty() && shift != 0.0)
            for (std::size_t before = first; before < i; ++before)
                columns.push_back(points[before].x);
        if (!columns.empty())
            columns.push_back(points[i].x + shift);
    }
    return columns;
}

void SetColumns(std::vector<TXPoint>& points, std::size_t first, const std::vector<double>& columns)
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        points[first + i].x = columns[i];
}

/// True when a line is left without width: it did not cross the date line but runs along the whole map.
bool IsFlat(const std::vector<double>& columns)
{
    const auto [west, east] = std::minmax_element(columns.begin(), columns.end());
    return *east - *west <= kTolerance;
}

/// True when a ring has an edge from one side of the map to the other, at its own northern or southern end: the edge
/// with which a shape that fills the whole width of the map ends.
bool HasWorldEdge(const std::vector<TXPoint>& points, std::size_t first)
{
    double north = points[first].y;
    double south = north;
    for (std::size_t i = first; i < points.size(); ++i)
    {
        north = std::min(north, points[i].y);
        south = std::max(south, points[i].y);
    }
    for (std::size_t i = first + 1; i < points.size(); ++i)
    {
        const double y = points[i].y;
        const bool across = std::abs(points[i].x - points[i - 1].x) >= 1.0 - kTolerance;
        if (across && y == points[i - 1].y && (y == north || y == south))
            return true;
    }
    return false;
}

/// Closes a ring that runs once round a pole, along the edge of the world at the pole that it runs round.
void CloseAtPole(std::vector<TXPoint>& points, std::size_t first, const MercatorBox& world)
{
    double rows = 0.0;
    for (std::size_t i = first; i < points.size(); ++i)
        rows += points[i].y - 0.5;
    const double pole = rows < 0.0 ? world.top : world.bottom;
    const TXPoint start = points[first];
    points.emplace_back(points.back().x, pole);
    points.emplace_back(start.x, pole);
    points.push_back(start);
}

} // namespace

void UnwrapLine(std::vector<TXPoint>& points, std::size_t first)
{
    const std::vector<double> columns = ContinuousColumns(points, first);
    if (!columns.empty() && !IsFlat(columns))
        SetColumns(points, first, columns);
}

void UnwrapRing(std::vector<TXPoint>& points, std::size_t first, const MercatorBox& world)
{
    const std::vector<double> columns = ContinuousColumns(points, first);
    if (columns.empty())
        return;
    if (std::abs(columns.back() - columns.front()) <= 0.5)
    {
        if (!IsFlat(columns))
            SetColumns(points, first, columns);
    }
    else if (!HasWorldEdge(points, first))
    {
        SetColumns(points, first, columns);
        CloseAtPole(points, first, world);
    }
}

WorldSpan SpanOf(const std::vector<TXPoint>& points, std::size_t first)
{
    WorldSpan span{1e300, -1e300};
    for (std::size_t i = first; i < points.size(); ++i)
        span = {std::min(span.west, points[i].x), std::max(span.east, points[i].x)};
    return span;
}

void MoveInto(const WorldSpan& outer, std::vector<TXPoint>& points, std::size_t first)
{
    const WorldSpan span = SpanOf(points, first);
    if (span.west >= outer.west && span.east <= outer.east)
        return;
    const double worlds = std::round((outer.west + outer.east - span.west - span.east) / 2.0);
    for (std::size_t i = first; i < points.size(); ++i)
        points[i].x += worlds;
}

} // namespace txmap
