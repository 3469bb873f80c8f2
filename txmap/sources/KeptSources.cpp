#include <txmap/sources/KeptSources.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/TileView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourceRequest.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

bool IsClustered(const StyleSource& source)
{
    const auto cluster = source.json.find("cluster");
    return cluster != source.json.end() && cluster->is_boolean() && cluster->get<bool>();
}

} // namespace

MapData KeptSources::Read(const MapView& view, double margin, SourceDiagnostics& diagnostics)
{
    for (const StyleSource& source : style.sources)
    {
        if (!IsUsed(source, style, view.Zoom()))
            continue;
        try
        {
            if (source.type == "geojson" || source.type == "vector")
                ReadFeatures(source, view, margin, diagnostics);
            else if (source.type == "raster" || source.type == "image")
                ReadImages(source, view, diagnostics);
        }
        catch (const Failure&)
        {
            // What is not opened is tried, and reported, by the data of the picture.
            opened.features.erase(source.name);
            opened.images.erase(source.name);
        }
    }
    return MapData(style, folder, view, diagnostics, std::move(opened));
}

void KeptSources::ReadFeatures(const StyleSource& source, const MapView& view, double margin,
                               SourceDiagnostics& diagnostics)
{
    std::unique_ptr<FeatureSource>& made = opened.features[source.name];
    if (!made)
    {
        readAt.erase(source.name);
        made = MakeFeatureSource(source.name, source.json, folder);
    }
    FeatureRequest request = RequestFor(source, style, view.Zoom(), view.Scale());
    for (const StyleLayer& layer : style.layers)
        if (layer.type == LayerType::Symbol && layer.source == source.name && layer.IsShownAt(view.Zoom()))
        {
            request.margin = std::max(request.margin, margin);
            double& layerMargin = request.layerMargins[layer.sourceLayer];
            layerMargin = std::max(layerMargin, margin);
        }
    if (source.type == "vector")
        return made->Load(view, request, diagnostics);
    // Clusters are others at each zoom; other features are read with all that is wanted of them at any zoom.
    const double zoom = IsClustered(source) ? view.Zoom() : 0.0;
    const auto read = readAt.find(source.name);
    if (read == readAt.end() || read->second != zoom)
    {
        made->Load(TileView::World(zoom), RequestFor(source, style, std::nullopt, view.Scale()), diagnostics);
        made->IndexFeatures();
        readAt[source.name] = zoom;
    }
    made->ShowIn(view, request.margin);
}

void KeptSources::ReadImages(const StyleSource& source, const MapView& view, SourceDiagnostics& diagnostics)
{
    std::unique_ptr<RasterSource>& made = opened.images[source.name];
    if (!made)
        made = MakeRasterSource(source.name, source.json, folder, view.Scale());
    made->Load(view, diagnostics);
}

} // namespace txmap
