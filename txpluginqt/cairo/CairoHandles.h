#pragma once

#include <memory>

#include <cairo.h>

#include <txpluginqt/cairo/CairoFontLock.h>

namespace txqt
{

/// Owners of cairo's handles; each holds one reference.
struct CairoDeleter
{
    void operator()(cairo_t* context) const
    {
        const auto lock = LockCairoFonts();
        cairo_destroy(context);
    }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

using CairoContext = std::unique_ptr<cairo_t, CairoDeleter>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using CairoFontOptions = std::unique_ptr<cairo_font_options_t, CairoDeleter>;

} // namespace txqt
