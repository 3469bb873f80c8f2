#pragma once

#include <cairo.h>

#include <txbase/TXColor.h>
#include <txpluginqt/text/CairoTextLayout.h>

namespace txqt
{

/// How a label is painted.
struct CairoTextStyle
{
    TZObjects::TXColor color;
    bool halo = false;
    TZObjects::TXColor haloColor;
    double haloWidth = 0.0;
    bool underline = false;
    bool strikeOut = false;
};

/// Paints a laid-out label with its origin at (@p x, @p y), turned clockwise by @p radians. The context's state is
/// afterwards what it was, but for its path, which is empty.
void PaintCairoText(cairo_t* context, const CairoTextLayout& layout, const CairoTextStyle& style, double x, double y,
                    double radians);

} // namespace txqt
