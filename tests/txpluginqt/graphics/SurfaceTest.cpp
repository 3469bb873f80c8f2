#include "SurfaceTest.h"

#include <tests/support/Twins.h>

using namespace TZObjects;

TXRefPtr<TXImage> SurfaceTest::NewPaintedImage(int width, int height, TXImage::Format format)
{
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    image->CreateImage(width, height, format);
    PaintBackground(PixelsOf(*image));
    return image;
}

TXRefPtr<TXGraphics> SurfaceTest::NewPaintingSurface(int width, int height, TXImage::Format format)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    surface->SelectImage(NewPaintedImage(width, height, format));
    return surface;
}

TXRefPtr<TXPen> SurfaceTest::NewPen(const TXColor& color, double width)
{
    const TXRefPtr<TXPen> pen = TestEngine().NewPen();
    pen->Create(TXPen::SolidLine, width, color, TXPen::FlatCap, TXPen::MiterJoin);
    return pen;
}

TXRefPtr<TXBrush> SurfaceTest::NewBrush(const TXColor& color)
{
    const TXRefPtr<TXBrush> brush = TestEngine().NewBrush();
    brush->Create(color, TXBrush::SolidBrush);
    return brush;
}

TXRefPtr<TXFont> SurfaceTest::NewFont(int height)
{
    const TXRefPtr<TXFont> font = TestEngine().NewFont();
    font->Create();
    font->SetFontHeight(height);
    return font;
}

SurfaceTest::Resources SurfaceTest::SelectResources(TXGraphics& surface)
{
    Resources resources{NewPen(TXColor(9, 8, 7, 200), 3.5), NewBrush(TXColor(70, 80, 90, 100)), NewFont(23)};
    surface.SelectPen(resources.pen);
    surface.SelectBrush(resources.brush);
    surface.SelectFont(resources.font);
    return resources;
}

void SurfaceTest::ExpectOnly(const Resources& resources, TXGraphics& surface)
{
    const QPainter& painter = PainterOf(surface);
    EXPECT_EQ(painter.pen(), PenOf(*resources.pen));
    EXPECT_EQ(painter.brush(), BrushOf(*resources.brush));
    EXPECT_EQ(painter.font(), FontOf(*resources.font));
    EXPECT_EQ(painter.opacity(), 1.0);
    EXPECT_TRUE(painter.transform().isIdentity());
    EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(surface.GetPen(), resources.pen);
    EXPECT_EQ(surface.GetBrush(), resources.brush);
    EXPECT_EQ(surface.GetFont(), resources.font);
}

QPainter& SurfaceTest::PainterOf(TXGraphics& surface) { return *static_cast<QPainter*>(surface.GetInteralObject()); }

QImage& SurfaceTest::PixelsOf(TXImage& image) { return *static_cast<QImage*>(image.GetInternalObject()); }

const QPen& SurfaceTest::PenOf(TXPen& pen) { return *static_cast<const QPen*>(pen.GetInternalObject()); }

const QBrush& SurfaceTest::BrushOf(TXBrush& brush) { return *static_cast<const QBrush*>(brush.GetInternalObject()); }

const QFont& SurfaceTest::FontOf(TXFont& font) { return *static_cast<const QFont*>(font.GetInternalObject()); }

QPainter::RenderHints SurfaceTest::FreshHints()
{
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    const QPainter painter(&image);
    return painter.renderHints();
}
