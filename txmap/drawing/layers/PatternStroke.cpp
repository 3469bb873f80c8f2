#include <txmap/drawing/layers/PatternStroke.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/drawing/layers/PixelWindow.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// Mitres are no longer than that, in widths of the line.
constexpr double kLongestMiter = 8.0;
// The cosine of half the turn at a sharp corner, and how far patterns are bent before and behind it, in logical pixels.
constexpr double kSharp = 0.7933533402912352;
constexpr double kSharpZone = 15.0;

double Dot(const TXPoint& a, const TXPoint& b) { return a.x * b.x + a.y * b.y; }

/// How much of a pixel is covered whose centre lies so deep inside of an edge.
double Covered(double depth) { return std::clamp(depth + 0.5, 0.0, 1.0); }

/// A piece of a line between two corners.
struct Segment
{
    TXPoint from;
    TXPoint direction;
    double length;
    double done; ///< The length of the line before it.

    double Along(const TXPoint& point) const { return Dot({point.x - from.x, point.y - from.y}, direction); }
    /// How far to the right a point lies.
    double Across(const TXPoint& point) const
    {
        return (point.y - from.y) * direction.x - (point.x - from.x) * direction.y;
    }
    TXPoint End() const { return {from.x + direction.x * length, from.y + direction.y * length}; }
};

std::vector<Segment> SegmentsOf(const PixelLine& line)
{
    std::vector<Segment> segments;
    double done = 0.0;
    for (std::size_t i = 1; i < line.size(); ++i)
    {
        const double length = std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
        if (length < 1e-6)
            continue;
        segments.push_back(
            {line[i - 1], {(line[i].x - line[i - 1].x) / length, (line[i].y - line[i - 1].y) / length}, length, done});
        done += length;
    }
    return segments;
}

/// Which pixels a stroke covers, and where they lie on it: computed pixel by pixel, because no brush follows a line.
class PatternStroke
{
public:
    PatternStroke(const PixelLine& line, const LineLook& look, double scale)
        : segments(SegmentsOf(line)), look(look), half(look.width / 2.0), scale(scale),
          closed(line.size() > 3 && line.front().x == line.back().x && line.front().y == line.back().y)
    {
    }

    void Draw(const LayerScene& scene, const SpritePicture& picture, double period)
    {
        TXRect box(1e300, -1e300, 1e300, -1e300);
        for (const Segment& segment : segments)
            for (const TXPoint& point : {segment.from, segment.End()})
                box = {std::min(box.left, point.x), std::max(box.right, point.x), std::min(box.top, point.y),
                       std::max(box.bottom, point.y)};
        const double reach = Reach();
        PixelWindow window(scene.canvas, {box.left - reach, box.right + reach, box.top - reach, box.bottom + reach});
        if (segments.empty() || window.IsEmpty())
            return;
        places.assign(window.Count(), {});
        for (std::size_t i = 0; i < segments.size(); ++i)
            Cover(i, window);
        const PixelSampler sampler(picture.pixels, true, PixelSampler::Beyond::Repeat);
        const PixelSize size = picture.pixels.size;
        std::size_t index = 0;
        window.Fill(
            [&](double, double) -> std::uint32_t
            {
                const Place& place = places[index++];
                if (place.covered <= 0.0)
                    return 0;
                // Across the line, a picture does not repeat. Its top is on the right, as in browsers.
                const double row = std::clamp((0.5 - place.across / look.width) * size.height, 0.5, size.height - 0.5);
                const SampledColor color = sampler.At(place.along / period * size.width, row);
                const double part = place.covered;
                return SampledColor{color.red * part, color.green * part, color.blue * part, color.alpha * part}
                    .Packed();
            });
        window.Draw(scene.canvas, look.opacity);
    }

private:
    struct Place
    {
        double covered = 0.0;
        double distance = 1e300; ///< From the nearest segment, whose along and across count.
        double along = 0.0;
        double across = 0.0;
    };

    double Reach() const
    {
        const double miter = look.join == "miter" ? std::clamp(look.miterLimit, 1.5, kLongestMiter) : 1.5;
        return half * miter + 2.0;
    }

    /// The segment after another one, or null at the end of the line.
    const Segment* After(std::size_t i) const
    {
        return i + 1 < segments.size() ? &segments[i + 1] : closed ? &segments.front() : nullptr;
    }
    const Segment* Before(std::size_t i) const
    {
        return i > 0 ? &segments[i - 1] : closed ? &segments.back() : nullptr;
    }

    void Cover(std::size_t i, const PixelWindow& window)
    {
        const Segment& segment = segments[i];
        const TXPoint end = segment.End();
        const double reach = Reach();
        const auto [left, right] = std::minmax(segment.from.x, end.x);
        const auto [top, bottom] = std::minmax(segment.from.y, end.y);
        window.ForEach({left - reach, right + reach, top - reach, bottom + reach},
                       [&](double x, double y, std::size_t index)
                       {
                           const TXPoint point(x, y);
                           const double covered = CoveredBy(i, point);
                           if (covered <= 0.0)
                               return;
                           Place& place = places[index];
                           place.covered = std::max(place.covered, covered);
                           const double along = segment.Along(point);
                           const double across = segment.Across(point);
                           const double beyond = std::max({0.0, -along, along - segment.length});
                           const double distance = std::hypot(beyond, across);
                           // Beyond a corner both segments are equally near.
                           if (distance > place.distance - 1e-6)
                               return;
                           place.distance = distance;
                           place.along = segment.done + Stretched(i, along, across);
                           place.across = across;
                       });
    }

    /// How far along its segment the pattern of a place lies: patterns are stretched and squeezed, so that they pass
    /// over corners without a break. Near sharp corners alone, otherwise over the whole segment.
    double Stretched(std::size_t i, double along, double across) const
    {
        const Segment& segment = segments[i];
        const double zone = std::min(kSharpZone * scale, segment.length / 2.0);
        Bend start = BendOf(Before(i), &segment, across);
        Bend end = BendOf(&segment, After(i), across);
        start.reach = -start.reach;
        double first = 0.0;
        double last = segment.length;
        if (start.sharp && along < zone)
            return Between(first, zone, start.reach, 0.0, along);
        if (end.sharp && along > last - zone)
            return Between(last - zone, last, 0.0, end.reach, along);
        if (start.sharp)
        {
            first = zone;
            start.reach = 0.0;
        }
        if (end.sharp)
        {
            last -= zone;
            end.reach = 0.0;
        }
        return Between(first, last, start.reach, end.reach, along);
    }

    /// What comes to lie at a place if a piece of the line is stretched at its ends by some lengths.
    static double Between(double first, double last, double atFirst, double atLast, double along)
    {
        const double start = first + atFirst;
        const double end = last + atLast;
        return end - start > (last - first) / 4.0 ? first + (along - start) / (end - start) * (last - first) : along;
    }

    /// A corner so far to the right of the line.
    struct Bend
    {
        double reach = 0.0; ///< How far beyond the corner the stroke of either side reaches.
        bool sharp = false;
    };

    Bend BendOf(const Segment* before, const Segment* after, double across) const
    {
        if (!before || !after)
            return {};
        const TXPoint& a = before->direction;
        const TXPoint& b = after->direction;
        const double cosine = std::sqrt(std::max(0.0, (1.0 + Dot(a, b)) / 2.0));
        if (look.join != "miter" || cosine * std::min(look.miterLimit, kLongestMiter) < 1.0)
            return {};
        // The tangent of half the turn, which is to the left if it is negative.
        const double tangent = std::sqrt(1.0 - cosine * cosine) / cosine;
        return {(a.x * b.y - a.y * b.x > 0.0 ? -tangent : tangent) * across, cosine < kSharp};
    }

    double CoveredBy(std::size_t i, const TXPoint& point) const
    {
        const Segment& segment = segments[i];
        const double along = segment.Along(point);
        const double side = Covered(half - std::abs(segment.Across(point)));
        if (along >= 0.0 && along <= segment.length)
        {
            // The pixels at the end of a line are covered in part.
            double whole = side;
            if (!After(i) && look.cap == "butt")
                whole *= Covered(segment.length - along);
            if (!Before(i) && look.cap == "butt")
                whole *= Covered(along);
            return whole;
        }
        const bool isAfter = along > 0.0;
        const Segment* const other = isAfter ? After(i) : Before(i);
        const TXPoint corner = isAfter ? segment.End() : segment.from;
        const double beyond = isAfter ? along - segment.length : -along;
        if (!other)
            return AtEnd(point, corner, side, beyond);
        return AtCorner(point, corner, isAfter ? segment : *other, isAfter ? *other : segment, side);
    }

    double AtEnd(const TXPoint& point, const TXPoint& corner, double side, double beyond) const
    {
        if (look.cap == "round")
            return Covered(half - std::hypot(point.x - corner.x, point.y - corner.y));
        return side * Covered((look.cap == "square" ? half : 0.0) - beyond);
    }

    double AtCorner(const TXPoint& point, const TXPoint& corner, const Segment& before, const Segment& after,
                    double side) const
    {
        if (before.Along(point) < before.length - 0.5 || after.Along(point) > 0.5)
            return 0.0;
        const TXPoint from(point.x - corner.x, point.y - corner.y);
        if (look.join == "round")
            return Covered(half - std::hypot(from.x, from.y));
        const double covered = std::min(
            {side, Covered(half - std::abs(before.Across(point))), Covered(half - std::abs(after.Across(point)))});
        const double cosine = std::sqrt(std::max(0.0, (1.0 + Dot(before.direction, after.direction)) / 2.0));
        if (look.join == "miter" && cosine * std::min(look.miterLimit, kLongestMiter) >= 1.0)
            return covered;
        // A bevel goes from the edge of one side to that of the other.
        const TXPoint outward(before.direction.x - after.direction.x, before.direction.y - after.direction.y);
        const double length = std::hypot(outward.x, outward.y);
        if (length < 1e-9)
            return covered;
        return std::min(covered, Covered(half * cosine - Dot(from, outward) / length));
    }

    std::vector<Segment> segments;
    const LineLook& look;
    double half;
    double scale;
    bool closed;
    std::vector<Place> places;
};

} // namespace

void DrawPatternLine(const LayerScene& scene, const PixelLine& line, const LineLook& look, const SpritePicture& picture)
{
    // Along the line, patterns grow from one whole zoom to the next.
    const double grown = std::exp2(scene.Zoom() - std::floor(scene.Zoom()));
    const double period = picture.Width() * look.wholeZoomWidth / picture.Height() * grown;
    if (period > 0.01 && look.width > 0.0 && look.opacity > 0.0)
        PatternStroke(line, look, scene.Scale()).Draw(scene, picture, period);
}

} // namespace txmap
