// The switch between the two text paths, and the cairo context over the target's pixels.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <QImage>

#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/support/CairoFont.h>

void TXGraphicsQT::EnableCairoDrawing(bool on)
{
    if (on == cairoEnabled)
        return;
    cairoEnabled = on;
    DestroyCairoObjects();
    if (!on)
        return;
    CreateCairoObjects();
    if (!cairoContext)
        return;
    ApplyCairoFontOptions();
    SelectCairoFont();
}

void TXGraphicsQT::ApplyCairoFontOptions()
{
    const CairoFontOptions options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GOOD);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_MEDIUM);
    const auto lock = LockCairoFonts();
    cairo_set_font_options(cairoContext.get(), options.get());
    cairoFontOptionsSet = true;
}

bool TXGraphicsQT::CairoDrawingEnabled() const { return cairoEnabled; }

void TXGraphicsQT::CreateCairoObjects()
{
    cairoFontOptionsSet = false;
    const auto* const pixels = image ? static_cast<const QImage*>(image->GetInternalObject()) : nullptr;
    if (!pixels)
        return;
    const int width = image->GetWidth();
    const int height = image->GetHeight();
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
    auto* const bits = static_cast<unsigned char*>(image->GetBits());
    // Over other pixels cairo would write beyond their end.
    if (!bits || pixels->depth() != 32 || pixels->bytesPerLine() != stride)
        return;
    cairoSurface.reset(cairo_image_surface_create_for_data(bits, CAIRO_FORMAT_ARGB32, width, height, stride));
    cairoContext.reset(cairo_create(cairoSurface.get()));
    if (cairo_status(cairoContext.get()) != CAIRO_STATUS_SUCCESS)
        DestroyCairoObjects();
}

void TXGraphicsQT::DestroyCairoObjects()
{
    cairoContext.reset();
    cairoSurface.reset();
}

void TXGraphicsQT::RemakeCairoObjects()
{
    const bool hadFontOptions = cairoFontOptionsSet;
    DestroyCairoObjects();
    CreateCairoObjects();
    if (cairoContext && hadFontOptions)
        ApplyCairoFontOptions();
    SelectCairoFont();
}

void TXGraphicsQT::SelectCairoFont()
{
    if (!cairoContext || !font)
        return;
    SelectCairoFace(cairoContext.get(), font->GetFontName().toUTF8(), *font);
    SetCairoFontSize(cairoContext.get(), font->GetFontHeight());
}

void TXGraphicsQT::ApplyFont(QPainter& newlyBegun)
{
    ApplyQFont(newlyBegun, *font);
    SelectCairoFont();
}
