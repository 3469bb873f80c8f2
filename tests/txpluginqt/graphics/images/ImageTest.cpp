#include "ImageTest.h"

#include <QPainterPath>

using namespace TZObjects;

TXRefPtr<TXImage> ImageTest::NewSource(int width, int height, QImage::Format format)
{
    return NewImageOf(Picture(width, height, format));
}

TXRefPtr<TXImage> ImageTest::NewImageOf(const QImage& pixels)
{
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    image->CreateImage(1, 1, TXImage::Format_ARGB32);
    PixelsOf(*image) = pixels;
    return image;
}

ImageOutcome ImageTest::DrawBoth(Twins& twins, ImageOperation operation, const ImageCall& call, TXImage& image,
                                 const QImage& pixels)
{
    const bool result = CallSurface(twins.Surface(), operation, call, &image);
    const ImageOutcome expected = PaintDirectly(twins.Direct(), twins.Expected().size(), operation, call, pixels);
    EXPECT_EQ(result, expected.result);
    return expected;
}

ImageOutcome ImageTest::DrawBoth(Twins& twins, ImageOperation operation, const ImageCall& call, TXImage& image)
{
    return DrawBoth(twins, operation, call, image, PixelsOf(image).copy());
}

void ImageTest::Unsettle(Twins& twins)
{
    twins.Both(
        [](QPainter& painter)
        {
            QPainterPath clip;
            clip.addEllipse(-20.0, -20.0, 200.0, 170.0);
            painter.setClipPath(clip);
            painter.setTransform(QTransform().translate(4.0, 3.0).rotate(2.0).scale(0.9, 1.1));
            painter.setOpacity(0.7);
            painter.setCompositionMode(QPainter::CompositionMode_Xor);
            painter.setBrushOrigin(3.0, 5.0);
            painter.setRenderHint(QPainter::TextAntialiasing, false);
        });
}

::testing::AssertionResult ImageTest::SameInAll(Twins& twins)
{
    const QPainter& actual = twins.SurfacePainter();
    const QPainter& expected = twins.Direct();
    if (actual.worldMatrixEnabled() != expected.worldMatrixEnabled())
        return ::testing::AssertionFailure() << "the world transform is switched on or off";
    if (actual.viewTransformEnabled() != expected.viewTransformEnabled() || actual.window() != expected.window() ||
        actual.viewport() != expected.viewport() || actual.combinedTransform() != expected.combinedTransform())
        return ::testing::AssertionFailure() << "the view transform differs";
    return twins.SameWithState();
}
