#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <txmap/map/Mercator.h>
#include <txmap/sources/TileImages.h>

namespace txmap
{

class MapView;
class SourceDiagnostics;
class SourceFolder;

/// Heights in metres on a grid, one for each cell, row by row from the north-west. NaN where none is known.
struct ElevationGrid
{
    int width = 0;
    int height = 0;
    MercatorBox box; ///< What the cells cover. It may lie across the date line, or be one world.
    /// The zoom of the tiles that the heights come from, or the one that has cells of that size for tiles of 512.
    double zoom = 0.0;
    std::vector<float> metres;
    std::vector<int> worlds; ///< How many worlds to the east it is drawn, once for each.

    bool IsEmpty() const { return metres.empty(); }
    /// Whether any height is known.
    bool HasHeights() const;
    /// The height of a cell, or of the nearest one: around the world, columns go on where they began.
    float Nearest(double x, double y) const;
    float At(int x, int y) const
    {
        return metres[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
};

/// A source of heights, of type `raster-dem`: tiles of them as pictures, or a file of heights that GDAL reads, as
/// `url`.
class ElevationSource
{
public:
    /// @throw Failure with `ExitCode::Data` if the source names no heights that can be.
    ElevationSource(const Json& source, const SourceFolder& folder);

    /// Reads what a view shows and a few cells around it, as one grid without seams between tiles. It is empty where
    /// there are no heights. @throw Failure with `ExitCode::Data`.
    ElevationGrid Load(const MapView& view, SourceDiagnostics& diagnostics);
    /// Where there are heights, as far as that is known.
    std::optional<GeoBox> Extent() const;

private:
    /// Height = red * `red` + green * `green` + blue * `blue` - `base`, of channels from 0 to 255.
    struct Encoding
    {
        double red = 6553.6;
        double green = 25.6;
        double blue = 0.1;
        double base = 10000.0;
    };

    void ReadEncoding();
    ElevationGrid LoadTiles(const MapView& view, SourceDiagnostics& diagnostics);
    ElevationGrid LoadFile(const MapView& view) const;

    std::string file; ///< Empty for tiles.
    std::optional<TileImages> tiles;
    Encoding encoding;
};

} // namespace txmap
