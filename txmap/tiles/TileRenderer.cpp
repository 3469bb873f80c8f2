#include <txmap/tiles/TileRenderer.h>

#include <cmath>
#include <cstring>
#include <set>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/KeptSources.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/support/Failure.h>
#include <txmap/symbols/PlacementGrid.h>

namespace txmap
{

struct TileRenderer::State
{
    State(const TileLook& look, MessageSink sink)
        : look(look), warn(std::move(sink)), style(ReadStyleFile(look.style, look.lenient, warn)),
          sources(style, SourceFolder::Of(look.style)), diagnostics(!look.lenient), plugin(look.plugin, TextPath::Qt),
          side(static_cast<int>(std::lround(look.tileSize * look.scale)))
    {
        PrepareGdal();
        if (side < 1 || std::abs(look.tileSize * look.scale - side) > 1e-9)
            throw Failure(ExitCode::Usage, "--scale " + NumberText(look.scale) + ": a tile of " +
                                               std::to_string(look.tileSize) + " would not be of whole pixels");
    }

    void Warn(const std::string& text)
    {
        if (said.insert(text).second)
            warn(text);
    }

    TileLook look;
    MessageSink warn;
    MapStyle style;
    KeptSources sources;
    SourceDiagnostics diagnostics;
    PluginSession plugin;
    int side;
    std::set<std::string> said;
};

TileRenderer::TileRenderer(const TileLook& look, MessageSink warn)
    : state(std::make_unique<State>(look, std::move(warn)))
{
}

TileRenderer::~TileRenderer() = default;

int TileRenderer::TileSide() const { return state->side; }
const MapStyle& TileRenderer::Style() const { return state->style; }

BlockPixels TileRenderer::Draw(const TileBlock& block)
{
    const TileView view(block, state->look.tileSize, state->look.scale);
    MapData data = state->sources.Read(view, PlacementGrid(view).Margin(), state->diagnostics);
    DrawingReport report;
    MapCanvas canvas(state->plugin.Engine(), view);
    DrawLayers(canvas, state->style, data, report);
    state->sources.Keep(data);
    for (const std::string& warning : state->diagnostics.Warnings())
        state->Warn(warning);
    for (const std::string& warning : report.warnings)
        state->Warn(state->look.style + ": " + warning);
    return BlockPixels(canvas.Surface().GetImage(), block.columns, block.rows, state->side);
}

} // namespace txmap
