#include <txmap/sources/GeoJsonSource.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include <txmap/map/MapView.h>
#include <txmap/sources/BoxIndex.h>
#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GdalFeatureReader.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLimit = std::size_t{1} << 30;

bool EndsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && StartsWithIgnoringCase(text.substr(text.size() - end.size()), end);
}

std::string PathOfData(const std::string& address, const SourceFolder& folder)
{
    std::error_code status;
    if (!IsConnection(address) || std::filesystem::exists(std::filesystem::path(folder.Path()) / address, status))
        return folder.PathOf(address);
    for (const char* const scheme : {"http://", "https://", "ftp://"})
        if (address.find(scheme) != std::string::npos)
            throw Failure(ExitCode::Data, address + ": would be fetched over a network, which is not done");
    return address;
}

bool IsTrue(const Json& source, const char* member)
{
    const auto found = source.find(member);
    return found != source.end() && found->is_boolean() && found->get<bool>();
}

} // namespace

GeoJsonSource::GeoJsonSource(const std::string& name, const Json& source, const SourceFolder& folder,
                             SourceFilter filter)
    : name(name)
{
    const auto data = source.find("data");
    if (data == source.end() || !(data->is_object() || data->is_string()))
        throw Failure(ExitCode::Data, "the source " + name + " has no data");
    if (data->is_object())
        inlineData = *data;
    else
        path = PathOfData(data->get<std::string>(), folder);
    options.filter = std::move(filter);
    options.generatesIds = IsTrue(source, "generateId");
    if (const auto id = source.find("promoteId"); id != source.end() && id->is_string())
        options.promotedId = id->get<std::string>();
    if (IsTrue(source, "cluster"))
        clusters = ClusterOptions::FromSource(name, source);
}

void GeoJsonSource::Check(const GeoJsonResult& result, SourceDiagnostics& diagnostics) const
{
    const std::string who = path.empty() ? "the source " + name : path;
    if (!result.problem.empty())
        throw Failure(ExitCode::Data, who + ": " + result.problem);
    if (result.brokenFeatures > 0)
        diagnostics.Report(who + ": " + std::to_string(result.brokenFeatures) +
                           (result.brokenFeatures == 1 ? " feature has" : " features have") +
                           " a geometry that is none");
    if (result.hasFarPositions)
        diagnostics.Report(who + ": has coordinates that are no degrees");
}

std::optional<std::string> GeoJsonSource::ReadText() const
{
    std::error_code status;
    const bool isJson = EndsWith(path, ".json") || EndsWith(path, ".geojson");
    if (!isJson || !std::filesystem::is_regular_file(path, status) || std::filesystem::file_size(path, status) > kLimit)
        return std::nullopt;
    return ReadSourceFile(path, kLimit);
}

FeatureSet GeoJsonSource::ReadFeatures(const Projection& projection, const std::optional<MercatorBox>& box,
                                       const FeatureRequest& request, SourceDiagnostics& diagnostics)
{
    FeatureSet set;
    set.projection = projection;
    const auto makeBuilder = [&]
    {
        FeatureSetBuilder builder(set, box ? std::optional(VisibleWorlds(*box)) : std::nullopt,
                                  request.keepsWholeFeatures);
        if (request.joinsAtDateLine)
            builder.JoinAtDateLine();
        return builder;
    };
    std::string problem;
    std::optional<std::string> text = inlineData.is_null() ? ReadText() : std::nullopt;
    if (text || !inlineData.is_null())
    {
        FeatureSetBuilder builder = makeBuilder();
        const GeoJsonResult result = text ? ReadGeoJsonText(std::move(*text), options, builder, set)
                                          : ReadGeoJson(inlineData, options, builder, set);
        if (!text || !result.isOther)
        {
            Check(result, diagnostics);
            extent = builder.Extent();
            return set;
        }
        problem = result.problem;
        // Something of it may have been read before it turned out to be for GDAL.
        set = FeatureSet();
        set.projection = projection;
    }
    FeatureSetBuilder builder = makeBuilder();
    try
    {
        GdalFeatureReader reader(path, options, request.geometry);
        extent = reader.Read(box, builder, set, diagnostics);
        chosenLayer = reader.ChosenLayer();
    }
    catch (const Failure&)
    {
        // What is wrong with a file of JSON says more than that GDAL can do nothing with it either.
        if (problem.empty())
            throw;
        throw Failure(ExitCode::Data, path + ": " + problem);
    }
    return set;
}

void GeoJsonSource::WantProperties(const FeatureRequest& request)
{
    // There are no source layers: whatever they are called, all want the same features.
    std::set<std::string> names;
    bool all = false;
    for (const auto& [layer, properties] : request.layers)
    {
        all = all || !properties;
        if (properties)
            names.insert(properties->begin(), properties->end());
    }
    if (clusters)
    {
        const UsedProperties used = clusters->Used();
        all = all || used.all;
        names.insert(used.names.begin(), used.names.end());
    }
    options.properties = all ? WantedProperties() : WantedProperties(std::move(names));
}

void GeoJsonSource::Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics)
{
    WantProperties(request);
    const MercatorBox box = view.Visible(request.margin);
    auto set = std::make_shared<FeatureSet>();
    if (clusters)
    {
        // What is seen may stand for points that are not.
        FeatureRequest whole = request;
        whole.keepsWholeFeatures = false;
        const FeatureSet all = ReadFeatures(view.MapProjection(), std::nullopt, whole, diagnostics);
        FeatureSetBuilder builder(*set, VisibleWorlds(box));
        AddClusters(all, *clusters, std::max(0, static_cast<int>(std::floor(view.Zoom()))), builder);
    }
    else
        *set = ReadFeatures(view.MapProjection(), box, request, diagnostics);
    if (extent && extent->right < extent->left)
        extent.reset();
    placed.clear();
    if (!set->IsEmpty())
    {
        placed.push_back({std::move(set), {}, std::nullopt, std::nullopt, nullptr});
        ShowIn(view, request.margin);
    }
}

void GeoJsonSource::ShowIn(const MapView& view, double margin)
{
    for (PlacedFeatures& features : placed)
        features.worlds = view.WorldsThatShow(features.features->bounds, margin);
}

void GeoJsonSource::IndexFeatures()
{
    for (PlacedFeatures& features : placed)
    {
        std::vector<MercatorBox> boxes;
        boxes.reserve(features.features->features.size());
        for (const SetFeature& feature : features.features->features)
            boxes.push_back(features.features->BoundsOf(feature));
        features.index = std::make_shared<const BoxIndex>(boxes);
    }
}

bool GeoJsonSource::HasFeatures() const
{
    return std::any_of(placed.begin(), placed.end(),
                       [](const PlacedFeatures& features) { return !features.worlds.empty(); });
}

const std::vector<PlacedFeatures>& GeoJsonSource::Features(const std::string& /*sourceLayer*/) const { return placed; }

} // namespace txmap
