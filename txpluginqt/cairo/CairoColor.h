#pragma once

#include <cairo.h>

#include <txbase/TXColor.h>

namespace txqt
{

/// Paints with @p color from now on, alpha kept.
inline void SetCairoSource(cairo_t* context, const TZObjects::TXColor& color)
{
    cairo_set_source_rgba(context, color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0,
                          color.getA() / 255.0);
}

} // namespace txqt
