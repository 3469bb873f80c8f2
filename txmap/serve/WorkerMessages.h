#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <txmap/map/TileView.h>
#include <txmap/serve/MapRequest.h>
#include <txmap/support/Failure.h>

namespace txmap
{

/// Tiles that are drawn as one picture.
struct ScaledBlock
{
    TileBlock tiles;
    int scale = 1;
};

/// What a worker is asked to draw.
using DrawingJob = std::variant<ScaledBlock, ViewRequest>;

/// A job as the text that is sent to a worker. Equal jobs have equal texts.
std::string JobText(const DrawingJob& job);
/// Nothing for what is no job.
std::optional<DrawingJob> ReadJob(const std::string& text);

/// What a worker says when it has read its style.
struct WorkerGreeting
{
    ExitCode code = ExitCode::Success; ///< What is wrong with the style or the plugin, if something is.
    std::string problem;
    std::vector<std::string> warnings;
};

std::string GreetingText(const WorkerGreeting& greeting);
std::optional<WorkerGreeting> ReadGreeting(const std::string& text);

/// What a worker has drawn: the files of all tiles of a block, row by row, or of one picture; or why there are none.
struct WorkerAnswer
{
    std::vector<std::string> files;
    std::string problem;
};

std::string AnswerText(const WorkerAnswer& answer);
std::optional<WorkerAnswer> ReadAnswer(std::string_view text);

} // namespace txmap
