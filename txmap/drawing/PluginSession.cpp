#include <txmap/drawing/PluginSession.h>

#include <filesystem>
#include <ostream>
#include <system_error>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txgraphics/TXImage.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXGraphicsEngine;
using TZObjects::TXGraphicsEngineManager;
using TZObjects::TXImage;
using TZObjects::TXRefPtr;
using TZObjects::TXString;

namespace
{

TXGraphicsEngineManager& Manager() { return *TXGraphicsEngineManager::instance(""); }

/// A file in the current folder is meant as a file, although the manager takes what has no "/" for a name.
std::string PathOrName(const std::string& plugin)
{
    std::error_code status;
    const bool isFile = plugin.find('/') == std::string::npos && std::filesystem::is_regular_file(plugin, status);
    return isFile ? "./" + plugin : plugin;
}

} // namespace

PluginSession::PluginSession(const std::string& plugin, TextPath path)
{
    Manager().SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
    Manager().EnableCairoDrawing(path == TextPath::Cairo);
    TXString error;
    engine = Manager().LoadPlugin(PathOrName(plugin).c_str(), &error);
    if (!engine)
        throw Failure(ExitCode::Plugin, "plugin " + error.toUTF8());
}

PluginSession::~PluginSession()
{
    engine = nullptr;
    Manager().Unload();
}

void ListPlugins(std::ostream& out)
{
    bool any = false;
    for (const TXString& path : TXGraphicsEngineManager::FindPlugins())
    {
        const TXRefPtr<TXGraphicsEngine> engine = Manager().LoadPlugin(path);
        if (!engine)
            continue;
        any = true;
        out << path.toUTF8() << '\t' << engine->GetName().toUTF8() << '\t' << engine->GetVersion().toUTF8() << '\n';
    }
    Manager().Unload();
    if (any)
        return;
    std::string folders;
    for (const TXString& folder : TXGraphicsEngineManager::PluginSearchPath())
        folders += (folders.empty() ? "" : ", ") + folder.toUTF8();
    throw Failure(ExitCode::Plugin, "no plugin can be loaded from " + folders);
}

} // namespace txmap
