#include <txbase/TXColor.h>

#include <climits>
#include <type_traits>

#include <gtest/gtest.h>

using TZObjects::TXColor;

namespace
{

static_assert(std::has_virtual_destructor_v<TXColor>);
static_assert(std::is_same_v<decltype(TXColor().getR()), unsigned char>);
static_assert(std::is_same_v<decltype(TXColor().GetColor()), unsigned int>);

// A host may use the constants in static objects of its own, which may be made before the library's. The loader calls
// what stands in this section before it runs the initialisers of any library.
unsigned int colorsBeforeInitialisers[3];

void ReadConstants()
{
    colorsBeforeInitialisers[0] = TXColor::BLACK_.GetColor();
    colorsBeforeInitialisers[1] = TXColor::WHITE_.GetColor();
    colorsBeforeInitialisers[2] = TXColor::RED_.GetColor();
}

__attribute__((section(".preinit_array"), used)) void (*const readConstantsEarly)() = ReadConstants;

void ExpectChannels(const TXColor& color, int r, int g, int b, int a)
{
    EXPECT_EQ(int{color.getR()}, r);
    EXPECT_EQ(int{color.getG()}, g);
    EXPECT_EQ(int{color.getB()}, b);
    EXPECT_EQ(int{color.getA()}, a);
}

} // namespace

TEST(TXColor, IsOpaqueBlackByDefault) { ExpectChannels(TXColor(), 0, 0, 0, 255); }

TEST(TXColor, TakesChannelsInTheOrderRedGreenBlueAlpha) { ExpectChannels(TXColor(1, 2, 3, 4), 1, 2, 3, 4); }

TEST(TXColor, ClampsChannels)
{
    ExpectChannels(TXColor(-1, 256, -1000, 1000), 0, 255, 0, 255);
    ExpectChannels(TXColor(INT_MAX, INT_MIN, INT_MAX, INT_MIN), 255, 0, 255, 0);
    ExpectChannels(TXColor(256, 257, 511, 512), 255, 255, 255, 255);
    ExpectChannels(TXColor(0, 255, 0, 255), 0, 255, 0, 255);
}

TEST(TXColor, PacksAlphaRedGreenBlueFromTheHighestByteOn)
{
    EXPECT_EQ(TXColor(0x12, 0x34, 0x56, 0x78).GetColor(), 0x78123456u);
    EXPECT_EQ(TXColor(255, 0, 0, 0).GetColor(), 0x00FF0000u);
    EXPECT_EQ(TXColor(0, 255, 0, 0).GetColor(), 0x0000FF00u);
    EXPECT_EQ(TXColor(0, 0, 255, 0).GetColor(), 0x000000FFu);
    EXPECT_EQ(TXColor(0, 0, 0, 255).GetColor(), 0xFF000000u);
    EXPECT_EQ(TXColor(255, 255, 255, 255).GetColor(), 0xFFFFFFFFu);
}

TEST(TXColor, UnpacksWithAlpha)
{
    ExpectChannels(TXColor(0x78123456u, true), 0x12, 0x34, 0x56, 0x78);
    ExpectChannels(TXColor(0xFFFFFFFFu, true), 255, 255, 255, 255);
    ExpectChannels(TXColor(0x00FF8001u, true), 255, 128, 1, 0);
}

TEST(TXColor, UnpacksWithoutAlphaAsOpaque)
{
    ExpectChannels(TXColor(0x78123456u, false), 0x12, 0x34, 0x56, 255);
    ExpectChannels(TXColor(0x00123456u, false), 0x12, 0x34, 0x56, 255);
}

TEST(TXColor, PackedFormWithAndWithoutAlpha)
{
    const TXColor color(0x12, 0x34, 0x56, 0x78);
    EXPECT_EQ(color.getRGB(true), 0x78123456u);
    EXPECT_EQ(color.getRGB(false), 0x00123456u);
    EXPECT_EQ(TXColor(255, 255, 255, 255).getRGB(false), 0x00FFFFFFu);
}

TEST(TXColor, SettingWithAlphaTakesAllChannels)
{
    TXColor color(1, 2, 3, 4);
    color.setColor(0x78123456u, true);
    ExpectChannels(color, 0x12, 0x34, 0x56, 0x78);
    color.setColor(0x00ABCDEFu, true);
    ExpectChannels(color, 0xAB, 0xCD, 0xEF, 0);
}

TEST(TXColor, SettingWithoutAlphaKeepsTheTargetsOwn)
{
    TXColor color(1, 2, 3, 4);
    color.setColor(0x78123456u, false);
    ExpectChannels(color, 0x12, 0x34, 0x56, 4);
}

TEST(TXColor, CarriesRedGreenAndBlueFromOneColorToAnother)
{
    const TXColor source(10, 20, 30, 40);
    TXColor target(1, 2, 3, 99);
    target.setColor(source.getRGB(false), false);
    ExpectChannels(target, 10, 20, 30, 99);
}

TEST(TXColor, PackedFormRoundTrips)
{
    for (const unsigned int value : {0u, 0x01020304u, 0x80FF7F00u, 0xFFFFFFFFu, 0xFE000001u})
        EXPECT_EQ(TXColor(value, true).GetColor(), value);
}

TEST(TXColor, CopiesAllChannels)
{
    const TXColor color(1, 2, 3, 4);
    const TXColor copy(color);
    ExpectChannels(copy, 1, 2, 3, 4);
    TXColor assigned;
    EXPECT_EQ(&(assigned = color), &assigned);
    ExpectChannels(assigned, 1, 2, 3, 4);
}

TEST(TXColor, Constants)
{
    ExpectChannels(TXColor::BLACK_, 0, 0, 0, 255);
    ExpectChannels(TXColor::WHITE_, 255, 255, 255, 255);
    ExpectChannels(TXColor::RED_, 255, 0, 0, 255);
}

TEST(TXColor, ConstantsAreThereBeforeAnyInitialiserRuns)
{
    EXPECT_EQ(colorsBeforeInitialisers[0], 0xFF000000u);
    EXPECT_EQ(colorsBeforeInitialisers[1], 0xFFFFFFFFu);
    EXPECT_EQ(colorsBeforeInitialisers[2], 0xFFFF0000u);
}
