#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include "ManagerFixture.h"

using namespace TZObjects;
namespace fs = std::filesystem;

namespace
{

/// Where an event stands; the number of events if it is not there.
std::size_t Place(const std::vector<std::string>& events, const std::string& event)
{
    return static_cast<std::size_t>(std::find(events.begin(), events.end(), event) - events.begin());
}

} // namespace

TEST_F(PluginTest, LoadsByPath)
{
    Events& events = EventsOf("good");
    TXString error;
    {
        const TXRefPtr<TXGraphicsEngine> engine = manager->LoadPlugin(Plugin("good").c_str(), &error);
        ASSERT_TRUE(engine) << error.toUTF8();
        EXPECT_EQ(engine->GetName(), engineName);
        EXPECT_EQ(engine->GetVersion(), TXString("1"));
        EXPECT_EQ(engine, manager->Engine());
        EXPECT_EQ(engine->NewPen(), nullptr);
    }
    EXPECT_EQ(events, (Events{"create 1", "init 1"}));
    EXPECT_TRUE(manager->Engine());
}

TEST_F(PluginTest, LoadsByPathWithoutAskingForTheError) { EXPECT_TRUE(manager->LoadPlugin(Plugin("good").c_str())); }

TEST_F(PluginTest, LoadsByRelativePath)
{
    const fs::path relative = "." / fs::relative(Plugin("good"));
    EXPECT_TRUE(Load(manager, relative));
}

TEST_F(PluginTest, LoadsFromAFolderWithAnyName)
{
    const fs::path file = Folder("Straße 宋体 with spaces") / "libplugin.so";
    fs::copy_file(Plugin("good"), file);
    EXPECT_TRUE(Load(manager, file));
}

TEST_F(PluginTest, UnloadTellsThePluginBeforeItLetsGo)
{
    Events& events = EventsOf("good");
    Load(manager, Plugin("good"));
    manager->Unload();
    EXPECT_FALSE(manager->Engine());
    EXPECT_EQ(events, (Events{"create 1", "init 1", "unload 1", "destroy 1"}));
}

TEST_F(PluginTest, UnloadWithoutAnEngineDoesNothing)
{
    Events& events = EventsOf("good");
    manager->Unload();
    Load(manager, Plugin("good"));
    manager->Unload();
    manager->Unload();
    EXPECT_EQ(std::count(events.begin(), events.end(), "unload 1"), 1);
    EXPECT_EQ(std::count(events.begin(), events.end(), "destroy 1"), 1);
}

TEST_F(PluginTest, UnloadLeavesAnEngineThatSomebodyHolds)
{
    Events& events = EventsOf("good");
    TXRefPtr<TXGraphicsEngine> engine = Load(manager, Plugin("good"));
    manager->Unload();
    EXPECT_EQ(events, (Events{"create 1", "init 1", "unload 1"}));
    EXPECT_EQ(engine->GetName(), engineName);
    engine = nullptr;
    EXPECT_EQ(events, (Events{"create 1", "init 1", "unload 1", "destroy 1"}));
}

TEST_F(PluginTest, TheCodeStaysAsLongAsTheEngineIsHeld)
{
    // A file of its own, which nothing else keeps mapped; and a process of its own, which may crash.
    const fs::path file = Folder("own") / "libown.so";
    fs::copy_file(Plugin("good"), file);
    EXPECT_EXIT(
        {
            TXRefPtr<TXGraphicsEngine> engine = Load(manager, file);
            manager->Unload();
            const bool works = engine->NewPen() == nullptr && engine->GetName() == engineName;
            engine = nullptr;
            std::_Exit(works ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(PluginTest, LoadsAgainAfterUnload)
{
    Events& events = EventsOf("good");
    Load(manager, Plugin("good"));
    manager->Unload();
    Load(manager, Plugin("good"));
    EXPECT_TRUE(manager->Engine());
    EXPECT_EQ(events, (Events{"create 1", "init 1", "unload 1", "destroy 1", "create 2", "init 2"}));
}

TEST_F(PluginTest, ReplacesTheEngineThatWasThere)
{
    Events& events = EventsOf("good");
    Load(manager, Plugin("good"));
    const TXRefPtr<TXGraphicsEngine> second = Load(manager, Plugin("good"));
    EXPECT_EQ(manager->Engine(), second);
    EXPECT_EQ(events.size(), 6u);
    EXPECT_LT(Place(events, "init 1"), Place(events, "create 2"));
    EXPECT_LT(Place(events, "unload 1"), Place(events, "destroy 1"));
    EXPECT_LT(Place(events, "destroy 1"), events.size());
    EXPECT_LT(Place(events, "create 2"), Place(events, "init 2"));
    EXPECT_LT(Place(events, "init 2"), events.size());
}

TEST_F(PluginTest, ReplacesAnEngineOfAnotherFile)
{
    Events& first = EventsOf("good");
    Events& second = EventsOf("good2");
    Load(manager, Plugin("good"));
    const TXRefPtr<TXGraphicsEngine> engine = Load(manager, Plugin("good2"));
    EXPECT_EQ(engine->GetVersion(), TXString("2"));
    EXPECT_EQ(manager->Engine(), engine);
    EXPECT_EQ(first, (Events{"create 1", "init 1", "unload 1", "destroy 1"}));
    EXPECT_EQ(second, (Events{"create 1", "init 1"}));
}

TEST_F(PluginTest, TheEnginesNameLeadsToItsManager)
{
    Load(manager, Plugin("good"));
    EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), manager);
    manager->Unload();
    EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), manager);
    EXPECT_EQ(Current(), manager);
}

TEST_F(PluginTest, AManagerThatIsNotCurrentMayLoad)
{
    const TXString name = Unique("other");
    TXGraphicsEngineManager* const other = TXGraphicsEngineManager::instance(name);
    const TXRefPtr<TXGraphicsEngine> engine = Load(other, Plugin("good"));
    EXPECT_EQ(other->Engine(), engine);
    EXPECT_FALSE(manager->Engine());
    EXPECT_EQ(Current(), manager);
    EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), other);
    EXPECT_EQ(TXGraphicsEngineManager::instance(name), other);
}

TEST_F(PluginTest, AManagerThatHasTheNameAlreadyGetsTheEngineAndBecomesCurrent)
{
    TXGraphicsEngineManager* const keeper = TXGraphicsEngineManager::instance(engineName);
    keeper->SetDefaultImageFormat(6);
    const TXRefPtr<TXGraphicsEngine> engine = Load(manager, Plugin("good"));
    EXPECT_EQ(keeper->Engine(), engine);
    EXPECT_FALSE(manager->Engine());
    EXPECT_EQ(Current(), keeper);
    EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), keeper);
    EXPECT_EQ(keeper->DefaultImageFormat(), 6);
    EXPECT_EQ(manager->DefaultImageFormat(), 5);
}

TEST_F(PluginTest, AManagerThatHasTheNameAlreadyDoesNotBecomeCurrentInPlaceOfAThird)
{
    TXGraphicsEngineManager* const keeper = TXGraphicsEngineManager::instance(engineName);
    TXGraphicsEngineManager* const loader = TXGraphicsEngineManager::instance(Unique("other"));
    const TXRefPtr<TXGraphicsEngine> engine = Load(loader, Plugin("good"));
    EXPECT_EQ(keeper->Engine(), engine);
    EXPECT_FALSE(loader->Engine());
    EXPECT_FALSE(manager->Engine());
    EXPECT_EQ(Current(), manager);
}

TEST_F(PluginTest, TheSecondManagerThatLoadsAnEngineHandsItToTheFirst)
{
    Events& events = EventsOf("good");
    TXGraphicsEngineManager* const other = TXGraphicsEngineManager::instance(Unique("other"));
    Load(manager, Plugin("good"));
    const TXRefPtr<TXGraphicsEngine> engine = Load(other, Plugin("good"));
    EXPECT_EQ(manager->Engine(), engine);
    EXPECT_FALSE(other->Engine());
    EXPECT_EQ(Current(), manager);
    EXPECT_LT(Place(events, "unload 1"), Place(events, "destroy 1"));
    EXPECT_LT(Place(events, "init 2"), events.size());
}

TEST_F(PluginTest, TwoManagersMayKeepEnginesOfDifferentNames)
{
    TXGraphicsEngineManager* const other = TXGraphicsEngineManager::instance(Unique("other"));
    const TXRefPtr<TXGraphicsEngine> first = Load(manager, Plugin("good"));
    const TXString otherName = Unique("engine");
    const EnvironmentVariable name("TX_TEST_ENGINE_NAME", otherName.toUTF8().c_str());
    const TXRefPtr<TXGraphicsEngine> second = Load(other, Plugin("good2"));
    EXPECT_EQ(manager->Engine(), first);
    EXPECT_EQ(other->Engine(), second);
    EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), manager);
    EXPECT_EQ(TXGraphicsEngineManager::instance(otherName), other);
    other->Unload();
    EXPECT_EQ(manager->Engine(), first);
}
