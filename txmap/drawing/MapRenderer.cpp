#include <txmap/drawing/MapRenderer.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txgraphics/TXLinearGradient.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/map/FrameShape.h>
#include <txmap/sources/Raster.h>
#include <txmap/support/Failure.h>

namespace TZObjects
{
namespace
{

// The shorter side of the map that the style's widths are meant for.
constexpr double kUsualSide = 1024.0;
// In small pictures lines and places get thinner only so far.
constexpr double kSmallestUnit = 0.5;

// Along a pale band, corners closer together than this part of its width cannot be told apart.
constexpr double kBandCorner = 0.125;
// The clip has its corners at whole pixels, so its edge is up to this far from the frame, on both sides of it.
constexpr double kNarrowestFrame = 2.0;

bool IsLand(const MapLayer& layer) { return layer.role != LayerRole::Lakes; }

} // namespace

MapRenderer::MapRenderer(TXGraphicsEngine& engine, const View& view, const Style& style)
    : engine(engine), view(view), style(style),
      unit(std::max(kSmallestUnit, std::min(view.Frame().Width(), view.Frame().Height()) / kUsualSide)),
      surface(engine.NewGraphics())
{
    const PixelSize size = view.Size();
    const bool ready = surface && surface->CreateCompatibleGraphics(size.width, size.height) && surface->GetImage() &&
                       surface->GetImage()->GetWidth() == size.width;
    if (!ready)
        throw Failure(ExitCode::Drawing, "a picture of " + std::to_string(size.width) + "x" +
                                             std::to_string(size.height) + " pixels cannot be made");
}

bool MapRenderer::Save(const std::string& path) { return surface->Save(path.c_str()); }

TXRefPtr<TXPen> MapRenderer::MakePen(const Stroke& stroke) const
{
    return SolidPen(engine, stroke.color, stroke.width * unit);
}

void MapRenderer::Use(const Stroke& stroke) { surface->SelectPen(MakePen(stroke)); }

void MapRenderer::Draw(const MapContent& content)
{
    if (content.frame)
        ClipTo(*content.frame);
    DrawSea();
    DrawShores(content.layers);
    for (const MapLayer& layer : content.layers)
        DrawAreas(layer);
    if (content.raster)
    {
        DrawRaster(*content.raster, content.rasterOpacity);
        for (const MapLayer& layer : content.layers)
            DrawOutlines(layer);
    }
    DrawGraticule(content.graticule);
    for (const MapLayer& layer : content.layers)
        DrawLines(layer);
    for (const MapLayer& layer : content.layers)
        content.places.Draw(engine, *surface, layer.places);
    DrawMargins();
}

void MapRenderer::ClipTo(const FrameShape& frame)
{
    RequireDrawn(surface->ClearWithColor(style.paper));
    surface->SetClipRegion(frame.Points().data(), frame.Counts().data(), static_cast<int>(frame.Counts().size()), false,
                           style.paper);
}

double MapRenderer::FrameWidth() const { return std::max(kNarrowestFrame, style.frame.width * unit); }

void MapRenderer::DrawFrame(const FrameShape& frame)
{
    surface->RestoreClipRegion();
    surface->SelectPen(SolidPen(engine, style.frame.color, FrameWidth()));
    RequireDrawn(
        surface->PolyPolyline(frame.Points().data(), frame.Counts().data(), static_cast<int>(frame.Counts().size())));
}

void MapRenderer::DrawRaster(Raster& raster, double opacity)
{
    const TXRefPtr<TXImage> image(engine.NewImage());
    RequireDrawn(image && image->CreateImage(reinterpret_cast<unsigned char*>(raster.pixels.data()), raster.size.width,
                                             raster.size.height, TXImage::Format_ARGB32));
    RequireDrawn(surface->DrawImage(image.get(), opacity));
}

void MapRenderer::DrawOutlines(const MapLayer& layer)
{
    if (layer.ringSizes.empty())
        return;
    const auto draw = [&](const Stroke& stroke)
    {
        Use(stroke);
        RequireDrawn(surface->PolyPolyline(layer.areaPoints.data(), layer.ringSizes.data(),
                                           static_cast<int>(layer.ringSizes.size())));
    };
    if (IsLand(layer))
        draw(style.overRaster);
    draw(IsLand(layer) ? style.outline : style.lakeShore);
}

void MapRenderer::DrawMargins()
{
    const TXRect& frame = view.Frame();
    const double width = view.Size().width;
    const double height = view.Size().height;
    for (const TXRect& margin : {TXRect(0.0, width, 0.0, frame.top), TXRect(0.0, width, frame.bottom, height),
                                 TXRect(0.0, frame.left, 0.0, height), TXRect(frame.right, width, 0.0, height)})
        if (margin.Width() > 0.0 && margin.Height() > 0.0)
            RequireDrawn(surface->fillRect(margin, style.paper));
}

void MapRenderer::DrawSea()
{
    // The gradient belongs to the globe, not to the picture: a part of the world has the colours that it has on the map
    // of the whole.
    const TXRect& frame = view.Frame();
    const GeoBox& box = view.Visible();
    const TXPoint equator = view.ToPixel(box.west, 0.0);
    const TXPoint north = view.ToPixel(box.west, 85.0);
    const TXPoint south = view.ToPixel(box.west, -85.0);
    TXRefPtr<TXLinearGradient> gradient(engine.NewLinearGradient(equator.x, north.y, equator.x, south.y));
    RequireDrawn(gradient.get() != nullptr);
    gradient->SetColorAt(0.0, style.oceanAtPoles);
    gradient->SetColorAt(0.5, style.oceanAtEquator);
    gradient->SetColorAt(1.0, style.oceanAtPoles);
    RequireDrawn(surface->FillRect(frame, gradient.get()));
}

void MapRenderer::DrawShores(const std::vector<MapLayer>& layers)
{
    // Where the bands of two countries overlap, the lighter one wins, so that they do not add up along a coast.
    surface->SetCompositionMode(TXGraphics::CompositionMode_Lighten);
    for (const Stroke& band : style.shore)
    {
        Use(band);
        for (const MapLayer& layer : layers)
            if (IsLand(layer))
                DrawBand(layer, band.width * unit);
    }
    surface->SetCompositionMode(TXGraphics::CompositionMode_SourceOver);
}

void MapRenderer::DrawBand(const MapLayer& layer, double width)
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
            RequireDrawn(surface->Polyline(piece.data(), static_cast<int>(piece.size())));
            piece.assign(1, point[i]);
        }
        RequireDrawn(surface->Polyline(piece.data(), static_cast<int>(piece.size())));
        point += size;
    }
}

void MapRenderer::DrawAreas(const MapLayer& layer)
{
    if (layer.areas.empty())
        return;
    std::vector<TXRefPtr<TXBrush>> brushes;
    for (int category = 0; category <= style.Categories(); ++category)
        brushes.push_back(SolidBrush(engine, IsLand(layer) ? style.Fill(category) : style.lake));
    Use(IsLand(layer) ? style.outline : style.lakeShore);
    for (const Area& area : layer.areas)
    {
        surface->SelectBrush(brushes[static_cast<std::size_t>(area.category)]);
        RequireDrawn(surface->PolyPolygon(layer.areaPoints.data() + area.firstPoint,
                                          layer.ringSizes.data() + area.firstRing, area.rings));
    }
}

void MapRenderer::DrawLines(const MapLayer& layer)
{
    if (layer.lines.empty())
        return;
    Use(layer.role == LayerRole::Borders ? style.border : style.river);
    for (const Line& line : layer.lines)
        RequireDrawn(surface->Polyline(layer.linePoints.data() + line.firstPoint, line.count));
}

void MapRenderer::DrawGraticule(const std::vector<GraticuleLine>& graticule)
{
    TXRefPtr<TXPen> pen = MakePen(style.graticule);
    pen->SetPenCapStyle(TXPen::FlatCap);
    pen->SetSteps(style.graticuleDashes);
    surface->SelectPen(pen);
    for (const GraticuleLine& line : graticule)
    {
        const TXPoint ends[] = {line.from, line.to};
        RequireDrawn(surface->Polyline(ends, 2));
    }
}

} // namespace TZObjects
