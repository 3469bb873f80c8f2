#pragma once

#include <filesystem>
#include <set>
#include <string>

/// A folder of its own for a test, removed at the end with all that is in it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path; }
    /// The path of a file in the folder, whether it exists or not.
    std::string operator/(const std::string& name) const { return (path / name).string(); }
    /// Makes a file and returns its path.
    std::string Write(const std::string& name, const std::string& content) const;
    /// The names of all that is in the folder.
    std::set<std::string> Names() const;

private:
    std::filesystem::path path;
};

/// All bytes of a file; empty when there is none.
std::string ContentOf(const std::filesystem::path& file);
