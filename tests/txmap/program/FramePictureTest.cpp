// Maps that are cut to a frame, and north arrows on them.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>

namespace
{

constexpr Pixel kPaper{247, 244, 237, 255};
constexpr Pixel kLine{98, 84, 74, 255};

// A country that fills the world, with a name and a row of places along the equator.
std::string World()
{
    std::string json = R"({"type":"FeatureCollection","features":[{"type":"Feature",)"
                       R"("properties":{"mapcolor":1,"name":"Wide Country"},"geometry":{"type":"Polygon",)"
                       R"("coordinates":[[[-180,-90],[180,-90],[180,90],[-180,90],[-180,-90]]]}})";
    for (int longitude = -178; longitude < 180; longitude += 12)
        json += R"(,{"type":"Feature","properties":{"name":"Ij"},"geometry":{"type":"Point","coordinates":[)" +
                std::to_string(longitude) + ",20]}}";
    return json + "]}";
}

Picture DrawWorld(std::vector<std::string> options)
{
    const TemporaryFolder folder;
    options.insert(options.begin(), {folder.Write("in.geojson", World()), "--size", "800x400", "--graticule", "0"});
    return Draw(options);
}

/// The distance of a pixel's middle to the edge of a rectangle with rounded corners, negative outside.
double DepthInRounded(int x, int y, double inset, double radius)
{
    const double dx = std::abs(x + 0.5 - 400.0) - (400.0 - inset - radius);
    const double dy = std::abs(y + 0.5 - 200.0) - (200.0 - inset - radius);
    const double outside = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
    return radius - (outside + std::min(0.0, std::max(dx, dy)));
}

constexpr const char* kPaths[] = {"qt", "cairo"};

} // namespace

TEST(RoundedFrame, HasPaperOutsideAndTheMapInside)
{
    const Picture whole = DrawWorld({});
    for (const double radius : {0.0, 60.0, 199.0})
    {
        const Picture picture = DrawWorld({"--frame", "rounded:" + std::to_string(radius)});
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 800; ++x)
            {
                // The line is 2 wide.
                const double depth = DepthInRounded(x, y, 1.0, radius);
                const Pixel& pixel = picture.At(x, y);
                const bool isRight = depth > 1.8    ? pixel == whole.At(x, y)
                                     : depth < -1.8 ? pixel == kPaper
                                                    : std::abs(depth) >= 0.2 || Distance(pixel, kLine) < 16;
                ASSERT_TRUE(isRight) << radius << ": " << x << ", " << y;
            }
    }
}

TEST(RoundedFrame, TakesAnyRadius)
{
    EXPECT_EQ(DrawWorld({"--frame", "rounded:1e300"}).Pixels(), DrawWorld({"--frame", "rounded:199"}).Pixels());
    EXPECT_EQ(DrawWorld({"--frame", "rounded"}).At(2, 2), kPaper);
}

TEST(PolygonFrame, ClipsEverythingInBothTextPaths)
{
    const TemporaryFolder folder;
    const std::string raster = FourColors().Write(folder / "raster.tif");
    for (const char* const path : kPaths)
    {
        // Symbols without names are cut where the frame is.
        const std::vector<std::string> options = {
            "--raster", raster,   "--symbol",       "font:DejaVu Sans:U+25A0:40", "--text", path, "--label-halo",
            "6:lime",   "--bbox", "-180,-90,180,90"};
        std::vector<std::string> framed = options;
        framed.insert(framed.end(), {"--frame", "100.4,50.3 700.6,50.3 700.6,350.5 400,200 100.4,350.5"});
        const Picture picture = DrawWorld(framed);
        int inside = 0;
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 800; ++x)
            {
                const double px = x + 0.5;
                const double py = y + 0.5;
                const double notch = 200.0 + std::abs(px - 400.0) * 0.5;
                const bool isOutside = px < 98 || px > 703 || py < 48 || py > notch + 3;
                ASSERT_TRUE(!isOutside || picture.At(x, y) == kPaper) << path << ": " << x << ", " << y;
                inside += !isOutside && picture.At(x, y) != kPaper;
            }
        EXPECT_GT(inside, 90000) << path;
    }
}

TEST(PolygonFrame, HasNoNamesAcrossItsLine)
{
    for (const char* const path : kPaths)
    {
        const std::vector<std::string> options = {"--labels", "--label-halo", "3:lime", "--label-size",
                                                  "24",       "--text",       path};
        std::vector<std::string> framed = options;
        framed.insert(framed.end(), {"--frame", "400,10 780,200 400,390 20,200"});
        const Picture picture = DrawWorld(framed);
        int halo = 0;
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 800; ++x)
                if (const Pixel& pixel = picture.At(x, y); pixel[0] < 60 && pixel[1] > 220 && pixel[2] < 60)
                {
                    ++halo;
                    const double depth = 190.0 - std::abs(x + 0.5 - 400.0) * 0.5 - std::abs(y + 0.5 - 200.0);
                    EXPECT_GT(depth, 1.0) << path << ": " << x << ", " << y;
                }
        EXPECT_GT(halo, 300) << path;
    }
}

TEST(PolygonFrame, ThatCrossesItselfIsCutByOddEven)
{
    const Picture picture = DrawWorld({"--frame", "100,100 700,300 700,100 100,300"});
    EXPECT_NE(picture.At(150, 200), kPaper);
    EXPECT_NE(picture.At(650, 200), kPaper);
    EXPECT_EQ(picture.At(400, 130), kPaper);
    EXPECT_EQ(picture.At(400, 270), kPaper);
    EXPECT_EQ(picture.At(50, 200), kPaper);
}

TEST(FileFrame, CutsTheMapToItsAreas)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write(
        "frame.geojson", R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{},"geometry":)"
                         R"({"type":"MultiPolygon","coordinates":[[[[-90,0],[0,0],[0,45],[-90,45],[-90,0]],)"
                         R"([[-60,10],[-30,10],[-30,30],[-60,30],[-60,10]]],)"
                         R"([[[90,-45],[135,-45],[135,0],[90,-45]]]]}}]})");
    for (const char* const crs : {"EPSG:4326", "EPSG:3857"})
    {
        const Picture whole = DrawWorld({"--crs", crs});
        const Picture picture = DrawWorld({"--crs", crs, "--frame", file});
        const double turn = std::string(crs) == "EPSG:4326" ? 800.0 : 400.0;
        const auto at = [&](const Picture& of, double longitude, double latitude)
        {
            constexpr double kRadian = 0.017453292519943295;
            const double up =
                turn > 400.0 ? latitude * 800.0 / 360.0 : std::asinh(std::tan(latitude * kRadian)) / (2 * M_PI) * 400.0;
            return of.At(static_cast<int>(400 + longitude / 360.0 * turn), static_cast<int>(200.0 - up));
        };
        for (const auto& [longitude, latitude] : {std::pair{-80, 5}, {-10, 40}, {-45, 5}, {120, -20}})
            EXPECT_EQ(at(picture, longitude, latitude), at(whole, longitude, latitude)) << crs << longitude;
        for (const auto& [longitude, latitude] : {std::pair{-45, 20}, {10, 20}, {-100, 20}, {100, -10}, {-45, -10}})
            EXPECT_EQ(at(picture, longitude, latitude), kPaper) << crs << longitude;
    }
}

TEST(Frame, LeavesNothingBehind)
{
    // What is drawn after the map is not cut: the arrow stands in its corner.
    const Picture picture = DrawWorld({"--frame", "0,0 800,390 800,400", "--north-arrow", "top-right"});
    const Picture bare = DrawWorld({"--frame", "0,0 800,390 800,400"});
    EXPECT_EQ(picture.At(600, 100), kPaper);
    EXPECT_NE(picture.Pixels(), bare.Pixels());
}

namespace
{

bool IsDark(const Pixel& pixel) { return pixel[0] < 90 && pixel[1] < 80 && pixel[2] < 75; }

/// The dark pixels of an arrow, and their centre.
struct Arrow
{
    double x = 0.0;
    double y = 0.0;
    int pixels = 0;
    int soft = 0; ///< Between dark and bright.
};

Arrow ArrowOn(const Picture& picture, int left, int right, int top, int bottom)
{
    Arrow arrow;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
        {
            const Pixel& pixel = picture.At(x, y);
            arrow.soft += pixel[1] > 90 && pixel[1] < 180;
            if (!IsDark(pixel))
                continue;
            ++arrow.pixels;
            arrow.x += x;
            arrow.y += y;
        }
    arrow.x /= arrow.pixels;
    arrow.y /= arrow.pixels;
    return arrow;
}

Picture DrawArrow(const std::string& value)
{
    const TemporaryFolder folder;
    const std::string nothing = R"({"type":"FeatureCollection","features":[]})";
    std::vector<std::string> arguments = {folder.Write("in.geojson", nothing), "--size", "2048x1024", "--graticule",
                                          "0"};
    if (!value.empty())
        arguments.insert(arguments.end(), {"--north-arrow", value});
    return Draw(arguments);
}

} // namespace

TEST(NorthArrowPicture, StandsInItsCorner)
{
    const Picture bare = DrawArrow("");
    for (const auto& [corner, left, top] :
         {std::tuple{"top-left", 0, 0}, {"top-right", 1848, 0}, {"bottom-left", 0, 824}, {"bottom-right", 1848, 824}})
    {
        const Picture picture = DrawArrow(corner);
        int inside = 0;
        for (int y = 0; y < 1024; ++y)
            for (int x = 0; x < 2048; ++x)
                if (picture.At(x, y) != bare.At(x, y))
                {
                    ++inside;
                    ASSERT_TRUE(x >= left && x < left + 200 && y >= top && y < top + 200) << corner;
                }
        EXPECT_GT(inside, 500) << corner;
        const Arrow arrow = ArrowOn(picture, left, left + 200, top, top + 200);
        EXPECT_GT(arrow.pixels, 300) << corner;
        EXPECT_GT(arrow.soft, 40) << corner << ": its edges are smooth";
    }
}

TEST(NorthArrowPicture, IsTurnedByItsAngle)
{
    const Picture upright = DrawArrow("top-right");
    // Half a turn: each pixel changes places with the one opposite, but for what the turning smooths.
    const Picture down = DrawArrow("top-right:180");
    const Picture right = DrawArrow("top-right:90");
    const Arrow a = ArrowOn(upright, 1848, 2048, 0, 200);
    const Arrow b = ArrowOn(down, 1848, 2048, 0, 200);
    const Arrow c = ArrowOn(right, 1848, 2048, 0, 200);
    EXPECT_NEAR(a.pixels, b.pixels, 0.1 * a.pixels);
    EXPECT_NEAR(a.pixels, c.pixels, 0.1 * a.pixels);
    // The dark ink is heavier on the left and below the centre of the box: 84 pixels, 14 from the edges.
    const double x = 2048 - 14 - 42 - 0.5;
    const double y = 14 + 42 - 0.5;
    EXPECT_LT(a.x, x - 2.0);
    EXPECT_NEAR(b.x - x, x - a.x, 1.0);
    EXPECT_NEAR(b.y - y, y - a.y, 1.0);
    // A quarter of a turn clockwise takes (dx, dy) to (-dy, dx).
    EXPECT_NEAR(c.x - x, y - a.y, 1.0);
    EXPECT_NEAR(c.y - y, a.x - x, 1.0);
    EXPECT_EQ(DrawArrow("top-right:360").Width(), 2048);
    EXPECT_NE(DrawArrow("top-right:15").Pixels(), upright.Pixels());
}

TEST(NorthArrowPicture, PointsUpward)
{
    const Picture picture = DrawArrow("top-left");
    const auto inkIn = [&](int top, int bottom)
    {
        int left = 2048;
        int right = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = 0; x < 150; ++x)
                if (IsDark(picture.At(x, y)))
                {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
        return right - left;
    };
    // The needle, from 14 + 0.3 * 84 to 14 + 0.9 * 84, gets wider downward.
    EXPECT_LT(inkIn(42, 48), inkIn(58, 64));
    EXPECT_LT(inkIn(58, 64), inkIn(78, 88));
}

TEST(NorthArrowPicture, KeepsNamesAndPlacesAway)
{
    for (const char* const path : kPaths)
    {
        const std::vector<std::string> options = {"--labels", "--label-halo", "3:lime",       "--text",
                                                  path,       "--bbox",       "-60,-10,60,50"};
        std::vector<std::string> with = options;
        with.insert(with.end(), {"--north-arrow", "top-right"});
        const Picture picture = DrawWorld(with);
        for (int y = 0; y < 60; ++y)
            for (int x = 740; x < 800; ++x)
            {
                const Pixel& pixel = picture.At(x, y);
                EXPECT_FALSE(pixel[0] < 60 && pixel[1] > 220 && pixel[2] < 60) << path;
            }
    }
}

TEST(NorthArrowPicture, IsLeftOutOfTinyPictures)
{
    const TemporaryFolder folder;
    for (const char* const size : {"1x1", "2x1", "10x10", "30x20", "64x32"})
        EXPECT_EQ(RunTxmap({DataFile("countries-110m.json"), "--size", size, "--north-arrow", "bottom-left:33",
                            "--frame", "rounded", "-o", folder / "map.png"})
                      .exitCode,
                  0)
            << size;
}
