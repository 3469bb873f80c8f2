#include <txmap/render/Render.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/map/Projection.h>
#include <txmap/output/GeoTiff.h>
#include <txmap/output/OutputFile.h>
#include <txmap/output/WorldFile.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/MapData.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLargestStyle = std::size_t(256) << 20;

MapStyle ReadStyleFile(const RenderOptions& options, const MessageSink& warn)
{
    StyleReading reading = ReadStyle(ReadSourceFile(options.style, kLargestStyle));
    if (reading.problems.empty())
        return std::move(reading.style);
    const std::string first = options.style + ": " + reading.problems.front().ToString();
    const std::size_t more = reading.problems.size() - 1;
    if (!options.lenient || (reading.style.layers.empty() && reading.style.sources.empty()))
        throw Failure(ExitCode::Data,
                      first + (more == 0 ? "" : " (and " + std::to_string(more) + " more; see txmap validate)"));
    for (const StyleProblem& problem : reading.problems)
        warn(options.style + ": " + problem.ToString());
    return std::move(reading.style);
}

MercatorView ViewOf(const RenderOptions& options, const MapStyle& style)
{
    const double bearing = options.bearing.value_or(style.bearing);
    Camera camera{style.longitude.value_or(0.0), style.latitude.value_or(0.0), style.zoom.value_or(0.0), bearing};
    if (options.box)
        camera = MercatorView::Fit(*options.box, options.size, bearing);
    if (options.center)
    {
        camera.longitude = options.center->lon;
        camera.latitude = options.center->lat;
    }
    if (options.zoom)
        camera.zoom = *options.zoom;
    return MercatorView(camera, options.size, options.scale);
}

/// Where the pixels of a view lie in metres of Web Mercator.
GeoReference ReferenceOf(const MercatorView& view)
{
    const double world = Projection::WebMercator().Circumference();
    const auto metres = [&](double column, double row)
    {
        const TZObjects::TXPoint place = view.ToPlace({column, row});
        return TZObjects::TXPoint((place.x - 0.5) * world, (0.5 - place.y) * world);
    };
    const PixelSize size = view.Size();
    const TZObjects::TXPoint origin = metres(0, 0);
    const TZObjects::TXPoint right = metres(size.width, 0);
    const TZObjects::TXPoint down = metres(0, size.height);
    return {"EPSG:3857",
            origin.x,
            (right.x - origin.x) / size.width,
            (down.x - origin.x) / size.height,
            origin.y,
            (right.y - origin.y) / size.width,
            (down.y - origin.y) / size.height};
}

bool IsTiff(const std::string& path)
{
    std::string suffix = std::filesystem::path(path).extension().string();
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](unsigned char c) { return std::tolower(c); });
    return suffix == ".tif" || suffix == ".tiff";
}

/// Writes the picture, and its world file if there is to be one: both, or none.
void Save(const RenderOptions& options, const MapCanvas& canvas, const MercatorView& view, OutputFile& output)
{
    const GeoReference reference = ReferenceOf(view);
    std::optional<OutputFile> worldFile;
    if (options.worldFile)
    {
        worldFile.emplace(WorldFileName(options.output));
        WriteWorldFile(worldFile->Begin(), reference);
    }
    const auto save = [&](OutputFile& file)
    {
        if (!canvas.Surface().Save(file.Begin().c_str()))
            throw Failure(ExitCode::Drawing,
                          "--output " + options.output + ": the picture cannot be written" + file.WriteProblem());
    };
    if (IsTiff(options.output))
    {
        OutputFile pixels(options.output + ".png");
        save(pixels);
        WriteGeoTiff(pixels.Path(), output.Begin(), reference);
    }
    else
        save(output);
    output.Commit();
    if (worldFile)
        worldFile->Commit();
}

std::string TimingText(const char* stage, double seconds)
{
    char text[64];
    std::snprintf(text, sizeof text, "%s %.3f s", stage, seconds);
    return text;
}

} // namespace

void RenderMap(const RenderOptions& options, const MessageSink& warn, const MessageSink& tell)
{
    OutputFile output(options.output);
    Stopwatch reading;
    DrawingReport report;
    Stopwatch drawing;
    Stopwatch encoding;

    reading.Start();
    const MapStyle style = ReadStyleFile(options, warn);
    const MercatorView view = ViewOf(options, style);
    PrepareGdal();
    SourceDiagnostics diagnostics(!options.lenient);
    const MapData data(style, SourceFolder::Of(options.style), view, diagnostics);
    reading.Stop();

    drawing.Start();
    const PluginSession plugin(options.plugin, TextPath::Qt);
    MapCanvas canvas(plugin.Engine(), view);
    DrawLayers(canvas, style, data, report);
    drawing.Stop();

    encoding.Start();
    Save(options, canvas, view, output);
    encoding.Stop();

    for (const std::string& warning : diagnostics.Warnings())
        warn(warning);
    for (const std::string& warning : report.warnings)
        warn(options.style + ": " + warning);
    if (!options.timings)
        return;
    tell(TimingText("reading", reading.Seconds()));
    tell(TimingText("evaluating", report.evaluating.Seconds()));
    tell(TimingText("placing", report.placing.Seconds()));
    tell(TimingText("drawing", drawing.Seconds() - report.evaluating.Seconds() - report.placing.Seconds()));
    tell(TimingText("encoding", encoding.Seconds()));
}

} // namespace txmap
