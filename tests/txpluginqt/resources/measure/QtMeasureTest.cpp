// Measuring as Qt draws.
#include <algorithm>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QTextDocument>

#include <tests/txpluginqt/text/NaiveTags.h>

#include "MeasureTest.h"

using namespace TZObjects;

namespace
{

/// What has to be measured, from Qt itself.
Measures MeasuredDirectly(const TXFont& font, const QFont& qfont, const std::wstring& label)
{
    // Everything is overwritten.
    Measures m(font, TXString(), true);
    const QString original = QString::fromStdWString(label);
    const QString text = ConvertedNaively(original);
    const QFontMetricsF metrics(qfont);
    const QFontMetrics whole(qfont);
    m.lineAnswers = m.lineAnswersInt = m.blockAnswers = m.blockAnswersInt = true;
    if (Qt::mightBeRichText(text))
    {
        const QSizeF size = DocumentSize(text, qfont);
        m.lineWidth = size.width();
        m.lineHeight = size.height();
        m.lineWidthInt = static_cast<int>(size.width() + 0.5);
        m.lineHeightInt = static_cast<int>(size.height() + 0.5);
    }
    else
    {
        const QRect bounds = whole.boundingRect(text);
        m.lineWidth = std::max(metrics.horizontalAdvance(text), metrics.boundingRect(text).width());
        m.lineHeight = metrics.boundingRect(text).height();
        m.lineWidthInt = whole.horizontalAdvance(text);
        m.lineHeightInt = bounds.bottom() - bounds.top() + 1;
    }
    m.blockWidth = m.blockHeight = 0.0;
    m.blockWidthInt = m.blockHeightInt = 0;
    for (const QString& line : text.split('\n'))
    {
        const bool rich = Qt::mightBeRichText(line);
        const QSizeF size = rich ? DocumentSize(line, qfont) : metrics.boundingRect(line).size();
        m.blockWidth = std::max(m.blockWidth, size.width());
        m.blockHeight += size.height();
        const QSize bounds = whole.boundingRect(line).size();
        m.blockWidthInt = std::max(m.blockWidthInt, rich ? static_cast<int>(size.width()) : bounds.width());
        m.blockHeightInt += rich ? static_cast<int>(size.height()) : bounds.height();
    }
    m.height = metrics.height();
    m.ascent = metrics.ascent();
    m.descent = metrics.descent();
    m.heightInt = whole.height();
    m.ascentInt = whole.ascent();
    m.descentInt = whole.descent();
    m.charWidth = 0.0;
    for (const QChar character : original)
        m.charWidth = std::max(m.charWidth, metrics.horizontalAdvance(character));
    return m;
}

class QtMeasureTest : public MeasureTest
{
protected:
    static Measures Measured(const FontChoice& choice, const std::wstring& text)
    {
        return Measures(*MakeFont(choice), TXString(text), true);
    }
};

TEST_F(QtMeasureTest, EveryTextInManyFontsIsMeasuredAsByQtItself)
{
    for (const FontChoice& choice : ManyFonts())
    {
        const TXRefPtr<TXFont> font = MakeFont(choice);
        const QFont qfont = DirectFont(choice);
        for (const std::wstring& text : LabelTexts())
            ASSERT_EQ(Measures(*font, TXString(text), true), MeasuredDirectly(*font, qfont, text))
                << TXString(text).toUTF8() << " in " << TXString(choice.family).toUTF8() << ' ' << choice.height;
    }
}

TEST_F(QtMeasureTest, LongTextsAreMeasuredAsByQtItself)
{
    const FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    for (const std::wstring& text : AllTexts())
        EXPECT_EQ(Measures(*font, TXString(text), true), MeasuredDirectly(*font, DirectFont(choice), text));
}

TEST_F(QtMeasureTest, EmptyLinesHaveTheHeightThatQtGivesThem)
{
    const QFontMetricsF metrics(DirectFont({}));
    const Measures m = Measured({}, L"a\n\nb");
    EXPECT_EQ(m.blockHeight, metrics.boundingRect("a").height() + metrics.boundingRect("").height() +
                                 metrics.boundingRect("b").height());
    EXPECT_EQ(Measured({}, L"").blockHeight, metrics.boundingRect("").height());
    EXPECT_TRUE(Measured({}, L"").blockAnswers);
}

TEST_F(QtMeasureTest, OnlyTheVariantInDoubleWidensTheLineToItsBounds)
{
    // An italic f reaches beyond its advance on both sides.
    FontChoice choice;
    choice.family = L"DejaVu Serif";
    choice.italic = TXFont::ItalicFace;
    choice.height = 60;
    const QFont qfont = DirectFont(choice);
    const QFontMetricsF metrics(qfont);
    const QFontMetrics whole(qfont);
    const Measures m = Measured(choice, L"f");
    ASSERT_GT(metrics.boundingRect("f").width(), metrics.horizontalAdvance("f"));
    ASSERT_NE(whole.boundingRect("f").width(), whole.horizontalAdvance("f"));
    EXPECT_EQ(m.lineWidth, metrics.boundingRect("f").width());
    EXPECT_EQ(m.lineWidthInt, whole.horizontalAdvance("f"));
    // And the advance where that is larger.
    const Measures spaced = Measured(choice, L"i      ");
    ASSERT_GT(metrics.horizontalAdvance("i      "), metrics.boundingRect("i      ").width());
    EXPECT_EQ(spaced.lineWidth, metrics.horizontalAdvance("i      "));
}

TEST_F(QtMeasureTest, SeveralLinesAreAsWideAsTheirBoundsNotTheirAdvances)
{
    const QFontMetricsF metrics(DirectFont({}));
    ASSERT_NE(metrics.boundingRect("i      ").width(), metrics.horizontalAdvance("i      "));
    EXPECT_EQ(Measured({}, L"i      \nx").blockWidth, metrics.boundingRect("i      ").width());
}

TEST_F(QtMeasureTest, RichLinesAreRoundedAloneAndTruncatedInSeveral)
{
    const QString html = "<span style=\"font-weight:700\">Main</span>";
    FontChoice choice;
    QSizeF size;
    // A size at which rounding and truncation differ.
    for (choice.height = 10; choice.height < 60; ++choice.height)
    {
        size = DocumentSize(html, DirectFont(choice));
        if (size.width() - static_cast<int>(size.width()) >= 0.5)
            break;
    }
    ASSERT_LT(choice.height, 60);
    const Measures m = Measured(choice, L"<BOL>Main</BOL>");
    EXPECT_EQ(m.lineWidth, size.width());
    EXPECT_EQ(m.lineWidthInt, static_cast<int>(size.width()) + 1);
    EXPECT_EQ(m.blockWidth, size.width());
    EXPECT_EQ(m.blockWidthInt, static_cast<int>(size.width()));
}

TEST_F(QtMeasureTest, TagsAreConvertedBeforeTheTextIsDividedIntoLines)
{
    // The lines are measured alone, so that a tag in the second makes only that one rich.
    const QFont font = DirectFont({});
    const QSizeF rich = DocumentSize("<u>second</u>", font);
    const QSizeF plain = QFontMetricsF(font).boundingRect("first").size();
    const Measures m = Measured({}, L"first\n<UND>second</UND>");
    EXPECT_EQ(m.blockWidth, std::max(rich.width(), plain.width()));
    EXPECT_EQ(m.blockHeight, rich.height() + plain.height());
    // The text as one line is plain, its tag as long as it was converted.
    EXPECT_EQ(m.lineWidth, Measured({}, L"first\n<u>second</u>").lineWidth);
    const Measures tagged = Measured({}, L"first\n<BOL>second</BOL>");
    EXPECT_GT(tagged.lineWidth, QFontMetricsF(font).boundingRect("first\n<BOL>second</BOL>").width());
}

TEST_F(QtMeasureTest, TheWidestCharacterIsOneOfTheLabelAsItStands)
{
    const QFontMetricsF metrics(DirectFont({}));
    EXPECT_EQ(Measured({}, L"iWi").charWidth, metrics.horizontalAdvance(QChar('W')));
    EXPECT_EQ(Measured({}, L"").charWidth, 0.0);
    // The tag's own characters count, not those of the HTML.
    EXPECT_EQ(Measured({}, L"<ITA>i").charWidth,
              std::max(metrics.horizontalAdvance(QChar('<')), metrics.horizontalAdvance(QChar('A'))));
    // The letter spacing is no part of a character.
    FontChoice spaced;
    spaced.letterSpacing = 9.0;
    EXPECT_EQ(Measured(spaced, L"iWi").charWidth, QFontMetricsF(DirectFont(spaced)).horizontalAdvance(QChar('W')));
}

TEST_F(QtMeasureTest, CairoBeingTheDefaultChangesNothing)
{
    const Measures before = Measured({}, L"Main\n<BOL>St</BOL>");
    EnableCairo(true);
    EXPECT_EQ(Measured({}, L"Main\n<BOL>St</BOL>"), before);
}

TEST_F(QtMeasureTest, AFontThatWasOnlyCreatedMeasures)
{
    const TXRefPtr<TXFont> font = TestEngine().NewFont();
    font->Create();
    EXPECT_EQ(Measures(*font, TXString(L"Main"), true), MeasuredDirectly(*font, QFont(), L"Main"));
}

} // namespace
