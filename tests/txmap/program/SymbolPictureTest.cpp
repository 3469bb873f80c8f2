// The symbols of places, as the picture shows them.
#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace
{

// Two places, at pixels (250, 150) and (700, 350) of the picture.
const std::string kPlaces = R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"name":null},)"
                            R"("geometry":{"type":"MultiPoint","coordinates":[[-90,36],[72,-36]]}}]})";
constexpr std::pair<int, int> kPixels[] = {{250, 150}, {700, 350}};
constexpr int kRoom = 30;

ProgramRun RunSymbols(const std::vector<std::string>& options, const std::string& output)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {folder.Write("in.geojson", kPlaces),
                                          "--bbox",
                                          "-180,-90,180,90",
                                          "--size",
                                          "1000x500",
                                          "--graticule",
                                          "0",
                                          "-o",
                                          output};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunTxmap(arguments);
}

Picture DrawSymbols(const std::vector<std::string>& options)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunSymbols(options, folder / "map.png");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    return Picture(folder / "map.png");
}

/// The dark red of a symbol, without the pale ring around it.
bool IsInk(const Pixel& pixel) { return pixel[0] < 160 && pixel[2] < 100 && pixel[0] > pixel[2] + 30; }

/// Where there is ink about a point.
struct Ink
{
    int left = kRoom;
    int right = -kRoom;
    int top = kRoom;
    int bottom = -kRoom;
    int pixels = 0;

    int Width() const { return right - left + 1; }
    int Height() const { return bottom - top + 1; }
};

Ink InkAt(const Picture& picture, int x, int y)
{
    Ink ink;
    for (int dy = -kRoom; dy < kRoom; ++dy)
        for (int dx = -kRoom; dx < kRoom; ++dx)
            if (IsInk(picture.At(x + dx, y + dy)))
            {
                ++ink.pixels;
                ink = {std::min(ink.left, dx), std::max(ink.right, dx), std::min(ink.top, dy), std::max(ink.bottom, dy),
                       ink.pixels};
            }
    return ink;
}

int InkOn(const Picture& picture)
{
    return static_cast<int>(std::count_if(picture.Pixels().begin(), picture.Pixels().end(), IsInk));
}

struct Expected
{
    const char* name;
    double width;
    double height;
    double area;
    double top; ///< How far the ink reaches above the place.
};

// All as parts of the symbol's size.
constexpr Expected kExpected[] = {{"circle", 1.0, 1.0, 0.785, 0.5},       {"square", 1.0, 1.0, 1.0, 0.5},
                                  {"triangle", 1.0, 0.866, 0.433, 0.577}, {"star", 1.0, 0.951, 0.357, 0.526},
                                  {"cross", 1.0, 1.0, 0.564, 0.5},        {"diamond", 1.0, 1.0, 0.5, 0.5}};

} // namespace

TEST(Symbol, HasItsSizeAndShapeAtItsPlace)
{
    constexpr double kSize = 40.0;
    for (const Expected& expected : kExpected)
    {
        const Picture picture = DrawSymbols({"--symbol", expected.name, "--symbol-size", "40"});
        int total = 0;
        for (const auto& [x, y] : kPixels)
        {
            const Ink ink = InkAt(picture, x, y);
            // Sharp tips fade out.
            EXPECT_NEAR(ink.Width(), expected.width * kSize, 4.5) << expected.name;
            EXPECT_NEAR(ink.Height(), expected.height * kSize, 4.5) << expected.name;
            EXPECT_NEAR(-ink.top, expected.top * kSize, 2.5) << expected.name;
            EXPECT_NEAR(ink.left + ink.right + 1, 0, 1) << expected.name;
            EXPECT_NEAR(ink.pixels, expected.area * kSize * kSize, 0.05 * kSize * kSize) << expected.name;
            EXPECT_TRUE(IsInk(picture.At(x, y))) << expected.name;
            total += ink.pixels;
        }
        EXPECT_EQ(total, InkOn(picture)) << expected.name;
    }
}

TEST(Symbol, HasAPaleRing)
{
    for (const Expected& expected : kExpected)
    {
        const Picture picture = DrawSymbols({"--symbol", expected.name, "--symbol-size", "40"});
        int pale = 0;
        for (int dy = -kRoom; dy < kRoom; ++dy)
            for (int dx = -kRoom; dx < kRoom; ++dx)
            {
                // Far from the symbol there is sea.
                const Pixel& pixel = picture.At(250 + dx, 150 + dy);
                pale += pixel[0] > picture.At(20, 150)[0] + 12;
            }
        EXPECT_GT(pale, 20) << expected.name;
    }
}

TEST(Symbol, IsACircleUnlessAnotherOneIsAskedFor)
{
    EXPECT_EQ(DrawSymbols({}).Pixels(), DrawSymbols({"--symbol", "circle"}).Pixels());
    EXPECT_EQ(DrawSymbols({"--symbol-size", "20"}).Pixels(),
              DrawSymbols({"--symbol", "circle", "--symbol-size", "20"}).Pixels());
    const Picture picture = DrawSymbols({});
    EXPECT_LT(picture.At(250, 150)[2], picture.At(20, 150)[2] - 40);
    EXPECT_EQ(Distance(picture.At(254, 150), picture.At(20, 150)), 0);
    for (const char* const other : {"square", "triangle", "star", "cross", "diamond"})
        EXPECT_NE(DrawSymbols({"--symbol", other}).Pixels(), DrawSymbols({}).Pixels()) << other;
}

TEST(Symbol, StandsInTheLegendAsOnTheMap)
{
    const auto symbolIn = [](const std::vector<std::string>& options)
    {
        const Picture picture = DrawSymbols(options);
        // The legend begins in the bottom left corner, with the symbol before the text.
        std::vector<Pixel> pixels;
        for (int y = 470; y < 500; ++y)
            for (int x = 0; x < 40; ++x)
                pixels.push_back(picture.At(x, y));
        return pixels;
    };
    const std::vector<Pixel> circle = symbolIn({"--legend", "--symbol-size", "12"});
    EXPECT_GT(std::count_if(circle.begin(), circle.end(), IsInk), 10);
    for (const char* const other : {"square", "triangle", "star", "cross", "diamond", "font:DejaVu Sans:★"})
    {
        const std::vector<Pixel> symbol = symbolIn({"--legend", "--symbol", other, "--symbol-size", "12"});
        EXPECT_NE(symbol, circle) << other;
        EXPECT_GT(std::count_if(symbol.begin(), symbol.end(), IsInk), 10) << other;
    }
}

TEST(Symbol, KeepsToItsLineOfTheLegend)
{
    // As if a place lay there, it would cover the corner.
    for (const char* const symbol : {"square", "font:DejaVu Sans:★"})
    {
        const Picture picture = DrawSymbols({"--legend", "--symbol", symbol, "--symbol-size", "90"});
        const Picture bare = DrawSymbols({"--symbol", symbol, "--symbol-size", "90"});
        const Difference legend = Compare(picture, bare);
        EXPECT_LT(legend.height, 40) << symbol;
        EXPECT_GT(legend.top, 450) << symbol;
    }
}

TEST(FontSymbol, HasItsInkAtItsPlaceInBothTextPaths)
{
    for (const char* const path : {"qt", "cairo"})
        for (const char* const character : {"U+2605", "★", "U+25A0", "U+2693"})
        {
            const Picture picture = DrawSymbols(
                {"--symbol", std::string("font:DejaVu Sans:") + character, "--symbol-size", "36", "--text", path});
            for (const auto& [x, y] : kPixels)
            {
                const Ink ink = InkAt(picture, x, y);
                EXPECT_GT(ink.pixels, 60) << path << character;
                EXPECT_LT(ink.Width(), 40) << path << character;
                EXPECT_NEAR((ink.left + ink.right) / 2.0, 0.0, 3.0) << path << character;
                EXPECT_NEAR((ink.top + ink.bottom) / 2.0, 0.0, 6.0) << path << character;
            }
        }
}

TEST(FontSymbol, HasItsOwnSizeOrThatOfTheOption)
{
    for (const char* const path : {"qt", "cairo"})
    {
        EXPECT_EQ(DrawSymbols({"--symbol", "font:DejaVu Sans:★:24", "--text", path}).Pixels(),
                  DrawSymbols({"--symbol", "font:DejaVu Sans:★", "--symbol-size", "24", "--text", path}).Pixels());
        const Ink small = InkAt(DrawSymbols({"--symbol", "font:DejaVu Sans:★:16", "--text", path}), 250, 150);
        const Ink large = InkAt(DrawSymbols({"--symbol", "font:DejaVu Sans:★:48", "--text", path}), 250, 150);
        EXPECT_NEAR(large.Width(), 3 * small.Width(), 5) << path;
    }
}

TEST(FontSymbol, GoesThroughTheTextPath)
{
    // Cairo centres the ink, and Qt the line.
    EXPECT_NE(DrawSymbols({"--symbol", "font:DejaVu Sans:g:40", "--text", "cairo"}).Pixels(),
              DrawSymbols({"--symbol", "font:DejaVu Sans:g:40", "--text", "qt"}).Pixels());
    const Ink ink = InkAt(DrawSymbols({"--symbol", "font:DejaVu Sans:g:40", "--text", "cairo"}), 250, 150);
    EXPECT_NEAR((ink.top + ink.bottom) / 2.0, 0.0, 1.5);
}

TEST(FontSymbol, OfAnUnknownFaceIsReportedAndReplaced)
{
    const TemporaryFolder folder;
    for (const char* const path : {"qt", "cairo"})
    {
        const ProgramRun run = RunSymbols({"--symbol", "font:No Such Face:★:30", "--text", path}, folder / "map.png");
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_THAT(run.errors, StartsWith("txmap: --symbol font:No Such Face:★:30: no such font is installed"));
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
        EXPECT_GT(InkAt(Picture(folder / "map.png"), 250, 150).pixels, 60) << path;
    }
}

TEST(FontSymbol, WithoutTheFontsOfLabelsIsReportedInOneLine)
{
    const TemporaryFolder folder;
    const ProgramRun run =
        RunSymbols({"--symbol", "font:No Such Face:★", "--label-font", "Nor This", "--labels"}, folder / "map.png");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, AllOf(HasSubstr("--symbol font:No Such Face"), HasSubstr("--label-font Nor This")));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
}

TEST(FontSymbol, OfACharacterThatTheFaceLacksIsReported)
{
    const TemporaryFolder folder;
    // Only the Chinese face has it.
    for (const char* const path : {"qt", "cairo"})
    {
        const ProgramRun run = RunSymbols({"--symbol", "font:DejaVu Sans:北:30", "--text", path}, folder / "map.png");
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.errors,
                    AllOf(StartsWith("txmap: warning: --symbol"), HasSubstr("U+5317"), HasSubstr("DejaVu Sans")));
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
        EXPECT_EQ(run.errors.find("another") != std::string::npos, std::string(path) == "qt");
        EXPECT_EQ(RunSymbols({"--symbol", "font:WenQuanYi Micro Hei:北:30", "--text", path}, folder / "map.png").errors,
                  "");
    }
}

TEST(Symbol, KeepsNamesAway)
{
    const std::string json = R"({"type":"FeatureCollection","features":[{"type":"Feature",)"
                             R"("properties":{"name":"Town"},"geometry":{"type":"Point","coordinates":[-90,36]}}]})";
    const TemporaryFolder folder;
    for (const char* const symbol : {"square", "font:DejaVu Sans:U+25A0"})
        for (const char* const path : {"qt", "cairo"})
        {
            const std::vector<std::string> arguments = {folder.Write("in.geojson", json),
                                                        "--size",
                                                        "1000x500",
                                                        "--graticule",
                                                        "0",
                                                        "--bbox",
                                                        "-180,-90,180,90",
                                                        "--symbol",
                                                        symbol,
                                                        "--symbol-size",
                                                        "40",
                                                        "--label-halo",
                                                        "2:lime",
                                                        "--text",
                                                        path};
            const Picture picture = Draw(arguments);
            const Ink ink = InkAt(picture, 250, 150);
            int lime = 0;
            for (int y = 0; y < 500; ++y)
                for (int x = 0; x < 1000; ++x)
                {
                    const Pixel& pixel = picture.At(x, y);
                    const bool isHalo = pixel[0] < 40 && pixel[1] > 230 && pixel[2] < 40;
                    lime += isHalo;
                    EXPECT_FALSE(isHalo && x <= 250 + ink.right && x >= 250 + ink.left && y >= 150 + ink.top &&
                                 y <= 150 + ink.bottom)
                        << symbol << path;
                }
            EXPECT_GT(lime, 50) << symbol << path;
        }
}
