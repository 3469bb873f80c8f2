// The styles that the project comes with: as they are, and with random mistakes.
#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/StyleMutator.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>

using ::testing::IsEmpty;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

namespace
{

constexpr int kUsage = 2;
constexpr int kData = 4;

std::string StyleFile(const std::string& name) { return std::string(TX_TEST_DATA) + "/../styles/" + name + ".json"; }

Json Feature(const char* type, const Json& coordinates, double number)
{
    const Json properties = {{"name", "Antarctica"}, {"mapcolor", number},  {"adm0cap", 1},
                             {"worldcity", 1},       {"scalerank", number}, {"pop_max", number},
                             {"size", 10 * number},  {"rank", number},      {"featurecla", "a town"}};
    return {
        {"type", "Feature"}, {"properties", properties}, {"geometry", {{"type", type}, {"coordinates", coordinates}}}};
}

/// A style of the project on a handful of features, so that a run takes no time. Its heights are to be in heights.tif.
Json OnSmallSources(const std::string& name)
{
    Json style = Json::parse(ContentOf(StyleFile(name)));
    const Json ring = {{-60, -40}, {70, -30}, {60, 50}, {-50, 40}, {-60, -40}};
    const Json line = {{-80, 10}, {0, 30}, {10, -20}, {90, 5}};
    const Json features = {Feature("Polygon", Json::array({ring}), 1), Feature("LineString", line, 2),
                           Feature("Point", {20, 20}, 3), Feature("Point", {170, -20}, 1)};
    for (auto& [id, source] : style["sources"].items())
        if (source["type"] == "geojson")
            source["data"] = {{"type", "FeatureCollection"}, {"features", features}};
        else
            source["url"] = "heights.tif";
    style["zoom"] = 0;
    return style;
}

void WriteHeights(const TemporaryFolder& folder)
{
    TestRaster raster;
    raster.type = GDT_Int16;
    raster.value = [](int x, int y, int) { return 100.0 * ((x * 7 + y * 5) % 40); };
    raster.Write(folder / "heights.tif");
}

ProgramRun Render(const std::string& style, const std::string& picture, const std::vector<std::string>& options)
{
    std::vector<std::string> arguments = {"render", style, "-o", picture, "--plugin", TX_TEST_PLUGIN};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunTxmap(arguments);
}

/// A run of a style with mistakes: strict for the even seeds.
struct Run
{
    const char* style;
    unsigned seed;
};

void PrintTo(const Run& run, std::ostream* out) { *out << run.style << " with the mistakes of seed " << run.seed; }

std::vector<Run> Runs()
{
    std::vector<Run> runs;
    for (const char* const style : {"political", "physical"})
        for (unsigned seed = 1; seed <= 20; ++seed)
            runs.push_back({style, seed});
    return runs;
}

} // namespace

TEST(OwnStyles, AreDrawnWithoutAWarning)
{
    for (const char* const style : {"political", "physical"})
    {
        const TemporaryFolder folder;
        const ProgramRun run = Render(StyleFile(style), folder / "map.png", {"--size", "200x150"});
        ASSERT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_THAT(run.errors, IsEmpty());
        const Picture picture(folder / "map.png");
        const std::set<Pixel> colors(picture.Pixels().begin(), picture.Pixels().end());
        EXPECT_GT(colors.size(), 200u) << style;
        // No colour, such as that of the sea, is that of nearly everything.
        const Pixel corner = picture.At(0, 0);
        EXPECT_LT(std::count(picture.Pixels().begin(), picture.Pixels().end(), corner), 200 * 150 * 3 / 4) << style;
    }
}

TEST(OwnStyles, AreDrawnOnSmallSources)
{
    for (const char* const style : {"political", "physical"})
    {
        const TemporaryFolder folder;
        WriteHeights(folder);
        const ProgramRun run =
            Render(folder.Write("style.json", OnSmallSources(style).dump()), folder / "map.png", {"--size", "64x64"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.errors, IsEmpty());
    }
}

class MutatedOwnStyle : public ::testing::TestWithParam<Run>
{
};

TEST_P(MutatedOwnStyle, GivesAPictureOrOneLine)
{
    const TemporaryFolder folder;
    WriteHeights(folder);
    const std::string text = StyleMutator(GetParam().seed).Mutated(OnSmallSources(GetParam().style));
    std::vector<std::string> options = {"--size", "64x64"};
    const bool isStrict = GetParam().seed % 2 == 0;
    if (!isStrict)
        options.emplace_back("--lenient");
    const ProgramRun run = Render(folder.Write("style.json", text), folder / "map.png", options);

    std::set<std::string> names = {"heights.tif", "style.json"};
    if (run.exitCode == 0)
        names.insert("map.png");
    else
    {
        EXPECT_TRUE(run.exitCode == kUsage || run.exitCode == kData) << run.exitCode << run.errors << text;
    }
    EXPECT_EQ(folder.Names(), names);

    const auto lines = std::count(run.errors.begin(), run.errors.end(), '\n');
    EXPECT_TRUE(run.exitCode == 0 || lines == 1) << run.errors << text;
    for (std::size_t at = 0; at < run.errors.size(); at = run.errors.find('\n', at) + 1)
        EXPECT_THAT(run.errors.substr(at), StartsWith(run.exitCode == 0 ? "txmap: warning: " : "txmap: ")) << text;
    if (run.exitCode == 0)
    {
        EXPECT_EQ(Picture(folder / "map.png").Width(), 64);
    }
}

INSTANTIATE_TEST_SUITE_P(All, MutatedOwnStyle, ::testing::ValuesIn(Runs()),
                         [](const auto& run) { return std::string(run.param.style) + std::to_string(run.param.seed); });
