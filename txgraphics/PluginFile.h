#pragma once

#include <string>
#include <vector>

#include <boost/dll/shared_library.hpp>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphicsEngine.h>

namespace TZObjects
{

/// A loaded plugin: its engine, and the library with the engine's code.
struct LoadedPlugin
{
    boost::dll::shared_library library;
    // Declared after the library, so that it is destroyed first, while its code is there.
    TXRefPtr<TXGraphicsEngine> engine;
};

/// Loads the plugin file at @p path. On failure the engine is null, and @p error names the path and the reason.
LoadedPlugin LoadPluginFile(const std::string& path, std::string& error);

/// Returns the folders to search for plugins, in order, without empty entries.
std::vector<std::string> PluginFolders();

} // namespace TZObjects
