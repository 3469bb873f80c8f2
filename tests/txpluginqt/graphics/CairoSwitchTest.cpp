#include <tests/support/ImageCompare.h>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

/// The switch between the two ways of drawing labels. A label shows which way was taken: through cairo it needs an
/// image of 32-bit pixels, and its glyphs differ from Qt's.
class CairoSwitchTest : public SurfaceTest
{
protected:
    static bool DrawLabel(TXGraphics& surface)
    {
        return surface.DrawString(3.0, 3.0, 0.0, 0.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                  TXString("Wax"), 0.0, 1.0);
    }

    /// The image of the surface, cleared, with a label drawn.
    static QImage Label(TXGraphics& surface)
    {
        EXPECT_TRUE(surface.ClearWithColor(TXColor::WHITE_));
        EXPECT_TRUE(DrawLabel(surface));
        return PixelsOf(*surface.GetImage()).copy();
    }

    static TXRefPtr<TXGraphics> NewLabelSurface()
    {
        const TXRefPtr<TXGraphics> surface = NewSurfaceWithoutImage();
        surface->SelectImage(NewPaintedImage(100, 50));
        return surface;
    }

    static TXRefPtr<TXGraphics> NewSurfaceWithoutImage()
    {
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectPen(NewPen(TXColor(200, 0, 0, 255), 1.0));
        const TXRefPtr<TXFont> font = NewFont(27);
        font->SetFontName(TXString("DejaVu Sans"));
        surface->SelectFont(font);
        return surface;
    }
};

TEST_F(CairoSwitchTest, AnswersWhatWasSet)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    EXPECT_FALSE(surface->CairoDrawingEnabled());
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(surface->CairoDrawingEnabled());
    surface->EnableCairoDrawing(true);
    EXPECT_TRUE(surface->CairoDrawingEnabled());
    surface->EnableCairoDrawing(false);
    EXPECT_FALSE(surface->CairoDrawingEnabled());
}

TEST_F(CairoSwitchTest, ChoosesTheWayLabelsAreDrawn)
{
    const TXRefPtr<TXGraphics> surface = NewLabelSurface();
    // The first use of a face can change its later outlines.
    Label(*surface);
    const QImage throughQt = Label(*surface);
    surface->EnableCairoDrawing(true);
    const QImage throughCairo = Label(*surface);
    EXPECT_GT(InkedPixels(throughQt), 50);
    EXPECT_GT(InkedPixels(throughCairo), 50);
    EXPECT_NE(throughQt, throughCairo);
    surface->EnableCairoDrawing(false);
    EXPECT_EQ(Label(*surface), throughQt);
    surface->EnableCairoDrawing(true);
    EXPECT_EQ(Label(*surface), throughCairo);
}

TEST_F(CairoSwitchTest, WithoutAnImageDrawsNoLabelUntilThereIsOne)
{
    const TXRefPtr<TXGraphics> surface = NewSurfaceWithoutImage();
    surface->EnableCairoDrawing(true);
    EXPECT_FALSE(DrawLabel(*surface));
    surface->SelectImage(NewPaintedImage(100, 50));
    EXPECT_GT(InkedPixels(Label(*surface)), 20);
    EXPECT_TRUE(surface->SelectImage(nullptr));
    EXPECT_FALSE(DrawLabel(*surface));
    ASSERT_TRUE(surface->CreateCompatibleGraphics(80, 60));
    EXPECT_GT(InkedPixels(Label(*surface)), 20);
}

TEST_F(CairoSwitchTest, LabelsGoToTheImageSelectedAtThatMoment)
{
    const TXRefPtr<TXGraphics> surface = NewLabelSurface();
    const TXRefPtr<TXImage> first = surface->GetImage();
    surface->EnableCairoDrawing(true);
    const QImage label = Label(*surface);
    surface->SelectImage(NewPaintedImage(100, 50));
    PixelsOf(*first).fill(Qt::blue);
    const QImage untouched = PixelsOf(*first).copy();
    EXPECT_GT(InkedPixels(Label(*surface)), 50);
    EXPECT_EQ(PixelsOf(*first), untouched);
    surface->EnableCairoDrawing(false);
    surface->SelectImage(first);
    surface->EnableCairoDrawing(true);
    EXPECT_EQ(Label(*surface), label);
}

TEST_F(CairoSwitchTest, FollowsAnImageThatIsMadeAnew)
{
    const TXRefPtr<TXGraphics> surface = NewLabelSurface();
    surface->EnableCairoDrawing(true);
    const TXRefPtr<TXImage> image = surface->GetImage();
    image->Delete();
    EXPECT_FALSE(DrawLabel(*surface));
    image->CreateImage(100, 50, TXImage::Format_ARGB32_Premultiplied);
    EXPECT_GT(InkedPixels(Label(*surface)), 50);
    image->CreateImage(120, 70, TXImage::Format_ARGB32_Premultiplied);
    EXPECT_GT(InkedPixels(Label(*surface)), 50);
    ASSERT_TRUE(surface->CreateCompatibleGraphics(90, 60));
    EXPECT_GT(InkedPixels(Label(*surface)), 50);
}

TEST_F(CairoSwitchTest, FollowsTheSelectedFont)
{
    const TXRefPtr<TXGraphics> surface = NewLabelSurface();
    surface->EnableCairoDrawing(true);
    const QImage plain = Label(*surface);
    const TXRefPtr<TXFont> bold = NewFont(27);
    bold->SetFontName(TXString("DejaVu Sans"));
    bold->SetFontBold(true);
    const TXRefPtr<TXFont> old = surface->SelectFont(bold);
    const QImage heavy = Label(*surface);
    EXPECT_NE(heavy, plain);
    surface->SelectFont(old);
    EXPECT_EQ(Label(*surface), plain);
    surface->EnableCairoDrawing(false);
    surface->SelectFont(bold);
    surface->EnableCairoDrawing(true);
    EXPECT_EQ(Label(*surface), heavy) << "the font selected before is taken when cairo drawing is switched on";
}

TEST_F(CairoSwitchTest, ImagesOfOtherPixelsAreLeftAlone)
{
    for (const TXImage::Format format : {TXImage::Format_RGB16, TXImage::Format_RGB888, TXImage::Format_Grayscale8})
    {
        const TXRefPtr<TXGraphics> surface = NewSurfaceWithoutImage();
        surface->SelectImage(NewPaintedImage(100, 50, format));
        const QImage before = PixelsOf(*surface->GetImage()).copy();
        surface->EnableCairoDrawing(true);
        EXPECT_TRUE(surface->CairoDrawingEnabled());
        EXPECT_FALSE(DrawLabel(*surface));
        EXPECT_EQ(PixelsOf(*surface->GetImage()), before);
    }
}

TEST_F(CairoSwitchTest, SwitchingChangesNothingForShapes)
{
    const TXRefPtr<TXGraphics> plain = NewPaintingSurface();
    const TXRefPtr<TXGraphics> switched = NewPaintingSurface();
    switched->EnableCairoDrawing(true);
    for (const TXRefPtr<TXGraphics>& surface : {plain, switched})
    {
        surface->Rectangle(5, 5, 30, 20);
        surface->Line(0, 0, 50, 30);
    }
    EXPECT_EQ(PixelsOf(*switched->GetImage()), PixelsOf(*plain->GetImage()));
}

} // namespace
