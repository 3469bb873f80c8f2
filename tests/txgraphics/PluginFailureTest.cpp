#include <dlfcn.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include "ManagerFixture.h"

using namespace TZObjects;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
namespace fs = std::filesystem;

namespace
{

/// What the system's loader says of a file, without the file's name.
std::string LoadersText(const fs::path& file)
{
    dlerror();
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library)
    {
        dlclose(library);
        return "the file can be loaded";
    }
    const std::string text = dlerror();
    const std::string prefix = file.string() + ": ";
    return text.rfind(prefix, 0) == 0 ? text.substr(prefix.size()) : text;
}

constexpr char kBoostsText[] = "Bad file descriptor";

} // namespace

TEST_F(PluginTest, AMissingFileIsNamed)
{
    const fs::path file = Folder("empty") / "libnothing.so";
    const std::string error = Failure(file.c_str());
    EXPECT_THAT(error, HasSubstr(file.string()));
    EXPECT_THAT(error, HasSubstr("no such file"));
    EXPECT_THAT(error, Not(HasSubstr(kBoostsText)));
}

TEST_F(PluginTest, AFolderIsNoPlugin)
{
    const fs::path file = Folder("libfolder.so");
    const std::string error = Failure(file.c_str());
    EXPECT_THAT(error, HasSubstr(file.string()));
    EXPECT_THAT(error, HasSubstr("not a file"));
}

TEST_F(PluginTest, APipeIsNoPluginAndIsNotWaitedFor)
{
    const fs::path file = Folder("pipe") / "libpipe.so";
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    const std::string error = Failure(file.c_str());
    EXPECT_THAT(error, HasSubstr(file.string()));
    EXPECT_THAT(error, HasSubstr("not a file"));
}

TEST_F(PluginTest, ATextFileFailsWithTheLoadersOwnText)
{
    // The loader has one text for a file shorter than a library's header, and another for a longer one.
    for (const std::size_t length : {0u, 10u, 5000u})
    {
        const fs::path file = Folder("text") / ("libtext" + std::to_string(length) + ".so");
        WriteText(file, length);
        const std::string error = Failure(file.c_str());
        EXPECT_THAT(error, HasSubstr(file.string()));
        EXPECT_THAT(error, HasSubstr(LoadersText(file)));
        EXPECT_THAT(error, Not(HasSubstr(kBoostsText)));
    }
}

TEST_F(PluginTest, TheFileIsNamedOnceWhenTheLoaderNamesItAsWell)
{
    const fs::path file = Folder("text") / "libtext.so";
    WriteText(file, 5000);
    const std::string error = Failure(file.c_str());
    EXPECT_THAT(error, EndsWith(file.string() + ": cannot be loaded: " + LoadersText(file)));
    const std::size_t first = error.find(file.string());
    ASSERT_NE(first, std::string::npos) << error;
    EXPECT_EQ(error.find(file.string(), first + 1), std::string::npos) << error;
}

TEST_F(PluginTest, AnUnresolvedSymbolIsNamedByTheLoader)
{
    const std::string error = Failure(Plugin("unresolved").c_str());
    EXPECT_THAT(error, HasSubstr(Plugin("unresolved").string()));
    EXPECT_THAT(error, HasSubstr("TXTestFunctionThatIsNowhere"));
    EXPECT_THAT(error, Not(HasSubstr(kBoostsText)));
}

TEST_F(PluginTest, ALibraryWithoutTheEntryIsNoPlugin)
{
    const std::string error = Failure(Plugin("noentry").c_str());
    EXPECT_THAT(error, HasSubstr(Plugin("noentry").string()));
    EXPECT_THAT(error, HasSubstr("GetTZPlugIn"));
    EXPECT_THAT(error, Not(HasSubstr("boost")));
}

TEST_F(PluginTest, AnEntryThatLeadsNowhereFails)
{
    EXPECT_THAT(Failure(Plugin("nullentry").c_str()), HasSubstr(Plugin("nullentry").string()));
}

TEST_F(PluginTest, AnEntryThatMakesNothingFails)
{
    const std::string error = Failure(Plugin("null").c_str());
    EXPECT_THAT(error, HasSubstr(Plugin("null").string()));
    EXPECT_THAT(error, HasSubstr("no graphics engine"));
}

TEST_F(PluginTest, APluginThatIsNoEngineFailsAndIsReleased)
{
    const Events& events = EventsOf("plain");
    const std::string error = Failure(Plugin("plain").c_str());
    EXPECT_THAT(error, HasSubstr(Plugin("plain").string()));
    EXPECT_THAT(error, HasSubstr("no graphics engine"));
    EXPECT_EQ(events, (Events{"create", "destroy"}));
}

TEST_F(PluginTest, APluginThatIsNoEngineIsReleasedWhileItsCodeIsThere)
{
    // Nothing else keeps this one mapped.
    const fs::path file = Folder("own") / "libown.so";
    fs::copy_file(Plugin("plain"), file);
    EXPECT_THAT(Failure(file.c_str()), HasSubstr(file.string()));
}

TEST_F(PluginTest, AnEntryThatThrowsFailsWithItsText)
{
    const std::string error = Failure(Plugin("throwing").c_str());
    EXPECT_THAT(error, HasSubstr(Plugin("throwing").string()));
    EXPECT_THAT(error, HasSubstr("the licence of this plugin ran out"));
}

TEST_F(PluginTest, AnEntryThatThrowsANumberFails)
{
    EXPECT_THAT(Failure(Plugin("throwingnumber").c_str()), HasSubstr(Plugin("throwingnumber").string()));
}

TEST_F(PluginTest, AnInitialisationThatThrowsFailsAndLeavesNoEngine)
{
    EXPECT_THAT(Failure(Plugin("throwinginit").c_str()), HasSubstr(Plugin("throwinginit").string()));
    EXPECT_FALSE(manager->Engine());
}

TEST_F(PluginTest, AnEndThatThrowsIsAnEndAllTheSame)
{
    ASSERT_EQ(setenv("TX_TEST_INIT_WORKS", "1", 1), 0);
    EXPECT_TRUE(manager->LoadPlugin(Plugin("throwinginit").c_str()));
    unsetenv("TX_TEST_INIT_WORKS");
    EXPECT_NO_THROW(manager->Unload());
    EXPECT_FALSE(manager->Engine());
}

TEST_F(PluginTest, AnEmptyNameFails) { EXPECT_FALSE(Failure("").empty()); }

TEST_F(PluginTest, FailureNeedsNoErrorText)
{
    EXPECT_FALSE(manager->LoadPlugin("/nowhere/libnothing.so"));
    EXPECT_FALSE(manager->LoadPlugin("nothing"));
    EXPECT_FALSE(manager->LoadPlugin(Plugin("null").c_str()));
}

TEST_F(PluginTest, FailureWithoutAnEngineLeavesNone)
{
    for (const char* const plugin : {"noentry", "null", "nullentry", "plain", "throwing", "unresolved"})
    {
        Failure(Plugin(plugin).c_str());
        EXPECT_FALSE(manager->Engine());
        EXPECT_EQ(Current(), manager);
    }
}

TEST_F(PluginTest, FailureChangesNothing)
{
    Events& events = EventsOf("good");
    manager->SetDefaultImageFormat(6);
    const TXRefPtr<TXGraphicsEngine> engine = Load(manager, Plugin("good"));
    const fs::path text = Folder("text") / "libtext.so";
    WriteText(text, 200);
    for (const fs::path& file :
         {Plugin("noentry"), Plugin("null"), Plugin("nullentry"), Plugin("plain"), Plugin("throwing"),
          Plugin("unresolved"), Plugin("missing"), Folder("libfolder.so"), text, fs::path("by-name")})
    {
        SCOPED_TRACE(file);
        Failure(file.c_str());
        EXPECT_EQ(manager->Engine(), engine);
        EXPECT_EQ(Current(), manager);
        EXPECT_EQ(TXGraphicsEngineManager::instance(engineName), manager);
        EXPECT_EQ(manager->DefaultImageFormat(), 6);
        EXPECT_EQ(events, (Events{"create 1", "init 1"}));
    }
}
