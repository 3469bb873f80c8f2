// txmap render where something is short: tiles, or memory.
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

namespace
{

constexpr int kDrawing = 1;
constexpr rlim_t kMemory = rlim_t(3) << 30;

/// Programs that are started have only so much memory as long as this lives.
class LittleMemory
{
public:
    LittleMemory()
    {
        getrlimit(RLIMIT_AS, &before);
        rlimit little = before;
        little.rlim_cur = kMemory;
        setrlimit(RLIMIT_AS, &little);
    }
    ~LittleMemory() { setrlimit(RLIMIT_AS, &before); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    rlimit before{};
};

/// AddressSanitizer reserves far more than the limit, and has one of its own.
ProgramRun RunWithLittleMemory(const std::vector<std::string>& arguments)
{
#ifdef __SANITIZE_ADDRESS__
    const char* const options = std::getenv("ASAN_OPTIONS");
    return RunTxmap(arguments, {"ASAN_OPTIONS=" + std::string(options ? options : "") +
                                ":allocator_may_return_null=1:max_allocation_size_mb=3000"});
#else
    const LittleMemory little;
    return RunTxmap(arguments);
#endif
}

} // namespace

TEST(RenderLimits, PicturesThatDoNotFitIntoMemoryAreRefused)
{
    const TemporaryFolder folder;
    const std::string style = folder.Write("style.json", R"({"version": 8, "sources": {}, "layers": [
        {"id": "b", "type": "background", "paint": {"background-color": "#ff0000"}}]})");
    const ProgramRun run = RunWithLittleMemory(
        {"render", style, "--size", "30000x30000", "-o", folder / "map.png", "--plugin", TX_TEST_PLUGIN});
    EXPECT_EQ(run.exitCode, kDrawing);
    EXPECT_THAT(run.errors, HasSubstr("txmap: a picture of 30000x30000 pixels cannot be made"));
    EXPECT_THAT(folder.Names(), ElementsAre("style.json"));
    const ProgramRun small =
        RunWithLittleMemory({"render", style, "--size", "64x64", "-o", folder / "map.png", "--plugin", TX_TEST_PLUGIN});
    EXPECT_EQ(small.exitCode, 0) << small.errors;
}

TEST(RenderLimits, MissingTilesAreEmptyWithoutAWarning)
{
    const TemporaryFolder folder;
    // One of the four tiles that are seen: a picture of one colour that this program draws itself.
    fs::create_directories(folder.Path() / "1" / "0");
    const std::string red = folder.Write("red.json", R"({"version": 8, "sources": {}, "layers": [
        {"id": "b", "type": "background", "paint": {"background-color": "#ff0000"}}]})");
    const ProgramRun tile =
        RunTxmap({"render", red, "--size", "256x256", "-o", folder / "1/0/0.png", "--plugin", TX_TEST_PLUGIN});
    ASSERT_EQ(tile.exitCode, 0) << tile.errors;
    const std::string style = folder.Write("style.json", R"({"version": 8, "sources": {"s": {"type": "raster",
        "tiles": ["{z}/{x}/{y}.png"], "tileSize": 256, "maxzoom": 1}}, "layers": [
        {"id": "b", "type": "background", "paint": {"background-color": "#0000ff"}},
        {"id": "r", "type": "raster", "source": "s"}]})");
    const ProgramRun run = RunTxmap({"render", style, "--size", "512x512", "--center", "0,0", "--zoom", "0", "-o",
                                     folder / "map.png", "--plugin", TX_TEST_PLUGIN});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.errors, IsEmpty());
    const Picture picture(folder / "map.png");
    EXPECT_EQ(picture.At(100, 100), (Pixel{255, 0, 0, 255}));
    for (const auto& [x, y] : {std::pair{400, 100}, {100, 400}, {400, 400}})
        EXPECT_EQ(picture.At(x, y), (Pixel{0, 0, 255, 255})) << x << ", " << y;
}
