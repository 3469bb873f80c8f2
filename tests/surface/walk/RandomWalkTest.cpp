// Sequences of any operations of a surface, in any state that they leave behind, against the same said directly.
#include <cstdlib>
#include <map>

#include <tests/support/QuietTest.h>

#include "RandomWalk.h"

namespace
{

constexpr int kWalksATest = 50;
constexpr int kTests = 10;

class WalkTest : public QuietTest
{
protected:
    static std::string Printed() { return TakeMessages().join("; ").toStdString(); }
};

class RandomWalkTest : public WalkTest, public ::testing::WithParamInterface<int>
{
};

TEST_P(RandomWalkTest, LeavesTheSameAsMadeDirectly)
{
    // For looking into a failure.
    if (const char* const only = std::getenv("TX_WALK_SEED"))
    {
        if (GetParam() != 0)
            return;
        ASSERT_TRUE(RandomWalk(static_cast<unsigned>(std::strtoul(only, nullptr, 10)), Printed).Run());
        return;
    }
    for (int i = 0; i < kWalksATest; ++i)
        ASSERT_TRUE(RandomWalk(static_cast<unsigned>(GetParam() * kWalksATest + i), Printed).Run());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, ::testing::Range(0, kTests));

using InkTest = WalkTest;

// Otherwise the walks would compare backgrounds.
TEST_F(InkTest, OfEveryDrawingOperationComesUp)
{
    constexpr int kWalks = 25;
    std::map<std::string, int> times;
    int all = 0;
    for (unsigned seed = 0; seed < kWalks; ++seed)
        for (const std::string& name : RandomWalk(seed, Printed).Inked())
        {
            ++times[name];
            ++all;
        }
    EXPECT_GE(all, 45 * kWalks) << "too few steps drew anything";
    for (const auto topic : {ShapeOperations, MarkerOperations, LabelOperations, ImageOperations})
        for (const Operation& operation : topic())
            EXPECT_GE(times[operation.name], 2) << operation.name;
    for (const char* const name : {"DrawPath", "SetClipRegion", "SetClipRegion(gradient)"})
        EXPECT_GE(times[name], 2) << name;
}

} // namespace
