// Where the clusters of a text along a line come to lie.
#include <txmap/symbols/text/LineText.h>

#include <algorithm>
#include <cmath>

#include <txmap/symbols/text/MeasuredLine.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kDegrees = 180.0 / M_PI;
// Turns of a line add up within that part of the size.
constexpr double kTurnWindow = 0.6;
// Half the height of a line of text, as a part of the size.
constexpr double kCircleRadius = 0.6;

double AngleBetween(const TXPoint& from, const TXPoint& to) { return std::atan2(to.y - from.y, to.x - from.x); }

/// True when the line turns too much somewhere below the text.
bool TurnsTooMuch(const MeasuredLine& line, double from, double to, double window, double maxAngle)
{
    double turned = 0.0;
    std::size_t oldest = line.FirstCornerBehind(from);
    for (std::size_t corner = oldest; corner < line.CornerCount() && line.CornerAt(corner) < to; ++corner)
    {
        turned += line.TurnAt(corner);
        while (line.CornerAt(corner) - line.CornerAt(oldest) > window)
            turned -= line.TurnAt(oldest++);
        if (turned > maxAngle)
            return true;
    }
    return false;
}

/// How a text lies on its line.
enum class Course
{
    Across,
    Down ///< Ideographs stand upright, one below the other.
};

struct Direction
{
    bool turned = false;
    Course course = Course::Across;
};

Direction DirectionOf(const LineText& text, const MeasuredLine& line, double from, double to)
{
    const TXPoint first = line.PointAt(from);
    const TXPoint last = line.PointAt(to);
    const bool hasUpright = std::any_of(text.clusters.begin(), text.clusters.end(),
                                        [](const LineCluster& cluster) { return cluster.upright; });
    if (hasUpright && std::abs(last.y - first.y) > std::abs(last.x - first.x))
        return {last.y < first.y, Course::Down};
    return {last.x < first.x, Course::Across};
}

std::vector<LineCircle> CirclesAlong(const MeasuredLine& line, double from, double length, double size)
{
    const double radius = kCircleRadius * size;
    const double between = std::max(0.0, length - 2.0 * radius);
    const auto steps = static_cast<std::size_t>(std::ceil(between / radius));
    const double start = from + (length - between) / 2.0;
    std::vector<LineCircle> circles;
    for (std::size_t i = 0; i <= steps; ++i)
    {
        const double part = steps == 0 ? 0.5 : static_cast<double>(i) / static_cast<double>(steps);
        circles.push_back({line.PointAt(start + part * between), radius});
    }
    return circles;
}

FittedText Placed(const LineText& text, const MeasuredLine& line, double from, Course course)
{
    FittedText fitted;
    double at = from;
    for (std::size_t i = 0; i < text.clusters.size(); ++i)
    {
        const LineCluster& cluster = text.clusters[i];
        const double width = cluster.piece.width;
        // The chord below a cluster: at a corner it leans half.
        double angle = AngleBetween(line.PointAt(at), line.PointAt(at + width)) * kDegrees;
        if (course == Course::Down && cluster.upright)
            angle -= 90.0;
        fitted.clusters.push_back({i, line.PointAt(at + width / 2.0), angle});
        at += cluster.advance;
    }
    fitted.circles = CirclesAlong(line, from, text.length, text.size);
    return fitted;
}

bool IsFinite(const LineText& text, double anchor, const LineFit& fit)
{
    return std::isfinite(text.length) && std::isfinite(anchor) && std::isfinite(fit.maxAngle) &&
           std::isfinite(fit.alongOffset) && std::isfinite(fit.sideOffset);
}

} // namespace

std::optional<FittedText> FitAlong(const LineText& text, const PixelLine& points, double anchor, const LineFit& fit)
{
    if (text.IsEmpty() || !IsFinite(text, anchor, fit))
        return std::nullopt;
    MeasuredLine line(points);
    const double half = text.length / 2.0;
    if (!line.IsUsable() || anchor < 0.0 || anchor > line.Length())
        return std::nullopt;
    const Direction direction = fit.keepUpright ? DirectionOf(text, line, anchor - half, anchor + half) : Direction();
    if (direction.turned)
    {
        line = line.Reversed();
        anchor = line.Length() - anchor;
    }
    if (fit.sideOffset != 0.0)
    {
        const MeasuredLine moved = line.Moved(fit.sideOffset);
        if (!moved.IsUsable())
            return std::nullopt;
        anchor = moved.Nearest(line.PointBeside(anchor, fit.sideOffset));
        line = moved;
    }
    const double from = anchor + fit.alongOffset - half;
    const double to = from + text.length;
    const bool fits = from >= 0.0 && to <= line.Length();
    if (!fits || TurnsTooMuch(line, from, to, kTurnWindow * text.size, fit.maxAngle / kDegrees))
        return std::nullopt;
    FittedText fitted = Placed(text, line, from, direction.course);
    fitted.turned = direction.turned;
    return fitted;
}

} // namespace txmap
