#pragma once

#include <sys/types.h>

#include <ctime>
#include <string>

namespace txmap
{

/// Notices when a file is saved, written over or replaced.
class StyleWatch
{
public:
    /// Begins with the file as it is.
    explicit StyleWatch(std::string file);

    /// Whether the file has changed since the last change that was told, and is as it was at the last call: an editor
    /// may still be writing it.
    bool HasChanged();

private:
    struct Mark
    {
        bool exists = false;
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        timespec written{};

        bool operator==(const Mark& other) const;
    };

    Mark Look() const;

    std::string file;
    Mark told;
    Mark last;
};

} // namespace txmap
