#include "ResourceTest.h"

#include <QFont>
#include <QGuiApplication>

using namespace TZObjects;

namespace
{

class FontLifecycleTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(font); }

    QFont& QtFont() { return *static_cast<QFont*>(font->GetInternalObject()); }
    static void EnableCairo(bool on) { TXGraphicsEngineManager::instance("")->EnableCairoDrawing(on); }
    // A font measures on the cairo path when it has a measuring context.
    bool MeasuresWithCairo() const
    {
        double width = 0.0;
        double height = 0.0;
        return font->GetTextExtent(L"Main Street", width, height, false);
    }
    /// True when the family was asked for, and is not only what Qt takes without one.
    bool NamesItsFamily() { return (QtFont().resolve() & QFont::FamilyResolved) != 0; }
    // Everything that a measuring context takes part in.
    void UseSetters()
    {
        font->SetFontHeight(20);
        font->SetFontHeight(70000);
        font->SetFontHeight(-5);
        font->SetFontBold(true);
        font->SetFontItalic(true);
        font->SetFontName(L"DejaVu Sans");
        font->SetFontName(L"\u5b8b\u4f53");
    }

    TXRefPtr<TXFont> font{TestEngine().NewFont()};
};

} // namespace

TEST_F(FontLifecycleTest, ANewFontIsEmptyWithItsAttributesInitialised)
{
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    EXPECT_EQ(font->GetFontWidth(), 0);
    EXPECT_EQ(font->GetFontAngle(), 0);
    EXPECT_EQ(font->GetFontItalicAngle(), 0);
    EXPECT_FALSE(font->GetFontHalo());
    EXPECT_EQ(font->GetFontHaloWidth(), 1);
    EXPECT_EQ(font->GetFontHaloColor().GetColor(), TXColor::BLACK_.GetColor());
    EXPECT_FALSE(font->GetFontShadow());
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
    EXPECT_TRUE(font->GetFontName().isEmpty());
}

TEST_F(FontLifecycleTest, TheNameReachesEachNewFont)
{
    for (const TXString& name : {TXString("DejaVu Sans"), TXString("No Such Face"), TXString(L"\u5b8b\u4f53")})
    {
        font->Create();
        font->SetFontName(name);
        EXPECT_TRUE(NamesItsFamily());
        font->Delete();
        font->Create();
        EXPECT_FALSE(NamesItsFamily());
        font->SetFontName(name);
        EXPECT_TRUE(NamesItsFamily()) << "though the name is the same";
    }
}

TEST_F(FontLifecycleTest, TheNameReachesAFontThatHasItOnlyFromTheApplication)
{
    const QFont before = QGuiApplication::font();
    QGuiApplication::setFont(QFont("DejaVu Serif"));
    font->Create();
    font->SetFontName(L"DejaVu Serif");
    font->Delete();
    font->Create();
    EXPECT_EQ(QtFont().family(), "DejaVu Serif");
    EXPECT_FALSE(NamesItsFamily());
    font->SetFontName(L"DejaVu Serif");
    EXPECT_TRUE(NamesItsFamily());
    QGuiApplication::setFont(before);
}

TEST_F(FontLifecycleTest, AnEmptyFontAnswersNeutralValues)
{
    EXPECT_EQ(font->GetFontHeight(), 0);
    EXPECT_FALSE(font->GetFontBold());
    EXPECT_FALSE(font->GetFontItalic());
    EXPECT_FALSE(font->GetFontUnderline());
    EXPECT_FALSE(font->GetFontStrikeOut());
    EXPECT_EQ(font->GetWordSpacing(), 0.0);
    font->GetFontWeight();
}

TEST_F(FontLifecycleTest, CreateMakesTheDefaultFont)
{
    EXPECT_TRUE(font->Create());
    ASSERT_NE(font->GetInternalObject(), nullptr);
    EXPECT_EQ(QtFont(), QFont());
    EXPECT_EQ(font->GetFontWidth(), QFont().pixelSize());
}

TEST_F(FontLifecycleTest, SettersOfTheQtFontDoNothingOnAnEmptyFont)
{
    font->SetFontHeight(20);
    font->SetFontWeight(700);
    font->SetFontBold(true);
    font->SetFontItalic(true);
    font->SetFontItalicMode(TXFont::ItalicFace);
    font->SetFontUnderline(true);
    font->SetFontStrikeOut(true);
    font->SetWordSpacing(3.0);
    font->SetFontName(L"DejaVu Serif");
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    EXPECT_TRUE(font->GetFontName().isEmpty());

    font->Create();
    EXPECT_EQ(QtFont(), QFont());
    EXPECT_EQ(font->GetFontName().toStdWString(), QFont().family().toStdWString());
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
}

TEST_F(FontLifecycleTest, PlainAttributesCanBeSetAtAnyTimeAndSurviveDeleteAndCreate)
{
    font->SetFontAngle(30);
    font->SetFontItalicAngle(12);
    font->SetFontHalo(true);
    font->SetFontHaloWidth(4);
    font->SetFontHaloColor(TXColor(1, 2, 3, 4));
    font->SetFontShadow(true);
    font->SetFontWidth(9);
    EXPECT_EQ(font->GetFontWidth(), 9);

    const auto expectKept = [this]
    {
        EXPECT_EQ(font->GetFontAngle(), 30);
        EXPECT_EQ(font->GetFontItalicAngle(), 12);
        EXPECT_TRUE(font->GetFontHalo());
        EXPECT_EQ(font->GetFontHaloWidth(), 4);
        EXPECT_EQ(font->GetFontHaloColor().GetColor(), 0x04010203u);
        EXPECT_TRUE(font->GetFontShadow());
    };
    expectKept();
    font->Create();
    expectKept();
    font->Create();
    expectKept();
    font->Delete();
    expectKept();
    font->Create();
    expectKept();
}

TEST_F(FontLifecycleTest, TheWidthStartsAnewWithEachCreate)
{
    font->Create();
    font->SetFontWidth(9);
    font->Delete();
    EXPECT_EQ(font->GetFontWidth(), 9);
    font->Create();
    EXPECT_EQ(font->GetFontWidth(), QFont().pixelSize());
}

TEST_F(FontLifecycleTest, TheNameSurvivesDeleteAndCreate)
{
    font->Create();
    font->SetFontName(L"DejaVu Serif");
    font->Delete();
    EXPECT_EQ(font->GetFontName().toStdWString(), L"DejaVu Serif");
    font->Create();
    EXPECT_EQ(font->GetFontName().toStdWString(), L"DejaVu Serif");
    EXPECT_EQ(QtFont(), QFont());
}

TEST_F(FontLifecycleTest, NothingOfTheQtFontSurvivesCreate)
{
    font->Create();
    font->SetFontHeight(31);
    font->SetFontBold(true);
    font->SetFontUnderline(true);
    font->SetFontStrikeOut(true);
    font->SetWordSpacing(4.0);
    EXPECT_TRUE(font->Create());
    EXPECT_EQ(QtFont(), QFont());
    EXPECT_EQ(font->GetWordSpacing(), 0.0);
}

TEST_F(FontLifecycleTest, DeleteEmptiesTheFontAndMayBeRepeated)
{
    font->Delete();
    font->Create();
    font->SetFontHeight(20);
    font->Delete();
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    EXPECT_EQ(font->GetWordSpacing(), 0.0);
    font->Delete();
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    EXPECT_TRUE(font->Create());
    EXPECT_EQ(QtFont(), QFont());
}

TEST_F(FontLifecycleTest, AMeasuringContextComesWithCreateWhileCairoIsTheDefault)
{
    EXPECT_FALSE(MeasuresWithCairo());
    font->Create();
    EXPECT_FALSE(MeasuresWithCairo());

    EnableCairo(true);
    EXPECT_FALSE(MeasuresWithCairo());
    font->Create();
    EXPECT_TRUE(MeasuresWithCairo());
    EnableCairo(false);
    EXPECT_TRUE(MeasuresWithCairo());
}

TEST_F(FontLifecycleTest, DeleteTakesTheMeasuringContextAway)
{
    EnableCairo(true);
    font->Create();
    font->Delete();
    EXPECT_FALSE(MeasuresWithCairo());
    font->Create();
    EXPECT_TRUE(MeasuresWithCairo());

    font->Delete();
    EnableCairo(false);
    font->Create();
    EXPECT_FALSE(MeasuresWithCairo());
    UseSetters();
}

TEST_F(FontLifecycleTest, EveryOrderOfCreateAndDeleteReleasesItsMeasuringContexts)
{
    // Two bits a step: whether cairo is the default, and whether to create or to delete.
    for (int sequence = 0; sequence < 4 * 4 * 4 * 4; ++sequence)
    {
        font = TestEngine().NewFont();
        for (int rest = sequence, step = 0; step < 4; ++step, rest /= 4)
        {
            EnableCairo(rest & 1);
            if (rest & 2)
                font->Create();
            else
                font->Delete();
            UseSetters();
        }
    }
}
