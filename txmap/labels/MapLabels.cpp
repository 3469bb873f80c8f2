#include <txmap/labels/MapLabels.h>

#include <algorithm>
#include <array>
#include <utility>

#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/LabelLayout.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/MapView.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXGraphicsEngine;
using TZObjects::TXPoint;

namespace
{

// Text does not shrink with the picture: it would not be readable.
constexpr double kSmallestUnit = 1.0;

/// True for scripts that join or reorder their letters, or are written from right to left.
bool NeedsItsNeighbours(char32_t c)
{
    using Range = std::pair<char32_t, char32_t>;
    static constexpr std::array<Range, 8> kScripts = {{{0x0590, 0x0DFF},
                                                       {0x0F00, 0x109F},
                                                       {0x1780, 0x18AF},
                                                       {0xA800, 0xABFF},
                                                       {0xFB1D, 0xFDFF},
                                                       {0xFE70, 0xFEFE},
                                                       {0x10800, 0x11FFF},
                                                       {0x1E800, 0x1EFFF}}};
    return std::any_of(kScripts.begin(), kScripts.end(),
                       [c](const Range& script) { return c >= script.first && c <= script.second; });
}

void RemovePlaces(std::vector<MapLayer>& layers, std::vector<LayerPlace> places)
{
    // From the end of each layer, so that the places before keep their numbers.
    std::sort(places.begin(), places.end(), [](const LayerPlace& a, const LayerPlace& b) { return a.place > b.place; });
    for (const LayerPlace& place : places)
    {
        std::vector<TXPoint>& points = layers[place.layer].places;
        points.erase(points.begin() + static_cast<std::ptrdiff_t>(place.place));
    }
}

} // namespace

MapLabels::MapLabels(TXGraphicsEngine& engine, const MapView& view, const LabelStyle& style, double unit,
                     const LabelOptions& options)
    : choice(ChooseFace(options.font, "--label-font " + options.font)), fonts(engine, choice.face, options.path)
{
    scene.frame = view.Frame();
    scene.style = ScaledLabelStyle(style, options, std::max(kSmallestUnit, unit));
    scene.path = options.path;
}

void MapLabels::LayOut(std::vector<MapLayer>& layers, const LabelSurroundings& surroundings)
{
    LabelScene full = scene;
    full.outline = surroundings.outline;
    if (full.outline)
        full.frame = Common(full.frame, full.outline->Bounds());
    full.taken = surroundings.taken;
    full.markerRadius = surroundings.markerReach;
    LabelLayout layout = LayOutLabels(
        layers, full, [&](const LabelText& text, const LabelLook& look) { return fonts.Measure(text, look); });
    RemovePlaces(layers, layout.leftOut);
    labels = std::move(layout.labels);
}

std::string MapLabels::CharacterProblem() const
{
    std::vector<std::wstring> texts;
    texts.reserve(labels.size());
    for (const PlacedLabel& label : labels)
        texts.push_back(VisibleText(label.text));
    if (scene.path == TextPath::Cairo)
    {
        const auto isInFace = FontCatalog::CharactersOf(choice.face);
        return MissingCharacters(
            texts, [&](char32_t c) { return isInFace(c) && !NeedsItsNeighbours(c); },
            "cairo, which draws letter by letter and in the face " + choice.face + " alone, cannot write");
    }
    return MissingCharacters(texts, &FontCatalog::HasCharacter);
}

} // namespace txmap
