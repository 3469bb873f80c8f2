#include <limits>
#include <vector>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txmap/labels/LabelPlacer.h>

using namespace txmap;
using TZObjects::TXRect;

namespace
{

const TXRect kFrame(0, 1000, 0, 500);

bool Meet(const TXRect& a, const TXRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

} // namespace

TEST(LabelPlacer, KeepsRandomBoxesApartAndInTheFrame)
{
    RandomSource random(20240607);
    LabelPlacer placer(kFrame);
    std::vector<TXRect> placed;
    int refused = 0;
    for (int i = 0; i < 4000; ++i)
    {
        const double left = random.Real(-50, 1050);
        const double top = random.Real(-50, 550);
        const double width = random.Real(1, 90);
        const TXRect box(left, left + width, top, top + random.Real(1, 30));
        bool expected = box.left >= 0 && box.right <= 1000 && box.top >= 0 && box.bottom <= 500;
        for (const TXRect& other : placed)
            expected = expected && !Meet(box, other);
        EXPECT_EQ(placer.IsFree(box), expected);
        ASSERT_EQ(placer.Place(box), expected);
        if (expected)
            placed.push_back(box);
        else
            ++refused;
    }
    EXPECT_GT(placed.size(), 100u);
    EXPECT_GT(refused, 1000);
}

TEST(LabelPlacer, TakesBoxesOutsideTheFrameAsObstacles)
{
    LabelPlacer placer(kFrame);
    placer.Block({-10, 10, -10, 10});
    EXPECT_FALSE(placer.Place({5, 20, 5, 20}));
    EXPECT_TRUE(placer.Place({11, 20, 5, 20}));
}

TEST(LabelPlacer, GivesBoxesBack)
{
    LabelPlacer placer(kFrame);
    const TXRect box(10, 20, 10, 20);
    placer.Block(box);
    placer.Block({18, 30, 10, 20});
    placer.Release(box);
    EXPECT_TRUE(placer.IsFree({10, 17, 10, 20}));
    EXPECT_FALSE(placer.IsFree(box));
}

TEST(LabelPlacer, RefusesWhatIsNoBox)
{
    LabelPlacer placer(kFrame);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(placer.Place({nan, 20, 10, 20}));
    EXPECT_FALSE(placer.Place({10, 20, 10, nan}));
    EXPECT_TRUE(placer.IsFree({10, 20, 10, 20}));
}
