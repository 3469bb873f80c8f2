#include <txmap/sources/ElevationSource.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include <txmap/map/MapView.h>
#include <txmap/sources/ElevationFile.h>
#include <txmap/sources/GeoreferencedSource.h>
#include <txmap/sources/RasterExtent.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr float kUnknown = std::numeric_limits<float>::quiet_NaN();
// Slopes at the edge of the picture need the heights beyond it.
constexpr double kMargin = 4.0;
constexpr double kMostCells = 4e8;

} // namespace

ElevationSource::ElevationSource(const Json& source, const SourceFolder& folder)
{
    if (NamesGeoreferencedFile(source, folder))
        file = folder.PathOf(source.at("url").get<std::string>());
    else
    {
        tiles.emplace(TileSet(source, folder, true, 1.0));
        ReadEncoding();
    }
}

void ElevationSource::ReadEncoding()
{
    const std::string name = tiles->Tiles().Text("encoding");
    if (name == "terrarium")
        encoding = {256.0, 1.0, 1.0 / 256.0, 32768.0};
    else if (name == "custom")
        encoding = {
            tiles->Tiles().Number("redFactor").value_or(1.0), tiles->Tiles().Number("greenFactor").value_or(1.0),
            tiles->Tiles().Number("blueFactor").value_or(1.0), tiles->Tiles().Number("baseShift").value_or(0.0)};
    else if (!name.empty() && name != "mapbox")
        throw Failure(ExitCode::Data, "there are no heights with the encoding " + name);
}

bool ElevationGrid::HasHeights() const
{
    return std::any_of(metres.begin(), metres.end(), [](float height) { return !std::isnan(height); });
}

float ElevationGrid::Nearest(double x, double y) const
{
    const double column =
        box.right - box.left == 1.0 ? x - std::floor(x / width) * width : std::clamp(x, 0.0, width - 1.0);
    return At(static_cast<int>(column), static_cast<int>(std::clamp(y, 0.0, height - 1.0)));
}

std::optional<GeoBox> ElevationSource::Extent() const { return tiles ? tiles->Tiles().Extent() : RasterExtent(file); }

ElevationGrid ElevationSource::Load(const MapView& view, SourceDiagnostics& diagnostics)
{
    return tiles ? LoadTiles(view, diagnostics) : LoadFile(view);
}

ElevationGrid ElevationSource::LoadFile(const MapView& view) const
{
    const WarpWindow window = WindowFor(view, kMargin);
    ElevationGrid grid;
    grid.width = window.width;
    grid.height = window.height;
    grid.box = window.box;
    grid.zoom = std::log2(window.width / (window.box.right - window.box.left) / 512.0);
    grid.metres = ReadElevations(file, window);
    grid.worlds = view.WorldsThatShow(grid.box);
    return grid;
}

ElevationGrid ElevationSource::LoadTiles(const MapView& view, SourceDiagnostics& diagnostics)
{
    struct Placed
    {
        int column; ///< Counted on into the neighbouring worlds.
        int row;
        std::shared_ptr<const Raster> image;
    };
    std::vector<Placed> placed;
    ElevationGrid grid;
    int side = 0;
    const bool isWholeWorld = view.Visible(kMargin).right - view.Visible(kMargin).left >= 1.0;
    const std::vector<CoveringTile> covering = CoveringTiles(view, tiles->Tiles().Pyramid(), kMargin);
    for (const CoveringTile& tile : covering)
    {
        std::shared_ptr<const Raster> image = tiles->Read(tile.id, diagnostics);
        if (!image)
            continue;
        if (side == 0)
            side = image->size.width;
        if (image->size.width != side || image->size.height != side)
        {
            diagnostics.Report(tiles->Tiles().NameOf(tile.id) + ": is not of the size of the other tiles");
            continue;
        }
        for (const int world : tile.worlds)
        {
            placed.push_back({tile.id.x + (isWholeWorld ? 0 : world * (1 << tile.id.z)), tile.id.y, image});
            if (isWholeWorld)
                break;
        }
    }
    if (placed.empty())
        return grid;
    int left = placed[0].column, right = left, top = placed[0].row, bottom = top;
    for (const Placed& tile : placed)
    {
        left = std::min(left, tile.column);
        right = std::max(right, tile.column);
        top = std::min(top, tile.row);
        bottom = std::max(bottom, tile.row);
    }
    const int zoom = covering[0].id.z;
    const double cells = std::ldexp(1.0, -zoom);
    if (static_cast<double>(right - left + 1) * (bottom - top + 1) * side * side > kMostCells)
        throw Failure(ExitCode::Data,
                      tiles->Tiles().NameOf(covering[0].id) + ": and its neighbours have too many heights");
    grid.width = (right - left + 1) * side;
    grid.height = (bottom - top + 1) * side;
    grid.box = {left * cells, top * cells, (right + 1) * cells, (bottom + 1) * cells};
    grid.zoom = zoom;
    grid.worlds = view.WorldsThatShow(grid.box);
    grid.metres.assign(static_cast<std::size_t>(grid.width) * static_cast<std::size_t>(grid.height), kUnknown);
    for (const Placed& tile : placed)
        for (int y = 0; y < side; ++y)
        {
            const std::uint32_t* const row =
                &tile.image->pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(side)];
            float* const out = &grid.metres[static_cast<std::size_t>((tile.row - top) * side + y) *
                                                static_cast<std::size_t>(grid.width) +
                                            static_cast<std::size_t>((tile.column - left) * side)];
            for (int x = 0; x < side; ++x)
                out[x] = static_cast<float>(((row[x] >> 16u) & 255u) * encoding.red +
                                            ((row[x] >> 8u) & 255u) * encoding.green + (row[x] & 255u) * encoding.blue -
                                            encoding.base);
        }
    return grid;
}

} // namespace txmap
