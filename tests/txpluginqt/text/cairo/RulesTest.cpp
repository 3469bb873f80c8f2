// Underline and strike-out: how thick they are, and at which height each layout puts them.
#include <cmath>

#include "ShortLabel.h"

using namespace TZObjects;

namespace
{

constexpr double kX = 40.0;
constexpr double kY = 30.0;

constexpr double kSpacing = 3.5; ///< Between characters that are apart.

Look Ruled(double spacing)
{
    Look look;
    look.height = 24;
    look.underline = true;
    look.strikeOut = true;
    look.letterSpacing = spacing;
    return look;
}

/// A context that stands at the anchor while it lives.
class AtAnchor
{
public:
    AtAnchor(cairo_t* context, double x, double y) : context(context)
    {
        cairo_save(context);
        cairo_translate(context, x, y);
    }
    ~AtAnchor() { cairo_restore(context); }
    AtAnchor(const AtAnchor&) = delete;
    AtAnchor& operator=(const AtAnchor&) = delete;

private:
    cairo_t* context;
};

class RulesAtScale : public QuietTest, public ::testing::WithParamInterface<double>
{
protected:
    /// Draws a label at the anchor with the scale of this test.
    bool Draw(CairoTwins& twins, const wchar_t* text)
    {
        ShortLabel call;
        call.x = kX;
        call.y = kY;
        call.text = text;
        call.scale = scale;
        call.fill = Look().pen;
        return ::Draw(twins.Surface(), columns ? Entry::VerticalAt : Entry::StringAt, call);
    }

    /// A line of two characters that are apart, in the font that is set: rules hang on the ink of the first.
    void DrawSpaced(cairo_t* cr, double top, const char* first, const char* second, double ruleWidth) const
    {
        const AtAnchor anchor(cr, kX, top);
        const cairo_font_extents_t font = UseSize(cr, 24 * scale);
        const cairo_text_extents_t ink = AddText(cr, first, 0, font.ascent);
        const double at = ink.width + ink.x_bearing + kSpacing * scale;
        const double length = ink.width + AddText(cr, second, at, font.ascent).width + kSpacing * scale;
        FillPath(cr, Look().pen);
        AddRule(cr, 0, font.ascent - std::abs(ink.y_bearing) * 0.5, length);
        AddRule(cr, 0, font.ascent + font.descent / scale, length);
        StrokeRules(cr, Look().pen, ruleWidth);
    }

    const double scale = GetParam();
    bool columns = false;
};

TEST_P(RulesAtScale, OfAPlainLineAreAFifteenthAndHangOnItsInk)
{
    const Look look = Ruled(0.0);
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(Draw(twins, L"Hag"));

    const AtAnchor anchor(cr, kX, kY);
    const cairo_font_extents_t font = UseSize(cr, 24 * scale);
    const cairo_text_extents_t ink = AddText(cr, "Hag", 0, font.ascent);
    FillPath(cr, look.pen);
    AddRule(cr, 0, font.ascent - std::abs(ink.y_bearing) * 0.5, ink.width);
    AddRule(cr, 0, font.ascent + font.descent / scale, ink.width);
    StrokeRules(cr, look.pen, font.height / 15);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(RulesAtScale, OfASpacedLineAreATwentiethAndHangOnItsFirstCharacter)
{
    CairoTwins twins(Ruled(kSpacing));
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(Draw(twins, L"gH"));

    const cairo_font_extents_t font = UseSize(cr, 24 * scale);
    DrawSpaced(cr, kY, "g", "H", font.height / 20);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(RulesAtScale, OfPlainLinesAreAFifteenthAndHangOnTheBaseline)
{
    const Look look = Ruled(0.0);
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(Draw(twins, L"Hag\naH"));

    const cairo_font_extents_t font = UseSize(cr, 24 * scale);
    const char* const lines[] = {"Hag", "aH"};
    for (int i = 0; i < 2; ++i)
    {
        const AtAnchor anchor(cr, kX, kY + font.height * i + font.ascent);
        const cairo_text_extents_t ink = AddText(cr, lines[i], 0, 0);
        FillPath(cr, look.pen);
        AddRule(cr, 0, font.descent - font.ascent * 0.5, ink.width);
        AddRule(cr, 0, font.descent / scale, ink.width);
        StrokeRules(cr, look.pen, font.height / 15);
    }
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(RulesAtScale, OfSpacedLinesAreAFifteenthAndHangOnTheirFirstCharacters)
{
    CairoTwins twins(Ruled(kSpacing));
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(Draw(twins, L"gH\nAg"));

    const cairo_font_extents_t font = UseSize(cr, 24 * scale);
    DrawSpaced(cr, kY, "g", "H", font.height / 15);
    DrawSpaced(cr, kY + font.height, "A", "g", font.height / 15);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(RulesAtScale, OfColumnsAreATwentiethForEachCharacter)
{
    const Look look = Ruled(0.0);
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();
    columns = true;

    EXPECT_TRUE(Draw(twins, L"Hg"));

    const cairo_font_extents_t font = UseSize(cr, 24 * scale);
    const cairo_text_extents_t h = AddText(cr, "H", 0, 0);
    cairo_new_path(cr);
    const AtAnchor anchor(cr, kX, kY + (font.ascent + std::abs(h.y_bearing)) * 0.5);
    const char* const characters[] = {"H", "g"};
    for (int i = 0; i < 2; ++i)
    {
        const double baseline = font.ascent * i;
        const cairo_text_extents_t ink = AddText(cr, characters[i], 0, baseline);
        FillPath(cr, look.pen);
        AddRule(cr, 0, baseline - std::abs(ink.y_bearing) * 0.5, ink.width);
        AddRule(cr, 0, font.descent / scale + baseline, ink.width);
        StrokeRules(cr, look.pen, font.height / 20);
    }
    EXPECT_TRUE(twins.SameAndInked());
}

INSTANTIATE_TEST_SUITE_P(Scales, RulesAtScale, ::testing::Values(0.5, 1.0, 2.0));

class Rules : public QuietTest
{
};

TEST_F(Rules, AreDrawnEachByItsOwnSwitch)
{
    for (const bool underline : {true, false})
    {
        Look look;
        look.underline = underline;
        look.strikeOut = !underline;
        CairoTwins twins(look);
        cairo_t* const cr = twins.Direct();

        EXPECT_TRUE(twins.Surface().DrawString(kX, kY, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Hx", 0.0,
                                               0.0, 1.0));

        const AtAnchor anchor(cr, kX, kY);
        const cairo_font_extents_t font = UseSize(cr, 20);
        const cairo_text_extents_t ink = AddText(cr, "Hx", 0, font.ascent);
        FillPath(cr, look.pen);
        AddRule(cr, 0, underline ? font.ascent + font.descent : font.ascent - std::abs(ink.y_bearing) * 0.5, ink.width);
        StrokeRules(cr, look.pen, font.height / 15);
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Rules, HaveTheColourOfTheTextAndNoHalo)
{
    Look look = Ruled(0.0);
    look.halo = true;
    look.pen = TXColor(10, 120, 30, 130);
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(
        twins.Surface().DrawString(kX, kY, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Hx", 0.0, 0.0, 1.0));

    const AtAnchor anchor(cr, kX, kY);
    const cairo_font_extents_t font = UseSize(cr, 24);
    const cairo_text_extents_t ink = AddText(cr, "Hx", 0, font.ascent);
    StrokeHalo(cr, look.haloColor, 3);
    FillPath(cr, look.pen);
    AddRule(cr, 0, font.ascent - std::abs(ink.y_bearing) * 0.5, ink.width);
    AddRule(cr, 0, font.ascent + font.descent, ink.width);
    StrokeRules(cr, look.pen, font.height / 15);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Rules, OfAnEmptyLabelAreARoundDot)
{
    Look look = Ruled(0.0);
    look.strikeOut = false;
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(
        twins.Surface().DrawString(kX, kY, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"", 0.0, 0.0, 1.0));

    const AtAnchor anchor(cr, kX, kY);
    const cairo_font_extents_t font = UseSize(cr, 24);
    AddRule(cr, 0, font.ascent + font.descent, 0);
    StrokeRules(cr, look.pen, font.height / 15);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Rules, OfALaterColumnFollowItsCharacters)
{
    Look look = Ruled(0.0);
    look.strikeOut = false;
    CairoTwins twins(look);
    cairo_t* const cr = twins.Direct();

    EXPECT_TRUE(twins.Surface().DrawVerticalString(kX, kY, TXGraphics::TextAlignVCenter, TXGraphics::TextAlignLeft,
                                                   L"W\nH", look.pen, 0.0, 6.0, 0.0, false, 1.0));

    const cairo_font_extents_t font = UseSize(cr, 24);
    const char* const columns[] = {"W", "H"};
    double x = 0.0;
    double gap = 0.0;
    for (const char* const column : columns)
    {
        const cairo_text_extents_t ink = AddText(cr, column, x, 0);
        cairo_new_path(cr);
        const AtAnchor anchor(cr, kX + gap, kY + (font.ascent + std::abs(ink.y_bearing)) * 0.5);
        AddText(cr, column, x, 0);
        FillPath(cr, look.pen);
        AddRule(cr, x, font.descent, ink.width);
        StrokeRules(cr, look.pen, font.height / 20);
        x += ink.width + 6;
        gap = font.height * 0.2;
    }
    EXPECT_TRUE(twins.SameAndInked());
}

} // namespace
