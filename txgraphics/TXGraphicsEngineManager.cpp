#include <txgraphics/TXGraphicsEngineManager.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <system_error>

#include <txgraphics/PluginFile.h>

namespace TZObjects
{
namespace
{

bool IsPath(const std::string& plugin) { return plugin.find('/') != std::string::npos; }

bool LooksLoadable(const std::filesystem::path& file)
{
    std::error_code status;
    return file.extension() == ".so" && file.filename().string().compare(0, 3, "lib") == 0 &&
           std::filesystem::is_regular_file(file, status);
}

bool Initialised(TXPlugin& plugin)
{
    try
    {
        plugin.InitPlugin();
        return true;
    }
    catch (...)
    {
        return false;
    }
}

/// Tells a plugin that it is let go of; what it throws then changes nothing.
void LetGo(TXPlugin& plugin) noexcept
{
    try
    {
        plugin.UnloadPlugin();
    }
    catch (...)
    {
        return;
    }
}

/// The file that a name stands for; empty, with the reason in @p error, when no folder has it.
std::string FindByName(const std::string& name, std::string& error)
{
    const std::string file = "lib" + name + ".so";
    std::string tried;
    for (const std::string& folder : PluginFolders())
    {
        const std::filesystem::path candidate = std::filesystem::path(folder) / file;
        std::error_code status;
        if (std::filesystem::is_regular_file(candidate, status))
            return candidate.string();
        tried += (tried.empty() ? "" : ", ") + candidate.string();
    }
    error = name + ": no such plugin; tried " + tried;
    return {};
}

} // namespace

struct TXGraphicsEngineManager::State
{
    std::atomic<bool> antialiasing{true};
    std::atomic<bool> cairoDrawing{false};
    std::atomic<int> imageFormat{5};
    std::atomic<std::size_t> labelCacheSize{std::size_t(32) << 20};
    std::atomic<bool> rasterizer{true};
    LoadedPlugin plugin;
};

struct TXGraphicsEngineManager::Registry
{
    std::mutex mutex;
    std::map<TXString, TXGraphicsEngineManager*> managers;
    std::atomic<TXGraphicsEngineManager*> current{new TXGraphicsEngineManager};
};

TXGraphicsEngineManager::TXGraphicsEngineManager() : state(std::make_unique<State>()) {}
TXGraphicsEngineManager::~TXGraphicsEngineManager() = default;

TXGraphicsEngineManager::Registry& TXGraphicsEngineManager::TheRegistry()
{
    // Never destroyed: backends read their settings for as long as any code of the process draws, static destructors
    // of the host included.
    static Registry& registry = *new Registry;
    return registry;
}

TXGraphicsEngineManager* TXGraphicsEngineManager::instance(const TXString& name)
{
    Registry& registry = TheRegistry();
    TXGraphicsEngineManager* const current = registry.current;
    if (name.isEmpty())
        return current;
    const std::lock_guard<std::mutex> guard(registry.mutex);
    TXGraphicsEngineManager*& manager = registry.managers[name];
    if (!manager)
    {
        manager = new TXGraphicsEngineManager;
        manager->EnableAntialiasing(current->AntialiasingEnabled());
        manager->EnableCairoDrawing(current->CairoDrawingEnabled());
        manager->SetDefaultImageFormat(current->DefaultImageFormat());
        manager->SetLabelCacheSize(current->LabelCacheSize());
        manager->EnableRasterizer(current->RasterizerEnabled());
    }
    return manager;
}

void TXGraphicsEngineManager::SetCurrent(const TXString& name) { TheRegistry().current = instance(name); }

bool TXGraphicsEngineManager::AntialiasingEnabled() const { return state->antialiasing; }
void TXGraphicsEngineManager::EnableAntialiasing(bool on) { state->antialiasing = on; }
bool TXGraphicsEngineManager::CairoDrawingEnabled() const { return state->cairoDrawing; }
void TXGraphicsEngineManager::EnableCairoDrawing(bool on) { state->cairoDrawing = on; }
int TXGraphicsEngineManager::DefaultImageFormat() const { return state->imageFormat; }
void TXGraphicsEngineManager::SetDefaultImageFormat(int format) { state->imageFormat = format; }
std::size_t TXGraphicsEngineManager::LabelCacheSize() const { return state->labelCacheSize; }
void TXGraphicsEngineManager::SetLabelCacheSize(std::size_t bytes) { state->labelCacheSize = bytes; }
bool TXGraphicsEngineManager::RasterizerEnabled() const { return state->rasterizer; }
void TXGraphicsEngineManager::EnableRasterizer(bool on) { state->rasterizer = on; }

TXRefPtr<TXGraphicsEngine> TXGraphicsEngineManager::LoadPlugin(const TXString& plugin, TXString* error)
{
    std::string problem;
    const std::string name = plugin.toUTF8();
    const std::string path = IsPath(name) ? name : FindByName(name, problem);
    LoadedPlugin loaded = path.empty() ? LoadedPlugin() : LoadPluginFile(path, problem);
    if (loaded.engine && !Initialised(*loaded.engine))
    {
        problem = path + ": its initialisation failed";
        loaded.engine = nullptr;
    }
    if (!loaded.engine)
    {
        if (error)
            *error = problem.c_str();
        return nullptr;
    }

    Registry& registry = TheRegistry();
    TXGraphicsEngineManager* keeper = nullptr;
    {
        const std::lock_guard<std::mutex> guard(registry.mutex);
        keeper = registry.managers.emplace(loaded.engine->GetName(), this).first->second;
    }
    if (registry.current == this)
        registry.current = keeper;
    keeper->Unload();
    keeper->state->plugin = std::move(loaded);
    return keeper->state->plugin.engine;
}

void TXGraphicsEngineManager::Unload()
{
    if (!state->plugin.engine)
        return;
    LetGo(*state->plugin.engine);
    state->plugin.engine = nullptr;
    state->plugin.library.unload();
}

TXRefPtr<TXGraphicsEngine> TXGraphicsEngineManager::Engine() const { return state->plugin.engine; }

std::vector<TXString> TXGraphicsEngineManager::PluginSearchPath()
{
    std::vector<TXString> folders;
    for (const std::string& folder : PluginFolders())
        folders.emplace_back(folder.c_str());
    return folders;
}

std::vector<TXString> TXGraphicsEngineManager::FindPlugins()
{
    std::vector<TXString> plugins;
    for (const std::string& folder : PluginFolders())
    {
        std::vector<std::string> files;
        std::error_code status;
        for (std::filesystem::directory_iterator entry(folder, status), end; !status && entry != end;
             entry.increment(status))
            if (LooksLoadable(entry->path()))
                files.push_back(entry->path().string());
        std::sort(files.begin(), files.end());
        for (const std::string& file : files)
            plugins.emplace_back(file.c_str());
    }
    return plugins;
}

} // namespace TZObjects
