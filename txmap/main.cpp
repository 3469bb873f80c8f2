#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <txmap/Failure.h>
#include <txmap/GeometryReader.h>
#include <txmap/Graticule.h>
#include <txmap/MapLabels.h>
#include <txmap/MapRenderer.h>
#include <txmap/Options.h>
#include <txmap/OutputFile.h>
#include <txmap/PluginSession.h>
#include <txmap/Style.h>
#include <txmap/VectorSource.h>

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

void Render(const Options& options)
{
    OutputFile output(options.output);
    const View view(options.projection, options.box, options.size);
    const Style style = AtlasStyle();

    PrepareGdal();
    GeometryReader reader(view, options.colorBy, style.Categories(), options.labels);
    std::vector<MapLayer> layers;
    for (const LayerRequest& request : options.layers)
        layers.push_back(reader.Read(VectorSource(request.source), request.role));
    if (reader.Names().AreMissing())
        throw Failure(ExitCode::Usage, MissingNames(options.labels));

    const PluginSession plugin(options.plugin, options.labels.path);
    MapRenderer renderer(plugin.Engine(), view, style);
    std::optional<MapLabels> labels;
    if (options.labels.wanted)
        labels.emplace(plugin.Engine(), renderer, options.labels).LayOut(layers);
    renderer.Draw(layers, MakeGraticule(view, options.graticule.value_or(SuitableStep(view))));
    if (labels)
        labels->Draw();
    if (!renderer.Save(output.Begin()))
        throw Failure(ExitCode::Drawing, "--output " + options.output + ": the picture cannot be written");
    output.Commit();
    if (!labels)
        return;
    if (const std::string problem = labels->CharacterProblem(); !problem.empty())
        Print("warning: " + problem);
    // The picture is there, but the command line asked for another one.
    if (!labels->FontProblem().empty())
        throw Failure(ExitCode::Usage, labels->FontProblem());
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
