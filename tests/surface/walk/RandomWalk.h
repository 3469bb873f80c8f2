#pragma once

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Operations.h"

/// A sequence of operations by chance, made on both sides, which must not differ after any of them.
class RandomWalk
{
public:
    /// @param width of the first target of each surface; on wide ones a walk is shorter.
    RandomWalk(unsigned seed, World::TakeMessages takeMessages, int width = kUsualWidth);

    /// Success when nothing differs. A failure names the seed and the shortest sequence found that still fails, and
    /// keeps the images.
    ::testing::AssertionResult Run();
    /// The names of the operations that left ink, once for each time, and of what they drew with. Slow.
    /// @param fromColumn how far to the right ink counts.
    std::vector<std::string> Inked(int fromColumn = 0);

private:
    struct Failure
    {
        std::size_t step;
        std::string difference;
    };

    /// Makes steps in a new world, the model's calls of the steps @p shifted with a shifted stack.
    std::optional<Failure> RunOnce(const std::vector<Step>& made, const std::set<std::size_t>& shifted, bool explain);
    /// The failure that stays however the stack lies.
    std::optional<Failure> RunSteps(const std::vector<Step>& made, bool explain = false);
    std::vector<Step> Shrunk(std::vector<Step> failing);

    unsigned seed;
    int width;
    std::vector<Step> steps;
    World::TakeMessages takeMessages;
};
