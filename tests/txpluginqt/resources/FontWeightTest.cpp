#include "ResourceTest.h"

#include <climits>

#include <QFont>

using namespace TZObjects;

namespace
{

using FontWeightTest = FontTest;

int QtWeight(int weight)
{
    if (weight <= 100)
        return 0;
    if (weight <= 200)
        return 12;
    if (weight <= 300)
        return 25;
    if (weight <= 400)
        return 50;
    if (weight <= 500)
        return 57;
    if (weight <= 600)
        return 63;
    if (weight <= 700)
        return 75;
    if (weight <= 800)
        return 81;
    return 87;
}

int InterfaceWeight(int qtWeight)
{
    switch (qtWeight)
    {
    case 0:
        return 100;
    case 12:
        return 200;
    case 25:
        return 300;
    case 57:
        return 500;
    case 63:
        return 600;
    case 75:
        return 700;
    case 81:
        return 800;
    case 87:
        return 900;
    default:
        return 400;
    }
}

} // namespace

TEST_F(FontWeightTest, EveryWeightIsRaisedToTheNextHundred)
{
    for (int weight = -10; weight <= 1100; ++weight)
    {
        QtFont().setWeight(33);
        font->SetFontWeight(weight);
        ASSERT_EQ(QtFont().weight(), weight > 0 ? QtWeight(weight) : 33) << weight;
        if (weight > 0)
        {
            ASSERT_EQ(font->GetFontWeight(), weight >= 900 ? 900 : (weight + 99) / 100 * 100) << weight;
        }
    }
    font->SetFontWeight(INT_MAX);
    EXPECT_EQ(QtFont().weight(), 87);
    font->SetFontWeight(INT_MIN);
    EXPECT_EQ(QtFont().weight(), 87);
}

TEST_F(FontWeightTest, NamedExamples)
{
    font->SetFontWeight(450);
    EXPECT_EQ(QtFont().weight(), 57);
    EXPECT_EQ(font->GetFontWeight(), 500);
    font->SetFontWeight(400);
    EXPECT_EQ(QtFont().weight(), 50);
    EXPECT_EQ(font->GetFontWeight(), 400);
    font->SetFontWeight(801);
    font->SetFontWeight(0);
    EXPECT_EQ(font->GetFontWeight(), 900);
}

TEST_F(FontWeightTest, EveryQtWeightReadsBackByTheTable)
{
    for (int weight = 0; weight <= 99; ++weight)
    {
        QtFont().setWeight(weight);
        EXPECT_EQ(font->GetFontWeight(), InterfaceWeight(weight)) << weight;
    }
}

TEST_F(FontWeightTest, BoldIsEveryQtWeightAboveMedium)
{
    for (int weight = 0; weight <= 99; ++weight)
    {
        QtFont().setWeight(weight);
        EXPECT_EQ(font->GetFontBold(), weight > 57) << weight;
    }
}

TEST_F(FontWeightTest, BoldIsSevenHundredAndNotBoldFourHundred)
{
    font->SetFontBold(true);
    EXPECT_EQ(QtFont().weight(), 75);
    EXPECT_EQ(font->GetFontWeight(), 700);
    EXPECT_TRUE(font->GetFontBold());
    font->SetFontBold(false);
    EXPECT_EQ(QtFont().weight(), 50);
    EXPECT_EQ(font->GetFontWeight(), 400);
    EXPECT_FALSE(font->GetFontBold());

    font->SetFontWeight(900);
    font->SetFontBold(true);
    EXPECT_EQ(font->GetFontWeight(), 700);
    font->SetFontWeight(200);
    font->SetFontBold(false);
    EXPECT_EQ(font->GetFontWeight(), 400);
}

TEST_F(FontWeightTest, WeightLeavesTheRestOfTheFontAlone)
{
    QFont model = QtFont();
    model.setWeight(81);
    font->SetFontWeight(777);
    EXPECT_EQ(QtFont(), model);
    model.setWeight(75);
    font->SetFontBold(true);
    EXPECT_EQ(QtFont(), model);
}
