#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LoadedLayer.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/FeatureNames.h>
#include <txmap/sources/Gdal.h>

using namespace txmap;
using ::testing::HasSubstr;

namespace
{

/// Reads features with names into a picture of the world in which a pixel is a degree.
class NamesOf
{
public:
    explicit NamesOf(const std::string& features, const std::string& field = "")
    {
        PrepareGdal();
        const TemporaryFolder folder;
        const std::string file =
            folder.Write("in.geojson", R"({"type":"FeatureCollection","features":[)" + features + "]}");
        NameRequest options;
        options.wanted = true;
        options.field = field;
        const auto source = LoadedSource(file, view);
        layer = ReadMapLayer(source->Features(""), view, options, true, 0.0);
        missing = source->Features("").empty() ||
                  FeatureNames(options, *source->Features("").front().features).Field().empty();
    }

    MapLayer layer;
    bool missing = false;

private:
    const AtlasView view{Projection::PlateCarree(), {}, PixelSize{360, 180}};
};

std::string Point(const std::string& properties)
{
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":{"type":"Point","coordinates":[1,2]}})";
}

std::string Square(const std::string& properties)
{
    return R"({"type":"Feature","properties":{)" + properties +
           R"(},"geometry":{"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,9],[0,0]]]}})";
}

} // namespace

TEST(FeatureNames, AreReadAsTheyAre)
{
    const NamesOf names(Point(R"("name":"A < B","adm0cap":1,"scalerank":3,"pop_max":500)") + "," +
                        Point(R"("name":"")") + "," + Point(R"("name":null)") + "," + Square(R"("name":"C")"));
    ASSERT_EQ(names.layer.placeNames.size(), 1u);
    EXPECT_EQ(names.layer.placeNames[0].index, 0u);
    EXPECT_EQ(names.layer.placeNames[0].name.text, "A < B");
    EXPECT_TRUE(names.layer.placeNames[0].name.capital);
    EXPECT_EQ(names.layer.placeNames[0].name.rank, 3.0);
    EXPECT_EQ(names.layer.placeNames[0].name.population, 500.0);
    ASSERT_EQ(names.layer.areaNames.size(), 1u);
    EXPECT_EQ(names.layer.areaNames[0].name.text, "C");
    EXPECT_EQ(names.layer.places.size(), 3u);
}

TEST(FeatureNames, ComeLastWithoutARankWhereOthersHaveOne)
{
    const NamesOf names(Point(R"("name":"a","scalerank":10)") + "," + Point(R"("name":"b")") + "," +
                        Point(R"("name":"c","scalerank":null)") + "," + Point(R"("name":"d","scalerank":1000)"));
    ASSERT_EQ(names.layer.placeNames.size(), 4u);
    EXPECT_EQ(names.layer.placeNames[0].name.rank, 10.0);
    EXPECT_GT(names.layer.placeNames[1].name.rank, 1000.0);
    EXPECT_GT(names.layer.placeNames[2].name.rank, 1000.0);
    EXPECT_EQ(names.layer.placeNames[3].name.rank, 1000.0);
}

TEST(FeatureNames, ComeFromTheFieldThatIsAskedFor)
{
    EXPECT_EQ(NamesOf(Point(R"("name":"a","name_de":"b")"), "name_de").layer.placeNames[0].name.text, "b");
    EXPECT_EQ(NamesOf(Point(R"("name":"a","size":42)"), "size").layer.placeNames[0].name.text, "42");
    EXPECT_EQ(NamesOf(Point(R"("admin":"a")")).layer.placeNames[0].name.text, "a");
}

TEST(FeatureNames, AreMissingWhereNoLayerHasTheField)
{
    EXPECT_TRUE(NamesOf(Point(R"("name":"a")"), "flavour").missing);
    EXPECT_TRUE(NamesOf(Point(R"("kind":"a")")).missing);
    EXPECT_FALSE(NamesOf(Point(R"("name":"a")"), "NAME").missing);
}

TEST(FeatureNames, AreFoundInWhateverCase)
{
    const NamesOf names(Point(R"("NAME":"a","ADM0CAP":1,"LabelRank":2,"Labelrank":3)"));
    ASSERT_EQ(names.layer.placeNames.size(), 1u);
    EXPECT_TRUE(names.layer.placeNames[0].name.capital);
    EXPECT_EQ(names.layer.placeNames[0].name.rank, 3.0);
}

TEST(FeatureNames, AreGradedByPopulationWhereThereIsNoRank)
{
    const auto rankOf = [](const std::string& properties)
    { return NamesOf(Point(R"("name":"a",)" + properties)).layer.placeNames.at(0).name.rank; };
    EXPECT_EQ(rankOf(R"("population":20000000)"), 0.0);
    EXPECT_EQ(rankOf(R"("population":1000000)"), 2.0);
    EXPECT_EQ(rankOf(R"("pop":"1000")"), 8.0);
    EXPECT_EQ(rankOf(R"("population":0)"), 14.0);
    EXPECT_EQ(rankOf(R"("population":1000000,"scalerank":7)"), 7.0);
    // A part of a town comes after every town.
    EXPECT_EQ(rankOf(R"("population":1000000,"fcode":"PPLX")"), 20.0);
    // Where nothing is said of it, nothing is known.
    EXPECT_EQ(rankOf(R"("colour":"red")"), 0.0);
}

TEST(FeatureNames, KnowCapitalsByWhatDataSaysOfThem)
{
    const auto isCapital = [](const std::string& properties)
    { return NamesOf(Point(R"("name":"a",)" + properties)).layer.placeNames.at(0).name.capital; };
    for (const char* const yes : {R"("adm0cap":1)", R"("capital":true)", R"("capital":"primary")", R"("fcode":"PPLC")",
                                  R"("featureCode":"PPLC")", R"("FEATURECLA":"Admin-0 capital")"})
        EXPECT_TRUE(isCapital(yes)) << yes;
    for (const char* const no : {R"("adm0cap":0)", R"("capital":"admin")", R"("fcode":"PPLA")", R"("capital":null)"})
        EXPECT_FALSE(isCapital(no)) << no;
}

TEST(FeatureNames, AreWrittenAtOneOfSeveralPoints)
{
    const NamesOf names(R"({"type":"Feature","properties":{"name":"a"},"geometry":{"type":"MultiPoint",)"
                        R"("coordinates":[[1,1],[2,2],[3,3]]}})");
    EXPECT_EQ(names.layer.places.size(), 3u);
    EXPECT_EQ(names.layer.placeNames.size(), 1u);
}

TEST(MissingNames, SayWhatToDo)
{
    NameRequest options;
    EXPECT_THAT(MissingNames(options), HasSubstr("--label-field"));
    options.field = "flavour";
    EXPECT_THAT(MissingNames(options), HasSubstr("--label-field flavour"));
}
