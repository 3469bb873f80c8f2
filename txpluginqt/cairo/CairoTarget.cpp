#include <txpluginqt/cairo/CairoTarget.h>

#include <QImage>

#include <txpluginqt/cairo/CairoFont.h>
#include <txpluginqt/support/Images.h>

using namespace TZObjects;

namespace txqt
{

void CairoTarget::Create(TXImage* image)
{
    hasFontOptions = false;
    const QImage* const pixels = PixelsOf(image);
    if (!pixels)
        return;
    const int width = image->GetWidth();
    const int height = image->GetHeight();
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
    auto* const bits = static_cast<unsigned char*>(image->GetBits());
    // Over other pixels cairo would write beyond their end.
    if (!bits || pixels->depth() != 32 || pixels->bytesPerLine() != stride)
        return;
    surface.reset(cairo_image_surface_create_for_data(bits, CAIRO_FORMAT_ARGB32, width, height, stride));
    context.reset(cairo_create(surface.get()));
    if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS)
        Destroy();
}

void CairoTarget::Destroy()
{
    context.reset();
    surface.reset();
}

void CairoTarget::Retire()
{
    if (context)
        retired.emplace_back(std::move(surface), std::move(context));
}

void CairoTarget::ApplyFontOptions()
{
    if (!context)
        return;
    const CairoFontOptions options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GOOD);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_MEDIUM);
    const auto lock = LockCairoFonts();
    cairo_set_font_options(context.get(), options.get());
    hasFontOptions = true;
}

void CairoTarget::SelectFont(const TXFont* font)
{
    if (!context || !font)
        return;
    SelectCairoFace(context.get(), font->GetFontName().toUTF8(), *font);
    SetCairoFontSize(context.get(), font->GetFontHeight());
}

cairo_t* CairoTarget::Ready(TXImage* image, const TXFont* font)
{
    if (!context || cairo_status(context.get()) == CAIRO_STATUS_SUCCESS)
        return context.get();
    const bool hadFontOptions = hasFontOptions;
    Destroy();
    Create(image);
    if (hadFontOptions)
        ApplyFontOptions();
    SelectFont(font);
    return context.get();
}

} // namespace txqt
