#include <map>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LoadedLayer.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/atlas/Adjacency.h>
#include <txmap/atlas/AreaColors.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/Gdal.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::Pair;

namespace
{

const AtlasView kWorld{Projection::PlateCarree(), {}, PixelSize{360, 180}};

std::string Cell(int column, int row, const std::string& properties)
{
    const auto corner = [&](int dx, int dy)
    { return "[" + std::to_string(column + dx) + "," + std::to_string(row + dy) + "]"; };
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":{"type":"Polygon","coordinates":[[)" +
           corner(0, 0) + "," + corner(1, 0) + "," + corner(1, 1) + "," + corner(0, 1) + "," + corner(0, 0) + "]]}}";
}

AreaColors Colored(const std::string& features, const std::string& colorBy = "", int classes = 7)
{
    PrepareGdal();
    const TemporaryFolder folder;
    const std::string file =
        folder.Write("in.geojson", R"({"type":"FeatureCollection","features":[)" + features + "]}");
    const auto source = LoadedSource(file, kWorld);
    return ColorAreas(*source->Features("").at(0).features, colorBy, classes);
}

} // namespace

TEST(AreaColors, TakeNumbersAsTheyAre)
{
    const AreaColors colors = Colored(Cell(0, 0, R"("mapcolor":5,"name":"a")") + "," + Cell(1, 0, R"("mapcolor":9)") +
                                      "," + Cell(2, 0, R"("mapcolor":0)") + "," + Cell(3, 0, R"("mapcolor":-3)"));
    EXPECT_EQ(colors.field, "mapcolor");
    EXPECT_THAT(colors.classes, ElementsAre(Pair("-3", 0), Pair("0", 0), Pair("5", 5), Pair("9", 2)));
}

TEST(AreaColors, GiveEqualValuesOneColour)
{
    const AreaColors colors = Colored(Cell(0, 0, R"("kind":"b","mapcolor":1)") + "," + Cell(1, 0, R"("kind":"a")") +
                                          "," + Cell(2, 0, R"("kind":"b")") + "," + Cell(3, 0, R"("kind":"")"),
                                      "kind");
    EXPECT_EQ(colors.field, "kind");
    ASSERT_EQ(colors.classes.size(), 2u);
    EXPECT_NE(colors.classes.at("a"), colors.classes.at("b"));
}

TEST(AreaColors, AllDifferWhereThereAreEnough)
{
    std::string features;
    for (int i = 0; i < 7; ++i)
        features += (i > 0 ? "," : "") + Cell(10 * i, 0, R"("name":"n)" + std::to_string(i) + R"(")");
    std::set<int> given;
    for (const auto& [name, category] : Colored(features).classes)
        given.insert(category);
    EXPECT_EQ(given.size(), 7u);
}

TEST(AreaColors, DifferBetweenNeighbours)
{
    // A chessboard whose cells also touch at their corners needs four colours.
    std::string features;
    for (int column = 0; column < 8; ++column)
        for (int row = 0; row < 8; ++row)
            features += (features.empty() ? "" : ",") +
                        Cell(column, row, R"("name":"n)" + std::to_string(column * 8 + row) + R"(")");
    const AreaColors colors = Colored(features);
    const auto colorOf = [&](int column, int row) { return colors.classes.at("n" + std::to_string(column * 8 + row)); };
    for (int column = 0; column < 7; ++column)
        for (int row = 0; row < 7; ++row)
        {
            EXPECT_NE(colorOf(column, row), colorOf(column + 1, row));
            EXPECT_NE(colorOf(column, row), colorOf(column, row + 1));
            EXPECT_NE(colorOf(column, row), colorOf(column + 1, row + 1));
            EXPECT_NE(colorOf(column + 1, row), colorOf(column, row + 1));
        }
}

TEST(AreaColors, DoNotDependOnTheOrderOfTheFeatures)
{
    const std::string a = Cell(0, 0, R"("name":"a")");
    const std::string b = Cell(1, 0, R"("name":"b")");
    const std::string c = Cell(2, 0, R"("name":"c")");
    EXPECT_EQ(Colored(a + "," + b + "," + c).classes, Colored(c + "," + a + "," + b).classes);
}

TEST(AreaColors, GoByTheIdentifierWhereThereIsNoAttribute)
{
    const std::string features = R"({"type":"Feature","id":4,)" + Cell(0, 0, "").substr(18) + "," +
                                 R"({"type":"Feature","id":5,)" + Cell(1, 0, "").substr(18);
    const AreaColors colors = Colored(features);
    EXPECT_EQ(colors.field, "");
    ASSERT_EQ(colors.classes.size(), 2u);
    EXPECT_NE(colors.classes.at("4"), colors.classes.at("5"));
}

TEST(AreaColors, OfTheWorldDifferAcrossEveryBorder)
{
    PrepareGdal();
    const auto source = LoadedSource(std::string(TX_TEST_DATA) + "/countries-50m.json", kWorld);
    const FeatureSet& set = *source->Features("").at(0).features;
    const AreaColors colors = ColorAreas(set, "name", 7);
    std::vector<std::string> names;
    std::vector<std::size_t> groups;
    for (const SetFeature& feature : set.features)
    {
        groups.push_back(names.size());
        names.push_back(set.Property(feature, "name")->ToString());
    }
    const auto neighbours = FindNeighbours(set, groups, names.size());
    std::size_t borders = 0;
    for (std::size_t i = 0; i < names.size(); ++i)
        for (const std::size_t neighbour : neighbours[i])
        {
            ++borders;
            EXPECT_TRUE(names[i] == names[neighbour] ||
                        colors.classes.at(names[i]) != colors.classes.at(names[neighbour]))
                << names[i] << ", " << names[neighbour];
        }
    EXPECT_GT(borders, 500u);
}

namespace
{

RampRange RangeIn(const std::string& features, ColorRamp ramp)
{
    PrepareGdal();
    const TemporaryFolder folder;
    const std::string file =
        folder.Write("in.geojson", R"({"type":"FeatureCollection","features":[)" + features + "]}");
    return RangeOf(*LoadedSource(file, kWorld)->Features("").at(0).features, ramp);
}

} // namespace

TEST(RampRange, IsThatOfTheNumbersOrAsAskedFor)
{
    const std::string features = Cell(0, 0, R"("V":5)") + "," + Cell(1, 0, R"("V":15)") + "," +
                                 Cell(2, 0, R"("V":null)") + "," + Cell(3, 0, R"("V":"x")");
    const RampRange range = RangeIn(features, {"v", {}, {}, std::nullopt, std::nullopt});
    EXPECT_EQ(range.field, "V");
    EXPECT_EQ(range.low, 5.0);
    EXPECT_EQ(range.high, 15.0);
    EXPECT_FALSE(range.isLogarithmic);
    EXPECT_EQ(RangeIn(features, {"v", {}, {}, 0.0, 100.0}).high, 100.0);
    EXPECT_EQ(RangeIn(features, {"w", {}, {}, std::nullopt, std::nullopt}).field, "");
}

TEST(RampRange, IsLogarithmicForNumbersOfVeryDifferentSize)
{
    const std::string features = Cell(0, 0, R"("v":5)") + "," + Cell(1, 0, R"("v":50000)");
    EXPECT_TRUE(RangeIn(features, {"v", {}, {}, std::nullopt, std::nullopt}).isLogarithmic);
    EXPECT_FALSE(RangeIn(features, {"v", {}, {}, 5.0, 50000.0}).isLogarithmic);
}
