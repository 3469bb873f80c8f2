// The styles that the project comes with: as they are, and with random mistakes.
#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/OwnStyle.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/StyleMutator.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace
{

constexpr int kUsage = 2;
constexpr int kData = 4;

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
    for (const char* const style : {"political", "physical", "city"})
    {
        const TemporaryFolder folder;
        const ProgramRun run = Render(OwnStyleFile(style), folder / "map.png", {"--size", "200x150"});
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
        WriteSmallHeights(folder);
        const ProgramRun run = Render(folder.Write("style.json", OwnStyleOnSmallSources(style).dump()),
                                      folder / "map.png", {"--size", "64x64"});
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
    WriteSmallHeights(folder);
    const std::string text = StyleMutator(GetParam().seed).Mutated(OwnStyleOnSmallSources(GetParam().style));
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
