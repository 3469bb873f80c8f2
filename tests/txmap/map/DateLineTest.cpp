#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/map/DateLine.h>
#include <txmap/map/Projection.h>

using namespace txmap;
using ::testing::DoubleNear;
using ::testing::Pointwise;
using TZObjects::TXPoint;

namespace
{

using Points = std::vector<TXPoint>;

const Projection kPlain = Projection::PlateCarree();

Points InWorld(const Points& degrees)
{
    Points points;
    for (const TXPoint& place : degrees)
        points.push_back(kPlain.ToWorld(place.x, place.y));
    return points;
}

std::vector<double> UnwrappedLine(const Points& degrees)
{
    Points points = InWorld(degrees);
    UnwrapLine(points, 0);
    std::vector<double> longitudes;
    for (const TXPoint& point : points)
        longitudes.push_back(kPlain.ToDegrees(point).x);
    return longitudes;
}

/// The box of a ring in degrees: west, south, east, north.
std::vector<double> UnwrappedBox(const Points& degrees)
{
    Points points = InWorld(degrees);
    UnwrapRing(points, 0, kPlain.World());
    std::vector<double> box{1e300, 1e300, -1e300, -1e300};
    for (const TXPoint& point : points)
    {
        const TXPoint place = kPlain.ToDegrees(point);
        box = {std::min(box[0], place.x), std::min(box[1], place.y), std::max(box[2], place.x),
               std::max(box[3], place.y)};
    }
    EXPECT_EQ(points.front().x, points.back().x);
    EXPECT_EQ(points.front().y, points.back().y);
    return box;
}

auto Are(const std::vector<double>& expected) { return Pointwise(DoubleNear(1e-9), expected); }

} // namespace

TEST(UnwrapLine, GoesOnAcrossTheDateLineInBothDirections)
{
    EXPECT_THAT(UnwrappedLine({{170, 0}, {178, 1}, {-179, 2}, {-170, 3}}), Are({170, 178, 181, 190}));
    EXPECT_THAT(UnwrappedLine({{-170, 0}, {-178, 1}, {179, 2}, {170, 3}}), Are({-170, -178, -181, -190}));
    EXPECT_THAT(UnwrappedLine({{179, 0}, {-179, 1}, {179, 2}}), Are({179, 181, 179}));
}

TEST(UnwrapLine, TakesBothSidesOfTheDateLineForOne)
{
    EXPECT_THAT(UnwrappedLine({{170, 0}, {180, 1}, {-180, 1}, {-170, 3}}), Are({170, 180, 180, 190}));
}

TEST(UnwrapLine, LeavesOtherLinesAlone)
{
    EXPECT_THAT(UnwrappedLine({{10, 0}, {20, 1}, {30, 2}}), Are({10, 20, 30}));
    EXPECT_THAT(UnwrappedLine({{-120, 0}, {120, 1}}), Are({-120, 120}));
    EXPECT_THAT(UnwrappedLine({{5, 5}}), Are({5}));
}

TEST(UnwrapLine, LeavesAParallelAlongTheWholeMap)
{
    EXPECT_THAT(UnwrappedLine({{-180, 10}, {180, 10}}), Are({-180, 180}));
}

TEST(UnwrapLine, LeavesWhatComesBefore)
{
    Points points = InWorld({{170, 0}, {-170, 0}, {170, 5}, {-170, 5}});
    UnwrapLine(points, 2);
    EXPECT_NEAR(kPlain.ToDegrees(points[1]).x, -170.0, 1e-9);
    EXPECT_NEAR(kPlain.ToDegrees(points[3]).x, 190.0, 1e-9);
}

TEST(UnwrapRing, MakesAnIslandOnTheDateLineWhole)
{
    EXPECT_THAT(UnwrappedBox({{178, -17}, {-179, -17}, {-179, -16}, {178, -16}, {178, -17}}),
                Are({178, -17, 181, -16}));
    EXPECT_THAT(UnwrappedBox({{178, -17}, {180, -17}, {-180, -17}, {-179, -16}, {-180, -16}, {180, -16}, {178, -17}}),
                Are({178, -17, 181, -16}));
}

TEST(UnwrapRing, LeavesBoxesAroundTheWorld)
{
    EXPECT_THAT(UnwrappedBox({{-180, -23}, {180, -23}, {180, 23}, {-180, 23}, {-180, -23}}), Are({-180, -23, 180, 23}));
    EXPECT_THAT(UnwrappedBox({{-120, -23}, {120, -23}, {120, 23}, {-120, 23}, {-120, -23}}), Are({-120, -23, 120, 23}));
}

TEST(UnwrapRing, LeavesAnIceCapThatEndsAtTheMapsEdge)
{
    EXPECT_THAT(UnwrappedBox({{-180, -90}, {-180, -80}, {-60, -70}, {60, -75}, {180, -80}, {180, -90}, {-180, -90}}),
                Are({-180, -90, 180, -70}));
}

TEST(UnwrapRing, ClosesARingRoundThePoleAtTheEdgeOfTheWorld)
{
    EXPECT_THAT(UnwrappedBox({{0, -70}, {90, -75}, {170, -72}, {-150, -74}, {-80, -73}, {0, -70}}),
                Are({0, -90, 360, -70}));
    EXPECT_THAT(UnwrappedBox({{0, 80}, {-90, 82}, {-170, 81}, {150, 84}, {80, 83}, {0, 80}}), Are({-360, 80, 0, 90}));
}

TEST(UnwrapRing, ClosesARingRoundThePoleThatNamesBothSidesOfTheDateLine)
{
    // The step over the date line is no edge of the map: the ring has points to its north and to its south.
    EXPECT_THAT(UnwrappedBox({{0, -70}, {90, -85}, {180, -78}, {-180, -78}, {-90, -72}, {0, -70}}),
                Are({0, -90, 360, -70}));
}

TEST(MoveInto, BringsHolesIntoTheirShape)
{
    Points points = InWorld({{170, 0}, {-170, 0}, {-170, 10}, {170, 10}, {170, 0}});
    UnwrapRing(points, 0, kPlain.World());
    const WorldSpan outer = SpanOf(points, 0);
    points = InWorld({{-178, 4}, {-176, 4}, {-176, 6}, {-178, 6}, {-178, 4}});
    MoveInto(outer, points, 0);
    EXPECT_NEAR(SpanOf(points, 0).west * 360.0 - 180.0, 182.0, 1e-9);
    EXPECT_NEAR(SpanOf(points, 0).east * 360.0 - 180.0, 184.0, 1e-9);
    // Holes that lie inside stay.
    MoveInto(outer, points, 0);
    EXPECT_NEAR(SpanOf(points, 0).west * 360.0 - 180.0, 182.0, 1e-9);
}
