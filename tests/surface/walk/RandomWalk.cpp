#include "RandomWalk.h"

#include <algorithm>

namespace
{

constexpr int kSteps = 200;

const std::vector<Operation>& Table()
{
    static const std::vector<Operation> table = []
    {
        std::vector<Operation> all;
        for (const auto topic : {StateOperations, LifeOperations, ResourceOperations, ShapeOperations, PathOperations,
                                 ClipOperations, MarkerOperations, LabelOperations, ImageOperations})
        {
            std::vector<Operation> rows = topic();
            all.insert(all.end(), rows.begin(), rows.end());
        }
        return all;
    }();
    return table;
}

Step SomeStep(Random& random)
{
    static const int allWeights = []
    {
        int sum = 0;
        for (const Operation& operation : Table())
            sum += operation.weight;
        return sum;
    }();
    int rest = random.Int(1, allWeights);
    auto chosen = Table().begin();
    while (rest > chosen->weight)
        rest -= (chosen++)->weight;
    return chosen->make(random, random.Chance(70) ? 0 : 1);
}

} // namespace

RandomWalk::RandomWalk(unsigned walkSeed, World::TakeMessages take) : seed(walkSeed), takeMessages(std::move(take))
{
    Random random(seed);
    for (int i = 0; i < kSteps; ++i)
        steps.push_back(SomeStep(random));
}

std::optional<RandomWalk::Failure> RandomWalk::RunOnce(const std::vector<Step>& made,
                                                       const std::set<std::size_t>& shifted, bool explain)
{
    World world(seed, takeMessages);
    const auto failed = [&](std::size_t step, const std::string& difference) {
        return Failure{step, difference + (explain ? world.Explain() : std::string())};
    };
    for (std::size_t i = 0; i < made.size(); ++i)
    {
        world.ShiftStack(shifted.count(i) > 0);
        if (const auto difference = made[i].run(world))
            return failed(i, *difference);
        if (const auto difference = world.Difference())
            return failed(i, *difference);
    }
    if (const auto difference = world.DifferenceAtTheEnd())
        return failed(made.size(), *difference);
    return std::nullopt;
}

// Again after a failure also because Qt moves the outlines of a face by a 64th of a pixel once it has loaded the face's
// glyph images, which may happen between one side and the other: the second time all of them are loaded.
std::optional<RandomWalk::Failure> RandomWalk::RunSteps(const std::vector<Step>& made, bool explain)
{
    std::set<std::size_t> shifted;
    std::optional<Failure> failure;
    do
        failure = RunOnce(made, shifted, explain);
    while (failure && shifted.insert(failure->step).second);
    return failure;
}

std::vector<Step> RandomWalk::Shrunk(std::vector<Step> failing)
{
    for (std::size_t piece = std::max<std::size_t>(failing.size() / 2, 1);; piece /= 2)
    {
        for (std::size_t end = failing.size(); end >= piece; end -= std::min(end, piece))
        {
            std::vector<Step> shorter = failing;
            shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(end - piece),
                          shorter.begin() + static_cast<std::ptrdiff_t>(end));
            if (RunSteps(shorter))
                failing = shorter;
        }
        if (piece == 1)
            return failing;
    }
}

::testing::AssertionResult RandomWalk::Run()
{
    std::optional<Failure> failure = RunSteps(steps);
    if (!failure)
        return ::testing::AssertionSuccess();

    std::vector<Step> failing(steps.begin(),
                              steps.begin() + static_cast<std::ptrdiff_t>(std::min(failure->step + 1, steps.size())));
    failing = Shrunk(failing);
    failure = RunSteps(failing, true);
    ::testing::AssertionResult result = ::testing::AssertionFailure();
    result << "the walk of seed " << seed << " fails after";
    for (const Step& step : failing)
        result << "\n  " << step.describe();
    return result << "\n  " << (failure ? failure->difference : "a difference that does not come again");
}

std::vector<std::string> RandomWalk::Inked()
{
    World world(seed, takeMessages);
    world.LeftInk();
    std::vector<std::string> names;
    for (const Step& step : steps)
    {
        step.run(world);
        if (world.LeftInk())
            names.emplace_back(step.name);
    }
    return names;
}
