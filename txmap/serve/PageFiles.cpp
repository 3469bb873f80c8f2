#include <txmap/serve/PageFiles.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include <txmap/support/FileSuffix.h>

namespace txmap
{
namespace
{

namespace fs = std::filesystem;

const char* TypeOf(const std::string& name)
{
    const std::string suffix = FileSuffix(name);
    if (suffix == ".html")
        return "text/html; charset=utf-8";
    if (suffix == ".js")
        return "text/javascript; charset=utf-8";
    if (suffix == ".css")
        return "text/css; charset=utf-8";
    return nullptr;
}

} // namespace

std::string PageFolder()
{
    std::error_code status;
    const fs::path program = fs::read_symlink("/proc/self/exe", status);
    return (program.parent_path().parent_path() / "share/txmap/page").string();
}

PageFiles ReadPageFiles(const std::string& folder)
{
    PageFiles files;
    std::error_code status;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, status))
    {
        const std::string name = entry.path().filename().string();
        const char* const type = TypeOf(name);
        if (!type || !entry.is_regular_file(status))
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        files[name] = std::make_shared<Content>(
            std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()), type);
    }
    return files;
}

} // namespace txmap
