#pragma once

#include <cstdint>
#include <optional>
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

    /// The bits that a number takes in a file: 1, 2, 4 or 8.
    int Depth() const;

    std::vector<std::uint32_t> colors; ///< As 0xAABBGGRR.
    std::vector<std::uint8_t> numbers; ///< The place in `colors` of each pixel.
};

} // namespace txmap
