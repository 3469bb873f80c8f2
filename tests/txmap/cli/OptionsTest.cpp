#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/cli/Options.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;

namespace
{

Options Parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "txmap");
    return ParseOptions(static_cast<int>(arguments.size()), arguments.data());
}

std::string Refusal(const std::vector<const char*>& arguments)
{
    return RefusalOf(ExitCode::Usage, [&] { Parse(arguments); });
}

} // namespace

TEST(Options, HaveDefaults)
{
    const Options options = Parse({"world.gpkg"});
    EXPECT_EQ(options.action, Options::Action::Render);
    ASSERT_EQ(options.layers.size(), 1u);
    EXPECT_EQ(options.layers[0].source, "world.gpkg");
    EXPECT_EQ(options.layers[0].role, LayerRole::Any);
    EXPECT_EQ(options.output, "map.png");
    EXPECT_EQ(options.plugin, "txpluginqt");
    EXPECT_FALSE(options.size);
    EXPECT_FALSE(options.box);
    EXPECT_FALSE(options.graticule);
    EXPECT_EQ(options.projection.MaxLatitude(), 90.0);
}

TEST(Options, TakeSeveralLayersOfEachKind)
{
    const Options options =
        Parse({"--countries", "a#b", "c", "--lines", "d", "--lines", "e", "--lakes", "f", "--borders", "g", "h"});
    std::vector<std::pair<std::string, LayerRole>> layers;
    for (const LayerRequest& layer : options.layers)
        layers.emplace_back(layer.source, layer.role);
    EXPECT_THAT(layers,
                ::testing::UnorderedElementsAre(std::pair{"a#b", LayerRole::Countries}, std::pair{"c", LayerRole::Any},
                                                std::pair{"d", LayerRole::Lines}, std::pair{"e", LayerRole::Lines},
                                                std::pair{"f", LayerRole::Lakes}, std::pair{"g", LayerRole::Borders},
                                                std::pair{"h", LayerRole::Any}));
}

TEST(Options, ReadEveryValue)
{
    const Options options = Parse({"in", "-o", "out.png", "--size", "300x200", "--crs", "EPSG:3857", "--bbox",
                                   "-10.5,35,30,60", "--graticule", "7.5", "--color-by", "pop", "--plugin", "./p.so"});
    EXPECT_EQ(options.output, "out.png");
    EXPECT_EQ(options.size->width, 300);
    EXPECT_EQ(options.size->height, 200);
    EXPECT_LT(options.projection.MaxLatitude(), 86.0);
    EXPECT_EQ(options.box->west, -10.5);
    EXPECT_EQ(options.box->south, 35.0);
    EXPECT_EQ(options.box->east, 30.0);
    EXPECT_EQ(options.box->north, 60.0);
    EXPECT_EQ(options.graticule, 7.5);
    EXPECT_EQ(options.colorBy, "pop");
    EXPECT_EQ(options.plugin, "./p.so");
}

TEST(Options, TakeABoxAcrossTheDateLineInBothForms)
{
    EXPECT_EQ(Parse({"in", "--bbox", "170,-20,190,-10"}).box->east, 190.0);
    EXPECT_EQ(Parse({"in", "--bbox", "170,-20,-170,-10"}).box->east, 190.0);
    EXPECT_EQ(Parse({"in", "--bbox=-180,-90,180,90"}).box->west, -180.0);
}

TEST(Options, RefuseBoxesThatShowNothingOrTooMuch)
{
    for (const char* const box : {"0,0,0,10", "0,0,10,0", "0,10,10,0", "-200,0,200,10", "0,0,400,10", "0,-91,10,0",
                                  "inf,0,10,10", "0,0,10", "0,0,10,10,20", "0 0 10 10", "0,0,10,10x", "", ",,,"})
        EXPECT_THAT(Refusal({"in", "--bbox", box}), HasSubstr("--bbox")) << box;
}

TEST(Options, TakeAGraticuleFromNoneToAQuarterOfATurn)
{
    EXPECT_EQ(Parse({"in", "--graticule", "90"}).graticule, 90.0);
    EXPECT_EQ(Parse({"in", "--graticule", "0"}).graticule, 0.0);
    for (const char* const step : {"90.1", "-0.1", "nan", "", "5,5", "wide"})
        EXPECT_THAT(Refusal({"in", "--graticule", step}), HasSubstr("--graticule")) << step;
}

TEST(Options, RefuseSizesThatAreNone)
{
    for (const char* const size : {"0x100", "100x0", "100000x100", "100x100000", "100", "x", "100x", "100x100x100",
                                   "1e3x100", "100.5x100", "-100x100", "+100x100", " 100x100", ""})
        EXPECT_THAT(Refusal({"in", "--size", size}), HasSubstr("--size")) << size;
    EXPECT_EQ(Parse({"in", "--size", "1x1"}).size->width, 1);
    EXPECT_EQ(Parse({"in", "--size", "16384x16384"}).size->height, 16384);
}

TEST(Options, NameWhatTheyDoNotKnow)
{
    EXPECT_THAT(Refusal({"in", "--colour", "red"}), HasSubstr("--colour"));
    EXPECT_THAT(Refusal({"in", "--crs", "EPSG:25832"}), HasSubstr("EPSG:25832"));
    EXPECT_THAT(Refusal({"in", "--size"}), HasSubstr("--size"));
    EXPECT_THAT(Refusal({}), HasSubstr("no input"));
    EXPECT_THAT(Refusal({"in", "--plugin", ""}), HasSubstr("--plugin"));
    EXPECT_THAT(Refusal({"in", "--output", ""}), HasSubstr("--output"));
}

TEST(Options, AnswerWithoutInput)
{
    EXPECT_EQ(Parse({"--list-plugins"}).action, Options::Action::ListPlugins);
    EXPECT_EQ(Parse({"--version"}).action, Options::Action::ShowText);
    const Options help = Parse({"--help"});
    EXPECT_EQ(help.action, Options::Action::ShowText);
    EXPECT_THAT(help.text, HasSubstr("--bbox"));
}

TEST(Options, ReadWhatAnAtlasMayHave)
{
    const Options options = Parse({"in", "--scale", "2.5", "--legend", "--scale-bar", "--write-style", "s.json",
                                   "--raster", "r.tif", "--raster-blend", "multiply"});
    EXPECT_EQ(options.scale, 2.5);
    EXPECT_TRUE(options.legend);
    EXPECT_TRUE(options.scaleBar);
    EXPECT_EQ(options.styleOutput, "s.json");
    EXPECT_EQ(options.raster->multiplies, true);
    EXPECT_FALSE(Parse({"in", "--raster", "r.tif"}).raster->multiplies);
    for (const char* const scale : {"0", "-1", "17", "nan", "x"})
        EXPECT_THAT(Refusal({"in", "--scale", scale}), HasSubstr("--scale")) << scale;
    EXPECT_THAT(Refusal({"in", "--raster-blend", "multiply"}), HasSubstr("--raster-blend"));
    EXPECT_THAT(Refusal({"--raster", "r.tif", "--raster-blend", "screen"}), HasSubstr("--raster-blend"));
}

TEST(Options, KeepStyleAndPictureApart)
{
    EXPECT_THAT(Refusal({"in", "-o", "same.png", "--write-style", "same.png"}), HasSubstr("--write-style same.png"));
    EXPECT_THAT(Refusal({"in", "-o", "same.png", "--write-style", "./none/../same.png"}), HasSubstr("--write-style"));
    EXPECT_THAT(Refusal({"in", "--write-style", "map.png"}), HasSubstr("--write-style map.png"));
    const TemporaryFolder folder;
    const std::string picture = folder.Write("a.png", "older");
    const std::string link = folder / "b.png";
    std::filesystem::create_symlink(picture, link);
    EXPECT_THAT(Refusal({"in", "-o", picture.c_str(), "--write-style", link.c_str()}), HasSubstr("--write-style"));
    EXPECT_EQ(Parse({"in", "-o", picture.c_str(), "--write-style", "s.json"}).styleOutput, "s.json");
}

TEST(Options, ReadARampOfColours)
{
    const ColorRamp colors = *Parse({"in", "--color-ramp", "pop:est:#fff:black"}).ramp;
    EXPECT_EQ(colors.field, "pop:est");
    EXPECT_EQ(colors.low.red, 1.0);
    EXPECT_EQ(colors.high.red, 0.0);
    EXPECT_FALSE(colors.from);
    const ColorRamp numbers = *Parse({"in", "--color-ramp", "pop:-5:1e6"}).ramp;
    EXPECT_EQ(numbers.from, -5.0);
    EXPECT_EQ(numbers.to, 1e6);
    for (const char* const ramp : {"pop", "pop:1", ":1:2", "pop:2:1", "pop:1:white", "pop:reddish:white", "a::"})
        EXPECT_THAT(Refusal({"in", "--color-ramp", ramp}), HasSubstr("--color-ramp")) << ramp;
    EXPECT_THAT(Refusal({"in", "--color-by", "a", "--color-ramp", "a:1:2"}), HasSubstr("--color-by"));
}
