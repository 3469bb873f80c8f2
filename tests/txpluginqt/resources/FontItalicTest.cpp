#include "ResourceTest.h"

#include <array>
#include <string>

#include <QFont>

using namespace TZObjects;

namespace
{

using FontItalicTest = FontTest;

TXFont::TXItalicMode Mode(int value) { return static_cast<TXFont::TXItalicMode>(value); }

struct Model
{
    int mode = 0;
    QFont::Style style = QFont::StyleNormal;

    void SetItalic(bool on)
    {
        if (!on)
            mode = 0;
        else if (mode == 0)
            mode = 1;
        style = on && mode == 1 ? QFont::StyleItalic : QFont::StyleNormal;
    }
    void SetMode(int value)
    {
        mode = value;
        style = value == 1 ? QFont::StyleItalic : QFont::StyleNormal;
    }
    bool Italic() const { return style != QFont::StyleNormal || mode == 2; }
};

struct Step
{
    bool setsMode;
    int value;
};

constexpr std::array<Step, 7> kSteps = {Step{false, 0}, Step{false, 1}, Step{true, 0}, Step{true, 1},
                                        Step{true, 2},  Step{true, 3},  Step{true, -1}};

} // namespace

TEST_F(FontItalicTest, ModesHaveTheValuesThatCrossTheInterface)
{
    EXPECT_EQ(int{TXFont::ItalicNone}, 0);
    EXPECT_EQ(int{TXFont::ItalicFace}, 1);
    EXPECT_EQ(int{TXFont::ItalicSlant}, 2);
}

TEST_F(FontItalicTest, ANewFontIsUpright)
{
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
    EXPECT_FALSE(font->GetFontItalic());
    EXPECT_EQ(QtFont().style(), QFont::StyleNormal);
}

TEST_F(FontItalicTest, SlantedIsItalicWithTheUprightFace)
{
    font->SetFontItalicMode(TXFont::ItalicSlant);
    EXPECT_TRUE(font->GetFontItalic());
    EXPECT_EQ(QtFont().style(), QFont::StyleNormal);

    font->SetFontItalic(true);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicSlant);
    EXPECT_EQ(QtFont().style(), QFont::StyleNormal);
    EXPECT_TRUE(font->GetFontItalic());

    font->SetFontItalic(false);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
    EXPECT_FALSE(font->GetFontItalic());
}

TEST_F(FontItalicTest, EverySequenceOfFourSettersEndsAsAModelDoes)
{
    const int count = static_cast<int>(kSteps.size());
    for (int sequence = 0; sequence < count * count * count * count; ++sequence)
    {
        font->Create();
        font->SetFontItalicMode(TXFont::ItalicNone);
        Model model;
        std::string trace;
        int rest = sequence;
        for (int i = 0; i < 4; ++i, rest /= count)
        {
            const Step& step = kSteps[static_cast<std::size_t>(rest % count)];
            if (step.setsMode)
            {
                font->SetFontItalicMode(Mode(step.value));
                model.SetMode(step.value);
            }
            else
            {
                font->SetFontItalic(step.value != 0);
                model.SetItalic(step.value != 0);
            }
            trace += (step.setsMode ? " mode " : " italic ") + std::to_string(step.value);
            ASSERT_EQ(int{font->GetFontItalicMode()}, model.mode) << trace;
            ASSERT_EQ(QtFont().style(), model.style) << trace;
            ASSERT_EQ(font->GetFontItalic(), model.Italic()) << trace;
        }
    }
}

TEST_F(FontItalicTest, AnyQtStyleThatIsNotNormalIsItalic)
{
    QtFont().setStyle(QFont::StyleOblique);
    EXPECT_TRUE(font->GetFontItalic());
    QtFont().setStyle(QFont::StyleItalic);
    EXPECT_TRUE(font->GetFontItalic());
    QtFont().setStyle(QFont::StyleNormal);
    EXPECT_FALSE(font->GetFontItalic());
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
}

TEST_F(FontItalicTest, TheModeSurvivesDeleteAndCreate)
{
    font->SetFontItalicMode(TXFont::ItalicSlant);
    font->Delete();
    font->Create();
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicSlant);
    EXPECT_TRUE(font->GetFontItalic());

    font->SetFontItalic(true);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicSlant);
    EXPECT_EQ(QtFont().style(), QFont::StyleNormal);
}

TEST_F(FontItalicTest, AnEmptyFontTakesNoItalics)
{
    font->Delete();
    font->SetFontItalic(true);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
    font->SetFontItalicMode(TXFont::ItalicSlant);
    EXPECT_EQ(font->GetFontItalicMode(), TXFont::ItalicNone);
    font->SetFontItalicMode(TXFont::ItalicFace);
    EXPECT_FALSE(font->GetFontItalic());

    font->Create();
    EXPECT_FALSE(font->GetFontItalic());
    EXPECT_EQ(QtFont(), QFont());
}

TEST_F(FontItalicTest, ItalicsLeaveTheRestOfTheFontAlone)
{
    QFont model = QtFont();
    model.setStyle(QFont::StyleItalic);
    font->SetFontItalic(true);
    EXPECT_EQ(QtFont(), model);
}
