#include <txmap/drawing/layers/PlacedSymbols.h>

#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/sources/MapData.h>
#include <txmap/style/document/MapStyle.h>

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

PlacedSymbols::PlacedSymbols(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report)
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
                                               ContextOf(style, data, canvas.View().Zoom())});
        if (!missing->empty())
            report.warnings.push_back(layer.pointer + "/layout/text-font: " + MissingText(*missing));
        missing->clear();
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
