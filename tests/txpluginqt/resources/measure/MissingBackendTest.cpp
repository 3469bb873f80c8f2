// Measuring with a font that has nothing to measure with.
#include "MeasureTest.h"

using namespace TZObjects;

namespace
{

class MissingBackendTest : public MeasureTest
{
protected:
    /// Expects that every operation says that it could not measure, and answers @p charWidth.
    static void ExpectNothing(const TXFont& font, bool useQt, double charWidth)
    {
        for (const wchar_t* const text : {L"", L"Main", L"Main\nStreet", L"<BOL>Main</BOL>"})
        {
            // The outputs that are left alone.
            const Measures m(font, TXString(text), useQt);
            EXPECT_FALSE(m.lineAnswers || m.lineAnswersInt || m.blockAnswers || m.blockAnswersInt);
            EXPECT_EQ(m.lineWidth, -7.0);
            EXPECT_EQ(m.lineHeight, -7.0);
            EXPECT_EQ(m.lineWidthInt, -7);
            EXPECT_EQ(m.lineHeightInt, -7);
            EXPECT_EQ(m.height, -7.0);
            EXPECT_EQ(m.ascent, -7.0);
            EXPECT_EQ(m.descent, -7.0);
            EXPECT_EQ(m.heightInt, -7);
            EXPECT_EQ(m.ascentInt, -7);
            EXPECT_EQ(m.descentInt, -7);
            // Those of several lines always start at zero.
            EXPECT_EQ(m.blockWidth, 0.0);
            EXPECT_EQ(m.blockHeight, 0.0);
            EXPECT_EQ(m.blockWidthInt, 0);
            EXPECT_EQ(m.blockHeightInt, 0);
            EXPECT_EQ(m.charWidth, charWidth);
        }
    }

    static bool CanMeasure(const TXFont& font, bool useQt) { return Measures(font, TXString(L"x"), useQt).lineAnswers; }
};

TEST_F(MissingBackendTest, AnEmptyFontMeasuresNothing)
{
    for (const bool cairo : {false, true})
    {
        EnableCairo(cairo);
        const TXRefPtr<TXFont> font = TestEngine().NewFont();
        ExpectNothing(*font, true, 0.0);
        ExpectNothing(*font, false, 0.0);
        font->Create();
        font->SetFontHeight(20);
        font->Delete();
        ExpectNothing(*font, true, 0.0);
        ExpectNothing(*font, false, 0.0);
    }
}

TEST_F(MissingBackendTest, AFontMadeWithoutCairoAnswersItsHeightAsTheWidthOfACharacter)
{
    const TXRefPtr<TXFont> font = MakeFont({});
    font->SetFontHeight(23);
    ExpectNothing(*font, false, 23.0);
    // Made before cairo became the default, it stays as it is.
    EnableCairo(true);
    ExpectNothing(*font, false, 23.0);
    EXPECT_TRUE(CanMeasure(*font, true));
}

TEST_F(MissingBackendTest, DeleteTakesTheMeansOfBothPathsAway)
{
    EnableCairo(true);
    const TXRefPtr<TXFont> font = MakeFont({});
    EXPECT_TRUE(CanMeasure(*font, false));
    EXPECT_TRUE(CanMeasure(*font, true));
    font->Delete();
    EXPECT_FALSE(CanMeasure(*font, false));
    EXPECT_FALSE(CanMeasure(*font, true));

    EnableCairo(false);
    font->Create();
    EXPECT_FALSE(CanMeasure(*font, false));
    EXPECT_TRUE(CanMeasure(*font, true));
    font->SetFontHeight(23);
    ExpectNothing(*font, false, 23.0);

    EnableCairo(true);
    font->Create();
    EXPECT_TRUE(CanMeasure(*font, false));
}

TEST_F(MissingBackendTest, CreateStartsCairosFaceAndSizeAnew)
{
    EnableCairo(true);
    const TXRefPtr<TXFont> untouched = TestEngine().NewFont();
    untouched->Create();
    const TXRefPtr<TXFont> font = MakeFont({});
    EXPECT_FALSE(Measures(*font, TXString(L"x"), false) == Measures(*untouched, TXString(L"x"), false));
    font->Create();
    EXPECT_EQ(Measures(*font, TXString(L"x"), false), Measures(*untouched, TXString(L"x"), false));
}

} // namespace
