// What is kept of values that were asked for.
#include <string>

#include <gtest/gtest.h>
#include <txmap/support/RecentCache.h>

namespace
{

using Cache = txmap::RecentCache<int, std::string>;

std::shared_ptr<const std::string> Text(const char* text) { return std::make_shared<const std::string>(text); }

TEST(RecentCache, ForgetsWhatWasNotAskedForLongest)
{
    Cache cache(30);
    for (const int key : {1, 2, 3})
        cache.Keep(key, Text("kept"), 10);
    EXPECT_TRUE(cache.Find(1));
    cache.Keep(4, Text("new"), 10);
    EXPECT_TRUE(cache.Find(1));
    EXPECT_FALSE(cache.Find(2));
    EXPECT_EQ(cache.Bytes(), 30u);
    cache.Keep(5, Text("large"), 25);
    EXPECT_FALSE(cache.Find(1));
    EXPECT_EQ(*cache.Find(5), "large");
    EXPECT_EQ(cache.Bytes(), 25u);
}

TEST(RecentCache, ReplacesAValueAlsoByOneThatHasNoRoom)
{
    Cache cache(30);
    cache.Keep(1, Text("old"), 10);
    cache.Keep(1, Text("new"), 20);
    EXPECT_EQ(*cache.Find(1), "new");
    EXPECT_EQ(cache.Bytes(), 20u);
    cache.Keep(1, Text("too large"), 31);
    EXPECT_FALSE(cache.Find(1));
    EXPECT_EQ(cache.Bytes(), 0u);
}

TEST(RecentCache, LeavesValuesToThoseWhoUseThem)
{
    Cache cache(10);
    cache.Keep(1, Text("used"), 10);
    const std::shared_ptr<const std::string> used = cache.Find(1);
    cache.Clear();
    EXPECT_FALSE(cache.Find(1));
    EXPECT_EQ(*used, "used");
}

} // namespace
