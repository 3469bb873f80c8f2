#include <txmap/drawing/layers/PlacedSymbols.h>

#include <algorithm>

#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/sources/MapData.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/symbols/PlacementGrid.h>

namespace txmap
{

namespace
{

/// One line about fonts, however many there are.
std::string MissingText(const std::vector<std::string>& names)
{
    constexpr std::size_t kMostNamed = 5;
    std::string text;
    for (std::size_t i = 0; i < names.size() && i < kMostNamed; ++i)
        text += (i == 0 ? "\"" : ", \"") + names[i] + "\"";
    if (names.size() > kMostNamed)
        text += " and " + std::to_string(names.size() - kMostNamed) + " more";
    return text + (names.size() == 1 ? " is not installed" : " are not installed");
}

} // namespace

PlacedSymbols::PlacedSymbols(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report,
                             KeptLines* keptLines)
{
    const auto missing = std::make_shared<std::vector<std::string>>();
    fonts = std::make_unique<SymbolFonts>(canvas.Engine(),
                                          [missing](const std::string& name) { missing->push_back(name); });
    report.placing.Start();
    for (const StyleLayer& layer : style.layers)
    {
        if (layer.type != LayerType::Symbol || !layer.IsShownAt(canvas.View().Zoom()))
            continue;
        layers[&layer].layout = LayOutSymbols({layer, data.Features(layer), data.Pictures(), canvas.View(), *fonts,
                                               ContextOf(style, data, canvas.View().Zoom()), keptLines});
        if (!missing->empty())
            report.warnings.push_back(layer.pointer + "/layout/text-font: " + MissingText(*missing));
        missing->clear();
    }
    if (canvas.View().GridOrigin())
    {
        PlaceInCells(canvas.View(), style, report);
        report.placing.Stop();
        return;
    }
    CollisionIndex index(canvas.View().PictureBox(kSymbolMargin * canvas.View().Scale()));
    for (auto layer = style.layers.rbegin(); layer != style.layers.rend(); ++layer)
        if (const auto found = layers.find(&*layer); found != layers.end())
            found->second.verdicts = PlaceSymbols(found->second.layout->candidates, index);
    report.placing.Stop();
}

void PlacedSymbols::PlaceInCells(const MapView& view, const MapStyle& style, DrawingReport& report)
{
    using Turn = PlacementGrid::Turn;
    const PlacementGrid grid(view);
    std::map<const StyleLayer*, std::vector<Turn>> turns;
    for (const auto& [layer, placed] : layers)
    {
        const LayerCandidates& candidates = placed.layout->candidates;
        bool isLarge = false;
        for (std::size_t i = 0; i < candidates.symbols.size(); ++i)
        {
            const TZObjects::TXPoint& anchor = placed.layout->instances[i].pixel;
            TZObjects::TXRect extent = ExtentOf(candidates, candidates.symbols[i]);
            extent = {std::min(extent.left, anchor.x), std::max(extent.right, anchor.x), std::min(extent.top, anchor.y),
                      std::max(extent.bottom, anchor.y)};
            isLarge = isLarge || grid.IsTooLarge(extent);
            turns[layer].push_back(grid.TurnOf(extent));
        }
        if (isLarge)
            report.warnings.push_back(layer->pointer + ": symbols of 480 pixels and more are left out of tiles");
    }
    CollisionIndex index(grid.Area());
    for (const Turn turn : {Turn::Corner, Turn::Side, Turn::Cell})
        for (auto layer = style.layers.rbegin(); layer != style.layers.rend(); ++layer)
            if (const auto found = layers.find(&*layer); found != layers.end())
            {
                const std::vector<Turn>& own = turns[&*layer];
                std::vector<bool> wanted(own.size());
                for (std::size_t i = 0; i < own.size(); ++i)
                    wanted[i] = own[i] == turn;
                PlaceSymbols(found->second.layout->candidates, index, wanted, found->second.verdicts);
            }
}

const PlacedSymbols::Layer* PlacedSymbols::Find(const StyleLayer& layer) const
{
    const auto found = layers.find(&layer);
    return found == layers.end() ? nullptr : &found->second;
}

} // namespace txmap
