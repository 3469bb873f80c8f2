#pragma once

#include <string>
#include <vector>

#include <boost/dll/shared_library.hpp>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphicsEngine.h>

namespace TZObjects
{

/// A loaded plugin: its engine, and the library that the engine's code lives in.
struct LoadedPlugin
{
    boost::dll::shared_library library;
    // Declared after the library, so that the engine goes while its code is there.
    TXRefPtr<TXGraphicsEngine> engine;
};

/// Loads the plugin file at @p path. On failure the engine is null and @p error says why, the path included.
LoadedPlugin LoadPluginFile(const std::string& path, std::string& error);

/// The folders in which plugins are looked for, in order, without empty entries.
std::vector<std::string> PluginFolders();

} // namespace TZObjects
