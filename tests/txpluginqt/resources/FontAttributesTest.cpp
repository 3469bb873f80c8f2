#include "ResourceTest.h"

#include <climits>
#include <limits>
#include <utility>

#include <QFont>

using namespace TZObjects;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class FontAttributesTest : public FontTest
{
protected:
    std::wstring Name() const { return font->GetFontName().toStdWString(); }
    std::wstring Family() { return QtFont().family().toStdWString(); }
};

} // namespace

TEST_F(FontAttributesTest, HeightIsThePixelSize)
{
    for (const int height : {1, 2, 12, 500, 39999, 40000})
    {
        font->SetFontHeight(height);
        EXPECT_EQ(QtFont().pixelSize(), height);
        EXPECT_EQ(font->GetFontHeight(), height);
    }
    QtFont().setPixelSize(33);
    EXPECT_EQ(font->GetFontHeight(), 33);
}

TEST_F(FontAttributesTest, HeightsBelowOneAreIgnored)
{
    font->SetFontHeight(17);
    for (const int height : {0, -1, -70000, INT_MIN})
    {
        font->SetFontHeight(height);
        EXPECT_EQ(QtFont().pixelSize(), 17);
        EXPECT_EQ(font->GetFontHeight(), 17);
    }
}

TEST_F(FontAttributesTest, HeightsThatFontLibrariesDoNotSurviveAreCapped)
{
    for (const int height : {40001, 65535, 65536, 70000, INT_MAX})
    {
        font->SetFontHeight(17);
        font->SetFontHeight(height);
        EXPECT_EQ(QtFont().pixelSize(), 40000);
        EXPECT_EQ(font->GetFontHeight(), 40000);
    }
}

TEST_F(FontAttributesTest, ANewFontsHeightIsThatOfTheQtFont) { EXPECT_EQ(font->GetFontHeight(), QFont().pixelSize()); }

TEST_F(FontAttributesTest, WidthIsStoredWhenPositiveAndNotApplied)
{
    EXPECT_EQ(font->GetFontWidth(), QFont().pixelSize());
    const QFont before = QtFont();
    for (const int width : {1, 7, 70000, INT_MAX})
    {
        font->SetFontWidth(width);
        EXPECT_EQ(font->GetFontWidth(), width);
        for (const int ignored : {0, -1, INT_MIN})
        {
            font->SetFontWidth(ignored);
            EXPECT_EQ(font->GetFontWidth(), width);
        }
    }
    EXPECT_EQ(QtFont(), before);
}

TEST_F(FontAttributesTest, AnglesAreStoredOnly)
{
    const QFont before = QtFont();
    EXPECT_EQ(font->GetFontItalicAngle(), 0);
    for (const int angle : {0, 45, -90, 720, INT_MAX, INT_MIN})
    {
        font->SetFontAngle(angle);
        font->SetFontItalicAngle(angle / 2);
        EXPECT_EQ(font->GetFontAngle(), angle);
        EXPECT_EQ(font->GetFontItalicAngle(), angle / 2);
    }
    EXPECT_EQ(QtFont(), before);
}

TEST_F(FontAttributesTest, UnderlineAndStrikeOutAreThoseOfTheQtFont)
{
    EXPECT_FALSE(font->GetFontUnderline());
    EXPECT_FALSE(font->GetFontStrikeOut());
    for (int bits = 0; bits < 4; ++bits)
    {
        font->SetFontUnderline(bits & 1);
        font->SetFontStrikeOut(bits & 2);
        EXPECT_EQ(QtFont().underline(), (bits & 1) != 0);
        EXPECT_EQ(QtFont().strikeOut(), (bits & 2) != 0);
        EXPECT_EQ(font->GetFontUnderline(), (bits & 1) != 0);
        EXPECT_EQ(font->GetFontStrikeOut(), (bits & 2) != 0);
    }
    QtFont().setUnderline(false);
    EXPECT_FALSE(font->GetFontUnderline());
    QtFont().setStrikeOut(false);
    EXPECT_FALSE(font->GetFontStrikeOut());
}

TEST_F(FontAttributesTest, HaloAndShadowAreStoredOnly)
{
    const QFont before = QtFont();
    EXPECT_FALSE(font->GetFontHalo());
    EXPECT_FALSE(font->GetFontShadow());
    font->SetFontHalo(true);
    EXPECT_TRUE(font->GetFontHalo());
    EXPECT_FALSE(font->GetFontShadow());
    font->SetFontShadow(true);
    font->SetFontHalo(false);
    EXPECT_FALSE(font->GetFontHalo());
    EXPECT_TRUE(font->GetFontShadow());
    font->SetFontShadow(false);
    EXPECT_FALSE(font->GetFontShadow());
    EXPECT_EQ(QtFont(), before);
}

TEST_F(FontAttributesTest, HaloWidthIsNeverBelowOne)
{
    EXPECT_EQ(font->GetFontHaloWidth(), 1);
    for (const int width : {5, 1, 70000, INT_MAX})
    {
        font->SetFontHaloWidth(width);
        EXPECT_EQ(font->GetFontHaloWidth(), width);
    }
    for (const int width : {0, -1, INT_MIN})
    {
        font->SetFontHaloWidth(9);
        font->SetFontHaloWidth(width);
        EXPECT_EQ(font->GetFontHaloWidth(), 1);
    }
}

TEST_F(FontAttributesTest, HaloColorIsACopyWithAlpha)
{
    EXPECT_EQ(font->GetFontHaloColor().GetColor(), TXColor::BLACK_.GetColor());
    TXColor color(1, 2, 3, 4);
    font->SetFontHaloColor(color);
    color.setColor(0xffffffffu, true);
    EXPECT_EQ(font->GetFontHaloColor().GetColor(), 0x04010203u);
    TXColor read = font->GetFontHaloColor();
    read.setColor(0xffffffffu, true);
    EXPECT_EQ(font->GetFontHaloColor().GetColor(), 0x04010203u);
}

TEST_F(FontAttributesTest, WordSpacingIsQtsAbsoluteLetterSpacing)
{
    EXPECT_EQ(font->GetWordSpacing(), 0.0);
    for (const double spacing : {2.5, -1.25, 0.0, 0.1, 100.0})
    {
        SCOPED_TRACE(spacing);
        QFont twin;
        twin.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
        font->SetWordSpacing(spacing);
        EXPECT_EQ(QtFont(), twin);
        EXPECT_EQ(QtFont().letterSpacingType(), QFont::AbsoluteSpacing);
        EXPECT_EQ(font->GetWordSpacing(), twin.letterSpacing());
        EXPECT_NEAR(font->GetWordSpacing(), spacing, 1.0 / 64);
        EXPECT_EQ(QtFont().wordSpacing(), 0.0);
    }
}

TEST_F(FontAttributesTest, WordSpacingThatIsNotFiniteChangesNothing)
{
    font->SetWordSpacing(2.5);
    for (const double spacing : {kNaN, kInfinity, -kInfinity})
    {
        font->SetWordSpacing(spacing);
        EXPECT_EQ(font->GetWordSpacing(), 2.5);
    }
}

TEST_F(FontAttributesTest, AnUnknownNameIsTheFamilyAsGiven)
{
    font->SetFontName(L"DejaVu Sans");
    EXPECT_EQ(Family(), L"DejaVu Sans");
    EXPECT_EQ(Name(), L"DejaVu Sans");
    font->SetFontName(L"No Such Face");
    EXPECT_EQ(Family(), L"No Such Face");
    EXPECT_EQ(Name(), L"No Such Face");
}

TEST_F(FontAttributesTest, KnownLocalisedNamesBecomeEnglish)
{
    const std::pair<const wchar_t*, const wchar_t*> names[] = {
        {L"\u5b8b\u4f53", L"SimSun"},
        {L"\u9ed1\u4f53", L"SimHei"},
        {L"\u5fae\u8f6f\u96c5\u9ed1", L"Microsoft YaHei"},
        {L"\u6a19\u6977\u9ad4", L"DFKai-SB"},
        {L"\uff2d\uff33 \u660e\u671d", L"MS Mincho"},
        {L"\ub9d1\uc740 \uace0\ub515", L"Malgun Gothic"},
    };
    for (const auto& [localised, english] : names)
    {
        font->SetFontName(localised);
        EXPECT_EQ(Family(), english);
        EXPECT_EQ(Name(), english);
    }
}

TEST_F(FontAttributesTest, AnEmptyNameChangesNothing)
{
    const QFont before = QtFont();
    const std::wstring name = Name();
    font->SetFontName(L"");
    EXPECT_EQ(QtFont(), before);
    EXPECT_EQ(Name(), name);

    font->SetFontName(L"DejaVu Serif");
    font->SetFontName(TXString());
    EXPECT_EQ(Family(), L"DejaVu Serif");
    EXPECT_EQ(Name(), L"DejaVu Serif");
}

TEST_F(FontAttributesTest, WithoutANameTheFamilyOfTheQtFontAnswers)
{
    EXPECT_EQ(Name(), QFont().family().toStdWString());
    QtFont().setFamily("DejaVu Serif");
    EXPECT_EQ(Name(), L"DejaVu Serif");
    QtFont().setFamily(QString::fromWCharArray(L"\u5b8b\u4f53"));
    EXPECT_EQ(Name(), L"SimSun");
}

TEST_F(FontAttributesTest, AStoredNameGoesBeforeTheFamily)
{
    font->SetFontName(L"DejaVu Sans");
    QtFont().setFamily("DejaVu Serif");
    EXPECT_EQ(Name(), L"DejaVu Sans");
}

TEST_F(FontAttributesTest, NamesLeaveTheRestOfTheFontAlone)
{
    font->SetFontHeight(21);
    font->SetFontBold(true);
    QFont model = QtFont();
    model.setFamily("DejaVu Serif");
    font->SetFontName(L"DejaVu Serif");
    EXPECT_EQ(QtFont(), model);
}

TEST_F(FontAttributesTest, OddNamesDoNoHarm)
{
    for (const bool cairo : {false, true})
    {
        TXGraphicsEngineManager::instance("")->EnableCairoDrawing(cairo);
        font->Create();
        for (const std::wstring& name :
             {std::wstring(1, L'\0'), std::wstring(L"a\0b", 3), std::wstring(1, wchar_t{0xd800}),
              std::wstring(1, wchar_t{0x7fffffff}), std::wstring(5000, L'x'), std::wstring(L"\ufeff"),
              std::wstring(L",,,"), std::wstring(L"\n")})
            font->SetFontName(TXString(name));
        font->SetFontName(L"DejaVu Sans");
        EXPECT_EQ(Name(), L"DejaVu Sans");
    }
}
