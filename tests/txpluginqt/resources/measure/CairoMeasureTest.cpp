// Measuring as cairo draws.
#include <algorithm>

#include "CairoMeasure.h"
#include "MeasureTest.h"

using namespace TZObjects;

namespace
{

/// What has to be measured, from cairo itself.
Measures MeasuredDirectly(const TXFont& font, const CairoMeasure& cairo, double spacing, const std::wstring& label)
{
    // Everything is overwritten.
    Measures m(font, TXString(), false);
    const TXString text(label);
    const cairo_font_extents_t extents = cairo.Font();
    const double width = cairo.Text(text.toUTF8()).width;
    m.lineAnswers = m.lineAnswersInt = m.blockAnswers = m.blockAnswersInt = true;
    m.lineWidth = width;
    m.lineHeight = extents.height;
    m.lineWidthInt = static_cast<int>(width);
    m.lineHeightInt = static_cast<int>(extents.height);
    m.blockWidth = 0.0;
    int lines = 0;
    for (const TXString& line : text.split(L'\n'))
    {
        m.blockWidth = std::max(m.blockWidth, (line.length() - 1) * spacing + cairo.Text(line.toUTF8()).width);
        ++lines;
    }
    m.blockHeight = lines * extents.height;
    m.blockWidthInt = static_cast<int>(m.blockWidth);
    m.blockHeightInt = static_cast<int>(m.blockHeight);
    m.height = extents.height;
    m.ascent = extents.ascent;
    m.descent = extents.descent;
    m.heightInt = static_cast<int>(extents.height);
    m.ascentInt = static_cast<int>(extents.ascent);
    m.descentInt = static_cast<int>(extents.descent);
    m.charWidth = label.empty() ? 0.0 : width / static_cast<double>(label.size());
    return m;
}

class CairoMeasureTest : public MeasureTest
{
protected:
    CairoMeasureTest() { EnableCairo(true); }

    static Measures Measured(const TXFont& font, const std::wstring& text = L"Main\nStreet")
    {
        return Measures(font, TXString(text), false);
    }
    static Measures Direct(const TXFont& font, const FontChoice& choice, const std::wstring& text = L"Main\nStreet")
    {
        return MeasuredDirectly(font, CairoMeasure(choice), choice.letterSpacing, text);
    }
};

TEST_F(CairoMeasureTest, EveryTextInManyFontsIsMeasuredAsByCairoItself)
{
    for (const FontChoice& choice : ManyFonts())
    {
        const TXRefPtr<TXFont> font = MakeFont(choice);
        const CairoMeasure cairo(choice);
        for (const std::wstring& text : LabelTexts())
            ASSERT_EQ(Measured(*font, text), MeasuredDirectly(*font, cairo, choice.letterSpacing, text))
                << TXString(text).toUTF8() << " in " << TXString(choice.family).toUTF8() << ' ' << choice.height;
    }
}

TEST_F(CairoMeasureTest, LongTextsAreMeasuredAsByCairoItself)
{
    FontChoice choice;
    choice.letterSpacing = 0.75;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    for (const std::wstring& text : AllTexts())
        EXPECT_EQ(Measured(*font, text), Direct(*font, choice, text));
}

TEST_F(CairoMeasureTest, TagsAreMeasuredAsTheyStand)
{
    const FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    EXPECT_EQ(Measured(*font, L"<BOL>x</BOL>").lineWidth, CairoMeasure(choice).Text("<BOL>x</BOL>").width);
}

TEST_F(CairoMeasureTest, AFontWithoutANameAndAHeightMeasuresInCairosDefaults)
{
    const TXRefPtr<TXFont> font = TestEngine().NewFont();
    font->Create();
    EXPECT_EQ(Measured(*font), MeasuredDirectly(*font, CairoMeasure(), 0.0, L"Main\nStreet"));
}

TEST_F(CairoMeasureTest, TheFaceIsTakenWhenTheNameIsSet)
{
    FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    font->SetFontBold(true);
    font->SetFontItalic(true);
    EXPECT_EQ(Measured(*font), Direct(*font, choice));
    choice.bold = true;
    choice.italic = TXFont::ItalicFace;
    ASSERT_FALSE(Measured(*font) == Direct(*font, choice));
    font->SetFontName(choice.family);
    EXPECT_EQ(Measured(*font), Direct(*font, choice));
    // A slant counts as italics for cairo.
    choice.italic = TXFont::ItalicSlant;
    EXPECT_EQ(Measured(*MakeFont(choice)), Direct(*font, choice));
}

TEST_F(CairoMeasureTest, TheHeightIsTakenAtOnceAndRefusedOnesAreNot)
{
    FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    choice.height = 31;
    font->SetFontHeight(31);
    font->SetFontHeight(0);
    font->SetFontHeight(-4);
    EXPECT_EQ(Measured(*font), Direct(*font, choice));
}

TEST_F(CairoMeasureTest, TheSpacingLiesBetweenTheCharactersOfSeveralLinesOnly)
{
    FontChoice choice;
    choice.letterSpacing = 10.0;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    const CairoMeasure cairo(choice);
    EXPECT_EQ(Measured(*font, L"abcd").lineWidth, cairo.Text("abcd").width);
    EXPECT_EQ(Measured(*font, L"abcd").blockWidth, cairo.Text("abcd").width + 30.0);
    EXPECT_EQ(Measured(*font, L"a").blockWidth, cairo.Text("a").width);
    // A line without characters cannot make the width negative.
    EXPECT_EQ(Measured(*font, L"").blockWidth, 0.0);
    EXPECT_EQ(Measured(*font, L"").blockHeight, cairo.Font().height);
    EXPECT_EQ(Measured(*font, L"\n").blockHeight, 2.0 * cairo.Font().height);
    font->SetWordSpacing(-10.0);
    EXPECT_EQ(Measured(*font, L"").blockWidth, 10.0);
    EXPECT_EQ(Measured(*font, L"iiiiiiii").blockWidth, std::max(0.0, cairo.Text("iiiiiiii").width - 70.0));
}

TEST_F(CairoMeasureTest, WholeUnitsAreTruncated)
{
    FontChoice choice;
    choice.letterSpacing = 0.4;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    const Measures m = Measured(*font, L"abc");
    ASSERT_GT(m.blockWidth - static_cast<int>(m.blockWidth), 0.5);
    EXPECT_EQ(m.blockWidthInt, static_cast<int>(m.blockWidth));
}

TEST_F(CairoMeasureTest, TheCharacterIsAsWideAsTheAverage)
{
    const FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    EXPECT_EQ(Measured(*font, L"iWi").charWidth, CairoMeasure(choice).Text("iWi").width / 3.0);
    EXPECT_EQ(Measured(*font, L"\u5317\u4eac").charWidth, CairoMeasure(choice).Text("\u5317\u4eac").width / 2.0);
    EXPECT_EQ(Measured(*font, L"").charWidth, 0.0);
}

TEST_F(CairoMeasureTest, NeitherStrangeNamesNorHeightsSpoilTheNextMeasure)
{
    const FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    for (const int height : {40001, 65536, 2147483647})
    {
        font->SetFontHeight(height);
        EXPECT_TRUE(Measured(*font).lineAnswers);
    }
    for (const std::wstring& name : {std::wstring(1, wchar_t(0xd800)), std::wstring(L"a\0b", 3), std::wstring(1, L'\0'),
                                     std::wstring(5000, L'n'), std::wstring(1, wchar_t(0x7fffffff))})
    {
        font->SetFontName(TXString(name));
        EXPECT_TRUE(Measured(*font).lineAnswers);
    }
    font->SetWordSpacing(1e300);
    EXPECT_TRUE(Measured(*font).blockAnswers);
    font->SetWordSpacing(0.0);
    font->SetFontName(choice.family);
    font->SetFontHeight(choice.height);
    EXPECT_EQ(Measured(*font), Direct(*font, choice));
}

} // namespace
