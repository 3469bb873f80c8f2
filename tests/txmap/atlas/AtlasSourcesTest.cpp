#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;

namespace
{

std::string Box(double west, double south, double east, double north)
{
    const auto corner = [](double x, double y) { return "[" + std::to_string(x) + "," + std::to_string(y) + "]"; };
    return R"({"type":"Polygon","coordinates":[[)" + corner(west, south) + "," + corner(east, south) + "," +
           corner(east, north) + "," + corner(west, north) + "," + corner(west, south) + "]]}";
}

class AtlasSourcesTest : public ::testing::Test
{
protected:
    AtlasSourcesTest() { PrepareGdal(); }

    AtlasSources Read()
    {
        SourceDiagnostics diagnostics(true);
        return AtlasSources(options, diagnostics);
    }
    void Add(const std::string& name, const std::string& content, LayerRole role = LayerRole::Any)
    {
        options.layers.push_back({folder.Write(name, content), role});
    }

    const TemporaryFolder folder;
    AtlasOptions options;
};

} // namespace

TEST_F(AtlasSourcesTest, FitTheViewToData)
{
    Add("a.geojson", Box(10, 40, 30, 50));
    const GeoBox shown = Read().View().VisibleDegrees();
    EXPECT_NEAR(shown.west, 9.2, 0.05);
    EXPECT_NEAR(shown.east, 30.8, 0.05);
    EXPECT_NEAR(shown.south, 39.6, 0.05);
    EXPECT_NEAR(shown.north, 50.4, 0.05);
}

TEST_F(AtlasSourcesTest, ShowTheWorldForDataOfTheWorld)
{
    Add("a.geojson", Box(-120, -50, 140, 70));
    EXPECT_NEAR(Read().View().VisibleDegrees().west, -180.0, 1e-6);
    EXPECT_NEAR(Read().View().VisibleDegrees().south, -90.0, 1e-6);
}

TEST_F(AtlasSourcesTest, FitTheViewToAllData)
{
    Add("a.geojson", Box(0, 0, 10, 10));
    Add("b.geojson", Box(30, 0, 40, 10));
    EXPECT_NEAR(Read().View().VisibleDegrees().east, 41.6, 0.05);
}

TEST_F(AtlasSourcesTest, ShowSomethingAroundASinglePoint)
{
    Add("a.geojson", R"({"type":"Point","coordinates":[8.5,47.4]})");
    const GeoBox shown = Read().View().VisibleDegrees();
    EXPECT_NEAR(shown.east - shown.west, 0.2, 1e-6);
    EXPECT_NEAR((shown.east + shown.west) / 2.0, 8.5, 1e-6);
}

TEST_F(AtlasSourcesTest, ShowWhatIsAskedFor)
{
    Add("a.geojson", Box(10, 40, 30, 50));
    options.box = GeoBox{0, 0, 20, 10};
    EXPECT_NEAR(Read().View().VisibleDegrees().east, 20.0, 1e-6);
}

TEST_F(AtlasSourcesTest, SayWhenNothingIsSeen)
{
    Add("a.geojson", Box(10, 40, 30, 50));
    options.box = GeoBox{-80, 0, -60, 10};
    const std::string text = Read().EmptyMap(options);
    EXPECT_THAT(text, HasSubstr("a.geojson covers 10,40,30,50"));
    EXPECT_THAT(text, HasSubstr("-80,0,-60,10"));
    Add("b.geojson", Box(-70, 4, -65, 6));
    EXPECT_EQ(Read().EmptyMap(options), "");
}

TEST_F(AtlasSourcesTest, SayWhenAFileHasNothing)
{
    Add("a.geojson", R"({"type":"FeatureCollection","features":[]})");
    EXPECT_THAT(Read().EmptyMap(options), HasSubstr("a.geojson has nothing there"));
}

TEST_F(AtlasSourcesTest, RefuseWhatDoesNotSuit)
{
    Add("p.geojson", R"({"type":"Point","coordinates":[5,5]})", LayerRole::Countries);
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { Read(); }), HasSubstr("p.geojson: holds no areas"));
    options.layers[0].role = LayerRole::Borders;
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { Read(); }), HasSubstr("p.geojson: holds no lines"));
    options.layers.clear();
    Add("t.csv", "a,b\n1,2\n", LayerRole::Lines);
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { Read(); }), HasSubstr("t.csv: has no layer of lines"));
}

TEST_F(AtlasSourcesTest, HaveNamesOfTheirOwn)
{
    Add("a.geojson", Box(0, 0, 1, 1));
    options.layers.push_back(options.layers[0]);
    const AtlasSources sources = Read();
    EXPECT_EQ(sources.Features()[0].id, "a");
    EXPECT_EQ(sources.Features()[1].id, "a-2");
}
