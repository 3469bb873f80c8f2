#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;
namespace fs = std::filesystem;

namespace
{

constexpr int kDrawing = 1;
constexpr int kUsage = 2;
constexpr int kPlugin = 3;
constexpr int kData = 4;

constexpr char kOlder[] = "an older picture";

/// Something that a user may get wrong.
struct Mistake
{
    std::string name;
    int exitCode;
    /// Prepares files in the folder and returns the arguments, without the output.
    std::function<std::vector<std::string>(const TemporaryFolder&)> arguments;
    /// What the message must name.
    std::string culprit;
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

std::string Countries() { return DataFile("countries-110m.json"); }

std::string Start(const std::string& file, std::size_t bytes) { return ContentOf(file).substr(0, bytes); }

std::string WriteRaster(const std::string& path)
{
    GDALAllRegister();
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    const GDALDatasetUniquePtr raster(driver->Create(path.c_str(), 8, 8, 1, GDT_Byte, nullptr));
    return path;
}

/// A mistake in what is read, in one file of the folder.
Mistake WrongData(const std::string& name, const std::string& file, const std::string& content)
{
    return {name, kData,
            [=](const TemporaryFolder& folder) { return std::vector<std::string>{folder.Write(file, content)}; }, file};
}

/// A mistake in an option; the data is good.
Mistake WrongOption(const std::string& name, int exitCode, const std::vector<std::string>& option,
                    const std::string& culprit)
{
    return {name, exitCode,
            [=](const TemporaryFolder&)
            {
                std::vector<std::string> arguments = option;
                arguments.push_back(Countries());
                return arguments;
            },
            culprit};
}

/// A value that the option cannot have.
Mistake WrongValue(const std::string& name, const std::string& option, const std::string& value)
{
    return WrongOption(name, kUsage, {option, value}, option);
}

std::vector<Mistake> Mistakes()
{
    const std::string square = R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"kind":"a"},)"
                               R"("geometry":{"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]]]}}]})";
    return {
        {"MissingFile", kData,
         [](const TemporaryFolder& folder) { return std::vector<std::string>{folder / "missing.geojson"}; },
         "missing.geojson"},
        {"Directory", kData, [](const TemporaryFolder& folder) { return std::vector<std::string>{folder.Path()}; },
         "directory"},
        {"EmptyDirectory", kData,
         [](const TemporaryFolder& folder)
         {
             fs::create_directory(folder.Path() / "nothing");
             return std::vector<std::string>{folder / "nothing"};
         },
         "nothing"},
        WrongData("EmptyFile", "empty.geojson", ""),
        WrongData("TruncatedGeoJson", "cut.geojson", Start(DataFile("places-110m.geojson"), 20000)),
        WrongData("GeoJsonTruncatedByOneBrace", "brace.geojson", square.substr(0, square.size() - 1)),
        WrongData("TruncatedTopoJson", "cut.json", Start(Countries(), 50000)),
        WrongData("Text", "text.geojson", "Not a map, and two\nlines of it.\n"),
        WrongData("TableWithoutGeometry", "table.csv", "name,size\na,1\nb,2\n"),
        WrongData("MetresWithoutCoordinateSystem", "metres.csv",
                  "id,WKT\n1,\"POLYGON ((0 0,500000 0,500000 500000,0 0))\"\n"),
        {"Raster", kData,
         [](const TemporaryFolder& folder) { return std::vector<std::string>{WriteRaster(folder / "raster.tif")}; },
         "raster.tif"},
        {"SecondInput", kData,
         [](const TemporaryFolder& folder) {
             return std::vector<std::string>{Countries(), folder / "missing.gpkg"};
         },
         "missing.gpkg"},
        WrongOption("MissingBorders", kData, {"--borders", "/no/borders.gpkg"}, "/no/borders.gpkg"),
        WrongOption("LayerThatIsNotThere", kData, {"--lines", Countries() + "#roads"}, "roads"),
        WrongOption("PointsAsCountries", kData, {"--countries", DataFile("places-110m.geojson")}, "places-110m"),
        WrongOption("AttributeThatIsNotThere", kData, {"--color-by", "flavour"}, "flavour"),
        WrongOption("UnknownProjection", kUsage, {"--crs", "EPSG:9999"}, "EPSG:9999"),
        WrongValue("NoProjection", "--crs", "round"),
        WrongValue("SizeOfZero", "--size", "0x0"),
        WrongValue("HeightOfZero", "--size", "800x0"),
        WrongValue("NegativeSize", "--size", "-5x10"),
        WrongValue("HugeSize", "--size", "100000x100000"),
        WrongValue("SizeBeyondNumbers", "--size", "99999999999999999999x1"),
        WrongValue("SizeOfOneNumber", "--size", "800"),
        WrongValue("SizeWithUnits", "--size", "800x600px"),
        WrongValue("BoxOfThree", "--bbox", "1,2,3"),
        WrongValue("BoxOfWords", "--bbox", "a,b,c,d"),
        WrongValue("BoxUpsideDown", "--bbox", "0,20,10,10"),
        WrongValue("BoxBeyondThePole", "--bbox", "0,20,10,95"),
        WrongValue("BoxOfNaN", "--bbox", "nan,nan,nan,nan"),
        WrongValue("EmptyBox", "--bbox", "5,5,5,5"),
        WrongOption("BoxOutsideTheProjection", kUsage, {"--crs", "EPSG:3857", "--bbox", "0,86,10,89"}, "--bbox"),
        WrongValue("NegativeGraticule", "--graticule", "-3"),
        WrongValue("GraticuleOfWords", "--graticule", "ten"),
        WrongOption("LabelFieldThatIsNotThere", kUsage, {"--label-field", "flavour"}, "--label-field flavour"),
        WrongOption("LabelFieldOfLinesAlone", kUsage,
                    {"--label-field", "flavour", "--borders", DataFile("rivers-50m.json")}, "--label-field flavour"),
        WrongValue("LabelSizeOfZero", "--label-size", "0"),
        WrongValue("NegativeLabelSize", "--label-size", "-12"),
        WrongValue("HugeLabelSize", "--label-size", "1000000"),
        WrongValue("LabelSizeOfWords", "--label-size", "large"),
        WrongValue("HaloWithoutColour", "--label-halo", "2"),
        WrongValue("HaloOfAnUnknownColour", "--label-halo", "2:mud"),
        WrongValue("NegativeHalo", "--label-halo", "-2:white"),
        WrongValue("HaloOfWords", "--label-halo", "wide:white"),
        WrongOption("UnknownSymbol", kUsage, {"--symbol", "blob"}, "--symbol blob"),
        WrongValue("SymbolOfNoCharacter", "--symbol", "font:DejaVu Sans:"),
        WrongValue("SymbolBeyondSixteenBits", "--symbol", "font:DejaVu Sans:U+1F600"),
        WrongValue("SymbolSizeOfZero", "--symbol-size", "0"),
        WrongOption("SymbolSizeTwice", kUsage, {"--symbol", "font:DejaVu Sans:x:9", "--symbol-size", "9"},
                    "--symbol-size"),
        WrongValue("FrameOfTwoPoints", "--frame", "0,0 10,10"),
        WrongValue("FrameOfNaN", "--frame", "nan,0 10,10 5,5"),
        WrongValue("FrameThatIsALine", "--frame", "0,0 10,10 20,20"),
        WrongValue("FrameOutside", "--frame", "-9,-9 -5,-9 -5,-5"),
        WrongValue("NegativeRadius", "--frame", "rounded:-3"),
        WrongOption("MissingFrame", kData, {"--frame", "/no/frame.geojson"}, "--frame /no/frame.geojson"),
        WrongOption("FrameOfPoints", kData, {"--frame", DataFile("places-110m.geojson")}, "--frame"),
        WrongOption("ArrowInNoCorner", kUsage, {"--north-arrow", "middle"}, "--north-arrow middle"),
        WrongValue("ArrowOfNoAngle", "--north-arrow", "top-right:up"),
        WrongOption("MissingRaster", kData, {"--raster", "/no/raster.tif"}, "--raster /no/raster.tif"),
        WrongOption("VectorsAsRaster", kData, {"--raster", DataFile("places-110m.geojson")}, "--raster"),
        WrongOption("OpacityBeyondOne", kUsage, {"--raster", "r.tif", "--raster-opacity", "1.5"}, "--raster-opacity"),
        WrongOption("OpacityOfNaN", kUsage, {"--raster", "r.tif", "--raster-opacity", "nan"}, "--raster-opacity"),
        WrongValue("OpacityWithoutRaster", "--raster-opacity", "0.5"),
        {"RasterWithoutGeoreference", kData,
         [](const TemporaryFolder& folder) {
             return std::vector<std::string>{"--raster", WriteRaster(folder / "bare.tif")};
         },
         "bare.tif"},
        {"CorruptRaster", kData,
         [](const TemporaryFolder& folder)
         {
             const std::string start = Start(WriteRaster(folder / "whole.tif"), 60);
             return std::vector<std::string>{"--raster", folder.Write("cut.tif", start)};
         },
         "cut.tif"},
        WrongValue("UnknownOption", "--sise", "10x10"),
        {"NoInput", kUsage, [](const TemporaryFolder&) { return std::vector<std::string>{}; }, "input"},
        WrongOption("PluginThatIsNotThere", kPlugin, {"--plugin", "txpluginnone"}, "txpluginnone"),
        WrongOption("PluginPathThatIsNotThere", kPlugin, {"--plugin", "/no/libplugin.so"}, "/no/libplugin.so"),
        {"PluginThatIsText", kPlugin,
         [](const TemporaryFolder& folder) {
             return std::vector<std::string>{Countries(), "--plugin", folder.Write("libtext.so", "no plugin")};
         },
         "libtext.so"},
        WrongOption("LibraryThatIsNoPlugin", kPlugin, {"--plugin", TX_TEST_TXBASE}, "libtxbase"),
    };
}

std::size_t LinesIn(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// The one line that a failed run may leave.
void ExpectOneLine(const ProgramRun& run, const std::string& culprit)
{
    EXPECT_EQ(LinesIn(run.errors), 1u) << run.errors;
    EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1) << run.errors;
    EXPECT_THAT(run.errors, StartsWith("txmap: "));
    EXPECT_THAT(run.errors, HasSubstr(culprit));
    EXPECT_EQ(run.output, "");
}

class BadInput : public ::testing::TestWithParam<Mistake>
{
};

} // namespace

TEST_P(BadInput, GetsOneLineAndAnExitCodeAndLeavesNoFile)
{
    const TemporaryFolder inputs;
    const TemporaryFolder outputs;
    std::vector<std::string> arguments = GetParam().arguments(inputs);
    arguments.insert(arguments.end(), {"--output", outputs / "map.png"});

    const ProgramRun run = RunTxmap(arguments);

    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    ExpectOneLine(run, GetParam().culprit);
    EXPECT_TRUE(outputs.Names().empty());
}

TEST_P(BadInput, LeavesAnOlderPictureAsItWas)
{
    const TemporaryFolder inputs;
    const TemporaryFolder outputs;
    std::vector<std::string> arguments = GetParam().arguments(inputs);
    arguments.insert(arguments.end(), {"--output", outputs.Write("map.png", kOlder)});

    EXPECT_EQ(RunTxmap(arguments).exitCode, GetParam().exitCode);
    EXPECT_EQ(ContentOf(outputs / "map.png"), kOlder);
    EXPECT_EQ(outputs.Names(), std::set<std::string>{"map.png"});
}

INSTANTIATE_TEST_SUITE_P(All, BadInput, ::testing::ValuesIn(Mistakes()),
                         [](const auto& test) { return test.param.name; });

namespace
{

/// Runs with good data and an output that cannot be written.
ProgramRun RunWithOutput(const std::string& output)
{
    return RunTxmap({Countries(), "--size", "64x32", "--output", output});
}

} // namespace

TEST(UnwritableOutput, InAFolderThatIsNotThere)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunWithOutput(folder / "none/map.png");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "none/map.png");
    EXPECT_TRUE(folder.Names().empty());
}

TEST(UnwritableOutput, BelowAFile)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("file", "content");
    const ProgramRun run = RunWithOutput(file + "/map.png");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "file/map.png");
    EXPECT_EQ(ContentOf(file), "content");
}

TEST(UnwritableOutput, InAFolderOfTheSystemThatTakesNoFiles)
{
    const ProgramRun run = RunWithOutput("/proc/map.png");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "/proc/map.png");
}

TEST(UnwritableOutput, AFolder)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() / "map.png");
    const ProgramRun run = RunWithOutput(folder / "map.png");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "map.png");
    EXPECT_TRUE(fs::is_empty(folder.Path() / "map.png"));
}

TEST(UnwritableOutput, APipeIsNotReplaced)
{
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe.png").c_str(), 0600), 0);
    const ProgramRun run = RunWithOutput(folder / "pipe.png");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "pipe.png");
    EXPECT_TRUE(fs::is_fifo(folder.Path() / "pipe.png"));
}

TEST(UnwritableOutput, AFormatThatNobodyKnows)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunWithOutput(folder.Write("map.nonsense", kOlder));
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "map.nonsense");
    EXPECT_EQ(ContentOf(folder / "map.nonsense"), kOlder);
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.nonsense"});
}

TEST(UnwritableOutput, WithoutASuffix)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunWithOutput(folder / "map");
    EXPECT_EQ(run.exitCode, kDrawing);
    ExpectOneLine(run, "map");
    EXPECT_TRUE(folder.Names().empty());
}
