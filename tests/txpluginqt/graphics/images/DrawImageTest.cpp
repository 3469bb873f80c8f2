#include <limits>

#include <tests/support/ImageCompare.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

/// An image into a rectangle. What is true of both operations is tested with both.
class DrawImageTest : public ImageTest
{
protected:
    static ImageCall Call(const TXRect& dst, const TXRect& src, double opacity = 0.6)
    {
        return {dst, src, opacity, 25.0};
    }
};

TEST_F(DrawImageTest, AtTheOriginIsDrawnInPlaceWithThePaintersComposition)
{
    const TXRefPtr<TXImage> source = NewSource(50, 40);
    for (const TXRect& rect : {TXRect(0, 50, 0, 40), TXRect(0, 20.9, 0, 17.2), TXRect(0, 500, 0, 400),
                               TXRect(0, 1, 0, 1), TXRect(0, 160, 0, 10)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins;
            Unsettle(twins);
            EXPECT_EQ(DrawBoth(twins, operation, Call(rect, rect), *source).route, ImageRoute::InPlace);
            EXPECT_TRUE(SameInAll(twins));
            EXPECT_EQ(twins.SurfacePainter().compositionMode(), QPainter::CompositionMode_Xor);
            EXPECT_EQ(twins.SurfacePainter().opacity(), 0.7);
        }
}

TEST_F(DrawImageTest, EqualRectanglesElsewhereAreNotInPlace)
{
    const TXRefPtr<TXImage> source = NewSource(50, 40);
    for (const TXRect& rect : {TXRect(0, 30, 3, 20), TXRect(3, 30, 0, 20), TXRect(3, 30, 3, 20), TXRect(-3, 30, 0, 20),
                               TXRect(0.5, 30, 0, 20), TXRect(0, 30, -0.5, 20)})
    {
        Twins twins;
        Unsettle(twins);
        EXPECT_EQ(DrawBoth(twins, ImageOperation::Draw, Call(rect, rect), *source).route, ImageRoute::Placed);
        EXPECT_TRUE(SameInAll(twins));
        EXPECT_EQ(twins.SurfacePainter().compositionMode(), QPainter::CompositionMode_SourceOver);
    }
}

TEST_F(DrawImageTest, MirroredRectanglesDrawNothing)
{
    const TXRefPtr<TXImage> source = NewSource(50, 40);
    const TXRect mirrored[][2] = {{TXRect(60, 20, 50, 10), TXRect(40, 0, 40, 0)},
                                  {TXRect(60, 20, 50, 20), TXRect(45, 5, 35, 5)},
                                  {TXRect(60, 20, 10, 50), TXRect(40, 0, 0, 40)},
                                  {TXRect(20, 60, 50, 10), TXRect(0, 40, 40, 0)}};
    for (const auto& [dst, src] : mirrored)
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins;
            EXPECT_EQ(DrawBoth(twins, operation, Call(dst, src), *source).route, ImageRoute::Placed);
            EXPECT_TRUE(SameInAll(twins));
        }
}

TEST_F(DrawImageTest, AtTheOriginInAnotherSizeIsNotInPlace)
{
    const TXRefPtr<TXImage> source = NewSource(50, 40);
    for (const TXRect& src : {TXRect(0, 31, 0, 20), TXRect(0, 30, 0, 21), TXRect(1, 30, 0, 20), TXRect(0, 30, 1, 20)})
    {
        Twins twins;
        EXPECT_EQ(DrawBoth(twins, ImageOperation::Draw, Call(TXRect(0, 30, 0, 20), src), *source).route,
                  ImageRoute::Placed);
        EXPECT_TRUE(SameInAll(twins));
    }
}

TEST_F(DrawImageTest, OverTheLeftEdgeDrawsTheRightHalfUnscaled)
{
    const TXRefPtr<TXImage> source = NewSource(100, 100);
    Twins twins(100, 100);
    EXPECT_TRUE(twins.Surface().DrawImage(TXRect(-50, 50, 0, 100), source.get(), TXRect(0, 100, 0, 100), 1.0));
    twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source).copy(50, 0, 50, 100));
    EXPECT_TRUE(SameInAll(twins));
    EXPECT_NE(twins.Expected().pixel(49, 50), Twins(100, 100).Expected().pixel(49, 50));
}

TEST_F(DrawImageTest, OverAnyEdgeDrawsWhatLiesOnTheTarget)
{
    const TXRefPtr<TXImage> source = NewSource(64, 64);
    for (const double left : {-16.0, 20.0, 96.0})
        for (const double top : {-40.0, 30.0, 72.0})
            for (const double factor : {1.0, 0.75, 1.5, 4.0})
                for (const ImageOperation operation : kImageOperations)
                {
                    SCOPED_TRACE(::testing::Message() << left << ", " << top << " times " << factor);
                    Twins twins(112, 88);
                    const TXRect dst(left, left + 64 * factor, top, top + 64 * factor);
                    EXPECT_EQ(DrawBoth(twins, operation, Call(dst, TXRect(0, 64, 0, 64)), *source).route,
                              ImageRoute::Placed);
                    EXPECT_TRUE(SameInAll(twins));
                    EXPECT_NE(twins.Actual(), Twins(112, 88).Expected());
                }
}

TEST_F(DrawImageTest, WhollyOutsideIsTrueAndDrawsNothing)
{
    const TXRefPtr<TXImage> source = NewSource(30, 30);
    for (const TXRect& dst : {TXRect(101, 130, 10, 40), TXRect(-30, -1, 10, 40), TXRect(10, 40, 81, 110),
                              TXRect(10, 40, -30, -1), TXRect(-30, -1e-9, 10, 40), TXRect(100.0001, 130, 10, 40),
                              TXRect(50, -20, 10, 40), TXRect(-20, 120, 300, 310), TXRect(1e9, 2e9, 0, 80)})
        for (const TXRect& src : {TXRect(0, 30, 0, 30), dst})
            for (const ImageOperation operation : kImageOperations)
            {
                Twins twins(100, 80);
                Unsettle(twins);
                EXPECT_TRUE(CallSurface(twins.Surface(), operation, Call(dst, src), source.get()));
                EXPECT_TRUE(SameInAll(twins)) << dst.left << " " << dst.right << " " << dst.top << " " << dst.bottom;
            }
}

TEST_F(DrawImageTest, ThatComesDownToTheLeftEdgeIsFalseAndKeepsTheOpacity)
{
    const TXRefPtr<TXImage> source = NewSource(30, 30);
    for (const TXRect& dst : {TXRect(-30, 0, 10, 40), TXRect(-30, 0, -10, 100), TXRect(0, 0, 10, 40),
                              TXRect(-30, 0, -30, 0), TXRect(-0.25, 0, 80, 90)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins(100, 80);
            Unsettle(twins);
            EXPECT_FALSE(CallSurface(twins.Surface(), operation, Call(dst, TXRect(0, 30, 0, 30)), source.get()));
            EXPECT_EQ(twins.Surface().GetOpacity(), 0.6);
            // Nothing else is changed, and nothing is drawn.
            twins.Direct().setOpacity(0.6);
            EXPECT_TRUE(SameInAll(twins));
        }
}

TEST_F(DrawImageTest, ThatComesDownToTheLeftEdgeKeepsAnOpacityWithinItsRange)
{
    const TXRefPtr<TXImage> source = NewSource(30, 30);
    for (const double opacity : {0.0, 1.0, 2.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
    {
        Twins twins(100, 80);
        twins.Both([](QPainter& painter) { painter.setOpacity(0.3); });
        DrawBoth(twins, ImageOperation::Draw, Call(TXRect(-9, 0, 0, 9), TXRect(0, 9, 0, 9), opacity), *source);
        EXPECT_TRUE(SameInAll(twins));
        EXPECT_EQ(twins.Surface().GetOpacity(), opacity >= 1.0 ? 1.0 : 0.0);
    }
}

TEST_F(DrawImageTest, ThatTouchesAnotherEdgeIsTrueAndDrawsNothing)
{
    const TXRefPtr<TXImage> source = NewSource(30, 30);
    const QImage background = Twins(100, 80).Expected();
    for (const TXRect& dst : {TXRect(10, 40, -30, 0), TXRect(100, 130, 10, 40), TXRect(10, 40, 80, 110),
                              TXRect(10, 40, 0, 0), TXRect(100, 100, 10, 40), TXRect(10, 40, 80, 80)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins(100, 80);
            Unsettle(twins);
            EXPECT_EQ(DrawBoth(twins, operation, Call(dst, TXRect(0, 30, 0, 30)), *source).route, ImageRoute::Placed);
            EXPECT_TRUE(SameInAll(twins));
            EXPECT_EQ(twins.Actual(), background);
            EXPECT_EQ(twins.SurfacePainter().compositionMode(), operation == ImageOperation::Draw
                                                                    ? QPainter::CompositionMode_SourceOver
                                                                    : QPainter::CompositionMode_Xor);
            EXPECT_EQ(twins.SurfacePainter().opacity(), 0.7);
        }
}

TEST_F(DrawImageTest, ThatTouchesACornerIsDrawnWholeFromThere)
{
    // As a part without extent is; it shows where the painter moves it onto the target.
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    for (const TXRect& dst : {TXRect(100, 130, 80, 110), TXRect(100, 130, -30, 0)})
    {
        Twins twins(100, 80);
        twins.Both([](QPainter& painter) { painter.translate(-50, -10); });
        EXPECT_TRUE(twins.Surface().DrawImage(dst, source.get(), TXRect(0, 30, 0, 20), 0.5));
        twins.Direct().setOpacity(0.5);
        twins.Direct().drawImage(QPointF(100, dst.top < 0 ? 0 : 80), PixelsOf(*source));
        twins.Direct().setOpacity(1.0);
        EXPECT_TRUE(SameInAll(twins));
        EXPECT_NE(twins.Actual(), Twins(100, 80).Expected());
    }
}

TEST_F(DrawImageTest, OfLessThanAPixelIsDrawnWhole)
{
    // Qt takes a part without extent for the whole image.
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    EXPECT_TRUE(twins.Surface().DrawImage(TXRect(10, 10.5, 20, 20.25), source.get(), TXRect(3, 3.5, 4, 4.25), 1.0));
    twins.Direct().drawImage(QPoint(10, 20), PixelsOf(*source));
    EXPECT_TRUE(SameInAll(twins));
    EXPECT_TRUE(twins.Surface().DrawImage(TXRect(60, 70, 50, 60), source.get(), TXRect(3, 3.5, 4, 4.25), 1.0));
    twins.Direct().drawImage(QPoint(60, 50), PixelsOf(*source).scaled(10, 10));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(DrawImageTest, LeavesSourceOverBehindAndDrawsWithIt)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    twins.Both([](QPainter& painter) { painter.setCompositionMode(QPainter::CompositionMode_DestinationOut); });
    EXPECT_TRUE(twins.Surface().DrawImage(TXRect(5, 35, 6, 26), source.get(), TXRect(0, 30, 0, 20), 0.5));
    twins.Direct().setCompositionMode(QPainter::CompositionMode_SourceOver);
    twins.Direct().setOpacity(0.5);
    twins.Direct().drawImage(QPoint(5, 6), PixelsOf(*source));
    twins.Direct().setOpacity(1.0);
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(DrawImageTest, ScalesToTheNearestPixelWithoutRegardToTheAspect)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    twins.Both([](QPainter& painter) { painter.setRenderHint(QPainter::SmoothPixmapTransform); });
    EXPECT_TRUE(twins.Surface().DrawImage(TXRect(5, 95, 6, 36), source.get(), TXRect(0, 30, 0, 20), 1.0));
    twins.Direct().drawImage(QPoint(5, 6),
                             PixelsOf(*source).scaled(90, 30, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(DrawImageTest, TruncatesTheCropAndTheScaledSizeButNotThePlace)
{
    const TXRefPtr<TXImage> source = NewSource(40, 40);
    Twins twins(100, 80);
    EXPECT_TRUE(
        twins.Surface().DrawImage(TXRect(5.75, 35.5, 6.25, 26.125), source.get(), TXRect(3.9, 15.8, 4.6, 14.5), 1.0));
    twins.Direct().drawImage(QPointF(5.75, 6.25), PixelsOf(*source).copy(3, 4, 11, 9).scaled(29, 19));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(DrawImageTest, CropsBeyondTheSourceAreTransparentThere)
{
    const TXRefPtr<TXImage> source = NewSource(20, 20, QImage::Format_RGB32);
    const TXRefPtr<TXImage> translucent = NewSource(20, 20, QImage::Format_ARGB32);
    for (const TXRect& src :
         {TXRect(-10, 20, 0, 20), TXRect(10, 40, 0, 20), TXRect(0, 20, -10, 10), TXRect(0, 20, 15, 45),
          TXRect(-10, 40, -5, 35), TXRect(40, 70, 0, 20), TXRect(-50, -20, -50, -20)})
        for (const TXRefPtr<TXImage>& image : {source, translucent})
            for (const double factor : {1.0, 1.5})
                for (const ImageOperation operation : kImageOperations)
                {
                    Twins twins(100, 80);
                    const TXRect dst(20, 20 + src.Width() * factor, 10, 10 + src.Height() * factor);
                    EXPECT_EQ(DrawBoth(twins, operation, Call(dst, src), *image).route, ImageRoute::Placed);
                    EXPECT_TRUE(SameInAll(twins));
                }
}

TEST_F(DrawImageTest, SizesBelowAPixelScaleToNothing)
{
    const TXRefPtr<TXImage> source = NewSource(20, 20);
    const QImage background = Twins(100, 80).Expected();
    for (const TXRect& dst : {TXRect(10, 10.75, 10, 30), TXRect(10, 30, 10, 10.75), TXRect(10, 10, 10, 30),
                              TXRect(30, 10, 10, 30), TXRect(10, 30, 30, 10), TXRect(30, 10, 30, 10)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins(100, 80);
            Unsettle(twins);
            EXPECT_EQ(DrawBoth(twins, operation, Call(dst, TXRect(0, 20, 0, 20)), *source).route, ImageRoute::Placed);
            EXPECT_TRUE(SameInAll(twins));
            EXPECT_EQ(twins.Actual(), background);
        }
}

TEST_F(DrawImageTest, ASinglePixelIsDrawnAndEnlarged)
{
    const TXRefPtr<TXImage> source = NewSource(20, 20);
    for (int x : {0, 7, 19})
        for (const TXRect& dst : {TXRect(4, 5, 6, 7), TXRect(4, 40, 6, 50), TXRect(-20, 120, -20, 120)})
            for (const ImageOperation operation : kImageOperations)
            {
                Twins twins(100, 80);
                DrawBoth(twins, operation, Call(dst, TXRect(x, x + 1, 3, 4), 1.0), *source);
                EXPECT_TRUE(SameInAll(twins));
            }
}

TEST_F(DrawImageTest, ASinglePixelIsBlendedAsACopyOfIt)
{
    // Without smoothing Qt fills with a part of one pixel, and blends in another way.
    for (const TXImage::Format target :
         {TXImage::Format_RGB32, TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB16})
    {
        Twins twins(100, 80, target);
        twins.Both([](QPainter& painter) { painter.setRenderHint(QPainter::Antialiasing, false); });
        for (const QImage::Format format : DrawnFormats())
        {
            const TXRefPtr<TXImage> source = NewSource(20, 20, format);
            for (int i = 0; i < 20; ++i)
                DrawBoth(twins, ImageOperation::Draw,
                         Call(TXRect(4 * i, 4 * i + 1, 3 * i, 3 * i + 1), TXRect(i, i + 1, 3, 4), 0.05 * i), *source);
            ASSERT_TRUE(SameInAll(twins)) << "from " << format << " to " << target;
        }
    }
}

TEST_F(DrawImageTest, MirroredRectanglesOfAnotherSizeDrawNothing)
{
    const TXRefPtr<TXImage> source = NewSource(40, 30);
    const QImage background = Twins(100, 80).Expected();
    for (const TXRect& dst : {TXRect(60, 10, 10, 50), TXRect(10, 60, 50, 10), TXRect(60, 10, 50, 10)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins(100, 80);
            EXPECT_EQ(DrawBoth(twins, operation, Call(dst, TXRect(0, 40, 0, 30), 1.0), *source).route,
                      ImageRoute::Placed);
            EXPECT_TRUE(SameInAll(twins));
            EXPECT_EQ(twins.Actual(), background);
        }
}

TEST_F(DrawImageTest, EveryFormatOnEveryTarget)
{
    for (const TXImage::Format target :
         {TXImage::Format_RGB32, TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB16})
    {
        Twins twins(90, 70, target);
        for (const QImage::Format format : DrawnFormats())
            for (const ImageOperation operation : kImageOperations)
                for (const TXRect& src : {TXRect(0, 33, 0, 21), TXRect(3, 20, 2, 19), TXRect(5, 16, 1, 20)})
                {
                    SCOPED_TRACE(::testing::Message() << "from " << format << " to " << target);
                    const TXRefPtr<TXImage> source = NewSource(33, 21, format);
                    DrawBoth(twins, operation, Call(src, src, 0.9), *source);
                    DrawBoth(twins, operation, Call(TXRect(30, 63, 20, 41), src, 0.9), *source);
                    DrawBoth(twins, operation, Call(TXRect(5, 5 + src.Width(), 4, 4 + src.Height()), src), *source);
                    ASSERT_TRUE(SameInAll(twins));
                }
    }
}

TEST_F(DrawImageTest, OfTwoDevicePixelsAUnitIsDrawnAsQtDoes)
{
    const TXRefPtr<TXImage> source = NewSource(40, 30);
    PixelsOf(*source).setDevicePixelRatio(2.0);
    for (const TXRect& dst : {TXRect(0, 40, 0, 30), TXRect(10, 50, 5, 35), TXRect(10, 90, 5, 65),
                              TXRect(-20, 20, 5, 35), TXRect(20, 40, 10, 25)})
        for (const TXRect& src : {TXRect(0, 40, 0, 30), TXRect(5, 25, 5, 20)})
            for (const ImageOperation operation : kImageOperations)
            {
                Twins twins(100, 80);
                DrawBoth(twins, operation, Call(dst, src), *source);
                EXPECT_TRUE(SameInAll(twins));
            }
}

TEST_F(DrawImageTest, ClipsByThePixelsOfATargetOfTwoDevicePixelsAUnit)
{
    const TXRefPtr<TXImage> source = NewSource(40, 30);
    for (const ImageOperation operation : kImageOperations)
    {
        const TXRefPtr<TXImage> target = NewPaintedImage(100, 80);
        QImage expected = PixelsOf(*target).copy();
        PixelsOf(*target).setDevicePixelRatio(2.0);
        expected.setDevicePixelRatio(2.0);
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectImage(target);
        QPainter direct(&expected);
        direct.setRenderHints(PainterOf(*surface).renderHints());
        const ImageCall call = Call(TXRect(-10, 150, 10, 90), TXRect(0, 40, 0, 30));
        EXPECT_TRUE(CallSurface(*surface, operation, call, source.get()));
        PaintDirectly(direct, QSize(100, 80), operation, call, PixelsOf(*source));
        EXPECT_TRUE(SamePixels(PixelsOf(*target), expected));
    }
}

} // namespace
