#include <txmap/map/AtlasView.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// The shorter side of a map from which on lines and places have their full size, and how small they get below it.
constexpr double kUsualSide = 1024.0;
constexpr double kSmallestScale = 0.5;

PixelSize SizeFor(double width, double height)
{
    const double side = AtlasView::kDefaultSide;
    const double factor = side / std::max(width, height);
    const auto pixels = [&](double length) { return std::max(1, static_cast<int>(std::lround(length * factor))); };
    return {pixels(width), pixels(height)};
}

} // namespace

/// What a view is computed from, step by step.
struct AtlasView::Page
{
    Page(const Projection& projection, const std::optional<GeoBox>& box, const std::optional<PixelSize>& wantedSize,
         double lineScale)
        : projection(projection)
    {
        const double maxLatitude = projection.MaxLatitude();
        GeoBox shown = box.value_or(GeoBox{-180.0, -maxLatitude, 180.0, maxLatitude});
        shown = shown.Shifted(-360.0 * std::ceil(((shown.west + shown.east) / 2.0 - 180.0) / 360.0));
        const MercatorBox wanted = projection.ToWorld(shown);
        const double width = wanted.right - wanted.left;
        const double height = wanted.bottom - wanted.top;
        size = wantedSize.value_or(SizeFor(width, height));
        worldSize = std::min(size.width / width, size.height / height);
        centre = {(wanted.left + wanted.right) / 2.0, (wanted.top + wanted.bottom) / 2.0};

        const MercatorBox world = projection.World();
        const double half = size.height / worldSize / 2.0;
        centre.y =
            2.0 * half >= world.bottom - world.top ? 0.5 : std::clamp(centre.y, world.top + half, world.bottom - half);
        const auto column = [&](double x) { return size.width / 2.0 + (x - centre.x) * worldSize; };
        const auto row = [&](double y) { return size.height / 2.0 + (y - centre.y) * worldSize; };
        frame = {std::max(0.0, std::round(column(centre.x - 0.5))),
                 std::min<double>(size.width, std::round(column(centre.x + 0.5))),
                 std::max(0.0, std::round(row(world.top))),
                 std::min<double>(size.height, std::round(row(world.bottom)))};
        const double side = std::min(frame.Width(), frame.Height());
        scale = lineScale * std::clamp(side / kUsualSide, kSmallestScale, 1.0);
    }

    Projection projection;
    PixelSize size;
    double worldSize;
    TXPoint centre;
    TXRect frame;
    double scale;
};

AtlasView::AtlasView(const Projection& projection, const std::optional<GeoBox>& box,
                     const std::optional<PixelSize>& size, double scale)
    : AtlasView(Page(projection, box, size, scale))
{
}

AtlasView::AtlasView(const Page& page)
    : MapView(page.projection,
              {page.size, page.scale, std::log2(page.worldSize / kTileSize / page.scale), 0.0, page.centre})
{
    SetFrame(page.frame);
}

} // namespace txmap
