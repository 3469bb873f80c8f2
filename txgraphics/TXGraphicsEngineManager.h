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

/// The registry of graphics engines: it loads backend plugins and holds the settings that backends read.
///
/// There is one manager for each engine name, and one of them is current. The settings of the current manager apply to
/// what is made from then on. The process starts with a manager that is current until another one is made so. Managers
/// live until the process ends.
///
/// **Threads.** Any thread may read and change settings. Load and unload plugins on one thread at a time.
class TXGRAPHICS_API TXGraphicsEngineManager
{
public:
    /// Returns the manager of an engine. The first request for a name makes its manager, with the settings of the
    /// current one.
    /// @param name the engine's name; "" stands for the current manager.
    /// @return the manager, never null. The same name gives the same manager for as long as the process lives.
    static TXGraphicsEngineManager* instance(const TXString& name);
    /// Makes a manager the current one.
    /// @param name the engine's name; "" changes nothing.
    static void SetCurrent(const TXString& name);

    TXGraphicsEngineManager(const TXGraphicsEngineManager&) = delete;
    TXGraphicsEngineManager& operator=(const TXGraphicsEngineManager&) = delete;

    /// Returns true when surfaces are antialiased by default.
    bool AntialiasingEnabled() const;
    /// Switches the default of antialiasing; it is on in the beginning. A surface reads it when it selects or makes its
    /// target. A surface that was made on an image is never antialiased by default.
    void EnableAntialiasing(bool on);
    /// Returns true when labels go through cairo by default.
    bool CairoDrawingEnabled() const;
    /// Switches the default text path to cairo; it is off in the beginning. Switch it before making surfaces and fonts:
    /// a surface reads it when it is made, and a font when its `Create` runs. Fonts made before it is switched on
    /// cannot measure for cairo. To switch a surface that exists, use `TXGraphics::EnableCairoDrawing`.
    void EnableCairoDrawing(bool on);
    /// Returns the default format, a `TXImage::Format`.
    int DefaultImageFormat() const;
    /// Sets the `TXImage::Format` of images that are made without one. In the beginning it is 5 (ARGB32). Format 6
    /// (premultiplied ARGB32) is faster, and the only exact one where cairo blends.
    void SetDefaultImageFormat(int format);
    /// Returns the number of bytes that each thread may spend on computed labels.
    std::size_t LabelCacheSize() const;
    /// Sets the number of bytes that each thread may spend on computed labels; in the beginning it is 32 MiB, enough
    /// for about a thousand labels. A label that is kept is measured and drawn faster. 0 keeps nothing.
    ///
    /// The number of the current manager applies to all threads. A thread adapts to a new number, and frees memory,
    /// when it next measures or draws a label through Qt, and when it ends. A thread that does so at all also holds a
    /// table of 64 KiB.
    void SetLabelCacheSize(std::size_t bytes);
    /// Returns true when shapes and labels may go through the backend's own rasteriser.
    bool RasterizerEnabled() const;
    /// Switches the backend's own rasteriser; it is on in the beginning. The pixels are the same either way, and
    /// drawing is several times as fast with it. The setting of the current manager applies to all surfaces at once.
    void EnableRasterizer(bool on);

    /// Loads a backend plugin and keeps its engine in this manager, in place of an earlier one.
    ///
    /// From then on the engine's own name leads to this manager. If another manager has that name already, that one
    /// gets the engine, and becomes current if this one was.
    ///
    /// **Qt plugin.** Qt allows a process one application object. A host with an application object of its own makes it
    /// before it loads the plugin: the first engine makes a lasting one if there is none. In a process without one,
    /// loading also writes the line "graphics engine create!" to Qt's debug log, which goes to standard error unless
    /// the host installs a message handler.
    /// @param plugin a path, which contains a "/", or a name such as "txpluginqt". The name stands for the file
    /// "libtxpluginqt.so" in the first folder of `PluginSearchPath` that has it.
    /// @param error receives what was tried and why it failed; may be null. It does not change when loading succeeds.
    /// @return the engine, or null when loading failed, which changes nothing.
    TXRefPtr<TXGraphicsEngine> LoadPlugin(const TXString& plugin, TXString* error = nullptr);
    /// Calls `TXPlugin::UnloadPlugin` and drops the engine. The plugin's code stays in memory, so objects that the host
    /// still holds remain usable.
    void Unload();
    /// Returns the engine in this manager, or null. Call it on the thread that loads and unloads.
    TXRefPtr<TXGraphicsEngine> Engine() const;

    /// Returns the folders to search for plugins, in order: first those of the environment variable `TX_PLUGIN_PATH`,
    /// separated by ":", then the folder "txplugins" beside this library.
    static std::vector<TXString> PluginSearchPath();
    /// Returns the paths of all files "lib*.so" in the folders of `PluginSearchPath`: folder by folder, sorted within
    /// each. It loads none of them.
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
