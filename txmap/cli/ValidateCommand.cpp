#include <txmap/cli/ValidateCommand.h>

#include <ostream>
#include <string>

#include <CLI/CLI.hpp>

#include <txmap/cli/CommandLine.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLargestStyle = std::size_t(256) << 20;

} // namespace

void RunValidateCommand(int argc, const char* const* argv, std::ostream& out)
{
    CLI::App app("Checks a style of the MapLibre Style Specification, version 8.", "txmap validate");
    std::string file;
    bool lenient = false;
    app.add_option("style", file, "The style, a JSON file")->required()->type_name("STYLE.json");
    app.add_flag("--lenient", lenient, "What is right, but not drawn by txmap, is no fault");
    if (!ReadCommandLine(app, argc, argv, out))
        return;
    const StyleReading reading = ReadStyle(ReadSourceFile(file, kLargestStyle));
    std::size_t faults = 0;
    for (const StyleProblem& problem : reading.problems)
    {
        const bool isFault = !problem.isUnsupported || !lenient;
        out << (isFault ? "" : "warning: ") << problem.ToString() << '\n';
        faults += isFault ? 1 : 0;
    }
    if (faults > 0)
        throw Failure(ExitCode::Data, file + ": " + std::to_string(faults) + (faults == 1 ? " problem" : " problems"));
}

} // namespace txmap
