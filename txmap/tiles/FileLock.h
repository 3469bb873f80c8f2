#pragma once

#include <string>

namespace txmap
{

/// A lock that other processes see, and that ends with this process however that ends.
class FileLock
{
public:
    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Takes the lock, which nobody else has then unless all share it. @return false if somebody has it, or if there
    /// can be no such file, as `errno` says then.
    bool Take(const std::string& file, bool shares);

private:
    int descriptor = -1;
};

} // namespace txmap
