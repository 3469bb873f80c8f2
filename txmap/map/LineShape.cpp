#include <txmap/map/LineShape.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kFinestPattern = 0.25;
constexpr double kApart = 1e-3;

double Distance(const TXPoint& a, const TXPoint& b) { return std::hypot(b.x - a.x, b.y - a.y); }

TXPoint Along(const TXPoint& a, const TXPoint& b, double position)
{
    return {a.x + (b.x - a.x) * position, a.y + (b.y - a.y) * position};
}

/// The direction from a point to another one that is elsewhere.
TXPoint Direction(const TXPoint& a, const TXPoint& b)
{
    const double length = Distance(a, b);
    return {(b.x - a.x) / length, (b.y - a.y) / length};
}

TXPoint RightOf(const TXPoint& direction) { return {-direction.y, direction.x}; }

PixelLine WithoutRepeats(const TXPoint* points, std::size_t count)
{
    PixelLine line;
    for (std::size_t i = 0; i < count; ++i)
        if (line.empty() || Distance(line.back(), points[i]) > kApart)
            line.push_back(points[i]);
    return line;
}

/// The cosine of half the angle by which a line turns.
double HalfCosine(const TXPoint& before, const TXPoint& after)
{
    return std::sqrt(std::max(0.0, (1.0 + before.x * after.x + before.y * after.y) / 2.0));
}

/// Points between two around a corner, so that a round join has its shape.
void AddArc(const TXPoint& corner, const TXPoint& first, const TXPoint& second, double offset, PixelLine& result)
{
    constexpr double kStep = 0.2;
    const double turn = std::atan2(first.x * second.y - first.y * second.x, first.x * second.x + first.y * second.y);
    const int steps = static_cast<int>(std::abs(turn) / kStep);
    const double angle = std::atan2(first.y, first.x);
    for (int i = 1; i <= steps; ++i)
    {
        const double at = angle + turn * i / (steps + 1);
        result.emplace_back(corner.x + std::cos(at) * offset, corner.y + std::sin(at) * offset);
    }
}

/// @param room the length of the shorter side of the corner.
void OffsetCorner(const TXPoint& corner, const TXPoint& before, const TXPoint& after, double room, double offset,
                  const OffsetCorners& corners, PixelLine& result)
{
    const double cosine = HalfCosine(before, after);
    const TXPoint first = RightOf(before);
    const TXPoint second = RightOf(after);
    const bool isInner = (before.x * after.y - before.y * after.x) * offset > 0.0;
    const bool meets =
        isInner && corners.meet && std::abs(offset) * std::sqrt(std::max(0.0, 1.0 - cosine * cosine)) <= room * cosine;
    if (!meets && cosine * corners.limit < 1.0)
    {
        // Both sides go on a little, so that the edge keeps its distance from the corner.
        const double more = corners.meet && !isInner && !corners.round ? std::abs(offset) / 2.0 : 0.0;
        result.emplace_back(corner.x + first.x * offset + before.x * more,
                            corner.y + first.y * offset + before.y * more);
        if (corners.round && !isInner)
            AddArc(corner, first, second, offset, result);
        result.emplace_back(corner.x + second.x * offset - after.x * more,
                            corner.y + second.y * offset - after.y * more);
        return;
    }
    // The sum of the two normals is twice the cosine long, and the corner lies offset / cosine away.
    const double factor = offset / (2.0 * cosine * cosine);
    result.emplace_back(corner.x + (first.x + second.x) * factor, corner.y + (first.y + second.y) * factor);
}

} // namespace

double LengthOf(const TXPoint* points, std::size_t count)
{
    double length = 0.0;
    for (std::size_t i = 1; i < count; ++i)
        length += Distance(points[i - 1], points[i]);
    return length;
}

PixelLine OffsetLine(const TXPoint* points, std::size_t count, double offset, const OffsetCorners& corners)
{
    PixelLine line = WithoutRepeats(points, count);
    if (line.size() < 2)
        return line;
    const std::size_t last = line.size() - 1;
    const bool closed = last > 2 && count > 2 && Distance(points[0], points[count - 1]) <= kApart;
    PixelLine result;
    for (std::size_t i = 0; i <= last; ++i)
    {
        const bool isEnd = i == 0 || i == last;
        const TXPoint after = i < last ? Direction(line[i], line[i + 1]) : Direction(line[0], line[1]);
        const TXPoint before = i > 0 ? Direction(line[i - 1], line[i]) : Direction(line[last - 1], line[last]);
        if (!isEnd || closed)
        {
            const TXPoint& previous = i > 0 ? line[i - 1] : line[last - 1];
            const TXPoint& next = i < last ? line[i + 1] : line[1];
            const double room = std::min(Distance(previous, line[i]), Distance(line[i], next));
            OffsetCorner(line[i], before, after, room, offset, corners, result);
        }
        else
        {
            const TXPoint right = RightOf(i == 0 ? after : before);
            result.emplace_back(line[i].x + right.x * offset, line[i].y + right.y * offset);
        }
    }
    return result;
}

PixelLine BevelSharpCorners(const TXPoint* points, std::size_t count, double width, double limit)
{
    PixelLine line = WithoutRepeats(points, count);
    if (line.size() < 3)
        return line;
    PixelLine result{line.front()};
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
    {
        const TXPoint before = Direction(line[i - 1], line[i]);
        const TXPoint after = Direction(line[i], line[i + 1]);
        const double cosine = HalfCosine(before, after);
        if (cosine * limit >= 1.0)
        {
            result.push_back(line[i]);
            continue;
        }
        // The tangent of a quarter of the turn: that far from the corner, in half widths, the two mitres end where the
        // bevel does.
        const double wanted = width / 2.0 * std::sqrt((1.0 - cosine) / (1.0 + cosine));
        const double room = std::min(Distance(line[i - 1], line[i]), Distance(line[i], line[i + 1]));
        const double step = std::max(0.02, std::min(wanted, room * 0.49));
        result.emplace_back(line[i].x - before.x * step, line[i].y - before.y * step);
        result.emplace_back(line[i].x + after.x * step, line[i].y + after.y * step);
    }
    result.push_back(line.back());
    return result;
}

PixelLine SubLine(const TXPoint* points, std::size_t count, double from, double to)
{
    PixelLine result;
    double done = 0.0;
    for (std::size_t i = 1; i < count && done <= to; ++i)
    {
        const double length = Distance(points[i - 1], points[i]);
        const double end = done + length;
        if (end >= from && length > 0.0)
        {
            if (result.empty())
                result.push_back(Along(points[i - 1], points[i], std::max(0.0, (from - done) / length)));
            result.push_back(Along(points[i - 1], points[i], std::min(1.0, (to - done) / length)));
        }
        done = end;
    }
    return result;
}

void AppendDashes(const TXPoint* points, std::size_t count, const std::vector<double>& pattern, double phase,
                  Parts& result)
{
    double period = 0.0, gaps = 0.0;
    for (std::size_t i = 0; i < pattern.size(); ++i)
    {
        period += pattern[i];
        gaps += i % 2 == 1 ? pattern[i] : 0.0;
    }
    const auto append = [&](const PixelLine& line)
    {
        if (line.size() < 2)
            return;
        result.points.insert(result.points.end(), line.begin(), line.end());
        result.counts.push_back(static_cast<int>(line.size()));
    };
    if (!(period > kFinestPattern) || !std::isfinite(period) || gaps <= 0.0)
        return append(PixelLine(points, points + count));
    // Where the line begins in the pattern.
    std::size_t index = 0;
    double left = std::fmod(phase, period);
    while (left > 0.0 && left >= pattern[index % pattern.size()])
        left -= pattern[index++ % pattern.size()];
    left = pattern[index % pattern.size()] - left;
    const auto isDash = [&] { return index % pattern.size() % 2 == 0; };
    PixelLine dash;
    // A dash that begins where the line ends is no dot; one without length is.
    const auto end = [&](bool isWhole)
    {
        if (dash.size() > 1 && (isWhole || LengthOf(dash.data(), dash.size()) > kApart))
            append(dash);
        dash.clear();
    };
    for (std::size_t i = 1; i < count; ++i)
    {
        const double length = Distance(points[i - 1], points[i]);
        double done = 0.0;
        while (length > 0.0 && done + left <= length)
        {
            const bool wasDash = isDash();
            if (wasDash && dash.empty())
                dash.push_back(Along(points[i - 1], points[i], done / length));
            done += left;
            // A gap without length parts nothing.
            do
                left = pattern[++index % pattern.size()];
            while (!isDash() && left == 0.0);
            if (wasDash && !isDash())
            {
                dash.push_back(Along(points[i - 1], points[i], done / length));
                end(true);
            }
        }
        if (isDash() && length > 0.0)
        {
            if (dash.empty())
                dash.push_back(Along(points[i - 1], points[i], done / length));
            dash.push_back(points[i]);
        }
        left -= length - done;
    }
    end(false);
}

} // namespace txmap
