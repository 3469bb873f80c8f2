#include <txmap/map/MercatorView.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.141592653589793;
constexpr double kTileSize = MapView::kTileSize;

double Wrapped(double degrees)
{
    const double turned = std::remainder(degrees, 360.0);
    // What comes from arithmetic must not make a turned picture of one that is upright.
    return turned == -180.0 ? 180.0 : turned;
}

/// The camera, moved and zoomed so that it shows nothing beyond the outermost latitudes.
Camera WithinWorld(Camera camera, const PixelSize& size)
{
    camera.zoom = std::clamp(camera.zoom, MercatorView::kMinZoom, MercatorView::kMaxZoom);
    camera.bearing = Wrapped(camera.bearing);
    camera.latitude = std::clamp(camera.latitude, -kMercatorMaxLatitude, kMercatorMaxLatitude);
    // A turn more or less shows the same, and worlds are counted from the one that the camera is over.
    if (std::abs(camera.longitude) > 180.0)
        camera.longitude = Wrapped(camera.longitude);
    const double world = kTileSize * std::exp2(camera.zoom);
    if (world < size.height)
    {
        camera.zoom = std::log2(size.height / kTileSize);
        camera.latitude = 0.0;
        return camera;
    }
    const double half = size.height / 2.0 / world;
    const TXPoint place = ToMercator(camera.longitude, camera.latitude);
    if (place.y < half || place.y > 1.0 - half)
        camera.latitude = FromMercator({place.x, std::clamp(place.y, half, 1.0 - half)}).y;
    return camera;
}

} // namespace

MercatorView::MercatorView(const Camera& requested, const PixelSize& logicalSize, double scale)
    : MercatorView(scale, logicalSize, Constrained{WithinWorld(requested, logicalSize)})
{
}

MercatorView::MercatorView(double scale, const PixelSize& logicalSize, const Constrained& used)
    : MapView(Projection::WebMercator(), {{std::max(1, static_cast<int>(std::lround(logicalSize.width * scale))),
                                           std::max(1, static_cast<int>(std::lround(logicalSize.height * scale)))},
                                          scale,
                                          used.camera.zoom,
                                          used.camera.bearing,
                                          ToMercator(used.camera.longitude, used.camera.latitude)}),
      camera(used.camera)
{
}

Camera MercatorView::Fit(const GeoBox& box, const PixelSize& size, double bearing)
{
    const TXPoint northWest = ToMercator(box.west, box.north);
    const TXPoint southEast = ToMercator(box.east, box.south);
    const double angle = bearing * kPi / 180.0;
    const double width = southEast.x - northWest.x;
    const double height = southEast.y - northWest.y;
    // What the turned box needs in the picture's own directions.
    const double across = std::abs(width * std::cos(angle)) + std::abs(height * std::sin(angle));
    const double down = std::abs(width * std::sin(angle)) + std::abs(height * std::cos(angle));
    const double world = std::min(across > 0.0 ? size.width / across : 1e300, down > 0.0 ? size.height / down : 1e300);
    const TXPoint centre = FromMercator({(northWest.x + southEast.x) / 2.0, (northWest.y + southEast.y) / 2.0});
    return {centre.x, centre.y, std::clamp(std::log2(world / kTileSize), kMinZoom, kMaxZoom), bearing};
}

} // namespace txmap
