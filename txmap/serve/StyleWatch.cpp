#include <txmap/serve/StyleWatch.h>

#include <sys/stat.h>

#include <utility>

namespace txmap
{

StyleWatch::StyleWatch(std::string file) : file(std::move(file)), told(Look()), last(told) {}

bool StyleWatch::HasChanged()
{
    const Mark now = Look();
    const bool isSettled = now == last;
    last = now;
    if (!isSettled || now == told)
        return false;
    told = now;
    return true;
}

bool StyleWatch::Mark::operator==(const Mark& other) const
{
    return exists == other.exists && device == other.device && inode == other.inode && size == other.size &&
           written.tv_sec == other.written.tv_sec && written.tv_nsec == other.written.tv_nsec;
}

StyleWatch::Mark StyleWatch::Look() const
{
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0)
        return {};
    return {true, status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

} // namespace txmap
