#include "CairoTwins.h"

#include <cstring>
#include <ostream>

#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>

using namespace TZObjects;

namespace
{

QImage Background(int width, int height, TXImage::Format format)
{
    QImage image(width, height, static_cast<QImage::Format>(static_cast<int>(format)));
    PaintBackground(image);
    return image;
}

} // namespace

Look::Look()
{
    height = 20;
    haloWidth = 3;
    haloColor = TXColor(250, 240, 90, 255);
}

std::ostream& operator<<(std::ostream& out, const Look& look)
{
    return out << static_cast<const FontChoice&>(look) << ", pen 0x" << std::hex << look.pen.GetColor() << std::dec;
}

TXRefPtr<TXPen> NewPen(const Look& look)
{
    TXRefPtr<TXPen> pen(TestEngine().NewPen());
    pen->Create(TXPen::SolidLine, 1.0, look.pen, TXPen::RoundCap, TXPen::RoundJoin);
    return pen;
}

TXRefPtr<TXImage> NewImage(int width, int height, TXImage::Format format)
{
    TXRefPtr<TXImage> image(TestEngine().NewImage());
    image->CreateImage(width, height, format);
    return image;
}

DirectCairo::DirectCairo(QImage& image, Origin origin)
    : surface(cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_ARGB32, image.width(), image.height(),
                                                  image.bytesPerLine())),
      context(cairo_create(surface))
{
    if (origin == Selected)
        return;
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GOOD);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_MEDIUM);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

DirectCairo::~DirectCairo()
{
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

void DirectCairo::Select(const Look& look)
{
    cairo_select_font_face(context, TXString(look.family).toUTF8().c_str(),
                           look.italic == TXFont::ItalicNone ? CAIRO_FONT_SLANT_NORMAL : CAIRO_FONT_SLANT_ITALIC,
                           look.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}

CairoTwins::CairoTwins(const Look& look, TXImage::Format format, DirectCairo::Origin origin, int width, int height)
    : background(Background(width, height, format)), expected(background.copy()),
      image(NewImage(width, height, format)), surface(TestEngine().NewGraphics()), direct(expected, origin)
{
    if (origin == DirectCairo::Selected)
        surface->EnableCairoDrawing(true);
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    Select(look);
    Wipe();
}

void CairoTwins::Select(const Look& look)
{
    font = MakeFont(look);
    surface->SelectFont(font);
    surface->SelectPen(NewPen(look));
    direct.Select(look);
}

void CairoTwins::Wipe()
{
    const auto bytes = static_cast<std::size_t>(background.sizeInBytes());
    std::memcpy(Actual().bits(), background.constBits(), bytes);
    std::memcpy(expected.bits(), background.constBits(), bytes);
}

::testing::AssertionResult CairoTwins::Same() { return SamePixels(Actual(), expected); }

::testing::AssertionResult CairoTwins::SameAndInked()
{
    if (expected == background)
        return ::testing::AssertionFailure() << "nothing was expected to be drawn";
    return Same();
}
