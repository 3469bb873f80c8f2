#include <txmap/sources/GeoreferencedSource.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/MercatorView.h>
#include <txmap/map/View.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// What a side and the whole of a warped raster may have.
constexpr double kLongestSide = 40000.0;
constexpr double kMostPixels = 4e8;

/// The Mercator coordinates of a place on the map of a view in Web Mercator metres.
double FromMetres(double metres)
{
    static const double kWorld = Projection::WebMercator().Forward(360.0, 0.0).x;
    return metres / kWorld + 0.5;
}

} // namespace

WarpWindow WindowFor(const MercatorView& view, double margin)
{
    MercatorBox box = view.Visible(margin);
    box.top = std::max(box.top, 0.0);
    box.bottom = std::min(box.bottom, 1.0);
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

void GeoreferencedSource::Load(const MercatorView& view, SourceDiagnostics& /*diagnostics*/)
{
    images.clear();
    const WarpWindow window = WindowFor(view);
    const TZObjects::TXPoint northWest = FromMercator({window.box.left, window.box.top});
    const TZObjects::TXPoint southEast = FromMercator({window.box.right, window.box.bottom});
    const View flat(Projection::WebMercator(), GeoBox{northWest.x, southEast.y, southEast.x, northWest.y},
                    PixelSize{window.width, window.height});
    auto raster = std::make_shared<Raster>(ReadRaster(file, flat, file));
    // The view shows the box, and a little more where the proportions differ by a part of a pixel.
    const MercatorBox box{FromMetres(flat.Origin().x), 1.0 - FromMetres(flat.Origin().y),
                          FromMetres(flat.Origin().x + flat.Size().width / flat.Scale()),
                          1.0 - FromMetres(flat.Origin().y - flat.Size().height / flat.Scale())};
    std::vector<int> worlds = view.WorldsThatShow(box);
    images.push_back({std::move(raster), CornersOf(box), std::move(worlds), std::nullopt});
}

} // namespace txmap
