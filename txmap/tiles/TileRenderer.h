#pragma once

#include <memory>
#include <optional>
#include <string>

#include <txmap/map/TileView.h>
#include <txmap/render/StyleFile.h>
#include <txmap/tiles/TileImage.h>

namespace txmap
{

/// How tiles are drawn of which style.
struct TileLook
{
    std::string style;                    ///< The file.
    std::optional<std::string> styleText; ///< What stands in it, where that is known.
    double scale = 1.0;                   ///< Pixels for each logical one.
    int tileSize = 512;                   ///< Logical pixels across a tile: 512 or 256.
    bool lenient = false;                 ///< Draws what it can.
    std::string plugin = "txpluginqt";
};

/// Draws tiles of a style, as many as are wanted. The style is read once, and so are sources without tiles; of those
/// with tiles, each block reads its own. What a tile shows does not depend on the block that it is drawn in.
///
/// Not for several threads: a process has one.
class TileRenderer
{
public:
    /// Reads the style. @param warn takes each warning once, also later.
    /// @throw Failure.
    TileRenderer(const TileLook& look, MessageSink warn);
    ~TileRenderer();

    /// Pixels across a tile.
    int TileSide() const;
    const MapStyle& Style() const;

    /// Draws a block. @throw Failure. The renderer can be used afterwards.
    BlockPixels Draw(const TileBlock& block);
    /// Draws any other picture, of the scale that tiles have.
    TilePixels DrawPicture(const MapView& view);

private:
    struct State;

    std::unique_ptr<State> state;
};

} // namespace txmap
