#include <vector>

#include <tests/support/ImageCompare.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

constexpr int kWidth = 100;
constexpr int kHeight = 80;

/// Parts of an image that overlap the place where they are drawn, in every direction.
const std::vector<ImageCall> kCalls = {
    {TXRect(0, 100, 0, 80), TXRect(0, 100, 0, 80), 0.5, 30.0},
    {TXRect(0, 60, 0, 50), TXRect(0, 60, 0, 50), 0.5, 30.0},
    {TXRect(3, 103, 2, 82), TXRect(0, 100, 0, 80), 1.0, 0.0},
    {TXRect(-3, 97, -2, 78), TXRect(0, 100, 0, 80), 1.0, 0.0},
    {TXRect(0, 100, 5, 85), TXRect(0, 100, 0, 80), 0.8, 180.0},
    {TXRect(20, 70, 20, 70), TXRect(17, 67, 19, 69), 1.0, 0.0},
    {TXRect(17, 67, 19, 69), TXRect(20, 70, 20, 70), 1.0, 90.0},
    {TXRect(20, 70, 20, 70), TXRect(20, 70, 20, 70), 0.5, 45.0},
    {TXRect(1, 61, 0, 50), TXRect(0, 60, 0, 50), 1.0, 0.0},
    {TXRect(0, 100, 0, 80), TXRect(10, 60, 10, 50), 0.9, 10.0},
    {TXRect(10, 40, 10, 30), TXRect(0, 100, 0, 80), 0.9, 10.0},
    {TXRect(10, 60, 10, 60), TXRect(-20, 30, -20, 30), 1.0, 0.0},
    {TXRect(20, 70, 20, 70), TXRect(15, 65, 15, 65), 1.0, 0.0},
    {TXRect(-20, 80, 0, 80), TXRect(0, 100, 0, 80), 1.0, 0.0},
};

/// Sources whose pixels are those of the target, wholly or in part. They are drawn as copies taken before would be.
class SharedPixelsTest : public ImageTest
{
protected:
    /// Draws from @p source with a surface on @p target and compares with painting from a copy taken before.
    static void ExpectDrawnAsACopy(TXImage& target, TXImage& source)
    {
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectImage(TXRefPtr<TXImage>(&target));
        ExpectDrawnAsACopy(*surface, PixelsOf(target), source);
    }

    /// The same with any surface, which paints on @p canvas.
    static void ExpectDrawnAsACopy(TXGraphics& surface, const QImage& canvas, TXImage& source)
    {
        QPainter& painter = PainterOf(surface);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QSize target = PixelsOf(*surface.GetImage()).size();
        for (std::size_t i = 0; i < kCalls.size(); ++i)
            for (const ImageOperation operation : kImageOperations)
                for (const bool turned : {false, true})
                {
                    SCOPED_TRACE(::testing::Message() << "call " << i << (turned ? ", turned" : ""));
                    painter.setTransform(turned ? QTransform().translate(50, 10).rotate(40) : QTransform());
                    const QImage copy = PixelsOf(source).copy();
                    QImage expected = canvas.copy();
                    QPainter direct(&expected);
                    direct.setRenderHints(painter.renderHints());
                    direct.setTransform(painter.transform());
                    direct.setCompositionMode(painter.compositionMode());
                    EXPECT_TRUE(CallSurface(surface, operation, kCalls[i], &source));
                    PaintDirectly(direct, target, operation, kCalls[i], copy);
                    ASSERT_TRUE(SamePixels(canvas, expected));
                    EXPECT_EQ(painter.compositionMode(), direct.compositionMode());
                }
    }

    static std::vector<unsigned char> Memory(QImage::Format format)
    {
        const QImage picture = Picture(kWidth, kHeight, format);
        return {picture.constBits(), picture.constBits() + picture.sizeInBytes()};
    }
};

TEST_F(SharedPixelsTest, TheTargetItself)
{
    for (const TXImage::Format format :
         {TXImage::Format_RGB32, TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB16})
    {
        const TXRefPtr<TXImage> image = NewPaintedImage(kWidth, kHeight, format);
        ExpectDrawnAsACopy(*image, *image);
    }
}

TEST_F(SharedPixelsTest, TheTargetItselfWhole)
{
    Twins twins(kWidth, kHeight);
    Unsettle(twins);
    const QImage copy = twins.Actual().copy();
    EXPECT_TRUE(twins.Surface().DrawImage(twins.Surface().GetImage().get(), 0.5));
    twins.Direct().setOpacity(0.5);
    twins.Direct().drawImage(QPoint(0, 0), copy);
    twins.Direct().setOpacity(0.7);
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(SharedPixelsTest, TheTargetItselfInACallersMemoryStaysThere)
{
    std::vector<unsigned char> memory = Memory(QImage::Format_ARGB32_Premultiplied);
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    image->CreateImage(memory.data(), kWidth, kHeight, TXImage::Format_ARGB32_Premultiplied);
    ExpectDrawnAsACopy(*image, *image);
    EXPECT_EQ(image->GetBits(), memory.data());
    EXPECT_NE(memory, Memory(QImage::Format_ARGB32_Premultiplied)) << "what was drawn is in the caller's memory";
}

TEST_F(SharedPixelsTest, TheTargetsMemoryUnderAnotherImage)
{
    for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        std::vector<unsigned char> memory = Memory(static_cast<QImage::Format>(static_cast<int>(format)));
        const TXRefPtr<TXImage> target = TestEngine().NewImage();
        target->CreateImage(memory.data(), kWidth, kHeight, format);
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        source->CreateImage(memory.data(), kWidth, kHeight, format);
        ExpectDrawnAsACopy(*target, *source);
        EXPECT_EQ(target->GetBits(), memory.data());
        EXPECT_EQ(source->GetBits(), memory.data());
    }
}

TEST_F(SharedPixelsTest, APartOfTheTargetsMemoryUnderAnotherImage)
{
    constexpr int row = kWidth * 4;
    for (const int first : {0, 1, 15, 40})
    {
        std::vector<unsigned char> memory = Memory(QImage::Format_ARGB32_Premultiplied);
        const TXRefPtr<TXImage> target = TestEngine().NewImage();
        target->CreateImage(memory.data() + 20 * row, kWidth, 40, TXImage::Format_ARGB32_Premultiplied);
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        source->CreateImage(memory.data() + first * row, kWidth, 40, TXImage::Format_ARGB32_Premultiplied);
        ExpectDrawnAsACopy(*target, *source);
    }
}

TEST_F(SharedPixelsTest, AnImageThatHadTheSamePixelsBefore)
{
    const TXRefPtr<TXImage> target = NewPaintedImage(kWidth, kHeight);
    const TXRefPtr<TXImage> source = NewImageOf(PixelsOf(*target));
    ExpectDrawnAsACopy(*target, *source);
    EXPECT_EQ(PixelsOf(*source), PixelsOf(*NewPaintedImage(kWidth, kHeight))) << "the source is not painted on";
}

TEST_F(SharedPixelsTest, AnImageThatAnotherSurfacePaintsOn)
{
    const TXRefPtr<TXGraphics> layer = NewPaintingSurface(kWidth, kHeight);
    const TXRefPtr<TXImage> target = NewPaintedImage(kWidth, kHeight);
    ExpectDrawnAsACopy(*target, *layer->GetImage());
    EXPECT_TRUE(layer->fillRect(TXRect(0, 50, 0, 50), TXColor::RED_)) << "painting on it goes on";
    EXPECT_EQ(layer->GetImage()->GetPixel(5, 5).GetColor(), 0xffff0000u);
    ExpectDrawnAsACopy(*target, *layer->GetImage());
}

TEST_F(SharedPixelsTest, TheImageThatTheAttachedPainterPaintsOn)
{
    const TXRefPtr<TXGraphics> layer = NewPaintingSurface(kWidth, kHeight);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(kWidth, kHeight);
    const QImage before = PixelsOf(*surface->GetImage()).copy();
    surface->Attach(&PainterOf(*layer));
    ExpectDrawnAsACopy(*surface, PixelsOf(*layer->GetImage()), *layer->GetImage());
    EXPECT_EQ(PixelsOf(*surface->GetImage()), before);
}

TEST_F(SharedPixelsTest, TheSelectedImageWhileAPainterIsAttached)
{
    const TXRefPtr<TXGraphics> layer = NewPaintingSurface(kWidth, kHeight);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(kWidth, kHeight);
    surface->Attach(&PainterOf(*layer));
    ExpectDrawnAsACopy(*surface, PixelsOf(*layer->GetImage()), *surface->GetImage());
}

} // namespace
