#include <txpluginqt/support/CairoFont.h>

#include <algorithm>
#include <cmath>

#include <txpluginqt/support/Fonts.h>

void SelectCairoFace(cairo_t* context, const std::string& family, const TZObjects::TXFont& font)
{
    cairo_select_font_face(context, family.c_str(),
                           font.GetFontItalic() ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           font.GetFontBold() ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}

void SetCairoFontSize(cairo_t* context, double size)
{
    if (std::isfinite(size))
        cairo_set_font_size(context, std::clamp(size, -double(kLargestFontSize), double(kLargestFontSize)));
}
