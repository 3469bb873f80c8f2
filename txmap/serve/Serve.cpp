#include <txmap/serve/Serve.h>

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <txmap/serve/Frames.h>
#include <txmap/serve/HttpListener.h>
#include <txmap/serve/MapService.h>
#include <txmap/serve/PageFiles.h>
#include <txmap/serve/StyleWatch.h>
#include <txmap/serve/WorkerPool.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::size_t kLargestStyle = std::size_t(256) << 20;
constexpr milliseconds kLookEvery{200};
// What may still be answered after the signal to stop.
constexpr milliseconds kGrace{5000};

/// Takes the signals that stop the server, in this thread and all that it starts, to a descriptor.
class StopSignals
{
public:
    StopSignals()
    {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGTERM);
        sigaddset(&signals, SIGINT);
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        descriptor = signalfd(-1, &signals, SFD_CLOEXEC);
        if (descriptor < 0)
            throw Failure(ExitCode::Drawing, "the server cannot begin: too many files are open");
    }
    ~StopSignals() { close(descriptor); }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    int Descriptor() const { return descriptor; }

private:
    int descriptor = -1;
};

/// Ends the workers before the connections, some of which wait for them.
class PoolStop
{
public:
    explicit PoolStop(WorkerPool& pool) : pool(pool) {}
    ~PoolStop() { pool.Stop(); }
    PoolStop(const PoolStop&) = delete;
    PoolStop& operator=(const PoolStop&) = delete;

private:
    WorkerPool& pool;
};

ServedStyle ReadServedStyle(const ServeOptions& options)
{
    // The time tells one server from the next, too: browsers keep tiles by it.
    const auto time = std::chrono::system_clock::now().time_since_epoch();
    ServedStyle style;
    style.file = options.style;
    style.version = std::to_string(std::chrono::duration_cast<milliseconds>(time).count());
    style.lenient = options.lenient;
    style.plugin = options.plugin;
    style.text = ReadSourceFile(options.style, kLargestStyle);
    return style;
}

std::string UrlOf(const ServeOptions& options, int port)
{
    const bool isLong = options.address.find(':') != std::string::npos;
    return "http://" + (isLong ? '[' + options.address + ']' : options.address) + ':' + std::to_string(port) + '/';
}

} // namespace

void ServeMap(const ServeOptions& options, const std::function<void(const std::string&)>& warn,
              const std::function<void(const std::string&)>& tell)
{
    const StopSignals signals;
    std::signal(SIGPIPE, SIG_IGN);
    StyleWatch watch(options.style);
    const std::string folder = PageFolder();
    PageFiles page = ReadPageFiles(folder);
    if (page.count("index.html") == 0 || page.count("leaflet.js") == 0)
        warn("warning: there is no page to look at the map, because " + folder + " is not complete");

    const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
    WorkerPool pool(options.workers > 0 ? options.workers : processors, options.queue, warn);
    MapService service(pool, options.cacheBytes, milliseconds(static_cast<long long>(options.timeout * 1000)),
                       std::move(page));
    const auto use = [&](const ServedStyle& style)
    {
        for (const std::string& warning : pool.Use(style, signals.Descriptor()))
            warn("warning: " + warning);
        service.SetStyle(style);
    };
    // The address comes first, so that a port in use is told at once; who connects waits until the style is read.
    HttpListener listener(options.address, options.port,
                          [&](const HttpRequest& request) { return service.Answer(request); });
    const PoolStop poolStop(pool);
    const auto isStopped = [&](milliseconds wait)
    { return WaitFor(signals.Descriptor(), POLLIN, steady_clock::now() + wait) != Exchange::Late; };
    try
    {
        use(ReadServedStyle(options));
    }
    catch (const Failure&)
    {
        if (isStopped(milliseconds(1)))
            return;
        throw;
    }
    tell("serving " + options.style + " at " + UrlOf(options, listener.Port()));

    while (!isStopped(kLookEvery))
    {
        if (!watch.HasChanged())
            continue;
        try
        {
            use(ReadServedStyle(options));
        }
        catch (const Failure& failure)
        {
            service.SetProblem(failure.what());
            warn(std::string("warning: the style that was saved is not served: ") + failure.what());
        }
    }
    listener.StopListening();
    for (const Deadline end = steady_clock::now() + kGrace; listener.Connections() > 0 && steady_clock::now() < end;)
        std::this_thread::sleep_for(milliseconds(10));
}

} // namespace txmap
