// Halos: who gets one, its width and its colour.
#include "ShortLabel.h"

using namespace TZObjects;

namespace
{

constexpr double kX = 40.0;
constexpr double kY = 30.0;

ShortLabel Call(const wchar_t* text)
{
    ShortLabel call;
    call.x = kX;
    call.y = kY;
    call.text = text;
    call.fill = TXColor(120, 20, 200, 210);
    return call;
}

/// "Hx" as one line with a halo, or without.
void DrawLine(cairo_t* cr, double size, const TXColor& color, const TXColor& haloColor, double haloWidth)
{
    cairo_save(cr);
    const cairo_font_extents_t font = UseSize(cr, size);
    cairo_translate(cr, kX, kY);
    AddText(cr, "Hx", 0, font.ascent);
    if (haloWidth > 0)
        StrokeHalo(cr, haloColor, haloWidth);
    FillPath(cr, color);
    cairo_restore(cr);
}

class Halos : public QuietTest
{
};

TEST_F(Halos, OfOrdinaryTextFollowTheFontAlone)
{
    for (const bool halo : {true, false})
    {
        Look look;
        look.halo = halo;
        CairoTwins twins(look);
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, Call(L"Hx")));
        DrawLine(twins.Direct(), 20, look.pen, look.haloColor, halo ? 3 : 0);
        EXPECT_TRUE(twins.SameAndInked()) << "halo " << halo;
    }
}

TEST_F(Halos, OfOutlineTextAreAlwaysThereAndTheFillIsTheArgument)
{
    for (const bool halo : {true, false})
    {
        Look look;
        look.halo = halo;
        CairoTwins twins(look);
        const ShortLabel call = Call(L"Hx");
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::OutlineAt, call));
        DrawLine(twins.Direct(), 20, call.fill, look.haloColor, 3);
        EXPECT_TRUE(twins.SameAndInked()) << "halo " << halo;
    }
}

TEST_F(Halos, OfColumnsNeedBothTheArgumentAndTheFont)
{
    for (const bool byFont : {true, false})
        for (const bool byArgument : {true, false})
        {
            Look look;
            look.halo = byFont;
            CairoTwins twins(look);
            ShortLabel call = Call(L"H");
            call.halo = byArgument;
            EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));

            cairo_t* const cr = twins.Direct();
            const cairo_font_extents_t font = UseSize(cr, 20);
            const cairo_text_extents_t ink = AddText(cr, "H", 0, 0);
            cairo_new_path(cr);
            cairo_translate(cr, kX, kY + (font.ascent - ink.y_bearing) * 0.5);
            AddText(cr, "H", 0, 0);
            if (byFont && byArgument)
                StrokeHalo(cr, look.haloColor, 3);
            FillPath(cr, call.fill);
            EXPECT_TRUE(twins.SameAndInked()) << "font " << byFont << ", argument " << byArgument;
        }
}

TEST_F(Halos, AreNeverScaled)
{
    Look look;
    look.halo = true;
    for (const double scale : {0.5, 2.0})
    {
        CairoTwins twins(look);
        ShortLabel call = Call(L"Hx");
        call.scale = scale;
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
        DrawLine(twins.Direct(), 20 * scale, look.pen, look.haloColor, 3);
        EXPECT_TRUE(twins.SameAndInked()) << "ordinary, scale " << scale;

        twins.Wipe();
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::OutlineAt, call));
        DrawLine(twins.Direct(), 20 * scale, call.fill, look.haloColor, 3);
        EXPECT_TRUE(twins.SameAndInked()) << "outline, scale " << scale;

        twins.Wipe();
        call.text = L"H";
        call.halo = true;
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));
        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20 * scale);
        const cairo_text_extents_t ink = AddText(cr, "H", 0, 0);
        cairo_new_path(cr);
        cairo_translate(cr, kX, kY + (font.ascent - ink.y_bearing) * 0.5);
        AddText(cr, "H", 0, 0);
        StrokeHalo(cr, look.haloColor, 3);
        FillPath(cr, call.fill);
        EXPECT_TRUE(twins.SameAndInked()) << "vertical, scale " << scale;
    }
}

TEST_F(Halos, LoseTheAlphaOfTheirColour)
{
    for (const int alpha : {0, 90})
    {
        Look look;
        look.halo = true;
        look.haloColor = TXColor(30, 160, 220, alpha);
        const TXColor opaque(30, 160, 220, 255);
        CairoTwins twins(look);
        const ShortLabel call = Call(L"Hx");
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
        DrawLine(twins.Direct(), 20, look.pen, opaque, 3);
        EXPECT_TRUE(twins.SameAndInked()) << "ordinary, alpha " << alpha;

        twins.Wipe();
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::OutlineAt, call));
        DrawLine(twins.Direct(), 20, call.fill, opaque, 3);
        EXPECT_TRUE(twins.SameAndInked()) << "outline, alpha " << alpha;

        twins.Wipe();
        ShortLabel vertical = Call(L"H");
        vertical.halo = true;
        Look withOpaque = look;
        withOpaque.haloColor = opaque;
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, vertical));
        DrawDirectly(twins.Direct(), Entry::VerticalAt, vertical, withOpaque);
        EXPECT_TRUE(twins.SameAndInked()) << "vertical, alpha " << alpha;
    }
}

TEST_F(Halos, OfALineCoverTheLineBefore)
{
    // Each line is stroked and filled before the next one begins.
    Look look;
    look.halo = true;
    look.haloWidth = 6;
    CairoTwins twins(look);
    ShortLabel call = Call(L"Hx\nHx");
    call.lineSpacing = -12;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    for (int i = 0; i < 2; ++i)
    {
        cairo_save(cr);
        cairo_translate(cr, kX, kY + (font.height - 12) * i + font.ascent);
        AddText(cr, "Hx", 0, 0);
        StrokeHalo(cr, look.haloColor, 6);
        FillPath(cr, look.pen);
        cairo_restore(cr);
    }
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Halos, OfOneLineLieBelowAllItsCharacters)
{
    for (const double spacing : {0.0, -4.0})
    {
        Look look;
        look.halo = true;
        look.haloWidth = 6;
        look.letterSpacing = spacing;
        CairoTwins twins(look);
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, Call(L"Hx")));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        cairo_translate(cr, kX, kY);
        if (spacing < 0)
        {
            const cairo_text_extents_t h = AddText(cr, "H", 0, font.ascent);
            AddText(cr, "x", h.width + h.x_bearing + spacing, font.ascent);
        }
        else
            AddText(cr, "Hx", 0, font.ascent);
        StrokeHalo(cr, look.haloColor, 6);
        FillPath(cr, look.pen);
        EXPECT_TRUE(twins.SameAndInked()) << "spacing " << spacing;
    }
}

TEST_F(Halos, OfACharacterInAColumnCoverTheCharacterBefore)
{
    // Every character is painted on its own.
    Look look;
    look.halo = true;
    look.haloWidth = 8;
    look.letterSpacing = -9;
    CairoTwins twins(look);
    ShortLabel call = Call(L"HH");
    call.halo = true;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    const cairo_text_extents_t ink = AddText(cr, "H", 0, 0);
    cairo_new_path(cr);
    cairo_translate(cr, kX, kY + (font.ascent - ink.y_bearing) * 0.5);
    for (int i = 0; i < 2; ++i)
    {
        AddText(cr, "H", 0, (font.ascent - 9) * i);
        StrokeHalo(cr, look.haloColor, 8);
        FillPath(cr, call.fill);
    }
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Halos, OfACharacterBelowARuleAreStrokedWithRoundCaps)
{
    // The round caps that the rules of a character are drawn with stay until its column ends. They change the outline
    // that cairo strokes around the next character a little, closed though it is.
    Look look;
    look.family = L"DejaVu Serif";
    look.height = 9;
    look.halo = true;
    look.haloWidth = 1;
    look.underline = true;
    CairoTwins twins(look);
    ShortLabel call = Call(L"il");
    call.x = 60.6;
    call.y = 42.4;
    call.halo = true;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 9);
    const cairo_text_extents_t first = AddText(cr, "i", 0, 0);
    cairo_new_path(cr);
    cairo_translate(cr, call.x, call.y + (font.ascent - first.y_bearing) * 0.5);
    double baseline = 0;
    for (const char* const character : {"i", "l"})
    {
        const cairo_text_extents_t ink = AddText(cr, character, 0, baseline);
        StrokeHalo(cr, look.haloColor, 1);
        FillPath(cr, call.fill);
        AddRule(cr, 0, font.descent + baseline, ink.width);
        StrokeRules(cr, call.fill, font.height / 20);
        baseline += font.ascent;
    }
    EXPECT_TRUE(twins.SameAndInked());
}

} // namespace
