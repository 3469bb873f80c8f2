#include <txmap/map/TileCover.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/MapView.h>

namespace txmap
{
namespace
{

// Where a tile only touches the picture, nothing of it is seen. Far less than a pixel at any zoom.
constexpr double kTouch = 1e-12;

int TileAt(double place, int count)
{
    return static_cast<int>(std::clamp(std::floor(place * count), 0.0, static_cast<double>(count - 1)));
}

} // namespace

MercatorBox TileId::Box() const
{
    const double side = std::ldexp(1.0, -z);
    return {x * side, y * side, (x + 1) * side, (y + 1) * side};
}

int TileZoom(const MapView& view, const TilePyramid& pyramid)
{
    const double zoom = view.Zoom() + std::log2(512.0 / pyramid.tileSize);
    // Halves go up, also below zero. A zoom that came out of a logarithm may miss its whole number by a rounding.
    const double whole = std::floor(pyramid.roundsZoom ? zoom + 0.5 : zoom + 1e-9);
    return static_cast<int>(std::clamp(whole, 0.0, static_cast<double>(kMaxTileZoom)));
}

std::vector<CoveringTile> CoveringTiles(const MapView& view, const TilePyramid& pyramid, double margin)
{
    std::vector<CoveringTile> tiles;
    const int wanted = TileZoom(view, pyramid);
    if (wanted < pyramid.minZoom)
        return tiles;
    const int z = std::min({wanted, pyramid.maxZoom, kMaxTileZoom});
    const int count = 1 << z;
    const MercatorBox visible = view.Visible(margin);
    const MercatorBox& bounds = pyramid.bounds;
    const int firstRow = TileAt(std::max(visible.top, bounds.top), count);
    const int lastRow = TileAt(std::min(visible.bottom, bounds.bottom), count);
    const int firstWorld = static_cast<int>(std::floor(visible.left));
    const int lastWorld = static_cast<int>(std::floor(visible.right));
    for (int y = firstRow; y <= lastRow; ++y)
    {
        std::vector<CoveringTile> row;
        for (int world = firstWorld; world <= lastWorld; ++world)
        {
            const int firstColumn = TileAt(std::max(visible.left - world, bounds.left), count);
            const int lastColumn = TileAt(std::min(visible.right - world, bounds.right), count);
            for (int x = firstColumn; x <= lastColumn; ++x)
            {
                const TileId id{z, x, y};
                const MercatorBox inner = id.Box().Grown(-kTouch);
                if (inner.Intersects(bounds) && view.Shows(inner.Shifted(world), margin))
                    row.push_back({id, {world}});
            }
        }
        std::stable_sort(row.begin(), row.end(),
                         [](const CoveringTile& a, const CoveringTile& b) { return a.id < b.id; });
        for (CoveringTile& tile : row)
        {
            if (!tiles.empty() && tiles.back().id == tile.id)
                tiles.back().worlds.push_back(tile.worlds.front());
            else
                tiles.push_back(std::move(tile));
        }
    }
    return tiles;
}

} // namespace txmap
