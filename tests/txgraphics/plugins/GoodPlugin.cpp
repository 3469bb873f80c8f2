// A plugin as it should be. Its version is set by the build, so that two of them can be told apart.
#include <algorithm>
#include <cstdlib>

#include <boost/dll/alias.hpp>
#include <txbase/TXRefPtr.h>

#include "../EngineDouble.h"
#include "PluginEvents.h"

std::vector<std::string> PluginEvents;

namespace
{

const char* EngineName()
{
    const char* const name = std::getenv(kEngineName);
    return name ? name : "Good";
}

class GoodEngine : public EngineDouble
{
public:
    GoodEngine() : EngineDouble(EngineName(), TX_TEST_PLUGIN_VERSION, "a double")
    {
        number = 1 + std::count_if(PluginEvents.begin(), PluginEvents.end(),
                                   [](const std::string& event) { return event.rfind("create", 0) == 0; });
        Note("create");
    }
    GoodEngine(const GoodEngine&) = delete;
    GoodEngine& operator=(const GoodEngine&) = delete;
    ~GoodEngine() override { Note("destroy"); }
    void InitPlugin() override { Note("init"); }
    void UnloadPlugin() override { Note("unload"); }

private:
    void Note(const std::string& event) const { PluginEvents.push_back(event + " " + std::to_string(number)); }

    long number = 0;
};

} // namespace

TZObjects::TXRefPtr<TZObjects::TXPlugin> MakeGoodPlugin() { return new GoodEngine; }

BOOST_DLL_ALIAS(MakeGoodPlugin, GetTZPlugIn)
