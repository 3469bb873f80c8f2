#include <txmap/cli/CommandLine.h>

#include <ostream>
#include <string>

#include <CLI/CLI.hpp>

#include <txmap/cli/OptionValues.h>

namespace txmap
{

bool ReadCommandLine(CLI::App& app, int argc, const char* const* argv, std::ostream& out,
                     std::initializer_list<const char*> filled)
{
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        out << app.help();
        return false;
    }
    catch (const CLI::ParseError& error)
    {
        throw Failure(ExitCode::Usage, error.what());
    }
    for (const char* const option : filled)
        if (app.count(option) > 0 && app.get_option(option)->as<std::string>().empty())
            Refuse(option, "''", "must not be empty");
    return true;
}

} // namespace txmap
