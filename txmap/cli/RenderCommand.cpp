#include <txmap/cli/RenderCommand.h>

#include <cmath>
#include <ostream>
#include <string>

#include <CLI/CLI.hpp>

#include <txmap/cli/CommandLine.h>
#include <txmap/cli/MessageLine.h>
#include <txmap/cli/OptionValues.h>
#include <txmap/cli/ParseView.h>
#include <txmap/render/Render.h>
#include <txmap/support/FileSuffix.h>

namespace txmap
{
namespace
{

constexpr double kLongestSide = 30000.0;
constexpr double kLargestScale = 16.0;

/// The options as they are written.
struct RawOptions
{
    std::string style, output, size, center, zoom, bearing, box, scale, plugin = "txpluginqt";
    bool fit = false, lenient = false, timings = false, worldFile = false;
};

void Declare(CLI::App& app, RawOptions& raw)
{
    app.add_option("style", raw.style, "A style of the MapLibre Style Specification, version 8")
        ->required()
        ->type_name("STYLE.json");
    app.add_option("-o,--output", raw.output,
                   "The picture to write; its suffix names the format: png, jpg, webp, or tif for a GeoTIFF")
        ->required()
        ->type_name("FILE");
    app.add_option("--size", raw.size, "The size of the picture in logical pixels (default 1024x1024)")
        ->type_name("WxH");
    app.add_option("--center", raw.center, "The middle of the picture in degrees (default: that of the style)")
        ->type_name("LON,LAT");
    app.add_option("--zoom", raw.zoom,
                   "The zoom, at which the world is 512 * 2^zoom logical pixels wide (default: that of the style)")
        ->type_name("NUMBER");
    app.add_option("--bearing", raw.bearing,
                   "The direction that is up, in degrees clockwise from north (default: that of the style)")
        ->type_name("DEGREES");
    app.add_option("--bbox", raw.box, "Shows a box of degrees as large as possible, instead of centre and zoom")
        ->type_name("WEST,SOUTH,EAST,NORTH");
    app.add_flag("--fit", raw.fit, "Show all data as large as possible, instead of centre, zoom or box");
    app.add_option("--scale", raw.scale, "Pixels for each logical one (default 1)")->type_name("NUMBER");
    app.add_flag("--world-file", raw.worldFile, "Write where the picture lies into a file beside it, such as map.pgw");
    app.add_flag("--lenient", raw.lenient, "Draw what can be drawn, with a warning for each problem");
    app.add_flag("--timings", raw.timings, "Print how long reading, evaluating, drawing and encoding took");
    app.add_option("--plugin", raw.plugin, "The drawing plugin, by path or by name (default txpluginqt)")
        ->type_name("PATH|NAME");
}

LonLat ParseCenter(const std::string& text)
{
    const std::vector<double> place = NumbersIn<double>(text, ',');
    if (place.size() != 2 || !(std::abs(place[0]) <= 360.0 && std::abs(place[1]) <= 90.0))
        Refuse("--center", text, "must be LON,LAT in degrees, such as 8.5,47.4");
    return {place[0], place[1]};
}

PixelSize ParseRenderSize(const std::string& text, double scale)
{
    const std::vector<int> sides = NumbersIn<int>(text, 'x');
    if (sides.size() != 2)
        Refuse("--size", text, "must be WIDTHxHEIGHT in pixels, such as 1024x768");
    for (const int side : sides)
        if (side < 1 || side * scale > kLongestSide)
            Refuse("--size", text,
                   "each side must be from 1 to " + NumberText(kLongestSide) + " pixels, times the scale");
    return {sides[0], sides[1]};
}

void CheckSuffix(const std::string& output)
{
    const std::string suffix = FileSuffix(output);
    for (const char* const known : {".png", ".jpg", ".jpeg", ".webp", ".tif", ".tiff"})
        if (suffix == known)
            return;
    Refuse("--output", output, "the suffix must be .png, .jpg, .jpeg, .webp or .tif");
}

RenderOptions Interpret(const RawOptions& raw)
{
    RenderOptions options;
    options.style = raw.style;
    options.output = raw.output;
    CheckSuffix(raw.output);
    if (!raw.scale.empty())
        options.scale = ParseNumber("--scale", raw.scale, 0.1, kLargestScale);
    options.size = ParseRenderSize(raw.size.empty() ? "1024x1024" : raw.size, options.scale);
    if (!raw.center.empty())
        options.center = ParseCenter(raw.center);
    if (!raw.zoom.empty())
        options.zoom = ParseNumber("--zoom", raw.zoom, -2.0, 24.0);
    if (!raw.bearing.empty())
        options.bearing = ParseNumber("--bearing", raw.bearing, -360.0, 360.0);
    if (!raw.box.empty())
    {
        if (!raw.center.empty() || !raw.zoom.empty())
            Refuse("--bbox", raw.box, "stands instead of --center and --zoom");
        options.box = ParseBox(raw.box, Projection::WebMercator());
    }
    if (raw.fit && !(raw.center.empty() && raw.zoom.empty() && raw.box.empty()))
        throw Failure(ExitCode::Usage, "--fit: stands instead of --center, --zoom and --bbox");
    options.fit = raw.fit;
    options.lenient = raw.lenient;
    options.timings = raw.timings;
    options.worldFile = raw.worldFile;
    options.plugin = raw.plugin;
    return options;
}

} // namespace

std::optional<RenderOptions> ParseRenderOptions(int argc, const char* const* argv, std::ostream& out)
{
    CLI::App app("Draws a map from a style, through a drawing plugin that is loaded at run time.", "txmap render");
    RawOptions raw;
    Declare(app, raw);
    if (!ReadCommandLine(app, argc, argv, out,
                         {"--output", "--size", "--center", "--zoom", "--bearing", "--bbox", "--scale", "--plugin"}))
        return std::nullopt;
    return Interpret(raw);
}

void RunRenderCommand(int argc, const char* const* argv, std::ostream& out)
{
    if (const std::optional<RenderOptions> options = ParseRenderOptions(argc, argv, out))
        RenderMap(
            *options, [](const std::string& warning) { PrintMessage("warning: " + warning); },
            [&](const std::string& line) { out << line << '\n'; });
}

} // namespace txmap
