// Symbols that are a character with arguments, fonts and pens by chance, each against the same calls of cairo.
#include <cmath>

#include <tests/txpluginqt/graphics/RandomCases.h>

#include "CairoSymbols.h"

using namespace TZObjects;

namespace
{

constexpr int kCasesOfAKind = 200;

double SomeHeight(Random& random)
{
    constexpr double heights[] = {0.0, -3.0, 0.99, 1.5, 2.5, 9.49, 9.5, 10.0, 12.0, 14.49, 14.5, 14.99, 15.0, 64.5};
    return random.Chance(50) ? random.OneOf(heights) : random.Real(4.0, 60.0);
}

double SomeAngle(Random& random)
{
    constexpr double angles[] = {0.0, 1e-9, 0.5, 0.99, 1.0, 1.5, 90.0, -30.0, 360.0, 1e6};
    return random.Chance(60) ? random.OneOf(angles) : random.Real(-400.0, 400.0);
}

short SomeCharacter(Random& random)
{
    constexpr int units[] = {0, '\t', '\n', ' ', '&', 0xD800, 0xDFFF, 0xF021, 0xFFFF, 0xFEFF, 0x0301, 0x05D0};
    const int kind = random.Int(1, 100);
    if (kind <= 40)
        return static_cast<short>(random.Int(33, 126));
    if (kind <= 65)
        return static_cast<short>(random.Int(0x2580, 0x26FF));
    if (kind <= 80)
        return static_cast<short>(random.Int(0x4E00, 0x6000));
    if (kind <= 88)
        return static_cast<short>(random.Int(0xD700, 0xFFFF));
    return static_cast<short>(random.OneOf(units));
}

constexpr const wchar_t* kFamilies[] = {L"DejaVu Sans", L"DejaVu Sans Mono", L"DejaVu Serif", L"WenQuanYi Micro Hei",
                                        L"No Such Face"};

Look SomeLook(Random& random)
{
    Look look;
    look.family = random.OneOf(kFamilies);
    look.height = random.Int(5, 40);
    look.bold = random.Chance(40);
    look.italic = static_cast<TXFont::TXItalicMode>(random.Int(0, 2));
    look.underline = random.Chance(20);
    look.halo = random.Chance(20);
    look.letterSpacing = random.Chance(20) ? 3.5 : 0.0;
    look.pen = random.Color();
    return look;
}

CharacterSymbol SomeSymbol(Random& random)
{
    CharacterSymbol symbol;
    symbol.x = random.Chance(95) ? random.Real(10.0, 190.0) : random.Coordinate();
    symbol.y = random.Chance(95) ? random.Real(10.0, 130.0) : random.Coordinate();
    symbol.width = random.Real(-5.0, 50.0);
    symbol.height = SomeHeight(random);
    symbol.angle = SomeAngle(random);
    symbol.fontName = random.Chance(5) ? L"" : random.OneOf(kFamilies);
    symbol.character = SomeCharacter(random);
    return symbol;
}

class CairoFontMarkerRandomTest : public QuietTest
{
};

TEST_F(CairoFontMarkerRandomTest, IsDrawnAsCairoDrawsIt)
{
    for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
        for (const DirectCairo::Origin origin : {DirectCairo::Switched, DirectCairo::Selected})
        {
            Look look;
            CairoMarkerTwins twins(look, format, origin);
            int drawn = 0;
            for (unsigned i = 0; i < kCasesOfAKind; ++i)
            {
                Random random(344000u + i * 8u + static_cast<unsigned>(format) + static_cast<unsigned>(origin) * 4u);
                if (random.Chance(50))
                {
                    look = SomeLook(random);
                    twins.Select(look);
                }
                const CharacterSymbol symbol = SomeSymbol(random);
                twins.Wipe();
                const QFont before = *static_cast<QFont*>(twins.Font().GetInternalObject());
                EXPECT_TRUE(twins.Draw(symbol, look)) << symbol;
                ASSERT_TRUE(twins.SameWithState()) << "format " << format << ", case " << i << ": " << symbol;
                QFont after = before;
                if (!symbol.fontName.empty())
                    after.setFamily(QString::fromStdWString(symbol.fontName));
                ASSERT_EQ(*static_cast<QFont*>(twins.Font().GetInternalObject()), after) << symbol;
                drawn += !twins.Untouched();
            }
            EXPECT_GE(drawn, kCasesOfAKind / 2) << "too few cases drew anything to say much";
        }
}

} // namespace
