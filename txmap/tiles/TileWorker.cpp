#include <txmap/tiles/TileWorker.h>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

#include <txmap/support/Failure.h>

namespace txmap
{

const char* const kWorkerAction = "tile-worker";

namespace
{

/// What stands before the text of a message.
struct Header
{
    char kind = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint32_t size = 0;
};

void WriteAll(int descriptor, const char* data, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t written = write(descriptor, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            _exit(static_cast<int>(ExitCode::Drawing)); // Nobody listens any more.
        data += written;
        size -= static_cast<std::size_t>(written);
    }
}

class Messages
{
public:
    explicit Messages(int descriptor) : descriptor(descriptor) {}

    void Send(WorkerMessage::Kind kind, int x, int y, const std::string& text) const
    {
        Header header;
        std::memset(static_cast<void*>(&header), 0, sizeof header);
        header.kind = static_cast<char>(kind);
        header.x = x;
        header.y = y;
        header.size = static_cast<std::uint32_t>(text.size());
        WriteAll(descriptor, reinterpret_cast<const char*>(&header), sizeof header);
        WriteAll(descriptor, text.data(), text.size());
    }

private:
    int descriptor;
};

/// Ends this process by a signal where a test asks for it: when a block has the tile of TXMAP_CRASH_TILE, "z/x/y"; but
/// for the file of TXMAP_CRASH_ONCE, which is made before, only once.
void CrashOnRequest(const TileBlock& block)
{
    const char* const tile = std::getenv("TXMAP_CRASH_TILE");
    int z = 0, x = 0, y = 0;
    if (!tile || std::sscanf(tile, "%d/%d/%d", &z, &x, &y) != 3 || block.z != z || x < block.x || y < block.y ||
        x >= block.x + block.columns || y >= block.y + block.rows)
        return;
    if (const char* const once = std::getenv("TXMAP_CRASH_ONCE"))
    {
        if (std::ifstream(once))
            return;
        std::ofstream{once};
    }
    std::raise(SIGKILL);
}

void DrawBlock(TileRenderer& renderer, const TileBlock& block, TileFormat format, const Messages& messages)
{
    try
    {
        const BlockPixels pixels = renderer.Draw(block);
        for (int row = 0; row < block.rows; ++row)
            for (int column = 0; column < block.columns; ++column)
                messages.Send(WorkerMessage::Kind::Tile, block.x + column, block.y + row,
                              Encode(pixels.Tile(column, row), format));
        messages.Send(WorkerMessage::Kind::Done, 0, 0, {});
    }
    catch (const std::exception& problem)
    {
        messages.Send(WorkerMessage::Kind::Failed, 0, 0, problem.what());
    }
}

std::vector<std::string> ArgumentsOf(const TileLook& look, TileFormat format)
{
    std::ostringstream scale;
    scale.precision(17);
    scale << look.scale;
    return {"txmap",
            kWorkerAction,
            look.style,
            scale.str(),
            std::to_string(look.tileSize),
            look.lenient ? "lenient" : "strict",
            look.plugin,
            std::to_string(static_cast<int>(format))};
}

} // namespace

int RunTileWorker(const std::vector<std::string>& arguments)
{
    if (arguments.size() != 6)
        return static_cast<int>(ExitCode::Usage);
    // Whatever prints to standard output must not come between messages.
    const Messages messages(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3));
    dup2(STDERR_FILENO, STDOUT_FILENO);
    TileLook look;
    look.style = arguments[0];
    look.scale = std::strtod(arguments[1].c_str(), nullptr);
    look.tileSize = std::atoi(arguments[2].c_str());
    look.lenient = arguments[3] == "lenient";
    look.plugin = arguments[4];
    const auto format = static_cast<TileFormat>(std::atoi(arguments[5].c_str()));
    try
    {
        TileRenderer renderer(look, [&](const std::string& warning)
                              { messages.Send(WorkerMessage::Kind::Warning, 0, 0, warning); });
        TileBlock block;
        while (std::cin >> block.z >> block.x >> block.y >> block.columns >> block.rows)
        {
            CrashOnRequest(block);
            DrawBlock(renderer, block, format, messages);
        }
        return static_cast<int>(ExitCode::Success);
    }
    catch (const Failure& failure)
    {
        messages.Send(WorkerMessage::Kind::Useless, static_cast<int>(failure.Code()), 0, failure.what());
    }
    catch (const std::exception& problem)
    {
        messages.Send(WorkerMessage::Kind::Useless, static_cast<int>(ExitCode::Drawing), 0, problem.what());
    }
    return static_cast<int>(ExitCode::Drawing);
}

WorkerProcess::WorkerProcess(const TileLook& look, TileFormat format)
{
    std::array<int, 2> toWorker{}, fromWorker{};
    const auto refuse = []
    { throw Failure(ExitCode::Drawing, "--jobs: no more processes: " + std::generic_category().message(errno)); };
    if (pipe2(toWorker.data(), O_CLOEXEC) != 0)
        refuse();
    orders = toWorker[1];
    if (pipe2(fromWorker.data(), O_CLOEXEC) != 0)
    {
        close(toWorker[0]);
        refuse();
    }
    messages = fromWorker[0];
    std::vector<std::string> arguments = ArgumentsOf(look, format);
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t parent = getpid();
    process = fork();
    if (process == 0)
    {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // What a terminal sends is for the one that gives the orders.
        std::signal(SIGINT, SIG_IGN);
        if (getppid() != parent || dup2(toWorker[0], STDIN_FILENO) < 0 || dup2(fromWorker[1], STDOUT_FILENO) < 0)
            _exit(1);
        // The picture of a block is new memory each time, which the kernel gives faster in large pages.
        setenv("GLIBC_TUNABLES", "glibc.malloc.hugetlb=1", 0);
        execv("/proc/self/exe", argv.data());
        _exit(1);
    }
    close(toWorker[0]);
    close(fromWorker[1]);
    if (process < 0)
        refuse();
}

WorkerProcess::~WorkerProcess()
{
    close(orders);
    close(messages);
    if (process > 0)
    {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

void WorkerProcess::Draw(const TileBlock& wanted)
{
    block = wanted;
    std::ostringstream text;
    text << wanted.z << ' ' << wanted.x << ' ' << wanted.y << ' ' << wanted.columns << ' ' << wanted.rows << '\n';
    const std::string order = text.str();
    // A worker that has just ended is noticed by its messages; an order is smaller than what a pipe holds.
    if (write(orders, order.data(), order.size()) < 0 && errno != EPIPE)
        throw Failure(ExitCode::Drawing, "a worker takes no orders: " + std::generic_category().message(errno));
}

bool WorkerProcess::Receive(const std::function<void(const WorkerMessage&)>& take)
{
    std::array<char, 1 << 16> buffer{};
    const ssize_t size = read(messages, buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR)
        return true;
    if (size <= 0)
        return false;
    received.append(buffer.data(), static_cast<std::size_t>(size));
    std::size_t at = 0;
    Header header;
    while (received.size() - at >= sizeof header)
    {
        std::memcpy(static_cast<void*>(&header), received.data() + at, sizeof header);
        if (received.size() - at - sizeof header < header.size)
            break;
        WorkerMessage message{static_cast<WorkerMessage::Kind>(header.kind), header.x, header.y,
                              received.substr(at + sizeof header, header.size)};
        at += sizeof header + header.size;
        take(message);
        if (message.kind == WorkerMessage::Kind::Done || message.kind == WorkerMessage::Kind::Failed)
            block.reset();
    }
    received.erase(0, at);
    return true;
}

std::string WorkerProcess::HowItEnded()
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR)
    {
    }
    process = -1;
    if (WIFSIGNALED(status))
        return "the worker was ended by signal " + std::to_string(WTERMSIG(status));
    return "the worker ended with exit code " + std::to_string(WEXITSTATUS(status));
}

} // namespace txmap
