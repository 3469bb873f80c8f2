#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <txmap/serve/ContentCache.h>
#include <txmap/serve/DrawingProcess.h>

namespace txmap
{

/// What became of a job.
struct Drawing
{
    enum class Outcome
    {
        Waiting,
        Drawn,
        Failed,  ///< The picture cannot be drawn; @ref problem says why.
        Crashed, ///< The worker ended over it.
        Busy,    ///< Too many jobs wait already.
        Late,    ///< It took too long.
        Stopped  ///< The server stops.
    };
    Outcome outcome = Outcome::Waiting;
    std::vector<ContentPointer> pictures;
    std::string problem;
    std::string version; ///< Of the style that was drawn.
};

/// How the pool is.
struct PoolState
{
    std::size_t workers = 0; ///< Those that run.
    std::size_t jobs = 0;    ///< What is drawn or waits.
    std::size_t waiting = 0; ///< Jobs in the queue.
    std::size_t started = 0; ///< Workers started so far.
};

/// Worker processes with a thread for each, and a queue of limited length. The same job is drawn once, however many ask
/// for it. A worker that ends, or takes too long, is replaced.
class WorkerPool
{
public:
    using MessageSink = std::function<void(const std::string&)>;

    /// @param warn takes messages; it is called by several threads.
    WorkerPool(std::size_t workers, std::size_t longestQueue, MessageSink warn);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Draws this style from now on, with workers that are started for it; those of an older style are ended when they
    /// have drawn what they are at. @param stop a descriptor that ends the waiting when it can be read.
    /// @return warnings. @throw Failure when the style cannot be drawn; then the older one stays.
    std::vector<std::string> Use(const ServedStyle& style, int stop);
    /// Draws something, or waits for it, until the deadline at the latest.
    Drawing Draw(const DrawingJob& job, Deadline deadline);
    /// Ends all workers. Whoever waits gets `Outcome::Stopped`.
    void Stop();
    PoolState State() const;

private:
    struct Flight
    {
        std::string job;
        Deadline deadline;
        Drawing drawing;
    };
    using Lock = std::unique_lock<std::mutex>;

    void Run();
    std::unique_ptr<DrawingProcess> StartWorker(Lock& lock);
    bool DrawNext(Lock& lock, DrawingProcess& worker);
    void Finish(const std::shared_ptr<Flight>& flight);

    const std::size_t longestQueue;
    const MessageSink warn;
    mutable std::mutex mutex;
    std::condition_variable changed; ///< Wakes the threads of workers.
    std::condition_variable landed;  ///< Wakes those who wait for a job.
    ServedStyle style;
    std::unique_ptr<DrawingProcess> spare; ///< The worker that has tried the style.
    std::deque<std::shared_ptr<Flight>> queue;
    std::map<std::string, std::shared_ptr<Flight>> flights; ///< By job: those that wait or are drawn.
    PoolState state;
    bool isStopping = false;
    int stopEvent = -1; ///< Can be read when the pool stops.
    std::vector<std::thread> threads;
};

} // namespace txmap
