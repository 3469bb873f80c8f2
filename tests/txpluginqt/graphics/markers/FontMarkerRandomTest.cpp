// Symbols that are a character with arguments and in states by chance, each against the same calls of Qt.
#include <cmath>

#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/graphics/RandomCases.h>
#include <tests/txpluginqt/text/LabelFont.h>

#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

constexpr int kCases = 800;

double SomeSize(Random& random)
{
    constexpr double sizes[] = {0.0, -3.0, 0.3, 0.99, 1.0, 1.5, 2.5, 9.49, 9.5, 9.99, 10.0, 12.0, 15.0, 64.0, 65.5};
    return random.Chance(40) ? random.OneOf(sizes) : random.Real(4.0, 45.0);
}

double SomeAngle(Random& random)
{
    constexpr double angles[] = {0.0, 1e-9, 0.5, -0.5, 0.99, 1.0, 90.0, -30.0, 360.0, 1e6};
    return random.Chance(60) ? random.OneOf(angles) : random.Real(-400.0, 400.0);
}

short SomeCharacter(Random& random)
{
    constexpr int units[] = {0,      '\t',   '\n',   '\r',   ' ',    '&',    '<',
                             0xD83D, 0xDE00, 0xF021, 0xFFFF, 0xFEFF, 0x0301, 0x05D0};
    const int kind = random.Int(1, 100);
    if (kind <= 35)
        return static_cast<short>(random.Int(33, 126));
    if (kind <= 60)
        return static_cast<short>(random.Int(0x2580, 0x26FF));
    if (kind <= 75)
        return static_cast<short>(random.Int(0x4E00, 0x6000));
    if (kind <= 85)
        return static_cast<short>(random.Int(0xE000, 0xFFFF));
    return static_cast<short>(random.OneOf(units));
}

const wchar_t* SomeFamily(Random& random)
{
    constexpr const wchar_t* families[] = {L"DejaVu Sans",  L"DejaVu Sans",         L"DejaVu Sans Mono",
                                           L"DejaVu Serif", L"WenQuanYi Micro Hei", L"No Such Face"};
    return random.OneOf(families);
}

FontChoice SomeFont(Random& random)
{
    FontChoice font;
    font.family = SomeFamily(random);
    font.height = random.Int(5, 40);
    font.bold = random.Chance(30);
    font.italic = static_cast<TXFont::TXItalicMode>(random.Chance(60) ? 0 : random.Int(1, 2));
    font.underline = random.Chance(20);
    font.letterSpacing = random.Chance(20) ? random.Real(-3.0, 6.0) : 0.0;
    return font;
}

CharacterSymbol SomeSymbol(Random& random)
{
    CharacterSymbol symbol;
    symbol.x = random.Chance(90) ? random.Real(10.0, 80.0) : random.Coordinate();
    symbol.y = random.Chance(90) ? random.Real(10.0, 60.0) : random.Coordinate();
    symbol.width = SomeSize(random);
    symbol.height = random.Chance(50) ? SomeSize(random) : std::abs(symbol.width) + random.Real(0.0, 3.0);
    symbol.angle = SomeAngle(random);
    symbol.fontName = random.Chance(5) ? L"" : SomeFamily(random);
    symbol.character = SomeCharacter(random);
    return symbol;
}

class FontMarkerRandomTest : public QuietTest
{
};

TEST_F(FontMarkerRandomTest, IsDrawnAsQtDrawsIt)
{
    QImage scratch(96, 72, QImage::Format_ARGB32_Premultiplied);
    ForRandomCases(342, kCases,
                   [&](Random& random, Twins& twins)
                   {
                       const FontChoice choice = SomeFont(random);
                       const CharacterSymbol symbol = SomeSymbol(random);
                       const bool aliasedText = random.Chance(30);
                       const bool disabled = random.Chance(10);
                       const TXRefPtr<TXFont> font = MakeFont(choice);
                       QFont directFont = DirectFont(choice);
                       twins.Surface().SelectFont(font);
                       twins.Direct().setFont(directFont);
                       twins.Both(
                           [&](QPainter& painter)
                           {
                               painter.setRenderHint(QPainter::TextAntialiasing, !aliasedText);
                               painter.setWorldMatrixEnabled(!disabled);
                           });
                       {
                           // The first glyphs of a face may still move its outlines.
                           QPainter warming(&scratch);
                           QFont sameFont = directFont;
                           DrawDirectly(warming, sameFont, symbol);
                       }
                       EXPECT_TRUE(Draw(twins.Surface(), symbol)) << symbol;
                       DrawDirectly(twins.Direct(), directFont, symbol);
                       EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), WholeState(twins.Direct())));
                       EXPECT_EQ(*static_cast<QFont*>(font->GetInternalObject()), directFont) << symbol;
                       EXPECT_EQ(font->GetFontWidth(), CharacterSymbol::Pixels(symbol.width)) << symbol;
                       EXPECT_TRUE(twins.Same()) << symbol;
                   });
}

} // namespace
