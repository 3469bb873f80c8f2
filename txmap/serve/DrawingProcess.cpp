#include <txmap/serve/DrawingProcess.h>

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <system_error>
#include <vector>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

/// The attributes and file actions of a process to be, and their release.
struct SpawnSettings
{
    SpawnSettings()
    {
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_init(&files);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t files{};
};

} // namespace

DrawingProcess::DrawingProcess(const ServedStyle& style, Deadline deadline, int stop) : version(style.version)
{
    Start(style);
    std::string text;
    Exchange exchange = SendFrame(socket, style.text, deadline, stop);
    if (exchange == Exchange::Done)
        exchange = ReceiveFrame(socket, text, deadline, stop);
    const auto read = exchange == Exchange::Done ? ReadGreeting(text) : std::nullopt;
    if (read)
        greeting = *read;
    else if (exchange == Exchange::Late)
        greeting = {ExitCode::Data, style.file + ": reading the style and its data takes too long", {}};
    else
        greeting = {ExitCode::Drawing, style.file + ": the process that reads the style ended", {}};
    if (greeting.code == ExitCode::Success)
        return;
    End();
    throw Failure(greeting.code, greeting.problem);
}

DrawingProcess::~DrawingProcess() { End(); }

void DrawingProcess::Start(const ServedStyle& style)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw Failure(ExitCode::Drawing, "no worker can be started: " + std::generic_category().message(errno));
    SpawnSettings settings;
    // The worker has its end as standard input, and nothing else: a client's connection must not stay open in it.
    posix_spawn_file_actions_adddup2(&settings.files, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&settings.files, STDERR_FILENO, STDOUT_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&settings.files, STDERR_FILENO + 1);
    // The server blocks signals and ignores some, and answers to those of the terminal alone.
    sigset_t none;
    sigemptyset(&none);
    sigset_t changed;
    sigemptyset(&changed);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        sigaddset(&changed, signal);
    posix_spawnattr_setsigmask(&settings.attributes, &none);
    posix_spawnattr_setsigdefault(&settings.attributes, &changed);
    posix_spawnattr_setpgroup(&settings.attributes, 0);
    posix_spawnattr_setflags(&settings.attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    std::vector<std::string> words = {"txmap", "serve-worker", style.file, style.plugin};
    if (style.lenient)
        words.emplace_back("--lenient");
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int error =
        posix_spawn(&process, "/proc/self/exe", &settings.files, &settings.attributes, arguments.data(), environ);
    close(ends[1]);
    socket = ends[0];
    if (error == 0)
        return;
    process = -1;
    close(socket);
    throw Failure(ExitCode::Drawing, "no worker can be started: " + std::generic_category().message(error));
}

void DrawingProcess::End()
{
    if (socket >= 0)
        close(socket);
    socket = -1;
    if (process <= 0)
        return;
    // It has nothing to finish: what it drew was sent.
    kill(process, SIGKILL);
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR)
        ;
    process = -1;
}

Exchange DrawingProcess::Draw(const std::string& job, WorkerAnswer& answer, Deadline deadline, int stop)
{
    std::string text;
    Exchange exchange = SendFrame(socket, job, deadline, stop);
    if (exchange == Exchange::Done)
        exchange = ReceiveFrame(socket, text, deadline, stop);
    if (exchange != Exchange::Done)
        return exchange;
    const std::optional<WorkerAnswer> read = ReadAnswer(text);
    if (!read)
        return Exchange::Closed;
    answer = *read;
    return Exchange::Done;
}

bool DrawingProcess::IsAlive()
{
    if (process > 0 && waitpid(process, nullptr, WNOHANG) == process)
        process = -1;
    return process > 0;
}

} // namespace txmap
