// When the rasteriser draws, and when QPainter does.
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPaintEngine>
#include <QPainter>
#include <QPicture>
#include <QPixmap>

#include <gtest/gtest.h>
#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/raster/Eligibility.h>
#include <txpluginqt/raster/SelfCheck.h>

using namespace txqt;
using TZObjects::TXGraphicsEngineManager;

namespace
{

class EligibilityTest : public ::testing::Test
{
protected:
    EligibilityTest() { painter.setRenderHint(QPainter::Antialiasing); }

    static TXGraphicsEngineManager& Manager() { return *TXGraphicsEngineManager::instance(""); }

    QImage image{20, 20, QImage::Format_ARGB32_Premultiplied};
    QPainter painter{&image};
};

TEST_F(EligibilityTest, ImagesAreRasterized)
{
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
    EXPECT_NE(RasterizerEngine(painter), nullptr);
    painter.rotate(30.0);
    painter.setClipRegion(QRegion(3, 3, 9, 9, QRegion::Ellipse));
    painter.setCompositionMode(QPainter::CompositionMode_Xor);
    painter.setOpacity(0.5);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
}

TEST_F(EligibilityTest, TheManagerSwitchesTheRasterizerOff)
{
    EXPECT_TRUE(RasterizerIsOn());
    Manager().EnableRasterizer(false);
    EXPECT_FALSE(RasterizerIsOn());
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::SwitchedOff);
    EXPECT_EQ(RasterizerEngine(painter), nullptr);
    Manager().EnableRasterizer(true);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
}

TEST_F(EligibilityTest, WithoutAntialiasingQtRasterizesInAnotherWay)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::NotAntialiased);
    painter.setRenderHint(QPainter::Antialiasing);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
}

TEST_F(EligibilityTest, PerspectiveIsLeftToQt)
{
    painter.setTransform(QTransform(1.0, 0.1, 0.001, 0.1, 1.0, 0.002, 0.0, 0.0, 1.0));
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::Perspective);
}

TEST_F(EligibilityTest, GradientsRelativeToTheShapeAreLeftToQt)
{
    QLinearGradient gradient(0.0, 0.0, 1.0, 1.0);
    EXPECT_TRUE(IsPlain(QBrush(gradient)));
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    EXPECT_FALSE(IsPlain(QBrush(gradient)));
    painter.setBrush(gradient);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::Emulated);
    painter.setBrush(Qt::red);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
    painter.setPen(QPen(QBrush(gradient), 2.0));
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::Emulated);
}

TEST_F(EligibilityTest, TexturesThatAreGivenAreLeftToQt)
{
    EXPECT_TRUE(IsPlain(QBrush(Qt::red)));
    EXPECT_TRUE(IsPlain(QBrush(Qt::red, Qt::CrossPattern)));
    EXPECT_FALSE(IsPlain(QBrush(QImage(2, 2, QImage::Format_ARGB32))));
}

TEST_F(EligibilityTest, AnOpaqueBackgroundIsLeftToQt)
{
    painter.setBackgroundMode(Qt::OpaqueMode);
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::Emulated);
}

TEST_F(EligibilityTest, OtherDevicesAreLeftToQt)
{
    QPicture picture;
    QPainter onPicture(&picture);
    onPicture.setRenderHint(QPainter::Antialiasing);
    EXPECT_EQ(WhyNotRasterized(onPicture), Refusal::NotAnImage);
    QPixmap pixmap(20, 20);
    QPainter onPixmap(&pixmap);
    onPixmap.setRenderHint(QPainter::Antialiasing);
    EXPECT_EQ(WhyNotRasterized(onPixmap), Refusal::NotAnImage);
    QPainter inactive;
    EXPECT_EQ(WhyNotRasterized(inactive), Refusal::NotAnImage);
}

TEST_F(EligibilityTest, ARestrictionOfTheWindowSystemIsLeftToQt)
{
    painter.paintEngine()->setSystemClip(QRegion(2, 2, 5, 5));
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::SystemClip);
    painter.paintEngine()->setSystemClip(QRegion());
    EXPECT_EQ(WhyNotRasterized(painter), Refusal::None);
}

} // namespace
