#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXImage.h>
#include <txmap/map/GeoBox.h>

namespace txmap
{

/// What the file of a tile is written in.
enum class TileFormat
{
    Png,  ///< Without loss.
    Png8, ///< With at most 256 colours.
    Jpeg,
    WebP
};

/// The pixels of one tile: red, green, blue and alpha, not premultiplied, row by row.
struct TilePixels
{
    PixelSize size;
    std::vector<std::uint8_t> rgba;
};

/// The picture of a block of tiles. It must be gone before the renderer that it comes from.
class BlockPixels
{
public:
    /// @param image premultiplied pixels of 32 bits. @param edge pixels around the block. @param size of a tile.
    BlockPixels(const TZObjects::TXRefPtr<TZObjects::TXImage>& image, int columns, int rows, const PixelSize& size,
                int edge = 0)
        : image(image), columns(columns), rows(rows), size(size), edge(edge)
    {
    }

    int Columns() const { return columns; }
    int Rows() const { return rows; }
    /// One tile of it. @param column,row from the top left.
    TilePixels Tile(int column, int row) const;

private:
    TZObjects::TXRefPtr<TZObjects::TXImage> image;
    int columns;
    int rows;
    PixelSize size;
    int edge;
};

/// Whether no pixel of a tile lets anything through.
bool IsOpaque(const TilePixels& tile);

/// The file of a tile. The same pixels give the same bytes. @throw Failure with `ExitCode::Drawing`.
std::string Encode(const TilePixels& tile, TileFormat format);

/// The name of a format as an option, and as MBTiles: "png", "png8", "jpg" or "webp".
const char* NameOf(TileFormat format);
/// What the names of files end with: ".png".
const char* SuffixOf(TileFormat format);
/// What a server says that a tile is: "image/png".
const char* MimeTypeOf(TileFormat format);

} // namespace txmap
