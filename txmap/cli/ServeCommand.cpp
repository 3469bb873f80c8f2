#include <txmap/cli/ServeCommand.h>

#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <txmap/cli/CommandLine.h>
#include <txmap/cli/MessageLine.h>
#include <txmap/cli/OptionValues.h>
#include <txmap/serve/Serve.h>
#include <txmap/serve/ServeWorker.h>
#include <txmap/style/EvaluationContext.h>

namespace txmap
{
namespace
{

/// The options as they are written.
struct RawOptions
{
    std::string style, port, bind, workers, queue, timeout, cache, plugin = "txpluginqt";
    bool lenient = false;
};

void Declare(CLI::App& app, RawOptions& raw)
{
    app.add_option("style", raw.style,
                   "A style of the MapLibre Style Specification, version 8; saving it redraws the page")
        ->required()
        ->type_name("STYLE.json");
    app.add_option("--port", raw.port, "The port to listen on (default 8080); 0 for any that is free")
        ->type_name("NUMBER");
    app.add_option("--bind", raw.bind, "The address to listen on (default 127.0.0.1, which only this machine reaches)")
        ->type_name("ADDRESS");
    app.add_option("--workers", raw.workers, "Processes that draw (default: one for each processor)")
        ->type_name("NUMBER");
    app.add_option("--queue", raw.queue, "Pictures that may wait before others are refused with 503 (default 64)")
        ->type_name("NUMBER");
    app.add_option("--timeout", raw.timeout, "Seconds after which drawing is given up with 504 (default 30)")
        ->type_name("SECONDS");
    app.add_option("--cache", raw.cache, "Memory for what was drawn, in MiB (default 256)")->type_name("MIB");
    app.add_flag("--lenient", raw.lenient, "Draw what can be drawn, with a warning for each problem");
    app.add_option("--plugin", raw.plugin, "The drawing plugin, by path or by name (default txpluginqt)")
        ->type_name("PATH|NAME");
}

ServeOptions Interpret(const RawOptions& raw)
{
    ServeOptions options;
    options.style = raw.style;
    if (!raw.port.empty())
        options.port = ParseWholeNumber("--port", raw.port, 0, 65535);
    if (!raw.bind.empty())
        options.address = raw.bind;
    if (!raw.workers.empty())
        options.workers = static_cast<std::size_t>(ParseWholeNumber("--workers", raw.workers, 1, 256));
    if (!raw.queue.empty())
        options.queue = static_cast<std::size_t>(ParseWholeNumber("--queue", raw.queue, 1, 10000));
    if (!raw.timeout.empty())
        options.timeout = ParseNumber("--timeout", raw.timeout, 0.1, 3600.0);
    if (!raw.cache.empty())
        options.cacheBytes = static_cast<std::size_t>(ParseWholeNumber("--cache", raw.cache, 0, 1 << 20)) << 20u;
    options.lenient = raw.lenient;
    options.plugin = raw.plugin;
    return options;
}

std::optional<ServeOptions> ParseServeOptions(int argc, const char* const* argv, std::ostream& out)
{
    CLI::App app("Serves a map that is drawn from a style to browsers, as tiles, pictures, and a page to look at it.",
                 "txmap serve");
    RawOptions raw;
    Declare(app, raw);
    if (!ReadCommandLine(app, argc, argv, out,
                         {"--port", "--bind", "--workers", "--queue", "--timeout", "--cache", "--plugin"}))
        return std::nullopt;
    return Interpret(raw);
}

} // namespace

void RunServeCommand(int argc, const char* const* argv, std::ostream& out)
{
    const std::optional<ServeOptions> options = ParseServeOptions(argc, argv, out);
    if (!options)
        return;
    std::mutex printing;
    const auto warn = [&](const std::string& warning)
    {
        const std::lock_guard<std::mutex> guard(printing);
        PrintMessage(warning);
    };
    // Whoever started the server reads the address while it runs.
    ServeMap(*options, warn, [&](const std::string& line) { out << line << std::endl; });
}

void RunServeWorker(int argc, const char* const* argv)
{
    if (argc < 3)
        throw Failure(ExitCode::Usage, "serve-worker is started by txmap serve");
    WorkerLook look;
    look.style = argv[1];
    look.plugin = argv[2];
    look.lenient = argc > 3 && std::string(argv[3]) == "--lenient";
    ServeJobs(look);
}

} // namespace txmap
