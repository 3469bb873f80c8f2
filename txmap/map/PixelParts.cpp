#include <txmap/map/PixelParts.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <txmap/map/LineSimplifier.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// The lines of a grid are so many pixels apart: a multiple of all sides of tiles would be more than surfaces take.
constexpr double kGrid = 1024.0;
// So many pixels outside of what is seen, lines go on where nobody sees them.
constexpr double kFar = 256.0;
// How far from the edge of the world a point of cut data may lie: some 12 cm.
constexpr double kEdge = 3e-9;
// Data that ends at a pole ends there up to what its makers took for one.
constexpr double kNearPole = 2.5e-4;

bool Close(const TXPoint& a, const TXPoint& b, double distance)
{
    return std::abs(a.x - b.x) < distance && std::abs(a.y - b.y) < distance;
}

bool MayTouch(const TXPoint& a, const TXPoint& b, const TXRect& box)
{
    return std::max(a.x, b.x) >= box.left && std::min(a.x, b.x) <= box.right && std::max(a.y, b.y) >= box.top &&
           std::min(a.y, b.y) <= box.bottom;
}

/// On which sides of a box a point lies, or upon which: bits.
unsigned SidesBeyond(const TXPoint& point, const TXRect& box)
{
    return (point.x <= box.left ? 1u : 0u) | (point.x >= box.right ? 2u : 0u) | (point.y <= box.top ? 4u : 0u) |
           (point.y >= box.bottom ? 8u : 0u);
}

/// Appends a line as one piece if a part of it may be seen, because surfaces blend pieces with each other where they
/// cross. What is not seen goes along the sides of a larger box, straight from the first to the last point at a side.
void AppendSeenLine(const std::vector<TXPoint>& line, const TXRect& box, Parts& result)
{
    std::size_t first = line.size(), last = 0;
    for (std::size_t i = 1; i < line.size(); ++i)
        if (MayTouch(line[i - 1], line[i], box))
        {
            first = std::min(first, i - 1);
            last = i;
        }
    if (first >= last)
        return;
    const TXRect far{box.left - kFar, box.right + kFar, box.top - kFar, box.bottom + kFar};
    const std::size_t before = result.points.size();
    unsigned sides = 0;      // Of the point before,
    unsigned sharedSide = 0; // and those that it shares with the one before that.
    for (std::size_t i = first; i <= last; ++i)
    {
        const bool isSeen =
            (i > first && MayTouch(line[i - 1], line[i], box)) || (i < last && MayTouch(line[i], line[i + 1], box));
        // On whichever side of the box a point is, it stays there.
        const TXPoint point =
            isSeen ? line[i]
                   : TXPoint(std::clamp(line[i].x, far.left, far.right), std::clamp(line[i].y, far.top, far.bottom));
        if (result.points.size() > before && point.x == result.points.back().x && point.y == result.points.back().y)
            continue;
        const unsigned beyond = isSeen ? 0 : SidesBeyond(point, far);
        if ((sharedSide & beyond) != 0)
            result.points.back() = point;
        else
            result.points.push_back(point);
        sharedSide = (sharedSide & beyond) != 0 ? sharedSide & beyond : sides & beyond;
        sides = beyond;
    }
    result.counts.push_back(static_cast<int>(result.points.size() - before));
}

/// The numbers from one value to another, of those between, at which a line of the grid is crossed, in the order of the
/// way; without the ends. @param nearest,farthest no others are wanted.
template <class Visit>
void ForEachCrossing(double from, double to, double nearest, double farthest, Visit visit)
{
    const double low = std::max(std::min(from, to), nearest), high = std::min(std::max(from, to), farthest);
    for (double line = std::ceil(low / kGrid) * kGrid; line <= high; line += kGrid)
        if (line != from && line != to)
            visit(line, (line - from) / (to - from));
}

TXRect ToRect(const MercatorBox& box) { return {box.left, box.right, box.top, box.bottom}; }

bool IsEdgeOfWorld(const TXPoint& a, const TXPoint& b, const MercatorBox& world)
{
    if (std::abs(a.x - b.x) < 2.0 * kEdge)
    {
        const double side = std::round(a.x);
        if (std::abs(a.x - side) < kEdge && std::abs(b.x - side) < kEdge)
            return true;
    }
    const double top = world.top + kNearPole;
    const double bottom = world.bottom - kNearPole;
    return (a.y <= top && b.y <= top) || (a.y >= bottom && b.y >= bottom);
}

/// The end of the first edge along the edge of the world; 0 for none.
std::size_t FirstEdgeOfWorld(const TXPoint* ring, std::size_t count, const MercatorBox& world)
{
    for (std::size_t i = 1; i < count; ++i)
        if (IsEdgeOfWorld(ring[i - 1], ring[i], world))
            return i;
    return 0;
}

} // namespace

PixelParts::PixelParts(const AffineMatrix& toPixels, const TXRect& picture, const std::optional<MercatorBox>& tile)
    : toPixels(toPixels), tolerance(kFinest), pictureClipper(picture)
{
    if (tile)
        tileClipper.emplace(ToRect(*tile));
}

void PixelParts::SetTolerance(double pixels)
{
    tolerance = std::max(tolerance, pixels);
    joinsSpots = true;
}

void PixelParts::SnapToGrid(const TXPoint& corner, bool keeps)
{
    origin = corner;
    keepsLines = keeps;
    toPixels.x0 += corner.x;
    toPixels.y0 += corner.y;
    seen = pictureClipper.Box();
    // Cut at lines of the grid, where there are points already, edges stay as they are.
    const auto before = [](double value, double start) { return std::floor((value + start) / kGrid) * kGrid - start; };
    const auto behind = [](double value, double start) { return std::ceil((value + start) / kGrid) * kGrid - start; };
    pictureClipper = RectangleClipper({before(seen.left, corner.x), behind(seen.right, corner.x),
                                       before(seen.top, corner.y), behind(seen.bottom, corner.y)});
}

void PixelParts::Snap(bool splits)
{
    const TXRect& box = pictureClipper.Box();
    snapped.clear();
    std::vector<std::pair<double, TXPoint>> crossings;
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        if (splits && i > 0)
        {
            const TXPoint& a = pixels[i - 1];
            const TXPoint& b = pixels[i];
            crossings.clear();
            ForEachCrossing(a.x, b.x, box.left + origin->x, box.right + origin->x,
                            [&](double x, double at) {
                                crossings.push_back({at, {x, a.y + (b.y - a.y) * at}});
                            });
            ForEachCrossing(a.y, b.y, box.top + origin->y, box.bottom + origin->y,
                            [&](double y, double at) {
                                crossings.push_back({at, {a.x + (b.x - a.x) * at, y}});
                            });
            std::sort(crossings.begin(), crossings.end(),
                      [](const auto& one, const auto& other) { return one.first < other.first; });
            for (const auto& crossing : crossings)
                snapped.push_back(crossing.second);
        }
        snapped.push_back(pixels[i]);
    }
    pixels.clear();
    for (const TXPoint& point : snapped)
    {
        const TXPoint placed = OnGrid(point);
        pixels.emplace_back(placed.x - origin->x, placed.y - origin->y);
    }
}

void PixelParts::Reduce(const TXPoint* points, std::size_t count)
{
    pixels.clear();
    TXPoint last;
    for (std::size_t i = 0; i < count; ++i)
    {
        last = toPixels.Map(points[i]);
        if (pixels.empty() || !Close(last, pixels.back(), tolerance))
            pixels.push_back(last);
    }
    // The end of a line is where another one begins, and the end of a ring is its start.
    if (pixels.size() > 1)
        pixels.back() = last;
}

void PixelParts::AddRing(const TXPoint* points, std::size_t count)
{
    if (tileClipper)
    {
        cut.Clear();
        tileClipper->ClipRing(points, count, cut);
        points = cut.points.data();
        count = cut.points.size();
    }
    Reduce(points, count);
    if (origin)
        Snap(true);
    pictureClipper.ClipRing(pixels.data(), pixels.size(), result);
}

void PixelParts::AddLinePiece(const TXPoint* points, std::size_t count, std::vector<LineSpan>* spans)
{
    Reduce(points, count);
    // Where a piece lies on its line is known as exactly as how long the line is.
    if (!spans)
        DropStraightPoints(pixels, tolerance);
    // A line that is shorter than anyone could see may still be a dot, by its width and its caps.
    if (pixels.size() == 1 && count > 1)
    {
        if (joinsSpots && !spots.insert(SpotOf(pixels[0], tolerance)).second)
            return;
        pixels.push_back(toPixels.Map(points[count - 1]));
    }
    if (origin)
    {
        Snap(!keepsLines);
        if (!keepsLines && !spans)
            return AppendSeenLine(pixels, seen, result);
        const double all = std::numeric_limits<double>::infinity();
        return AppendSeenSegments(pixels.data(), pixels.size(), keepsLines ? TXRect{-all, all, -all, all} : seen,
                                  result, spans);
    }
    pictureClipper.ClipLine(pixels.data(), pixels.size(), result, spans);
}

void PixelParts::AddLine(const TXPoint* points, std::size_t count, std::vector<LineSpan>* spans)
{
    const std::size_t firstSpan = spans ? spans->size() : 0;
    if (!tileClipper)
        AddLinePiece(points, count, spans);
    else
    {
        cut.Clear();
        std::vector<LineSpan> pieces;
        tileClipper->ClipLine(points, count, cut, spans ? &pieces : nullptr);
        const TXPoint* piece = cut.points.data();
        for (std::size_t i = 0; i < cut.counts.size(); ++i)
        {
            const std::size_t first = spans ? spans->size() : 0;
            const auto size = static_cast<std::size_t>(cut.counts[i]);
            AddLinePiece(piece, size, spans);
            piece += size;
            if (!spans)
                continue;
            const double scale = std::hypot(toPixels.xx, toPixels.yx);
            for (std::size_t k = first; k < spans->size(); ++k)
            {
                (*spans)[k].start += pieces[i].start * scale;
                (*spans)[k].end += pieces[i].start * scale;
            }
        }
    }
    if (!spans || spans->size() == firstSpan)
        return;
    double length = 0.0;
    for (std::size_t i = 1; i < count; ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    length *= std::hypot(toPixels.xx, toPixels.yx);
    for (std::size_t k = firstSpan; k < spans->size(); ++k)
    {
        LineSpan& span = (*spans)[k];
        span.start = length > 0.0 ? std::fmin(span.start / length, 1.0) : 0.0;
        span.end = length > 0.0 ? std::fmin(span.end / length, 1.0) : 1.0;
    }
}

void PixelParts::AddOutline(const TXPoint* ring, std::size_t count, const MercatorBox& world,
                            std::vector<LineSpan>* spans)
{
    if (FirstEdgeOfWorld(ring, count, world) == 0)
    {
        if (!origin || count < 4)
            return AddLine(ring, count, spans);
        // From the middle of a side, so that no picture need know whether the ring closes in it: ends meet without a
        // corner.
        std::vector<TXPoint> turned(ring, ring + count);
        turned.front() = {(ring[0].x + ring[1].x) / 2.0, (ring[0].y + ring[1].y) / 2.0};
        turned.push_back(turned.front());
        return AddLine(turned.data(), turned.size(), spans);
    }
    Parts lines;
    AppendOutline(ring, count, world, lines);
    const TXPoint* point = lines.points.data();
    for (const int size : lines.counts)
    {
        AddLine(point, static_cast<std::size_t>(size), spans);
        point += size;
    }
}

void PixelParts::AddPoint(const TXPoint& point)
{
    if (tileClipper)
    {
        const TXRect& tile = tileClipper->Box();
        if (point.x < tile.left || point.x >= tile.right || point.y < tile.top || point.y >= tile.bottom)
            return;
    }
    TXPoint pixel = toPixels.Map(point);
    if (origin)
    {
        const TXPoint placed = OnGrid(pixel);
        pixel = {placed.x - origin->x, placed.y - origin->y};
    }
    const TXRect& picture = origin ? seen : pictureClipper.Box();
    if (pixel.x < picture.left || pixel.x > picture.right || pixel.y < picture.top || pixel.y > picture.bottom)
        return;
    result.points.push_back(pixel);
    result.counts.push_back(1);
}

void AppendOutline(const TXPoint* ring, std::size_t count, const MercatorBox& world, Parts& lines)
{
    if (count < 2)
        return;
    // Begin behind an edge that is left out, so that no line is broken where the ring happens to begin.
    const std::size_t start = FirstEdgeOfWorld(ring, count, world);
    if (start == 0)
    {
        lines.points.insert(lines.points.end(), ring, ring + count);
        lines.counts.push_back(static_cast<int>(count));
        return;
    }
    const std::size_t edges = count - 1;
    bool open = false;
    for (std::size_t k = 0; k < edges; ++k)
    {
        const TXPoint& a = ring[(start + k) % edges];
        const TXPoint& b = ring[(start + k + 1) % edges];
        if (IsEdgeOfWorld(a, b, world))
        {
            open = false;
            continue;
        }
        if (!open)
        {
            lines.points.push_back(a);
            lines.counts.push_back(1);
        }
        lines.points.push_back(b);
        ++lines.counts.back();
        open = true;
    }
}

void AppendSeenSegments(const TXPoint* line, std::size_t count, const TXRect& box, Parts& result,
                        std::vector<LineSpan>* spans)
{
    bool open = false;
    double distance = 0.0;
    for (std::size_t i = 1; i < count; ++i)
    {
        const TXPoint& a = line[i - 1];
        const TXPoint& b = line[i];
        const double length = spans ? std::hypot(b.x - a.x, b.y - a.y) : 0.0;
        if (MayTouch(a, b, box))
        {
            if (!open)
            {
                result.points.push_back(a);
                result.counts.push_back(1);
                if (spans)
                    spans->push_back({distance, distance});
            }
            open = true;
            result.points.push_back(b);
            ++result.counts.back();
            if (spans)
                spans->back().end = distance + length;
        }
        else
            open = false;
        distance += length;
    }
}

} // namespace txmap
