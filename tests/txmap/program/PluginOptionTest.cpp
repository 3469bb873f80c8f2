#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;
namespace fs = std::filesystem;

TEST(ListPlugins, PrintsPathNameAndVersion)
{
    const ProgramRun run = RunTxmap({"--list-plugins"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr("libtxpluginqt.so\tQT\t0.1\n"));
}

TEST(ListPlugins, LooksInTheFoldersOfTheEnvironmentAndSkipsWhatIsNoPlugin)
{
    const TemporaryFolder folder;
    fs::copy_file(TX_TEST_PLUGIN, folder / "libcopy.so");
    folder.Write("libtext.so", "no plugin");
    const ProgramRun run = RunTxmap({"--list-plugins"}, {"TX_PLUGIN_PATH=" + folder.Path().string()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, HasSubstr((folder / "libcopy.so") + "\tQT\t0.1\n"));
    EXPECT_THAT(run.output, ::testing::Not(HasSubstr("libtext.so")));
}

TEST(ListPlugins, WithoutAnyPluginNamesTheFolders)
{
    // Plugins are looked for beside the graphics library, so a copy of it elsewhere finds none.
    const TemporaryFolder folder;
    for (const fs::path library : {TX_TEST_TXBASE, TX_TEST_TXGRAPHICS})
        fs::copy_file(library, folder.Path() / library.filename());
    const ProgramRun run = RunTxmap({"--list-plugins"}, {"LD_LIBRARY_PATH=" + folder.Path().string()});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "txmap: no plugin can be loaded from " + (folder / "txplugins") + "\n");
}

TEST(PluginOption, TakesAPath)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunTxmap({DataFile("countries-110m.json"), "--size", "64x32", "--plugin", TX_TEST_PLUGIN,
                                     "--output", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_TRUE(fs::exists(folder / "map.png"));
}

TEST(PluginOption, TakesANameFromTheFoldersOfTheEnvironment)
{
    const TemporaryFolder folder;
    fs::copy_file(TX_TEST_PLUGIN, folder / "libmine.so");
    const ProgramRun run = RunTxmap(
        {DataFile("countries-110m.json"), "--size", "64x32", "--plugin", "mine", "--output", folder / "map.png"},
        {"TX_PLUGIN_PATH=" + folder.Path().string()});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
}
