#include <txmap/symbols/text/TextPainter.h>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include <txgraphics/TXImage.h>

#include "TextPicture.h"

using namespace TZObjects;
using namespace txmap;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class TextPainterTest : public TextPicture
{
protected:
    TextPainterTest()
    {
        ink.color = {0.0, 0.0, 1.0, 1.0};
        ink.haloColor = {1.0, 0.0, 0.0, 1.0};
    }

    /// A text with the left end of its first baseline in a point.
    std::vector<unsigned> Painted(const std::vector<TextSection>& sections, const TextStyle& style, TXPoint at,
                                  double angle = 0.0)
    {
        const TextBlock block = LayOutText(sections, style, fonts);
        return Drawn(
            [&](TXGraphics& surface)
            { TextPainter(plugin.Engine(), surface).Draw(block, at, block.pieces.front().origin, angle, ink); });
    }

    std::vector<unsigned> Painted(const std::string& text, const TextStyle& style, TXPoint at, double angle = 0.0)
    {
        return Painted(std::vector<TextSection>{Section(text)}, style, at, angle);
    }

    /// Letters that stand alone, in the fixed face, are drawn one by one.
    template <class Call>
    void ForEachLetter(const wchar_t* text, TXPoint at, double angle, double size, Call call)
    {
        const double advance = fonts.Find({"DejaVu Sans Mono"}, TextPath::Qt).Advance(L"n") * size;
        const double radians = angle * M_PI / 180.0;
        const double x = angle == 0.0 ? 1.0 : std::cos(radians);
        const double y = angle == 0.0 ? 0.0 : std::sin(radians);
        const auto rounded = [](double place) { return std::round(place * 256.0) / 256.0; };
        for (int i = 0; text[i] != 0; ++i)
            call(std::wstring(1, text[i]),
                 TXPoint(rounded(at.x + x * (i * advance)), rounded(at.y + y * (i * advance))));
    }

    /// The same by direct calls.
    void Write(TXGraphics& surface, const TXRefPtr<TXFont>& font, const wchar_t* text, TXPoint at, double angle,
               double scale = 1.0)
    {
        ForEachLetter(text, at, angle, font->GetFontHeight() * scale,
                      [&](const TXString& letter, TXPoint place)
                      { WriteWhole(surface, font, letter, place, angle, scale); });
    }

    void WriteWhole(TXGraphics& surface, const TXRefPtr<TXFont>& font, const TXString& text, TXPoint at, double angle,
                    double scale = 1.0)
    {
        surface.SelectFont(font);
        surface.SelectPen(Pen(TXColor(0, 0, 255, 255)));
        ASSERT_TRUE(surface.DrawString(at.x, at.y, at.x, at.x, at.y - AscentOf(*font), at.y, TXGraphics::TextAlignTop,
                                       TXGraphics::TextAlignLeft, text, angle, scale));
    }

    void WriteHalo(TXGraphics& surface, const TXRefPtr<TXFont>& font, const wchar_t* text, TXPoint at, double angle,
                   int stroke, double scale = 1.0)
    {
        font->SetFontHaloColor(TXColor(255, 0, 0, 255));
        font->SetFontHaloWidth(stroke);
        surface.SelectFont(font);
        ForEachLetter(text, at, angle, font->GetFontHeight() * scale,
                      [&](const TXString& letter, TXPoint place)
                      {
                          ASSERT_TRUE(surface.DrawOutlineString(place.x, place.y, place.x, place.y - AscentOf(*font),
                                                                TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                                                letter, TXColor(0, 0, 0, 0), angle, 0.0, scale));
                      });
    }

    static double AscentOf(const TXFont& font)
    {
        double height = 0.0;
        double ascent = 0.0;
        double descent = 0.0;
        font.GetFontMetricsInfo(height, ascent, descent, true);
        return ascent;
    }

    TextInk ink;
};

} // namespace

TEST_F(TextPainterTest, LettersAreThoseOfADirectCall)
{
    const auto expected = Drawn(
        [&](TXGraphics& surface) {
            Write(surface, Font("DejaVu Sans Mono", 20), L"Berlin", {30.5, 80.25}, 0.0);
        });
    EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {30.5, 80.25}), expected), 0U);
    EXPECT_GT(Inked(expected), 300U);
}

TEST_F(TextPainterTest, TextsWhoseLettersJoinOrReorderAreDrawnWhole)
{
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            const TXRefPtr<TXFont> font = Font("DejaVu Sans", 20);
            WriteWhole(surface, font,
                       L"\x200F"
                       L"شارع (رحوب) 12",
                       {30.5, 80.25}, 10.0);
            WriteWhole(surface, font,
                       L"e\x301"
                       L"e",
                       {30.5, 140.25}, 10.0);
        });
    TextStyle style = Mono(20.0);
    style.fontStack = {"DejaVu Sans"};
    style.maxWidth = -1.0;
    const TextBlock arabic = LayOut("شارع (رحوب) 12", style);
    const TextBlock accented = LayOut("e\xCC\x81"
                                      "e",
                                      style);
    const auto pixels = Drawn(
        [&](TXGraphics& surface)
        {
            TextPainter painter(plugin.Engine(), surface);
            painter.Draw(arabic, {30.5, 80.25}, arabic.pieces.front().origin, 10.0, ink);
            painter.Draw(accented, {30.5, 140.25}, accented.pieces.front().origin, 10.0, ink);
        });
    EXPECT_EQ(Differing(pixels, expected), 0U);
    EXPECT_GT(Inked(pixels), 600U);
}

TEST_F(TextPainterTest, LettersAreKernedAsInAWhole)
{
    TextStyle style = Mono(20.0);
    style.fontStack = {"DejaVu Sans"};
    for (const char* text : {"AVATAR Te. Yo", "Wilhelmstraße", "北京 Tō"})
        EXPECT_NEAR(LayOut(text, style).width,
                    fonts.Find(style.fontStack, TextPath::Qt).Advance(TXString(text).toStdWString()) * 20.0, 0.02)
            << text;
}

TEST_F(TextPainterTest, LettersTurnAboutTheOrigin)
{
    for (const double angle : {-37.5, 90.0, 123.25, 180.0})
    {
        const auto expected = Drawn(
            [&](TXGraphics& surface) {
                Write(surface, Font("DejaVu Sans Mono", 20), L"Berlin", {120, 120}, angle);
            });
        EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {120, 120}, angle), expected), 0U) << angle;
    }
}

TEST_F(TextPainterTest, FractionsOfSizesAreScaledFonts)
{
    const auto expected = Drawn(
        [&](TXGraphics& surface) {
            Write(surface, Font("DejaVu Sans Mono", 18), L"Berlin", {30, 80}, 0.0, 17.25 / 18.0);
        });
    EXPECT_EQ(Differing(Painted("Berlin", Mono(17.25), {30, 80}), expected), 0U);
}

TEST_F(TextPainterTest, TheHaloLiesUnderTheLetters)
{
    ink.haloWidth = 2.0;
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            WriteHalo(surface, Font("DejaVu Sans Mono", 20), L"Berlin", {30, 80}, 15.0, 4);
            Write(surface, Font("DejaVu Sans Mono", 20), L"Berlin", {30, 80}, 15.0);
        });
    EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {30, 80}, 15.0), expected), 0U);
}

TEST_F(TextPainterTest, PartsOfPixelsOfAHaloAreStrokesOfALargerFont)
{
    ink.haloWidth = 1.25;
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            WriteHalo(surface, Font("DejaVu Sans Mono", 160), L"Berlin", {30, 80}, 0.0, 20, 0.125);
            Write(surface, Font("DejaVu Sans Mono", 20), L"Berlin", {30, 80}, 0.0);
        });
    EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {30, 80}), expected), 0U);
}

TEST_F(TextPainterTest, AHaloIsNoWiderThanAQuarterOfTheSize)
{
    ink.haloWidth = 100.0;
    const auto wide = Painted("Berlin", Mono(20.0), {30, 80});
    ink.haloWidth = 5.0;
    EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {30, 80}), wide), 0U);
}

TEST_F(TextPainterTest, OpacityMultipliesTheColour)
{
    ink.opacity = 0.5;
    const auto faded = Painted("Berlin", Mono(20.0), {30, 80});
    ink.opacity = 1.0;
    ink.color.alpha = 0.5;
    EXPECT_EQ(Differing(Painted("Berlin", Mono(20.0), {30, 80}), faded), 0U);
    ink.color.alpha = 1.0;
    EXPECT_GT(Differing(Painted("Berlin", Mono(20.0), {30, 80}), faded), 300U);
    ink.opacity = 0.0;
    EXPECT_EQ(Inked(Painted("Berlin", Mono(20.0), {30, 80})), 0U);
}

TEST_F(TextPainterTest, AHaloIsNotSeenThroughLetters)
{
    // Large letters, so that there are pixels that they cover whole.
    ink.haloWidth = 4.0;
    ink.color = {0.0, 0.0, 0.0, 0.5};
    const auto pixels = Painted("H", Mono(100.0), {60, 200});
    std::size_t letter = 0;
    std::size_t halo = 0;
    for (const unsigned pixel : pixels)
    {
        letter += pixel == 0xFF7F7F7FU || pixel == 0xFF808080U ? 1U : 0U;
        halo += pixel == 0xFFFF0000U ? 1U : 0U;
    }
    EXPECT_GT(letter, 1000U);
    EXPECT_GT(halo, 300U);
}

TEST_F(TextPainterTest, ATranslucentHaloLiesAboutTheLetters)
{
    ink.haloWidth = 4.0;
    ink.haloColor.alpha = 0.5;
    const auto pixels = Painted("H", Mono(100.0), {60, 200});
    std::size_t halo = 0;
    std::size_t opaque = 0;
    for (const unsigned pixel : pixels)
    {
        halo += pixel == 0xFFFF7F7FU || pixel == 0xFFFF8080U ? 1U : 0U;
        opaque += pixel == 0xFF0000FFU ? 1U : 0U;
    }
    EXPECT_GT(halo, 300U);
    EXPECT_GT(opaque, 1000U);
}

TEST_F(TextPainterTest, ABlurredHaloReachesFartherAndIsFainter)
{
    ink.haloWidth = 3.0;
    const auto sharp = Painted("Berlin", Mono(20.0), {30, 80});
    ink.haloBlur = 2.0;
    const auto soft = Painted("Berlin", Mono(20.0), {30, 80});
    EXPECT_GT(Inked(soft), Inked(sharp) + 200U);
    const auto full = [](const std::vector<unsigned>& pixels)
    { return std::count(pixels.begin(), pixels.end(), 0xFFFF0000U); };
    EXPECT_LT(full(soft), full(sharp));
}

TEST_F(TextPainterTest, SectionsAreDrawnInTheirColours)
{
    TextSection green = Section("n");
    green.color = Color{0.0, 1.0, 0.0, 1.0};
    const auto pixels = Painted({Section("n"), green}, Mono(60.0), {60, 120});
    EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0xFF0000FFU), 100);
    EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0xFF00FF00U), 100);
}

TEST_F(TextPainterTest, TagsAndEscapesAreLetters)
{
    // That operation draws tags as they stand. Letters of Hebrew have the text drawn whole.
    const auto literal = [&](const wchar_t* text)
    {
        return Drawn(
            [&](TXGraphics& surface)
            {
                const TXRefPtr<TXFont> font = Font("DejaVu Sans Mono", 12);
                font->SetFontHaloColor(TXColor(255, 0, 0, 255));
                font->SetFontHaloWidth(2);
                surface.SelectFont(font);
                surface.DrawOutlineString(20, 80 - AscentOf(*font), TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                          text, TXColor(0, 0, 255, 255), 0.0, 0.0, 1.0);
            });
    };
    ink.haloWidth = 1.0;
    TextStyle style = Mono(12.0);
    style.maxWidth = -1.0;
    EXPECT_EQ(Differing(Painted("<BOL>ש</BOL> <b>", style, {20, 80}), literal(L"\x200E<BOL>ש</BOL> <b>")), 0U);
    EXPECT_EQ(Differing(Painted("ש &lt;b&gt; & <", style, {20, 80}), literal(L"\x200F"
                                                                             L"ש &lt;b&gt; & <")),
              0U);
    const TextBlock tagged = LayOut("<BOL>a</BOL> <b>", style);
    EXPECT_NEAR(tagged.width, LayOut("nBOLnannBOLn nbn", style).width, 1e-9);
}

TEST_F(TextPainterTest, LetterSpacingIsThatOfTheFont)
{
    TextStyle style = Mono(20.0);
    style.fontStack = {"DejaVu Sans"};
    style.letterSpacing = 0.25;
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            const TXRefPtr<TXFont> font = Font("DejaVu Sans", 20);
            font->SetWordSpacing(5.0);
            WriteWhole(surface, font, L"\x200Fשלום", {30, 80}, 0.0);
        });
    EXPECT_EQ(Differing(Painted("שלום", style, {30, 80}), expected), 0U);
}

TEST_F(TextPainterTest, CairoDrawsWhereQtDoes)
{
    TextStyle style = Mono(20.0);
    style.engine = TextPath::Cairo;
    const auto pixels = Painted("Berlin", style, {30, 80});
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            const TXRefPtr<TXFont> font = Font("DejaVu Sans Mono", 20);
            surface.EnableCairoDrawing(true);
            surface.SelectFont(font);
            surface.SelectPen(Pen(TXColor(0, 0, 255, 255)));
            const double ascent = fonts.Find({"DejaVu Sans Mono"}, TextPath::Cairo).Ascent(20);
            surface.DrawString(30, 80, 30, 30, 80 - ascent, 80, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                               L"Berlin", 0.0, 1.0);
        });
    EXPECT_EQ(Differing(pixels, expected), 0U);
    EXPECT_GT(Inked(pixels), 300U);
    ink.haloWidth = 2.0;
    EXPECT_GT(Inked(Painted("Berlin", style, {30, 80})), Inked(pixels) + 300U);
}

TEST_F(TextPainterTest, TheSurfaceIsLeftAsItWas)
{
    Drawn(
        [&](TXGraphics& surface)
        {
            surface.SetOpacity(0.25);
            surface.SelectPen(Pen(TXColor(255, 0, 0, 255)));
            TextStyle style = Mono(20.0);
            style.engine = TextPath::Cairo;
            ink.haloWidth = 2.0;
            ink.opacity = 0.5;
            const TextBlock block = LayOut("Berlin", style);
            TextPainter(plugin.Engine(), surface).Draw(block, {30, 80}, {0, 0}, 10.0, ink);
            EXPECT_EQ(surface.GetOpacity(), 0.25);
            EXPECT_FALSE(surface.CairoDrawingEnabled());
            surface.SetOpacity(1.0);
            surface.Line(10, 200, 60, 200);
            EXPECT_EQ(surface.GetImage()->GetPixel(30, 200).GetColor() & 0xFFU,
                      surface.GetImage()->GetPixel(30, 200).GetColor() >> 8U & 0xFFU);
            EXPECT_LT(surface.GetImage()->GetPixel(30, 200).GetColor() & 0xFFU, 200U);
        });
}

TEST_F(TextPainterTest, PlacesWithoutMeaningDrawNothing)
{
    for (const double bad : {kNaN, HUGE_VAL, 1e9, -1e300})
        EXPECT_EQ(Inked(Painted("Berlin", Mono(20.0), {bad, 80})), 0U) << bad;
    EXPECT_EQ(Inked(Painted("Berlin", Mono(20.0), {30, 80}, kNaN)), 0U);
    ink.haloWidth = kNaN;
    ink.haloBlur = kNaN;
    EXPECT_GT(Inked(Painted("Berlin", Mono(20.0), {30, 80})), 0U);
    ink.opacity = kNaN;
    EXPECT_EQ(Inked(Painted("Berlin", Mono(20.0), {30, 80})), 0U);
}

TEST_F(TextPainterTest, ATextAlongAStraightLineHasItsLettersInARow)
{
    const LineText text = MakeLineText({Section("nnnn")}, Mono(20.0), fonts);
    const auto fitted = FitAlong(text, {{20, 100}, {200, 100}}, 90.0, {});
    ASSERT_TRUE(fitted);
    const auto along =
        Drawn([&](TXGraphics& surface) { TextPainter(plugin.Engine(), surface).Draw(text, *fitted, ink); });
    const auto expected = Drawn(
        [&](TXGraphics& surface)
        {
            const double width = text.length / 4.0;
            for (int i = 0; i < 4; ++i)
            {
                const double x = std::round((110.0 + (i - 2) * width) * 256.0) / 256.0;
                Write(surface, Font("DejaVu Sans Mono", 20), L"n", {x, 100.0 + 20.0 * 10.5 / 24.0}, 0.0);
            }
        });
    EXPECT_EQ(Differing(along, expected), 0U);
}
