#include <txmap/sources/FittedData.h>

#include <nlohmann/json.hpp>

#include <txmap/map/MercatorView.h>
#include <txmap/sources/DataExtent.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/SourceRequest.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

const PixelSize kWorldSize{512, 512};

} // namespace

FittedData::FittedData(const MapStyle& style, const SourceFolder& folder, SourceDiagnostics& diagnostics)
{
    for (const StyleSource& source : style.sources)
    {
        if (!IsUsed(source, style, std::nullopt))
            continue;
        try
        {
            if (const std::optional<GeoBox> extent = ExtentOf(source, style, folder, diagnostics))
                Include(box, *extent);
        }
        catch (const Failure& failure)
        {
            diagnostics.Report(source.pointer + ": " + failure.what());
        }
    }
}

std::optional<GeoBox> FittedData::ExtentOf(const StyleSource& source, const MapStyle& style, const SourceFolder& folder,
                                           SourceDiagnostics& diagnostics)
{
    if (source.type == "raster" || source.type == "image")
        return MakeRasterSource(source.name, source.json, folder, 1.0)->Extent();
    if (source.type == "raster-dem")
        return ElevationSource(source.json, folder).Extent();
    std::unique_ptr<FeatureSource> features = MakeFeatureSource(source.name, source.json, folder);
    if (source.type == "geojson")
        features->Load(MercatorView(Camera(), kWorldSize), RequestFor(source, style, std::nullopt, 1.0), diagnostics);
    const std::optional<MercatorBox> extent = features->Extent();
    // Tiles and groups of points depend on the zoom.
    if (source.type == "geojson" && source.json.value("cluster", Json()) != true)
        loaded.features.emplace(source.name, std::move(features));
    return extent ? std::optional(Projection::WebMercator().ToDegrees(*extent)) : std::nullopt;
}

LoadedSources FittedData::Take(const MapStyle& style, const MapView& view)
{
    for (const auto& [name, features] : loaded.features)
        features->ShowIn(view, RequestFor(*style.FindSource(name), style, view.Zoom(), view.Scale()).margin);
    return std::move(loaded);
}

} // namespace txmap
