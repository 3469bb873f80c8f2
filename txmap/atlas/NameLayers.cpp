#include <txmap/atlas/NameLayers.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/labels/CountryLabels.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/InnerPoints.h>
#include <txmap/labels/LabelScene.h>
#include <txmap/labels/LabelText.h>
#include <txmap/labels/VisibleShape.h>
#include <txmap/sources/FeatureNames.h>
#include <txmap/style/Color.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXPoint;
using TZObjects::TXString;

namespace
{

// Names are about this many times as long as high.
constexpr double kProportion = 4.0;
// The mean width of letters, in heights of the text.
constexpr double kLetter = 0.6;
// A name may be this many times as long as a square that is as large as its country.
constexpr double kLongest = 1.5;
// How many zooms farther in names are half as large again.
constexpr double kGrowingZooms = 4.0;
constexpr double kGrowing = 1.5;
// The room between a place and its name, in ems.
constexpr double kBeside = 0.6;
constexpr double kWidestPlace = 8.0;
constexpr double kWidestCountry = 7.0;
// More than live anywhere, so that numbers of people decide between equal ranks alone.
constexpr double kMostPeople = 1e9;
// For places without a rank.
constexpr double kLastRank = 100.0;

std::string ColorText(const TXColor& color)
{
    const Color text{color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0, color.getA() / 255.0};
    return text.ToString();
}

double Rounded(double value, double steps) { return std::round(value * steps) / steps + 0.0; }

/// The name of an area, and where it stands.
struct AreaName
{
    std::string text;
    double rank = 0.0;
    double size = 0.0; ///< What is visible of its area, in square logical pixels.
    TXPoint at;        ///< In degrees.
};

/// Puts the layers of names together.
class NameLayerMaker
{
public:
    NameLayerMaker(Json& document, const AtlasOptions& options, const Style& style, const AtlasSources& sources)
        : document(document), options(options), sources(sources), scale(sources.View().Scale()),
          look(ScaledLabelStyle(style.labels, options.labels, scale)),
          face(ChooseFace(options.labels.font, "--label-font " + options.labels.font).face)
    {
        // A style counts in logical pixels.
        look.size /= scale;
        look.countryHalo.width /= scale;
        look.placeHalo.width /= scale;
    }

    void Add(const AtlasSource& source, const MapLayer& layer)
    {
        if (!layer.areaNames.empty())
            AddAreas(source, layer);
        if (!layer.placeNames.empty())
            AddPlaces(source);
    }

private:
    std::vector<AreaName> NamesOf(const MapLayer& layer) const
    {
        const AtlasView& view = sources.View();
        std::vector<AreaName> names;
        for (const NamedFeature& feature : layer.areaNames)
        {
            const VisibleShape shape(layer, layer.areas[feature.index], view.Frame());
            const std::string text =
                TXString(VisibleText(MakeLabelText(feature.name.text, TextPath::Cairo)).c_str()).toUTF8();
            if (shape.IsEmpty() || text.empty())
                continue;
            const std::vector<InnerPoint> points = InnerPoints(shape, kProportion);
            const TXPoint pixel = points.empty() ? shape.Centre() : points.front().position;
            names.push_back({text, feature.name.rank, shape.Size() / (scale * scale),
                             view.MapProjection().ToDegrees(view.ToPlace(pixel))});
        }
        std::stable_sort(names.begin(), names.end(),
                         [](const AreaName& a, const AreaName& b)
                         { return std::make_tuple(a.rank, -a.size) < std::make_tuple(b.rank, -b.size); });
        // Parts of a country are called as it is.
        std::set<std::string> seen;
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [&](const AreaName& name) { return !seen.insert(name.text).second; }),
                    names.end());
        return names;
    }

    /// The zoom from which on a name is not much longer than its area.
    double ZoomOf(const AreaName& name, double textSize) const
    {
        const double length = textSize * kLetter * std::min(kWidestCountry / kLetter, 1.0 * name.text.size());
        return sources.View().Zoom() + std::log2(length / (kLongest * std::sqrt(name.size)));
    }

    void AddAreas(const AtlasSource& source, const MapLayer& layer)
    {
        Json features = Json::array();
        for (const AreaName& name : NamesOf(layer))
        {
            const int textSize = LargestCountryName(look, name.size);
            features.push_back(
                {{"type", "Feature"},
                 {"properties",
                  {{"name", name.text},
                   {"order", features.size()},
                   {"size", textSize},
                   {"from", Rounded(std::max(0.0, ZoomOf(name, textSize)), 100.0)}}},
                 {"geometry",
                  {{"type", "Point"}, {"coordinates", {Rounded(name.at.x, 1e5), Rounded(name.at.y, 1e5)}}}}});
        }
        const std::string id = "names-" + source.id;
        document["sources"][id] = {{"type", "geojson"},
                                   {"data", {{"type", "FeatureCollection"}, {"features", std::move(features)}}}};
        Json layerJson = NameLayer(id, id, {"get", "name"}, {"get", "size"}, look.country, look.countryHalo);
        layerJson["filter"] = {">=", {"zoom"}, {"get", "from"}};
        layerJson["layout"]["symbol-sort-key"] = {"get", "order"};
        layerJson["layout"]["text-max-width"] = kWidestCountry;
        document["layers"].push_back(std::move(layerJson));
    }

    void AddPlaces(const AtlasSource& source)
    {
        const FeatureNames names(options.labels, *source.Features().front().features);
        Json layer = NameLayer("place-names-" + source.id, source.id, {"to-string", {"get", names.Field()}},
                               Rounded(look.size * look.placeSize, 10.0), look.place, look.placeHalo);
        layer["filter"] = {"==", {"geometry-type"}, "Point"};
        if (Json order = OrderOf(names); !order.is_null())
            layer["layout"]["symbol-sort-key"] = std::move(order);
        layer["layout"]["text-variable-anchor"] = {"left", "right", "bottom", "top"};
        layer["layout"]["text-radial-offset"] = kBeside;
        layer["layout"]["text-justify"] = "auto";
        layer["layout"]["text-max-width"] = kWidestPlace;
        document["layers"].push_back(std::move(layer));
    }

    /// What puts places in their order: by rank, then the largest first. Null where there is neither.
    static Json OrderOf(const FeatureNames& names)
    {
        const auto number = [](const std::string& field, double otherwise) {
            return Json{"case", {"has", field}, {"to-number", {"get", field}, otherwise}, otherwise};
        };
        const std::string& people = names.PopulationField();
        const Json byPeople = people.empty() ? Json() : Json{"-", 0, {"/", number(people, 0.0), kMostPeople}};
        if (names.RankField().empty())
            return byPeople;
        const Json rank = number(names.RankField(), kLastRank);
        return people.empty() ? rank : Json{"+", rank, byPeople};
    }

    Json NameLayer(const std::string& id, const std::string& source, const Json& text, const Json& size,
                   const TXColor& color, const LabelHalo& halo) const
    {
        const double zoom = Rounded(sources.View().Zoom(), 1e4);
        return {{"id", id},
                {"type", "symbol"},
                {"source", source},
                {"layout",
                 {{"text-field", text},
                  {"text-font", {face}},
                  {"text-size",
                   {"interpolate",
                    {"linear"},
                    {"zoom"},
                    zoom,
                    size,
                    Rounded(zoom + kGrowingZooms, 1e4),
                    {"*", kGrowing, size}}}}},
                {"paint",
                 {{"text-color", ColorText(color)},
                  {"text-halo-color", ColorText(halo.color)},
                  {"text-halo-width", Rounded(halo.width, 100.0)}}}};
    }

    Json& document;
    const AtlasOptions& options;
    const AtlasSources& sources;
    double scale;
    LabelStyle look; ///< In logical pixels.
    std::string face;
};

} // namespace

void AddNameLayers(Json& document, const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                   const std::vector<MapLayer>& layers)
{
    if (!options.labels.wanted)
        return;
    NameLayerMaker maker(document, options, style, sources);
    // What lies below on the list is placed first.
    std::size_t number = 0;
    for (const AtlasSource& source : sources.Features())
        if (source.IsLand())
            maker.Add(source, layers.at(number++));
}

} // namespace txmap
