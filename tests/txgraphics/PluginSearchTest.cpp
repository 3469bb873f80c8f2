#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txgraphics/TXGraphicsEngineManager.h>

#include "ManagerFixture.h"

using namespace TZObjects;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

namespace
{

using Paths = std::vector<fs::path>;

Paths ToPaths(const std::vector<TXString>& texts)
{
    Paths paths;
    for (const TXString& text : texts)
        paths.emplace_back(text.toUTF8());
    return paths;
}

/// The folder that is searched after all others.
fs::path InstalledFolder() { return fs::path(TX_TEST_LIBRARY_FOLDER) / "txplugins"; }

class PluginSearchTest : public PluginTest
{
protected:
    PluginSearchTest() : a(Folder("a")), b(Folder("b")) {}

    /// What is found in this case's folders; the installed folder may hold any number of plugins.
    Paths Found() const
    {
        Paths found = ToPaths(TXGraphicsEngineManager::FindPlugins());
        found.erase(std::remove_if(found.begin(), found.end(),
                                   [this](const fs::path& file)
                                   { return file.string().rfind(a.parent_path().string(), 0) != 0; }),
                    found.end());
        return found;
    }

    const fs::path a;
    const fs::path b;
};

} // namespace

TEST_F(PluginSearchTest, WithoutTheVariableOnlyTheInstalledFolderIsSearched)
{
    const Paths folders = ToPaths(TXGraphicsEngineManager::PluginSearchPath());
    ASSERT_EQ(folders.size(), 1u);
    EXPECT_EQ(fs::weakly_canonical(folders[0]), fs::weakly_canonical(InstalledFolder()));
}

TEST_F(PluginSearchTest, TheVariablesFoldersComeFirstAndInOrder)
{
    searchPath.Set(b.string() + ":" + a.string() + ":/nowhere");
    const Paths folders = ToPaths(TXGraphicsEngineManager::PluginSearchPath());
    ASSERT_EQ(folders.size(), 4u);
    EXPECT_EQ(folders[0], b);
    EXPECT_EQ(folders[1], a);
    EXPECT_EQ(folders[2], "/nowhere");
    EXPECT_EQ(fs::weakly_canonical(folders[3]), fs::weakly_canonical(InstalledFolder()));
}

TEST_F(PluginSearchTest, EmptyEntriesAreSkipped)
{
    for (const std::string& value : {std::string(), std::string(":"), std::string("::")})
    {
        searchPath.Set(value);
        EXPECT_EQ(TXGraphicsEngineManager::PluginSearchPath().size(), 1u);
    }
    searchPath.Set("::" + a.string() + "::" + b.string() + ":");
    const Paths folders = ToPaths(TXGraphicsEngineManager::PluginSearchPath());
    ASSERT_EQ(folders.size(), 3u);
    EXPECT_EQ(folders[0], a);
    EXPECT_EQ(folders[1], b);
}

TEST_F(PluginSearchTest, TheVariableIsReadAtEachCall)
{
    searchPath.Set(a.string());
    EXPECT_EQ(TXGraphicsEngineManager::PluginSearchPath().size(), 2u);
    searchPath.Set(a.string() + ":" + b.string());
    EXPECT_EQ(TXGraphicsEngineManager::PluginSearchPath().size(), 3u);
}

TEST_F(PluginSearchTest, LoadsByName)
{
    fs::copy_file(Plugin("good"), b / "libbackend.so");
    searchPath.Set(":" + a.string() + "::/nowhere:" + b.string());
    TXString error;
    const TXRefPtr<TXGraphicsEngine> engine = manager->LoadPlugin("backend", &error);
    ASSERT_TRUE(engine) << error.toUTF8();
    EXPECT_EQ(engine->GetName(), engineName);
    EXPECT_EQ(manager->Engine(), engine);
}

TEST_F(PluginSearchTest, LoadsByNameFromTheFirstFolderThatHasIt)
{
    fs::copy_file(Plugin("good"), a / "libbackend.so");
    fs::copy_file(Plugin("good2"), b / "libbackend.so");
    searchPath.Set(a.string() + ":" + b.string());
    TXRefPtr<TXGraphicsEngine> engine = manager->LoadPlugin("backend");
    ASSERT_TRUE(engine);
    EXPECT_EQ(engine->GetVersion(), TXString("1"));
    searchPath.Set(b.string() + ":" + a.string());
    engine = manager->LoadPlugin("backend");
    ASSERT_TRUE(engine);
    EXPECT_EQ(engine->GetVersion(), TXString("2"));
}

TEST_F(PluginSearchTest, LoadsByNameFromAFolderWithAnyName)
{
    const fs::path folder = Folder("Straße 宋体");
    fs::copy_file(Plugin("good"), folder / "libbäckend.so");
    searchPath.Set(folder.string());
    TXString error;
    EXPECT_TRUE(manager->LoadPlugin(L"bäckend", &error)) << error.toUTF8();
    EXPECT_EQ(Found(), (Paths{folder / "libbäckend.so"}));
}

TEST_F(PluginSearchTest, AnUnknownNameFailsWithAllThatWasTried)
{
    searchPath.Set(a.string() + ":" + b.string());
    const std::string error = Failure("backend");
    const std::size_t inA = error.find((a / "libbackend.so").string());
    const std::size_t inB = error.find((b / "libbackend.so").string());
    const std::size_t installed = error.find("txplugins/libbackend.so");
    ASSERT_NE(inA, std::string::npos) << error;
    ASSERT_NE(inB, std::string::npos) << error;
    ASSERT_NE(installed, std::string::npos) << error;
    EXPECT_LT(inA, inB);
    EXPECT_LT(inB, installed);
    EXPECT_THAT(error, HasSubstr("no such"));
}

TEST_F(PluginSearchTest, AFileThatIsFoundByNameButIsNoPluginIsNamed)
{
    WriteText(a / "libbackend.so", 100);
    searchPath.Set(a.string());
    EXPECT_THAT(Failure("backend"), HasSubstr((a / "libbackend.so").string()));
}

TEST_F(PluginSearchTest, APathIsNotLookedUp)
{
    fs::create_directory(a / "sub");
    fs::copy_file(Plugin("good"), a / "sub" / "libbackend.so");
    searchPath.Set(a.string());
    EXPECT_THAT(Failure("sub/libbackend.so"), HasSubstr("sub/libbackend.so"));
    EXPECT_THAT(Failure("./libbackend.so"), HasSubstr("./libbackend.so"));
}

TEST_F(PluginSearchTest, FindsPluginsInTheOrderOfThePathAndSortedWithinAFolder)
{
    for (const char* const name : {"libc.so", "liba.so", "libb.so"})
        WriteText(a / name, 1);
    for (const char* const name : {"libz.so", "libb.so"})
        WriteText(b / name, 1);
    searchPath.Set(b.string() + ":/nowhere:" + a.string());
    EXPECT_EQ(Found(), (Paths{b / "libb.so", b / "libz.so", a / "liba.so", a / "libb.so", a / "libc.so"}));
    searchPath.Set(a.string() + ":" + b.string());
    EXPECT_EQ(Found(), (Paths{a / "liba.so", a / "libb.so", a / "libc.so", b / "libb.so", b / "libz.so"}));
}

TEST_F(PluginSearchTest, FindsOnlyWhatLooksLoadable)
{
    for (const char* const name : {"libplugin.so", "plugin.so", "libplugin.so.1", "libplugin.txt", "libplugin",
                                   "mylibplugin.so", "libplugin.so~"})
        WriteText(a / name, 1);
    fs::create_directory(a / "libfolder.so");
    fs::create_symlink(a / "libplugin.so", a / "liblink.so");
    fs::create_symlink(a / "nothing", a / "libbroken.so");
    searchPath.Set(a.string());
    EXPECT_EQ(Found(), (Paths{a / "liblink.so", a / "libplugin.so"}));
}

TEST_F(PluginSearchTest, FindsNothingInAFileThatStandsForAFolder)
{
    WriteText(a / "file", 1);
    searchPath.Set((a / "file").string());
    EXPECT_EQ(Found(), Paths());
}

TEST_F(PluginSearchTest, WhatIsFoundCanBeLoaded)
{
    fs::copy_file(Plugin("good"), a / "libbackend.so");
    searchPath.Set(a.string());
    const std::vector<TXString> found = TXGraphicsEngineManager::FindPlugins();
    ASSERT_FALSE(found.empty());
    EXPECT_TRUE(manager->LoadPlugin(found[0]));
}

TEST_F(PluginSearchTest, FindingLoadsNothing)
{
    const Events& events = EventsOf("good");
    searchPath.Set(Plugin("good").parent_path().string());
    EXPECT_GE(TXGraphicsEngineManager::FindPlugins().size(), 2u);
    EXPECT_EQ(events, Events());
    EXPECT_FALSE(manager->Engine());
}
