#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Label, OfAPlaceStandsBesideIt)
{
    const Difference ink = InkOf("\"Nairobi\"");
    EXPECT_GT(ink.pixels, 100);
    EXPECT_LT(ink.width, 100);
    EXPECT_LT(ink.height, 25);
}

TEST(Label, WithoutTextLeavesTheBarePlace)
{
    for (const char* const name : {"\"\"", "\"  \"", "\"<BOL></BOL>\""})
        EXPECT_EQ(InkOf(name).pixels, 0) << name;
}

TEST(Label, ShowsForeignTagsAndEntitiesAsTheyStandInTheData)
{
    // As wide as a label of the same letters, with harmless ones in place of those that mean something.
    for (const auto& [name, alike] : {std::pair{"\"<b>xyz</b>\"", "\"+b+xyz+/b+\""},
                                      {"\"<img src=a.png>\"", "\"+img src=a.png+\""},
                                      {"\"a < b\"", "\"a + b\""},
                                      {"\"a & b\"", "\"a @ b\""},
                                      {"\"&lt;x&lt;\"", "\"Blt;xBlt;\""},
                                      {"\"x &amp; y\"", "\"x Bamp; y\""},
                                      {"\"<Bol>x</Bol>\"", "\"+Bol+x+/Bol+\""},
                                      {"\"<table><tr><td>x\"", "\"+table++tr++td+x\""}})
        ExpectAbout(InkOf(name).width, InkOf(alike).width, 0.2, name);
}

TEST(Label, InterpretsLabelTagsAndShowsNone)
{
    const Difference plain = InkOf("\"xyzzy\"");
    for (const char* const name : {"\"<ITA>xyzzy</ITA>\"", "\"<bol>xyzzy</bol>\"", "\"<und>xyzzy</und>\"",
                                   "\"xyz<BOL></BOL>zy\"", "\"</scp>xyzzy\"", "\"<BOL>xyzzy\"", "\"<scp>XYZZY</scp>\""})
        ExpectAbout(InkOf(name).width, plain.width, 0.3, name);
    EXPECT_GT(InkOf("\"<BOL>xyzzy</BOL>\"").width, InkOf("\"<ITA></ITA>xyzzy\"").width);
    EXPECT_GT(InkOf("\"<UND>xyzzy</UND>\"").pixels, InkOf("\"<ITA></ITA>xyzzy\"").pixels);
}

TEST(Label, OpensNoFile)
{
    // Whoever opened this pipe would wait for ever.
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_GT(InkOf("\"<BOL>x</BOL><img src='" + (folder / "pipe") + "'>\"").pixels, 0);
}

TEST(Label, HasTheLinesOfItsName)
{
    ExpectAbout(InkOf("\"one\\ntwo\"").height, 2 * InkOf("\"one\"").height, 0.35, "two lines");
    EXPECT_LT(InkOf("\"one\\ntwo\"").width, InkOf("\"one two\"").width);
}

TEST(Label, MayBeANumber) { ExpectAbout(InkOf("1234567").width, InkOf("\"1234567\"").width, 0.0, "number"); }

TEST(Label, MayBeInAnyScript)
{
    for (const char* const name : {"\"北京市\"", "\"القاهرة\"", "\"Ελλάδα\"", "\"Россия\"", "\"Łódź\""})
    {
        const Difference ink = InkOf(name);
        EXPECT_GT(ink.pixels, 80) << name;
        EXPECT_LT(ink.width, 120) << name;
    }
}

TEST(Label, IsCutWhenItIsVeryLong)
{
    const auto draw = [](const std::string& name) {
        return DrawPlace("\"" + name + "\"", {"--label-size", "5", "--bbox", "-180,-1,180,1"}, "8000x100");
    };
    const Picture cut = draw(std::string(5000, 'i'));
    EXPECT_EQ(Compare(cut, draw(std::string(499, 'i') + "…")).pixels, 0);
    EXPECT_GT(Compare(cut, draw("")).pixels, 1000);
    // Where there is no room, there is neither name nor place.
    EXPECT_LT(InkOf("\"" + std::string(5000, 'm') + "\"").width, 12);
}

TEST(LabelHalo, HasTheWantedWidthAndColour)
{
    const Picture red = DrawPlace("\"Nairobi\"", {"--label-halo", "3:#ff0000"});
    const auto redPixels =
        std::count_if(red.Pixels().begin(), red.Pixels().end(),
                      [](const Pixel& pixel) { return pixel[0] > 240 && pixel[1] < 20 && pixel[2] < 20; });
    EXPECT_GT(redPixels, 150);
    EXPECT_GT(InkOf("\"Nairobi\"", {"--label-halo", "4:red"}).height,
              InkOf("\"Nairobi\"", {"--label-halo", "1:red"}).height + 4);
    const Picture none = DrawPlace("\"Nairobi\"", {"--label-halo", "0:#ff0000"});
    for (const Pixel& pixel : none.Pixels())
        ASSERT_FALSE(pixel[0] > 200 && pixel[1] < 60 && pixel[2] < 60);
}

TEST(LabelHalo, IsDrawnAroundFormattedLabelsToo)
{
    const Picture red = DrawPlace("\"<BOL>Nairobi</BOL>\"", {"--label-halo", "3:#ff0000"});
    EXPECT_GT(std::count_if(red.Pixels().begin(), red.Pixels().end(),
                            [](const Pixel& pixel) { return pixel[0] > 240 && pixel[1] < 20 && pixel[2] < 20; }),
              150);
}

TEST(LabelHalo, OfFormattedLabelsHasNoGapsHoweverWideItIs)
{
    const auto isRed = [](const Pixel& pixel) { return pixel[0] > 200 && pixel[1] < 60 && pixel[2] < 60; };
    for (const int halo : {4, 12, 24})
    {
        const std::string name = "\"<ITA>Illi</ITA>\"";
        const std::vector<std::string> size = {"--label-size", "40"};
        const Picture red = DrawPlace(name, {size[0], size[1], "--label-halo", std::to_string(halo) + ":red"});
        const Picture bare = DrawPlace("null");
        // Along a row that crosses all letters, and along a column, the halo is one piece.
        const Difference all = Compare(red, bare);
        const int middle = all.top + all.height / 2;
        int gaps = 0;
        for (int x = all.left + halo / 2 + 8; x < all.left + all.width - 2; ++x)
            gaps += Distance(red.At(x, middle), bare.At(x, middle)) <= 24;
        EXPECT_EQ(gaps, 0) << halo;
        int pixels = 0;
        for (int y = all.top; y < all.top + all.height; ++y)
            for (int x = all.left; x < all.left + all.width; ++x)
                pixels += isRed(red.At(x, y));
        EXPECT_GT(pixels, all.width * all.height / 3) << halo;
    }
}

TEST(LabelSize, IsObeyed)
{
    ExpectAbout(InkOf("\"Nairobi\"", {"--label-size", "40"}).width,
                2 * InkOf("\"Nairobi\"", {"--label-size", "20"}).width, 0.15, "size");
}

TEST(LabelFont, IsObeyed)
{
    EXPECT_GT(Compare(DrawPlace("\"Nairobi\"", {"--label-font", "DejaVu Sans Mono"}), DrawPlace("\"Nairobi\"")).pixels,
              20);
}

TEST(LabelFont, ThatIsUnknownIsReportedAndReplaced)
{
    const TemporaryFolder folder;
    const std::string input = folder.Write("in.geojson", PlaceNamed("\"Nairobi\""));
    const ProgramRun run = RunTxmap({input, "--bbox", "-180,-90,180,90", "--label-font", "No Such Face", "--size",
                                     "1000x500", "--graticule", "0", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, StartsWith("txmap: --label-font No Such Face: "));
    EXPECT_THAT(run.errors, HasSubstr("DejaVu Sans"));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
    EXPECT_EQ(Compare(Picture(folder / "map.png"), DrawPlace("\"Nairobi\"")).pixels, 0);
}

TEST(MissingGlyphs, AreReportedInOneLine)
{
    const TemporaryFolder folder;
    const std::string input = folder.Write("in.geojson", PlaceNamed("\"\\ud808\\udc00\\ud808\\udc01 \\ud808\\udc00\""));
    const ProgramRun run = RunTxmap({input, "--labels", "--size", "1000x500", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, StartsWith("txmap: warning: "));
    EXPECT_THAT(run.errors, HasSubstr("U+12000, U+12001"));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
    EXPECT_EQ(Picture(folder / "map.png").Width(), 1000);
}
