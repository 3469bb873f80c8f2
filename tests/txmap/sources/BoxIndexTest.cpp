// An index of boxes against a look at each.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txmap/sources/BoxIndex.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using txmap::BoxIndex;
using txmap::MercatorBox;

namespace
{

MercatorBox BoxOf(RandomSource& random, double largest)
{
    const double x = random.Real(-1.0, 2.0), y = random.Real(0.0, 1.0);
    return {x, y, x + random.Real(0.0, largest), y + random.Real(0.0, largest)};
}

TEST(BoxIndex, FindsTheBoxesThatTouchInTheirOrder)
{
    RandomSource random(3);
    std::vector<MercatorBox> boxes;
    for (int i = 0; i < 3000; ++i)
        boxes.push_back(BoxOf(random, i % 50 == 0 ? 1.0 : 0.01));
    const BoxIndex index(boxes);
    for (int i = 0; i < 300; ++i)
    {
        const std::vector<MercatorBox> areas{BoxOf(random, 0.2), BoxOf(random, 0.2)};
        std::vector<std::size_t> expected;
        for (std::size_t k = 0; k < boxes.size(); ++k)
            if (boxes[k].Intersects(areas[0]) || boxes[k].Intersects(areas[1]))
                expected.push_back(k);
        ASSERT_EQ(index.Touching(areas), expected);
    }
}

TEST(BoxIndex, FindsPointsAndWhatTouchesAnEdge)
{
    const BoxIndex index({{0.5, 0.5, 0.5, 0.5}, {0.75, 0.5, 1.0, 1.0}});
    EXPECT_THAT(index.Touching({{0.25, 0.25, 0.5, 0.5}}), ElementsAre(0));
    EXPECT_THAT(index.Touching({{0.5, 0.5, 0.75, 0.75}}), ElementsAre(0, 1));
    EXPECT_THAT(index.Touching({{0.51, 0.0, 0.74, 1.0}}), IsEmpty());
    EXPECT_THAT(index.Touching({}), IsEmpty());
}

TEST(BoxIndex, NeverFindsABoxWithoutPlace)
{
    const BoxIndex index({{1e300, 1e300, -1e300, -1e300}, {0.0, 0.0, 1.0, 1.0}});
    EXPECT_THAT(index.Touching({{-1e300, -1e300, 1e300, 1e300}}), ElementsAre(1));
    EXPECT_THAT(BoxIndex({}).Touching({{0.0, 0.0, 1.0, 1.0}}), IsEmpty());
}

} // namespace
