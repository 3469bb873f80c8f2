#include <txmap/map/RectangleClipper.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

TXRect BoundsOf(const TXPoint* points, std::size_t count)
{
    TXRect bounds(points[0].x, points[0].x, points[0].y, points[0].y);
    for (std::size_t i = 1; i < count; ++i)
        bounds = {std::min(bounds.left, points[i].x), std::max(bounds.right, points[i].x),
                  std::min(bounds.top, points[i].y), std::max(bounds.bottom, points[i].y)};
    return bounds;
}

bool Contains(const TXRect& outer, const TXRect& inner)
{
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top &&
           inner.bottom <= outer.bottom;
}

bool Same(const TXPoint& a, const TXPoint& b) { return a.x == b.x && a.y == b.y; }

void AppendPart(const TXPoint* points, std::size_t count, Parts& result)
{
    result.points.insert(result.points.end(), points, points + count);
    result.counts.push_back(static_cast<int>(count));
}

// The place on the side is exact, whatever the rounding of the other coordinate: neighbours that share the side meet.
TXPoint AtX(const TXPoint& a, const TXPoint& b, double x) { return {x, a.y + (b.y - a.y) * ((x - a.x) / (b.x - a.x))}; }
TXPoint AtY(const TXPoint& a, const TXPoint& b, double y) { return {a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y)), y}; }

/// The part of a segment inside a box, from 0 at its start to 1 at its end.
struct Portion
{
    double from = 0.0;
    double to = 1.0;

    /// Keeps what lies on the inner side of one edge of the box. @param step how much the segment moves outward.
    /// @param room how far its start is from the edge, above 0 inside.
    bool Keep(double step, double room)
    {
        if (step == 0.0)
            return room >= 0.0;
        const double at = room / step;
        if (step < 0.0)
            from = std::max(from, at);
        else
            to = std::min(to, at);
        return from <= to;
    }
};

} // namespace

template <class Inside, class Cut>
void RectangleClipper::CutSide(Inside inside, Cut cut)
{
    next.clear();
    if (current.empty())
        return;
    // The ring stays open in between: its last point comes before its first.
    TXPoint previous = current.back();
    bool wasInside = inside(previous);
    for (const TXPoint& point : current)
    {
        const bool isInside = inside(point);
        if (isInside != wasInside)
            next.push_back(cut(previous, point));
        if (isInside)
            next.push_back(point);
        previous = point;
        wasInside = isInside;
    }
    current.swap(next);
}

void RectangleClipper::ClipRing(const TXPoint* ring, std::size_t count, Parts& result)
{
    if (count < 4)
        return;
    const TXRect bounds = BoundsOf(ring, count);
    if (bounds.Disjoint(box))
        return;
    if (Contains(box, bounds))
    {
        AppendPart(ring, count, result);
        return;
    }
    current.assign(ring, ring + count - 1);
    if (bounds.left < box.left)
        CutSide([&](const TXPoint& p) { return p.x >= box.left; },
                [&](const TXPoint& a, const TXPoint& b) { return AtX(a, b, box.left); });
    if (bounds.right > box.right)
        CutSide([&](const TXPoint& p) { return p.x <= box.right; },
                [&](const TXPoint& a, const TXPoint& b) { return AtX(a, b, box.right); });
    if (bounds.top < box.top)
        CutSide([&](const TXPoint& p) { return p.y >= box.top; },
                [&](const TXPoint& a, const TXPoint& b) { return AtY(a, b, box.top); });
    if (bounds.bottom > box.bottom)
        CutSide([&](const TXPoint& p) { return p.y <= box.bottom; },
                [&](const TXPoint& a, const TXPoint& b) { return AtY(a, b, box.bottom); });
    // A coast that runs outside for long leaves many points in the same corner.
    current.erase(std::unique(current.begin(), current.end(), Same), current.end());
    if (current.size() < 3)
        return;
    AppendPart(current.data(), current.size(), result);
    if (!Same(current.front(), current.back()))
    {
        result.points.push_back(current.front());
        ++result.counts.back();
    }
}

void RectangleClipper::ClipLine(const TXPoint* line, std::size_t count, Parts& result,
                                std::vector<LineSpan>* spans) const
{
    if (count < 2)
        return;
    const TXRect bounds = BoundsOf(line, count);
    if (bounds.Disjoint(box))
        return;
    const bool whole = Contains(box, bounds);
    if (whole && !spans)
    {
        AppendPart(line, count, result);
        return;
    }
    double distance = 0.0;
    // True while the piece that was appended last ends where the next segment begins.
    bool open = false;
    for (std::size_t i = 1; i < count; ++i)
    {
        const TXPoint& a = line[i - 1];
        const TXPoint& b = line[i];
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double length = spans ? std::hypot(dx, dy) : 0.0;
        Portion portion;
        if (portion.Keep(-dx, a.x - box.left) && portion.Keep(dx, box.right - a.x) &&
            portion.Keep(-dy, a.y - box.top) && portion.Keep(dy, box.bottom - a.y))
        {
            if (!open || portion.from > 0.0)
            {
                result.points.push_back(portion.from > 0.0 ? TXPoint{a.x + dx * portion.from, a.y + dy * portion.from}
                                                           : a);
                result.counts.push_back(1);
                if (spans)
                    spans->push_back({distance + length * portion.from, distance});
            }
            open = portion.to >= 1.0;
            result.points.push_back(open ? b : TXPoint{a.x + dx * portion.to, a.y + dy * portion.to});
            ++result.counts.back();
            if (spans)
                spans->back().end = distance + length * portion.to;
        }
        else
            open = false;
        distance += length;
    }
}

} // namespace txmap
