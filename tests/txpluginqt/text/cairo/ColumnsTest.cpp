// Columns of stacked characters.
#include <cmath>
#include <vector>

#include "ShortLabel.h"

using namespace TZObjects;

namespace
{

constexpr double kX = 30.0;
constexpr double kY = 15.0;
const TXColor kFill(150, 30, 40, 255);

bool Draw(CairoTwins& twins, const TXString& text, int vAlign = 2, double columnSpacing = 0.0, double scale = 1.0,
          double charSpacing = 0.0, int hAlign = 1)
{
    return twins.Surface().DrawVerticalString(kX, kY, static_cast<TXGraphics::TXTextVertAlign>(vAlign),
                                              static_cast<TXGraphics::TXTextHorizAlign>(hAlign), text, kFill, 0.0,
                                              columnSpacing, charSpacing, false, scale);
}

cairo_text_extents_t Ink(cairo_t* cr, const char* text)
{
    const cairo_text_extents_t ink = AddText(cr, text, 0, 0);
    cairo_new_path(cr);
    return ink;
}

/// Fills one character, its origin at (@p x, @p y) from the anchor.
void Fill(cairo_t* cr, const char* character, double x, double y)
{
    cairo_save(cr);
    cairo_translate(cr, kX, kY + y);
    AddText(cr, character, x, 0);
    FillPath(cr, kFill);
    cairo_restore(cr);
}

/// How far the first baseline of a column lies below the top.
double FirstBaseline(cairo_t* cr, const cairo_font_extents_t& font, const char* first)
{
    return (font.ascent + std::abs(Ink(cr, first).y_bearing)) * 0.5;
}

class Columns : public QuietTest
{
};

TEST_F(Columns, FirstCharacterStandsHalfItsHeightAndHalfTheAscentDown)
{
    for (const char* const character : {"H", "x", "."})
    {
        CairoTwins twins;
        EXPECT_TRUE(Draw(twins, character));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        Fill(cr, character, 0, FirstBaseline(cr, font, character));
        EXPECT_TRUE(twins.SameAndInked()) << character;
    }
}

TEST_F(Columns, CharactersFollowAtTheAscentAndTheScaledWordSpacing)
{
    // The argument for the spacing is not used, the font's word spacing is.
    for (const double scale : {1.0, 2.0})
        for (const double spacing : {0.0, 4.5, -3.0})
        {
            Look look;
            look.letterSpacing = spacing;
            CairoTwins twins(look);
            EXPECT_TRUE(Draw(twins, L"Hxg", 2, 0.0, scale, 11.0));

            cairo_t* const cr = twins.Direct();
            const cairo_font_extents_t font = UseSize(cr, 20 * scale);
            const double first = FirstBaseline(cr, font, "H");
            const double step = font.ascent + spacing * scale;
            Fill(cr, "H", 0, first);
            Fill(cr, "x", 0, first + step);
            Fill(cr, "g", 0, first + step * 2);
            EXPECT_TRUE(twins.SameAndInked()) << "scale " << scale << ", spacing " << spacing;
        }
}

TEST_F(Columns, ShorterOnesAreCentredByAlignmentsOneAndThreeOnly)
{
    for (const int vAlign : {1, 2, 3, 0, 4})
    {
        CairoTwins twins;
        EXPECT_TRUE(Draw(twins, L"HHH\nx", vAlign));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        for (int i = 0; i < 3; ++i)
            Fill(cr, "H", 0, FirstBaseline(cr, font, "H") + font.ascent * i);
        const double down = vAlign == 1 || vAlign == 3 ? font.ascent : 0.0;
        cairo_translate(cr, font.height * 0.2, 0);
        Fill(cr, "x", Ink(cr, "H").width, FirstBaseline(cr, font, "x") + down);
        EXPECT_TRUE(twins.SameAndInked()) << "alignment " << vAlign;
    }
}

TEST_F(Columns, IgnoreTheHorizontalAlignment)
{
    CairoTwins twins;
    ASSERT_TRUE(Draw(twins, L"HHH\nx"));
    const QImage leftAligned = twins.Actual().copy();
    for (const int hAlign : {2, 3, 0})
    {
        twins.Wipe();
        EXPECT_TRUE(Draw(twins, L"HHH\nx", 2, 0.0, 1.0, 0.0, hAlign));
        EXPECT_TRUE(twins.Actual() == leftAligned) << "alignment " << hAlign;
        EXPECT_FALSE(twins.Untouched());
    }
}

TEST_F(Columns, GapsAfterTheFirstAndTheLaterOnesDependOnItalics)
{
    for (const int italics : {0, 1, 2})
    {
        Look look;
        look.italic = static_cast<TXFont::TXItalicMode>(italics);
        CairoTwins twins(look);
        EXPECT_TRUE(Draw(twins, L"a\nb\nc\nd"));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20);
        double x = 0;
        double gaps = 0;
        for (const char* const character : {"a", "b", "c", "d"})
        {
            cairo_save(cr);
            cairo_translate(cr, gaps, 0);
            Fill(cr, character, x, FirstBaseline(cr, font, character));
            cairo_restore(cr);
            x += Ink(cr, character).width;
            const bool first = character[0] == 'a';
            gaps += font.height * (italics ? (first ? 0.3 : 0.2) : (first ? 0.2 : 0.05));
        }
        EXPECT_TRUE(twins.SameAndInked()) << "italics " << italics;
    }
}

TEST_F(Columns, StandApartByTheWidestCharacterAndTheScaledSpacing)
{
    for (const double scale : {0.5, 2.0})
    {
        CairoTwins twins;
        EXPECT_TRUE(Draw(twins, L"iW\nx", 2, 6.0, scale));

        cairo_t* const cr = twins.Direct();
        const cairo_font_extents_t font = UseSize(cr, 20 * scale);
        const double first = FirstBaseline(cr, font, "i");
        Fill(cr, "i", 0, first);
        Fill(cr, "W", 0, first + font.ascent);
        cairo_translate(cr, font.height * 0.2, 0);
        Fill(cr, "x", Ink(cr, "W").width + 6 * scale, FirstBaseline(cr, font, "x"));
        EXPECT_TRUE(twins.SameAndInked()) << "scale " << scale;
    }
}

TEST_F(Columns, EmptyOnesTakeTheirGap)
{
    CairoTwins twins;
    EXPECT_TRUE(Draw(twins, L"\n\nx", 2, 6.0));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    cairo_translate(cr, font.height * 0.2 + font.height * 0.05, 0);
    Fill(cr, "x", 12, FirstBaseline(cr, font, "x"));
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Columns, SurrogatePairsFallApart)
{
    CairoTwins twins;
    EXPECT_TRUE(Draw(twins, L"\U0001F600"));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    const QByteArray half = QString(QChar(0xD83D)).toUtf8();
    Fill(cr, half, 0, FirstBaseline(cr, font, half));
    Fill(cr, half, 0, FirstBaseline(cr, font, half) + font.ascent);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Columns, TakeTheArgumentsColourWithItsAlpha)
{
    CairoTwins twins;
    const TXColor fill(10, 200, 60, 77);
    EXPECT_TRUE(twins.Surface().DrawVerticalString(kX, kY, TXGraphics::TextAlignVCenter, TXGraphics::TextAlignLeft,
                                                   L"H", fill, 0.0, 0.0, 0.0, false, 1.0));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20);
    const double baseline = FirstBaseline(cr, font, "H");
    cairo_translate(cr, kX, kY + baseline);
    AddText(cr, "H", 0, 0);
    FillPath(cr, fill);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Columns, WithoutAFontAreRefused)
{
    TXRefPtr<TXImage> first = NewImage(4, 4, TXImage::Format_ARGB32_Premultiplied);
    TXRefPtr<TXImage> image = NewImage(60, 60, TXImage::Format_ARGB32_Premultiplied);
    image->Fill(TXColor::WHITE_);
    TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics(first.get()));
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    const QImage before = static_cast<QImage*>(image->GetInternalObject())->copy();

    ShortLabel call;
    EXPECT_FALSE(::Draw(*surface, Entry::VerticalAt, call));
    EXPECT_FALSE(::Draw(*surface, Entry::VerticalAbout, call));
    EXPECT_FALSE(::Draw(*surface, Entry::StringByFontAngle, call));
    EXPECT_TRUE(*static_cast<QImage*>(image->GetInternalObject()) == before);
}

} // namespace
