// Symbols that are a character, refused or harmless; through Qt, and through cairo where the answer is the same.
#include <cmath>
#include <limits>

#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>
#include <tests/txpluginqt/text/LabelFont.h>

#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// On both text paths: the parameter is whether cairo draws.
class FontMarkerRefusalTest : public SurfaceTest, public ::testing::WithParamInterface<bool>
{
protected:
    FontMarkerRefusalTest()
    {
        twins.Surface().SelectFont(font);
        twins.Direct().setFont(FontOf(*font));
        twins.Surface().EnableCairoDrawing(GetParam());
    }

    ::testing::AssertionResult IsRefused()
    {
        const WholeState before(twins.SurfacePainter());
        const QFont fontBefore = FontOf(*font);
        if (Draw(twins.Surface(), symbol))
            return ::testing::AssertionFailure() << "the answer is true; " << symbol;
        if (!twins.Same())
            return ::testing::AssertionFailure() << "ink; " << symbol;
        if (FontOf(*font) != fontBefore || font->GetFontWidth() != 7)
            return ::testing::AssertionFailure() << "the font has changed; " << symbol;
        return SameWholeState(WholeState(twins.SurfacePainter()), before);
    }
    /// An ordinary symbol has ink.
    bool DrawsOn()
    {
        twins.Wipe();
        return Draw(twins.Surface(), CharacterSymbol()) && twins.Actual() != twins.Expected();
    }

    static TXRefPtr<TXFont> NarrowFont()
    {
        FontChoice choice;
        choice.family = L"DejaVu Serif";
        const TXRefPtr<TXFont> narrow = MakeFont(choice);
        narrow->SetFontWidth(7);
        return narrow;
    }

    Twins twins{96, 72};
    TXRefPtr<TXFont> font = NarrowFont();
    CharacterSymbol symbol;
};

TEST_P(FontMarkerRefusalTest, NumbersThatAreNotFiniteOrTooLargeAreRefusedInEveryArgument)
{
    const double beyond = std::nextafter(1e12, 2e12);
    for (double* const number : symbol.Numbers())
        for (const double refused : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e13, -1e13, beyond, -beyond})
        {
            const double ordinary = *number;
            *number = refused;
            EXPECT_TRUE(IsRefused());
            *number = ordinary;
        }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(FontMarkerRefusalTest, NumbersUpToTheBoundDoNoHarm)
{
    for (double* const number : symbol.Numbers())
        for (const double extreme : {1e12, -1e12, 2147483648.0, -2147483649.0, 1e9, 70000.0, 32768.0, 5e-324, -0.0})
        {
            const double ordinary = *number;
            *number = extreme;
            EXPECT_TRUE(Draw(twins.Surface(), symbol)) << symbol;
            *number = ordinary;
        }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(FontMarkerRefusalTest, OddFaceNamesDoNoHarm)
{
    const std::wstring names[] = {L"",
                                  L" ",
                                  L"No Such Face",
                                  std::wstring(L"a\0b", 3),
                                  std::wstring(100000, L'n'),
                                  std::wstring{wchar_t(0xD800), L'x', wchar_t(0xDFFF)},
                                  std::wstring{wchar_t(0x7fffffff), wchar_t(0x110000)},
                                  L"DejaVu Sans:size=900000:weight=nan",
                                  L"@cairo:",
                                  L"\uFEFF",
                                  L"a,b,c"};
    for (const std::wstring& name : names)
    {
        symbol.fontName = name;
        EXPECT_TRUE(Draw(twins.Surface(), symbol));
        EXPECT_TRUE(DrawsOn());
    }
}

TEST_P(FontMarkerRefusalTest, WithoutAPainterTheAnswerIsFalse)
{
    const TXRefPtr<TXGraphics> never = TestEngine().NewGraphics(nullptr);
    never->EnableCairoDrawing(GetParam());
    EXPECT_FALSE(Draw(*never, symbol));
    const QImage& image = twins.Actual();
    twins.Surface().Delete();
    EXPECT_FALSE(Draw(twins.Surface(), symbol));
    EXPECT_EQ(image, twins.Expected());
    EXPECT_EQ(font->GetFontWidth(), 7);
    EXPECT_EQ(font->GetFontName(), TXString(L"DejaVu Serif"));
}

TEST_P(FontMarkerRefusalTest, WithoutASelectedFontTheAnswerIsFalse)
{
    const TXRefPtr<TXImage> image = NewPaintedImage(96, 72);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    surface->EnableCairoDrawing(GetParam());
    ASSERT_FALSE(surface->GetFont());
    EXPECT_FALSE(Draw(*surface, symbol));
    EXPECT_EQ(PixelsOf(*image), twins.Expected());
    surface->SelectFont(font);
    EXPECT_TRUE(Draw(*surface, symbol));
}

TEST_P(FontMarkerRefusalTest, WithAnEmptyFontTheAnswerIsFalse)
{
    const TXRefPtr<TXFont> neverCreated = TestEngine().NewFont();
    twins.Surface().SelectFont(neverCreated);
    EXPECT_FALSE(Draw(twins.Surface(), symbol));
    EXPECT_EQ(neverCreated->GetFontWidth(), 0);
    twins.Surface().SelectFont(font);
    font->Delete();
    EXPECT_FALSE(Draw(twins.Surface(), symbol));
    EXPECT_EQ(font->GetFontWidth(), 7);
    EXPECT_TRUE(twins.Same());
    font->Create();
    EXPECT_TRUE(Draw(twins.Surface(), symbol));
    EXPECT_FALSE(twins.Actual() == twins.Expected());
}

TEST_P(FontMarkerRefusalTest, AnInactivePainterDrawsNothingAndSaysNothing)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->EnableCairoDrawing(GetParam());
    surface->SelectFont(font);
    ASSERT_FALSE(PainterOf(*surface).isActive());
    EXPECT_TRUE(Draw(*surface, symbol));
    EXPECT_EQ(font->GetFontName(), TXString(L"DejaVu Sans"));
    EXPECT_EQ(font->GetFontWidth(), GetParam() ? 7 : 20);
}

INSTANTIATE_TEST_SUITE_P(TextPaths, FontMarkerRefusalTest, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& cairo) { return cairo.param ? "Cairo" : "Qt"; });

} // namespace
