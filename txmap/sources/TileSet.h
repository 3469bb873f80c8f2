#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <txmap/map/GeoBox.h>
#include <txmap/map/TileCover.h>
#include <txmap/sources/TileStore.h>
#include <txmap/style/Value.h>

namespace txmap
{

class SourceDiagnostics;
class SourceFolder;

/// Tiles that a source of a style names: which there are, and where their bytes come from.
class TileSet
{
public:
    /// Reads the members `url`, `tiles`, `scheme`, `minzoom`, `maxzoom`, `bounds` and `tileSize` of a source. `url` is
    /// the path of a TileJSON file, whose members count where the source has none, or "mbtiles://" and a path.
    /// @param pictures true for sources whose tiles are pictures: their zoom is rounded.
    /// @param ratio real pixels for each logical one. @throw Failure with `ExitCode::Data`.
    TileSet(const Json& source, const SourceFolder& folder, bool pictures, double ratio);
    ~TileSet();
    TileSet(TileSet&&) noexcept;

    const TilePyramid& Pyramid() const { return pyramid; }
    /// Where there are tiles, in degrees.
    GeoBox Extent() const;
    /// What the source says in a member that is a text, else what the TileJSON says; empty for nothing.
    std::string Text(const char* member) const;
    /// The same for numbers.
    std::optional<double> Number(const char* member) const;

    /// The bytes of a tile, unpacked; nothing where there is no tile, or a broken one, which is reported.
    std::optional<std::string> Read(const TileId& tile, SourceDiagnostics& diagnostics);
    /// What a tile is called in messages.
    std::string NameOf(const TileId& tile) const;

private:
    void OpenMbTiles(const std::string& file);
    void ReadTileJson(const std::string& file);
    void ReadMembers(bool pictures);
    /// The stores are alternatives of equal content; tiles are shared out among them.
    TileStore& StoreOf(const TileId& tile) const;

    Json members; ///< Those of the source, and of the TileJSON where the source has none.
    TilePyramid pyramid;
    std::vector<std::unique_ptr<TileStore>> stores;
};

} // namespace txmap
