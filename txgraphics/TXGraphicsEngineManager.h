#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>
#include <txgraphics/TXGraphicsEngine.h>

namespace TZObjects
{

/// The registry of graphics engines: loads backend plugins and carries the settings that backends read.
///
/// There is one manager for each engine name and one current manager, whose settings apply to what is created from then
/// on. Until something else is made current, that is the manager which a process starts with. Managers live until the
/// process ends. Settings may be read and changed on any thread; load and unload plugins on one thread at a time.
class TXGRAPHICS_API TXGraphicsEngineManager
{
public:
    /// The manager of the engine with that name, made on first request with the settings of the current one; "" gives
    /// the current manager. Never null, and the same object for the same name for ever.
    static TXGraphicsEngineManager* instance(const TXString& name);
    /// Makes the manager of that name the current one; "" changes nothing.
    static void SetCurrent(const TXString& name);

    TXGraphicsEngineManager(const TXGraphicsEngineManager&) = delete;
    TXGraphicsEngineManager& operator=(const TXGraphicsEngineManager&) = delete;

    /// Whether surfaces start antialiased when they get a target. On unless switched off.
    bool AntialiasingEnabled() const;
    void EnableAntialiasing(bool on);
    /// Whether new surfaces draw labels through cairo and new fonts can measure for it. Off unless switched on.
    bool CairoDrawingEnabled() const;
    void EnableCairoDrawing(bool on);
    /// The `TXImage::Format` of images made without one. 5 (ARGB32) unless set; 6 (premultiplied) is faster, and exact
    /// where cairo blends.
    int DefaultImageFormat() const;
    void SetDefaultImageFormat(int format);
    /// How many bytes each thread may spend on keeping what it computed for labels, so that the same label is measured
    /// and drawn faster the next time; 0 keeps nothing. 32 MiB unless set, which is enough for about a thousand labels.
    /// The current manager's number counts, for whatever was created before as well: a thread follows it, and gives
    /// memory back, when it measures or draws a label through Qt the next time or ends. Beside these bytes a thread
    /// that has done so has a table of 64 KiB.
    std::size_t LabelCacheSize() const;
    void SetLabelCacheSize(std::size_t bytes);

    /// Loads a backend plugin and keeps its engine here, in place of one that was here before.
    ///
    /// A host that makes a Qt application object of its own does so before it loads a plugin: the first engine of a
    /// process without one makes one that lasts, and Qt allows a process no second one.
    ///
    /// The engine's own name leads to this manager from then on. If another manager has that name already, that one
    /// gets the engine, and becomes current if this one is.
    /// @param plugin a path, which holds a "/", or a name such as "txpluginqt", which is looked up as
    /// "libtxpluginqt.so"
    ///        in each folder of `PluginSearchPath`.
    /// @param error when not null and loading fails: what was tried and why it failed.
    /// @return the engine; null when loading failed, in which case nothing has changed.
    TXRefPtr<TXGraphicsEngine> LoadPlugin(const TXString& plugin, TXString* error = nullptr);
    /// Lets go of the engine and its plugin, after calling `TXPlugin::UnloadPlugin`. The code stays mapped as long as
    /// objects made by it may live.
    void Unload();
    /// The engine kept here; null if none is. On the thread that loads and unloads.
    TXRefPtr<TXGraphicsEngine> Engine() const;

    /// The folders in which plugins are looked for, in order: those of the environment variable `TX_PLUGIN_PATH`,
    /// separated by ":", then "txplugins" beside this library.
    static std::vector<TXString> PluginSearchPath();
    /// The paths of all loadable-looking files ("lib*.so") on the search path, in its order, sorted within a folder.
    static std::vector<TXString> FindPlugins();

private:
    TXGraphicsEngineManager();
    ~TXGraphicsEngineManager();

    struct Registry;
    struct State;
    static Registry& TheRegistry();
    std::unique_ptr<State> state;
};

} // namespace TZObjects
