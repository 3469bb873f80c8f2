// Markers and labels through cairo on one surface: each sees what the one before has left.
#include <tests/txpluginqt/graphics/RandomCases.h>
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

#include "CairoSpy.h"
#include "CairoSymbols.h"

using namespace TZObjects;

namespace
{

class CairoMarkersAndLabelsTest : public QuietTest
{
protected:
    void DrawLabel(Entry entry)
    {
        EXPECT_TRUE(::Draw(twins.Surface(), entry, call)) << entry;
        DrawDirectly(twins.Direct(), entry, call, look);
    }

    Look look;
    CairoMarkerTwins twins;
    CharacterSymbol symbol;
    ShortLabel call;
};

TEST_F(CairoMarkersAndLabelsTest, ALabelAfterAFontMarkerHasItsFaceAndTheFontsSize)
{
    symbol.fontName = L"DejaVu Serif";
    symbol.height = 41.0;
    for (const Entry entry : kAllEntries)
    {
        twins.Select(look);
        twins.Wipe();
        EXPECT_TRUE(twins.Draw(symbol, look));
        DrawLabel(entry);
        EXPECT_TRUE(twins.SameAndInked()) << entry;
    }
}

TEST_F(CairoMarkersAndLabelsTest, AreTurnedByTheAngleTimesPiThroughADivisionBy180)
{
    // In another order the last bit of the radians is another one.
    int differing = 0;
    for (int i = 1; i < 200; ++i)
    {
        const double angle = i * 0.37;
        const double radians = angle * 3.141592653589793 / 180;
        differing += radians != angle * (3.141592653589793 / 180);
        call.angle = symbol.angle = angle + 1.0;
        const double expected = call.angle * 3.141592653589793 / 180;
        for (const Entry entry : kAllEntries)
        {
            // This one is turned by whole degrees.
            if (entry == Entry::StringByFontAngle)
                continue;
            EXPECT_TRUE(::Draw(twins.Surface(), entry, call));
            EXPECT_EQ(LastRotation(), expected) << entry;
        }
        EXPECT_TRUE(twins.Surface().FontMarker(symbol.x, symbol.y, symbol.width, symbol.height, symbol.angle,
                                               TXString(symbol.fontName), symbol.character));
        EXPECT_EQ(LastRotation(), expected);
    }
    EXPECT_GE(differing, 20);
}

TEST_F(CairoMarkersAndLabelsTest, InAnyOrderAreDrawnAsCairoDrawsThem)
{
    const wchar_t* const families[] = {L"DejaVu Sans", L"DejaVu Serif", L"DejaVu Sans Mono", L"WenQuanYi Micro Hei"};
    Random random(345);
    for (int i = 0; i < 150; ++i)
    {
        symbol.x = random.Real(10.0, 190.0);
        symbol.y = random.Real(10.0, 130.0);
        symbol.angle = call.angle = random.Real(-90.0, 90.0);
        symbol.height = random.Real(7.0, 30.0);
        symbol.fontName = random.OneOf(families);
        symbol.character = static_cast<short>(random.Chance(10) ? 0xD800 : random.Int(0x25A0, 0x25CF));
        call.x = random.Real(10.0, 150.0);
        if (random.Chance(10))
        {
            look.bold = !look.bold;
            look.pen = random.Color();
            twins.Select(look);
        }
        if (random.Chance(40))
            DrawLabel(random.OneOf(kAllEntries));
        else
            EXPECT_TRUE(twins.Draw(symbol, look)) << symbol;
        ASSERT_TRUE(twins.Same()) << "step " << i;
    }
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(CairoMarkersAndLabelsTest, WhatAMarkerThroughQtLeftIsTheFontOfLabelsThroughCairo)
{
    twins.Surface().EnableCairoDrawing(false);
    symbol.fontName = L"DejaVu Serif";
    symbol.height = 31.2;
    EXPECT_TRUE(Draw(twins.Surface(), symbol));
    twins.Surface().EnableCairoDrawing(true);
    twins.Wipe();
    look.family = L"DejaVu Serif";
    look.height = 31;
    cairo_select_font_face(twins.Direct(), "DejaVu Serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    DrawLabel(Entry::StringAt);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(CairoMarkersAndLabelsTest, WhatAMarkerWithoutAContextLeftIsTheFaceOfLabelsOnceThereIsOne)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->SelectFont(MakeFont(look));
    surface->SelectPen(NewPen(look));
    surface->EnableCairoDrawing(true);
    symbol.fontName = L"DejaVu Serif";
    EXPECT_TRUE(Draw(*surface, symbol));
    look.family = L"DejaVu Serif";
    CairoMarkerTwins others(look, TXImage::Format_ARGB32_Premultiplied, DirectCairo::Selected);
    others.Surface().SelectImage(nullptr);
    surface->SelectImage(&others.Image());
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, call));
    DrawDirectly(others.Direct(), Entry::StringAt, call, look);
    EXPECT_TRUE(others.SameAndInked());
    surface->SelectImage(nullptr);
}

} // namespace
