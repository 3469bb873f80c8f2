// Sequences of any operations of a surface, in any state that they leave behind, against the same said directly.
#include <cstdlib>
#include <map>

#include <tests/support/QuietTest.h>

#include "Elements.h"
#include "RandomWalk.h"

namespace
{

struct Walks
{
    unsigned first;
    unsigned count;
    int width;
};

void PrintTo(const Walks& walks, std::ostream* out)
{
    *out << walks.count << " from " << walks.first << ", " << walks.width << " wide";
}

class WalkTest : public QuietTest
{
protected:
    static std::string Printed() { return TakeMessages().join("; ").toStdString(); }

    /// How often each operation, and each element that it drew with, left ink from that column on.
    static std::map<std::string, int> TimesInked(const Walks& walks, int fromColumn)
    {
        std::map<std::string, int> times;
        for (unsigned i = 0; i < walks.count; ++i)
            for (const std::string& name : RandomWalk(walks.first + i, Printed, walks.width).Inked(fromColumn))
                ++times[name];
        return times;
    }
};

class RandomWalkTest : public WalkTest, public ::testing::WithParamInterface<Walks>
{
};

/// All walks, or, for looking into a failure and for looking for more of them, those that TX_WALK_SEED names: one seed,
/// or the first and the last of several, as in 500-999.
Walks Chosen(Walks walks)
{
    const char* const seeds = std::getenv("TX_WALK_SEED");
    if (!seeds)
        return walks;
    char* end = nullptr;
    const unsigned first = static_cast<unsigned>(std::strtoul(seeds, &end, 10));
    const unsigned last = *end == '-' ? static_cast<unsigned>(std::strtoul(end + 1, nullptr, 10)) : first;
    // Once for each width.
    return {first, walks.first == 0 ? last - first + 1 : 0, walks.width};
}

TEST_P(RandomWalkTest, LeavesTheSameAsMadeDirectly)
{
    const Walks walks = Chosen(GetParam());
    for (unsigned i = 0; i < walks.count; ++i)
        EXPECT_TRUE(RandomWalk(walks.first + i, Printed, walks.width).Run());
}

INSTANTIATE_TEST_SUITE_P(UsualWidth, RandomWalkTest,
                         ::testing::Values(Walks{0, 50, kUsualWidth}, Walks{50, 50, kUsualWidth},
                                           Walks{100, 50, kUsualWidth}, Walks{150, 50, kUsualWidth},
                                           Walks{200, 50, kUsualWidth}, Walks{250, 50, kUsualWidth},
                                           Walks{300, 50, kUsualWidth}, Walks{350, 50, kUsualWidth},
                                           Walks{400, 50, kUsualWidth}, Walks{450, 50, kUsualWidth}));
INSTANTIATE_TEST_SUITE_P(OnWideSurfaces, RandomWalkTest, ::testing::Values(Walks{0, 15, 2000}, Walks{0, 12, 40000}));

using InkTest = WalkTest;

// Otherwise the walks would compare backgrounds.
TEST_F(InkTest, OfEveryDrawingOperationAndElementComesUp)
{
    const Walks walks{0, 25, kUsualWidth};
    std::map<std::string, int> times = TimesInked(walks, 0);
    for (const auto topic : {ShapeOperations, MarkerOperations, LabelOperations, ImageOperations})
        for (const Operation& operation : topic())
            EXPECT_GE(times[operation.name], 2) << operation.name;
    for (const char* const name : {"DrawPath", "SetClipRegion", "SetClipRegion(gradient)"})
        EXPECT_GE(times[name], 2) << name;
    for (const std::string& name : AllElements())
        EXPECT_GE(times[name], 4) << name;
}

TEST_F(InkTest, OnWideSurfacesComesUpFarToTheRight)
{
    // Close to the last column that Qt reaches with shapes, and far from the first one.
    for (const auto& [walks, column] : {std::pair{Walks{0, 10, 40000}, 30000}, std::pair{Walks{0, 10, 2000}, 1024}})
    {
        const std::map<std::string, int> times = TimesInked(walks, column);
        int all = 0;
        for (const auto topic : {ShapeOperations, MarkerOperations, LabelOperations, ImageOperations})
            for (const Operation& operation : topic())
                if (const auto found = times.find(operation.name); found != times.end())
                    all += found->second;
        EXPECT_GE(all, static_cast<int>(walks.count / 2)) << walks.width << " wide";
    }
}

} // namespace
