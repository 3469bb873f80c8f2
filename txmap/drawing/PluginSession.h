#pragma once

#include <iosfwd>
#include <string>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/labels/TextPath.h>

namespace txmap
{

/// A drawing plugin, loaded as long as this object lives. Whatever its engine made must be gone before.
class PluginSession
{
public:
    /// Loads a plugin by path or by name, and sets what its surfaces and fonts begin with. @throw Failure with
    /// `ExitCode::Plugin` when that fails.
    PluginSession(const std::string& plugin, TextPath path);
    ~PluginSession();
    PluginSession(const PluginSession&) = delete;
    PluginSession& operator=(const PluginSession&) = delete;

    TZObjects::TXGraphicsEngine& Engine() const { return *engine; }

private:
    TZObjects::TXRefPtr<TZObjects::TXGraphicsEngine> engine;
};

/// Writes a line for each plugin on the search path that can be loaded: its path, the engine's name and its version,
/// with tabs between them. @throw Failure with `ExitCode::Plugin` when there is none.
void ListPlugins(std::ostream& out);

} // namespace txmap
