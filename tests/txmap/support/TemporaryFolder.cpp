#include "TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = (fs::temp_directory_path() / "txmap-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder can be made");
    path = fs::canonical(pattern);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code status;
    fs::remove_all(path, status);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& content) const
{
    std::ofstream(path / name, std::ios::binary) << content;
    return *this / name;
}

std::set<std::string> TemporaryFolder::Names() const
{
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path))
        names.insert(entry.path().filename().string());
    return names;
}

std::string ContentOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
