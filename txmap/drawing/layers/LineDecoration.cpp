#include <txmap/drawing/layers/LineDecoration.h>

#include <algorithm>
#include <cmath>

#include <txmap/drawing/layers/LineStroker.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// The pieces of one colour are so long, in pixels.
constexpr double kPiece = 1.5;
// A line that is moved far out of the picture has longer ones.
constexpr double kMostPieces = 20000.0;

} // namespace

void DrawGradientLine(const LayerScene& scene, const TXPoint* points, std::size_t count, const LineLook& look,
                      const LineSpan& span, const Expression& gradient)
{
    const PixelLine line = MovedLine(points, count, look, look.offset);
    const double length = LengthOf(line.data(), line.size());
    const int pieces = static_cast<int>(std::clamp(std::ceil(length / kPiece), 1.0, kMostPieces));
    LineStroker stroker(scene.canvas);
    EvaluationContext context = scene.Context();
    for (int i = 0; i < pieces; ++i)
    {
        context.lineProgress = span.start + (span.end - span.start) * (i + 0.5) / pieces;
        LineLook part = look;
        part.color = {0.0, 0.0, 0.0, 0.0};
        Take(gradient.EvaluateOrDefault(context), part.color);
        const bool isOpaque = part.color.alpha >= 1.0 && look.opacity >= 1.0;
        part.color.alpha *= look.opacity;
        const bool isEnd = i == 0 || i + 1 == pieces;
        if (!isEnd)
            part.cap = "butt";
        // Each piece begins below the one before, so that no gap is seen between them.
        const double from = length * i / pieces - (isOpaque && i > 0 ? kPiece : 0.0);
        const PixelLine piece = SubLine(line.data(), line.size(), std::max(0.0, from), length * (i + 1) / pieces);
        stroker.Add(piece.data(), piece.size(), part, 0.0, false);
    }
    stroker.Flush();
}

} // namespace txmap
