#include "CairoMeasure.h"

using namespace TZObjects;

CairoMeasure::CairoMeasure()
    : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 300, 300), &cairo_surface_destroy),
      context(cairo_create(surface.get()), &cairo_destroy)
{
}

CairoMeasure::CairoMeasure(const FontChoice& font) : CairoMeasure()
{
    cairo_select_font_face(context.get(), TXString(font.family).toUTF8().c_str(),
                           font.italic == TXFont::ItalicNone ? CAIRO_FONT_SLANT_NORMAL : CAIRO_FONT_SLANT_ITALIC,
                           font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context.get(), font.height);
}

cairo_font_extents_t CairoMeasure::Font() const
{
    cairo_font_extents_t extents{};
    cairo_font_extents(context.get(), &extents);
    return extents;
}

cairo_text_extents_t CairoMeasure::Text(const std::string& utf8) const
{
    cairo_text_extents_t extents{};
    cairo_text_extents(context.get(), utf8.c_str(), &extents);
    return extents;
}
