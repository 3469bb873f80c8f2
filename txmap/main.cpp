#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include <txmap/atlas/Atlas.h>
#include <txmap/cli/ExpressionCommand.h>
#include <txmap/cli/MessageLine.h>
#include <txmap/cli/Options.h>
#include <txmap/cli/RenderCommand.h>
#include <txmap/cli/ServeCommand.h>
#include <txmap/cli/TilesCommand.h>
#include <txmap/cli/ValidateCommand.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/support/Failure.h>
#include <txmap/tiles/TileWorker.h>

namespace txmap
{
namespace
{

void RunAtlas(int argc, const char* const* argv)
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
        DrawAtlas(options, [](const std::string& warning) { PrintMessage("warning: " + warning); });
        break;
    }
}

void Run(int argc, const char* const* argv)
{
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "expression")
        RunExpressionCommand(argc - 1, argv + 1, std::cin, std::cout);
    else if (command == "render")
        RunRenderCommand(argc - 1, argv + 1, std::cout);
    else if (command == "serve")
        RunServeCommand(argc - 1, argv + 1, std::cout);
    else if (command == "serve-worker")
        RunServeWorker(argc - 1, argv + 1);
    else if (command == "tiles")
        RunTilesCommand(argc - 1, argv + 1, std::cout);
    else if (command == "merge")
        RunMergeCommand(argc - 1, argv + 1, std::cout);
    else if (command == "validate")
        RunValidateCommand(argc - 1, argv + 1, std::cout);
    else if (command == "atlas")
        RunAtlas(argc - 1, argv + 1);
    else
        RunAtlas(argc, argv);
    if (!std::cout.flush())
        throw Failure(ExitCode::Drawing, "standard output cannot be written");
}

int Report(const std::string& message, ExitCode code)
{
    PrintMessage(message);
    return static_cast<int>(code);
}

} // namespace
} // namespace txmap

int main(int argc, char** argv)
{
    using namespace txmap;
    // Standard error is for our own messages; a backend's debugging output is shown to those who ask for it.
    setenv("QT_LOGGING_RULES", "*.debug=false", 0);
    try
    {
        if (argc > 1 && argv[1] == std::string(kWorkerAction))
            return RunTileWorker({argv + 2, argv + argc});
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
