#include <txmap/atlas/Atlas.h>

#include <nlohmann/json.hpp>

#include <fstream>
#include <map>
#include <optional>
#include <vector>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/atlas/AtlasPage.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/atlas/LegendEntries.h>
#include <txmap/atlas/NameLayers.h>
#include <txmap/atlas/SourceColors.h>
#include <txmap/atlas/StyleDocument.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/output/OutputFile.h>
#include <txmap/render/PictureFile.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/MapLayerReader.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/style/Style.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>
#include <txmap/support/FileSuffix.h>

namespace txmap
{
namespace
{

MapStyle Compiled(const Json& document)
{
    StyleReading reading = ReadStyle(document.dump());
    if (!reading.problems.empty())
        throw Failure(ExitCode::Drawing, "the style of the atlas: " + reading.problems.front().ToString());
    return std::move(reading.style);
}

/// The places, and what else has names where names are wanted, in pixels. @throw Failure where no layer has any.
std::vector<MapLayer> LayersInPixels(const AtlasOptions& options, const AtlasSources& sources)
{
    std::vector<MapLayer> layers;
    bool mayHaveNames = false;
    const double margin = kAtlasMargin * sources.View().Scale();
    for (const AtlasSource& source : sources.Features())
    {
        if (!source.IsLand())
            continue;
        const bool places = source.role == LayerRole::Any;
        // Areas are drawn by the style, and read here for their names alone.
        if (!options.labels.wanted && !(places && source.Has(GeometryType::Point)))
            continue;
        layers.push_back(ReadMapLayer(source.Features(), sources.View(), options.labels, places, margin));
        // A source of which nothing is seen gets the benefit of the doubt.
        mayHaveNames = mayHaveNames || source.Features().empty() ||
                       !FeatureNames(options.labels, *source.Features().front().features).Field().empty();
    }
    if (options.labels.wanted && !mayHaveNames)
        throw Failure(ExitCode::Usage, MissingNames(options.labels));
    return layers;
}

/// What backends write, as far as anyone knows. A mistyped suffix is to be found before all data has been read.
void RequirePictureSuffix(const std::string& path)
{
    const std::string suffix = FileSuffix(path);
    for (const char* const known : {".png", ".jpg", ".jpeg", ".webp", ".tif", ".tiff", ".bmp", ".ppm", ".xbm", ".xpm"})
        if (suffix == known)
            return;
    throw Failure(ExitCode::Drawing, "--output " + path + ": " + suffix + " is no suffix of a picture, such as .png");
}

void WriteStyle(OutputFile& file, const Json& document)
{
    std::ofstream stream(file.Begin(), std::ios::binary);
    stream << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    stream.close();
    if (!stream)
        throw Failure(ExitCode::Drawing, file.Name() + ": the style cannot be written" + file.WriteProblem());
    file.Commit();
}

} // namespace

void DrawAtlas(const AtlasOptions& options, const std::function<void(const std::string&)>& warn)
{
    OutputFile output(options.output);
    RequirePictureSuffix(options.output);
    std::optional<OutputFile> styleOutput;
    if (!options.styleOutput.empty())
        styleOutput.emplace(options.styleOutput, "--write-style");
    const Style style = AtlasStyle();

    PrepareGdal();
    SourceDiagnostics diagnostics(false);
    AtlasSources sources(options, diagnostics);
    if (const std::string empty = sources.EmptyMap(options); !empty.empty())
        warn(empty);
    const std::map<std::string, SourceColors> colors = ColorSources(options, style, sources);
    const Json document = MakeStyleDocument(options, style, sources, colors);
    const MapStyle compiled = Compiled(document);
    std::vector<MapLayer> layers = LayersInPixels(options, sources);
    if (styleOutput)
    {
        Json standalone = StandaloneDocument(document, style, sources);
        AddNameLayers(standalone, options, style, sources, layers);
        WriteStyle(*styleOutput, standalone);
    }
    const std::vector<LegendEntry> legend =
        options.legend ? LegendEntries(options, style, sources, colors) : std::vector<LegendEntry>();
    const MapData data(compiled, SourceFolder(""), sources.View(), diagnostics, sources.Take());

    const PluginSession plugin(options.plugin, options.labels.path);
    AtlasPage page(plugin.Engine(), options, sources.View(), style);
    page.LayOutDecorations(legend);
    page.LayOutLabels(layers);
    page.Draw(compiled, data, layers);
    SavePicture(page.Surface(), sources.View(), output, options.output);
    for (const std::string& warning : diagnostics.Warnings())
        warn(warning);
    page.ReportProblems(warn);
}

} // namespace txmap
