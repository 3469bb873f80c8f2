#include <txmap/MapLabels.h>

#include <algorithm>
#include <array>
#include <iomanip>
#include <set>
#include <sstream>
#include <utility>

#include <txbase/TXString.h>
#include <txgraphics/TXFont.h>
#include <txmap/FontCatalog.h>
#include <txmap/LabelLayout.h>
#include <txmap/LabelPainter.h>
#include <txmap/MapRenderer.h>

namespace TZObjects
{
namespace
{

constexpr char kUsualFace[] = "sans-serif";
// Text does not shrink with the picture: it would not be readable.
constexpr double kSmallestUnit = 1.0;
constexpr std::size_t kMostNamedCharacters = 8;

bool NeedsNoGlyph(char32_t c) { return IsBlank(c) || IsShapeless(c); }

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

/// The face to draw with, and what to say where it is not the one that was asked for.
std::string ChooseFace(const std::string& wanted, std::string& problem)
{
    if (wanted.empty())
        return FontCatalog::Resolved(kUsualFace);
    const std::string english = TXFont::GetEnglishNameForKnownFont(wanted.c_str()).toUTF8();
    for (const std::string& name : {wanted, english})
        if (!name.empty() && FontCatalog::Has(name))
            return FontCatalog::Resolved(name);
    std::string other = FontCatalog::Resolved(wanted);
    problem = "--label-font " + wanted + ": no such font is installed" +
              (other.empty() ? "" : "; " + other + " is used instead");
    return other;
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

std::string MissingNames(const LabelOptions& options)
{
    return options.field.empty()
               ? "--labels: no layer of countries or places has an attribute name; --label-field picks another"
               : "--label-field " + options.field + ": no layer of countries or places has this attribute";
}

std::string MissingCharacters(const std::vector<std::wstring>& texts, const std::function<bool(char32_t)>& hasCharacter,
                              const std::string& begin)
{
    std::set<char32_t> characters;
    for (const std::wstring& text : texts)
        characters.insert(text.begin(), text.end());
    std::vector<char32_t> missing;
    std::copy_if(characters.begin(), characters.end(), std::back_inserter(missing),
                 [&](char32_t c) { return !NeedsNoGlyph(c) && !hasCharacter(c); });
    if (missing.empty())
        return {};
    std::ostringstream message;
    message << begin;
    for (std::size_t i = 0; i < std::min(missing.size(), kMostNamedCharacters); ++i)
        message << (i == 0 ? " " : ", ") << "U+" << std::hex << std::uppercase << std::setw(4) << std::setfill('0')
                << static_cast<unsigned long>(missing[i]);
    if (missing.size() > kMostNamedCharacters)
        message << std::dec << " and " << missing.size() - kMostNamedCharacters << " more";
    message << ", which labels contain";
    return message.str();
}

MapLabels::MapLabels(TXGraphicsEngine& engine, const MapRenderer& renderer, const LabelOptions& options)
    : renderer(renderer), options(options), face(ChooseFace(options.font, fontProblem)),
      painter(engine, renderer.Surface(), face, options.path)
{
}

void MapLabels::LayOut(std::vector<MapLayer>& layers)
{
    const Style& style = renderer.MapStyle();
    LabelScene scene;
    scene.frame = renderer.MapView().Frame();
    scene.style = ScaledLabelStyle(style.labels, options, std::max(kSmallestUnit, renderer.Unit()));
    scene.markerRadius = (style.placeRadius + style.placeRing.width / 2.0) * renderer.Unit();
    scene.path = options.path;
    LabelLayout layout = LayOutLabels(
        layers, scene, [&](const LabelText& text, const LabelLook& look) { return painter.Measure(text, look); });
    RemovePlaces(layers, layout.leftOut);
    labels = std::move(layout.labels);
}

void MapLabels::Draw() { painter.Draw(labels); }

std::string MapLabels::CharacterProblem() const
{
    std::vector<std::wstring> texts;
    texts.reserve(labels.size());
    for (const PlacedLabel& label : labels)
        texts.push_back(VisibleText(label.text));
    if (options.path == TextPath::Cairo)
    {
        const auto isInFace = FontCatalog::CharactersOf(face);
        return MissingCharacters(
            texts, [&](char32_t c) { return isInFace(c) && !NeedsItsNeighbours(c); },
            "cairo, which draws letter by letter and in the face " + face + " alone, cannot write");
    }
    return MissingCharacters(texts, &FontCatalog::HasCharacter);
}

} // namespace TZObjects
