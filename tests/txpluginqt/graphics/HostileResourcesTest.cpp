#include <limits>
#include <vector>

#include <QPen>

#include "ShapeCalls.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

class HostileResourcesTest : public SurfaceTest
{
protected:
    /// Draws everything on a surface of its own, antialiased and not, with the pen.
    static void DrawWith(const TXRefPtr<TXPen>& pen)
    {
        for (const bool antialiased : {true, false})
        {
            const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
            surface->EnableAntialiasing(antialiased);
            for (const ShapeCall& call : ShapeCalls())
            {
                // Gradient shapes leave the surface without a pen.
                surface->SelectPen(pen);
                call.draw(*surface);
            }
            DrawEverything(*surface);
        }
    }
};

TEST_F(HostileResourcesTest, PensOfAnyWidth)
{
    for (const double width : {kNaN, kInfinity, -kInfinity, 1e300, 1e12, 1e6, 5e-324, 0.0, -3.0})
        for (const TXPen::PenStyle style : {TXPen::SolidLine, TXPen::DashLine})
        {
            const TXRefPtr<TXPen> pen = TestEngine().NewPen();
            pen->Create(style, width, TXColor::RED_, TXPen::RoundCap, TXPen::MiterJoin);
            DrawWith(pen);
        }
}

TEST_F(HostileResourcesTest, AWidthThatIsNoNumberDrawsAsOne)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SelectPen(NewPen(TXColor::RED_, kNaN));
    EXPECT_EQ(PainterOf(*surface).pen().widthF(), 1.0);
}

TEST_F(HostileResourcesTest, PensOfAnyDashPattern)
{
    const std::vector<std::vector<double>> patterns = {{},
                                                       {0},
                                                       {0, 0},
                                                       {0, 0, 0, 0},
                                                       {-1, -1},
                                                       {-1, 2},
                                                       {3, -3},
                                                       {kNaN, 1},
                                                       {1, kNaN},
                                                       {kInfinity, 1},
                                                       {1, -kInfinity},
                                                       {1e300, 1e300},
                                                       {1e-300, 1e-300},
                                                       {1e-9, 1e-9},
                                                       {1e-4, 0},
                                                       {1, 2, 3},
                                                       std::vector<double>(1000, 0.01)};
    for (const std::vector<double>& pattern : patterns)
        for (const double width : {1.0, 4.5})
        {
            const TXRefPtr<TXPen> pen = NewPen(TXColor::RED_, width);
            pen->SetSteps(pattern);
            DrawWith(pen);
        }
}

TEST_F(HostileResourcesTest, UnknownStyles)
{
    for (const int number : {-1, 7, 15, 16, 99, 255, 1 << 20, kLowest, kLargest})
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        for (const ShapeCall& call : ShapeCalls())
        {
            surface->SelectPen(static_cast<TXPen::PenStyle>(number));
            call.draw(*surface);
        }
        // The pattern of a custom style is not known to the surface.
        surface->SelectPen(TXPen::CustomDashLine);
        DrawEverything(*surface);

        const TXRefPtr<TXPen> pen = TestEngine().NewPen();
        pen->Create(static_cast<TXPen::PenStyle>(number), 3.0, TXColor::RED_, static_cast<TXPen::PenCapStyle>(number),
                    static_cast<TXPen::PenJoinStyle>(number));
        DrawWith(pen);
        const TXRefPtr<TXBrush> brush = TestEngine().NewBrush();
        brush->Create(TXColor::RED_, static_cast<TXBrush::BrushStyle>(number));
        surface->SelectBrush(brush);
        DrawEverything(*surface);
    }
}

TEST_F(HostileResourcesTest, CustomStyleWithoutAPatternDrawsOn)
{
    const TXRefPtr<TXPen> pen = TestEngine().NewPen();
    pen->Create(TXPen::CustomDashLine, 3.0, TXColor::RED_, TXPen::RoundCap, TXPen::RoundJoin);
    DrawWith(pen);
}

TEST_F(HostileResourcesTest, EmptyOnes)
{
    const TXRefPtr<TXPen> pen = TestEngine().NewPen();
    const TXRefPtr<TXBrush> brush = TestEngine().NewBrush();
    const TXRefPtr<TXFont> font = TestEngine().NewFont();
    for (const bool withImage : {true, false})
    {
        const TXRefPtr<TXGraphics> surface =
            withImage ? NewPaintingSurface() : TXRefPtr<TXGraphics>(TestEngine().NewGraphics());
        surface->EnableCairoDrawing(true);
        surface->SelectPen(pen);
        surface->SelectBrush(brush);
        surface->SelectFont(font);
        DrawEverything(*surface);
        surface->SelectImage(NewPaintedImage());
        DrawEverything(*surface);
        ASSERT_TRUE(surface->CreateCompatibleGraphics(60, 40));
        DrawEverything(*surface);
    }
}

TEST_F(HostileResourcesTest, DeletedWhileSelected)
{
    QImage canvas(60, 40, QImage::Format_ARGB32_Premultiplied);
    QPainter outside(&canvas);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SelectPen(NewPen(TXColor::RED_, 3.0));
    surface->SelectBrush(NewBrush(TXColor::RED_));
    surface->SelectFont(NewFont(20));
    surface->GetPen()->Delete();
    surface->GetBrush()->Delete();
    surface->GetFont()->Delete();
    DrawEverything(*surface);
    surface->SelectImage(NewPaintedImage());
    DrawEverything(*surface);
    surface->EnableCairoDrawing(true);
    surface->Attach(&outside);
    // Nothing is there to take what the outside painter holds.
    surface->GetPen();
    surface->GetBrush();
    surface->GetFont();
    DrawEverything(*surface);
    surface->Detach();
    surface->GetPen()->Create();
    surface->SelectPen(surface->GetPen());
    EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*surface->GetPen()));
}

TEST_F(HostileResourcesTest, ATextureOfTheTargetItself)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor::RED_);
    brush->SetTextureImage(surface->GetImage());
    surface->SelectBrush(brush);
    DrawEverything(*surface);
    EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::RED_));
    EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(30, 20), qRgb(255, 0, 0)) << "painting left the image";
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*surface->GetImage()));
}

TEST_F(HostileResourcesTest, OfAnotherSurfaceShared)
{
    const TXRefPtr<TXGraphics> one = NewPaintingSurface();
    TXRefPtr<TXGraphics> other = NewPaintingSurface();
    one->SelectPen(other->GetPen());
    one->SelectBrush(other->GetBrush());
    one->SelectFont(other->GetFont());
    other = nullptr;
    DrawEverything(*one);
    EXPECT_EQ(one->GetPen()->GetWidth(), 1.0);
}

} // namespace
