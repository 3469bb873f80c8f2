#include <txmap/cli/Options.h>

#include <gdal.h>

#include <filesystem>
#include <system_error>

#include <CLI/CLI.hpp>

#include <txmap/cli/OptionValues.h>
#include <txmap/cli/ParseColorRamp.h>
#include <txmap/cli/ParseFrame.h>
#include <txmap/cli/ParseLabels.h>
#include <txmap/cli/ParseNorthArrow.h>
#include <txmap/cli/ParseRaster.h>
#include <txmap/cli/ParseSymbol.h>
#include <txmap/cli/ParseView.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

std::string VersionText()
{
    return std::string("txmap ") + TXMAP_VERSION + " (GDAL " + GDALVersionInfo("RELEASE_NAME") + ")\n";
}

/// The options as they are written, before their meaning is looked at.
struct RawOptions
{
    std::vector<std::string> inputs, countries, lakes, borders, lines;
    std::string output = "map.png", size, crs = "EPSG:4326", box, graticule, colorBy, plugin = "txpluginqt";
    std::string labelField, labelSize, labelHalo, labelFont, textPath;
    std::string symbol, symbolSize, raster, rasterOpacity, frame, northArrow;
    std::string scale, ramp, rasterBlend, styleOutput;
    bool legend = false, scaleBar = false;
    bool version = false, listPlugins = false, labels = false;
};

void DeclareLabels(CLI::App& app, RawOptions& raw)
{
    app.add_flag("--labels", raw.labels,
                 "Label countries and places by their names; every other label option implies it");
    app.add_option("--label-field", raw.labelField,
                   "The attribute that holds the names of countries and places (default: name or a like one)")
        ->type_name("FIELD");
    app.add_option("--label-size", raw.labelSize,
                   "The size of the names in pixels (default: suits the picture). Those of large countries are larger, "
                   "those of small ones and of places smaller")
        ->type_name("PIXELS");
    app.add_option("--label-halo", raw.labelHalo,
                   "How far the halo of the names reaches, in pixels, and its colour, such as 1.5:#fffcf0; 0:white for "
                   "none")
        ->type_name("WIDTH:COLOR");
    app.add_option("--label-font", raw.labelFont, "The face of the names (default: the system's own)")
        ->type_name("NAME");
    app.add_option("--text", raw.textPath,
                   "What draws the names: qt (default), or cairo, which formats nothing and takes no other face for "
                   "characters that one lacks")
        ->type_name("qt|cairo");
}

void DeclareOrnaments(CLI::App& app, RawOptions& raw)
{
    app.add_option("--raster", raw.raster,
                   "A georeferenced raster that GDAL reads, drawn over sea and areas and under all lines, points and "
                   "names; where it has no data, or is translucent, the map shows")
        ->type_name("FILE");
    app.add_option("--raster-opacity", raw.rasterOpacity, "From 0, invisible, to 1 (default), as it is")
        ->type_name("NUMBER");
    app.add_option(
           "--raster-blend", raw.rasterBlend,
           "How the raster lies on the map: normal, or multiply, which darkens what is below (default: multiply "
           "for a translucent raster without colours)")
        ->type_name("normal|multiply");
    app.add_flag("--legend", raw.legend, "Says in the bottom left corner what the colours stand for");
    app.add_flag("--scale-bar", raw.scaleBar, "Shows in the bottom right corner how long distances are");
    app.add_option("--symbol", raw.symbol,
                   "What stands for a place: circle (default), square, triangle, star, cross, diamond, or a character "
                   "of a symbol font, such as 'font:DejaVu Sans:U+2605'")
        ->type_name("NAME|font:FACE:CHARACTER[:SIZE]");
    app.add_option("--symbol-size", raw.symbolSize,
                   "The longer side of the symbol, or the size of its font, in pixels (default: suits the picture)")
        ->type_name("PIXELS");
    app.add_option("--frame", raw.frame,
                   "What to cut the map to: rounded corners, a polygon in pixels such as '10,10 90,10 50,80', or the "
                   "areas of vector data")
        ->type_name("rounded[:RADIUS]|CORNERS|FILE[#LAYER]");
    app.add_option("--north-arrow", raw.northArrow,
                   "An arrow to the north in a corner, top-right, top-left, bottom-right or bottom-left, turned "
                   "clockwise by an angle in degrees")
        ->type_name("CORNER[:ANGLE]");
}

void Declare(CLI::App& app, RawOptions& raw)
{
    app.add_option(
        "inputs", raw.inputs,
        "Vector data, drawn as its geometry suggests: areas as countries, lines as rivers, points as places. "
        "Anything that GDAL reads; FILE#LAYER picks one layer");
    // Each of these may be given several times and takes one value each time; what follows is an input again.
    const auto addLayers = [&](const char* name, std::vector<std::string>& sources, const char* description)
    { app.add_option(name, sources, description)->allow_extra_args(false)->type_name("FILE[#LAYER]"); };
    addLayers("--countries", raw.countries, "Areas to draw as countries, in the colours of --color-by");
    addLayers("--lakes", raw.lakes, "Areas to draw as water");
    addLayers("--borders", raw.borders, "Lines to draw as borders");
    addLayers("--lines", raw.lines, "Lines to draw as rivers");
    app.add_option("-o,--output", raw.output, "The picture to write; its suffix names the format (default map.png)")
        ->type_name("FILE");
    app.add_option("--size", raw.size,
                   "The size of the picture in pixels (default: the proportions of the box, longer side 2048). The box "
                   "grows evenly to fill the size")
        ->type_name("WxH");
    app.add_option("--crs", raw.crs, "The projection: EPSG:4326 (default) or EPSG:3857")->type_name("NAME");
    app.add_option("--bbox", raw.box,
                   "What to show, in degrees (default: the world). EAST may lie beyond 180, or be less than WEST, to "
                   "cross the date line")
        ->type_name("WEST,SOUTH,EAST,NORTH");
    app.add_option("--scale", raw.scale, "How large lines, symbols and names are drawn; 1 (default) for the usual size")
        ->type_name("NUMBER");
    app.add_option("--graticule", raw.graticule, "Degrees between lines of longitude and latitude; 0 for none")
        ->type_name("DEGREES");
    app.add_option("--color-by", raw.colorBy,
                   "The attribute whose values colour the countries (default: mapcolor or a like one, else a name)")
        ->type_name("FIELD");
    app.add_option(
           "--color-ramp", raw.ramp,
           "The attribute whose numbers colour the countries, and the colours of the least and the greatest "
           "number, such as 'pop_est:#ffffcc:#800026'; or the numbers that have the palest and the darkest colour")
        ->type_name("FIELD:LOW:HIGH");
    app.add_option("--write-style", raw.styleOutput, "Writes the style of the map as well, for txmap render to draw")
        ->type_name("FILE");
    DeclareLabels(app, raw);
    DeclareOrnaments(app, raw);
    app.add_option("--plugin", raw.plugin, "The drawing plugin, by path or by name (default txpluginqt)")
        ->type_name("PATH|NAME");
    app.add_flag("--list-plugins", raw.listPlugins, "List the drawing plugins that can be loaded");
    app.add_flag("--version", raw.version, "Print the version");
}

/// An empty value would read as an option that was not given.
void RefuseEmptyValues(const CLI::App& app)
{
    for (const char* const option :
         {"--output", "--size",        "--crs",         "--bbox",           "--graticule",  "--color-by",
          "--plugin", "--label-field", "--label-size",  "--label-halo",     "--label-font", "--text",
          "--symbol", "--symbol-size", "--raster",      "--raster-opacity", "--frame",      "--north-arrow",
          "--scale",  "--color-ramp",  "--write-style", "--raster-blend"})
        if (app.count(option) > 0 && app.get_option(option)->as<std::string>().empty())
            Refuse(option, "''", "must not be empty");
}

LabelOptions InterpretLabels(const RawOptions& raw)
{
    LabelOptions labels;
    labels.field = raw.labelField;
    labels.font = raw.labelFont;
    if (!raw.labelSize.empty())
        labels.size = ParseLabelSize(raw.labelSize);
    if (!raw.labelHalo.empty())
        labels.halo = ParseLabelHalo(raw.labelHalo);
    if (!raw.textPath.empty())
        labels.path = ParseTextPath(raw.textPath);
    labels.wanted = raw.labels || !labels.field.empty() || !labels.font.empty() || labels.size || labels.halo ||
                    !raw.textPath.empty();
    return labels;
}

PlaceSymbol InterpretSymbol(const RawOptions& raw)
{
    PlaceSymbol symbol = raw.symbol.empty() ? PlaceSymbol() : ParseSymbol(raw.symbol);
    if (raw.symbolSize.empty())
        return symbol;
    if (symbol.size)
        Refuse("--symbol-size", raw.symbolSize, "--symbol has a size already");
    symbol.size = ParseSymbolSize(raw.symbolSize);
    return symbol;
}

/// Whether two paths, of files that need not exist, lead to the same one.
bool IsSameFile(const std::string& a, const std::string& b)
{
    const auto real = [](const std::string& path)
    {
        std::error_code status;
        const std::filesystem::path whole = std::filesystem::absolute(path, status);
        const std::filesystem::path real = std::filesystem::weakly_canonical(whole, status);
        return status ? whole.lexically_normal() : real;
    };
    return real(a) == real(b);
}

std::optional<RasterRequest> InterpretRaster(const RawOptions& raw)
{
    const double opacity = raw.rasterOpacity.empty() ? 1.0 : ParseRasterOpacity(raw.rasterOpacity);
    std::optional<bool> multiplies;
    if (!raw.rasterBlend.empty())
        multiplies = ParseRasterBlend(raw.rasterBlend);
    if (!raw.raster.empty())
        return RasterRequest{raw.raster, opacity, multiplies};
    if (!raw.rasterOpacity.empty())
        Refuse("--raster-opacity", raw.rasterOpacity, "there is no --raster");
    if (multiplies)
        Refuse("--raster-blend", raw.rasterBlend, "there is no --raster");
    return std::nullopt;
}

Options Interpret(const RawOptions& raw)
{
    Options options;
    const auto add = [&](const std::vector<std::string>& sources, LayerRole role)
    {
        for (const std::string& source : sources)
            options.layers.push_back({source, role});
    };
    add(raw.inputs, LayerRole::Any);
    add(raw.countries, LayerRole::Countries);
    add(raw.lakes, LayerRole::Lakes);
    add(raw.borders, LayerRole::Borders);
    add(raw.lines, LayerRole::Lines);
    options.raster = InterpretRaster(raw);
    if (options.layers.empty() && !options.raster)
        throw Failure(ExitCode::Usage, "no input: name a file of vector data, or a --raster; see txmap --help");

    const std::optional<Projection> projection = Projection::FromName(raw.crs);
    if (!projection)
        Refuse("--crs", raw.crs, "unknown projection; known are EPSG:4326 and EPSG:3857");
    options.projection = *projection;
    if (!raw.size.empty())
        options.size = ParseSize(raw.size);
    if (!raw.box.empty())
        options.box = ParseBox(raw.box, options.projection);
    if (!raw.graticule.empty())
        options.graticule = ParseGraticule(raw.graticule);
    options.output = raw.output;
    options.styleOutput = raw.styleOutput;
    if (!raw.styleOutput.empty() && IsSameFile(raw.styleOutput, raw.output))
        Refuse("--write-style", raw.styleOutput, "is the file of the picture");
    if (!raw.scale.empty())
        options.scale = ParseScale(raw.scale);
    if (!raw.ramp.empty())
    {
        if (!raw.colorBy.empty())
            Refuse("--color-ramp", raw.ramp, "stands instead of --color-by");
        options.ramp = ParseColorRamp(raw.ramp);
    }
    options.legend = raw.legend;
    options.scaleBar = raw.scaleBar;
    options.colorBy = raw.colorBy;
    options.labels = InterpretLabels(raw);
    options.symbol = InterpretSymbol(raw);
    if (!raw.frame.empty())
        options.frame = ParseFrame(raw.frame);
    if (!raw.northArrow.empty())
        options.arrow = ParseNorthArrow(raw.northArrow);
    options.plugin = raw.plugin;
    return options;
}

Options TextOnly(const std::string& text)
{
    Options options;
    options.action = Options::Action::ShowText;
    options.text = text;
    return options;
}

} // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    CLI::App app("Draws geodata as a map, through a drawing plugin that is loaded at run time.", "txmap");
    RawOptions raw;
    Declare(app, raw);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        return TextOnly(app.help() + "\nExit codes: 0 success, 1 rendering or writing failed, 2 wrong usage, "
                                     "3 no usable plugin, 4 unusable data.\n");
    }
    catch (const CLI::ParseError& error)
    {
        throw Failure(ExitCode::Usage, error.what());
    }
    if (raw.version)
        return TextOnly(VersionText());
    if (raw.listPlugins)
    {
        Options options;
        options.action = Options::Action::ListPlugins;
        return options;
    }
    RefuseEmptyValues(app);
    return Interpret(raw);
}

} // namespace txmap
