#include <txmap/drawing/layers/LineDecoration.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/LineStroker.h>

namespace txmap
{

using TZObjects::TXImage;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

namespace
{

// The pieces of one colour are so long, in pixels.
constexpr double kPiece = 1.5;
// A line that is moved far out of the picture has longer ones.
constexpr double kMostPieces = 20000.0;
constexpr double kPi = 3.14159265358979323846;

/// A picture that a surface draws; the image refers to the pixels.
struct DrawableImage
{
    Raster pixels;
    TXRefPtr<TXImage> image;
};

} // namespace

void DrawGradientLine(const LayerScene& scene, const TXPoint* points, std::size_t count, const LineLook& look,
                      const LineSpan& span, const Expression& gradient)
{
    const PixelLine line =
        look.offset == 0.0 ? PixelLine(points, points + count) : OffsetLine(points, count, look.offset);
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

void DrawPatternLine(const LayerScene& scene, const PixelLine& line, const LineLook& look, const SpritePicture& picture)
{
    // A picture is as high as the line is wide. Along the line, patterns grow from one whole zoom to the next.
    const double grown = std::exp2(scene.Zoom() - std::floor(scene.Zoom()));
    const double period = picture.Width() * look.wholeZoomWidth / picture.Height() * grown;
    const double height = look.width;
    if (!(period >= 1.0) || height <= 0.0 || look.opacity <= 0.0)
        return;
    DrawableImage drawable{picture.pixels, TXRefPtr<TXImage>(scene.canvas.Engine().NewImage())};
    const PixelSize size = drawable.pixels.size;
    RequireDrawn(drawable.image &&
                 drawable.image->CreateImage(reinterpret_cast<unsigned char*>(drawable.pixels.pixels.data()),
                                             size.width, size.height, TXImage::Format_ARGB32));
    double done = 0.0;
    for (std::size_t i = 1; i < line.size(); ++i)
    {
        const double dx = line[i].x - line[i - 1].x;
        const double dy = line[i].y - line[i - 1].y;
        const double length = std::hypot(dx, dy);
        const double angle = std::atan2(dy, dx) * 180.0 / kPi;
        for (double at = 0.0; at < length;)
        {
            const double phase = std::fmod(done + at, period);
            const double step = std::max(0.01, std::min(period - phase, length - at));
            const double middle = (at + step / 2.0) / length;
            const TXPoint centre(line[i - 1].x + dx * middle, line[i - 1].y + dy * middle);
            const TXRect target(centre.x - step / 2.0, centre.x + step / 2.0, centre.y - height / 2.0,
                                centre.y + height / 2.0);
            const TXRect source(phase / period * size.width, (phase + step) / period * size.width, 0.0, size.height);
            scene.canvas.Surface().DrawImage4BitmapRotate(target, drawable.image.get(), source, angle, look.opacity);
            at += step;
        }
        done += length;
    }
}

} // namespace txmap
