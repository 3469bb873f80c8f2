#include <txmap/sources/MapData.h>

#include <txmap/map/MapView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/SourceRequest.h>
#include <txmap/support/Failure.h>

namespace txmap
{

MapData::MapData(const MapStyle& style, const SourceFolder& folder, const MapView& view, SourceDiagnostics& diagnostics,
                 LoadedSources loaded)
    : opened(std::move(loaded))
{
    if (!opened.sprites)
        opened.sprites = std::make_shared<const Sprites>(style.sprites, folder, view.Scale(), diagnostics);
    for (const StyleSource& source : style.sources)
    {
        if (!IsUsed(source, style, view.Zoom()))
            continue;
        try
        {
            if (opened.features.count(source.name) == 0 && opened.images.count(source.name) == 0)
                Read(source, style, folder, view, diagnostics);
            parts.push_back(PartOf(source.name, view.MapProjection()));
        }
        catch (const Failure& failure)
        {
            diagnostics.Report(source.pointer + ": " + failure.what());
        }
    }
}

void MapData::Read(const StyleSource& source, const MapStyle& style, const SourceFolder& folder, const MapView& view,
                   SourceDiagnostics& diagnostics)
{
    if (source.type == "geojson" || source.type == "vector")
    {
        auto made = MakeFeatureSource(source.name, source.json, folder);
        made->Load(view, RequestFor(source, style, view.Zoom(), view.Scale()), diagnostics);
        opened.features.emplace(source.name, std::move(made));
    }
    else if (source.type == "raster" || source.type == "image")
    {
        auto made = MakeRasterSource(source.name, source.json, folder, view.Scale());
        made->Load(view, diagnostics);
        opened.images.emplace(source.name, std::move(made));
    }
    else if (source.type == "raster-dem")
    {
        std::unique_ptr<ElevationSource>& heights = opened.heights[source.name];
        if (!heights)
            heights = std::make_unique<ElevationSource>(source.json, folder);
        grids.emplace(source.name, Grid{heights->Load(view, diagnostics), heights->Extent()});
    }
}

DataPart MapData::PartOf(const std::string& name, const Projection& projection) const
{
    DataPart part{name, false, std::nullopt};
    if (const auto found = opened.features.find(name); found != opened.features.end())
    {
        part.isSeen = found->second->HasFeatures();
        if (const std::optional<MercatorBox> extent = found->second->Extent())
            part.extent = projection.ToDegrees(*extent);
    }
    else if (const auto pictures = opened.images.find(name); pictures != opened.images.end())
    {
        part.isSeen = !pictures->second->IsBlank();
        part.extent = pictures->second->Extent();
    }
    else if (const auto grid = grids.find(name); grid != grids.end())
    {
        part.isSeen = grid->second.heights.HasHeights();
        part.extent = grid->second.extent;
    }
    return part;
}

const std::vector<PlacedFeatures>& MapData::Features(const StyleLayer& layer) const
{
    static const std::vector<PlacedFeatures> kNone;
    const auto found = opened.features.find(layer.source);
    return found == opened.features.end() ? kNone : found->second->Features(layer.sourceLayer);
}

const std::vector<PlacedImage>& MapData::Images(const StyleLayer& layer) const
{
    static const std::vector<PlacedImage> kNone;
    const auto found = opened.images.find(layer.source);
    return found == opened.images.end() ? kNone : found->second->Images();
}

const ElevationGrid& MapData::Heights(const StyleLayer& layer) const
{
    static const ElevationGrid kNone;
    const auto found = grids.find(layer.source);
    return found == grids.end() ? kNone : found->second.heights;
}

} // namespace txmap
