#include <txmap/sources/GeoreferencedSource.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/AtlasView.h>
#include <txmap/sources/RasterExtent.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// What a side and the whole of a warped raster may have.
constexpr double kLongestSide = 40000.0;
constexpr double kMostPixels = 4e8;

} // namespace

WarpWindow WindowFor(const MapView& view, double margin)
{
    MercatorBox box = view.Visible(margin);
    const MercatorBox world = view.MapProjection().World();
    box.top = std::max(box.top, world.top);
    box.bottom = std::min(box.bottom, world.bottom);
    if (box.right - box.left >= 1.0)
    {
        box.left = 0.0;
        box.right = 1.0;
    }
    // Edges that lie between pixels of the picture would blur every one.
    double width = std::max(1.0, std::round((box.right - box.left) * view.WorldSize()));
    double height = std::max(1.0, std::round((box.bottom - box.top) * view.WorldSize()));
    const double shrink =
        std::min({1.0, kLongestSide / std::max(width, height), std::sqrt(kMostPixels / width / height)});
    width = std::max(1.0, std::floor(width * shrink));
    height = std::max(1.0, std::floor(height * shrink));
    return {box, static_cast<int>(width), static_cast<int>(height)};
}

void GeoreferencedSource::Load(const MapView& view, SourceDiagnostics& /*diagnostics*/)
{
    images.clear();
    const WarpWindow window = WindowFor(view);
    const Projection& projection = view.MapProjection();
    const AtlasView flat(projection, projection.ToDegrees(window.box), PixelSize{window.width, window.height});
    auto raster = std::make_shared<Raster>(ReadRaster(file, flat, name));
    // The view shows the box, and a little more where the proportions differ by a part of a pixel.
    const TZObjects::TXPoint start = flat.ToPlace({0.0, 0.0});
    const TZObjects::TXPoint end =
        flat.ToPlace({static_cast<double>(flat.Size().width), static_cast<double>(flat.Size().height)});
    const MercatorBox box{start.x, start.y, end.x, end.y};
    std::vector<int> worlds = view.WorldsThatShow(box);
    images.push_back({std::move(raster), CornersOf(box), std::move(worlds), std::nullopt});
}

std::optional<GeoBox> GeoreferencedSource::Extent() const { return RasterExtent(file); }

} // namespace txmap
