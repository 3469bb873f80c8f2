#pragma once

#include <string>

#include <cairo.h>

#include <txgraphics/TXFont.h>

namespace txqt
{

/// Selects the face @p family, valid UTF-8, into a cairo context, italic and bold as @p font is.
void SelectCairoFace(cairo_t* context, const std::string& family, const TZObjects::TXFont& font);

/// The font that a context draws with now. It belongs to the context.
cairo_scaled_font_t* ScaledFontOf(cairo_t* context);
/// The measures of that font.
cairo_font_extents_t FontExtentsOf(cairo_t* context);

/// Sets the size of a context's font in pixels, kept within what cairo and FreeType survive.
void SetCairoFontSize(cairo_t* context, double size);

} // namespace txqt
