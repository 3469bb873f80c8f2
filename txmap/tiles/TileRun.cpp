#include <txmap/tiles/TileRun.h>

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <deque>
#include <fstream>
#include <list>
#include <set>

#include <txmap/sources/SourcePath.h>
#include <txmap/tiles/TileOutput.h>
#include <txmap/tiles/TileProgress.h>
#include <txmap/tiles/TileWorker.h>

namespace txmap
{
namespace
{

using Clock = std::chrono::steady_clock;
constexpr auto kBetweenCommits = std::chrono::seconds(2);
constexpr std::size_t kLargestStyle = std::size_t(256) << 20;

volatile std::sig_atomic_t stopSignal = 0;

void NoteSignal(int signal) { stopSignal = signal; }

/// Notes signals that end a run, as long as it lives.
class SignalNotes
{
public:
    SignalNotes()
    {
        stopSignal = 0;
        struct sigaction note = {};
        note.sa_handler = NoteSignal;
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaction(signal, &note, nullptr);
        std::signal(SIGPIPE, SIG_IGN);
    }
    ~SignalNotes()
    {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
            std::signal(signal, SIG_DFL);
    }
    SignalNotes(const SignalNotes&) = delete;
    SignalNotes& operator=(const SignalNotes&) = delete;
};

struct Interrupted
{
};

std::string NameOf(const TileId& tile)
{
    return std::to_string(tile.z) + "/" + std::to_string(tile.x) + "/" + std::to_string(tile.y);
}

/// The tiles that could not be drawn, in a file that is there only if there are any.
class FailureList
{
public:
    explicit FailureList(std::string name) : name(std::move(name)) { std::remove(this->name.c_str()); }

    void Add(const TileBlock& block, const std::string& reason)
    {
        if (count == 0)
            file.open(name);
        std::string line = reason;
        std::replace(line.begin(), line.end(), '\n', ' ');
        for (int y = block.y; y < block.y + block.rows; ++y)
            for (int x = block.x; x < block.x + block.columns; ++x, ++count)
                file << NameOf({block.z, x, y}) << '\t' << line << '\n';
        file.flush();
    }

    std::uint64_t Count() const { return count; }
    const std::string& Name() const { return name; }

private:
    std::string name;
    std::ofstream file;
    std::uint64_t count = 0;
};

class TileRun
{
public:
    TileRun(const TilesOptions& options, TileOutput& output, std::uint64_t total, const MessageSink& warn)
        : options(options), output(output), warn(warn), progress(total, options.quiet), failures(output.FailureList()),
          committed(Clock::now())
    {
    }

    void Run()
    {
        ForEachBlock(options.wish,
                     [&](const TileBlock& block)
                     {
                         if (options.resume && IsThere(block))
                             progress.Add(TilesIn(block), false);
                         else
                             Draw(block);
                         Pause();
                         return true;
                     });
        while (IsBusy() || !again.empty())
        {
            while (!again.empty() && Give(again.front()))
                again.pop_front();
            Listen(-1);
        }
        output.Commit();
        progress.Finish(failures.Count());
        if (failures.Count() > 0)
            throw Failure(kTilesMissing, std::to_string(failures.Count()) +
                                             (failures.Count() == 1 ? " tile" : " tiles") +
                                             " could not be drawn, see " + failures.Name());
    }

private:
    static std::uint64_t TilesIn(const TileBlock& block)
    {
        return static_cast<std::uint64_t>(block.columns) * static_cast<std::uint64_t>(block.rows);
    }

    bool IsThere(const TileBlock& block)
    {
        for (int y = block.y; y < block.y + block.rows; ++y)
            for (int x = block.x; x < block.x + block.columns; ++x)
                if (!output.Has({block.z, x, y}))
                    return false;
        return true;
    }

    bool IsBusy() const
    {
        return std::any_of(workers.begin(), workers.end(),
                           [](const WorkerProcess& worker) { return worker.Block().has_value(); });
    }

    /// Draws a block now, or when a worker has time for it.
    void Draw(const TileBlock& block)
    {
        while (!again.empty() && Give(again.front()))
            again.pop_front();
        while (!Give(block))
            Listen(-1);
    }

    /// Gives a block to a worker that waits for one; false if there is none.
    bool Give(const TileBlock& block)
    {
        for (WorkerProcess& worker : workers)
            if (!worker.Block())
            {
                worker.Draw(block);
                return true;
            }
        if (workers.size() >= static_cast<std::size_t>(options.jobs))
            return false;
        workers.emplace_back(options.look, options.format).Draw(block);
        return true;
    }

    void Pause()
    {
        if (stopSignal != 0)
            throw Interrupted{};
        progress.Tell();
        if (Clock::now() - committed < kBetweenCommits)
            return;
        output.Commit();
        committed = Clock::now();
    }

    /// Hears workers. @param milliseconds how long to wait; -1 for as long as it takes.
    void Listen(int milliseconds)
    {
        std::vector<pollfd> waits;
        waits.reserve(workers.size());
        for (const WorkerProcess& worker : workers)
            waits.push_back({worker.Descriptor(), POLLIN, 0});
        // Now and then, to show that time passes.
        const int result = poll(waits.data(), waits.size(), milliseconds < 0 ? 200 : milliseconds);
        Pause();
        if (result <= 0)
            return;
        auto worker = workers.begin();
        for (const pollfd& wait : waits)
        {
            const auto current = worker++;
            if (wait.revents != 0 && !current->Receive([&](const WorkerMessage& message) { Take(*current, message); }))
                Bury(current);
        }
    }

    void Take(const WorkerProcess& worker, const WorkerMessage& message)
    {
        const std::optional<TileBlock>& block = worker.Block();
        switch (message.kind)
        {
        case WorkerMessage::Kind::Tile:
            if (block && !(options.resume && output.Has({block->z, message.x, message.y})))
                output.Put({block->z, message.x, message.y}, message.text);
            break;
        case WorkerMessage::Kind::Done:
            if (block)
                progress.Add(TilesIn(*block), true);
            break;
        case WorkerMessage::Kind::Failed:
            if (block)
                GiveUp(*block, message.text);
            break;
        case WorkerMessage::Kind::Warning:
            if (said.insert(message.text).second)
            {
                progress.Clear();
                warn(message.text);
            }
            break;
        case WorkerMessage::Kind::Useless:
            throw Failure(static_cast<ExitCode>(message.x), message.text);
        }
    }

    /// A worker has died; its block gets another try.
    void Bury(std::list<WorkerProcess>::iterator worker)
    {
        const std::optional<TileBlock> block = worker->Block();
        const std::string reason = worker->HowItEnded();
        workers.erase(worker);
        if (!block)
            return;
        if (retried.insert({block->z, block->x, block->y}).second)
            again.push_back(*block);
        else
            GiveUp(*block, reason);
    }

    void GiveUp(const TileBlock& block, const std::string& reason)
    {
        failures.Add(block, reason);
        progress.Add(TilesIn(block), false);
    }

    const TilesOptions& options;
    TileOutput& output;
    const MessageSink& warn;
    TileProgress progress;
    FailureList failures;
    Clock::time_point committed;
    std::list<WorkerProcess> workers;
    std::deque<TileBlock> again; ///< Whose worker died the first time.
    std::set<TileId> retried;
    std::set<std::string> said;
};

std::uint64_t TilesOfShard(const TileWish& wish)
{
    if (wish.shard.count == 1)
        return CountTiles(wish);
    std::uint64_t count = 0;
    ForEachBlock(wish,
                 [&](const TileBlock& block)
                 {
                     count += static_cast<std::uint64_t>(block.columns) * static_cast<std::uint64_t>(block.rows);
                     return true;
                 });
    return count;
}

TileSetFacts FactsOf(const TilesOptions& options, const MessageSink& warn)
{
    const MapStyle style = ReadStyleFile(options.look.style, options.look.lenient, warn);
    TileSetFacts facts;
    const Json json = Json::parse(ReadSourceFile(options.look.style, kLargestStyle), nullptr, false);
    const auto name = json.find("name");
    facts.name = name != json.end() && name->is_string() ? name->get<std::string>() : options.look.style;
    for (const StyleSource& source : style.sources)
        if (const auto credit = source.json.find("attribution"); credit != source.json.end() && credit->is_string())
            facts.attribution += (facts.attribution.empty() ? "" : ", ") + credit->get<std::string>();
    facts.format = options.format;
    facts.wish = options.wish;
    facts.look = DigestOf(json.dump()) + " " + std::to_string(options.look.tileSize) + " " +
                 NumberText(options.look.scale) + " " + NameOf(options.format);
    return facts;
}

} // namespace

void MakeTiles(const TilesOptions& options, const MessageSink& warn)
{
    const std::uint64_t all = CountTiles(options.wish);
    if (all > kMostTiles)
        throw Failure(ExitCode::Usage, "--zoom " + std::to_string(options.wish.minZoom) + "-" +
                                           std::to_string(options.wish.maxZoom) + ": would be " + std::to_string(all) +
                                           " tiles; at most " + std::to_string(kMostTiles) +
                                           " are made in one run, see --bbox");
    const TileSetFacts facts = FactsOf(options, warn);
    const SignalNotes notes;
    std::unique_ptr<TileOutput> output = OpenTileOutput(options.output, facts);
    try
    {
        TileRun(options, *output, TilesOfShard(options.wish), warn).Run();
        return;
    }
    catch (const Interrupted&)
    {
        output->Commit();
    }
    output.reset();
    std::signal(stopSignal, SIG_DFL);
    std::raise(stopSignal);
}

} // namespace txmap
