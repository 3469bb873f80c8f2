#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/serve/MapRequest.h>

using namespace txmap;
using ::testing::HasSubstr;

namespace
{

int StatusOf(const std::string& target)
{
    const MapRequest request = ReadTarget(target);
    const auto* const bad = std::get_if<BadRequest>(&request);
    return bad ? bad->status : 200;
}

} // namespace

TEST(MapRequest, ReadsTiles)
{
    const auto tile = std::get<TileRequest>(ReadTarget("/3/7/5.png"));
    EXPECT_EQ(tile.zoom, 3);
    EXPECT_EQ(tile.column, 7);
    EXPECT_EQ(tile.row, 5);
    EXPECT_EQ(tile.scale, 1);
    EXPECT_EQ(tile.version, "");
    const auto sharp = std::get<TileRequest>(ReadTarget("/0/0/0@2x.png?v=17"));
    EXPECT_EQ(sharp.scale, 2);
    EXPECT_EQ(sharp.version, "17");
    EXPECT_EQ(StatusOf("/22/4194303/4194303.png"), 200);
}

TEST(MapRequest, RefusesWhatIsNoTile)
{
    for (const char* const target : {"/3/8/0.png",
                                     "/3/0/8.png",
                                     "/23/0/0.png",
                                     "/3/-1/0.png",
                                     "/-1/0/0.png",
                                     "/3/00/0.png",
                                     "/03/0/0.png",
                                     "/3/+1/0.png",
                                     "/3/1.0/0.png",
                                     "/3/0/0.jpg",
                                     "/3/0/0",
                                     "/3/0/0@3x.png",
                                     "/3/0/0@2x@2x.png",
                                     "/3/0.png",
                                     "/3/0/0/0.png",
                                     "/3//0/0.png",
                                     "/3/0/0.png/",
                                     "/99999999999/0/0.png",
                                     "/3/99999999999999999999/0.png",
                                     "/3/0/%30.png",
                                     "/3/0/../0/0.png",
                                     "/3/0x1/0.png",
                                     "/3/ 1/0.png"})
        EXPECT_EQ(StatusOf(target), 404) << target;
    for (const char* const target : {"/3/0/0.png?w=1", "/3/0/0.png?v=1&v=2", "/3/0/0.png?v", "/3/0/0.png?v=%zz"})
        EXPECT_EQ(StatusOf(target), 400) << target;
}

TEST(MapRequest, ReadsViews)
{
    const auto view = std::get<ViewRequest>(ReadTarget("/render?bbox=-10.5,35,30,60&size=640x480&scale=2"));
    EXPECT_EQ(view.box.west, -10.5);
    EXPECT_EQ(view.box.north, 60.0);
    EXPECT_EQ(view.size.width, 640);
    EXPECT_EQ(view.size.height, 480);
    EXPECT_EQ(view.scale, 2);
    const auto encoded = std::get<ViewRequest>(ReadTarget("/render?size=2048x1&bbox=170%2C-10%2c-170%2C10"));
    EXPECT_EQ(encoded.box.east, 190.0);
    EXPECT_EQ(encoded.scale, 1);
}

TEST(MapRequest, RefusesWhatIsNoView)
{
    const std::string box = "/render?bbox=0,0,10,10";
    const std::string size = "/render?size=100x100&bbox=";
    for (const std::string& target : {std::string("/render"),
                                      box,
                                      size,
                                      box + "&size=",
                                      box + "&size=2049x10",
                                      box + "&size=10x2049",
                                      box + "&size=0x10",
                                      box + "&size=-5x10",
                                      box + "&size=10",
                                      box + "&size=1025x10&scale=2",
                                      box + "&size=10x10&scale=3",
                                      box + "&size=10x10&scale=nan",
                                      box + "&size=10x10&size=10x10",
                                      box + "&size=10x10&zoom=3",
                                      box + "&size=1e3x10",
                                      size + "1,2,3",
                                      size + "1,2,3,4,5",
                                      size + "0,0,0,0",
                                      size + "nan,0,1,1",
                                      size + "0,0,inf,1",
                                      size + "0,10,10,0",
                                      size + "0,0,10,91",
                                      size + "-361,0,10,10",
                                      size + "0,86,10,90",
                                      size + "a,b,c,d",
                                      size + "0,0,10,10%",
                                      size + "0,0,10,10%00"})
        EXPECT_EQ(StatusOf(target), 400) << target;
    const MapRequest large = ReadTarget(box + "&size=2049x10");
    EXPECT_THAT(std::get<BadRequest>(large).reason, HasSubstr("2048"));
}

TEST(MapRequest, KnowsItsOtherPages)
{
    EXPECT_TRUE(std::holds_alternative<StyleRequest>(ReadTarget("/style.json")));
    EXPECT_TRUE(std::holds_alternative<HealthRequest>(ReadTarget("/health")));
    EXPECT_TRUE(std::holds_alternative<StateRequest>(ReadTarget("/state")));
    EXPECT_EQ(std::get<FileRequest>(ReadTarget("/")).name, "");
    EXPECT_EQ(std::get<FileRequest>(ReadTarget("/page.js")).name, "page.js");
    for (const char* const target :
         {"/../etc/passwd", "/a/b", "/%2e%2e/x", "//", "/.%2f", "/a\\b", "/page.js/", "/~", "/a_b"})
        EXPECT_EQ(StatusOf(target), 404) << target;
    for (const char* const target : {"/health?x=1", "/?a=b", "", "x"})
        EXPECT_EQ(StatusOf(target), 400) << target;
}
