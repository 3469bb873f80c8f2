#include <limits>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txmap/labels/CollisionIndex.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

const TXRect kArea(-100.0, 1100.0, -100.0, 700.0);

TXRect Box(double x, double y, double width, double height) { return {x, x + width, y, y + height}; }

} // namespace

TEST(CollisionIndex, WhatTouchesCollides)
{
    CollisionIndex index(kArea);
    index.Take(Box(10.0, 10.0, 20.0, 10.0), Overlap::Never);
    EXPECT_FALSE(index.IsFree(Box(15.0, 12.0, 1.0, 1.0), Overlap::Never));
    EXPECT_FALSE(index.IsFree(Box(30.0, 10.0, 5.0, 5.0), Overlap::Never));
    EXPECT_TRUE(index.IsFree(Box(30.001, 10.0, 5.0, 5.0), Overlap::Never));
    EXPECT_TRUE(index.IsFree(Box(10.0, 20.001, 5.0, 5.0), Overlap::Never));
}

TEST(CollisionIndex, CirclesAreRound)
{
    CollisionIndex index(kArea);
    index.Take(CollisionCircle{{100.0, 100.0}, 10.0}, Overlap::Never);
    EXPECT_FALSE(index.IsFree(Box(105.0, 105.0, 5.0, 5.0), Overlap::Never));
    EXPECT_TRUE(index.IsFree(Box(108.0, 108.0, 5.0, 5.0), Overlap::Never)); // In the corner of its box.
    EXPECT_FALSE(index.IsFree(Box(50.0, 50.0, 100.0, 100.0), Overlap::Never));
    EXPECT_FALSE(index.IsFree(CollisionCircle{{113.0, 113.0}, 9.0}, Overlap::Never));
    EXPECT_TRUE(index.IsFree(CollisionCircle{{113.0, 113.0}, 8.0}, Overlap::Never));
    EXPECT_TRUE(index.IsFree(CollisionCircle{{120.1, 100.0}, 10.0}, Overlap::Never));
}

TEST(CollisionIndex, OverlapIsMutual)
{
    const TXRect box = Box(10.0, 10.0, 20.0, 10.0);
    const auto isFree = [&](Overlap taken, Overlap wanted)
    {
        CollisionIndex index(kArea);
        index.Take(box, taken);
        return index.IsFree(box, wanted);
    };
    for (const Overlap taken : {Overlap::Never, Overlap::Cooperative, Overlap::Always})
    {
        EXPECT_FALSE(isFree(taken, Overlap::Never));
        EXPECT_EQ(isFree(taken, Overlap::Cooperative), taken != Overlap::Never);
        EXPECT_TRUE(isFree(taken, Overlap::Always));
    }
}

TEST(CollisionIndex, NothingIsOutside)
{
    CollisionIndex index(kArea);
    EXPECT_TRUE(index.IsFree(Box(-110.0, 0.0, 11.0, 5.0), Overlap::Never));
    EXPECT_FALSE(index.IsFree(Box(-110.0, 0.0, 9.0, 5.0), Overlap::Always));
    EXPECT_FALSE(index.IsFree(CollisionCircle{{1111.0, 0.0}, 10.0}, Overlap::Always));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const TXRect& strange : {TXRect(nan, 5.0, 0.0, 5.0), TXRect(0.0, nan, 0.0, 5.0), TXRect(5.0, 0.0, 0.0, 5.0),
                                  TXRect(0.0, 5.0, nan, nan), TXRect(infinity, infinity, 0.0, 5.0)})
    {
        EXPECT_FALSE(index.IsFree(strange, Overlap::Always));
        index.Take(strange, Overlap::Never);
    }
    EXPECT_TRUE(index.IsFree(Box(0.0, 0.0, 5.0, 5.0), Overlap::Never));
    index.Take(TXRect(-infinity, infinity, -1e300, 1e300), Overlap::Never);
    EXPECT_FALSE(index.IsFree(Box(1000.0, 600.0, 5.0, 5.0), Overlap::Never));
}

TEST(CollisionIndex, FindsWhatASearchThroughAllFinds)
{
    RandomSource random(7);
    CollisionIndex index(kArea);
    std::vector<TXRect> boxes;
    std::size_t free = 0;
    for (int i = 0; i < 3000; ++i)
    {
        const TXRect box = Box(random.Real(-150.0, 1150.0), random.Real(-150.0, 750.0), random.Real(0.0, 60.0),
                               random.Real(0.0, 30.0));
        bool expected =
            box.left <= kArea.right && box.right >= kArea.left && box.top <= kArea.bottom && box.bottom >= kArea.top;
        for (const TXRect& other : boxes)
            expected = expected && !(box.left <= other.right && other.left <= box.right && box.top <= other.bottom &&
                                     other.top <= box.bottom);
        ASSERT_EQ(index.IsFree(box, Overlap::Never), expected);
        if (!expected)
            continue;
        index.Take(box, Overlap::Never);
        boxes.push_back(box);
        ++free;
    }
    EXPECT_GT(free, 300u);
}

TEST(CollisionIndex, GivesBackOneBoxOfTwo)
{
    CollisionIndex index(kArea);
    const TXRect box(10, 150, 10, 90);
    index.Take(box, Overlap::Never);
    index.Take(box, Overlap::Never);
    index.Release({10, 150, 10, 89});
    index.Release(box);
    for (const TXRect& part : {TXRect(10, 11, 10, 11), TXRect(149, 150, 89, 90)})
        EXPECT_FALSE(index.IsFree(part, Overlap::Never));
    index.Release(box);
    EXPECT_TRUE(index.IsFree(box, Overlap::Never));
}
