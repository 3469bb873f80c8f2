// How long it takes to find room for the names of a crowded map: 100,000 boxes, one after the other, each of which is
// shown if it is clear of those before. That is to take less than a second.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>

#include <benchmark/benchmark.h>
#include <txmap/symbols/SymbolPlacement.h>

namespace
{

using namespace TZObjects;
using namespace txmap;

constexpr double kWidth = 2048.0;
constexpr double kHeight = 1024.0;
constexpr double kLimit = 1.0; // In seconds.

bool isBroken = false;

/// Texts as long as names of towns. @param crowd how far from the middle they lie, as a part of the picture.
LayerCandidates Names(std::int64_t count, double crowd)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> part(-0.5 * crowd, 0.5 * crowd);
    std::uniform_real_distribution<double> length(20.0, 90.0);
    LayerCandidates layer;
    layer.hasTexts = true;
    for (std::int64_t i = 0; i < count; ++i)
    {
        const double x = kWidth * (0.5 + part(random));
        const double y = kHeight * (0.5 + part(random));
        const double width = length(random);
        SymbolCandidate name;
        name.hasText = true;
        name.firstChoice = static_cast<std::uint32_t>(layer.choices.size());
        name.choices = 1;
        layer.choices.push_back({{x, x + width, y - 8.0, y + 8.0}, {}});
        layer.symbols.push_back(name);
    }
    return layer;
}

/// @param overlap what the names let lie on themselves: where all are shown, most are in the way of others.
void Place(benchmark::State& state, double crowd, Overlap overlap)
{
    LayerCandidates layer = Names(state.range(0), crowd);
    layer.text.overlap = overlap;
    double longest = 0.0;
    for (auto _ : state)
    {
        const auto begin = std::chrono::steady_clock::now();
        CollisionIndex index({0.0, kWidth, 0.0, kHeight});
        benchmark::DoNotOptimize(PlaceSymbols(layer, index));
        longest = std::max(longest, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    if (longest > kLimit)
    {
        isBroken = true;
        state.SkipWithError("takes more than a second");
    }
}

BENCHMARK_CAPTURE(Place, OverThePicture, 1.0, Overlap::Never)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Place, InItsMiddle, 0.1, Overlap::Never)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Place, OnOneAnother, 1.0, Overlap::Always)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return isBroken ? 1 : 0;
}
