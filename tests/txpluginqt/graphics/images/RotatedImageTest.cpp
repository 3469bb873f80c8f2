#include "ImageTest.h"

using namespace TZObjects;

namespace
{

/// What concerns `DrawImage4BitmapRotate` alone.
class RotatedImageTest : public ImageTest
{
protected:
    static void TurnAbout(QPainter& painter, const QPointF& centre, double angle)
    {
        painter.translate(centre);
        painter.rotate(angle);
        painter.translate(-centre.x(), -centre.y());
    }
};

TEST_F(RotatedImageTest, InPlaceTurnsAboutTheMiddlePixel)
{
    struct
    {
        int width;
        int height;
        QPoint centre;
    } const rows[] = {{40, 30, {19, 14}}, {41, 31, {20, 15}}, {1, 1, {0, 0}}, {2, 2, {0, 0}}, {3, 4, {1, 1}}};
    for (const auto& row : rows)
    {
        const TXRefPtr<TXImage> source = NewSource(row.width, row.height);
        const TXRect rect(0, row.width, 0, row.height);
        for (const double angle : {0.0, 30.0, 90.0, -45.0, 725.0})
        {
            Twins twins(100, 80);
            EXPECT_TRUE(twins.Surface().DrawImage4BitmapRotate(rect, source.get(), rect, angle, 1.0));
            twins.Direct().save();
            TurnAbout(twins.Direct(), row.centre, angle);
            twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source));
            twins.Direct().restore();
            EXPECT_TRUE(SameInAll(twins)) << row.width << " x " << row.height << ", " << angle;
        }
    }
}

TEST_F(RotatedImageTest, InPlaceOfASizeBelowOneTurnsAboutAMiddleRoundedTowardZero)
{
    // Qt draws such a size as the image's own, so that the turn shows.
    const TXRefPtr<TXImage> source = NewSource(20, 16);
    for (const double width : {-1.0, -2.0, -5.5})
        for (const double height : {-3.0, -4.9, 10.0})
        {
            Twins twins(100, 80);
            twins.Both([](QPainter& painter) { painter.translate(40, 30); });
            const TXRect rect(0, width, 0, height);
            EXPECT_EQ(DrawBoth(twins, ImageOperation::Rotate, {rect, rect, 1.0, 35.0}, *source).route,
                      ImageRoute::InPlace);
            EXPECT_TRUE(SameInAll(twins)) << width << " x " << height;
            EXPECT_NE(twins.Actual(), Twins(100, 80).Expected());
        }
}

TEST_F(RotatedImageTest, ElsewhereTurnsAboutTheMiddleOfWhatIsDrawn)
{
    const TXRefPtr<TXImage> source = NewSource(40, 30);
    Twins twins(100, 80);
    // Half of it lies outside: what is left turns about its own middle.
    EXPECT_TRUE(
        twins.Surface().DrawImage4BitmapRotate(TXRect(-20, 20, 30.5, 60.5), source.get(), TXRect(0, 40, 0, 30), 40, 1));
    twins.Direct().save();
    TurnAbout(twins.Direct(), QPointF(10, 45.5), 40);
    twins.Direct().drawImage(QPointF(0, 30.5), PixelsOf(*source).copy(20, 0, 20, 30));
    twins.Direct().restore();
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(RotatedImageTest, HalvesOddSizesToWholePixels)
{
    const TXRefPtr<TXImage> source = NewSource(21, 15);
    Twins twins(100, 80);
    EXPECT_TRUE(
        twins.Surface().DrawImage4BitmapRotate(TXRect(30, 51, 40, 55), source.get(), TXRect(0, 21, 0, 15), -70, 1));
    twins.Direct().save();
    TurnAbout(twins.Direct(), QPointF(40, 47), -70);
    twins.Direct().drawImage(QPointF(30, 40), PixelsOf(*source));
    twins.Direct().restore();
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(RotatedImageTest, ScalesSmoothlyEvenUnrotated)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    for (const QSize& size : {QSize(75, 33), QSize(13, 9)})
    {
        Twins twins(100, 80);
        EXPECT_TRUE(twins.Surface().DrawImage4BitmapRotate(TXRect(5, 5 + size.width(), 6, 6 + size.height()),
                                                           source.get(), TXRect(0, 30, 0, 20), 0, 1));
        twins.Direct().drawImage(QPoint(5, 6),
                                 PixelsOf(*source).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        EXPECT_TRUE(SameInAll(twins));
    }
}

TEST_F(RotatedImageTest, DrawsWithThePaintersCompositionAndLeavesIt)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    for (const QPainter::CompositionMode mode :
         {QPainter::CompositionMode_DestinationOut, QPainter::CompositionMode_Source, QPainter::CompositionMode_Plus})
    {
        Twins twins(100, 80);
        twins.Both([&](QPainter& painter) { painter.setCompositionMode(mode); });
        EXPECT_TRUE(
            twins.Surface().DrawImage4BitmapRotate(TXRect(35, 65, 36, 56), source.get(), TXRect(0, 30, 0, 20), 20, 1));
        twins.Direct().save();
        TurnAbout(twins.Direct(), QPointF(50, 46), 20);
        twins.Direct().drawImage(QPointF(35, 36), PixelsOf(*source));
        twins.Direct().restore();
        EXPECT_TRUE(SameInAll(twins));
        EXPECT_EQ(twins.SurfacePainter().compositionMode(), mode);
    }
}

TEST_F(RotatedImageTest, PutsTheTransformBackWhateverItWas)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    for (const TXRect& dst : {TXRect(0, 30, 0, 20), TXRect(20, 50, 25, 45), TXRect(90, 120, -10, 10)})
        for (const bool enabled : {true, false})
        {
            Twins twins(100, 80);
            twins.Both(
                [&](QPainter& painter)
                {
                    painter.setWindow(-10, -5, 120, 100);
                    painter.setViewport(3, 2, 100, 70);
                    painter.setTransform(QTransform(1.0, 0.1, 0.002, 0.2, 1.1, 0.001, 5.0, 3.0, 1.0));
                    painter.setWorldMatrixEnabled(enabled);
                });
            const QTransform before = twins.SurfacePainter().worldTransform();
            DrawBoth(twins, ImageOperation::Rotate, {dst, TXRect(0, 30, 0, 20), 0.8, 33.0}, *source);
            EXPECT_TRUE(SameInAll(twins));
            EXPECT_EQ(twins.SurfacePainter().worldTransform(), before);
            EXPECT_EQ(twins.SurfacePainter().worldMatrixEnabled(), enabled);
        }
}

TEST_F(RotatedImageTest, LeavesNoSavedStateBehind)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    twins.Both([](QPainter& painter) { painter.save(); });
    twins.Both([](QPainter& painter) { painter.setPen(Qt::red); });
    for (const TXRect& dst : {TXRect(0, 30, 0, 20), TXRect(20, 50, 25, 45), TXRect(-30, 0, 0, 20)})
        DrawBoth(twins, ImageOperation::Rotate, {dst, TXRect(0, 30, 0, 20), 0.8, 33.0}, *source);
    twins.Both([](QPainter& painter) { painter.restore(); });
    EXPECT_TRUE(SameInAll(twins));
}

} // namespace
