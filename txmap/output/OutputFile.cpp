#include <txmap/output/OutputFile.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <system_error>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

namespace fs = std::filesystem;

std::string SystemReason() { return std::system_category().message(errno); }

/// The permissions that a new file gets by default.
mode_t DefaultMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The temporary files that a signal removes. The program has few at a time.
constexpr std::size_t kMostDoomed = 8;
constexpr std::size_t kLongestPath = 4096;
char doomedPaths[kMostDoomed][kLongestPath];
volatile std::sig_atomic_t isDoomed[kMostDoomed];

extern "C" void RemoveAndEnd(int signal)
{
    for (std::size_t i = 0; i < kMostDoomed; ++i)
        if (isDoomed[i])
            unlink(doomedPaths[i]);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void RemoveOnSignal(const std::string& path)
{
    const auto* const free = std::find(std::begin(isDoomed), std::end(isDoomed), 0);
    if (free == std::end(isDoomed) || path.size() >= kLongestPath)
        return;
    const auto place = static_cast<std::size_t>(free - std::begin(isDoomed));
    std::copy(path.c_str(), path.c_str() + path.size() + 1, doomedPaths[place]);
    // The handler must not see the mark before the path.
    std::atomic_signal_fence(std::memory_order_release);
    isDoomed[place] = 1;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU, SIGXFSZ})
    {
        // What is ignored, as by nohup, stays so.
        struct sigaction present = {};
        if (sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_DFL)
            std::signal(signal, RemoveAndEnd);
    }
}

void KeepOnSignal(const std::string& path)
{
    for (std::size_t i = 0; i < kMostDoomed; ++i)
        if (isDoomed[i] && path == doomedPaths[i])
            isDoomed[i] = 0;
}

} // namespace

OutputFile::OutputFile(const std::string& path, const std::string& option) : name(option + " " + path), target(path)
{
    std::error_code status;
    if (const fs::path real = fs::canonical(path, status); !status)
        target = real.string();
    const fs::file_status present = fs::status(target, status);
    if (fs::is_directory(present))
        Fail("is a directory");
    // A device or a pipe must not be replaced by a picture.
    if (fs::exists(present) && !fs::is_regular_file(present))
        Fail("is no ordinary file");
    if (!fs::path(target).has_extension())
        Fail("has no suffix that names the format");
    const fs::path folder = fs::path(target).parent_path();
    const fs::path writable = folder.empty() ? fs::path(".") : folder;
    if (!fs::exists(writable, status))
        Fail("the folder " + writable.string() + " does not exist");
    if (!fs::is_directory(writable, status))
        Fail(writable.string() + " is no folder");
    if (access(writable.c_str(), W_OK | X_OK) != 0)
        Fail("cannot be written: " + SystemReason());
}

OutputFile::~OutputFile()
{
    if (temporary.empty())
        return;
    std::remove(temporary.c_str());
    KeepOnSignal(temporary);
}

void OutputFile::Fail(const std::string& reason) const { throw Failure(ExitCode::Drawing, name + ": " + reason); }

const std::string& OutputFile::Begin(const std::string& suffix)
{
    const fs::path path(target);
    const std::string ending = suffix.empty() ? path.extension().string() : suffix;
    std::string pattern = (path.parent_path() / (".txmap-XXXXXX" + ending)).string();
    const int descriptor = mkstemps(pattern.data(), static_cast<int>(ending.size()));
    if (descriptor < 0)
        Fail("cannot be written: " + SystemReason());
    close(descriptor);
    temporary = pattern;
    RemoveOnSignal(temporary);
    return temporary;
}

void OutputFile::Commit()
{
    std::error_code status;
    if (fs::file_size(temporary, status) == 0 || status)
        Fail("nothing was written");
    struct stat present = {};
    const mode_t mode = stat(target.c_str(), &present) == 0 ? present.st_mode & 07777u : DefaultMode();
    if (chmod(temporary.c_str(), mode) != 0 || std::rename(temporary.c_str(), target.c_str()) != 0)
        Fail("cannot be written: " + SystemReason());
    KeepOnSignal(temporary);
    temporary.clear();
}

std::string OutputFile::WriteProblem() const
{
    // Writers of pictures do not say why they failed; writing some more fails for the same reason.
    std::FILE* const file = std::fopen(temporary.c_str(), "ab");
    if (!file)
        return " (" + SystemReason() + ")";
    const std::string block(1 << 16, '\0');
    const bool isWritten = std::fwrite(block.data(), 1, block.size(), file) == block.size();
    const bool isFlushed = isWritten && std::fflush(file) == 0;
    const std::string reason = SystemReason();
    std::fclose(file);
    return isFlushed ? "" : " (" + reason + ")";
}

} // namespace txmap
