#include <tests/support/PainterState.h>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class SelectImageTest : public SurfaceTest
{
protected:
    static TXGraphicsEngineManager& Manager() { return *TXGraphicsEngineManager::instance(""); }
    static QPainter::RenderHints HintsOf(TXGraphics& surface) { return PainterOf(surface).renderHints(); }
};

TEST_F(SelectImageTest, PaintsOnTheImageFromNowOn)
{
    const TXRefPtr<TXImage> first = NewPaintedImage();
    const TXRefPtr<TXImage> second = NewPaintedImage(30, 20, TXImage::Format_ARGB32);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    EXPECT_EQ(surface->SelectImage(first), nullptr);
    EXPECT_EQ(surface->GetImage(), first);
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*first));
    EXPECT_EQ(surface->SelectImage(second), first);
    EXPECT_EQ(surface->GetImage(), second);
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*second));
    EXPECT_FALSE(PixelsOf(*first).paintingActive());
    const QImage before = PixelsOf(*first);
    EXPECT_TRUE(surface->fillRect(TXRect(0, 30, 0, 20), TXColor::RED_));
    EXPECT_EQ(PixelsOf(*first), before);
    EXPECT_EQ(PixelsOf(*second).pixel(15, 10), qRgb(255, 0, 0));
}

TEST_F(SelectImageTest, OfTheSelectedImageReturnsNullAndKeepsPainting)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    surface->SetWindowOrg(5, 6);
    surface->SetOpacity(0.25);
    surface->SetCompositionMode(TXGraphics::CompositionMode_Plus);
    surface->EnableAntialiasing(false);
    PainterOf(*surface).setClipRect(1, 2, 30, 20);
    surface->SelectPen(TXPen::DashLine);
    const PainterState before(PainterOf(*surface));
    EXPECT_EQ(surface->SelectImage(image), nullptr);
    EXPECT_EQ(surface->GetImage(), image);
    EXPECT_TRUE(SameState(PainterState(PainterOf(*surface)), before));
    EXPECT_TRUE(PainterOf(*surface).isActive());
}

TEST_F(SelectImageTest, OfNullDropsTheImage)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    EXPECT_EQ(surface->SelectImage(nullptr), image);
    EXPECT_EQ(surface->GetImage(), nullptr);
    ASSERT_NE(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(PainterOf(*surface).isActive());
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
    EXPECT_EQ(surface->SelectImage(nullptr), nullptr);
    EXPECT_EQ(surface->SelectImage(image), nullptr);
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*image));
}

TEST_F(SelectImageTest, WithoutAPainterDoesNothing)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    const TXRefPtr<TXImage> image = NewPaintedImage();
    EXPECT_EQ(surface->SelectImage(image), nullptr);
    EXPECT_EQ(surface->GetImage(), nullptr);
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
}

TEST_F(SelectImageTest, TheFirstImageIsAntialiasedByDefault)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    EXPECT_EQ(HintsOf(*surface), FreshHints() | kAntialiasing);
    surface->EnableAntialiasing(false);
    surface->SelectImage(nullptr);
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(HintsOf(*surface), FreshHints() | kAntialiasing) << "no image was selected before";
}

TEST_F(SelectImageTest, HintsCarryOverToTheNextImage)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    PainterOf(*surface).setRenderHint(QPainter::SmoothPixmapTransform);
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(HintsOf(*surface), FreshHints() | kAntialiasing | QPainter::SmoothPixmapTransform);
    surface->EnableAntialiasing(false);
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(HintsOf(*surface), FreshHints() | QPainter::SmoothPixmapTransform);
}

TEST_F(SelectImageTest, HintsOfAnImageThatCouldNotBePaintedOnAreNone)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> indexed = TestEngine().NewImage();
    indexed->CreateImage(20, 20, TXImage::Format_Indexed8);
    surface->SelectImage(indexed);
    surface->SelectImage(NewPaintedImage());
    // As Qt's painter has none while it is not active.
    EXPECT_EQ(HintsOf(*surface), FreshHints());
}

TEST_F(SelectImageTest, HintsOfAnImageThatLostItsPixelsCarryOver)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    PainterOf(*surface).setRenderHint(QPainter::SmoothPixmapTransform);
    surface->EnableAntialiasing(false);
    surface->GetImage()->Delete();
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(HintsOf(*surface), FreshHints() | QPainter::SmoothPixmapTransform);
}

TEST_F(SelectImageTest, HintsAreThoseOfAFreshPainterWhereTheManagerDoesNotAntialias)
{
    Manager().EnableAntialiasing(false);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    EXPECT_EQ(HintsOf(*surface), FreshHints());
    surface->EnableAntialiasing(true);
    EXPECT_EQ(HintsOf(*surface), FreshHints() | kAntialiasing);
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(HintsOf(*surface), FreshHints());
}

TEST_F(SelectImageTest, AppliesTheSelectionAgainAndStartsTheRestAnew)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const Resources resources = SelectResources(*surface);
    // These are not selected resources and go with the old image.
    surface->SelectPen(TXPen::DotLine);
    const TXRefPtr<TXLinearGradient> gradient = TestEngine().NewLinearGradient(0, 0, 9, 9);
    surface->SelectGradient(gradient.get());
    surface->SetWindowOrg(5, 6);
    surface->SetOpacity(0.25);
    surface->SetCompositionMode(TXGraphics::CompositionMode_Plus);
    PainterOf(*surface).setClipRect(1, 2, 30, 20);
    surface->SelectImage(NewPaintedImage());
    ExpectOnly(resources, *surface);
}

TEST_F(SelectImageTest, OnASurfaceMadeOverAnImageLeavesThatOne)
{
    const TXRefPtr<TXImage> painted = NewPaintedImage();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(painted.get());
    const TXRefPtr<TXImage> selected = NewPaintedImage();
    EXPECT_EQ(surface->SelectImage(selected), nullptr);
    EXPECT_FALSE(PixelsOf(*painted).paintingActive());
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*selected));
    EXPECT_EQ(HintsOf(*surface), FreshHints() | kAntialiasing) << "no image was selected before";
}

TEST_F(SelectImageTest, OfImagesThatCannotBePaintedOnWaits)
{
    const TXRefPtr<TXImage> absent = TestEngine().NewImage();
    const TXRefPtr<TXImage> indexed = TestEngine().NewImage();
    indexed->CreateImage(20, 20, TXImage::Format_Indexed8);
    const TXRefPtr<TXImage> empty = TestEngine().NewImage();
    empty->CreateImage(0, 0, TXImage::Format_ARGB32);
    const TXRefPtr<TXImage> unknown = TestEngine().NewImage();
    unknown->CreateImage(20, 20, static_cast<TXImage::Format>(12345));
    for (const TXRefPtr<TXImage>& image : {absent, indexed, empty, unknown})
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        const TXRefPtr<TXImage> old = surface->GetImage();
        const TXRefPtr<TXPen> pen = NewPen(TXColor(9, 8, 7, 200), 3.5);
        surface->SelectPen(pen);
        EXPECT_EQ(surface->SelectImage(image), old);
        EXPECT_EQ(surface->GetImage(), image);
        EXPECT_TRUE(!surface->GetInteralObject() || !PainterOf(*surface).isActive());
        EXPECT_FALSE(PixelsOf(*old).paintingActive());
        surface->Line(0, 0, 20, 20);
        surface->Rectangle(0, 0, 20, 20);
        // Once it has pixels of a kind that can be painted on, painting begins.
        image->CreateImage(20, 20, TXImage::Format_ARGB32_Premultiplied);
        PixelsOf(*image).fill(Qt::white);
        EXPECT_TRUE(surface->fillRect(TXRect(0, 20, 0, 20), TXColor::RED_));
        EXPECT_EQ(PixelsOf(*image).pixel(10, 10), qRgb(255, 0, 0));
        EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*pen));
    }
}

TEST_F(SelectImageTest, WhileAttachedConcernsTheOwnPainterOnly)
{
    QImage canvas(30, 30, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter outside(&canvas);
    outside.setPen(QPen(Qt::green, 4.0));
    outside.setBrush(Qt::yellow);
    outside.translate(2, 3);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> first = surface->GetImage();
    const TXRefPtr<TXImage> second = NewPaintedImage();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(9, 8, 7, 200), 3.5);
    surface->SelectPen(pen);
    surface->Attach(&outside);
    const PainterState before(outside);
    EXPECT_EQ(surface->SelectImage(second), first);
    EXPECT_EQ(surface->GetInteralObject(), &outside);
    EXPECT_TRUE(outside.isActive());
    EXPECT_EQ(outside.device(), &canvas);
    EXPECT_TRUE(SameState(PainterState(outside), before));
    surface->Detach();
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*second));
    EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*pen));
    EXPECT_FALSE(PixelsOf(*first).paintingActive());
}

} // namespace
