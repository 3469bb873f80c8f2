#include <QConicalGradient>
#include <QLinearGradient>
#include <QRadialGradient>

#include <tests/support/PainterState.h>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

/// A gradient of a class that no backend knows, over a Qt gradient.
class ForeignGradient : public TXGradient
{
public:
    ForeignGradient() { internalObject = &gradient; }
    bool Delete() override { return true; }
    void SetColorAt(double position, const TXColor&) override { gradient.setColorAt(position, Qt::green); }

private:
    QConicalGradient gradient{QPointF(5, 5), 10};
};

/// A region that tells when it goes.
class ProbeRegion : public TXRgn
{
public:
    explicit ProbeRegion(bool& gone) : gone(gone) {}
    ~ProbeRegion() override { gone = true; }

private:
    bool& gone;
};

class SelectionTest : public SurfaceTest
{
};

TEST_F(SelectionTest, ReturnsWhatWasSelectedBeforeAndAppliesTheNew)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const QPainter& painter = PainterOf(*surface);

    const TXRefPtr<TXPen> oldPen = surface->GetPen();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 4), 5.5);
    EXPECT_EQ(surface->SelectPen(pen), oldPen);
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(painter.pen(), PenOf(*pen));
    EXPECT_EQ(surface->SelectPen(oldPen), pen);
    EXPECT_EQ(painter.pen(), PenOf(*oldPen));

    const TXRefPtr<TXBrush> oldBrush = surface->GetBrush();
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor(1, 2, 3, 4));
    EXPECT_EQ(surface->SelectBrush(brush), oldBrush);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(painter.brush(), QBrush(QColor(1, 2, 3, 4)));

    const TXRefPtr<TXFont> oldFont = surface->GetFont();
    const TXRefPtr<TXFont> font = NewFont(37);
    EXPECT_EQ(surface->SelectFont(font), oldFont);
    EXPECT_EQ(surface->GetFont(), font);
    EXPECT_EQ(painter.font(), FontOf(*font));
    EXPECT_EQ(painter.font().pixelSize(), 37);
}

TEST_F(SelectionTest, OfTheSameAgainReturnsIt)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 4), 5.5);
    surface->SelectPen(pen);
    pen->SetWidth(2.0);
    EXPECT_EQ(PainterOf(*surface).pen().widthF(), 5.5) << "a change reaches the surface at the next selection only";
    EXPECT_EQ(surface->SelectPen(pen), pen);
    EXPECT_EQ(PainterOf(*surface).pen().widthF(), 2.0);
}

TEST_F(SelectionTest, OnASurfaceMadeOverAnImageReturnsNullFirst)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    EXPECT_EQ(surface->SelectPen(NewPen(TXColor::RED_, 2.0)), nullptr);
    EXPECT_EQ(surface->SelectBrush(NewBrush(TXColor::RED_)), nullptr);
    EXPECT_EQ(surface->SelectFont(NewFont(10)), nullptr);
    EXPECT_TRUE(surface->GetPen() && surface->GetBrush() && surface->GetFont());
}

TEST_F(SelectionTest, OfNullChangesNothing)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = surface->GetPen();
    const TXRefPtr<TXBrush> brush = surface->GetBrush();
    const TXRefPtr<TXFont> font = surface->GetFont();
    const PainterState before(PainterOf(*surface));
    EXPECT_EQ(surface->SelectPen(TXRefPtr<TXPen>()), nullptr);
    EXPECT_EQ(surface->SelectBrush(nullptr), nullptr);
    EXPECT_EQ(surface->SelectFont(nullptr), nullptr);
    surface->SelectGradient(nullptr);
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(surface->GetFont(), font);
    EXPECT_TRUE(SameState(PainterState(PainterOf(*surface)), before));
}

TEST_F(SelectionTest, WithoutAPainterChangesNothing)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = surface->GetPen();
    const TXRefPtr<TXBrush> brush = surface->GetBrush();
    const TXRefPtr<TXFont> font = surface->GetFont();
    surface->Delete();
    EXPECT_EQ(surface->SelectPen(NewPen(TXColor::RED_, 2.0)), nullptr);
    EXPECT_EQ(surface->SelectBrush(NewBrush(TXColor::RED_)), nullptr);
    EXPECT_EQ(surface->SelectFont(NewFont(10)), nullptr);
    surface->SelectPen(TXPen::DashLine);
    const TXRefPtr<TXLinearGradient> gradient = TestEngine().NewLinearGradient(0, 0, 9, 9);
    surface->SelectGradient(gradient.get());
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(surface->GetFont(), font);
}

TEST_F(SelectionTest, OnAnIdlePainterIsStoredAndReachesTheNextImage)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    const TXRefPtr<TXPen> oldPen = surface->GetPen();
    const TXRefPtr<TXBrush> oldBrush = surface->GetBrush();
    const TXRefPtr<TXFont> oldFont = surface->GetFont();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 4), 5.5);
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor(5, 6, 7, 8));
    const TXRefPtr<TXFont> font = NewFont(31);
    EXPECT_EQ(surface->SelectPen(pen), oldPen);
    EXPECT_EQ(surface->SelectBrush(brush), oldBrush);
    EXPECT_EQ(surface->SelectFont(font), oldFont);
    surface->SelectPen(TXPen::DotLine);
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(surface->GetFont(), font);
    surface->SelectImage(NewPaintedImage());
    EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*pen));
    EXPECT_EQ(PainterOf(*surface).brush(), BrushOf(*brush));
    EXPECT_EQ(PainterOf(*surface).font(), FontOf(*font));
}

TEST_F(SelectionTest, OfAPenWithoutLineTakesThePlainNullPen)
{
    const TXRefPtr<TXPen> pen = TestEngine().NewPen();
    pen->Create(TXPen::NullPen, 4.0, TXColor(200, 30, 40, 255), TXPen::FlatCap, TXPen::MiterJoin);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SelectPen(pen);
    // It is black and of width 1, which label drawing sees, whatever the selected pen says.
    EXPECT_EQ(PainterOf(*surface).pen(), QPen(Qt::NoPen));
    EXPECT_EQ(PainterOf(*surface).pen().color(), QColor(Qt::black));
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(pen->GetColor().GetColor(), 0xffc81e28u);
}

TEST_F(SelectionTest, OfAStyleKeepsTheSelectedPen)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(200, 30, 40, 255), 4.0);
    surface->SelectPen(pen);
    for (const TXPen::PenStyle style :
         {TXPen::NullPen, TXPen::SolidLine, TXPen::DashLine, TXPen::DotLine, TXPen::DashDotLine, TXPen::DashDotDotLine})
    {
        surface->SelectPen(style);
        QImage image(4, 4, QImage::Format_ARGB32);
        QPainter direct(&image);
        direct.setPen(static_cast<Qt::PenStyle>(static_cast<int>(style)));
        EXPECT_EQ(PainterOf(*surface).pen(), direct.pen()) << style;
        EXPECT_EQ(surface->GetPen(), pen);
        EXPECT_EQ(pen->GetWidth(), 4.0);
        EXPECT_EQ(pen->GetPenStyle(), TXPen::SolidLine);
    }
}

TEST_F(SelectionTest, OfAGradientBecomesTheBrushAndKeepsTheSelectedOne)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor(200, 30, 40, 255));
    surface->SelectBrush(brush);

    const TXRefPtr<TXLinearGradient> linear = TestEngine().NewLinearGradient(1, 2, 30, 40);
    linear->SetColorAt(0.0, TXColor(10, 20, 30, 40));
    linear->SetColorAt(1.0, TXColor(50, 60, 70, 80));
    surface->SelectGradient(linear.get());
    QLinearGradient expected(1, 2, 30, 40);
    expected.setColorAt(0.0, QColor(10, 20, 30, 40));
    expected.setColorAt(1.0, QColor(50, 60, 70, 80));
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush(expected));
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(brush->GetColor().GetColor(), 0xffc81e28u);

    linear->SetColorAt(0.5, TXColor::RED_);
    linear->Delete();
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush(expected)) << "the gradient was not copied";

    const TXRefPtr<TXRadialGradient> radial = TestEngine().NewRadialGradient(11, 12, 13);
    radial->SetColorAt(0.0, TXColor(10, 20, 30, 40));
    surface->SelectGradient(radial.get());
    QRadialGradient expectedRadial(11, 12, 13);
    expectedRadial.setColorAt(0.0, QColor(10, 20, 30));
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush(expectedRadial));

    surface->SelectBrush(brush);
    EXPECT_EQ(PainterOf(*surface).brush(), QBrush(QColor(200, 30, 40)));
}

TEST_F(SelectionTest, OfAnUnusableGradientChangesNothing)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SelectBrush(NewBrush(TXColor(200, 30, 40, 255)));
    const PainterState before(PainterOf(*surface));

    ForeignGradient foreign;
    surface->SelectGradient(&foreign);
    EXPECT_TRUE(SameState(PainterState(PainterOf(*surface)), before));

    const TXRefPtr<TXLinearGradient> linear = TestEngine().NewLinearGradient(1, 2, 30, 40);
    linear->Delete();
    surface->SelectGradient(linear.get());
    const TXRefPtr<TXRadialGradient> radial = TestEngine().NewRadialGradient(1, 2, 30);
    radial->Delete();
    surface->SelectGradient(radial.get());
    EXPECT_TRUE(SameState(PainterState(PainterOf(*surface)), before));
}

TEST_F(SelectionTest, OfARegionReleasesItAndReturnsNull)
{
    const TXRefPtr<TXGraphics> painting = NewPaintingSurface();
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    const TXRefPtr<TXGraphics> empty = TestEngine().NewGraphics(nullptr);
    for (const TXRefPtr<TXGraphics>& surface : {painting, idle, empty})
    {
        bool gone = false;
        EXPECT_EQ(surface->SelectRgn(TXRefPtr<TXRgn>(new ProbeRegion(gone))), nullptr);
        EXPECT_TRUE(gone);
        EXPECT_EQ(surface->SelectRgn(nullptr), nullptr);
    }
}

} // namespace
