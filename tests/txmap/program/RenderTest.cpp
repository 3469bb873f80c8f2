// txmap render and txmap validate as programs: pictures, refusals, and what they leave behind.
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace
{

constexpr int kUsage = 2;
constexpr int kData = 4;

const std::string kPlugin = TX_TEST_PLUGIN;

std::string WithLayers(const std::string& layers, const std::string& members = "")
{
    return R"({"version": 8, )" + members + R"("sources": {"s": {"type": "geojson", "data": {"type": "Polygon",
        "coordinates": [[[-90, -60], [90, -60], [90, 60], [-90, 60], [-90, -60]]]}}}, "layers": [)" +
           layers + "]}";
}

const char* const kFill = R"({"id": "f", "type": "fill", "source": "s", "paint": {"fill-color": "#ff0000"}})";

/// Something that a user may get wrong.
struct Mistake
{
    const char* name;
    int exitCode;
    std::string style;
    std::vector<std::string> options;
    const char* culprit; ///< What the message must name.
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

class RenderMistake : public ::testing::TestWithParam<Mistake>
{
};

std::string Source(const std::string& source)
{
    return R"({"version": 8, "sources": {"s": )" + source +
           R"(}, "layers": [{"id": "f", "type": "fill", "source": "s"}]})";
}

const std::vector<Mistake>& Mistakes()
{
    static const std::string good = WithLayers(kFill);
    static const std::vector<Mistake> mistakes = {
        {"NoJson", kData, "{\"version\": 8,", {}, "style.json: /: no JSON"},
        {"Empty", kData, "", {}, "style.json: /: no JSON"},
        {"Version", kData, R"({"version": 7, "sources": {}, "layers": []})", {}, "/version: 8 expected"},
        {"UnknownSource", kData, WithLayers(R"({"id": "a", "type": "fill", "source": "q"})"), {}, "/layers/0/source"},
        {"SameId", kData, WithLayers(std::string(kFill) + "," + kFill), {}, "/layers/1/id: the same id"},
        {"CyclicRef", kData, WithLayers(R"({"id": "a", "ref": "b"}, {"id": "b", "ref": "a"})"), {}, "/layers/0/ref"},
        {"WrongType",
         kData,
         WithLayers(R"({"id": "a", "type": "line", "source": "s", "paint": {"line-width": "1"}})"),
         {},
         "/layers/0/paint/line-width: number expected"},
        {"NegativeDash",
         kData,
         WithLayers(R"({"id": "a", "type": "line", "source": "s", "paint": {"line-dasharray": [1, -1]}})"),
         {},
         "/layers/0/paint/line-dasharray/1"},
        {"DashesWithoutLength",
         kData,
         WithLayers(R"({"id": "a", "type": "line", "source": "s", "paint": {"line-dasharray": [0, 0]}})"),
         {},
         "/layers/0/paint/line-dasharray: all dashes and gaps are without length"},
        {"HugeWidth",
         kData,
         WithLayers(R"({"id": "a", "type": "line", "source": "s", "paint": {"line-width": 1e300}})"),
         {},
         "/layers/0/paint/line-width: "},
        {"HugeRadius",
         kData,
         WithLayers(R"({"id": "a", "type": "circle", "source": "s", "paint": {"circle-radius": 1e300}})"),
         {},
         "/layers/0/paint/circle-radius: "},
        {"NaN", kData, R"({"version": 8, "zoom": NaN, "sources": {}, "layers": []})", {}, "no JSON"},
        {"HugeNumber", kData, R"({"version": 8, "zoom": 1e999, "sources": {}, "layers": []})", {}, "no JSON"},
        {"Pitch", kData, WithLayers(kFill, R"("pitch": 30, )"), {}, "/pitch"},
        {"Center", kData, WithLayers(kFill, R"("center": [0, 1e300], )"), {}, "/center"},
        {"MissingData", kData, Source(R"({"type": "geojson", "data": "none.json"})"), {}, "none.json"},
        {"Network", kData, Source(R"({"type": "geojson", "data": "https://example.com/a.json"})"), {}, "example.com"},
        {"NoSprite", kData, WithLayers(kFill, R"("sprite": "none", )"), {}, "none.json"},
        {"Size", kUsage, good, {"--size", "30001x10"}, "--size 30001x10"},
        {"ScaledSize", kUsage, good, {"--size", "20000x10", "--scale", "2"}, "--size"},
        {"NoSize", kUsage, good, {"--size", "0x10"}, "--size 0x10"},
        {"BoxWithoutArea", kUsage, good, {"--bbox", "1,2,1,2"}, "--bbox 1,2,1,2"},
        {"BoxOutOfRange", kUsage, good, {"--bbox", "0,0,10,91"}, "--bbox"},
        {"BoxAndZoom", kUsage, good, {"--bbox", "0,0,10,10", "--zoom", "3"}, "--bbox"},
        {"FitAndZoom", kUsage, good, {"--fit", "--zoom", "3"}, "--fit"},
        {"FitAndBox", kUsage, good, {"--fit", "--bbox", "0,0,10,10"}, "--fit"},
        {"CenterOption", kUsage, good, {"--center", "0,nan"}, "--center"},
        {"Zoom", kUsage, good, {"--zoom", "1e300"}, "--zoom"},
        {"Bearing", kUsage, good, {"--bearing", "inf"}, "--bearing"},
        {"Scale", kUsage, good, {"--scale", "0"}, "--scale"},
        {"UnknownOption", kUsage, good, {"--sise", "1x1"}, "--sise"},
    };
    return mistakes;
}

} // namespace

TEST_P(RenderMistake, GivesOneLineAndNoPicture)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {
        "render", folder.Write("style.json", GetParam().style), "-o", folder / "map.png", "--plugin", kPlugin};
    arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
    const ProgramRun run = RunTxmap(arguments);
    EXPECT_EQ(run.exitCode, GetParam().exitCode) << run.errors;
    EXPECT_THAT(run.errors, StartsWith("txmap: "));
    EXPECT_THAT(run.errors, HasSubstr(GetParam().culprit));
    EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1);
    EXPECT_THAT(folder.Names(), ElementsAre("style.json"));
}

INSTANTIATE_TEST_SUITE_P(All, RenderMistake, ::testing::ValuesIn(Mistakes()),
                         [](const auto& mistake) { return std::string(mistake.param.name); });

TEST(Render, DrawsAStyle)
{
    const TemporaryFolder folder;
    const std::string style = folder.Write("style.json", WithLayers(kFill));
    const ProgramRun run = RunTxmap({"render", style, "-o", folder / "map.png", "--size", "100x80", "--scale", "2",
                                     "--center", "0,0", "--zoom", "0", "--timings", "--plugin", kPlugin});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    for (const char* const stage : {"reading ", "evaluating ", "placing ", "drawing ", "encoding "})
        EXPECT_THAT(run.output, HasSubstr(stage));
    const Picture picture(folder / "map.png");
    EXPECT_EQ(picture.Width(), 200);
    EXPECT_EQ(picture.Height(), 160);
    EXPECT_EQ(picture.At(100, 80), (Pixel{255, 0, 0, 255}));
}

TEST(Render, DrawsTheStylesOfThisRepositoryWithoutAWarning)
{
    for (const char* const name : {"political", "physical", "city"})
        for (const char* const scale : {"1", "2"})
        {
            const TemporaryFolder folder;
            const ProgramRun run =
                RunTxmap({"render", std::string(TX_TEST_DATA "/../styles/") + name + ".json", "-o", folder / "map.png",
                          "--size", "300x200", "--scale", scale, "--plugin", kPlugin});
            EXPECT_EQ(run.exitCode, 0);
            EXPECT_THAT(run.errors, IsEmpty()) << name;
        }
}

TEST(Render, RefusesSuffixesBeforeAnythingIsRead)
{
    const ProgramRun run = RunTxmap({"render", "none.json", "-o", "map.xyz"});
    EXPECT_EQ(run.exitCode, kUsage);
    EXPECT_THAT(run.errors, HasSubstr("--output map.xyz"));
}

TEST(Render, LenientlyDrawsWhatItCan)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", WithLayers(std::string(kFill) + R"(, {"id": "x", "type": "fill", "source": "none"},
            {"id": "h", "type": "heatmap", "source": "s"})",
                                              R"("pitch": 30, )"));
    const ProgramRun run = RunTxmap({"render", style, "-o", folder / "map.png", "--size", "64x64", "--lenient",
                                     "--zoom", "0", "--plugin", kPlugin});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    for (const char* const problem : {"warning: ", "/pitch", "/layers/1/source", "/layers/2"})
        EXPECT_THAT(run.errors, HasSubstr(problem));
    EXPECT_EQ(Picture(folder / "map.png").At(32, 32), (Pixel{255, 0, 0, 255}));
}

TEST(Validate, PrintsEveryProblem)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", WithLayers(R"({"id": "a", "type": "fill", "source": "q", "paint": {"x": 1}})"));
    const ProgramRun run = RunTxmap({"validate", style});
    EXPECT_EQ(run.exitCode, kData);
    EXPECT_EQ(run.output, "/layers/0/source: there is no source \"q\"\n/layers/0/paint/x: unknown property\n");
    EXPECT_THAT(run.errors, HasSubstr("2 problems"));
}

TEST(Validate, ChecksWhatStandsInTheMetadata)
{
    const TemporaryFolder folder;
    const auto validate = [&](const std::string& type, const std::string& metadata)
    {
        const std::string source = type == "background" ? "" : R"(, "source": "s")";
        return RunTxmap({"validate",
                         folder.Write("style.json", WithLayers(R"({"id": "a", "type": ")" + type + "\"" + source +
                                                               R"(, "metadata": {"txmap:)" + metadata + "}}"))})
            .output;
    };
    EXPECT_EQ(validate("background", R"(polar-color": "#123")"), "");
    EXPECT_EQ(validate("background", R"(polar-color": "reddish")"),
              "/layers/0/metadata/txmap:polar-color: \"reddish\" is no color\n");
    EXPECT_THAT(validate("fill", R"(polar-color": "#123")"), HasSubstr("txmap:polar-color: only layers of type"));
    EXPECT_EQ(validate("line", R"(tolerance": 0.5)"), "");
    EXPECT_EQ(validate("line", R"(tolerance": "1")"),
              "/layers/0/metadata/txmap:tolerance: number expected, but string found\n");
    EXPECT_EQ(validate("line", R"(tolerance": -1)"),
              "/layers/0/metadata/txmap:tolerance: -1 is less than the minimum 0\n");
    EXPECT_THAT(validate("fill", R"(tolerance": 1)"), HasSubstr("txmap:tolerance: only layers of type"));
    EXPECT_EQ(validate("fill", R"(hatch": "cross")"), "");
    EXPECT_THAT(validate("fill", R"(hatch": "dots")"), HasSubstr("txmap:hatch: expected one of horizontal"));
    EXPECT_THAT(validate("line", R"(hatch": "cross")"), HasSubstr("txmap:hatch: only layers of type fill"));
}

TEST(Validate, IsSilentAboutGoodStyles)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunTxmap({"validate", folder.Write("style.json", WithLayers(kFill))});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, IsEmpty());
    EXPECT_THAT(run.errors, IsEmpty());
}

TEST(Validate, LenientlyAcceptsWhatIsNotDrawn)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", WithLayers(R"({"id": "h", "type": "heatmap", "source": "s"})"));
    EXPECT_EQ(RunTxmap({"validate", style}).exitCode, kData);
    const ProgramRun run = RunTxmap({"validate", style, "--lenient"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, StartsWith("warning: /layers/0"));
}

TEST(Atlas, IsTheSameWithAndWithoutItsName)
{
    EXPECT_EQ(RunTxmap({"atlas", "--help"}).output, RunTxmap({"--help"}).output);
}

namespace
{

/// Lets this process and its children write only files so large, without a signal where they go on.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*handler)(int);
    rlimit before{};
};

} // namespace

TEST(Render, SaysInOneLineThatNoMoreCanBeWritten)
{
    const TemporaryFolder folder;
    const std::string style = folder.Write("style.json", WithLayers(R"({"id": "f", "type": "fill", "source": "s",
        "metadata": {"txmap:gradient": {"type": "conical", "colors": ["#204060", "#f0c010"]}}})"));
    for (const char* const name : {"map.png", "map.jpg", "map.tif", "map.webp"})
    {
        ProgramRun run;
        {
            const FileSizeLimit limit(1024);
            run = RunTxmap(
                {"render", style, "-o", folder / name, "--size", "900x900", "--zoom", "1", "--plugin", kPlugin});
        }
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_THAT(run.errors, StartsWith("txmap: --output "));
        EXPECT_THAT(run.errors, HasSubstr("File too large"));
        EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1) << run.errors;
        EXPECT_THAT(folder.Names(), ElementsAre("style.json"));
    }
}

TEST(Render, RefusesPicturesWhoseCornersAreNone)
{
    const TemporaryFolder folder;
    const std::pair<const char*, const char*> mistakes[] = {
        {"[[-1e9, 10], [10, 10], [10, -10], [-10, -10]]", "corners that are no degrees"},
        {"[[1, 10], [10, 10], [10, 99], [1, 99]]", "corners that are no degrees"},
        {"[[1, 10], [1, 10], [1, 10], [1, 10]]", "corners without an area"}};
    for (const auto& [corners, culprit] : mistakes)
    {
        const std::string style = folder.Write("style.json", R"({"version": 8, "sources": {"s": {"type": "image",
            "url": "p.png", "coordinates": )" + std::string(corners) +
                                                                 R"(}}, "layers": [{"id": "r", "type": "raster",
            "source": "s"}]})");
        const ProgramRun run =
            RunTxmap({"render", style, "-o", folder / "map.png", "--size", "64x64", "--plugin", kPlugin});
        EXPECT_EQ(run.exitCode, kData);
        EXPECT_THAT(run.errors, HasSubstr(culprit));
    }
}
