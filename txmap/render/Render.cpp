#include <txmap/render/Render.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>

#include <txmap/drawing/PluginSession.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/output/OutputFile.h>
#include <txmap/render/PictureFile.h>
#include <txmap/render/StyleFile.h>
#include <txmap/sources/DataExtent.h>
#include <txmap/sources/FittedData.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/MapData.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/SourceRequest.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

/// @param box what is shown; nothing for what style and options say.
MercatorView ViewOf(const RenderOptions& options, const MapStyle& style, const std::optional<GeoBox>& box)
{
    const double bearing = options.bearing.value_or(style.bearing);
    Camera camera{style.longitude.value_or(0.0), style.latitude.value_or(0.0), style.zoom.value_or(0.0), bearing};
    if (box)
        camera = MercatorView::Fit(*box, options.size, bearing);
    if (options.center)
    {
        camera.longitude = options.center->lon;
        camera.latitude = options.center->lat;
    }
    if (options.zoom)
        camera.zoom = *options.zoom;
    return MercatorView(camera, options.size, options.scale);
}

/// Why there is nothing on the map but its background; empty if there is something, or was to be nothing.
std::string EmptyMapProblem(const MapStyle& style, const MapData& data, const MercatorView& view)
{
    const auto isUsed = [&](const StyleSource& source) { return IsUsed(source, style, view.Zoom()); };
    if (!style.sources.empty() && std::none_of(style.sources.begin(), style.sources.end(), isUsed))
        return "no layer with data is drawn at zoom " + NumberText(view.Zoom());
    return EmptyMapText(view.VisibleDegrees(), data.Sources());
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

    PrepareGdal();
    reading.Start();
    const MapStyle style = ReadStyleFile(options.style, options.lenient, warn);
    SourceDiagnostics diagnostics(!options.lenient);
    const SourceFolder folder = SourceFolder::Of(options.style);
    std::optional<GeoBox> box = options.box;
    std::optional<FittedData> fitted;
    if (options.fit)
    {
        fitted.emplace(style, folder, diagnostics);
        if (fitted->Box())
            box = WithRoom(*fitted->Box(), kMercatorMaxLatitude);
        else
            warn("--fit: no source says where its data lies");
    }
    const MercatorView view = ViewOf(options, style, box);
    const MapData data(style, folder, view, diagnostics, fitted ? fitted->Take(style, view) : LoadedSources());
    reading.Stop();
    if (const std::string empty = EmptyMapProblem(style, data, view); !empty.empty())
        warn(empty);

    drawing.Start();
    const PluginSession plugin(options.plugin, TextPath::Qt);
    MapCanvas canvas(plugin.Engine(), view);
    DrawLayers(canvas, style, data, report);
    drawing.Stop();

    encoding.Start();
    SavePicture(canvas.Surface(), view, output, options.output, options.worldFile);
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
