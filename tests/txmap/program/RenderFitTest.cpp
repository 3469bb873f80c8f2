// What txmap render shows of data when it looks for it, and when there is none.
#include <algorithm>
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

const std::string kPlugin = TX_TEST_PLUGIN;

std::string Square(double west, double south, double east, double north)
{
    const auto corner = [](double x, double y) { return "[" + std::to_string(x) + ", " + std::to_string(y) + "]"; };
    return R"({"type": "Polygon", "coordinates": [[)" + corner(west, south) + "," + corner(east, south) + "," +
           corner(east, north) + "," + corner(west, north) + "," + corner(west, south) + "]]}";
}

/// A style with a layer of areas for each source, whose names are a, b and so on.
std::string StyleOf(const std::vector<std::string>& sources, const std::string& layerMembers = "")
{
    std::string members;
    std::string layers;
    for (std::size_t i = 0; i < sources.size(); ++i)
    {
        const std::string name(1, static_cast<char>('a' + i));
        members += (i == 0 ? "\"" : ", \"") + name + "\": " + sources[i];
        layers += (i == 0 ? "" : ", ") + (R"({"id": ")" + name + R"(", "type": "fill", "source": ")" + name) +
                  R"(", "paint": {"fill-color": "#ff0000", "fill-antialias": false})" + layerMembers + "}";
    }
    return R"({"version": 8, "sources": {)" + members + R"(}, "layers": [)" + layers + "]}";
}

std::string GeoJson(const std::string& data, const std::string& members = "")
{
    return R"({"type": "geojson", "data": )" + data + members + "}";
}

/// The box around all red pixels: left, top, right, bottom.
std::vector<int> RedBox(const Picture& picture)
{
    std::vector<int> box = {picture.Width(), picture.Height(), -1, -1};
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            if (picture.At(x, y) == Pixel{255, 0, 0, 255})
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
    return box;
}

} // namespace

TEST(RenderFit, ShowsAllDataWithALittleRoom)
{
    const TemporaryFolder folder;
    // On the equator, degrees are equally long: 10 of them, and 4 parts of 100 on both sides.
    const std::string style =
        folder.Write("style.json", StyleOf({GeoJson(Square(20, -1, 24, 1)), GeoJson(Square(26, -1, 30, 1))}));
    const ProgramRun run =
        RunTxmap({"render", style, "-o", folder / "map.png", "--size", "1080x600", "--fit", "--plugin", kPlugin});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.errors, IsEmpty());
    const Picture picture(folder / "map.png");
    EXPECT_THAT(RedBox(picture), ElementsAre(40, 200, 1039, 399));
    EXPECT_NE(picture.At(540, 300), (Pixel{255, 0, 0, 255}));
}

TEST(RenderFit, DrawsAsTheSameBoxDoes)
{
    const TemporaryFolder folder;
    const std::string data = folder.Write("data.geojson", Square(1, 1, 4, 6));
    for (const std::string& members : {std::string(), std::string(R"(, "cluster": true)")})
    {
        const std::string style = folder.Write("style.json", StyleOf({GeoJson("\"" + data + "\"", members)}));
        const auto draw = [&](const std::string& name, const std::vector<std::string>& view)
        {
            std::vector<std::string> arguments = {"render",  style, "-o",        folder / name, "--size",   "200x300",
                                                  "--scale", "2",   "--bearing", "30",          "--plugin", kPlugin};
            arguments.insert(arguments.end(), view.begin(), view.end());
            const ProgramRun run = RunTxmap(arguments);
            EXPECT_EQ(run.exitCode, 0) << run.errors;
            return Picture(folder / name);
        };
        EXPECT_EQ(draw("fit.png", {"--fit"}).Pixels(), draw("box.png", {"--bbox", "0.88,0.8,4.12,6.2"}).Pixels());
    }
}

TEST(RenderFit, ShowsSomethingAroundAPoint)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", R"({"version": 8, "sources": {"a": )" +
                                       GeoJson(R"({"type": "Point", "coordinates": [8.5, 47.4]})") +
                                       R"(}, "layers": [{"id": "a", "type": "circle",
            "source": "a", "paint": {"circle-color": "#ff0000", "circle-radius": 5}}]})");
    const ProgramRun run =
        RunTxmap({"render", style, "-o", folder / "map.png", "--size", "101x101", "--fit", "--plugin", kPlugin});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(Picture(folder / "map.png").At(50, 50), (Pixel{255, 0, 0, 255}));
}

TEST(RenderFit, KeepsTheStylesViewWhereNothingLies)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", StyleOf({GeoJson(R"({"type": "FeatureCollection", "features": []})")}));
    const ProgramRun run =
        RunTxmap({"render", style, "-o", folder / "map.png", "--size", "32x32", "--fit", "--plugin", kPlugin});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.errors, HasSubstr("warning: --fit: no source says where its data lies"));
}

TEST(EmptyMap, SaysWhereTheDataLies)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", StyleOf({GeoJson(Square(20, 10, 24, 12)), GeoJson(Square(-40, -8.5, -30, 1))}));
    const ProgramRun run = RunTxmap({"render", style, "-o", folder / "map.png", "--size", "64x64", "--bbox",
                                     "100,-10,120,10", "--plugin", kPlugin});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, StartsWith("txmap: warning: nothing lies in the part of the world shown, "
                                       "99.95,-10,120.05,10: a covers 20,10,24,12, "));
    EXPECT_THAT(run.errors, HasSubstr(", b covers -40,-8.5,-30,1\n"));
    EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1);
}

TEST(EmptyMap, SaysThatNoLayerIsDrawnAtAZoom)
{
    const TemporaryFolder folder;
    const std::string style = folder.Write("style.json", StyleOf({GeoJson(Square(0, 0, 4, 4))}, R"(, "minzoom": 5)"));
    const ProgramRun run =
        RunTxmap({"render", style, "-o", folder / "map.png", "--size", "64x64", "--zoom", "2.5", "--plugin", kPlugin});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "txmap: warning: no layer with data is drawn at zoom 2.5\n");
}

TEST(EmptyMap, IsNotOneWithoutSources)
{
    const TemporaryFolder folder;
    const std::string style =
        folder.Write("style.json", R"({"version": 8, "sources": {}, "layers": [{"id": "b", "type": "background"}]})");
    const ProgramRun run =
        RunTxmap({"render", style, "-o", folder / "map.png", "--size", "64x64", "--plugin", kPlugin});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, IsEmpty());
}
