#include <txpluginqt/text/GlyphRun.h>

#include <txpluginqt/cairo/CairoFontLock.h>

namespace txqt
{

std::optional<GlyphRun> GlyphRun::FromText(cairo_scaled_font_t* font, const QString& text, double x, double y)
{
    const QByteArray utf8 = text.toUtf8();
    GlyphRun run;
    cairo_glyph_t* array = nullptr;
    const auto lock = LockCairoFonts();
    const cairo_status_t status = cairo_scaled_font_text_to_glyphs(font, x, y, utf8.constData(), -1, &array, &run.count,
                                                                   nullptr, nullptr, nullptr);
    run.glyphs.reset(array);
    if (status != CAIRO_STATUS_SUCCESS)
        return std::nullopt;
    cairo_scaled_font_glyph_extents(font, run.glyphs.get(), run.count, &run.extents);
    return run;
}

void GlyphRun::AddOutlines(cairo_t* context) const
{
    const auto lock = LockCairoFonts();
    cairo_glyph_path(context, glyphs.get(), count);
}

void GlyphRun::Show(cairo_t* context) const
{
    const auto lock = LockCairoFonts();
    cairo_show_glyphs(context, glyphs.get(), count);
}

} // namespace txqt
