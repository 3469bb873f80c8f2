#include <txmap/serve/MapService.h>

#include <algorithm>
#include <utility>
#include <variant>

#include <nlohmann/json.hpp>

namespace txmap
{
namespace
{

using Outcome = Drawing::Outcome;
using std::chrono::steady_clock;

// Tiles are drawn so many by so many: whoever asks for one will ask for its neighbours.
constexpr int kBlockSide = 2;

// What a browser may keep without asking again, and what it must ask for each time.
constexpr const char* kKeep = "public, max-age=86400, immutable";
constexpr const char* kAskAgain = "no-cache";

HttpAnswer TextAnswer(int status, const std::string& text)
{
    HttpAnswer answer{status, "text/plain; charset=utf-8", text + "\n", {}};
    if (status == 503)
        answer.headers.emplace_back("Retry-After", "1");
    answer.headers.emplace_back("Cache-Control", "no-store");
    return answer;
}

HttpAnswer JsonAnswer(int status, const nlohmann::json& document)
{
    const auto replace = nlohmann::json::error_handler_t::replace;
    return {status, "application/json", document.dump(-1, ' ', false, replace) + "\n", {{"Cache-Control", "no-store"}}};
}

HttpAnswer ContentAnswer(const ContentPointer& content, const HttpRequest& request, const char* caching)
{
    HttpAnswer answer;
    answer.headers = {{"ETag", content->tag}, {"Cache-Control", caching}, {"X-Content-Type-Options", "nosniff"}};
    if (HasTag(request.ifNoneMatch, content->tag))
    {
        answer.status = 304;
        return answer;
    }
    answer.type = content->type;
    answer.body = content->bytes;
    return answer;
}

HttpAnswer ProblemAnswer(const Drawing& drawing)
{
    switch (drawing.outcome)
    {
    case Outcome::Busy:
        return TextAnswer(503, "too many pictures are waited for");
    case Outcome::Stopped:
        return TextAnswer(503, "the server stops");
    case Outcome::Late:
        return TextAnswer(504, "drawing takes too long");
    case Outcome::Failed:
        return TextAnswer(500, drawing.problem);
    default:
        return TextAnswer(500, "the process that draws this ended");
    }
}

/// The block that a tile is drawn in.
ScaledBlock BlockOf(const TileRequest& tile)
{
    const int side = std::min(kBlockSide, 1 << tile.zoom);
    return {{tile.zoom, tile.column / side * side, tile.row / side * side, side, side}, tile.scale};
}

std::string TileKey(const std::string& version, int zoom, int column, int row, int scale)
{
    return version + '/' + std::to_string(zoom) + '/' + std::to_string(column) + '/' + std::to_string(row) + '@' +
           std::to_string(scale);
}

} // namespace

MapService::MapService(WorkerPool& pool, std::size_t cacheBytes, std::chrono::milliseconds longestWait, PageFiles page)
    : pool(pool), cache(cacheBytes), longestWait(longestWait), page(std::move(page))
{
}

HttpAnswer MapService::Answer(const HttpRequest& request)
{
    return std::visit([&](const auto& wanted) { return AnswerTo(wanted, request); }, ReadTarget(request.target));
}

void MapService::SetStyle(const ServedStyle& newStyle)
{
    auto content = std::make_shared<Content>(newStyle.text, "application/json");
    {
        const std::lock_guard<std::mutex> guard(mutex);
        style = std::move(content);
        version = newStyle.version;
        problem.clear();
    }
    cache.Clear();
}

void MapService::SetProblem(const std::string& newProblem)
{
    const std::lock_guard<std::mutex> guard(mutex);
    problem = newProblem;
}

std::string MapService::Version() const
{
    const std::lock_guard<std::mutex> guard(mutex);
    return version;
}

HttpAnswer MapService::AnswerTo(const BadRequest& request, const HttpRequest& /*http*/)
{
    return TextAnswer(request.status, request.reason);
}

HttpAnswer MapService::AnswerTo(const TileRequest& request, const HttpRequest& http)
{
    const std::string current = Version();
    const char* const caching = request.version == current ? kKeep : kAskAgain;
    const std::string key = TileKey(current, request.zoom, request.column, request.row, request.scale);
    if (const ContentPointer kept = cache.Find(key))
        return ContentAnswer(kept, http, caching);
    const Deadline deadline = steady_clock::now() + longestWait;
    const ScaledBlock block = BlockOf(request);
    Drawing drawing = pool.Draw(block, deadline);
    if (drawing.outcome == Outcome::Drawn)
    {
        ContentPointer wanted;
        for (int i = 0; i < static_cast<int>(drawing.pictures.size()); ++i)
        {
            const int column = block.tiles.x + i % block.tiles.columns;
            const int row = block.tiles.y + i / block.tiles.columns;
            if (column == request.column && row == request.row)
                wanted = drawing.pictures[static_cast<std::size_t>(i)];
            cache.Keep(TileKey(drawing.version, request.zoom, column, row, block.scale),
                       drawing.pictures[static_cast<std::size_t>(i)]);
        }
        if (wanted)
            return ContentAnswer(wanted, http, drawing.version == request.version ? kKeep : kAskAgain);
        drawing.outcome = Outcome::Crashed;
    }
    if (drawing.outcome == Outcome::Crashed)
    {
        // Only the tile that a worker cannot draw may be missing, not those around it.
        drawing = pool.Draw(ScaledBlock{{request.zoom, request.column, request.row, 1, 1}, request.scale}, deadline);
        if (drawing.outcome == Outcome::Drawn && drawing.pictures.size() == 1)
        {
            cache.Keep(TileKey(drawing.version, request.zoom, request.column, request.row, request.scale),
                       drawing.pictures[0]);
            return ContentAnswer(drawing.pictures[0], http, drawing.version == request.version ? kKeep : kAskAgain);
        }
    }
    return ProblemAnswer(drawing);
}

HttpAnswer MapService::AnswerTo(const ViewRequest& request, const HttpRequest& http)
{
    const std::string key = Version() + ' ' + JobText(request);
    if (const ContentPointer kept = cache.Find(key))
        return ContentAnswer(kept, http, kAskAgain);
    const Deadline deadline = steady_clock::now() + longestWait;
    Drawing drawing = pool.Draw(request, deadline);
    if (drawing.outcome == Outcome::Crashed)
        drawing = pool.Draw(request, deadline);
    if (drawing.outcome != Outcome::Drawn || drawing.pictures.size() != 1)
        return ProblemAnswer(drawing);
    cache.Keep(drawing.version + ' ' + JobText(request), drawing.pictures[0]);
    return ContentAnswer(drawing.pictures[0], http, kAskAgain);
}

HttpAnswer MapService::AnswerTo(const FileRequest& request, const HttpRequest& http)
{
    const auto file = page.find(request.name.empty() ? "index.html" : request.name);
    if (file == page.end())
        return TextAnswer(404, request.name.empty() ? "the page is not installed; tiles are /ZOOM/COLUMN/ROW.png"
                                                    : "there is no such file");
    HttpAnswer answer = ContentAnswer(file->second, http, kAskAgain);
    answer.headers.emplace_back("Content-Security-Policy",
                                "default-src 'self'; img-src 'self' data:; frame-ancestors 'self'");
    return answer;
}

HttpAnswer MapService::AnswerTo(const StyleRequest& /*request*/, const HttpRequest& http)
{
    std::unique_lock<std::mutex> lock(mutex);
    const ContentPointer content = style;
    lock.unlock();
    return content ? ContentAnswer(content, http, kAskAgain) : TextAnswer(503, "there is no style yet");
}

HttpAnswer MapService::AnswerTo(const HealthRequest& /*request*/, const HttpRequest& /*http*/)
{
    const PoolState state = pool.State();
    return JsonAnswer(state.workers > 0 ? 200 : 503, {{"status", state.workers > 0 ? "ok" : "no worker runs"},
                                                      {"workers", state.workers},
                                                      {"workers_started", state.started},
                                                      {"jobs", state.jobs},
                                                      {"waiting", state.waiting},
                                                      {"cache_bytes", cache.Bytes()}});
}

HttpAnswer MapService::AnswerTo(const StateRequest& /*request*/, const HttpRequest& /*http*/)
{
    const std::lock_guard<std::mutex> guard(mutex);
    return JsonAnswer(200, {{"version", version}, {"problem", problem}});
}

} // namespace txmap
