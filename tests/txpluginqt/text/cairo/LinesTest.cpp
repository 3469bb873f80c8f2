// Lines: where they stand against each other, and what a single one is.
#include <algorithm>
#include <cmath>

#include "ShortLabel.h"

using namespace TZObjects;

namespace
{

constexpr double kX = 30.0;
constexpr double kY = 20.0;

bool Draw(CairoTwins& twins, const TXString& text, int hAlign = 1, double lineSpacing = 0.0, double scale = 1.0)
{
    return twins.Surface().DrawString(kX, kY, TXGraphics::TextAlignTop,
                                      static_cast<TXGraphics::TXTextHorizAlign>(hAlign), text, 0.0, lineSpacing, scale);
}

/// Fills a run of text with the look's colour, its baseline's start at (@p x, @p y) from the anchor.
void Fill(cairo_t* cr, const char* text, double x, double y)
{
    cairo_save(cr);
    cairo_translate(cr, kX + x, kY + y);
    AddText(cr, text, 0, 0);
    FillPath(cr, Look().pen);
    cairo_restore(cr);
}

double InkWidth(cairo_t* cr, const char* text)
{
    const cairo_text_extents_t ink = AddText(cr, text, 0, 0);
    cairo_new_path(cr);
    return ink.width;
}

class Lines : public QuietTest
{
};

TEST_F(Lines, SingleOneHasItsTopLeftAtTheAnchor)
{
    CairoTwins twins;
    EXPECT_TRUE(Draw(twins, L"Hag"));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    cairo_translate(cr, kX, kY);
    AddText(cr, "Hag", 0, font.ascent);
    FillPath(cr, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Lines, SingleOneIgnoresAlignmentAndLineSpacing)
{
    for (const double spacing : {0.0, 2.0})
    {
        Look look;
        look.letterSpacing = spacing;
        CairoTwins twins(look);
        ASSERT_TRUE(Draw(twins, L"Hag"));
        const QImage leftAligned = twins.Actual().copy();
        ASSERT_FALSE(twins.Untouched());
        for (const int hAlign : {2, 3, 0, 17})
        {
            twins.Wipe();
            EXPECT_TRUE(Draw(twins, L"Hag", hAlign, 9.0));
            EXPECT_TRUE(twins.Actual() == leftAligned) << "alignment " << hAlign << ", spacing " << spacing;
        }
    }
}

TEST_F(Lines, AreAlignedAgainstTheWidest)
{
    // A first line of one character and a second one of four, by each alignment.
    for (const int hAlign : {1, 2, 3, 0, -4})
    {
        CairoTwins twins;
        EXPECT_TRUE(Draw(twins, L"n\nnnnn", hAlign));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        const double room = InkWidth(cr, "nnnn") - InkWidth(cr, "n");
        Fill(cr, "n", hAlign == 1 ? 0 : hAlign == 3 ? room : room * 0.5, font.ascent);
        Fill(cr, "nnnn", 0, font.height + font.ascent);
        EXPECT_TRUE(twins.SameAndInked()) << "alignment " << hAlign;
    }
}

TEST_F(Lines, WithSpacingAreAlignedAgainstTheWidest)
{
    for (const int hAlign : {1, 2, 3, 0})
    {
        Look look;
        look.letterSpacing = 5;
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, L"H\nHi", hAlign));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        const cairo_text_extents_t h = AddText(cr, "H", 0, 0);
        cairo_new_path(cr);
        // The width of a line counts the widths of its characters, whose left bearings move the next one all the same.
        const double room = h.width + InkWidth(cr, "i") + 5 - h.width;
        Fill(cr, "H", hAlign == 1 ? 0 : hAlign == 3 ? room : room * 0.5, font.ascent);
        cairo_save(cr);
        cairo_translate(cr, kX, kY + font.height);
        AddText(cr, "H", 0, font.ascent);
        AddText(cr, "i", h.width + h.x_bearing + 5, font.ascent);
        FillPath(cr, look.pen);
        cairo_restore(cr);
        EXPECT_TRUE(twins.SameAndInked()) << "alignment " << hAlign;
    }
}

TEST_F(Lines, WithoutCharacterSpacingStandApartByTheScaledLineSpacing)
{
    for (const double scale : {0.5, 2.0})
    {
        CairoTwins twins;
        EXPECT_TRUE(Draw(twins, L"Hx\nHx", 1, 7.0, scale));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20 * scale);
        Fill(cr, "Hx", 0, font.ascent);
        Fill(cr, "Hx", 0, font.height + 7 * scale + font.ascent);
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Lines, WithCharacterSpacingStandApartByTheUnscaledLineSpacing)
{
    for (const double scale : {0.5, 2.0})
    {
        Look look;
        look.letterSpacing = 4;
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, L"H\nx", 1, 7.0, scale));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20 * scale);
        Fill(cr, "H", 0, font.ascent);
        Fill(cr, "x", 0, font.height + 7 + font.ascent);
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Lines, EmptyOnesKeepTheirHeight)
{
    for (const double spacing : {0.0, 2.0})
    {
        Look look;
        look.letterSpacing = spacing;
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, L"\nH\n\nx\n"));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        Fill(cr, "H", 0, font.height + font.ascent);
        Fill(cr, "x", 0, font.height * 3 + font.ascent);
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Lines, CharactersStandApartByTheScaledWordSpacing)
{
    for (const double spacing : {6.0, -2.5})
    {
        Look look;
        look.letterSpacing = spacing;
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, L"Hxj", 1, 0.0, 2.0));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 40);
        cairo_translate(cr, kX, kY);
        double x = 0;
        for (const char* const character : {"H", "x", "j"})
        {
            const cairo_text_extents_t ink = AddText(cr, character, x, font.ascent);
            x += ink.width + ink.x_bearing + spacing * 2;
        }
        FillPath(cr, look.pen);
        EXPECT_TRUE(twins.SameAndInked()) << "spacing " << spacing;
    }
}

TEST_F(Lines, CharactersBeyondTheBasicPlaneFallApartWhenSpaced)
{
    Look look;
    look.letterSpacing = 6;
    CairoTwins twins(look);
    EXPECT_TRUE(Draw(twins, L"\U0001F600"));

    // Each half of the surrogate pair is a character of its own, which UTF-8 cannot express.
    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    cairo_translate(cr, kX, kY);
    const QString half(QChar(0xD83D));
    const cairo_text_extents_t ink = AddText(cr, half, 0, font.ascent);
    AddText(cr, QString(QChar(0xDE00)), ink.width + ink.x_bearing + 6, font.ascent);
    FillPath(cr, look.pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Lines, TagsAreDrawnAsTheyStand)
{
    CairoTwins twins;
    EXPECT_TRUE(Draw(twins, L"<BOL>a</BOL>"));

    cairo_t* const cr = twins.Direct();
    Fill(cr, "<BOL>a</BOL>", 0, UseSize(cr, 20).ascent);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Lines, SizeIsAtLeastATenth)
{
    // Text of this size shows by its halo, whose width is not scaled. A negative scale gives the smallest size too.
    for (const double scale : {0.0001, 0.004, -1.0})
    {
        Look look;
        look.halo = true;
        look.haloWidth = 2;
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, std::wstring(1000, L'M'), 1, 0.0, scale));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 0.1);
        cairo_translate(cr, kX, kY);
        AddText(cr, QString(1000, 'M'), 0, font.ascent);
        StrokeHalo(cr, look.haloColor, 2);
        FillPath(cr, look.pen);
        EXPECT_TRUE(twins.SameAndInked()) << "scale " << scale;
    }
}

TEST_F(Lines, SizeFollowsTheFontAtOnceAndTheFaceAtItsSelection)
{
    CairoTwins twins;
    twins.Font().SetFontHeight(30);
    twins.Font().SetFontBold(true);
    EXPECT_TRUE(Draw(twins, L"Hag"));

    cairo_t* const cr = twins.Direct();
    Fill(cr, "Hag", 0, UseSize(cr, 30).ascent);
    EXPECT_TRUE(twins.SameAndInked());

    twins.Wipe();
    twins.Surface().SelectFont(&twins.Font());
    EXPECT_TRUE(Draw(twins, L"Hag"));
    cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    Fill(cr, "Hag", 0, UseSize(cr, 30).ascent);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Lines, WithoutAFontAreOfSizeTenAndBlackWithoutAPen)
{
    for (const double scale : {1.0, 2.5})
    {
        CairoTwins twins(Look(), TXImage::Format_ARGB32_Premultiplied, DirectCairo::Selected);
        TXRefPtr<TXImage> first = NewImage(4, 4, TXImage::Format_ARGB32_Premultiplied);
        TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics(first.get()));
        surface->SelectImage(&twins.Image());
        surface->EnableCairoDrawing(true);
        ASSERT_FALSE(surface->GetFont());
        ASSERT_FALSE(surface->GetPen());

        EXPECT_TRUE(
            surface->DrawString(kX, kY, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Hag", 0.0, 0.0, scale));

        // In whatever face the context last had: the one that it started with.
        QImage& expected = twins.Expected();
        DirectCairo direct(expected, DirectCairo::Switched);
        const cairo_font_extents_t font = UseSize(direct, 10 * scale);
        cairo_translate(direct, kX, kY);
        AddText(direct, "Hag", 0, font.ascent);
        FillPath(direct, TXColor::BLACK_);
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Lines, OutlinedWithoutAFontHaveARedHaloOfOneAndAHalf)
{
    CairoTwins twins(Look(), TXImage::Format_ARGB32_Premultiplied, DirectCairo::Selected);
    TXRefPtr<TXImage> first = NewImage(4, 4, TXImage::Format_ARGB32_Premultiplied);
    TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics(first.get()));
    surface->SelectImage(&twins.Image());
    surface->EnableCairoDrawing(true);
    const TXColor fill(10, 200, 30, 180);

    EXPECT_TRUE(surface->DrawOutlineString(kX, kY, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Hag", fill,
                                           0.0, 0.0, 2.0));

    DirectCairo direct(twins.Expected(), DirectCairo::Switched);
    const cairo_font_extents_t font = UseSize(direct, 20);
    cairo_translate(direct, kX, kY);
    AddText(direct, "Hag", 0, font.ascent);
    StrokeHalo(direct, TXColor(255, 0, 0, 255), 1.5);
    FillPath(direct, fill);
    EXPECT_TRUE(twins.SameAndInked());
}

} // namespace
