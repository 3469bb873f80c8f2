#include <txmap/atlas/AtlasSources.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <set>

#include <txmap/atlas/AreaColors.h>
#include <txmap/sources/DataExtent.h>
#include <txmap/sources/GeoreferencedSource.h>
#include <txmap/sources/RasterExtent.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// Data that is as wide as this part of the world is shown with all of it.
constexpr double kMostOfTheWorld = 0.7;

/// A short name that no other source has: that of its file.
std::string NewId(const std::string& source, std::set<std::string>& taken)
{
    std::string path = source;
    std::string layer;
    if (const std::size_t mark = source.rfind('#'); mark != std::string::npos)
    {
        path = source.substr(0, mark);
        layer = source.substr(mark + 1);
    }
    std::string id = std::filesystem::path(path).stem().string();
    id = id.empty() ? "data" : id;
    if (!layer.empty())
        id += "-" + layer;
    std::string unique = id;
    for (int number = 2; !taken.insert(unique).second; ++number)
        unique = id + "-" + std::to_string(number);
    return unique;
}

bool IsGrey(const Raster& raster)
{
    return std::all_of(raster.pixels.begin(), raster.pixels.end(),
                       [](std::uint32_t pixel)
                       {
                           const std::uint32_t tone = pixel & 0xFFu;
                           return pixel >> 24 == 0 || (pixel & 0xFFFFFFu) == tone * 0x010101u;
                       });
}

bool WantsAreas(LayerRole role) { return role == LayerRole::Countries || role == LayerRole::Lakes; }
bool WantsLines(LayerRole role) { return role == LayerRole::Borders || role == LayerRole::Lines; }

/// The attributes that an atlas may use.
WantedProperties UsedFields(const AtlasOptions& options, LayerRole role)
{
    std::set<std::string> names;
    const auto add = [&](const std::vector<std::string>& fields) { names.insert(fields.begin(), fields.end()); };
    if (role == LayerRole::Any || role == LayerRole::Countries)
    {
        add(FeatureNames::Fields(options.labels));
        for (const std::string& field : ColorFields(options.colorBy))
            add(FieldSpellings(field));
        if (options.ramp)
            add(FieldSpellings(options.ramp->field));
    }
    return names;
}

/// @throw Failure where a layer has nothing that can be drawn in its role.
void RequireSuitable(const AtlasSource& source, const std::string& name)
{
    const bool isEmpty = source.Features().empty();
    if (isEmpty || source.role == LayerRole::Any || source.Has(GeometryType::Polygon))
        return;
    if (WantsAreas(source.role))
        throw Failure(ExitCode::Data, name + ": holds no areas");
    if (!source.Has(GeometryType::LineString))
        throw Failure(ExitCode::Data, name + ": holds no lines");
}

} // namespace

bool AtlasSource::Has(GeometryType type) const
{
    for (const PlacedFeatures& placed : Features())
        for (const SetFeature& feature : placed.features->features)
            if (feature.type == type)
                return true;
    return false;
}

AtlasSources::AtlasSources(const AtlasOptions& options, SourceDiagnostics& diagnostics)
{
    const SourceFolder folder("");
    std::set<std::string> taken;
    for (const LayerRequest& request : options.layers)
    {
        AtlasSource source{NewId(request.source, taken), request.role, Json::object(), nullptr};
        source.json = {{"type", "geojson"}, {"data", request.source}, {"generateId", true}};
        source.source = MakeFeatureSource(source.id, source.json, folder);
        features.push_back(std::move(source));
    }
    if (options.box)
    {
        view.emplace(options.projection, options.box, options.size, options.scale);
        Load(*view, options, diagnostics);
    }
    else
    {
        // Where the data lies is known only when all of it has been read.
        const AtlasView world(options.projection, std::nullopt, options.size, options.scale);
        Load(world, options, diagnostics);
        std::optional<GeoBox> box = Extent(options);
        if (box && box->east - box->west < kMostOfTheWorld * 360.0)
            box = WithRoom(*box, options.projection.MaxLatitude());
        else
            box.reset();
        view.emplace(options.projection, box, options.size, options.scale);
        for (AtlasSource& source : features)
            source.source->ShowIn(*view, kAtlasMargin * view->Scale());
    }
    if (!options.raster)
        return;
    rasterId = NewId(options.raster->file, taken);
    rasterJson = {{"type", "raster"}, {"url", options.raster->file}};
    raster = std::make_unique<GeoreferencedSource>(options.raster->file, "--raster " + options.raster->file);
    raster->Load(*view, diagnostics);
    rasterIsGrey = std::all_of(raster->Images().begin(), raster->Images().end(),
                               [](const PlacedImage& placed) { return IsGrey(*placed.image); });
}

void AtlasSources::Load(const MapView& shown, const AtlasOptions& options, SourceDiagnostics& diagnostics)
{
    for (std::size_t i = 0; i < features.size(); ++i)
    {
        AtlasSource& source = features[i];
        FeatureRequest request;
        request.layers[""] = UsedFields(options, source.role);
        request.margin = kAtlasMargin * shown.Scale();
        request.joinsAtDateLine = true;
        if (WantsAreas(source.role))
            request.geometry = GeometryType::Polygon;
        else if (WantsLines(source.role))
            request.geometry = GeometryType::LineString;
        source.source->Load(shown, request, diagnostics);
        RequireSuitable(source, options.layers[i].source);
        if (const std::string layer = source.source->ChosenLayer(); !layer.empty())
            source.json["data"] = options.layers[i].source + "#" + layer;
    }
}

std::optional<GeoBox> AtlasSources::Extent(const AtlasOptions& options) const
{
    std::optional<GeoBox> all;
    for (const AtlasSource& source : features)
    {
        std::optional<MercatorBox> extent = source.source->Extent();
        if (!extent && !source.Features().empty())
            extent = source.Features().front().features->bounds;
        if (extent)
            Include(all, options.projection.ToDegrees(*extent));
    }
    if (options.raster)
        if (const std::optional<GeoBox> extent = RasterExtent(options.raster->file))
            Include(all, *extent);
    return all;
}

std::string AtlasSources::EmptyMap(const AtlasOptions& options) const
{
    std::vector<DataPart> parts;
    for (std::size_t i = 0; i < features.size(); ++i)
    {
        const std::optional<MercatorBox> extent = features[i].source->Extent();
        parts.push_back({options.layers[i].source, features[i].source->HasFeatures(),
                         extent ? std::optional(options.projection.ToDegrees(*extent)) : std::nullopt});
    }
    if (raster)
        parts.push_back({"--raster " + options.raster->file, !raster->IsBlank(), raster->Extent()});
    std::string text = EmptyMapText(view->VisibleDegrees(), parts);
    if (text.empty() && raster && raster->IsBlank())
        return parts.back().name + ": has nothing in the part of the world shown";
    return text;
}

LoadedSources AtlasSources::Take()
{
    LoadedSources loaded;
    for (AtlasSource& source : features)
        loaded.features.emplace(source.id, std::move(source.source));
    if (raster)
        loaded.images.emplace(rasterId, std::move(raster));
    return loaded;
}

} // namespace txmap
