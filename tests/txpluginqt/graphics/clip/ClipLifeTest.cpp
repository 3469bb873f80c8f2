// How long a clip lasts: it belongs to the painter.
#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "ClipRegion.h"

using namespace TZObjects;

namespace
{

const Rings kRegion = Box(10, 8, 40, 30);

class ClipLifeTest : public SurfaceTest
{
protected:
    static bool IsClipped(TXGraphics& surface) { return PainterOf(surface).hasClipping(); }

    /// Success when the surface draws on all of its image.
    static ::testing::AssertionResult DrawsEverywhere(TXGraphics& surface)
    {
        QImage& pixels = PixelsOf(*surface.GetImage());
        QImage expected = pixels.copy();
        expected.fill(QColor(20, 180, 90));
        if (!surface.fillRect(TXRect(-500, 500, -500, 500), TXColor(20, 180, 90, 255)))
            return ::testing::AssertionFailure() << "nothing was drawn";
        return SamePixels(pixels, expected);
    }
};

TEST_F(ClipLifeTest, IsSavedAndRestoredWithThePainter)
{
    Twins twins;
    const Rings other = Box(60, 50, 140, 100);
    Clip(twins.Surface(), kRegion);
    twins.Surface().Save();
    Clip(twins.Surface(), other, TXGraphics::stGradientParams());
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(other));
    twins.Surface().Restore();
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(kRegion));
    twins.Surface().Save();
    twins.Surface().RestoreClipRegion();
    EXPECT_FALSE(IsClipped(twins.Surface()));
    twins.Surface().Restore();
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(kRegion));

    twins.Wipe();
    twins.Surface().fillRect(TXRect(-500, 500, -500, 500), TXColor(20, 180, 90, 255));
    twins.Direct().fillRect(10, 8, 30, 22, QColor(20, 180, 90));
    EXPECT_TRUE(twins.Same());
}

TEST_F(ClipLifeTest, IsSetInTheUnitsOfTheOrigin)
{
    Twins twins;
    twins.Surface().SetWindowOrg(30, 20);
    Clip(twins.Surface(), kRegion, true, TXColor(200, 10, 90, 120));
    twins.Direct().fillRect(40, 28, 30, 22, QColor(200, 10, 90, 120));
    EXPECT_TRUE(twins.Same());
    // What is clipped stays where it is when the origin moves on.
    twins.Surface().SetWindowOrg(-50, 5);
    twins.Surface().fillRect(TXRect(-500, 500, -500, 500), TXColor(20, 180, 90, 150));
    twins.Direct().fillRect(40, 28, 30, 22, QColor(20, 180, 90, 150));
    EXPECT_TRUE(twins.Same());
}

TEST_F(ClipLifeTest, IsDroppedWithAnotherImage)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> first = surface->GetImage();
    Clip(*surface, kRegion);
    EXPECT_EQ(surface->SelectImage(first), nullptr);
    EXPECT_TRUE(IsClipped(*surface)) << "selecting the same image changes nothing";
    surface->SelectImage(NewPaintedImage());
    EXPECT_FALSE(IsClipped(*surface));
    EXPECT_TRUE(DrawsEverywhere(*surface));
    surface->SelectImage(first);
    EXPECT_FALSE(IsClipped(*surface));
    EXPECT_TRUE(DrawsEverywhere(*surface));
    Clip(*surface, kRegion, TXGraphics::stGradientParams());
    EXPECT_TRUE(IsClipped(*surface));
    surface->SelectImage(nullptr);
    surface->SelectImage(first);
    EXPECT_TRUE(DrawsEverywhere(*surface));
}

TEST_F(ClipLifeTest, IsDroppedWhenTheImageIsMadeAnew)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    Clip(*surface, kRegion);
    surface->GetImage()->CreateImage(70, 50, TXImage::Format_ARGB32_Premultiplied);
    EXPECT_FALSE(IsClipped(*surface));
    EXPECT_TRUE(DrawsEverywhere(*surface));
    Clip(*surface, kRegion);
    ASSERT_TRUE(surface->CreateCompatibleGraphics(80, 60));
    EXPECT_FALSE(IsClipped(*surface));
    EXPECT_TRUE(DrawsEverywhere(*surface));
}

TEST_F(ClipLifeTest, OfASurfaceOverAnImageItDoesNotSelect)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    QImage expected = PixelsOf(*image).copy();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    Clip(*surface, kRegion, true, TXColor(200, 10, 90, 120));
    QPainter direct(&expected);
    direct.fillRect(10, 8, 30, 22, QColor(200, 10, 90, 120));
    EXPECT_TRUE(SamePixels(PixelsOf(*image), expected));
    surface->RestoreClipRegion();
    EXPECT_FALSE(IsClipped(*surface));
}

TEST_F(ClipLifeTest, BelongsToTheAttachedPainter)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    QPainter& own = PainterOf(*surface);
    Clip(*surface, kRegion);
    const PainterState before(own);
    const QImage pixels = PixelsOf(*surface->GetImage()).copy();

    Twins outside;
    surface->Attach(&outside.SurfacePainter());
    const Rings other = Box(20.5, 30, 100, 90);
    Clip(*surface, other, true, TXColor(200, 10, 90, 120));
    ClipDirectly(outside.Direct(), other, true, TXColor(200, 10, 90, 120));
    EXPECT_TRUE(outside.SameWithState());
    surface->RestoreClipRegion();
    outside.Direct().setClipping(false);
    EXPECT_TRUE(outside.SameWithState());
    Clip(*surface, other, TXGraphics::stGradientParams());
    ClipDirectly(outside.Direct(), other, TXGraphics::stGradientParams());
    EXPECT_TRUE(outside.SameWithState());

    surface->Detach();
    EXPECT_TRUE(SameState(PainterState(own), before));
    EXPECT_TRUE(SamePixels(PixelsOf(*surface->GetImage()), pixels));
    surface->RestoreClipRegion();
    EXPECT_FALSE(own.hasClipping());
    EXPECT_TRUE(outside.SameWithState());
}

TEST_F(ClipLifeTest, LiftingItWithoutOneChangesNothing)
{
    Twins twins;
    twins.Surface().RestoreClipRegion();
    twins.Surface().RestoreClipRegion();
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_FALSE(twins.SurfacePainter().hasClipping());
}

TEST_F(ClipLifeTest, LiftingItTwiceAndSettingItAgain)
{
    Twins twins;
    Clip(twins.Surface(), kRegion);
    twins.Surface().RestoreClipRegion();
    twins.Surface().RestoreClipRegion();
    EXPECT_TRUE(twins.SameWithState());
    const Rings other = Box(20, 30, 100, 90);
    Clip(twins.Surface(), other, true, TXColor(200, 10, 90, 120));
    twins.Direct().setClipPath(RoundedPath(other));
    twins.Direct().fillRect(20, 30, 80, 60, QColor(200, 10, 90, 120));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(ClipLifeTest, LiftingItSwitchesClippingOffAndKeepsTheRegion)
{
    Twins twins;
    Clip(twins.Surface(), kRegion);
    twins.Surface().RestoreClipRegion();
    EXPECT_FALSE(twins.SurfacePainter().hasClipping());
    twins.SurfacePainter().setClipping(true);
    EXPECT_TRUE(twins.SurfacePainter().hasClipping());
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(kRegion));
}

} // namespace
