#include <txmap/output/OutputFile.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
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

} // namespace

OutputFile::OutputFile(const std::string& path) : name(path), target(path)
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
        Fail("has no suffix that names the format, such as .png");
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
    if (!temporary.empty())
        std::remove(temporary.c_str());
}

void OutputFile::Fail(const std::string& reason) const
{
    throw Failure(ExitCode::Drawing, "--output " + name + ": " + reason);
}

const std::string& OutputFile::Begin()
{
    const fs::path path(target);
    const std::string suffix = path.extension().string();
    std::string pattern = (path.parent_path() / (".txmap-XXXXXX" + suffix)).string();
    const int descriptor = mkstemps(pattern.data(), static_cast<int>(suffix.size()));
    if (descriptor < 0)
        Fail("cannot be written: " + SystemReason());
    close(descriptor);
    temporary = pattern;
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
    temporary.clear();
}

} // namespace txmap
