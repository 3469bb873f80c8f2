#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/support/Twins.h>

#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class AttachTest : public SurfaceTest
{
protected:
    AttachTest() : canvas(60, 40, QImage::Format_ARGB32_Premultiplied)
    {
        canvas.fill(Qt::white);
        outside.begin(&canvas);
        outside.setPen(QPen(QColor(0, 150, 0), 3.0, Qt::DashLine));
        outside.setBrush(QColor(0, 0, 150));
        QFont font;
        font.setPixelSize(29);
        outside.setFont(font);
    }

    QImage canvas;
    QPainter outside;
};

TEST_F(AttachTest, EverythingIsDrawnWithTheOutsidePainter)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const QImage before = PixelsOf(*surface->GetImage()).copy();
    surface->Attach(&outside);
    EXPECT_EQ(surface->GetInteralObject(), &outside);
    EXPECT_TRUE(surface->Rectangle(10, 10, 30, 20));
    surface->SetWindowOrg(5, 5);
    surface->SetOpacity(0.5);
    EXPECT_TRUE(surface->Line(0, 0, 40, 30));
    EXPECT_EQ(PixelsOf(*surface->GetImage()), before);

    QImage expected(60, 40, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    QPainter direct(&expected);
    direct.setPen(QPen(QColor(0, 150, 0), 3.0, Qt::DashLine));
    direct.setBrush(QColor(0, 0, 150));
    direct.setFont(outside.font());
    direct.drawRect(10, 10, 30, 20);
    direct.translate(5, 5);
    direct.setOpacity(0.5);
    direct.drawLine(0, 0, 40, 30);
    EXPECT_TRUE(SamePixels(canvas, expected));
    EXPECT_TRUE(SameState(outside, direct));
    EXPECT_EQ(surface->GetOpacity(), outside.opacity());
}

TEST_F(AttachTest, DetachBringsTheOwnPainterBackUntouched)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SelectPen(NewPen(TXColor(1, 2, 3, 255), 6.0));
    surface->SetWindowOrg(3, 4);
    QPainter* const own = &PainterOf(*surface);
    const PainterState before(*own);
    surface->Attach(&outside);
    surface->SetWindowOrg(30, 40);
    surface->SetCompositionMode(TXGraphics::CompositionMode_Plus);
    surface->EnableAntialiasing(false);
    surface->SelectPen(TXPen::DotLine);
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), own);
    EXPECT_TRUE(SameState(PainterState(*own), before));
    EXPECT_TRUE(outside.isActive());
    EXPECT_TRUE(surface->fillRect(TXRect(0, 10, 0, 10), TXColor::RED_));
    EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(5, 6), qRgb(255, 0, 0));
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), own);
}

TEST_F(AttachTest, GettersCarryWhatTheOutsidePainterHolds)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const auto [pen, brush, font] = SelectResources(*surface);
    surface->Attach(&outside);
    EXPECT_EQ(pen->GetWidth(), 3.5) << "attaching alone copies nothing";
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(PenOf(*pen), outside.pen());
    EXPECT_EQ(pen->GetWidth(), 3.0);
    EXPECT_EQ(pen->GetPenStyle(), TXPen::DashLine);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(BrushOf(*brush), outside.brush());
    EXPECT_EQ(brush->GetColor().GetColor(), 0xff000096u);
    EXPECT_EQ(surface->GetFont(), font);
    EXPECT_EQ(FontOf(*font), outside.font());
    EXPECT_EQ(font->GetFontHeight(), 29);

    outside.setPen(QPen(Qt::red, 9.0));
    EXPECT_EQ(pen->GetWidth(), 3.0);
    EXPECT_EQ(surface->GetPen()->GetWidth(), 9.0);
    surface->Detach();
    EXPECT_EQ(surface->GetPen()->GetWidth(), 9.0) << "what was read back stays in the pen";
    EXPECT_EQ(PainterOf(*surface).pen().widthF(), 3.5) << "and does not reach the own painter by itself";
}

TEST_F(AttachTest, GettersCarryWhatAnInactivePainterAnswers)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const auto [pen, brush, font] = SelectResources(*surface);
    QPainter inactive;
    surface->Attach(&inactive);
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(surface->GetFont(), font);
    EXPECT_EQ(TakeMessages(), QStringList());
    EXPECT_EQ(pen->GetWidth(), 1.0);
    EXPECT_EQ(pen->GetColor().GetColor(), 0xff000000u);
    EXPECT_EQ(PenOf(*pen), inactive.pen());
    EXPECT_EQ(BrushOf(*brush), inactive.brush());
    EXPECT_EQ(FontOf(*font), inactive.font());
    EXPECT_EQ(TakeMessages().size(), 3) << "Qt's own, which the surface does not print";
}

TEST_F(AttachTest, GettersStayNullWhereNothingIsSelected)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    surface->Attach(&outside);
    EXPECT_EQ(surface->GetPen(), nullptr);
    EXPECT_EQ(surface->GetBrush(), nullptr);
    EXPECT_EQ(surface->GetFont(), nullptr);
    EXPECT_EQ(surface->GetImage(), nullptr);
}

TEST_F(AttachTest, WithoutAttachingGettersReturnTheSelectionAsItIs)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 255), 6.0);
    surface->SelectPen(pen);
    surface->SelectPen(TXPen::DotLine);
    EXPECT_EQ(surface->GetPen()->GetWidth(), 6.0);
    EXPECT_EQ(surface->GetPen()->GetPenStyle(), TXPen::SolidLine);
}

TEST_F(AttachTest, SelectionGoesToTheOutsidePainter)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> old = surface->GetPen();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 255), 6.0);
    surface->Attach(&outside);
    EXPECT_EQ(surface->SelectPen(pen), old);
    EXPECT_EQ(outside.pen(), PenOf(*pen));
}

TEST_F(AttachTest, GivesASurfaceWithoutAPainterOne)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    surface->Attach(&outside);
    EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::RED_));
    EXPECT_EQ(canvas.pixel(30, 20), qRgb(255, 0, 0));
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::WHITE_));
    EXPECT_EQ(canvas.pixel(30, 20), qRgb(255, 0, 0));
}

TEST_F(AttachTest, OfNullChangesNothing)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    void* const own = surface->GetInteralObject();
    surface->Attach(nullptr);
    EXPECT_EQ(surface->GetInteralObject(), own);
    EXPECT_EQ(surface->GetPen()->GetPenStyle(), TXPen::SolidLine);
    surface->Attach(&outside);
    surface->Attach(nullptr);
    EXPECT_EQ(surface->GetInteralObject(), &outside) << "it stays attached";
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), own);
}

TEST_F(AttachTest, OfAnotherPainterReplacesTheFirst)
{
    QImage otherCanvas(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter other(&otherCanvas);
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    void* const own = surface->GetInteralObject();
    surface->Attach(&outside);
    surface->Attach(&other);
    EXPECT_EQ(surface->GetInteralObject(), &other);
    EXPECT_TRUE(outside.isActive());
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), own);
    EXPECT_TRUE(other.isActive());
}

TEST_F(AttachTest, EndsWithDelete)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    surface->Attach(&outside);
    EXPECT_TRUE(surface->Delete());
    EXPECT_TRUE(outside.isActive());
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
    surface->Detach();
    EXPECT_EQ(surface->GetInteralObject(), nullptr);
}

TEST_F(AttachTest, EndsWithANewTarget)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->Attach(&outside);
    ASSERT_TRUE(surface->CreateCompatibleGraphics(20, 20));
    EXPECT_TRUE(outside.isActive());
    EXPECT_NE(surface->GetInteralObject(), &outside);
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*surface->GetImage()));
    surface->Detach();
    EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*surface->GetImage()));
}

TEST_F(AttachTest, ClearingAndSavingConcernTheImage)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->Attach(&outside);
    const QImage before = canvas.copy();
    EXPECT_TRUE(surface->ClearWithColor(TXColor::RED_));
    EXPECT_EQ(canvas, before);
    EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(3, 3), qRgb(255, 0, 0));
}

} // namespace
