#include <climits>
#include <utility>

#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

TXGraphicsEngineManager& Manager() { return *TXGraphicsEngineManager::instance(""); }

class SurfaceLifecycleTest : public SurfaceTest
{
};

TEST_F(SurfaceLifecycleTest, OverAnImagePaintsOnItWithoutSelectingIt)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    ASSERT_NE(surface->GetInteralObject(), nullptr);
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*image));
    EXPECT_TRUE(PainterOf(*surface).isActive());
    EXPECT_EQ(PainterOf(*surface).renderHints(), FreshHints());
    EXPECT_EQ(PainterOf(*surface).pen(), QPen());
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush());
    EXPECT_EQ(surface->GetImage(), nullptr);
    EXPECT_EQ(surface->GetPen(), nullptr);
    EXPECT_EQ(surface->GetBrush(), nullptr);
    EXPECT_EQ(surface->GetFont(), nullptr);
    EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor(1, 2, 3, 255)));
    EXPECT_EQ(PixelsOf(*image).pixel(30, 20), qRgb(1, 2, 3));
    EXPECT_FALSE(surface->ClearWithColor(TXColor::RED_));
    EXPECT_EQ(PixelsOf(*image).pixel(30, 20), qRgb(1, 2, 3));
}

TEST_F(SurfaceLifecycleTest, OverAnImageHoldsNoReferenceToIt)
{
    TXImage* const image = TestEngine().NewImage();
    image->AddRef();
    image->CreateImage(10, 10, TXImage::Format_ARGB32);
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image);
    EXPECT_TRUE(image->Release()) << "the surface holds the image";
    surface->Line(0, 0, 9, 9);
}

TEST_F(SurfaceLifecycleTest, OverNoImageHasNoPainter)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
    EXPECT_EQ(surface->GetPen(), nullptr);
    EXPECT_EQ(surface->GetBrush(), nullptr);
    EXPECT_EQ(surface->GetFont(), nullptr);
    EXPECT_EQ(surface->GetImage(), nullptr);
}

TEST_F(SurfaceLifecycleTest, WithoutTargetHasDefaultResourcesAndAnIdlePainter)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    ASSERT_NE(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(PainterOf(*surface).isActive());
    EXPECT_EQ(surface->GetImage(), nullptr);

    const TXRefPtr<TXPen> pen = surface->GetPen();
    ASSERT_TRUE(pen && pen->GetInternalObject());
    EXPECT_EQ(pen->GetPenStyle(), TXPen::SolidLine);
    EXPECT_EQ(pen->GetWidth(), 1.0);
    EXPECT_EQ(pen->GetColor().GetColor(), 0xff000000u);

    const TXRefPtr<TXBrush> brush = surface->GetBrush();
    ASSERT_TRUE(brush && brush->GetInternalObject());
    EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush);
    EXPECT_EQ(brush->GetColor().GetColor(), 0x00ffffffu);

    const TXRefPtr<TXFont> font = surface->GetFont();
    ASSERT_TRUE(font && font->GetInternalObject());
    EXPECT_EQ(FontOf(*font).family(), QFont().family());
}

TEST_F(SurfaceLifecycleTest, SurfacesHaveResourcesOfTheirOwn)
{
    const TXRefPtr<TXGraphics> one = TestEngine().NewGraphics();
    const TXRefPtr<TXGraphics> other = TestEngine().NewGraphics();
    EXPECT_NE(one->GetPen(), other->GetPen());
    EXPECT_NE(one->GetBrush(), other->GetBrush());
    EXPECT_NE(one->GetFont(), other->GetFont());
}

TEST_F(SurfaceLifecycleTest, DefaultsShowInTheFirstDrawing)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(60, 40);
    EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*surface->GetPen()));
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush(QColor(255, 255, 255, 0)));
    EXPECT_EQ(PainterOf(*surface).font(), FontOf(*surface->GetFont()));
}

TEST_F(SurfaceLifecycleTest, DestructionReleasesWhatWasSelected)
{
    const TXRefPtr<TXPen> pen = NewPen(TXColor::RED_, 2.0);
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor::RED_);
    const TXRefPtr<TXFont> font = NewFont(12);
    const TXRefPtr<TXImage> image = NewPaintedImage();
    {
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectPen(pen);
        surface->SelectBrush(brush);
        surface->SelectFont(font);
        surface->SelectImage(image);
        surface->MoveTo(1, 1);
    }
    // Each is held here alone: taking a second reference and dropping it does not destroy, dropping both does.
    TXRefBase* const held[] = {pen.get(), brush.get(), font.get(), image.get()};
    for (TXRefBase* const resource : held)
    {
        resource->AddRef();
        EXPECT_FALSE(resource->Release());
    }
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
}

TEST_F(SurfaceLifecycleTest, HoldsWhatIsSelected)
{
    TXPen* const pen = TestEngine().NewPen();
    pen->Create();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->SelectPen(TXRefPtr<TXPen>(pen));
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetPen()->GetWidth(), 1.0);
}

TEST_F(SurfaceLifecycleTest, DestructionWhileAttachedLeavesTheOutsidePainterGoing)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    QImage canvas(20, 20, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter outside(&canvas);
    {
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectImage(image);
        surface->Attach(&outside);
    }
    EXPECT_TRUE(outside.isActive());
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
    outside.fillRect(0, 0, 20, 20, Qt::red);
    EXPECT_EQ(canvas.pixel(10, 10), qRgb(255, 0, 0));
}

TEST_F(SurfaceLifecycleTest, DeleteEndsPaintingAndKeepsTheSelection)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    const TXRefPtr<TXPen> pen = surface->GetPen();
    const TXRefPtr<TXBrush> brush = surface->GetBrush();
    const TXRefPtr<TXFont> font = surface->GetFont();
    EXPECT_TRUE(surface->Delete());
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
    EXPECT_EQ(surface->GetImage(), image);
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(surface->GetFont(), font);
    EXPECT_TRUE(surface->Delete());
    EXPECT_EQ(surface->SelectImage(NewPaintedImage()), nullptr) << "only CreateCompatibleGraphics brings it back";
    EXPECT_EQ(surface->GetImage(), image);
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsMakesATransparentWhiteImage)
{
    for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        Manager().SetDefaultImageFormat(format);
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        ASSERT_TRUE(surface->CreateCompatibleGraphics(30, 20));
        ASSERT_TRUE(surface->GetImage());
        const QImage& pixels = PixelsOf(*surface->GetImage());
        EXPECT_EQ(pixels.size(), QSize(30, 20));
        EXPECT_EQ(static_cast<int>(pixels.format()), format);
        QImage expected(30, 20, static_cast<QImage::Format>(static_cast<int>(format)));
        expected.fill(QColor(255, 255, 255, 0));
        EXPECT_EQ(pixels, expected);
        EXPECT_TRUE(PainterOf(*surface).isActive());
        EXPECT_EQ(PainterOf(*surface).device(), &pixels);
        EXPECT_TRUE(surface->fillRect(TXRect(5, 10, 5, 10), TXColor::RED_));
        EXPECT_EQ(pixels.pixel(7, 7), qRgb(255, 0, 0));
    }
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsSetsHintsWhereTheManagerAntialiases)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    ASSERT_TRUE(surface->CreateCompatibleGraphics(30, 20));
    EXPECT_EQ(PainterOf(*surface).renderHints(), FreshHints() | kAntialiasing | QPainter::SmoothPixmapTransform);
    Manager().EnableAntialiasing(false);
    ASSERT_TRUE(surface->CreateCompatibleGraphics(30, 20));
    EXPECT_EQ(PainterOf(*surface).renderHints(), FreshHints());
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsAppliesTheSelectionAgainAndStartsTheRestAnew)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const Resources resources = SelectResources(*surface);
    surface->SetOpacity(0.5);
    surface->SetWindowOrg(3, 4);
    surface->SetCompositionMode(TXGraphics::CompositionMode_Xor);
    PainterOf(*surface).setClipRect(0, 0, 5, 5);
    const TXRefPtr<TXImage> image = surface->GetImage();
    ASSERT_TRUE(surface->CreateCompatibleGraphics(50, 60));
    EXPECT_EQ(surface->GetImage(), image) << "the selected image itself is made afresh";
    EXPECT_EQ(PixelsOf(*image).size(), QSize(50, 60));
    ExpectOnly(resources, *surface);
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsBringsASurfaceBack)
{
    for (const bool withImage : {false, true})
    {
        const TXRefPtr<TXGraphics> surface =
            withImage ? NewPaintingSurface() : TXRefPtr<TXGraphics>(TestEngine().NewGraphics(nullptr));
        surface->Delete();
        ASSERT_TRUE(surface->CreateCompatibleGraphics(8, 9));
        EXPECT_TRUE(surface->fillRect(TXRect(0, 8, 0, 9), TXColor::RED_));
        EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(7, 8), qRgb(255, 0, 0));
    }
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsWithoutPixelsCannotDraw)
{
    for (const auto& [width, height] : {std::pair(0, 0), {-5, 10}, {10, -5}, {INT_MAX, INT_MAX}})
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        surface->CreateCompatibleGraphics(width, height);
        ASSERT_TRUE(surface->GetImage());
        EXPECT_EQ(surface->GetImage()->GetWidth(), 0);
        EXPECT_TRUE(!surface->GetInteralObject() || !PainterOf(*surface).isActive());
        surface->Line(0, 0, 9, 9);
        ASSERT_TRUE(surface->CreateCompatibleGraphics(10, 10));
        EXPECT_TRUE(PainterOf(*surface).isActive());
    }
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsTakesTheNewPixelsOfASharedImage)
{
    for (const bool paintedBefore : {true, false})
    {
        const TXRefPtr<TXGraphics> other = NewPaintingSurface();
        const TXRefPtr<TXImage> image = other->GetImage();
        if (!paintedBefore)
            other->Delete();
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectImage(image);
        if (paintedBefore)
        {
            EXPECT_FALSE(PainterOf(*surface).isActive()) << "one paints at a time";
            other->Save();
        }
        ASSERT_TRUE(surface->CreateCompatibleGraphics(30, 20));
        EXPECT_EQ(surface->GetImage(), image);
        EXPECT_TRUE(PainterOf(*surface).isActive());
        EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*image));
        EXPECT_TRUE(surface->fillRect(TXRect(0, 30, 0, 20), TXColor::RED_));
        EXPECT_EQ(PixelsOf(*image).pixel(15, 10), qRgb(255, 0, 0));
        if (!paintedBefore)
            continue;
        // The other one is as over an image that cannot be painted on: it answers true and draws nothing.
        EXPECT_FALSE(PainterOf(*other).isActive());
        EXPECT_EQ(other->GetImage(), image);
        const QImage before = PixelsOf(*image).copy();
        EXPECT_TRUE(other->Rectangle(2, 2, 20, 10));
        other->Save();
        other->Restore();
        EXPECT_EQ(PixelsOf(*image), before);
        // It gets the image's next pixels when the one that paints has gone.
        surface->SelectImage(nullptr);
        image->CreateImage(30, 20, TXImage::Format_ARGB32);
        EXPECT_TRUE(PainterOf(*other).isActive());
        EXPECT_TRUE(other->fillRect(TXRect(0, 30, 0, 20), TXColor(0, 0, 255, 255)));
        EXPECT_EQ(PixelsOf(*image).pixel(15, 10), qRgb(0, 0, 255));
    }
}

TEST_F(SurfaceLifecycleTest, CreateCompatibleGraphicsOfASharedImageKeepsBothCairoContexts)
{
    Manager().EnableCairoDrawing(true);
    const TXRefPtr<TXGraphics> other = NewPaintingSurface(90, 40);
    const TXRefPtr<TXImage> image = other->GetImage();
    other->SelectFont(NewFont(20));
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->SelectImage(image);
    surface->SelectFont(NewFont(20));
    ASSERT_TRUE(surface->CreateCompatibleGraphics(90, 40));
    for (const TXRefPtr<TXGraphics>& each : {surface, other})
    {
        PixelsOf(*image).fill(Qt::white);
        EXPECT_TRUE(
            each->DrawString(5, 5, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Main", 0.0, 0.0, 1.0));
        EXPECT_GT(InkedPixels(PixelsOf(*image)), 50);
    }
}

TEST_F(SurfaceLifecycleTest, CairoDrawingStartsAsTheManagerSays)
{
    const auto both = []
    {
        return std::pair(TXRefPtr<TXGraphics>(TestEngine().NewGraphics())->CairoDrawingEnabled(),
                         TXRefPtr<TXGraphics>(TestEngine().NewGraphics(nullptr))->CairoDrawingEnabled());
    };
    EXPECT_EQ(both(), std::pair(false, false));
    Manager().EnableCairoDrawing(true);
    EXPECT_EQ(both(), std::pair(true, true));
    Manager().EnableCairoDrawing(false);
    EXPECT_EQ(both(), std::pair(false, false));
}

TEST_F(SurfaceLifecycleTest, SurfacesMakeResources)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    const TXRefPtr<TXPen> pen = surface->NewPen();
    const TXRefPtr<TXBrush> brush = surface->NewBrush();
    const TXRefPtr<TXFont> font = surface->NewFont();
    const TXRefPtr<TXImage> image = surface->NewImage();
    ASSERT_TRUE(pen && brush && font && image);
    EXPECT_EQ(pen->GetInternalObject(), nullptr);
    EXPECT_EQ(brush->GetInternalObject(), nullptr);
    EXPECT_EQ(font->GetInternalObject(), nullptr);
    EXPECT_EQ(image->GetInternalObject(), nullptr);
    EXPECT_NE(TXRefPtr<TXPen>(surface->NewPen()), pen);
    TXPen* const loose = surface->NewPen();
    loose->AddRef();
    EXPECT_TRUE(loose->Release()) << "factories hand out objects without a reference";
}

} // namespace
