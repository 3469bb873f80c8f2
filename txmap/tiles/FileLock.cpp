#include <txmap/tiles/FileLock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace txmap
{

FileLock::~FileLock()
{
    if (descriptor >= 0)
        close(descriptor);
}

bool FileLock::Take(const std::string& file, bool shares)
{
    // Workers must not hold on to it.
    descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    return descriptor >= 0 && flock(descriptor, (shares ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0;
}

} // namespace txmap
