#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/DataExtent.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/RasterExtent.h>

using namespace txmap;

namespace
{

void ExpectBox(const GeoBox& box, const GeoBox& expected)
{
    EXPECT_NEAR(box.west, expected.west, 1e-9);
    EXPECT_NEAR(box.south, expected.south, 1e-9);
    EXPECT_NEAR(box.east, expected.east, 1e-9);
    EXPECT_NEAR(box.north, expected.north, 1e-9);
}

} // namespace

TEST(DataExtent, HasRoomWithinTheMap)
{
    ExpectBox(WithRoom({0, 0, 50, 25}, 90.0), {-2, -1, 52, 26});
    ExpectBox(WithRoom({0, 10, 0, 10}, 90.0), {-0.1, 9.9, 0.1, 10.1});
    ExpectBox(WithRoom({0, 40, 50, 90}, 85.0), {-2, 38, 52, 85});
    ExpectBox(WithRoom({0, -90, 50, -65}, 85.0), {-2, -85, 52, -64});
}

TEST(DataExtent, ShowsTheEdgeOfTheMapForDataBeyond)
{
    ExpectBox(WithRoom({0, 86, 50, 88}, 85.0), {-2, 84.92, 52, 85});
    ExpectBox(WithRoom({0, -89, 50, -86}, 85.0), {-2, -85, 52, -84.88});
    const Projection mercator = Projection::WebMercator();
    const AtlasView view(mercator, WithRoom({10, 86, 12, 88}, mercator.MaxLatitude()), std::nullopt);
    EXPECT_EQ(view.Size().width, AtlasView::kDefaultSide);
    EXPECT_GT(view.Size().height, 100);
}

TEST(RasterExtent, IsUnknownWhereCoordinatesAreNoDegrees)
{
    PrepareGdal();
    const TemporaryFolder folder;
    TestRaster raster;
    const std::optional<GeoBox> world = RasterExtent(raster.Write(folder / "world.tif"));
    ASSERT_TRUE(world);
    ExpectBox(*world, {-180, -90, 180, 90});
    raster.system.clear();
    EXPECT_TRUE(RasterExtent(raster.Write(folder / "degrees.tif")));
    raster.transform = {500000.0, 10.0, 0.0, 5000000.0, 0.0, -10.0};
    EXPECT_FALSE(RasterExtent(raster.Write(folder / "metres.tif")));
}
