#pragma once

#include <string>
#include <utility>

#include <txmap/sources/TileStore.h>

namespace txmap
{

/// Tiles that are files of their own.
class TileFiles final : public TileStore
{
public:
    /// @param pattern the path of a tile, with {z}, {x} and {y} or {-y} or {quadkey} for its numbers, and maybe
    /// {prefix} and {ratio}. @param tms counts rows from the south. @param ratio pixels for each logical one: 2 and
    /// more look for files of "@2x".
    TileFiles(std::string pattern, bool tms, double ratio) : pattern(std::move(pattern)), tms(tms), ratio(ratio) {}

    std::optional<std::string> Read(const TileId& tile) override;
    std::string NameOf(const TileId& tile) const override;

private:
    std::string pattern;
    bool tms;
    double ratio;
};

} // namespace txmap
