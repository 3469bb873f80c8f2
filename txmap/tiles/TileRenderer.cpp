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
#include <txmap/symbols/LayerLines.h>
#include <txmap/symbols/PlacementGrid.h>

namespace txmap
{

struct TileRenderer::State
{
    State(const TileLook& look, MessageSink sink)
        : look(look), warn(std::move(sink)),
          style(look.styleText ? ReadStyleText(*look.styleText, look.style, look.lenient, warn)
                               : ReadStyleFile(look.style, look.lenient, warn)),
          sources(style, SourceFolder::Of(look.style)), diagnostics(!look.lenient), plugin(look.plugin, TextPath::Qt),
          side(static_cast<int>(std::lround(look.tileSize * look.scale)))
    {
        PrepareGdal();
        if (side < 1 || std::abs(look.tileSize * look.scale - side) > 1e-9)
            throw Failure(ExitCode::Usage, "--scale " + NumberText(look.scale) + ": a tile of " +
                                               std::to_string(look.tileSize) + " would not be of whole pixels");
    }

    TZObjects::TXRefPtr<TZObjects::TXImage> Draw(const MapView& view)
    {
        MapData data = sources.Read(view, view.GridOrigin() ? PlacementGrid(view).Margin() : 0.0, diagnostics);
        DrawingReport report;
        MapCanvas canvas(plugin.Engine(), view);
        DrawLayers(canvas, style, data, report, &lines);
        sources.Keep(data);
        for (const std::string& warning : diagnostics.Warnings())
            Warn(warning);
        for (const std::string& warning : report.warnings)
            Warn(look.style + ": " + warning);
        return canvas.Surface().GetImage();
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
    KeptLines lines;
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
    return BlockPixels(state->Draw(view), block.columns, block.rows, {state->side, state->side}, TileView::kEdge);
}

TilePixels TileRenderer::DrawPicture(const MapView& view)
{
    return BlockPixels(state->Draw(view), 1, 1, view.Size()).Tile(0, 0);
}

} // namespace txmap
