#include <txpluginqt/text/CairoTextPainter.h>

#include <cmath>

#include <txpluginqt/cairo/CairoColor.h>
#include <txpluginqt/cairo/CairoScopes.h>
#include <txpluginqt/support/Numbers.h>

namespace txqt
{
namespace
{

void AddRule(cairo_t* context, const CairoRule& rule)
{
    // At a scale of 0 the underline lies nowhere.
    if (!std::isfinite(rule.y))
        return;
    cairo_move_to(context, rule.x, rule.y);
    cairo_line_to(context, rule.x + rule.length, rule.y);
}

void PaintPart(cairo_t* context, const CairoTextPart& part, const CairoTextStyle& style, double ruleWidth)
{
    for (const GlyphRun& run : part.runs)
        run.AddOutlines(context);
    if (style.halo)
    {
        SetCairoSource(context, style.haloColor);
        cairo_set_line_width(context, style.haloWidth);
        cairo_stroke_preserve(context);
    }
    SetCairoSource(context, style.color);
    cairo_fill(context);
    if (!style.underline && !style.strikeOut)
        return;
    if (style.strikeOut)
        AddRule(context, part.strikeOut);
    if (style.underline)
        AddRule(context, part.underline);
    cairo_set_line_width(context, ruleWidth);
    // The halos of later parts are stroked with it too.
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_stroke(context);
}

} // namespace

void PaintCairoText(cairo_t* context, const CairoTextLayout& layout, const CairoTextStyle& style, double x, double y,
                    double radians)
{
    const CairoStateScope state(context);
    cairo_new_path(context);
    cairo_translate(context, x, y);
    cairo_rotate(context, radians);
    for (const CairoTextPiece& piece : layout.pieces)
    {
        const CairoStateScope pieceState(context);
        cairo_translate(context, piece.x, piece.y);
        for (const CairoTextPart& part : piece.parts)
            PaintPart(context, part, style, layout.ruleWidth);
    }
}

} // namespace txqt
