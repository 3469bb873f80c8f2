#include <txpluginqt/cairo/CairoFont.h>

#include <algorithm>
#include <cmath>

#include <txpluginqt/cairo/CairoFontLock.h>
#include <txpluginqt/support/Fonts.h>

namespace txqt
{

std::unique_lock<std::mutex> LockCairoFonts()
{
    static std::mutex mutex;
    return std::unique_lock<std::mutex>(mutex);
}

void SelectCairoFace(cairo_t* context, const std::string& family, const TZObjects::TXFont& font)
{
    const cairo_font_slant_t slant = font.GetFontItalic() ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL;
    const cairo_font_weight_t weight = font.GetFontBold() ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL;
    const auto lock = LockCairoFonts();
    cairo_select_font_face(context, family.c_str(), slant, weight);
}

void SetCairoFontSize(cairo_t* context, double size)
{
    if (!std::isfinite(size))
        return;
    const auto lock = LockCairoFonts();
    cairo_set_font_size(context, std::clamp(size, -double(kLargestFontSize), double(kLargestFontSize)));
}

cairo_scaled_font_t* ScaledFontOf(cairo_t* context)
{
    const auto lock = LockCairoFonts();
    return cairo_get_scaled_font(context);
}

cairo_font_extents_t FontExtentsOf(cairo_t* context)
{
    cairo_font_extents_t extents{};
    const auto lock = LockCairoFonts();
    cairo_font_extents(context, &extents);
    return extents;
}

} // namespace txqt
