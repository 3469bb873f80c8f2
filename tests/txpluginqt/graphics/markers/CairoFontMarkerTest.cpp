// What is special about symbols that are a character, through cairo, one sentence at a time.
#include "CairoFontMarkerTest.h"

#include <initializer_list>

#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>

#include "CairoSpy.h"

using namespace TZObjects;

namespace
{

TEST_F(CairoFontMarkerTest, TheInkIsCentred)
{
    for (const int unit : std::initializer_list<int>{'R', 'g', '.', '_', '\'', '^', 0x25A0, 0x2605})
    {
        symbol.character = static_cast<short>(unit);
        symbol.height = 33.0;
        symbol.x = 90.0;
        symbol.y = 70.0;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_FALSE(twins.Untouched());
    }
    // A full stop lies about the point, and not on a baseline below it.
    symbol.character = '.';
    twins.Wipe();
    const QImage before = twins.Actual().copy();
    EXPECT_TRUE(Draw(twins.Surface(), symbol));
    int above = 0;
    int below = 0;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            if (before.pixel(x, y) != twins.Actual().pixel(x, y))
                ++(y < 70 ? above : below);
    EXPECT_GT(above, 0);
    EXPECT_EQ(above, below);
}

TEST_F(CairoFontMarkerTest, ASymbolLowerThanFifteenIsDrawnTwice)
{
    look.pen = TXColor(20, 60, 140, 120);
    Select(look);
    for (const auto& [height, times] : {std::pair(-3.0, 2),
                                        {0.0, 2},
                                        {1.0, 2},
                                        {9.5, 2},
                                        {10.0, 2},
                                        {12.0, 2},
                                        {14.4, 2},
                                        {14.99, 2},
                                        {14.9999999, 2},
                                        {15.0, 1},
                                        {15.4, 1},
                                        {40.0, 1}})
    {
        symbol.height = height;
        EXPECT_TRUE(SameAsDirect());
        if (height < 5.0)
            continue; // too small to show how often
        const QImage drawn = twins.Actual().copy();
        const auto picture = [&](int count)
        {
            twins.Wipe();
            for (int i = 0; i < count; ++i)
            {
                cairo_t* const cr = twins.Direct();
                cairo_text_extents_t extents;
                cairo_set_font_size(cr, CharacterSymbol::Pixels(height));
                cairo_text_extents(cr, "R", &extents);
                cairo_save(cr);
                cairo_translate(cr, symbol.x - extents.width * 0.5,
                                symbol.y - extents.y_bearing - extents.height * 0.5);
                cairo_set_source_rgba(cr, 20 / 255.0, 60 / 255.0, 140 / 255.0, 120 / 255.0);
                cairo_move_to(cr, 0, 0);
                cairo_show_text(cr, "R");
                cairo_restore(cr);
                cairo_new_path(cr);
            }
            return twins.Expected().copy();
        };
        EXPECT_TRUE(SamePixels(drawn, picture(times))) << height;
        EXPECT_NE(drawn, picture(3 - times)) << height;
    }
}

TEST_F(CairoFontMarkerTest, IsTurnedFromOneDegreeOn)
{
    EXPECT_TRUE(SameAsDirect());
    const QImage upright = twins.Actual().copy();
    for (const double angle : {0.0, 1e-9, 0.5, 0.99, 0.999999999999, -0.5, -1.0, -30.0, -360.0, -1e6})
    {
        symbol.angle = angle;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_EQ(twins.Actual(), upright) << angle;
    }
    for (const double angle : {1.0, 1.5, 30.0, 90.0, 180.0, 359.0, 1e6})
    {
        symbol.angle = angle;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_NE(twins.Actual(), upright) << angle;
    }
}

TEST_F(CairoFontMarkerTest, IsInThePensColourWithItsAlpha)
{
    for (const TXColor& color : {TXColor(250, 10, 90, 255), TXColor(10, 250, 90, 60), TXColor(1, 2, 3, 0)})
    {
        look.pen = color;
        Select(look);
        EXPECT_TRUE(SameAsDirect());
        // The pen as it is now, whatever the painter has.
        twins.SurfacePainter().setPen(Qt::NoPen);
        look.pen = TXColor(color.getG(), color.getR(), 7, 200);
        twins.Surface().GetPen()->SetColor(look.pen);
        EXPECT_TRUE(SameAsDirect());
    }
}

TEST_F(CairoFontMarkerTest, WithoutAPenItIsBlack)
{
    const TXRefPtr<TXImage> painted = NewImage(200, 140, TXImage::Format_ARGB32_Premultiplied);
    const TXRefPtr<TXImage> image = NewImage(200, 140, TXImage::Format_ARGB32_Premultiplied);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(painted.get());
    ASSERT_FALSE(surface->GetPen());
    surface->SelectFont(MakeFont(Look()));
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    auto& pixels = *static_cast<QImage*>(image->GetInternalObject());
    pixels.fill(Qt::white);
    QImage expected = pixels.copy();
    EXPECT_TRUE(Draw(*surface, symbol));
    {
        DirectCairo direct(expected, DirectCairo::Switched);
        direct.Select(Look());
        DrawDirectly(direct, symbol, TXColor(0, 0, 0, 255));
    }
    EXPECT_TRUE(SamePixels(pixels, expected));
    EXPECT_GT(InkedPixels(pixels), 0);
}

TEST_F(CairoFontMarkerTest, TheWidthIsNotUsed)
{
    EXPECT_TRUE(SameAsDirect());
    const QImage drawn = twins.Actual().copy();
    for (const double width : {0.0, -5.0, 1.0, 300.0})
    {
        symbol.width = width;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_EQ(twins.Actual(), drawn);
    }
}

TEST_F(CairoFontMarkerTest, SizesAreRoundedHalfAwayFromZeroAndAtLeastOnePixel)
{
    for (const auto& [height, pixels] :
         {std::pair(0.0, 1), {-9.0, 1}, {0.7, 1}, {1.49, 1}, {1.5, 2}, {2.5, 3}, {19.5, 20}, {20.4999, 20}, {30.5, 31}})
    {
        symbol.height = height;
        EXPECT_TRUE(SameAsDirect());
        cairo_matrix_t size;
        cairo_get_font_matrix(twins.Context(), &size);
        EXPECT_EQ(size.xx, pixels) << height;
        EXPECT_EQ(size.yy, pixels) << height;
    }
}

TEST_F(CairoFontMarkerTest, DrawsTheUnitThatTheNumberStandsFor)
{
    for (const wchar_t* const family : {L"DejaVu Sans", L"WenQuanYi Micro Hei"})
        for (const int unit :
             std::initializer_list<int>{'A',    '&',    '<',    ' ',    '\t',   '\n',   '\r',   0,      0x25A0, 0x4E2D,
                                        0x05D0, 0x0301, 0x200B, 0xD7FF, 0xE000, 0xF021, 0xFF21, 0xFFFF, 0xFEFF, 0x2028})
        {
            symbol.fontName = family;
            symbol.character = static_cast<short>(unit);
            EXPECT_TRUE(SameAsDirect());
        }
    symbol.character = static_cast<short>(0xFF21);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_FALSE(twins.Untouched());
}

TEST_F(CairoFontMarkerTest, HalfASurrogatePairDrawsNothing)
{
    symbol.fontName = L"DejaVu Serif";
    for (const int unit : {0xD800, 0xD83D, 0xDBFF, 0xDC00, 0xDE00, 0xDFFF})
        for (const double height : {12.0, 33.3})
        {
            symbol.character = static_cast<short>(unit);
            symbol.height = height;
            symbol.angle = 40.0;
            EXPECT_TRUE(SameAsDirect());
            EXPECT_TRUE(twins.Untouched()) << unit;
            EXPECT_EQ(twins.Font().GetFontName(), TXString(L"DejaVu Serif"));
        }
}

TEST_F(CairoFontMarkerTest, WhatCairoCannotConvertDrawsNothingAndDoesNoHarm)
{
    symbol.fontName = L"DejaVu Serif";
    {
        const FailingConversion failing;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_TRUE(twins.Untouched());
    }
    EXPECT_TRUE(SameAsDirect());
    EXPECT_FALSE(twins.Untouched());
}

TEST_F(CairoFontMarkerTest, VectorMarkersAreQtsAsEver)
{
    Twins others(200, 140);
    PointSymbol star;
    star.SetPoints(Star(5, 2, 25.0));
    others.Surface().EnableCairoDrawing(true);
    for (const Placement placement : kPlacements)
    {
        EXPECT_TRUE(Draw(others.Surface(), placement, star));
        DrawDirectly(others.Direct(), placement, star);
    }
    EXPECT_TRUE(others.SameWithState());
}

} // namespace
