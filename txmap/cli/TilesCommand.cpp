#include <txmap/cli/TilesCommand.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>
#include <thread>

#include <CLI/CLI.hpp>

#include <txmap/cli/CommandLine.h>
#include <txmap/cli/MessageLine.h>
#include <txmap/cli/OptionValues.h>
#include <txmap/cli/ParseView.h>
#include <txmap/tiles/TileMerge.h>
#include <txmap/tiles/TileOutput.h>
#include <txmap/tiles/TileRun.h>

namespace txmap
{
namespace
{

constexpr int kMostZoom = 22;
constexpr int kMostJobs = 1024;
constexpr int kMostShards = 1'000'000;
constexpr double kLongestBlock = 16384.0;

/// The options as they are written.
struct RawOptions
{
    std::string style, output, zoom, box, format = "png", scale = "1", tileSize = "512", metatile = "8", jobs, shard,
                                          plugin = "txpluginqt";
    bool resume = false, quiet = false, lenient = false;
};

void Declare(CLI::App& app, RawOptions& raw)
{
    app.add_option("style", raw.style, "A style of the MapLibre Style Specification, version 8")
        ->required()
        ->type_name("STYLE.json");
    app.add_option("-o,--output", raw.output, "A folder for files z/x/y.png, or a database if it ends with .mbtiles")
        ->required()
        ->type_name("DIR|FILE.mbtiles");
    app.add_option("--zoom", raw.zoom, "The zooms to make: one, or the first and the last")
        ->required()
        ->type_name("Z|Z-Z");
    app.add_option("--bbox", raw.box, "Makes the tiles that a box of degrees touches (default: the world)")
        ->type_name("WEST,SOUTH,EAST,NORTH");
    app.add_option("--format", raw.format, "png, png8 for at most 256 colours, jpg or webp (default png)")
        ->type_name("FORMAT");
    app.add_option("--scale", raw.scale, "Pixels for each logical one (default 1)")->type_name("NUMBER");
    app.add_option("--tile-size", raw.tileSize, "Logical pixels across a tile, 512 or 256 (default 512)")
        ->type_name("PIXELS");
    app.add_option("--metatile", raw.metatile, "So many tiles across are drawn at once (default 8)")
        ->type_name("NUMBER");
    app.add_option("--jobs", raw.jobs, "Worker processes (default: one for each processor)")->type_name("NUMBER");
    app.add_option("--shard", raw.shard,
                   "Makes part I of N, I from 0 (default: that of the array job of Slurm that this is in)")
        ->type_name("I/N");
    app.add_flag("--resume", raw.resume, "Leave tiles alone that are there already");
    app.add_flag("--quiet", raw.quiet, "Do not say how far it is");
    app.add_flag("--lenient", raw.lenient, "Draw what can be drawn, with a warning for each problem");
    app.add_option("--plugin", raw.plugin, "The drawing plugin, by path or by name (default txpluginqt)")
        ->type_name("PATH|NAME");
}

void ParseZooms(const std::string& text, TileWish& wish)
{
    const std::vector<int> zooms = NumbersIn<int>(text, '-');
    if (zooms.empty() || zooms.size() > 2 || zooms.front() < 0 || zooms.back() < 0 || zooms.back() > kMostZoom)
        Refuse("--zoom", text,
               "must be a zoom or a range of zooms from 0 to " + std::to_string(kMostZoom) + ", such as 0-6");
    if (zooms.front() > zooms.back())
        Refuse("--zoom", text, "has no zoom in it");
    wish.minZoom = zooms.front();
    wish.maxZoom = zooms.back();
}

Shard ParseShard(const std::string& text)
{
    const std::vector<int> numbers = NumbersIn<int>(text, '/');
    if (numbers.size() != 2 || numbers[1] < 1 || numbers[1] > kMostShards || numbers[0] < 0 || numbers[0] >= numbers[1])
        Refuse("--shard", text, "must be I/N with I from 0 to N - 1, such as 0/4");
    return {numbers[0], numbers[1]};
}

/// The number of an environment variable; nothing if it has none.
std::optional<int> NumberOf(const char* variable)
{
    const char* const text = std::getenv(variable);
    const std::vector<int> numbers = text ? NumbersIn<int>(text, ',') : std::vector<int>();
    return numbers.size() == 1 ? std::optional(numbers[0]) : std::nullopt;
}

/// The part that an array job of Slurm is to make.
Shard SlurmShard()
{
    const std::optional<int> task = NumberOf("SLURM_ARRAY_TASK_ID");
    const std::optional<int> count = NumberOf("SLURM_ARRAY_TASK_COUNT");
    if (!task || !count)
        return {};
    const int number = *task - NumberOf("SLURM_ARRAY_TASK_MIN").value_or(0);
    if (number < 0 || number >= *count || *count > kMostShards)
        throw Failure(ExitCode::Usage, "SLURM_ARRAY_TASK_ID " + std::to_string(*task) +
                                           ": the tasks of the array have gaps; say --shard I/N");
    return {number, *count};
}

TileFormat ParseFormat(const std::string& text)
{
    for (const TileFormat format : {TileFormat::Png, TileFormat::Png8, TileFormat::Jpeg, TileFormat::WebP})
        if (text == NameOf(format))
            return format;
    Refuse("--format", text, "must be png, png8, jpg or webp");
}

TilesOptions Interpret(const RawOptions& raw)
{
    TilesOptions options;
    options.look.style = raw.style;
    options.look.lenient = raw.lenient;
    options.look.plugin = raw.plugin;
    options.look.tileSize = ParseWholeNumber("--tile-size", raw.tileSize, 256, 512);
    if (options.look.tileSize != 256 && options.look.tileSize != 512)
        Refuse("--tile-size", raw.tileSize, "must be 512 or 256");
    const std::vector<double> scale = NumbersIn<double>(raw.scale, ',');
    if (scale.size() != 1 || !(scale[0] >= 0.25 && scale[0] <= 8.0))
        Refuse("--scale", raw.scale, "must be a number from 0.25 to 8");
    options.look.scale = scale[0];
    const double side = options.look.tileSize * scale[0];
    if (side != std::floor(side))
        Refuse("--scale", raw.scale, "a tile would be " + NumberText(side) + " pixels wide");
    options.wish.metatile = ParseWholeNumber("--metatile", raw.metatile, 1, 64);
    if (options.wish.metatile * side > kLongestBlock)
        Refuse("--metatile", raw.metatile, "would be more than " + NumberText(kLongestBlock) + " pixels wide");
    ParseZooms(raw.zoom, options.wish);
    if (!raw.box.empty())
        options.wish.box = ParseBox(raw.box, Projection::WebMercator());
    options.wish.shard = raw.shard.empty() ? SlurmShard() : ParseShard(raw.shard);
    options.format = ParseFormat(raw.format);
    options.output = raw.output;
    options.jobs = raw.jobs.empty() ? std::max(1, static_cast<int>(std::thread::hardware_concurrency()))
                                    : ParseWholeNumber("--jobs", raw.jobs, 1, kMostJobs);
    options.resume = raw.resume;
    options.quiet = raw.quiet;
    return options;
}

void Warn(const std::string& warning) { PrintMessage("warning: " + warning); }

} // namespace

void RunTilesCommand(int argc, const char* const* argv, std::ostream& out)
{
    CLI::App app("Makes web tiles of a style in worker processes.", "txmap tiles");
    RawOptions raw;
    Declare(app, raw);
    if (!ReadCommandLine(app, argc, argv, out))
        return;
    if (raw.output.empty())
        Refuse("--output", "''", "must not be empty");
    MakeTiles(Interpret(raw), Warn);
}

void RunMergeCommand(int argc, const char* const* argv, std::ostream& out)
{
    CLI::App app("Joins databases of tiles that shards made, and says what is missing or doubled.", "txmap merge");
    std::vector<std::string> parts;
    std::string output;
    app.add_option("part", parts, "The databases")->required()->type_name("PART.mbtiles");
    app.add_option("-o,--output", output, "The database to write")->required()->type_name("FILE.mbtiles");
    if (!ReadCommandLine(app, argc, argv, out))
        return;
    if (!IsTileDatabase(output))
        Refuse("--output", output, "must end with .mbtiles");
    MergeTiles(parts, output, Warn, [&](const std::string& line) { out << line << '\n'; });
}

} // namespace txmap
