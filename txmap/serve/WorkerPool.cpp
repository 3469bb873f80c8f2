#include <txmap/serve/WorkerPool.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// A large style may read gigabytes.
constexpr seconds kLongestStart{300};
// How often an idle worker is looked at, and how soon another is tried where one could not be started.
constexpr milliseconds kLook{500};

} // namespace

WorkerPool::WorkerPool(std::size_t workers, std::size_t longestQueue, MessageSink warn)
    : longestQueue(longestQueue), warn(std::move(warn)), stopEvent(eventfd(0, EFD_CLOEXEC))
{
    if (stopEvent < 0)
        throw Failure(ExitCode::Drawing, "no workers can be started: too many files are open");
    for (std::size_t i = 0; i < workers; ++i)
        threads.emplace_back([this] { Run(); });
}

WorkerPool::~WorkerPool()
{
    Stop();
    close(stopEvent);
}

std::vector<std::string> WorkerPool::Use(const ServedStyle& newStyle, int stop)
{
    auto worker = std::make_unique<DrawingProcess>(newStyle, steady_clock::now() + kLongestStart, stop);
    std::vector<std::string> warnings = worker->Greeting().warnings;
    {
        const Lock lock(mutex);
        style = newStyle;
        spare.swap(worker);
        ++state.started;
    }
    changed.notify_all();
    return warnings;
}

Drawing WorkerPool::Draw(const DrawingJob& job, Deadline deadline)
{
    Drawing refused;
    Lock lock(mutex);
    const std::string text = style.version + ' ' + JobText(job);
    std::shared_ptr<Flight>& place = flights[text];
    if (!place && (isStopping || queue.size() >= longestQueue))
    {
        flights.erase(text);
        refused.outcome = isStopping ? Drawing::Outcome::Stopped : Drawing::Outcome::Busy;
        return refused;
    }
    if (!place)
    {
        place = std::make_shared<Flight>();
        place->job = JobText(job);
        place->deadline = deadline;
        place->drawing.version = style.version;
        queue.push_back(place);
        changed.notify_one();
    }
    const std::shared_ptr<Flight> flight = place;
    const bool hasLanded =
        landed.wait_until(lock, deadline, [&] { return flight->drawing.outcome != Drawing::Outcome::Waiting; });
    if (hasLanded)
        return flight->drawing;
    // Nobody should draw what nobody waits for any more.
    const auto queued = std::find(queue.begin(), queue.end(), flight);
    if (queued != queue.end() && flight->deadline <= steady_clock::now())
    {
        queue.erase(queued);
        flight->drawing.outcome = Drawing::Outcome::Late;
        Finish(flight);
    }
    refused.outcome = Drawing::Outcome::Late;
    return refused;
}

void WorkerPool::Finish(const std::shared_ptr<Flight>& flight)
{
    const auto place =
        std::find_if(flights.begin(), flights.end(), [&](const auto& known) { return known.second == flight; });
    if (place != flights.end())
        flights.erase(place);
    landed.notify_all();
}

void WorkerPool::Stop()
{
    {
        const Lock lock(mutex);
        isStopping = true;
        queue.clear();
        for (const auto& [job, flight] : flights)
            flight->drawing.outcome = Drawing::Outcome::Stopped;
        flights.clear();
    }
    eventfd_write(stopEvent, 1);
    changed.notify_all();
    landed.notify_all();
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
    spare.reset();
}

PoolState WorkerPool::State() const
{
    const Lock lock(mutex);
    PoolState result = state;
    result.jobs = flights.size();
    result.waiting = queue.size();
    return result;
}

void WorkerPool::Run()
{
    std::unique_ptr<DrawingProcess> worker;
    Lock lock(mutex);
    while (!isStopping)
    {
        if (style.version.empty())
        {
            changed.wait(lock);
            continue;
        }
        if (worker && (worker->Version() != style.version || !worker->IsAlive()))
        {
            worker.reset();
            --state.workers;
        }
        if (!worker)
        {
            worker = StartWorker(lock);
            if (worker)
                ++state.workers;
            else
                changed.wait_for(lock, kLook);
            continue;
        }
        if (queue.empty())
            changed.wait_for(lock, kLook);
        else if (!DrawNext(lock, *worker))
        {
            worker.reset();
            --state.workers;
        }
    }
}

std::unique_ptr<DrawingProcess> WorkerPool::StartWorker(Lock& lock)
{
    if (spare && spare->Version() == style.version)
        return std::move(spare);
    const ServedStyle wanted = style;
    ++state.started;
    lock.unlock();
    std::unique_ptr<DrawingProcess> worker;
    std::string problem;
    try
    {
        worker = std::make_unique<DrawingProcess>(wanted, steady_clock::now() + kLongestStart, stopEvent);
    }
    catch (const std::exception& failure)
    {
        problem = failure.what();
    }
    lock.lock();
    if (!worker && !isStopping)
        warn("warning: a worker could not be started: " + problem);
    return worker;
}

bool WorkerPool::DrawNext(Lock& lock, DrawingProcess& worker)
{
    const std::shared_ptr<Flight> flight = queue.front();
    queue.pop_front();
    if (flight->deadline <= steady_clock::now())
    {
        flight->drawing.outcome = Drawing::Outcome::Late;
        Finish(flight);
        return true;
    }
    lock.unlock();
    WorkerAnswer answer;
    const Exchange exchange = worker.Draw(flight->job, answer, flight->deadline, stopEvent);
    Drawing drawing;
    drawing.version = worker.Version();
    drawing.problem = answer.problem;
    for (std::string& file : answer.files)
        drawing.pictures.push_back(std::make_shared<Content>(std::move(file), "image/png"));
    if (exchange == Exchange::Done)
        drawing.outcome = answer.problem.empty() ? Drawing::Outcome::Drawn : Drawing::Outcome::Failed;
    else if (exchange == Exchange::Late)
        drawing.outcome = Drawing::Outcome::Late;
    else
        drawing.outcome = Drawing::Outcome::Crashed;
    lock.lock();
    if (flight->drawing.outcome == Drawing::Outcome::Waiting)
        flight->drawing = std::move(drawing);
    Finish(flight);
    if (exchange == Exchange::Late)
        warn("warning: a worker was ended, because this took too long: " + flight->job);
    else if (exchange == Exchange::Closed)
        warn("warning: a worker ended over this, and is replaced: " + flight->job);
    return exchange == Exchange::Done;
}

} // namespace txmap
