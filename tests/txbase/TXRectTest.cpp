#include <txbase/TXRect.h>

#include <cstddef>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

using TZObjects::TXRect;

namespace
{

static_assert(sizeof(TXRect) == 4 * sizeof(double));
static_assert(alignof(TXRect) == alignof(double));
static_assert(offsetof(TXRect, left) == 0 * sizeof(double));
static_assert(offsetof(TXRect, right) == 1 * sizeof(double));
static_assert(offsetof(TXRect, top) == 2 * sizeof(double));
static_assert(offsetof(TXRect, bottom) == 3 * sizeof(double));
static_assert(std::is_standard_layout_v<TXRect>);
static_assert(std::is_trivially_copyable_v<TXRect>);
static_assert(std::is_trivially_destructible_v<TXRect>);
static_assert(!std::is_polymorphic_v<TXRect>);

const TXRect kUnit(0, 1, 0, 1);

/// Both ways round, as neither rectangle is special.
bool Disjoint(const TXRect& a, const TXRect& b)
{
    EXPECT_EQ(a.Disjoint(b), b.Disjoint(a));
    return a.Disjoint(b);
}

} // namespace

TEST(TXRect, IsEmptyAtTheOriginByDefault)
{
    const TXRect rect;
    EXPECT_EQ(rect.left, 0.0);
    EXPECT_EQ(rect.right, 0.0);
    EXPECT_EQ(rect.top, 0.0);
    EXPECT_EQ(rect.bottom, 0.0);
}

TEST(TXRect, TakesLeftRightTopBottom)
{
    const TXRect rect(1.5, 4.5, 2.25, 9.25);
    EXPECT_EQ(rect.left, 1.5);
    EXPECT_EQ(rect.right, 4.5);
    EXPECT_EQ(rect.top, 2.25);
    EXPECT_EQ(rect.bottom, 9.25);
}

TEST(TXRect, HasTheSizeBetweenItsEdges)
{
    const TXRect rect(1.5, 4.5, 2.25, 9.5);
    EXPECT_EQ(rect.Width(), 3.0);
    EXPECT_EQ(rect.Height(), 7.25);
    EXPECT_EQ(TXRect(0, 640, 0, 480).Width(), 640.0);
    EXPECT_EQ(TXRect(0, 640, 0, 480).Height(), 480.0);
}

TEST(TXRect, IsNotNormalised)
{
    const TXRect rect(5, 2, 9, 3);
    EXPECT_EQ(rect.left, 5.0);
    EXPECT_EQ(rect.Width(), -3.0);
    EXPECT_EQ(rect.Height(), -6.0);
}

TEST(TXRect, OverlappingOnesAreNotDisjoint)
{
    EXPECT_FALSE(Disjoint(kUnit, kUnit));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(0.5, 2, 0.5, 2)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(-1, 2, -1, 2)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(0.25, 0.75, -1, 2)));
}

TEST(TXRect, OnesThatLieBesideEachOtherAreDisjoint)
{
    EXPECT_TRUE(Disjoint(kUnit, TXRect(1.001, 2, 0, 1)));
    EXPECT_TRUE(Disjoint(kUnit, TXRect(-2, -0.001, 0, 1)));
    EXPECT_TRUE(Disjoint(kUnit, TXRect(0, 1, 1.001, 2)));
    EXPECT_TRUE(Disjoint(kUnit, TXRect(0, 1, -2, -0.001)));
    EXPECT_TRUE(Disjoint(kUnit, TXRect(5, 6, 7, 8)));
}

TEST(TXRect, TouchingOnesAreNotDisjoint)
{
    EXPECT_FALSE(Disjoint(kUnit, TXRect(1, 2, 0, 1)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(-1, 0, 0, 1)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(0, 1, 1, 2)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(0, 1, -1, 0)));
    EXPECT_FALSE(Disjoint(kUnit, TXRect(1, 2, 1, 2)));
}

TEST(TXRect, AreEqualWhenAllEdgesAre)
{
    const TXRect rect(1, 2, 3, 4);
    EXPECT_TRUE(rect == TXRect(1, 2, 3, 4));
    EXPECT_FALSE(rect != TXRect(1, 2, 3, 4));
    for (const TXRect& other : {TXRect(0, 2, 3, 4), TXRect(1, 0, 3, 4), TXRect(1, 2, 0, 4), TXRect(1, 2, 3, 0)})
    {
        EXPECT_FALSE(rect == other);
        EXPECT_TRUE(rect != other);
    }
}

TEST(TXRect, IsNotEqualToItselfWithAnEdgeThatIsNoNumber)
{
    const TXRect rect(std::numeric_limits<double>::quiet_NaN(), 2, 3, 4);
    EXPECT_FALSE(rect == rect);
    EXPECT_TRUE(rect != rect);
}
