#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include <txmap/map/TileCover.h>
#include <txmap/sources/FeatureSet.h>

namespace txmap
{

/// Which attributes are wanted: nothing for all.
using WantedProperties = std::optional<std::set<std::string>>;

/// A layer of a vector tile that is wanted.
struct WantedTileLayer
{
    std::string name;
    WantedProperties properties;
    FeatureSet* features = nullptr; ///< Where its features go.
};

/// Reads layers of an unpacked vector tile (version 1 or 2 of that format). Other layers are skipped, not looked into.
///
/// The reader is strict: what a decoder might run on with by guessing is an error. It takes memory in proportion to the
/// data alone.
/// @param tile which tile it is: what its coordinates count from.
/// @throw std::runtime_error with the reason.
void ReadVectorTile(std::string_view data, const TileId& tile, const std::vector<WantedTileLayer>& layers);

} // namespace txmap
