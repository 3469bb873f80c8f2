// When a label is not drawn: without a painter, without a font, without text, and for numbers that are none.
#include <cmath>
#include <limits>

#include "LabelTest.h"

using namespace TZObjects;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr const wchar_t* kTexts[] = {L"Main\nStreet", L"<BOL>Main</BOL>\nStreet"};

class LabelRefusalTest : public LabelTest, public ::testing::WithParamInterface<Entry>
{
protected:
    static Entry TestedEntry() { return GetParam(); }
};

TEST_P(LabelRefusalTest, WithoutAPainterTheAnswerIsFalse)
{
    const TXRefPtr<TXGraphics> never = TestEngine().NewGraphics(nullptr);
    const TXRefPtr<TXGraphics> ended = TestEngine().NewGraphics();
    ASSERT_TRUE(ended->CreateCompatibleGraphics(60, 40));
    ended->SelectFont(MakeFont({}));
    ASSERT_TRUE(Draw(*ended, TestedEntry(), {}));
    ended->Delete();
    for (const wchar_t* const text : {L"", L"Main", L"<BOL>Main</BOL>"})
    {
        Label label;
        label.text = text;
        EXPECT_FALSE(Draw(*never, TestedEntry(), label));
        EXPECT_FALSE(Draw(*ended, TestedEntry(), label));
    }
    ASSERT_TRUE(ended->CreateCompatibleGraphics(60, 40));
    EXPECT_TRUE(Draw(*ended, TestedEntry(), {}));
}

TEST_P(LabelRefusalTest, WithoutAFontTheAnswerIsFalse)
{
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    ASSERT_TRUE(image->CreateImage(150, 100, TXImage::Format_ARGB32_Premultiplied));
    auto& pixels = *static_cast<QImage*>(image->GetInternalObject());
    PaintBackground(pixels);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    const QImage before = pixels.copy();
    for (const wchar_t* const text : {L"", L"Main", L"<BOL>Main</BOL>"})
    {
        Label label;
        label.text = text;
        EXPECT_FALSE(Draw(*surface, TestedEntry(), label));
        EXPECT_EQ(pixels, before);
    }
    surface->SelectFont(MakeFont({}));
    EXPECT_TRUE(Draw(*surface, TestedEntry(), {}));
    EXPECT_NE(pixels, before);
}

TEST_P(LabelRefusalTest, AnEmptiedFontDrawsNothing)
{
    const TXRefPtr<TXFont> font = MakeFont({});
    Surface().SelectFont(font);
    font->Delete();
    Wipe();
    for (const wchar_t* const text : kTexts)
    {
        Label label;
        label.text = text;
        Draw(Surface(), TestedEntry(), label);
        EXPECT_TRUE(Images().Same());
    }
    EXPECT_TRUE(SameAsDirect(TestedEntry(), {}));
}

TEST_P(LabelRefusalTest, AnEmptyTextIsDrawnAsNothing)
{
    std::vector<std::wstring> texts = {L"", L"\n", L"\n\n"};
    // The forms of two coordinates with a colour of their own show tags.
    if (TestedEntry() != Entry::OutlineAt && TestedEntry() != Entry::VerticalAt)
        texts.insert(texts.end(), {L"<BOL></BOL>", L"<BOL></BOL>\n"});
    for (const std::wstring& text : texts)
    {
        Label label;
        label.text = text;
        EXPECT_TRUE(DrawsNothing(TestedEntry(), label, true));
    }
}

TEST_P(LabelRefusalTest, AnInactivePainterDrawsNothing)
{
    Surface().SelectFont(MakeFont({}));
    Wipe();
    QPainter inactive;
    Surface().Attach(&inactive);
    const TXRefPtr<TXGraphics> withoutTarget = TestEngine().NewGraphics();
    for (const wchar_t* const text : kTexts)
    {
        Label label;
        label.text = text;
        EXPECT_TRUE(Draw(Surface(), TestedEntry(), label));
        EXPECT_TRUE(Draw(*withoutTarget, TestedEntry(), label));
    }
    Surface().Detach();
    EXPECT_TRUE(Images().Same());
    EXPECT_TRUE(SameAsDirect(TestedEntry(), {}));
}

TEST_P(LabelRefusalTest, AnAttachedPainterDrawsTheLabelOnItsImage)
{
    Surface().SelectFont(MakeFont({}));
    Wipe();
    QImage elsewhere(150, 100, QImage::Format_ARGB32_Premultiplied);
    elsewhere.fill(Qt::white);
    QPainter painter(&elsewhere);
    Surface().Attach(&painter);
    const QImage before = elsewhere.copy();
    EXPECT_TRUE(Draw(Surface(), TestedEntry(), {}));
    EXPECT_NE(elsewhere, before);
    EXPECT_TRUE(Images().Same());
    Surface().Detach();
}

TEST_P(LabelRefusalTest, NumbersThatAreNoneAreRefusedInEveryArgument)
{
    for (const NumberArgument& number : NumbersOf(TestedEntry()))
        for (const double value : {kNaN, -kNaN, kInfinity, -kInfinity, 1e13, -1e13, 1e300, -1e300,
                                   std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()})
            for (const wchar_t* const text : kTexts)
                for (const int align : {1, 2, 3})
                {
                    Label label;
                    label.text = text;
                    label.hAlign = align;
                    label.*number.member = value;
                    if (IsUsed(TestedEntry(), number, label))
                        EXPECT_TRUE(DrawsNothing(TestedEntry(), label, false)) << number.name << " = " << value;
                    else
                    {
                        label.halo = false;
                        EXPECT_TRUE(SameAsDirect(TestedEntry(), label)) << number.name << " = " << value;
                        EXPECT_TRUE(LastLeftInk());
                    }
                }
    EXPECT_TRUE(SameAsDirect(TestedEntry(), {}));
}

TEST_P(LabelRefusalTest, RefusedNumbersAreRefusedForAnEmptyTextToo)
{
    for (const NumberArgument& number : NumbersOf(TestedEntry()))
    {
        Label label;
        label.text = L"";
        label.*number.member = kNaN;
        EXPECT_TRUE(DrawsNothing(TestedEntry(), label, !IsUsed(TestedEntry(), number, label))) << number.name;
    }
}

TEST_P(LabelRefusalTest, FarAndTinyNumbersDoNoHarm)
{
    for (const NumberArgument& number : NumbersOf(TestedEntry()))
        for (const double value : {1e12, -1e12, 3e9, -3e9, 1e7, -1e7, 1e-300, -1e-300, 5e-324, -0.0})
            for (const wchar_t* const text : kTexts)
            {
                Label label;
                label.text = text;
                label.angle = 30.0;
                label.font.angle = 30;
                label.*number.member = value;
                const PainterState before(Images().SurfacePainter());
                const bool drawn = Draw(Surface(), TestedEntry(), label);
                // A scale multiplies the text's own coordinates, so that the largest ones leave the drawable range.
                const bool mayBeRefused = number.member == &Label::scale;
                EXPECT_TRUE(drawn || mayBeRefused) << number.name << " = " << value;
                EXPECT_TRUE(SameState(PainterState(Images().SurfacePainter()), before));
            }
    EXPECT_TRUE(SameAsDirect(TestedEntry(), {}));
}

TEST_P(LabelRefusalTest, ExtremeFontsDoNoHarm)
{
    using Change = void (*)(TXFont&);
    const Change changes[] = {
        [](TXFont& font) { font.SetFontHeight(40000); },
        [](TXFont& font) { font.SetFontHeight(2147483647); },
        [](TXFont& font) { font.SetFontHeight(1); },
        [](TXFont& font) { font.SetWordSpacing(1e9); },
        [](TXFont& font) { font.SetWordSpacing(-1e9); },
        [](TXFont& font) { font.SetWordSpacing(1e300); },
        [](TXFont& font) { font.SetWordSpacing(kNaN); },
        [](TXFont& font) { font.SetFontAngle(-2147483647 - 1); },
        [](TXFont& font) { font.SetFontName(TXString(std::wstring(1, wchar_t(0xd800)))); },
        [](TXFont& font) { font.SetFontName(TXString(std::wstring(10000, L'n'))); },
        [](TXFont& font) { font.SetFontItalicMode(static_cast<TXFont::TXItalicMode>(2147483647)); },
    };
    for (const Change change : changes)
        for (const wchar_t* const text : kTexts)
        {
            const TXRefPtr<TXFont> font = MakeFont({});
            change(*font);
            Surface().SelectFont(font);
            Label label;
            label.text = text;
            EXPECT_TRUE(Draw(Surface(), TestedEntry(), label));
        }
    EXPECT_TRUE(SameAsDirect(TestedEntry(), {}));
}

INSTANTIATE_TEST_SUITE_P(Entries, LabelRefusalTest, ::testing::ValuesIn(kAllEntries),
                         [](const auto& tested) { return std::string(NameOf(tested.param)); });

} // namespace
