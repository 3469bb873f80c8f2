#include <txmap/serve/WorkerMessages.h>

#include <cstdio>
#include <sstream>

namespace txmap
{
namespace
{

/// Line ends would end a message too early.
std::string OneLine(std::string text)
{
    for (char& letter : text)
        if (letter == '\n' || letter == '\r')
            letter = ' ';
    return text;
}

} // namespace

std::string JobText(const DrawingJob& job)
{
    char text[256];
    if (const auto* const block = std::get_if<ScaledBlock>(&job))
        std::snprintf(text, sizeof text, "tiles %d %d %d %d %d %d", block->tiles.z, block->tiles.x, block->tiles.y,
                      block->tiles.columns, block->tiles.rows, block->scale);
    else
    {
        const ViewRequest& view = std::get<ViewRequest>(job);
        std::snprintf(text, sizeof text, "view %.17g %.17g %.17g %.17g %d %d %d", view.box.west, view.box.south,
                      view.box.east, view.box.north, view.size.width, view.size.height, view.scale);
    }
    return text;
}

std::optional<DrawingJob> ReadJob(const std::string& text)
{
    std::istringstream stream(text);
    std::string kind;
    stream >> kind;
    ScaledBlock block;
    TileBlock& tiles = block.tiles;
    if (kind == "tiles" && stream >> tiles.z >> tiles.x >> tiles.y >> tiles.columns >> tiles.rows >> block.scale)
        return block;
    ViewRequest view;
    if (kind == "view" && stream >> view.box.west >> view.box.south >> view.box.east >> view.box.north >>
                              view.size.width >> view.size.height >> view.scale)
        return view;
    return std::nullopt;
}

std::string GreetingText(const WorkerGreeting& greeting)
{
    std::string text = std::to_string(static_cast<int>(greeting.code)) + '\n' + OneLine(greeting.problem) + '\n';
    for (const std::string& warning : greeting.warnings)
        text += OneLine(warning) + '\n';
    return text;
}

std::optional<WorkerGreeting> ReadGreeting(const std::string& text)
{
    std::istringstream lines(text);
    WorkerGreeting greeting;
    std::string code;
    if (!std::getline(lines, code) || code.size() != 1 || code[0] < '0' || code[0] > '9' ||
        !std::getline(lines, greeting.problem))
        return std::nullopt;
    greeting.code = static_cast<ExitCode>(code[0] - '0');
    for (std::string line; std::getline(lines, line);)
        greeting.warnings.push_back(line);
    return greeting;
}

std::string AnswerText(const WorkerAnswer& answer)
{
    if (!answer.problem.empty())
        return "failed " + OneLine(answer.problem) + '\n';
    std::string text = "drawn";
    for (const std::string& file : answer.files)
        text += ' ' + std::to_string(file.size());
    text += '\n';
    for (const std::string& file : answer.files)
        text += file;
    return text;
}

std::optional<WorkerAnswer> ReadAnswer(std::string_view text)
{
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string line(text.substr(0, end));
    text.remove_prefix(end + 1);
    WorkerAnswer answer;
    if (line.rfind("failed ", 0) == 0)
    {
        answer.problem = line.substr(7);
        return answer;
    }
    std::istringstream words(line);
    std::string kind;
    if (!(words >> kind) || kind != "drawn")
        return std::nullopt;
    for (std::size_t size = 0; words >> size; text.remove_prefix(size))
    {
        if (size > text.size())
            return std::nullopt;
        answer.files.emplace_back(text.substr(0, size));
    }
    return text.empty() ? std::optional<WorkerAnswer>(answer) : std::nullopt;
}

} // namespace txmap
