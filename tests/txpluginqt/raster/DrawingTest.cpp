// Everything that the rasteriser draws, against QPainter.
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "RandomDrawings.h"

namespace
{

/// A number from the environment, for longer runs than those of every day.
unsigned FromEnvironment(const char* name, unsigned usual)
{
    const char* const text = std::getenv(name);
    return text ? static_cast<unsigned>(std::stoul(text)) : usual;
}

TEST(DrawingTest, RandomDrawingsHaveQPaintersPixels)
{
    const unsigned first = FromEnvironment("TX_DRAWING_SEED", 1);
    const unsigned count = FromEnvironment("TX_DRAWINGS", 3000);
    for (unsigned seed = first; seed < first + count; ++seed)
        EXPECT_TRUE(RandomDrawings(seed).DrawnAlike()) << "seed " << seed;
}

} // namespace
