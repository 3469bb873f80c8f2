// A plugin whose object is no graphics engine.
#include <boost/dll/alias.hpp>
#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>

#include "PluginEvents.h"

std::vector<std::string> PluginEvents;

namespace
{

class PlainPlugin : public TZObjects::TXPlugin
{
public:
    PlainPlugin() { PluginEvents.emplace_back("create"); }
    PlainPlugin(const PlainPlugin&) = delete;
    PlainPlugin& operator=(const PlainPlugin&) = delete;
    ~PlainPlugin() override { PluginEvents.emplace_back("destroy"); }
    void InitPlugin() override { PluginEvents.emplace_back("init"); }
};

} // namespace

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakePlainPlugin() { return new PlainPlugin; }

BOOST_DLL_ALIAS(MakePlainPlugin, GetTZPlugIn)
