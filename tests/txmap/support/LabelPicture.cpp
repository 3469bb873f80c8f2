#include "LabelPicture.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "ProgramRun.h"
#include "TemporaryFolder.h"

Picture Draw(const std::vector<std::string>& arguments)
{
    const TemporaryFolder folder;
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"-o", folder / "map.png"});
    const ProgramRun run = RunTxmap(all);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    // Some draw on an empty map, which says so.
    if (run.errors.find("nothing lies in the part of the world shown") == std::string::npos)
    {
        EXPECT_EQ(run.errors, "");
    }
    return Picture(folder / "map.png");
}

std::string PlaceNamed(const std::string& json)
{
    return R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"name":)" + json +
           R"(},"geometry":{"type":"Point","coordinates":[-140,0]}}]})";
}

Picture DrawPlace(const std::string& json, const std::vector<std::string>& options, const std::string& size)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {folder.Write("in.geojson", PlaceNamed(json))};
    arguments.insert(arguments.end(), {"--label-field", "name", "--size", size, "--graticule", "0"});
    if (std::find(options.begin(), options.end(), "--bbox") == options.end())
        arguments.insert(arguments.end(), {"--bbox", "-180,-90,180,90"});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Draw(arguments);
}

Difference Compare(const Picture& a, const Picture& b)
{
    int left = a.Width();
    int right = -1;
    int top = a.Height();
    int bottom = -1;
    Difference difference;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            if (Distance(a.At(x, y), b.At(x, y)) > 24)
            {
                ++difference.pixels;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    difference.left = left;
    difference.top = top;
    difference.width = std::max(0, right - left + 1);
    difference.height = std::max(0, bottom - top + 1);
    return difference;
}

Difference InkOf(const std::string& json, const std::vector<std::string>& options)
{
    static const Picture bare = DrawPlace("null");
    return Compare(DrawPlace(json, options), bare);
}

void ExpectAbout(int actual, int expected, double tolerance, const std::string& what)
{
    EXPECT_GE(actual, expected * (1.0 - tolerance)) << what;
    EXPECT_LE(actual, expected * (1.0 + tolerance)) << what;
}
