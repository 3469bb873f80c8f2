#pragma once

#include <memory>
#include <optional>

#include <QString>

#include <cairo.h>

namespace txqt
{

/// A text as cairo's glyphs, each at its place.
class GlyphRun
{
public:
    /// The glyphs of @p text with the first origin at (@p x, @p y), in the scaled font's units. cairo stops at a NUL.
    /// @return nothing when cairo cannot convert the text.
    static std::optional<GlyphRun> FromText(cairo_scaled_font_t* font, const QString& text, double x, double y);

    /// True for a text without a glyph.
    bool IsEmpty() const { return count == 0; }
    const cairo_text_extents_t& Extents() const { return extents; }
    /// Adds the outlines of all glyphs to the context's path.
    void AddOutlines(cairo_t* context) const;
    /// Paints the glyphs with the context's source.
    void Show(cairo_t* context) const;

private:
    struct Deleter
    {
        void operator()(cairo_glyph_t* array) const { cairo_glyph_free(array); }
    };

    std::unique_ptr<cairo_glyph_t[], Deleter> glyphs;
    int count = 0;
    cairo_text_extents_t extents{};
};

} // namespace txqt
