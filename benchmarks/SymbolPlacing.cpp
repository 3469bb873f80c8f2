// Places 100,000 symbols of a picture of 4096 x 4096, texts at points and along lines, without drawing any. Prints the
// milliseconds of processor time for 1, 2 and 4 sides of its point at which a text may stand, and how many are shown.
#include <algorithm>
#include <cstdio>
#include <random>

#include <txmap/symbols/SymbolPlacement.h>

#include "CpuTime.h"

namespace
{

constexpr int kSymbols = 100000;
constexpr double kSide = 4096.0;
constexpr double kTextHeight = 16.0;
constexpr int kRounds = 5;

txmap::LayerCandidates Candidates(int sides)
{
    std::mt19937 engine(7);
    const auto between = [&](double low, double high)
    { return std::uniform_real_distribution<double>(low, high)(engine); };
    txmap::LayerCandidates layer;
    layer.hasTexts = true;
    for (int i = 0; i < kSymbols; ++i)
    {
        txmap::SymbolCandidate symbol;
        symbol.hasText = true;
        const double x = between(0.0, kSide);
        const double y = between(0.0, kSide);
        const double width = between(30.0, 120.0);
        symbol.followsLine = i % 5 == 0;
        if (symbol.followsLine)
        {
            symbol.firstCircle = static_cast<std::uint32_t>(layer.circles.size());
            symbol.circles = static_cast<std::uint32_t>(width / kTextHeight) + 1;
            for (std::uint32_t k = 0; k < symbol.circles; ++k)
                layer.circles.push_back({{x + k * kTextHeight, y + k * 4.0}, kTextHeight / 2.0});
        }
        else
        {
            symbol.firstChoice = static_cast<std::uint32_t>(layer.choices.size());
            symbol.choices = static_cast<std::uint32_t>(sides);
            for (int side = 0; side < sides; ++side)
            {
                const double left = side % 2 == 0 ? x : x - width;
                const double top = side < 2 ? y : y - kTextHeight;
                layer.choices.push_back({{left, left + width, top, top + kTextHeight}, {}});
            }
        }
        layer.symbols.push_back(symbol);
    }
    return layer;
}

} // namespace

int main()
{
    for (const int sides : {1, 2, 4})
    {
        const txmap::LayerCandidates layer = Candidates(sides);
        double least = 1e9;
        long shown = 0;
        for (int round = 0; round < kRounds; ++round)
        {
            const double start = CpuSeconds();
            txmap::CollisionIndex index({-100.0, kSide + 100.0, -100.0, kSide + 100.0});
            const auto verdicts = txmap::PlaceSymbols(layer, index);
            least = std::min(least, CpuSeconds() - start);
            shown = std::count_if(verdicts.begin(), verdicts.end(), [](const auto& one) { return one.text; });
        }
        std::printf("%d\t%.1f\t%ld\n", sides, least * 1e3, shown);
    }
    return 0;
}
