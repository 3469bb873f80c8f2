#include <txmap/tiles/TileFolder.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

namespace fs = std::filesystem;

// So many different files are known by their digests: what repeats, repeats soon.
constexpr std::size_t kMostDigests = 20000;

std::string Reason(int error) { return std::generic_category().message(error); }

} // namespace

TileFolder::TileFolder(const std::string& path, const TileSetFacts& facts)
    : folder(path), suffix(SuffixOf(facts.format)), shard(facts.wish.shard)
{
    std::error_code status;
    if (fs::exists(folder, status) && !fs::is_directory(folder, status))
        throw Failure(ExitCode::Drawing, "--output " + folder + ": is no folder; a database ends with .mbtiles");
    const std::string own = folder + "/.txmap";
    fs::create_directories(own, status);
    if (status)
        Fail(folder, status.value());
    const bool isShard = shard.count > 1;
    const std::string part = std::to_string(shard.number) + "-of-" + std::to_string(shard.count);
    errno = 0;
    if (!all.Take(own + "/lock", isShard) || (isShard && !mine.Take(own + "/lock-" + part, false)))
    {
        if (errno != EWOULDBLOCK)
            Fail(folder, errno);
        throw Failure(ExitCode::Drawing, "--output " + folder + ": another run is writing there");
    }
    temporary = own + "/tile-" + part;
    CheckLook(facts.look);
}

TileFolder::~TileFolder() { std::remove(temporary.c_str()); }

void TileFolder::Fail(const std::string& file, int error) const
{
    throw Failure(ExitCode::Drawing, "--output " + file + ": cannot be written: " + Reason(error));
}

void TileFolder::CheckLook(const std::string& look) const
{
    const std::string name = folder + "/.txmap/look";
    std::ifstream file(name);
    const std::string present((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (present == look)
        return;
    if (!present.empty())
        throw Failure(ExitCode::Drawing,
                      "--output " + folder + ": has tiles of another style, size, scale or format; remove it first");
    const std::string written = temporary + "-look";
    if (!(std::ofstream(written) << look << std::flush) || std::rename(written.c_str(), name.c_str()) != 0)
        Fail(name, errno);
}

std::string TileFolder::PathOf(const TileId& tile) const
{
    return folder + "/" + std::to_string(tile.z) + "/" + std::to_string(tile.x) + "/" + std::to_string(tile.y) + suffix;
}

bool TileFolder::Has(const TileId& tile) { return access(PathOf(tile).c_str(), F_OK) == 0; }

void TileFolder::MakeFolders(const TileId& tile)
{
    const TileId column{tile.z, tile.x, 0};
    if (column == lastFolder)
        return;
    const fs::path path = fs::path(PathOf(tile)).parent_path();
    std::error_code status;
    fs::create_directories(path, status);
    if (status)
        Fail(path.string(), status.value());
    lastFolder = column;
}

bool TileFolder::LinkTo(const std::string& same)
{
    std::remove(temporary.c_str());
    return link(same.c_str(), temporary.c_str()) == 0;
}

void TileFolder::Write(const std::string& bytes)
{
    std::remove(temporary.c_str());
    const int descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0)
        Fail(temporary, errno);
    std::size_t written = 0;
    int error = 0;
    while (written < bytes.size() && error == 0)
    {
        const ssize_t now = write(descriptor, bytes.data() + written, bytes.size() - written);
        if (now > 0)
            written += static_cast<std::size_t>(now);
        else if (now < 0 && errno != EINTR)
            error = errno;
    }
    // Some file systems report only here that there is no room.
    if (close(descriptor) != 0 && error == 0)
        error = errno;
    if (error != 0)
        Fail(folder, error);
}

void TileFolder::Put(const TileId& tile, const std::string& bytes)
{
    MakeFolders(tile);
    const std::string digest = DigestOf(bytes);
    const auto same = files.find(digest);
    const std::string path = PathOf(tile);
    if (same != files.end() && same->second == path)
        return;
    if (same == files.end() || !LinkTo(same->second))
    {
        Write(bytes);
        if (same == files.end())
            digests.push_back(digest);
        files[digest] = path;
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0)
        Fail(path, errno);
    if (digests.size() > kMostDigests)
    {
        files.erase(digests.front());
        digests.pop_front();
    }
}

std::string TileFolder::FailureList() const
{
    return folder + "/failed" + (shard.count > 1 ? "-" + std::to_string(shard.number) : std::string()) + ".txt";
}

} // namespace txmap
