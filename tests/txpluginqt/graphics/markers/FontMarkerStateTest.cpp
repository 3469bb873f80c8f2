// What a character drawn through Qt makes of the font, and what it leaves in the painter.
#include "FontMarkerTest.h"

#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

TEST_F(FontMarkerTest, SizesAreRoundedHalfAwayFromZeroAndAtLeastOnePixel)
{
    for (const auto& [size, pixels] : {std::pair(0.0, 1),
                                       {-7.0, 1},
                                       {-1e6, 1},
                                       {0.4, 1},
                                       {0.5, 1},
                                       {0.99, 1},
                                       {1.0, 1},
                                       {1.49, 1},
                                       {1.5, 2},
                                       {2.4999, 2},
                                       {2.5, 3},
                                       {9.49, 9},
                                       {9.5, 10},
                                       {12.0, 12},
                                       {30.5, 31}})
    {
        symbol.width = size;
        symbol.height = 20.0;
        EXPECT_TRUE(Draw(twins.Surface(), symbol));
        EXPECT_EQ(font->GetFontWidth(), pixels) << size;
        EXPECT_EQ(font->GetFontHeight(), 20) << size;
        symbol.width = 21.0;
        symbol.height = size;
        EXPECT_TRUE(Draw(twins.Surface(), symbol));
        EXPECT_EQ(font->GetFontWidth(), 21) << size;
        EXPECT_EQ(font->GetFontHeight(), pixels) << size;
        EXPECT_EQ(twins.SurfacePainter().font().pixelSize(), pixels) << size;
        symbol.width = size;
        EXPECT_TRUE(SameAsDirect());
    }
}

TEST_F(FontMarkerTest, LeavesItsFontInTheSelectionAndInThePainter)
{
    FontChoice choice;
    choice.family = L"DejaVu Serif";
    choice.bold = true;
    choice.italic = TXFont::ItalicFace;
    choice.underline = true;
    choice.letterSpacing = 2.5;
    choice.halo = true;
    choice.haloWidth = 4;
    choice.haloColor = TXColor(1, 2, 3, 4);
    choice.angle = 17;
    Select(choice);
    font->SetFontStrikeOut(true);
    font->SetFontShadow(true);
    font->SetFontItalicAngle(11);
    directFont.setStrikeOut(true);
    ASSERT_NE(FontOf(*font).styleStrategy(), QFont::PreferAntialias);

    symbol.width = 23.6;
    symbol.height = 31.4;
    symbol.fontName = L"DejaVu Sans Mono";
    EXPECT_TRUE(SameAsDirect());

    EXPECT_EQ(twins.Surface().GetFont(), font.get());
    EXPECT_EQ(font->GetFontWidth(), 24);
    EXPECT_EQ(font->GetFontHeight(), 31);
    EXPECT_EQ(font->GetFontName(), TXString(L"DejaVu Sans Mono"));
    EXPECT_EQ(FontOf(*font).styleStrategy(), QFont::PreferAntialias);
    EXPECT_TRUE(IsIn(twins.SurfacePainter()));
    // The rest is as it was.
    EXPECT_EQ(font->GetFontWeight(), 700);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicFace);
    EXPECT_TRUE(font->GetFontUnderline() && font->GetFontStrikeOut() && font->GetFontHalo() && font->GetFontShadow());
    EXPECT_EQ(font->GetWordSpacing(), 2.5);
    EXPECT_EQ(font->GetFontHaloWidth(), 4);
    EXPECT_EQ(font->GetFontHaloColor().GetColor(), TXColor(1, 2, 3, 4).GetColor());
    EXPECT_EQ(font->GetFontAngle(), 17);
    EXPECT_EQ(font->GetFontItalicAngle(), 11);
}

TEST_F(FontMarkerTest, AnEmptyNameKeepsTheFace)
{
    FontChoice choice;
    choice.family = L"DejaVu Serif";
    Select(choice);
    symbol.fontName.clear();
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(font->GetFontName(), TXString(L"DejaVu Serif"));
}

TEST_F(FontMarkerTest, AKnownLocalisedNameBecomesTheEnglishOne)
{
    const TXString& english = TXFont::GetEnglishNameForKnownFont(L"\u5B8B\u4F53");
    ASSERT_FALSE(english.isEmpty());
    symbol.fontName = L"\u5B8B\u4F53";
    EXPECT_TRUE(Draw(twins.Surface(), symbol));
    EXPECT_EQ(font->GetFontName(), english);
    symbol.fontName = english.toStdWString();
    twins.Wipe();
    EXPECT_TRUE(SameAsDirect());
}

TEST_F(FontMarkerTest, PutsTheTransformAndTheStackOfStatesBack)
{
    const WholeState before(twins.SurfacePainter());
    twins.Surface().Save();
    twins.SurfacePainter().rotate(40);
    twins.SurfacePainter().setWorldMatrixEnabled(false);
    symbol.height = 8.0;
    const WholeState within(twins.SurfacePainter());
    EXPECT_TRUE(Draw(twins.Surface(), symbol));
    WholeState after(twins.SurfacePainter());
    EXPECT_TRUE(IsIn(twins.SurfacePainter()));
    after.state.font = within.state.font;
    EXPECT_TRUE(SameWholeState(after, within));
    twins.Surface().Restore();
    EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before));
}

TEST_F(FontMarkerTest, IsDrawnWithAnOutsidePainterAndItsFontStaysThere)
{
    QImage actual = untouched.copy();
    QImage expected = untouched.copy();
    QPainter outside(&actual);
    QPainter direct(&expected);
    for (QPainter* const painter : {&outside, &direct})
    {
        painter->translate(20, 10);
        painter->rotate(25);
        painter->scale(0.8, 1.3);
        painter->setPen(Qt::darkRed);
    }
    const QFont own = twins.SurfacePainter().font();
    twins.Surface().Attach(&outside);
    for (int i = 0; i < 2; ++i) // the second time after the glyphs of the face are loaded
    {
        actual.fill(Qt::white);
        expected.fill(Qt::white);
        EXPECT_TRUE(Draw(twins.Surface(), symbol));
        DrawDirectly(direct, directFont, symbol);
    }
    twins.Surface().Detach();
    EXPECT_TRUE(SamePixels(actual, expected));
    EXPECT_TRUE(SameWholeState(WholeState(outside), WholeState(direct)));
    EXPECT_TRUE(IsIn(outside));
    EXPECT_EQ(twins.SurfacePainter().font(), own);
    EXPECT_EQ(twins.Actual(), untouched);
}

} // namespace
