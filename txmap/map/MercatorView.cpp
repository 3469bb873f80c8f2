#include <txmap/map/MercatorView.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kPi = 3.141592653589793;
// The logical pixels across the world at zoom 0.
constexpr double kTileSize = 512.0;

double Wrapped(double degrees)
{
    const double turned = std::remainder(degrees, 360.0);
    // What comes from arithmetic must not make a turned picture of one that is upright.
    return turned == -180.0 ? 180.0 : turned;
}

/// The camera, moved and zoomed so that it shows nothing beyond the outermost latitudes.
Camera Constrained(Camera camera, const PixelSize& size)
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

/// The box around a box after an affine mapping.
TXRect Mapped(const AffineMatrix& matrix, const TXRect& box)
{
    TXRect around{1e300, -1e300, 1e300, -1e300};
    for (const double x : {box.left, box.right})
        for (const double y : {box.top, box.bottom})
        {
            const TXPoint corner = matrix.Map({x, y});
            around = {std::min(around.left, corner.x), std::max(around.right, corner.x), std::min(around.top, corner.y),
                      std::max(around.bottom, corner.y)};
        }
    return around;
}

MercatorBox ToBox(const TXRect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
TXRect ToRect(const MercatorBox& box) { return {box.left, box.right, box.top, box.bottom}; }

} // namespace

MercatorView::MercatorView(const Camera& requested, const PixelSize& logicalSize, double scale)
    : camera(Constrained(requested, logicalSize)),
      size{std::max(1, static_cast<int>(std::lround(logicalSize.width * scale))),
           std::max(1, static_cast<int>(std::lround(logicalSize.height * scale)))},
      scale(scale), worldSize(kTileSize * std::exp2(camera.zoom) * scale)
{
    // East is to the right, and turns with the bearing in the other sense.
    const double angle = -camera.bearing * kPi / 180.0;
    const double cosine = camera.bearing == 0.0 ? 1.0 : std::cos(angle);
    const double sine = camera.bearing == 0.0 ? 0.0 : std::sin(angle);
    const TXPoint centre = ToMercator(camera.longitude, camera.latitude);
    toPixels = {worldSize * cosine, -worldSize * sine, worldSize * sine, worldSize * cosine, 0.0, 0.0};
    const TXPoint moved = toPixels.Map(centre);
    toPixels.x0 = size.width / 2.0 - moved.x;
    toPixels.y0 = size.height / 2.0 - moved.y;
    toPlaces = toPixels.Inverted();
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

AffineMatrix MercatorView::ToPixels(int world) const
{
    AffineMatrix matrix = toPixels;
    matrix.x0 += matrix.xx * world;
    matrix.y0 += matrix.yx * world;
    return matrix;
}

TXRect MercatorView::PictureBox(double margin) const
{
    return {-margin, size.width + margin, -margin, size.height + margin};
}

MercatorBox MercatorView::Visible(double margin) const { return ToBox(Mapped(toPlaces, PictureBox(margin))); }

GeoBox MercatorView::VisibleDegrees() const
{
    const MercatorBox visible = Visible();
    const TXPoint northWest = FromMercator({visible.left, visible.top});
    const TXPoint southEast = FromMercator({visible.right, visible.bottom});
    return {northWest.x, southEast.y, southEast.x, northWest.y};
}

bool MercatorView::Shows(const MercatorBox& box, double margin) const
{
    // Two rectangles are apart exactly when they are along a side of one of them.
    if (!Visible(margin).Intersects(box))
        return false;
    return toPixels.IsUpright() || ToBox(Mapped(toPixels, ToRect(box))).Intersects(ToBox(PictureBox(margin)));
}

std::vector<int> MercatorView::WorldsThatShow(const MercatorBox& box, double margin) const
{
    std::vector<int> worlds;
    const MercatorBox visible = Visible(margin);
    // A box of strange data may lie anywhere. The views that there are reach over a few hundred worlds at the most.
    const int first = static_cast<int>(std::clamp(std::ceil(visible.left - box.right), -1e4, 1e4));
    const int last = static_cast<int>(std::clamp(std::floor(visible.right - box.left), -1e4, 1e4));
    for (int world = first; world <= last; ++world)
        if (Shows(box.Shifted(world), margin))
            worlds.push_back(world);
    return worlds;
}

std::optional<TXRect> MercatorView::PixelsOf(const MercatorBox& tile, int world) const
{
    if (!toPixels.IsUpright())
        return std::nullopt;
    const TXRect box = Mapped(ToPixels(world), ToRect(tile));
    return TXRect{std::round(box.left), std::round(box.right), std::round(box.top), std::round(box.bottom)};
}

MercatorBox MercatorView::AlignedToPixels(const MercatorBox& tile) const
{
    const std::optional<TXRect> pixels = PixelsOf(tile);
    return pixels ? ToBox(Mapped(toPlaces, *pixels)) : tile;
}

} // namespace txmap
