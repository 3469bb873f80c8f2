#include <txmap/atlas/StyleDocument.h>

#include <nlohmann/json.hpp>

#include <cmath>
#include <filesystem>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/atlas/SourceColors.h>
#include <txmap/style/Style.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXColor;

namespace
{

// More areas without any attribute than this are no countries, but parts of one land.
constexpr std::size_t kMostUnnamed = 1000;
// The class of such land.
constexpr int kLandClass = 2;
// The width of lines, in pixels, from which on their corners are round.
constexpr double kWide = 2.0;
// Along a wide line, corners closer together than this part of its width cannot be told apart.
constexpr double kBandCorner = 0.125;

std::string ColorText(const TXColor& color)
{
    const Color text{color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0, color.getA() / 255.0};
    return text.ToString();
}

/// Only geometry of a type.
Json Only(const char* type) { return {"==", {"geometry-type"}, type}; }

/// Puts layers together.
class DocumentMaker
{
public:
    DocumentMaker(const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                  const std::map<std::string, SourceColors>& colors)
        : options(options), style(style), sources(sources), sourceColors(colors)
    {
    }

    Json Make()
    {
        Json declared = Json::object();
        for (const AtlasSource& source : sources.Features())
            declared[source.id] = source.json;
        if (!sources.RasterId().empty())
            declared[sources.RasterId()] = sources.RasterJson();
        AddSea();
        for (std::size_t band = 0; band < style.shore.size(); ++band)
            for (const AtlasSource& source : sources.Features())
                if (source.IsLand() && source.Has(GeometryType::Polygon))
                    AddLine(source, "shore-" + std::to_string(band + 1), style.shore[band], Only("Polygon"));
        for (const AtlasSource& source : sources.Features())
            AddAreas(source);
        if (!sources.RasterId().empty())
            AddRaster();
        for (const AtlasSource& source : sources.Features())
            AddLines(source);
        return {{"version", 8}, {"name", "atlas"}, {"sources", declared}, {"layers", layers}};
    }

private:
    void AddSea()
    {
        layers.push_back({{"id", "sea"},
                          {"type", "background"},
                          {"metadata", {{"txmap:polar-color", ColorText(style.oceanAtPoles)}}},
                          {"paint", {{"background-color", ColorText(style.oceanAtEquator)}}}});
    }

    void AddLine(const AtlasSource& source, const std::string& purpose, const Stroke& stroke, const Json& filter)
    {
        Json layer = {{"id", purpose + "-" + source.id}, {"type", "line"}, {"source", source.id}};
        if (!filter.is_null())
            layer["filter"] = filter;
        // Of a wide band nobody sees the finest corners, and of a thin line not how they are joined.
        const bool isWide = stroke.width > kWide;
        if (isWide)
            layer["metadata"] = {{"txmap:tolerance", stroke.width * kBandCorner}};
        layer["layout"] = {{"line-cap", isWide ? "round" : "butt"}, {"line-join", isWide ? "round" : "bevel"}};
        layer["paint"] = {{"line-color", ColorText(stroke.color)}, {"line-width", stroke.width}};
        layers.push_back(std::move(layer));
    }

    void AddAreas(const AtlasSource& source)
    {
        const bool drawsAreas = source.IsLand() || source.role == LayerRole::Lakes;
        if (!drawsAreas || !source.Has(GeometryType::Polygon))
            return;
        layers.push_back(
            {{"id", "areas-" + source.id},
             {"type", "fill"},
             {"source", source.id},
             {"filter", Only("Polygon")},
             {"paint",
              {{"fill-color", FillOf(source)},
               {"fill-outline-color", ColorText((source.IsLand() ? style.outline : style.lakeShore).color)}}}});
    }

    Json FillOf(const AtlasSource& source) const
    {
        if (!source.IsLand())
            return ColorText(style.lake);
        if (options.ramp)
            return RampOf(source);
        const AreaColors& colors = sourceColors.at(source.id).areas;
        if (colors.field.empty() && !options.colorBy.empty())
            throw Failure(ExitCode::Data, source.json["data"].get<std::string>() + ": has no attribute " +
                                              options.colorBy + ", which --color-by asks for");
        if (colors.field.empty() && source.Features().front().features->features.size() > kMostUnnamed)
            return ColorText(style.Fill(kLandClass));
        Json match = {"match",
                      {"to-string", colors.field.empty() ? Json::array({"id"}) : Json::array({"get", colors.field})}};
        for (int category = 1; category <= style.Categories(); ++category)
        {
            Json values = Json::array();
            for (const auto& [value, given] : colors.classes)
                if (given == category)
                    values.push_back(value);
            if (values.empty())
                continue;
            match.push_back(std::move(values));
            match.push_back(ColorText(style.Fill(category)));
        }
        if (match.size() == 2)
            return ColorText(style.noCategory);
        match.push_back(ColorText(style.noCategory));
        return match;
    }

    Json RampOf(const AtlasSource& source) const
    {
        const RampRange& range = sourceColors.at(source.id).range;
        if (range.field.empty())
            throw Failure(ExitCode::Data, source.json["data"].get<std::string>() + ": has no attribute " +
                                              options.ramp->field + ", which --color-ramp asks for");
        const Json get = {"get", range.field};
        Json number = {"number", get};
        if (range.isLogarithmic)
            number = {"ln", number};
        const auto stop = [&](double value) { return range.isLogarithmic ? std::log(value) : value; };
        const Json ramp = {"interpolate",
                           {"linear"},
                           number,
                           stop(range.low),
                           options.ramp->low.ToString(),
                           stop(range.high),
                           options.ramp->high.ToString()};
        const Json isNumber = {"==", {"typeof", get}, "number"};
        const Json isKnown = range.isLogarithmic ? Json{"all", isNumber, {">", {"number", get}, 0}} : isNumber;
        return {"case", isKnown, ramp, ColorText(style.noCategory)};
    }

    void AddRaster()
    {
        // A relief is to darken what it lies on. As a veil, it would take its colours away.
        const bool isRelief = sources.RasterIsGrey() && options.raster->opacity < 1.0;
        const bool multiplies = options.raster->multiplies.value_or(isRelief);
        layers.push_back({{"id", "raster"},
                          {"type", "raster"},
                          {"source", sources.RasterId()},
                          {"paint",
                           {{"raster-opacity", options.raster->opacity},
                            {"raster-layer-blend", multiplies ? "multiply" : "normal"}}}});
        for (const AtlasSource& source : sources.Features())
        {
            if ((!source.IsLand() && source.role != LayerRole::Lakes) || !source.Has(GeometryType::Polygon))
                continue;
            if (source.IsLand())
                AddLine(source, "casing", style.overRaster, Only("Polygon"));
            AddLine(source, "outlines", source.IsLand() ? style.outline : style.lakeShore, Only("Polygon"));
        }
    }

    void AddLines(const AtlasSource& source)
    {
        if (source.role == LayerRole::Any && source.Has(GeometryType::LineString))
            AddLine(source, "lines", style.river, Only("LineString"));
        else if (source.role == LayerRole::Borders)
            AddLine(source, "borders", style.border, nullptr);
        else if (source.role == LayerRole::Lines)
            AddLine(source, "lines", style.river, nullptr);
    }

    const AtlasOptions& options;
    const Style& style;
    const AtlasSources& sources;
    const std::map<std::string, SourceColors>& sourceColors;
    Json layers = Json::array();
};

/// The path from anywhere. What is no file, such as a connection, stays as it is.
std::string FromAnywhere(const std::string& source)
{
    std::error_code status;
    const std::size_t mark = source.rfind('#');
    const std::string path = std::filesystem::exists(source, status) ? source : source.substr(0, mark);
    if (!std::filesystem::exists(path, status))
        return source;
    return std::filesystem::absolute(path, status).lexically_normal().string() + source.substr(path.size());
}

} // namespace

Json MakeStyleDocument(const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                       const std::map<std::string, SourceColors>& colors)
{
    return DocumentMaker(options, style, sources, colors).Make();
}

Json StandaloneDocument(Json document, const Style& style, const AtlasSources& sources)
{
    for (auto& [name, source] : document["sources"].items())
        for (const char* const member : {"data", "url"})
            if (source.contains(member))
                source[member] = FromAnywhere(source[member].get<std::string>());
    const AtlasView& view = sources.View();
    const TZObjects::TXPoint centre =
        view.MapProjection().ToDegrees(view.ToPlace({view.Size().width / 2.0, view.Size().height / 2.0}));
    document["center"] = {std::round(centre.x * 1e6) / 1e6 + 0.0, std::round(centre.y * 1e6) / 1e6 + 0.0};
    document["zoom"] = std::round(view.Zoom() * 1e4) / 1e4 + 0.0;
    for (const AtlasSource& source : sources.Features())
        if (source.role == LayerRole::Any && source.Has(GeometryType::Point))
            document["layers"].push_back({{"id", "places-" + source.id},
                                          {"type", "circle"},
                                          {"source", source.id},
                                          {"filter", Only("Point")},
                                          {"paint",
                                           {{"circle-radius", style.placeRadius},
                                            {"circle-color", ColorText(style.placeFill)},
                                            {"circle-stroke-width", style.placeRing.width},
                                            {"circle-stroke-color", ColorText(style.placeRing.color)}}}});
    return document;
}

} // namespace txmap
