#include <txmap/drawing/layers/LineStroker.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXPen;
using TZObjects::TXPoint;

namespace
{

constexpr int kMostBlurSteps = 24;
// A surface draws mitres up to four times the width whole.
constexpr double kMiterOfSurface = 4.0;
// At corners with a shorter mitre, nobody sees of what kind a join is.
constexpr double kStraightMiter = 1.05;

TXPen::PenCapStyle CapOf(const LineLook& look)
{
    if (look.cap == "round")
        return TXPen::RoundCap;
    // The ends of dashes are butt unless they are round.
    return look.cap == "square" && look.dashes.empty() ? TXPen::SquareCap : TXPen::FlatCap;
}

TXPen::PenJoinStyle JoinOf(const LineLook& look)
{
    if (look.join == "round")
        return TXPen::RoundJoin;
    return look.join == "bevel" || look.miterLimit < 1.0 ? TXPen::BevelJoin : TXPen::MiterJoin;
}

Parts WithBevels(const Parts& lines, const LineLook& look)
{
    Parts result;
    const TXPoint* points = lines.points.data();
    for (const int size : lines.counts)
    {
        const auto count = static_cast<std::size_t>(size);
        const PixelLine line = BevelSharpCorners(points, count, look.width, std::min(look.miterLimit, kMiterOfSurface));
        result.points.insert(result.points.end(), line.begin(), line.end());
        result.counts.push_back(static_cast<int>(line.size()));
        points += count;
    }
    return result;
}

/// A pen of any width. No pen is thinner than a pixel; thinner lines are paler, and never invisible.
PenLook PenOf(const LineLook& look, double width, double alpha)
{
    PenLook pen;
    pen.color = look.color;
    pen.color.alpha = alpha;
    pen.width = std::max(1.0, width);
    if (width < 1.0)
        pen.color.alpha *= (width + 1.0) * (width + 1.0) / 4.0;
    pen.cap = CapOf(look);
    pen.join = JoinOf(look);
    return pen;
}

} // namespace

std::vector<PenLook> PensFor(const LineLook& look)
{
    if (look.width <= 0.0 || look.color.alpha <= 0.0)
        return {};
    if (look.blur < 0.5)
        return {PenOf(look, look.width, look.color.alpha)};
    // From half a pixel outside, the line gets denser inward over the blur and that pixel.
    const double outside = look.width / 2.0 + 0.5;
    const double ramp = look.blur + 1.0;
    // An edge is a ramp of a pixel, so that steps of a pixel make one even ramp.
    const int steps = std::clamp(static_cast<int>(std::ceil(ramp)), 2, kMostBlurSteps);
    std::vector<PenLook> pens;
    double before = 0.0;
    for (int i = 0; i < steps; ++i)
    {
        const double radius = outside - (i + 0.5) / steps * ramp;
        if (radius <= 0.0)
            break;
        const double wanted = look.color.alpha * (i + 1) / steps;
        // What is there already is seen through what is drawn over it.
        pens.push_back(PenOf(look, 2.0 * radius, before < 1.0 ? (wanted - before) / (1.0 - before) : 1.0));
        before = wanted;
    }
    return pens;
}

PixelLine MovedLine(const TXPoint* points, std::size_t count, const LineLook& look, double offset)
{
    if (offset == 0.0)
        return PixelLine(points, points + count);
    if (look.gap > 0.0)
        return OffsetLine(points, count, offset,
                          {look.join == "miter" ? look.miterLimit : kStraightMiter, look.join == "round", false});
    return OffsetLine(points, count, offset, {look.join == "miter" ? look.miterLimit : kMiterOfSurface});
}

void LineStroker::Add(const TXPoint* points, std::size_t count, const LineLook& look, double phase, bool closes)
{
    if (look.gap <= 0.0)
    {
        AddShape(MovedLine(points, count, look, look.offset), look, phase, closes);
        return;
    }
    const double apart = (look.gap + look.width) / 2.0;
    AddShape(MovedLine(points, count, look, look.offset - apart), look, phase, closes);
    AddShape(MovedLine(points, count, look, look.offset + apart), look, phase, closes);
}

void LineStroker::AddShape(PixelLine line, const LineLook& look, double phase, bool closes)
{
    if (line.size() < 2)
        return;
    const std::vector<PenLook> pens = PensFor(look);
    Parts pieces;
    if (!look.dashes.empty())
        AddDashes(line, look, phase, pieces);
    else
    {
        // Over its first side once more, a ring has a corner where it closes.
        if (closes && line.size() > 3 && line.front().x == line.back().x && line.front().y == line.back().y)
            line.push_back(line[1]);
        pieces.points = std::move(line);
        pieces.counts = {static_cast<int>(pieces.points.size())};
    }
    if (!pens.empty() && pens.front().join == TXPen::MiterJoin)
        pieces = WithBevels(pieces, look);
    for (const PenLook& pen : pens)
    {
        Use(pen);
        parts.points.insert(parts.points.end(), pieces.points.begin(), pieces.points.end());
        parts.counts.insert(parts.counts.end(), pieces.counts.begin(), pieces.counts.end());
    }
}

void LineStroker::AddDashes(const PixelLine& line, const LineLook& look, double phase, Parts& pieces) const
{
    // A line may have been moved far out of the picture, where nobody sees its dashes.
    const TZObjects::TXRect box = canvas.View().PictureBox(2.0 * look.width + 4.0);
    Parts seen;
    std::vector<LineSpan> spans;
    // What is cut to one picture would differ in its neighbour.
    if (canvas.View().GridOrigin())
        AppendSeenSegments(line.data(), line.size(), box, seen, &spans);
    else
        RectangleClipper(box).ClipLine(line.data(), line.size(), seen, &spans);
    const std::size_t first = pieces.points.size();
    const TXPoint* points = seen.points.data();
    for (std::size_t i = 0; i < seen.counts.size(); ++i)
    {
        const auto count = static_cast<std::size_t>(seen.counts[i]);
        AppendDashes(points, count, look.dashes, phase + spans[i].start, pieces);
        points += count;
    }
    if (canvas.View().GridOrigin())
        for (auto point = pieces.points.begin() + static_cast<std::ptrdiff_t>(first); point != pieces.points.end();
             ++point)
            *point = OnGrid(*point);
}

void LineStroker::Use(const PenLook& look)
{
    if (look == pen)
        return;
    Flush();
    pen = look;
}

void LineStroker::Flush()
{
    if (!parts.IsEmpty())
    {
        canvas.UsePen(pen);
        RequireDrawn(canvas.Surface().PolyPolyline(parts.points.data(), parts.counts.data(),
                                                   static_cast<int>(parts.counts.size())));
    }
    parts.Clear();
}

} // namespace txmap
