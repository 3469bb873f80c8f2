#include <txmap/drawing/ShorePainter.h>

#include <cmath>
#include <cstddef>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/MapLayer.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXGraphics;
using TZObjects::TXPoint;

namespace
{

// Along a pale band, corners closer together than this part of its width cannot be told apart.
constexpr double kBandCorner = 0.125;

} // namespace

void ShorePainter::Draw(const std::vector<MapLayer>& layers)
{
    // Where the bands of two countries overlap, the lighter one wins, so that they do not add up along a coast.
    canvas.Surface().SetCompositionMode(TXGraphics::CompositionMode_Lighten);
    for (const Stroke& band : style.shore)
    {
        canvas.Use(band);
        for (const MapLayer& layer : layers)
            if (IsLand(layer))
                DrawBand(layer, band.width * canvas.Unit());
    }
    canvas.Surface().SetCompositionMode(TXGraphics::CompositionMode_SourceOver);
}

void ShorePainter::DrawBand(const MapLayer& layer, double width)
{
    // What the sum of all points costs is the sorting of a wide line's whole outline and the rounding of its corners. A
    // band hides both the joints between pieces, which have round caps, and corners that are closer than its blur.
    constexpr std::size_t kPiece = 128;
    const double finest = width * kBandCorner;
    const TXPoint* point = layer.areaPoints.data();
    for (const int size : layer.ringSizes)
    {
        piece.assign(1, *point);
        for (int i = 1; i < size; ++i)
        {
            if (std::hypot(point[i].x - piece.back().x, point[i].y - piece.back().y) < finest && i < size - 1)
                continue;
            piece.push_back(point[i]);
            if (piece.size() < kPiece)
                continue;
            RequireDrawn(canvas.Surface().Polyline(piece.data(), static_cast<int>(piece.size())));
            piece.assign(1, point[i]);
        }
        RequireDrawn(canvas.Surface().Polyline(piece.data(), static_cast<int>(piece.size())));
        point += size;
    }
}

} // namespace txmap
