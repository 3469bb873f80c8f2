// How long the clip of labels lasts: it belongs to the cairo context over the selected image.
#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "ContextSpy.h"
#include "TextTwins.h"

using namespace TZObjects;

namespace
{

const Rings kRegion = Box(15.5, 10, 70, 45);

class CairoClipLifeTest : public SurfaceTest
{
protected:
    CairoClipLifeTest() : surface(TestEngine().NewGraphics())
    {
        surface->SelectFont(::MakeFont(Look()));
        surface->SelectPen(::NewPen(Look()));
        surface->SelectImage(NewPaintedImage(100, 76));
        surface->EnableCairoDrawing(true);
    }

    /// Success when the surface draws a label as a cairo context does that has come about so and is clipped so.
    ::testing::AssertionResult DrawsLabel(const Rings* clip, DirectCairo::Origin origin = DirectCairo::Switched)
    {
        TXImage& image = *surface->GetImage();
        image.Fill(TXColor::WHITE_);
        QImage expected = PixelsOf(image).copy();
        {
            DirectCairo direct(expected, origin);
            direct.Select(Look());
            if (clip)
                ClipDirectly(direct, *clip);
            DrawDirectly(direct, Entry::StringAt, WideLabel(), Look());
        }
        if (InkedPixels(expected) == 0)
            return ::testing::AssertionFailure() << "nothing was expected to be drawn";
        if (!::Draw(*surface, Entry::StringAt, WideLabel()))
            return ::testing::AssertionFailure() << "the label was refused";
        return SamePixels(PixelsOf(image), expected);
    }

    bool ShapesAreClipped() { return PainterOf(*surface).hasClipping(); }

    TXRefPtr<TXGraphics> surface;
};

TEST_F(CairoClipLifeTest, IsSetAndLifted)
{
    EXPECT_TRUE(DrawsLabel(nullptr));
    Clip(*surface, kRegion);
    EXPECT_TRUE(DrawsLabel(&kRegion));
    EXPECT_TRUE(DrawsLabel(&kRegion)) << "a label must not lift the clip";
    surface->RestoreClipRegion();
    EXPECT_TRUE(DrawsLabel(nullptr));
    EXPECT_FALSE(ShapesAreClipped());
    surface->RestoreClipRegion();
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, EndsWithTheContextThatTheSwitchDestroys)
{
    Clip(*surface, kRegion);
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(DrawsLabel(&kRegion));
    surface->EnableCairoDrawing(false);
    EXPECT_TRUE(ShapesAreClipped());
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(ShapesAreClipped()) << "the painter is not concerned";
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, DoesNotComeAboutWhileCairoDrawingIsOff)
{
    surface->EnableCairoDrawing(false);
    Clip(*surface, kRegion, true, TXColor::RED_);
    EXPECT_TRUE(ShapesAreClipped());
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(ShapesAreClipped());
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, EndsWhenAnotherImageIsSelected)
{
    const TXRefPtr<TXImage> first = surface->GetImage();
    Clip(*surface, kRegion);
    surface->SelectImage(first);
    EXPECT_TRUE(DrawsLabel(&kRegion)) << "selecting the same image changes nothing";
    surface->SelectImage(NewPaintedImage(100, 76));
    EXPECT_TRUE(DrawsLabel(nullptr, DirectCairo::Selected));
    EXPECT_FALSE(ShapesAreClipped());
    surface->SelectImage(first);
    EXPECT_TRUE(DrawsLabel(nullptr, DirectCairo::Selected));
}

TEST_F(CairoClipLifeTest, EndsWhenTheImageIsMadeAnew)
{
    Clip(*surface, kRegion);
    surface->GetImage()->CreateImage(90, 70, TXImage::Format_ARGB32_Premultiplied);
    EXPECT_TRUE(DrawsLabel(nullptr, DirectCairo::Selected));
    EXPECT_FALSE(ShapesAreClipped());
    Clip(*surface, kRegion);
    EXPECT_TRUE(DrawsLabel(&kRegion, DirectCairo::Selected));
    ASSERT_TRUE(surface->CreateCompatibleGraphics(100, 76));
    EXPECT_TRUE(DrawsLabel(nullptr, DirectCairo::Selected));
    EXPECT_FALSE(ShapesAreClipped());
}

/// Puts the surface's context, which was clipped last, into an error that it never leaves.
void BreakContext()
{
    ASSERT_EQ(cairo_status(LastClippedContext()), CAIRO_STATUS_SUCCESS);
    cairo_restore(LastClippedContext());
    ASSERT_EQ(cairo_status(LastClippedContext()), CAIRO_STATUS_INVALID_RESTORE);
}

TEST_F(CairoClipLifeTest, EndsWithAContextThatHasFallenIntoAnError)
{
    Clip(*surface, kRegion);
    BreakContext();
    EXPECT_TRUE(DrawsLabel(nullptr));

    // The next clip is that of the context made in its place.
    Clip(*surface, kRegion);
    BreakContext();
    const Rings other = Box(5, 20, 95, 70);
    Clip(*surface, other);
    EXPECT_EQ(cairo_status(LastClippedContext()), CAIRO_STATUS_SUCCESS);
    EXPECT_TRUE(DrawsLabel(&other));

    Clip(*surface, kRegion);
    BreakContext();
    surface->RestoreClipRegion();
    EXPECT_FALSE(ShapesAreClipped());
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, IsNotSavedWithThePainter)
{
    surface->Save();
    Clip(*surface, kRegion);
    surface->Restore();
    EXPECT_FALSE(ShapesAreClipped());
    EXPECT_TRUE(DrawsLabel(&kRegion));
    surface->Save();
    surface->RestoreClipRegion();
    surface->Restore();
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, StaysOverTheOwnImageWhileAPainterIsAttached)
{
    Twins outside;
    surface->Attach(&outside.SurfacePainter());
    Clip(*surface, kRegion, true, TXColor(200, 10, 90, 120));
    ClipDirectly(outside.Direct(), kRegion, true, TXColor(200, 10, 90, 120));
    EXPECT_TRUE(outside.SameWithState());
    EXPECT_TRUE(DrawsLabel(&kRegion));
    surface->Detach();
    EXPECT_FALSE(ShapesAreClipped());
    EXPECT_TRUE(DrawsLabel(&kRegion));

    surface->Attach(&outside.SurfacePainter());
    surface->RestoreClipRegion();
    outside.Direct().setClipping(false);
    EXPECT_TRUE(outside.SameWithState());
    EXPECT_TRUE(DrawsLabel(nullptr));
}

TEST_F(CairoClipLifeTest, IsSetAndLiftedWhileAnIdlePainterIsAttached)
{
    QPainter idle;
    surface->Attach(&idle);
    Clip(*surface, kRegion, true, TXColor::RED_);
    EXPECT_TRUE(DrawsLabel(&kRegion));
    Clip(*surface, Box(40, 20, 50, 30), TXGraphics::stGradientParams());
    EXPECT_TRUE(DrawsLabel(&kRegion));
    surface->RestoreClipRegion();
    EXPECT_TRUE(DrawsLabel(nullptr));
    surface->Detach();
    EXPECT_FALSE(ShapesAreClipped());
}

TEST_F(CairoClipLifeTest, StaysAsItIsWithoutAPainter)
{
    surface->Delete();
    Clip(*surface, kRegion, true, TXColor::RED_);
    EXPECT_TRUE(DrawsLabel(nullptr));

    const TXRefPtr<TXImage> image = surface->GetImage();
    ASSERT_TRUE(surface->CreateCompatibleGraphics(100, 76));
    Clip(*surface, kRegion);
    surface->Delete();
    surface->RestoreClipRegion();
    EXPECT_TRUE(DrawsLabel(&kRegion, DirectCairo::Selected));
}

TEST_F(CairoClipLifeTest, OverPixelsThatCairoCannotDrawOnConcernsShapesOnly)
{
    for (const TXImage::Format format : {TXImage::Format_RGB16, TXImage::Format_RGB888})
    {
        Twins twins(100, 76, format);
        twins.Surface().EnableCairoDrawing(true);
        Clip(twins.Surface(), kRegion, true, TXColor(200, 10, 90, 120));
        ClipDirectly(twins.Direct(), kRegion, true, TXColor(200, 10, 90, 120));
        EXPECT_TRUE(twins.SameWithState());
        twins.Surface().RestoreClipRegion();
        twins.Direct().setClipping(false);
        EXPECT_TRUE(twins.SameWithState());
    }
}

TEST_F(CairoClipLifeTest, SettingAndLiftingItKeepTheContext)
{
    // A context made anew would take the font as it is now.
    surface->GetFont()->SetFontBold(true);
    Clip(*surface, kRegion, true, TXColor::RED_);
    EXPECT_TRUE(DrawsLabel(&kRegion));
    surface->RestoreClipRegion();
    EXPECT_TRUE(DrawsLabel(nullptr));
    const QImage regular = PixelsOf(*surface->GetImage()).copy();
    surface->EnableCairoDrawing(false);
    surface->EnableCairoDrawing(true);
    surface->GetImage()->Fill(TXColor::WHITE_);
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, WideLabel()));
    EXPECT_FALSE(PixelsOf(*surface->GetImage()) == regular) << "the weight does not show";
}

} // namespace
