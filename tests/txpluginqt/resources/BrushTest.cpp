#include "ResourceTest.h"

#include <climits>

#include <QBrush>

using namespace TZObjects;

namespace
{

TXBrush::BrushStyle Style(int value) { return static_cast<TXBrush::BrushStyle>(value); }

class BrushTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(brush); }

    QBrush& QtBrush() { return *static_cast<QBrush*>(brush->GetInternalObject()); }

    TXRefPtr<TXBrush> brush{TestEngine().NewBrush()};
};

Qt::BrushStyle ExpectedStyle(int value)
{
    switch (value)
    {
    case 2:
        return Qt::HorPattern;
    case 3:
        return Qt::VerPattern;
    case 4:
        return Qt::CrossPattern;
    default:
        return Qt::SolidPattern;
    }
}

int ExpectedNumber(Qt::BrushStyle style)
{
    switch (style)
    {
    case Qt::HorPattern:
        return 2;
    case Qt::VerPattern:
        return 3;
    case Qt::CrossPattern:
        return 4;
    case Qt::TexturePattern:
        return 5;
    default:
        return 1;
    }
}

} // namespace

TEST_F(BrushTest, EnumeratorsHaveTheValuesThatCrossTheInterface)
{
    EXPECT_EQ(int{TXBrush::SolidBrush}, 1);
    EXPECT_EQ(int{TXBrush::HorizontalHatch}, 2);
    EXPECT_EQ(int{TXBrush::VerticalHatch}, 3);
    EXPECT_EQ(int{TXBrush::CrossHatch}, 4);
    EXPECT_EQ(int{TXBrush::TextureBrush}, 5);
}

TEST_F(BrushTest, NewBrushIsEmptyAndAnswersNeutralValues)
{
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush);
    EXPECT_EQ(brush->GetColor().GetColor(), TXColor().GetColor());
    EXPECT_FALSE(brush->textureImage());
}

TEST_F(BrushTest, CreateMapsStylesAndUnknownOnesAreSolid)
{
    for (int value = -3; value <= 300; ++value)
    {
        SCOPED_TRACE(value);
        EXPECT_TRUE(brush->Create(TXColor(9, 8, 7, 6), Style(value)));
        EXPECT_EQ(QtBrush(), QBrush(QColor(9, 8, 7, 6), ExpectedStyle(value)));
        EXPECT_EQ(int{brush->GetStyle()}, value >= 1 && value <= 4 ? value : 1);
    }
    for (const int value : {INT_MIN, INT_MAX})
    {
        EXPECT_TRUE(brush->Create(TXColor(9, 8, 7, 6), Style(value)));
        EXPECT_EQ(QtBrush().style(), Qt::SolidPattern);
    }
}

TEST_F(BrushTest, EveryQtStyleReadsBackByTheTable)
{
    brush->Create(TXColor::BLACK_, TXBrush::SolidBrush);
    for (int value = Qt::NoBrush; value <= Qt::DiagCrossPattern; ++value)
    {
        SCOPED_TRACE(value);
        const auto style = static_cast<Qt::BrushStyle>(value);
        QtBrush().setStyle(style);
        EXPECT_EQ(int{brush->GetStyle()}, ExpectedNumber(style));
    }
    for (const QBrush& gradient :
         {QBrush(QLinearGradient(0, 0, 1, 1)), QBrush(QRadialGradient(0, 0, 1)), QBrush(QConicalGradient(0, 0, 1))})
    {
        QtBrush() = gradient;
        EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush);
    }
    QtBrush() = QBrush(QImage(2, 2, QImage::Format_RGB32));
    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
}

TEST_F(BrushTest, ColorsCrossByChannelsWithAlpha)
{
    for (const TXColor& color : {TXColor(0, 0, 0, 0), TXColor(255, 255, 255, 255), TXColor(1, 2, 3, 0),
                                 TXColor(200, 100, 50, 128), TXColor(254, 1, 127, 1)})
    {
        brush->Create(color, TXBrush::SolidBrush);
        EXPECT_EQ(QtBrush().color(), SameChannels(color));
        EXPECT_EQ(brush->GetColor().GetColor(), color.GetColor());

        brush->Create(TXColor::RED_, TXBrush::SolidBrush);
        brush->SetColor(color);
        EXPECT_EQ(QtBrush().color(), SameChannels(color));
        EXPECT_EQ(brush->GetColor().GetColor(), color.GetColor());
    }
}

TEST_F(BrushTest, ColorIsReadFromTheQtBrushInAnyColorModel)
{
    brush->Create(TXColor::RED_, TXBrush::SolidBrush);
    const QColor hsv = QColor::fromHsv(30, 200, 180, 45);
    QtBrush().setColor(hsv);
    EXPECT_EQ(brush->GetColor().GetColor(), TXColor(hsv.red(), hsv.green(), hsv.blue(), hsv.alpha()).GetColor());
    EXPECT_EQ(brush->GetColor().getA(), 45);
}

TEST_F(BrushTest, SetColorKeepsTheStyle)
{
    for (int value = 1; value <= 4; ++value)
    {
        brush->Create(TXColor::RED_, Style(value));
        brush->SetColor(TXColor(1, 2, 3, 4));
        EXPECT_EQ(QtBrush(), QBrush(QColor(1, 2, 3, 4), ExpectedStyle(value)));
    }
}

TEST_F(BrushTest, NothingOfAnEarlierQtBrushSurvivesCreate)
{
    brush->Create(TXColor::RED_, TXBrush::CrossHatch);
    QtBrush().setTransform(QTransform::fromScale(2.0, 3.0));

    EXPECT_TRUE(brush->Create(TXColor(4, 5, 6, 7), TXBrush::SolidBrush));

    EXPECT_EQ(QtBrush(), QBrush(QColor(4, 5, 6, 7)));
}

TEST_F(BrushTest, DeleteEmptiesTheBrushAndIsTrueEveryTime)
{
    EXPECT_TRUE(brush->Delete());
    brush->Create(TXColor::RED_, TXBrush::CrossHatch);
    EXPECT_TRUE(brush->Delete());
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    EXPECT_TRUE(brush->Delete());
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush);
    EXPECT_EQ(brush->GetColor().GetColor(), TXColor().GetColor());
}

TEST_F(BrushTest, CreateAfterDeleteWorksAsOnANewBrush)
{
    brush->Create(TXColor::RED_, TXBrush::CrossHatch);
    brush->Delete();
    EXPECT_TRUE(brush->Create(TXColor(1, 2, 3, 4), TXBrush::VerticalHatch));
    EXPECT_EQ(QtBrush(), QBrush(QColor(1, 2, 3, 4), Qt::VerPattern));
}

TEST_F(BrushTest, SetColorOnAnEmptyBrushChangesNothing)
{
    brush->SetColor(TXColor::RED_);
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    brush->Create(TXColor(1, 2, 3, 4), TXBrush::SolidBrush);
    EXPECT_EQ(brush->GetColor().GetColor(), 0x04010203u);
}
