#include <gtest/gtest.h>
#include <txmap/map/Projection.h>

using namespace txmap;
using TZObjects::TXPoint;

TEST(Projection, IsFoundByItsNameInAnyCase)
{
    EXPECT_STREQ(Projection::FromName("EPSG:4326")->Name(), Projection::PlateCarree().Name());
    EXPECT_STREQ(Projection::FromName("epsg:3857")->Name(), Projection::WebMercator().Name());
    EXPECT_FALSE(Projection::FromName("EPSG:32632"));
    EXPECT_FALSE(Projection::FromName("4326"));
    EXPECT_FALSE(Projection::FromName(""));
}

TEST(Projection, OfDegreesMakesThemEquallyLong)
{
    const Projection plain = Projection::PlateCarree();
    const TXPoint place = plain.ToWorld(190.8, -36.0);
    EXPECT_DOUBLE_EQ(place.x, 1.03);
    EXPECT_DOUBLE_EQ(place.y, 0.6);
    EXPECT_EQ(plain.MaxLatitude(), 90.0);
    EXPECT_EQ(plain.World().top, 0.25);
    EXPECT_EQ(plain.World().bottom, 0.75);
    EXPECT_EQ(plain.Circumference(), 360.0);
}

TEST(Projection, ToMercatorHasTheKnownValues)
{
    // Half the circumference of the sphere of EPSG:3857, and the place that EPSG's guidance works as an example.
    const Projection mercator = Projection::WebMercator();
    const auto metres = [&](const TXPoint& place) -> TXPoint {
        return {(place.x - 0.5) * mercator.Circumference(), (0.5 - place.y) * mercator.Circumference()};
    };
    EXPECT_NEAR(metres(mercator.ToWorld(180.0, 0.0)).x, 20037508.3428, 1e-3);
    EXPECT_NEAR(metres(mercator.ToWorld(180.0, 0.0)).y, 0.0, 1e-6);
    EXPECT_NEAR(metres(mercator.ToWorld(-100.333333333, 24.381786944)).x, -11169055.58, 0.1);
    EXPECT_NEAR(metres(mercator.ToWorld(-100.333333333, 24.381786944)).y, 2800000.00, 0.1);
}

TEST(Projection, ToMercatorMakesTheWorldASquare)
{
    const Projection mercator = Projection::WebMercator();
    EXPECT_NEAR(mercator.MaxLatitude(), 85.0511, 1e-4);
    EXPECT_NEAR(mercator.ToWorld(0.0, mercator.MaxLatitude()).y, 0.0, 1e-12);
    EXPECT_NEAR(mercator.ToWorld(0.0, -mercator.MaxLatitude()).y, 1.0, 1e-12);
}

TEST(Projection, DoesNotWrapLongitudes)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
        EXPECT_DOUBLE_EQ(projection.ToWorld(190.0, 0.0).x, 190.0 / 360.0 + 0.5);
}

TEST(Projection, KeepsThePolesAtTheEdgeOfTheWorld)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
        for (const double latitude : {90.0, 95.0, 1e300})
        {
            EXPECT_EQ(projection.ToWorld(0.0, latitude).y, projection.World().top);
            EXPECT_EQ(projection.ToWorld(0.0, -latitude).y, projection.World().bottom);
        }
}

TEST(Projection, GoesBackToWhereItCameFrom)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
        for (const TXPoint& place : {TXPoint(0, 0), TXPoint(-179, 84), TXPoint(200, -60), TXPoint(12.5, 41.9)})
        {
            const TXPoint back = projection.ToDegrees(projection.ToWorld(place.x, place.y));
            EXPECT_NEAR(back.x, place.x, 1e-9);
            EXPECT_NEAR(back.y, place.y, 1e-9);
        }
}

TEST(Projection, TakesBoxesByTheirCorners)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
    {
        const GeoBox degrees{170.0, -20.0, 200.0, 60.0};
        const MercatorBox box = projection.ToWorld(degrees);
        EXPECT_EQ(box.left, projection.ToWorld(170.0, 60.0).x);
        EXPECT_EQ(box.top, projection.ToWorld(170.0, 60.0).y);
        EXPECT_EQ(box.right, projection.ToWorld(200.0, -20.0).x);
        EXPECT_EQ(box.bottom, projection.ToWorld(200.0, -20.0).y);
        const GeoBox back = projection.ToDegrees(box);
        EXPECT_NEAR(back.west, degrees.west, 1e-9);
        EXPECT_NEAR(back.south, degrees.south, 1e-9);
        EXPECT_NEAR(back.east, degrees.east, 1e-9);
        EXPECT_NEAR(back.north, degrees.north, 1e-9);
    }
}
