#include <txbase/TXPoint.h>

#include <cstddef>
#include <type_traits>

#include <gtest/gtest.h>

using TZObjects::TXPoint;

namespace
{

// Backends read an array of points as an array of x, y pairs, in place.
static_assert(sizeof(TXPoint) == 2 * sizeof(double));
static_assert(alignof(TXPoint) == alignof(double));
static_assert(offsetof(TXPoint, x) == 0);
static_assert(offsetof(TXPoint, y) == sizeof(double));
static_assert(std::is_same_v<decltype(TXPoint::x), double> && std::is_same_v<decltype(TXPoint::y), double>);
static_assert(std::is_standard_layout_v<TXPoint>);
static_assert(std::is_trivially_copyable_v<TXPoint>);
static_assert(std::is_trivially_destructible_v<TXPoint>);
static_assert(!std::is_polymorphic_v<TXPoint>);

} // namespace

TEST(TXPoint, IsTheOriginByDefault)
{
    const TXPoint point;
    EXPECT_EQ(point.x, 0.0);
    EXPECT_EQ(point.y, 0.0);
}

TEST(TXPoint, TakesXThenY)
{
    const TXPoint point(1.5, -2.5);
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2.5);
}

TEST(TXPoint, IsNotSnappedToWholeUnits)
{
    TXPoint point(0.1, 1e300);
    EXPECT_EQ(point.x, 0.1);
    EXPECT_EQ(point.y, 1e300);
    point.x = -0.7;
    const TXPoint copy = point;
    EXPECT_EQ(copy.x, -0.7);
    EXPECT_EQ(copy.y, 1e300);
}

TEST(TXPoint, ArraysAreContiguousPairs)
{
    const TXPoint points[] = {{1.0, 2.0}, {3.0, 4.0}};
    EXPECT_EQ(reinterpret_cast<const char*>(&points[1].x) - reinterpret_cast<const char*>(&points[0].x),
              std::ptrdiff_t{2 * sizeof(double)});
}
