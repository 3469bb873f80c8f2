#include <txmap/drawing/layers/PlacedSymbols.h>

#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/sources/MapData.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

PlacedSymbols::PlacedSymbols(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report)
{
    const StyleLayer* current = nullptr;
    fonts = std::make_unique<SymbolFonts>(
        canvas.Engine(), [&](const std::string& name)
        { report.warnings.push_back(current->pointer + "/layout/text-font: \"" + name + "\" is not installed"); });
    report.placing.Start();
    for (const StyleLayer& layer : style.layers)
    {
        if (layer.type != LayerType::Symbol || !layer.IsShownAt(canvas.View().Zoom()))
            continue;
        current = &layer;
        layers[&layer].layout = LayOutSymbols({layer, data.Features(layer), data.Pictures(), canvas.View(), *fonts,
                                               ContextOf(style, data, canvas.View().Zoom())});
    }
    CollisionIndex index(canvas.View().PictureBox(kSymbolMargin * canvas.View().Scale()));
    for (auto layer = style.layers.rbegin(); layer != style.layers.rend(); ++layer)
        if (const auto found = layers.find(&*layer); found != layers.end())
            found->second.verdicts = PlaceSymbols(found->second.layout->candidates, index);
    report.placing.Stop();
}

const PlacedSymbols::Layer* PlacedSymbols::Find(const StyleLayer& layer) const
{
    const auto found = layers.find(&layer);
    return found == layers.end() ? nullptr : &found->second;
}

} // namespace txmap
