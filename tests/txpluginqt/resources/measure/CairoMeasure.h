#pragma once

#include <memory>
#include <string>

#include <cairo.h>

#include <tests/txpluginqt/text/LabelFont.h>

/// A cairo context with the face and the size of a font, made by the test itself, to measure with directly.
class CairoMeasure
{
public:
    /// With cairo's own default face and size.
    CairoMeasure();
    explicit CairoMeasure(const FontChoice& font);

    cairo_font_extents_t Font() const;
    /// Of text in UTF-8.
    cairo_text_extents_t Text(const std::string& utf8) const;

private:
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context;
};
