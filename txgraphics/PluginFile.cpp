#include <txgraphics/PluginFile.h>

#include <dlfcn.h>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <sstream>
#include <system_error>

#include <boost/dll/runtime_symbol_info.hpp>

#include <txbase/TXPlugin.h>

namespace TZObjects
{
namespace
{

constexpr char kEntry[] = "GetTZPlugIn";
using Entry = TXRefPtr<TXPlugin>();

/// The reason that the system's loader gives, without the file name that it usually begins with.
std::string LoaderReason(const std::string& path)
{
    // Boost reports "Bad file descriptor" for every failure; the loader itself knows better.
    const char* const message = dlerror();
    if (!message)
        return "the system's loader gave no reason";
    std::string reason = message;
    const std::string prefix = path + ": ";
    if (reason.compare(0, prefix.size(), prefix) == 0)
        reason.erase(0, prefix.size());
    return reason;
}

} // namespace

LoadedPlugin LoadPluginFile(const std::string& path, std::string& error)
{
    const auto failed = [&](const std::string& reason)
    {
        error = path + ": " + reason;
        return LoadedPlugin();
    };
    std::error_code status;
    if (!std::filesystem::exists(path, status))
        return failed("no such file");
    if (!std::filesystem::is_regular_file(path, status))
        return failed("not a file");

    LoadedPlugin plugin;
    dlerror();
    // The code of objects that a host still holds must outlive the unload.
    constexpr auto stay = static_cast<boost::dll::load_mode::type>(RTLD_NODELETE);
    plugin.library.load(path, status, boost::dll::load_mode::rtld_now | boost::dll::load_mode::rtld_local | stay);
    if (status)
        return failed("cannot be loaded: " + LoaderReason(path));
    if (!plugin.library.has(kEntry))
        return failed(std::string("is no plugin: it has no entry ") + kEntry);
    try
    {
        Entry* const entry = plugin.library.get<Entry*>(kEntry);
        const TXRefPtr<TXPlugin> object = entry ? entry() : nullptr;
        plugin.engine = dynamic_cast<TXGraphicsEngine*>(object.get());
    }
    catch (const std::exception& problem)
    {
        return failed(std::string("its entry failed: ") + problem.what());
    }
    catch (...)
    {
        return failed("its entry failed");
    }
    if (!plugin.engine)
        return failed("its entry made no graphics engine");
    return plugin;
}

std::vector<std::string> PluginFolders()
{
    std::vector<std::string> folders;
    if (const char* const configured = std::getenv("TX_PLUGIN_PATH"))
    {
        std::istringstream list(configured);
        for (std::string folder; std::getline(list, folder, ':');)
            if (!folder.empty())
                folders.push_back(folder);
    }
    boost::dll::fs::error_code status;
    const auto library = boost::dll::symbol_location_ptr(reinterpret_cast<void*>(&LoadPluginFile), status);
    if (!status)
        folders.push_back((library.parent_path() / "txplugins").string());
    return folders;
}

} // namespace TZObjects
