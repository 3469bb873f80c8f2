#pragma once

#include <chrono>
#include <mutex>
#include <string>

#include <txmap/serve/ContentCache.h>
#include <txmap/serve/HttpMessage.h>
#include <txmap/serve/MapRequest.h>
#include <txmap/serve/PageFiles.h>
#include <txmap/serve/WorkerPool.h>

namespace txmap
{

/// Answers the requests of clients, with what is kept or with what workers draw. Threads may share it.
class MapService
{
public:
    /// @param longestWait how long a client waits for a picture.
    MapService(WorkerPool& pool, std::size_t cacheBytes, std::chrono::milliseconds longestWait, PageFiles page);

    HttpAnswer Answer(const HttpRequest& request);
    /// A style is drawn from now on.
    void SetStyle(const ServedStyle& style);
    /// What is wrong with the style's file; empty for nothing. Clients are told.
    void SetProblem(const std::string& problem);

private:
    HttpAnswer AnswerTo(const BadRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const TileRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const ViewRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const FileRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const StyleRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const HealthRequest& request, const HttpRequest& http);
    HttpAnswer AnswerTo(const StateRequest& request, const HttpRequest& http);
    Drawing DrawTiles(const TileRequest& tile, Deadline deadline);
    std::string Version() const;

    WorkerPool& pool;
    ContentCache cache;
    const std::chrono::milliseconds longestWait;
    const PageFiles page;
    mutable std::mutex mutex;
    ContentPointer style;
    std::string version;
    std::string problem;
};

} // namespace txmap
