#include "ShapeCalls.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

/// Surfaces that have nothing to draw on.
class NoTargetTest : public SurfaceTest
{
};

TEST_F(NoTargetTest, WithoutAPainterEveryShapeIsRefused)
{
    const TXRefPtr<TXGraphics> never = TestEngine().NewGraphics(nullptr);
    const TXRefPtr<TXGraphics> deleted = NewPaintingSurface();
    const TXRefPtr<TXImage> image = deleted->GetImage();
    const QImage before = PixelsOf(*image).copy();
    deleted->Delete();
    for (const TXRefPtr<TXGraphics>& surface : {never, deleted})
    {
        for (const ShapeCall& call : ShapeCalls())
            EXPECT_FALSE(call.draw(*surface)) << call.name;
        DrawEverything(*surface);
        ChangeEverything(*surface);
        EXPECT_EQ(surface->GetInteralObject(), nullptr);
    }
    EXPECT_EQ(PixelsOf(*image), before);
}

TEST_F(NoTargetTest, WithAnIdlePainterShapesGoNowhereQuietly)
{
    const TXRefPtr<TXGraphics> fresh = TestEngine().NewGraphics();
    const TXRefPtr<TXGraphics> dropped = NewPaintingSurface();
    const TXRefPtr<TXImage> image = dropped->SelectImage(nullptr);
    const QImage before = PixelsOf(*image).copy();
    for (const TXRefPtr<TXGraphics>& surface : {fresh, dropped})
    {
        for (const ShapeCall& call : ShapeCalls())
            EXPECT_TRUE(call.draw(*surface)) << call.name;
        DrawEverything(*surface);
        ChangeEverything(*surface);
        EXPECT_FALSE(PainterOf(*surface).isActive());
    }
    EXPECT_EQ(PixelsOf(*image), before);
}

TEST_F(NoTargetTest, BadArgumentsAreRefusedThereAsWell)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    const TXPoint point(1, 1);
    const int count = 1;
    EXPECT_FALSE(surface->Polyline(nullptr, 1));
    EXPECT_FALSE(surface->Polyline(&point, 0));
    EXPECT_FALSE(surface->Polygon(&point, 1));
    EXPECT_FALSE(surface->PolyPolygon(nullptr, &count, 1));
    EXPECT_FALSE(surface->FillRect(TXRect(0, 9, 0, 9), nullptr));
}

TEST_F(NoTargetTest, WithAnIdlePainterAttachedNothingIsPrinted)
{
    QPainter idle;
    for (const TXRefPtr<TXGraphics>& surface : {NewPaintingSurface(), TXRefPtr<TXGraphics>(TestEngine().NewGraphics()),
                                                TXRefPtr<TXGraphics>(TestEngine().NewGraphics(nullptr))})
    {
        surface->Attach(&idle);
        DrawEverything(*surface);
        ChangeEverything(*surface);
        const TXRefPtr<TXGraphics> source = NewPaintingSurface();
        source->BiltTo(surface.get(), 3, 4);
        surface->Detach();
    }
}

TEST_F(NoTargetTest, WithAnAttachedPainterThatEndsNothingIsPrinted)
{
    QImage canvas(20, 20, QImage::Format_ARGB32_Premultiplied);
    QPainter outside(&canvas);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->Attach(&outside);
    surface->Save();
    surface->Restore();
    outside.end();
    DrawEverything(*surface);
    ChangeEverything(*surface);
    surface->Detach();
    EXPECT_TRUE(PainterOf(*surface).isActive());
}

TEST_F(NoTargetTest, NullPointersAreRefused)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXGraphics::stGradientParams gradient;
    EXPECT_FALSE(surface->Polyline(nullptr, 5));
    EXPECT_FALSE(surface->PolyPolyline(nullptr, nullptr, 5));
    EXPECT_FALSE(surface->Polygon(nullptr, 5));
    EXPECT_FALSE(surface->Polygon(nullptr, 5, gradient));
    EXPECT_FALSE(surface->PolyPolygon(nullptr, nullptr, 5));
    EXPECT_FALSE(surface->PolyPolygon(nullptr, nullptr, 5, gradient));
    EXPECT_FALSE(surface->FillRect(TXRect(0, 9, 0, 9), nullptr));
    EXPECT_FALSE(surface->BiltTo(nullptr, 0, 0));
    surface->Curve(nullptr, 5);
    surface->SelectGradient(nullptr);
    surface->Attach(nullptr);
    surface->DPtoLP(nullptr, 5);
    surface->LPtoDP(nullptr, 5);
}

} // namespace
