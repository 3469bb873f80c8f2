#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <txmap/cli/Options.h>
#include <txmap/drawing/LabelPainter.h>
#include <txmap/drawing/MapRenderer.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/labels/MapLabels.h>
#include <txmap/map/Graticule.h>
#include <txmap/output/OutputFile.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GeometryReader.h>
#include <txmap/sources/Raster.h>
#include <txmap/sources/VectorSource.h>
#include <txmap/style/Style.h>
#include <txmap/support/Failure.h>

namespace TZObjects
{
namespace
{

/// Prints a message as one line.
void Print(const std::string& message)
{
    std::string line = message;
    for (char& letter : line)
        if (letter == '\n' || letter == '\r')
            letter = ' ';
    std::cerr << "txmap: " << line << '\n';
}

std::vector<MapLayer> ReadLayers(const Options& options, const View& view, const Style& style)
{
    GeometryReader reader(view, options.colorBy, style.Categories(), options.labels);
    std::vector<MapLayer> layers;
    for (const LayerRequest& request : options.layers)
        layers.push_back(reader.Read(VectorSource(request.source), request.role));
    if (reader.Names().AreMissing())
        throw Failure(ExitCode::Usage, MissingNames(options.labels));
    return layers;
}

std::optional<Raster> ReadRasterOf(const Options& options, const View& view)
{
    if (!options.raster)
        return std::nullopt;
    Raster raster = ReadRaster(options.raster->file, view);
    if (raster.IsBlank())
        Print("warning: --raster " + options.raster->file + ": has nothing in the part of the world shown");
    return raster;
}

/// What is wrong with the picture although it is there: warnings are printed, and what the command line asked for in
/// vain ends the run.
void ReportProblems(const PlacePainter& places, const std::optional<MapLabels>& labels)
{
    for (const std::string& problem : {places.CharacterProblem(), labels ? labels->CharacterProblem() : ""})
        if (!problem.empty())
            Print("warning: " + problem);
    std::string problems = places.FontProblem();
    if (labels && !labels->FontProblem().empty())
        problems += (problems.empty() ? "" : "; ") + labels->FontProblem();
    if (!problems.empty())
        throw Failure(ExitCode::Usage, problems);
}

void Render(const Options& options)
{
    OutputFile output(options.output);
    const View view(options.projection, options.box, options.size);
    const Style style = AtlasStyle();

    PrepareGdal();
    std::vector<MapLayer> layers = ReadLayers(options, view, style);
    std::optional<Raster> raster = ReadRasterOf(options, view);

    const PluginSession plugin(options.plugin, options.labels.path);
    MapRenderer renderer(plugin.Engine(), view, style);
    std::optional<FrameShape> frame;
    if (options.frame)
        frame = MakeFrame(*options.frame, view, renderer.FrameWidth());
    const FrameShape* const outline = frame ? &*frame : nullptr;
    std::optional<NorthArrow> arrow;
    if (options.arrow)
        arrow.emplace(*options.arrow, view, outline, renderer.Unit());
    const PlacePainter places(options.symbol, style, renderer.Unit(), options.labels.path);
    std::optional<MapLabels> labels;
    std::optional<LabelPainter> labelPainter;
    if (options.labels.wanted)
    {
        labels.emplace(plugin.Engine(), view, style.labels, renderer.Unit(), options.labels);
        labelPainter.emplace(plugin.Engine(), renderer.Surface(), labels->Fonts());
        labels->LayOut(layers, {places.Reach(), outline, arrow ? std::vector{arrow->Box()} : std::vector<TXRect>()});
    }

    const std::vector<GraticuleLine> graticule = MakeGraticule(view, options.graticule.value_or(SuitableStep(view)));
    renderer.Draw({layers, graticule, places, outline, raster ? &*raster : nullptr,
                   options.raster ? options.raster->opacity : 1.0});
    if (labelPainter)
        labelPainter->Draw(labels->Labels());
    if (frame)
        renderer.DrawFrame(*frame);
    if (arrow)
        arrow->Draw(plugin.Engine(), renderer.Surface(), style.arrow);
    if (!renderer.Save(output.Begin()))
        throw Failure(ExitCode::Drawing, "--output " + options.output + ": the picture cannot be written");
    output.Commit();
    ReportProblems(places, labels);
}

void Run(int argc, const char* const* argv)
{
    const Options options = ParseOptions(argc, argv);
    switch (options.action)
    {
    case Options::Action::ShowText:
        std::cout << options.text;
        break;
    case Options::Action::ListPlugins:
        ListPlugins(std::cout);
        break;
    case Options::Action::Render:
        Render(options);
        break;
    }
    if (!std::cout.flush())
        throw Failure(ExitCode::Drawing, "standard output cannot be written");
}

int Report(const std::string& message, ExitCode code)
{
    Print(message);
    return static_cast<int>(code);
}

} // namespace
} // namespace TZObjects

int main(int argc, char** argv)
{
    using namespace TZObjects;
    // Standard error is for our own messages; a backend's debugging output is shown to those who ask for it.
    setenv("QT_LOGGING_RULES", "*.debug=false", 0);
    try
    {
        Run(argc, argv);
        return static_cast<int>(ExitCode::Success);
    }
    catch (const Failure& failure)
    {
        return Report(failure.what(), failure.Code());
    }
    catch (const std::bad_alloc&)
    {
        return Report("out of memory", ExitCode::Drawing);
    }
    catch (const std::exception& error)
    {
        return Report(error.what(), ExitCode::Drawing);
    }
}
