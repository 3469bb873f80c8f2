#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/atlas/MapFrame.h>
#include <txmap/cli/ParseFrame.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/Gdal.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace
{

const AtlasView kWorld{Projection::PlateCarree(), {}, PixelSize{360, 180}};
constexpr double kLine = 2.0;

std::string MakeRefusal(ExitCode code, const std::string& text)
{
    PrepareGdal();
    return RefusalOf(code, [&] { MakeFrame(ParseFrame(text), kWorld, kLine); });
}

std::string Areas(const std::string& rings)
{
    return R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{},)"
           R"("geometry":{"type":"Polygon","coordinates":)" +
           rings + "}}]}";
}

} // namespace

TEST(Frame, RoundedLiesInThePictureWithItsLine)
{
    const FrameShape frame = MakeFrame(ParseFrame("rounded:20"), kWorld, kLine);
    EXPECT_EQ(frame.Bounds().left, 1.0);
    EXPECT_EQ(frame.Bounds().right, 359.0);
    EXPECT_EQ(frame.Bounds().top, 1.0);
    EXPECT_EQ(frame.Bounds().bottom, 179.0);
    // The world, and not the paper around it, is what gets the frame.
    const AtlasView high{Projection::PlateCarree(), {}, PixelSize{360, 400}};
    EXPECT_EQ(MakeFrame(ParseFrame("rounded"), high, kLine).Bounds().top, 111.0);
}

TEST(Frame, RoundedByItselfHasARadiusThatSuits)
{
    const FrameShape frame = MakeFrame(ParseFrame("rounded"), kWorld, kLine);
    EXPECT_FALSE(frame.Contains({3.0, 4.0, 3.0, 4.0}));
    EXPECT_TRUE(frame.Contains({5.0, 6.0, 5.0, 6.0}));
}

TEST(Frame, OfAFileLiesWhereItsAreasDo)
{
    PrepareGdal();
    const TemporaryFolder folder;
    const std::string file =
        folder.Write("a.geojson", Areas("[[[0,0],[60,0],[60,40],[0,40],[0,0]],[[20,10],[40,10],[40,20],[20,10]]]"));
    const FrameShape frame = MakeFrame(ParseFrame(file), kWorld, kLine);
    EXPECT_NEAR(frame.Bounds().left, 180.0, 1e-9);
    EXPECT_NEAR(frame.Bounds().right, 240.0, 1e-9);
    EXPECT_NEAR(frame.Bounds().top, 50.0, 1e-9);
    EXPECT_NEAR(frame.Bounds().bottom, 90.0, 1e-9);
    EXPECT_TRUE(frame.Contains({185, 190, 60, 70}));
    EXPECT_FALSE(frame.Contains({217, 218, 76, 77})) << "a hole";
    EXPECT_TRUE(frame.Contains({202, 204, 71, 73}));
}

TEST(Frame, OfAFileThatCannotBeUsedSaysWhichOne)
{
    const TemporaryFolder folder;
    EXPECT_THAT(MakeRefusal(ExitCode::Data, folder / "none.geojson"),
                AllOf(StartsWith("--frame "), HasSubstr("none.geojson"), HasSubstr("no such file")));
    EXPECT_THAT(MakeRefusal(ExitCode::Data, folder.Write("text.geojson", "no map")),
                AllOf(StartsWith("--frame "), HasSubstr("text.geojson")));
    const std::string line = R"({"type":"Feature","properties":{},"geometry":{"type":"LineString",)"
                             R"("coordinates":[[0,0],[9,9]]}})";
    EXPECT_THAT(MakeRefusal(ExitCode::Data, folder.Write("line.geojson", line)),
                AllOf(StartsWith("--frame "), HasSubstr("line.geojson")));
    const std::string nothing = R"({"type":"FeatureCollection","features":[]})";
    EXPECT_THAT(MakeRefusal(ExitCode::Data, folder.Write("empty.geojson", nothing)),
                AllOf(StartsWith("--frame "), HasSubstr("empty.geojson")));
}

TEST(Frame, OfAFileOutsideThePictureIsRefused)
{
    PrepareGdal();
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.geojson", Areas("[[[0,0],[10,0],[10,10],[0,0]]]"));
    const AtlasView america{Projection::PlateCarree(), GeoBox{-100, 30, -60, 50}, {}};
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { MakeFrame(ParseFrame(file), america, kLine); }),
                AllOf(StartsWith("--frame "), HasSubstr("a.geojson")));
}

TEST(Frame, OfCornersThatHoldNothingIsRefused)
{
    for (const char* const text : {"0,0 100,100 200,200", "5,5 5,5 5,5", "10,10 90,10 50,10", "-50,-50 -10,-50 -10,-10",
                                   "400,0 500,0 500,100", "10,500 20,500 20,600"})
        EXPECT_THAT(MakeRefusal(ExitCode::Usage, text), StartsWith("--frame")) << text;
    EXPECT_EQ(MakeRefusal(ExitCode::Usage, "-50,-50 500,-50 500,400"), "accepted");
    EXPECT_EQ(MakeRefusal(ExitCode::Usage, "10,10 90,90 90,10 10,90"), "accepted");
}
