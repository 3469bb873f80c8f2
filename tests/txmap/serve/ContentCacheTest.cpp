#include <string>

#include <gtest/gtest.h>
#include <txmap/serve/ContentCache.h>

using namespace txmap;

namespace
{

ContentPointer Bytes(std::size_t count, char letter = 'a')
{
    return std::make_shared<Content>(std::string(count, letter), "image/png");
}

} // namespace

TEST(ContentCache, ForgetsWhatWasNotAskedForLongest)
{
    ContentCache cache(4000);
    cache.Keep("a", Bytes(1000));
    cache.Keep("b", Bytes(1000));
    EXPECT_TRUE(cache.Find("a"));
    cache.Keep("c", Bytes(1000));
    EXPECT_TRUE(cache.Find("a"));
    EXPECT_FALSE(cache.Find("b"));
    EXPECT_TRUE(cache.Find("c"));
    EXPECT_LE(cache.Bytes(), 4000u);
}

TEST(ContentCache, KeepsTheLastContentOfAKey)
{
    ContentCache cache(10000);
    cache.Keep("a", Bytes(1000));
    const std::size_t bytes = cache.Bytes();
    cache.Keep("a", Bytes(1000, 'b'));
    EXPECT_EQ(cache.Bytes(), bytes);
    EXPECT_EQ(cache.Find("a")->bytes[0], 'b');
    // Nothing that is larger than all pushes out the rest, but what it replaces is out of date.
    cache.Keep("b", Bytes(10));
    cache.Keep("a", Bytes(20000));
    EXPECT_FALSE(cache.Find("a"));
    EXPECT_TRUE(cache.Find("b"));
    cache.Clear();
    EXPECT_FALSE(cache.Find("b"));
    EXPECT_EQ(cache.Bytes(), 0u);
}

TEST(ContentCache, CountsMoreThanBytes)
{
    ContentCache cache(100000);
    for (int i = 0; i < 10000; ++i)
        cache.Keep(std::to_string(i), Bytes(0));
    EXPECT_LE(cache.Bytes(), 100000u);
    EXPECT_FALSE(cache.Find("0"));
    EXPECT_TRUE(cache.Find("9999"));
}

TEST(ContentCache, WithoutRoomKeepsNothing)
{
    ContentCache cache(0);
    cache.Keep("a", Bytes(1));
    EXPECT_FALSE(cache.Find("a"));
}

TEST(Content, HasATagOfItsBytes)
{
    EXPECT_EQ(Bytes(10)->tag, Bytes(10)->tag);
    EXPECT_NE(Bytes(10)->tag, Bytes(11)->tag);
    EXPECT_NE(Bytes(10)->tag, Bytes(10, 'b')->tag);
    EXPECT_EQ(Bytes(10)->tag.front(), '"');
    EXPECT_EQ(Bytes(10)->tag.back(), '"');
}

TEST(Content, IsRecognisedByItsTag)
{
    for (const char* const header : {"\"a\"", "W/\"a\"", "\"b\", \"a\"", "\"b\" ,W/\"a\" ", "*", " * "})
        EXPECT_TRUE(HasTag(header, "\"a\"")) << header;
    for (const char* const header : {"", "a", "\"ab\"", "\"b\"", ",", " ", "\"A\"", "w/\"a\""})
        EXPECT_FALSE(HasTag(header, "\"a\"")) << header;
}
