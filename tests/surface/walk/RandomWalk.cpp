#include "RandomWalk.h"

#include <algorithm>

#include "Elements.h"

namespace
{

/// So many that a walk takes about as long on every width.
int Steps(int width) { return width > 10000 ? 40 : width > kUsualWidth ? 100 : 200; }

using Topic = std::vector<Operation> (*)();

/// Operations, and how often each is chosen.
class Table
{
public:
    Table(std::initializer_list<Topic> topics)
    {
        for (const Topic topic : topics)
            for (const Operation& operation : topic())
            {
                operations.push_back(operation);
                weights += operation.weight;
            }
    }

    const Operation& Some(Random& random) const
    {
        int rest = random.Int(1, weights);
        auto chosen = operations.begin();
        while (rest > chosen->weight)
            rest -= (chosen++)->weight;
        return *chosen;
    }

private:
    std::vector<Operation> operations;
    int weights = 0;
};

const Operation& SomeOperation(Random& random, int width)
{
    static const Table drawing = {ShapeOperations, MarkerOperations, LabelOperations, ImageOperations};
    static const Table all = {StateOperations, BackendOperations, LifeOperations,  ResourceOperations,
                              FontOperations,  PixelOperations,   ShapeOperations, PathOperations,
                              ClipOperations,  MarkerOperations,  LabelOperations, ImageOperations};
    // The few steps on a wide surface are to draw.
    return (width > kUsualWidth && random.Chance(60) ? drawing : all).Some(random);
}

/// Where on a wide surface a step goes: as on a small one, all along it, or near its right edge, a limit of whole
/// numbers in Qt, or anywhere.
Stretch SomeStretch(Random& random, int width)
{
    if (width == kUsualWidth || random.Chance(10))
        return {};
    if (random.Chance(20))
        return {static_cast<double>(width) / kUsualWidth, 0.0};
    const int shift = random.Int(0, kUsualWidth);
    if (random.Chance(25))
        return {1.0, static_cast<double>(width - shift)};
    if (width > 32768 && random.Chance(60))
        return {1.0, static_cast<double>(32768 - shift)};
    return {1.0, random.Int(0, width) + (random.Chance(30) ? 0.5 : 0.0)};
}

Step SomeStep(Random& random, int width)
{
    const Operation& operation = SomeOperation(random, width);
    const int surface = random.Chance(70) ? 0 : 1;
    return operation.make(random, surface, SomeStretch(random, width));
}

} // namespace

RandomWalk::RandomWalk(unsigned walkSeed, World::TakeMessages take, int surfaceWidth)
    : seed(walkSeed), width(surfaceWidth), takeMessages(std::move(take))
{
    Random random(seed);
    for (int i = 0; i < Steps(width); ++i)
        steps.push_back(SomeStep(random, width));
}

std::optional<RandomWalk::Failure> RandomWalk::RunOnce(const std::vector<Step>& made,
                                                       const std::set<std::size_t>& shifted, bool explain)
{
    World world(seed, width, takeMessages);
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
    result << "the walk of seed " << seed << ", " << width << " wide, fails after";
    for (const Step& step : failing)
        result << "\n  " << step.describe();
    return result << "\n  " << (failure ? failure->difference : "a difference that does not come again");
}

std::vector<std::string> RandomWalk::Inked(int fromColumn)
{
    World world(seed, width, takeMessages);
    world.LeftInk(fromColumn);
    std::vector<std::string> names;
    for (const Step& step : steps)
    {
        step.run(world);
        if (!world.LeftInk(fromColumn))
            continue;
        names.emplace_back(step.name);
        const std::vector<std::string> elements = ElementsOf(step, world);
        names.insert(names.end(), elements.begin(), elements.end());
    }
    return names;
}
