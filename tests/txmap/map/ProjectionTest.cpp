#include <cmath>
#include <limits>

#include <gtest/gtest.h>
#include <txmap/map/Projection.h>

using namespace txmap;
using TZObjects::TXPoint;

TEST(Projection, IsFoundByItsNameInAnyCase)
{
    EXPECT_TRUE(Projection::FromName("EPSG:4326"));
    EXPECT_TRUE(Projection::FromName("epsg:3857"));
    EXPECT_FALSE(Projection::FromName("EPSG:32632"));
    EXPECT_FALSE(Projection::FromName("4326"));
    EXPECT_FALSE(Projection::FromName(""));
}

TEST(Projection, OfDegreesLeavesThemAsTheyAre)
{
    const TXPoint place = Projection::PlateCarree().Forward(190.5, -33.25);
    EXPECT_EQ(place.x, 190.5);
    EXPECT_EQ(place.y, -33.25);
    EXPECT_EQ(Projection::PlateCarree().MaxLatitude(), 90.0);
}

TEST(Projection, ToMercatorHasTheKnownValues)
{
    // Half the circumference of the sphere of EPSG:3857, and the place that EPSG's guidance works as an example.
    const Projection mercator = Projection::WebMercator();
    EXPECT_NEAR(mercator.Forward(180.0, 0.0).x, 20037508.3428, 1e-3);
    EXPECT_NEAR(mercator.Forward(180.0, 0.0).y, 0.0, 1e-6);
    EXPECT_NEAR(mercator.Forward(-100.333333333, 24.381786944).x, -11169055.58, 0.1);
    EXPECT_NEAR(mercator.Forward(-100.333333333, 24.381786944).y, 2800000.00, 0.1);
}

TEST(Projection, ToMercatorMakesTheWorldASquare)
{
    const Projection mercator = Projection::WebMercator();
    EXPECT_NEAR(mercator.MaxLatitude(), 85.0511, 1e-4);
    EXPECT_NEAR(mercator.Forward(0.0, mercator.MaxLatitude()).y, mercator.Forward(180.0, 0.0).x, 1e-3);
    EXPECT_NEAR(mercator.Forward(0.0, -mercator.MaxLatitude()).y, -mercator.Forward(180.0, 0.0).x, 1e-3);
}

TEST(Projection, ToMercatorDoesNotWrapLongitudes)
{
    const Projection mercator = Projection::WebMercator();
    EXPECT_NEAR(mercator.Forward(190.0, 0.0).x, mercator.Forward(180.0, 0.0).x * 190.0 / 180.0, 1e-3);
}

TEST(Projection, ToMercatorKeepsThePolesFiniteAndOutsideTheMap)
{
    const Projection mercator = Projection::WebMercator();
    for (const double latitude : {90.0, 95.0, 1e300})
    {
        const double north = mercator.Forward(0.0, latitude).y;
        EXPECT_TRUE(std::isfinite(north));
        EXPECT_GT(north, 1.2 * mercator.Forward(180.0, 0.0).x);
        EXPECT_DOUBLE_EQ(mercator.Forward(0.0, -latitude).y, -north);
    }
}

TEST(Projection, GoesBackToWhereItCameFrom)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
        for (const TXPoint& place : {TXPoint(0, 0), TXPoint(-179, 84), TXPoint(200, -60), TXPoint(12.5, 41.9)})
        {
            const TXPoint map = projection.Forward(place.x, place.y);
            const TXPoint back = projection.Inverse(map.x, map.y);
            EXPECT_NEAR(back.x, place.x, 1e-9);
            EXPECT_NEAR(back.y, place.y, 1e-9);
        }
}
