#include <txmap/symbols/text/HaloImage.h>

#include <cstddef>

#include <gtest/gtest.h>

using namespace TZObjects;
using namespace txmap;

TEST(BlurAlphaTest, BlurKeepsHowMuchThereIs)
{
    std::vector<std::uint32_t> pixels(41 * 41, 0);
    for (int y = 15; y < 26; ++y)
        for (int x = 15; x < 26; ++x)
            pixels[static_cast<std::size_t>(y * 41 + x)] = 0xFFFF0000U;
    const auto sum = [&]
    {
        double alpha = 0.0;
        for (const std::uint32_t pixel : pixels)
            alpha += (pixel >> 24U) / 255.0;
        return alpha;
    };
    const double before = sum();
    BlurAlpha(pixels, 41, 41, 0.0, TXColor(255, 0, 0, 255));
    EXPECT_EQ(sum(), before);
    BlurAlpha(pixels, 41, 41, 4.0, TXColor(255, 0, 0, 255));
    EXPECT_NEAR(sum(), before, 0.5);
    // Half of it lies on either side of the edge; pixels stay premultiplied and of one colour.
    EXPECT_NEAR(pixels[20 * 41 + 15] >> 24U, 255 * 0.6, 20.0);
    for (const std::uint32_t pixel : pixels)
        EXPECT_EQ(pixel & 0xFFFFU, 0U);
    for (const std::uint32_t pixel : pixels)
        EXPECT_EQ(pixel >> 24U, pixel >> 16U & 0xFFU);
}
