#include <txmap/map/MapView.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kPi = 3.141592653589793;

MercatorBox ToBox(const TXRect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
TXRect ToRect(const MercatorBox& box) { return {box.left, box.right, box.top, box.bottom}; }

} // namespace

MapView::MapView(const Projection& projection, const Parts& parts)
    : projection(projection), size(parts.size), scale(parts.scale), zoom(parts.zoom), bearing(parts.bearing),
      worldSize(kTileSize * std::exp2(parts.zoom) * parts.scale), frame(0.0, parts.size.width, 0.0, parts.size.height)
{
    // East is to the right, and turns with the bearing in the other sense.
    const double angle = -bearing * kPi / 180.0;
    const double cosine = bearing == 0.0 ? 1.0 : std::cos(angle);
    const double sine = bearing == 0.0 ? 0.0 : std::sin(angle);
    toPixels = {worldSize * cosine, -worldSize * sine, worldSize * sine, worldSize * cosine, 0.0, 0.0};
    const TXPoint moved = toPixels.Map(parts.centre);
    toPixels.x0 = size.width / 2.0 - moved.x;
    toPixels.y0 = size.height / 2.0 - moved.y;
    toPlaces = toPixels.Inverted();
}

void MapView::SetGridOrigin(const TXPoint& origin)
{
    gridOrigin = origin;
    // Exactly, without what the middle of the picture was rounded by.
    toPixels.x0 = -origin.x;
    toPixels.y0 = -origin.y;
    toPlaces = toPixels.Inverted();
}

AffineMatrix MapView::ToPixels(int world) const
{
    AffineMatrix matrix = toPixels;
    matrix.x0 += matrix.xx * world;
    matrix.y0 += matrix.yx * world;
    return matrix;
}

TXRect MapView::PictureBox(double margin) const
{
    return {frame.left - margin, frame.right + margin, frame.top - margin, frame.bottom + margin};
}

MercatorBox MapView::Visible(double margin) const { return ToBox(toPlaces.MapBox(PictureBox(margin))); }

GeoBox MapView::VisibleDegrees() const { return projection.ToDegrees(Visible()); }

bool MapView::Shows(const MercatorBox& box, double margin) const
{
    // Two rectangles are apart exactly when they are along a side of one of them.
    if (!Visible(margin).Intersects(box))
        return false;
    return toPixels.IsUpright() || ToBox(toPixels.MapBox(ToRect(box))).Intersects(ToBox(PictureBox(margin)));
}

std::vector<int> MapView::WorldsThatShow(const MercatorBox& box, double margin) const
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

std::optional<TXRect> MapView::PixelsOf(const MercatorBox& tile, int world) const
{
    if (!toPixels.IsUpright())
        return std::nullopt;
    const TXRect box = ToPixels(world).MapBox(ToRect(tile));
    return TXRect{std::round(box.left), std::round(box.right), std::round(box.top), std::round(box.bottom)};
}

MercatorBox MapView::AlignedToPixels(const MercatorBox& tile) const
{
    const std::optional<TXRect> pixels = PixelsOf(tile);
    return pixels ? ToBox(toPlaces.MapBox(*pixels)) : tile;
}

} // namespace txmap
