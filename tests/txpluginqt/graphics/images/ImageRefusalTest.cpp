#include <limits>
#include <vector>

#include <tests/support/ImageCompare.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Calls that are answered with false and change nothing.
class ImageRefusalTest : public ImageTest
{
protected:
    /// The rectangles of every way that a call can go on a target of 100 x 80 pixels.
    static std::vector<TXRect> EveryWay()
    {
        return {TXRect(0, 30, 0, 20), TXRect(5, 35, 6, 26), TXRect(200, 230, 0, 20), TXRect(-30, 0, 0, 20)};
    }

    static void ExpectRefusal(TXGraphics& surface, TXImage* source)
    {
        for (const TXRect& dst : EveryWay())
            for (const ImageOperation operation : kImageOperations)
                EXPECT_FALSE(CallSurface(surface, operation, {dst, TXRect(0, 30, 0, 20), 0.25, 30.0}, source));
    }
};

TEST_F(ImageRefusalTest, WithoutASource)
{
    Twins twins(100, 80);
    Unsettle(twins);
    ExpectRefusal(twins.Surface(), nullptr);
    const TXRefPtr<TXImage> absent = TestEngine().NewImage();
    ExpectRefusal(twins.Surface(), absent.get());
    const TXRefPtr<TXImage> deleted = NewSource(30, 20);
    deleted->Delete();
    ExpectRefusal(twins.Surface(), deleted.get());
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, WithoutAPainter)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(100, 80);
    const QImage before = PixelsOf(*surface->GetImage()).copy();
    surface->Delete();
    ExpectRefusal(*surface, source.get());
    EXPECT_TRUE(SamePixels(PixelsOf(*surface->GetImage()), before));
    const TXRefPtr<TXGraphics> empty = TestEngine().NewGraphics(nullptr);
    ExpectRefusal(*empty, source.get());
}

TEST_F(ImageRefusalTest, WithoutASelectedImage)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    ExpectRefusal(*idle, source.get());
    // It paints on an image that it has not selected.
    const TXRefPtr<TXImage> painted = NewPaintedImage(100, 80);
    const QImage before = PixelsOf(*painted).copy();
    const TXRefPtr<TXGraphics> over = TestEngine().NewGraphics(painted.get());
    over->SetOpacity(0.7);
    over->SetCompositionMode(TXGraphics::CompositionMode_Xor);
    ExpectRefusal(*over, source.get());
    EXPECT_EQ(over->GetOpacity(), 0.7);
    EXPECT_EQ(PainterOf(*over).compositionMode(), QPainter::CompositionMode_Xor);
    EXPECT_TRUE(SamePixels(PixelsOf(*painted), before));
}

TEST_F(ImageRefusalTest, WithASelectedImageThatIsAbsent)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(100, 80);
    surface->GetImage()->Delete();
    ExpectRefusal(*surface, source.get());
}

TEST_F(ImageRefusalTest, WithAnAttachedPainterButNoSelectedImage)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    Unsettle(twins);
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    idle->Attach(&twins.SurfacePainter());
    ExpectRefusal(*idle, source.get());
    EXPECT_TRUE(SameInAll(twins));
    const TXRefPtr<TXGraphics> absent = NewPaintingSurface(100, 80);
    absent->Attach(&twins.SurfacePainter());
    absent->GetImage()->Delete();
    ExpectRefusal(*absent, source.get());
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, OfEdgesThatAreNoNumbersOrTooFar)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    Unsettle(twins);
    double TXRect::*const edges[] = {&TXRect::left, &TXRect::right, &TXRect::top, &TXRect::bottom};
    for (const double refused : {kNaN, kInfinity, -kInfinity, 1.0001e12, -1.0001e12, 1e300, -1e300})
        for (const auto edge : edges)
            for (const TXRect& rect : EveryWay())
                for (const ImageOperation operation : kImageOperations)
                {
                    TXRect changed = rect;
                    changed.*edge = refused;
                    const TXRect ordinary(0, 30, 0, 20);
                    for (const ImageCall& call :
                         {ImageCall{changed, ordinary, 0.25, 30.0}, ImageCall{rect, changed, 0.25, 30.0},
                          ImageCall{changed, changed, 0.25, 30.0}})
                        EXPECT_FALSE(CallSurface(twins.Surface(), operation, call, source.get())) << refused;
                }
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, OfAnglesThatAreNoNumbersOrTooFar)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    Unsettle(twins);
    for (const double refused : {kNaN, kInfinity, -kInfinity, 1.0001e12, -1e300})
        for (const TXRect& dst : EveryWay())
            EXPECT_FALSE(twins.Surface().DrawImage4BitmapRotate(dst, source.get(), TXRect(0, 30, 0, 20), refused, 0.25))
                << refused;
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, NumbersAsFarAsAMillionMillionAreTaken)
{
    const TXRefPtr<TXImage> source = NewSource(64, 64);
    for (const TXRect& dst : {TXRect(-1e12, 1e12, -1e12, 1e12), TXRect(-1e12, 50, 0, 80), TXRect(20, 1e12, 0, 80),
                              TXRect(0, 100, -1e12, 60), TXRect(0, 100, 20, 1e12), TXRect(1e12, 1e12, 0, 9)})
        for (const ImageOperation operation : kImageOperations)
            for (const double angle : {1e12, -1e12, 7.0})
            {
                Twins twins(100, 80);
                DrawBoth(twins, operation, {dst, TXRect(0, 64, 0, 64), 0.25, angle}, *source);
                EXPECT_TRUE(SameInAll(twins));
            }
}

TEST_F(ImageRefusalTest, InPlaceTheLargestRectangleIsTheWholeImage)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    const TXRect largest(0, 1e12, 0, 1e12);
    EXPECT_TRUE(twins.Surface().DrawImage(largest, source.get(), largest, 1.0));
    twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, OfCropsThatWouldTakeAllMemory)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    Twins twins(100, 80);
    Unsettle(twins);
    for (const TXRect& src : {TXRect(-1e6, 1e6, -1e6, 1e6), TXRect(0, 1e12, 0, 1e12), TXRect(-1e12, 0, -1e12, 1),
                              TXRect(0, 1e9, 0, 2), TXRect(0, 2, 0, 1e9), TXRect(-40000, 0, -40000, 40)})
        for (const TXRect& dst : {TXRect(0, 100, 0, 80), TXRect(10, 20, 10, 20), TXRect(-50, 50, -40, 40)})
            for (const ImageOperation operation : kImageOperations)
                EXPECT_FALSE(CallSurface(twins.Surface(), operation, {dst, src, 0.25, 30.0}, source.get()));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, OfHugeCropsThatAreNotDrawnAnyway)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    const TXRect huge(-1e6, 1e6, -1e6, 1e6);
    for (const ImageOperation operation : kImageOperations)
    {
        Twins twins(100, 80);
        EXPECT_TRUE(CallSurface(twins.Surface(), operation, {TXRect(300, 400, 0, 80), huge, 0.25, 3.0}, source.get()));
        EXPECT_TRUE(SameInAll(twins));
        for (const TXRect& dst : {TXRect(-30, 0, 0, 80), TXRect(0, 0, 10, 60)})
        {
            EXPECT_FALSE(CallSurface(twins.Surface(), operation, {dst, huge, 0.25, 3.0}, source.get()));
            EXPECT_EQ(twins.Surface().GetOpacity(), 0.25);
            twins.Both([](QPainter& painter) { painter.setOpacity(0.25); });
            EXPECT_TRUE(SameInAll(twins));
            twins.Both([](QPainter& painter) { painter.setOpacity(0.5); });
        }
    }
}

TEST_F(ImageRefusalTest, NotOfInvertedCropsWhichHaveNoPixels)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    for (const TXRect& src : {TXRect(1e6, -1e6, 1e6, -1e6), TXRect(0, 1e9, 9, 2), TXRect(9, 2, 0, 1e9)})
        for (const ImageOperation operation : kImageOperations)
        {
            Twins twins(100, 80);
            Unsettle(twins);
            DrawBoth(twins, operation, {TXRect(10, 60, 10, 50), src, 0.9, 3.0}, *source);
            EXPECT_TRUE(SameInAll(twins));
        }
}

TEST_F(ImageRefusalTest, CropsOfUpToTwoToTheTwentyEighthPixelsAreDrawn)
{
    // Of one bit a pixel, so that it takes little memory; smooth scaling would take more.
    const TXRefPtr<TXImage> source = NewSource(64, 64, QImage::Format_Mono);
    const TXRect dst(10, 60, 10, 50);
    Twins twins(100, 80);
    DrawBoth(twins, ImageOperation::Draw, {dst, TXRect(-16320, 64, 0, 16384), 0.9, 3.0}, *source);
    EXPECT_TRUE(SameInAll(twins));
    for (const ImageOperation operation : kImageOperations)
        for (const TXRect& src : {TXRect(-16320, 64, 0, 16385), TXRect(-16321, 64, 0, 16384)})
            EXPECT_FALSE(CallSurface(twins.Surface(), operation, {dst, src, 0.9, 3.0}, source.get()));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(ImageRefusalTest, PartsOfLargeImagesAreDrawnHoweverLarge)
{
    const QImage huge = []
    {
        QImage image(16400, 16400, QImage::Format_Mono);
        image.fill(1);
        return image;
    }();
    const TXRefPtr<TXImage> source = NewImageOf(huge);
    for (const TXRect& src : {TXRect(0, 16400, 0, 16400), TXRect(0, 16392, 0, 16400)})
    {
        Twins twins(100, 80);
        const ImageCall call{TXRect(10, 60, 10, 50), src, 0.9, 0.0};
        DrawBoth(twins, ImageOperation::Draw, call, *source, huge);
        EXPECT_TRUE(SameInAll(twins));
        EXPECT_NE(twins.Actual(), Twins(100, 80).Expected());
    }
}

} // namespace
