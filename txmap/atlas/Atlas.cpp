#include <txmap/atlas/Atlas.h>

#include <optional>
#include <vector>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/atlas/AtlasPage.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/View.h>
#include <txmap/output/OutputFile.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GeometryReader.h>
#include <txmap/sources/Raster.h>
#include <txmap/sources/VectorSource.h>
#include <txmap/style/Style.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

std::vector<MapLayer> ReadLayers(const AtlasOptions& options, const View& view, const Style& style)
{
    GeometryReader reader(view, options.colorBy, style.Categories(), options.labels);
    std::vector<MapLayer> layers;
    for (const LayerRequest& request : options.layers)
        layers.push_back(reader.Read(VectorSource(request.source), request.role));
    if (reader.Names().AreMissing())
        throw Failure(ExitCode::Usage, MissingNames(options.labels));
    return layers;
}

std::optional<Raster> ReadRasterOf(const AtlasOptions& options, const View& view)
{
    if (!options.raster)
        return std::nullopt;
    return ReadRaster(options.raster->file, view, "--raster " + options.raster->file);
}

} // namespace

void DrawAtlas(const AtlasOptions& options, const std::function<void(const std::string&)>& warn)
{
    OutputFile output(options.output);
    const View view(options.projection, options.box, options.size);
    const Style style = AtlasStyle();

    PrepareGdal();
    std::vector<MapLayer> layers = ReadLayers(options, view, style);
    std::optional<Raster> raster = ReadRasterOf(options, view);
    if (raster && raster->IsBlank())
        warn("--raster " + options.raster->file + ": has nothing in the part of the world shown");

    const PluginSession plugin(options.plugin, options.labels.path);
    AtlasPage page(plugin.Engine(), options, view, style);
    page.LayOutLabels(layers);
    page.Draw(layers, raster ? &*raster : nullptr);
    if (!page.Save(output.Begin()))
        throw Failure(ExitCode::Drawing, "--output " + options.output + ": the picture cannot be written");
    output.Commit();
    page.ReportProblems(warn);
}

} // namespace txmap
