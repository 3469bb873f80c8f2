#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/serve/StyleWatch.h>

using txmap::StyleWatch;

TEST(StyleWatch, TellsEachChangeOnce)
{
    const TemporaryFolder folder;
    StyleWatch watch(folder.Write("style.json", "1"));
    EXPECT_FALSE(watch.HasChanged());
    folder.Write("style.json", "22");
    // Somebody may still be writing.
    EXPECT_FALSE(watch.HasChanged());
    EXPECT_TRUE(watch.HasChanged());
    EXPECT_FALSE(watch.HasChanged());
}

TEST(StyleWatch, SeesFilesThatAreReplaced)
{
    const TemporaryFolder folder;
    StyleWatch watch(folder.Write("style.json", "1"));
    const std::string next = folder.Write("next", "2");
    std::filesystem::last_write_time(next, std::filesystem::last_write_time(folder / "style.json"));
    std::filesystem::rename(next, folder / "style.json");
    EXPECT_FALSE(watch.HasChanged());
    EXPECT_TRUE(watch.HasChanged());
    std::filesystem::remove(folder / "style.json");
    EXPECT_FALSE(watch.HasChanged());
    EXPECT_TRUE(watch.HasChanged());
    EXPECT_FALSE(watch.HasChanged());
}
