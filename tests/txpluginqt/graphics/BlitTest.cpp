#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class BlitTest : public SurfaceTest
{
};

class ClearTest : public SurfaceTest
{
};

TEST_F(BlitTest, DrawsTheWholeImageAtAPlaceInTheTargetsUnits)
{
    const TXRefPtr<TXGraphics> source = NewPaintingSurface(40, 30);
    source->fillRect(TXRect(5, 30, 5, 20), TXColor(255, 0, 0, 90));
    source->SetWindowOrg(13, 17);
    source->SetOpacity(0.1);
    PainterOf(*source).setClipRect(0, 0, 3, 3);
    ForRandomCases(40, 300,
                   [&](Random& random, Twins& twins)
                   {
                       const int x = random.Int(-50, 100);
                       const int y = random.Int(-50, 100);
                       EXPECT_TRUE(source->BiltTo(&twins.Surface(), x, y));
                       twins.Direct().save();
                       twins.Direct().translate(x, y);
                       twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source->GetImage()));
                       twins.Direct().restore();
                   });
}

TEST_F(BlitTest, TakesEveryFormat)
{
    for (int format = TXImage::Format_Mono; format <= TXImage::Format_Grayscale8; ++format)
    {
        // Qt cannot draw an indexed image without a colour table, which is what a new one is.
        if (format == TXImage::Format_Indexed8)
            continue;
        const TXRefPtr<TXImage> image = TestEngine().NewImage();
        image->CreateImage(40, 30, static_cast<TXImage::Format>(format));
        PixelsOf(*image).fill(1);
        const TXRefPtr<TXGraphics> source = TestEngine().NewGraphics();
        source->SelectImage(image);
        Twins twins;
        EXPECT_TRUE(source->BiltTo(&twins.Surface(), 20, 10)) << format;
        twins.Direct().drawImage(QPoint(20, 10), PixelsOf(*image));
        EXPECT_TRUE(twins.SameWithState()) << format;
    }
}

TEST_F(BlitTest, DrawsWithThePainterAttachedToTheTarget)
{
    const TXRefPtr<TXGraphics> source = NewPaintingSurface(40, 30);
    const TXRefPtr<TXGraphics> target = NewPaintingSurface();
    const QImage before = PixelsOf(*target->GetImage()).copy();
    QImage canvas(60, 40, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QImage expected = canvas.copy();
    QPainter outside(&canvas);
    target->Attach(&outside);
    EXPECT_TRUE(source->BiltTo(target.get(), 10, 5));
    QPainter(&expected).drawImage(10, 5, PixelsOf(*source->GetImage()));
    EXPECT_EQ(canvas, expected);
    EXPECT_EQ(PixelsOf(*target->GetImage()), before);
}

TEST_F(BlitTest, IsRefusedWithoutSourceOrTarget)
{
    const TXRefPtr<TXGraphics> source = NewPaintingSurface(40, 30);
    const TXRefPtr<TXGraphics> target = NewPaintingSurface();
    const QImage before = PixelsOf(*target->GetImage()).copy();
    EXPECT_FALSE(source->BiltTo(nullptr, 0, 0));

    const TXRefPtr<TXGraphics> withoutImage = TestEngine().NewGraphics();
    EXPECT_FALSE(source->BiltTo(withoutImage.get(), 0, 0));
    EXPECT_FALSE(withoutImage->BiltTo(target.get(), 0, 0));
    const TXRefPtr<TXImage> painted = NewPaintedImage();
    const TXRefPtr<TXGraphics> overImage = TestEngine().NewGraphics(painted.get());
    EXPECT_FALSE(source->BiltTo(overImage.get(), 0, 0)) << "it has not selected the image that it paints on";
    EXPECT_FALSE(overImage->BiltTo(target.get(), 0, 0));

    const TXRefPtr<TXGraphics> withAbsentImage = TestEngine().NewGraphics();
    withAbsentImage->SelectImage(TXRefPtr<TXImage>(TestEngine().NewImage()));
    EXPECT_FALSE(source->BiltTo(withAbsentImage.get(), 0, 0));
    EXPECT_FALSE(withAbsentImage->BiltTo(target.get(), 0, 0));

    const TXRefPtr<TXGraphics> withoutPainter = NewPaintingSurface();
    withoutPainter->Delete();
    EXPECT_FALSE(source->BiltTo(withoutPainter.get(), 0, 0));
    EXPECT_EQ(PixelsOf(*target->GetImage()), before);
    EXPECT_TRUE(withoutPainter->BiltTo(target.get(), 0, 0)) << "a source needs no painter";
    EXPECT_NE(PixelsOf(*target->GetImage()), before);
}

TEST_F(BlitTest, StretchBltDrawsAPartOfTheOtherImage)
{
    const TXRefPtr<TXGraphics> target = NewPaintingSurface();
    EXPECT_FALSE(target->StretchBlt(TXRect(0, 10, 0, 10), nullptr, TXRect(0, 10, 0, 10)));
    const TXRefPtr<TXGraphics> withoutImage = TestEngine().NewGraphics();
    EXPECT_FALSE(target->StretchBlt(TXRect(0, 10, 0, 10), withoutImage.get(), TXRect(0, 10, 0, 10)));
}

TEST_F(ClearTest, GivesEveryPixelTheColourWhateverTheState)
{
    for (const TXColor& color : {TXColor(255, 0, 0, 255), TXColor(200, 100, 50, 100), TXColor(255, 255, 255, 0)})
        for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
        {
            Twins twins(40, 30, format);
            twins.Both(
                [](QPainter& painter)
                {
                    painter.setClipRect(0, 0, 3, 3);
                    painter.setOpacity(0.3);
                    painter.setCompositionMode(QPainter::CompositionMode_Destination);
                });
            EXPECT_TRUE(twins.Surface().ClearWithColor(color));
            twins.Expected().fill(ToQt(color));
            EXPECT_TRUE(twins.SameWithState());
            EXPECT_TRUE(twins.SurfacePainter().isActive());
        }
}

TEST_F(ClearTest, DrawingGoesOnInTheClearedPixels)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().ClearWithColor(TXColor::WHITE_));
    twins.Expected().fill(Qt::white);
    EXPECT_TRUE(twins.Surface().Rectangle(10, 10, 60, 50));
    twins.Direct().drawRect(10, 10, 60, 50);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(ClearTest, NeedsAnImageAndNoPainter)
{
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    EXPECT_FALSE(idle->ClearWithColor(TXColor::RED_));
    const TXRefPtr<TXGraphics> empty = TestEngine().NewGraphics(nullptr);
    EXPECT_FALSE(empty->ClearWithColor(TXColor::RED_));
    const TXRefPtr<TXGraphics> deleted = NewPaintingSurface();
    deleted->Delete();
    EXPECT_TRUE(deleted->ClearWithColor(TXColor::RED_));
    EXPECT_EQ(PixelsOf(*deleted->GetImage()).pixel(20, 20), qRgb(255, 0, 0));
}

} // namespace
