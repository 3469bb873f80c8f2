#include "RandomLabels.h"
#include "LabelTest.h"
#include "LabelTexts.h"

namespace
{

class EveryEntryTest : public LabelTest, public ::testing::WithParamInterface<Entry>
{
};

TEST_P(EveryEntryTest, DrawsRandomLabelsAsDrawnDirectly)
{
    constexpr int kCases = 480;
    RandomLabels random(20260u + static_cast<unsigned>(GetParam()));
    int inked = 0;
    for (int i = 0; i < kCases; ++i)
    {
        SCOPED_TRACE(::testing::Message() << "case " << i);
        const Label label = random.NextLabel();
        penColor = random.NextColor();
        ASSERT_TRUE(SameAsDirect(GetParam(), label, random.NextChange()));
        inked += LastLeftInk();
    }
    EXPECT_GE(inked, kCases / 2) << "too few cases drew anything to say much";
}

TEST_P(EveryEntryTest, DrawsEveryTextInEveryAlignmentAsDrawnDirectly)
{
    for (const std::wstring& text : LabelTexts())
        for (const int align : {1, 2, 3, 0, 7, -1})
        {
            Label label;
            label.text = text;
            label.vAlign = label.hAlign = align;
            label.lineSpacing = 2.5;
            label.columnSpacing = 1.5;
            label.charSpacing = -1.25;
            ASSERT_TRUE(SameAsDirect(GetParam(), label));
        }
}

TEST_P(EveryEntryTest, DrawsEveryKindOfFontAsDrawnDirectly)
{
    using TZObjects::TXFont;
    for (const wchar_t* const text : {L"Wavy fj\nlines", L"<ITA>Wavy</ITA> <BOL>fj</BOL>\nlines"})
        for (const int height : {1, 5, 13, 18, 33, 64, 90})
            for (const bool bold : {false, true})
                for (const auto italic : {TXFont::ItalicNone, TXFont::ItalicFace, TXFont::ItalicSlant})
                {
                    Label label;
                    label.text = text;
                    label.x = 31.25;
                    label.y = 24.75;
                    label.font.height = height;
                    label.font.bold = bold;
                    label.font.italic = italic;
                    label.font.underline = bold;
                    label.font.haloWidth = 1 + height / 20;
                    ASSERT_TRUE(SameAsDirect(GetParam(), label));
                }
}

TEST_P(EveryEntryTest, DrawsAtZeroNegativeAndTinyScalesAsDrawnDirectly)
{
    for (const wchar_t* const text : {L"Wavy\nlines", L"<BOL>Wavy</BOL>\nlines"})
        for (const double scale : {0.0, -1.0, 1e-3, 0.11, 7.0})
        {
            Label label;
            label.text = text;
            label.scale = scale;
            label.x = 70.0;
            label.y = 50.0;
            ASSERT_TRUE(SameAsDirect(GetParam(), label));
        }
}

TEST_P(EveryEntryTest, DrawsLongTextsAsDrawnDirectly)
{
    Label label;
    label.halo = false;
    for (const std::wstring& text : {LongText(false), L"<BOL>" + LongText(true)})
    {
        label.text = text;
        EXPECT_TRUE(SameAsDirect(GetParam(), label));
    }
}

TEST_P(EveryEntryTest, DrawsTheSameWhateverTheVerticalAlignment)
{
    for (const wchar_t* const text : {L"two\nlines", L"<BOL>two</BOL>\nlines"})
        for (const int align : {1, 2, 3, 0, 7, -2147483647})
        {
            Label label;
            label.text = text;
            label.vAlign = align;
            EXPECT_TRUE(SameAsDirect(GetParam(), label));
        }
}

INSTANTIATE_TEST_SUITE_P(Entries, EveryEntryTest, ::testing::ValuesIn(kAllEntries),
                         [](const auto& tested) { return std::string(NameOf(tested.param)); });

} // namespace
