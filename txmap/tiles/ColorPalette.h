#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include <txmap/tiles/TileImage.h>

namespace txmap
{

/// At most 256 colours for the pixels of a tile.
class ColorPalette
{
public:
    /// The colours of a tile as they are; nothing if they are too many.
    static std::optional<ColorPalette> Exact(const TilePixels& tile);
    /// The colours that a tile is shown best with, by median cut.
    static ColorPalette Reduced(const TilePixels& tile);

    /// The number in `colors` of each pixel.
    std::vector<std::uint8_t> IndicesOf(const TilePixels& tile) const;
    /// The bits that a number takes in a file: 1, 2, 4 or 8.
    int Depth() const;

    /// As 0xAABBGGRR.
    std::vector<std::uint32_t> colors;

private:
    std::unordered_map<std::uint32_t, std::uint8_t> numbers; ///< Of the colours of the tile.
};

} // namespace txmap
