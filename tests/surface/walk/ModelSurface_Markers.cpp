// Markers of the model.
#include <cmath>

#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

constexpr double kPi = 3.141592653589793;

int SymbolSize(double size) { return size >= 1.0 ? Nearest(size) : 1; }

QString Text(short character) { return QString(QChar(static_cast<ushort>(character))); }

} // namespace

void ModelFont::SetSymbol(double symbolWidth, double height, const TXString& fontName)
{
    SetFontWidth(SymbolSize(symbolWidth));
    SetFontHeight(SymbolSize(height));
    SetFontName(fontName);
    qfont.setStyleStrategy(QFont::PreferAntialias);
}

bool ModelSurface::PaintMarker(double x, double y, double angle, const QPolygonF& symbol, bool closed)
{
    return Paint(
        [&](QPainter& p)
        {
            p.save();
            p.translate(x, y);
            if (std::abs(angle) > 1e-8)
                p.rotate(angle);
            if (closed)
                p.drawPolygon(symbol, Qt::OddEvenFill);
            else
                p.drawPolyline(symbol);
            p.restore();
        });
}

bool ModelSurface::VectorMarker(const TXPoint& anchor, double scaleX, double scaleY, double angle,
                                const TXPoint* points, int count, bool closed)
{
    return VectorMarker(anchor.x, anchor.y, scaleX, scaleY, angle, points, count, closed);
}

bool ModelSurface::VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TXPoint* points,
                                int count, bool closed)
{
    if (!points)
        return false;
    QPolygonF symbol;
    for (int i = 0; i < count; ++i)
        symbol << QPointF(scaleX * points[i].x, scaleY * points[i].y);
    return PaintMarker(x, y, angle, symbol, closed);
}

bool ModelSurface::VectorMarker(double offsetX, double offsetY, double scaleX, double scaleY, double x, double y,
                                double angle, const TXPoint* points, int count, bool closed)
{
    if (!points)
        return false;
    QPolygonF symbol;
    for (int i = 0; i < count; ++i)
        symbol << QPointF(points[i].x * scaleX + offsetX - x, points[i].y * scaleY + offsetY - y);
    return PaintMarker(x, y, angle, symbol, closed);
}

bool ModelSurface::FontMarker(const TXPoint& center, double width, double height, double angle,
                              const TXString& fontName, short character)
{
    return FontMarker(center.x, center.y, width, height, angle, fontName, character);
}

bool ModelSurface::FontMarker(double x, double y, double width, double height, double angle, const TXString& fontName,
                              short character)
{
    if (!Painter() || !font)
        return false;
    if (cairoEnabled)
    {
        FontMarkerWithCairo(x, y, height, angle, fontName, character);
        return true;
    }
    font->SetSymbol(width, height, fontName);
    return Paint([&](QPainter& p) { FontMarkerWithQt(p, x, y, width, height, angle, character); });
}

void ModelSurface::FontMarkerWithQt(QPainter& p, double x, double y, double width, double height, double angle,
                                    short character)
{
    p.setFont(font->qfont);
    p.save();
    p.setRenderHint(QPainter::TextAntialiasing);
    p.translate(x, y);
    p.rotate(angle);
    p.translate(-width * 0.5, -height * 0.5);
    for (int i = 0; i < (height < 10.0 ? 2 : 1); ++i)
        p.drawText(QRect(0, 0, Truncate(width), Truncate(height)),
                   Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip, Text(character));
    p.restore();
}

void ModelSurface::FontMarkerWithCairo(double x, double y, double height, double angle, const TXString& fontName,
                                       short character)
{
    if (font->GetFontName() != fontName)
    {
        font->SetFontName(fontName);
        if (cairo)
            cairo_select_font_face(cairo.get(), fontName.toUTF8().c_str(),
                                   font->IsItalic() ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                                   font->IsBold() ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    }
    if (!cairo)
        return;
    cairo_t* const cr = cairo.get();
    cairo_set_font_size(cr, SymbolSize(height));
    cairo_scaled_font_t* const scaled = cairo_get_scaled_font(cr);
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    if (QChar(static_cast<ushort>(character)).isSurrogate() ||
        cairo_scaled_font_text_to_glyphs(scaled, 0.0, 0.0, Text(character).toUtf8().constData(), -1, &glyphs, &count,
                                         nullptr, nullptr, nullptr) != CAIRO_STATUS_SUCCESS)
        return;
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(scaled, glyphs, count, &extents);
    const TXColor color = pen ? pen->GetColor() : TXColor::BLACK_;
    cairo_save(cr);
    cairo_translate(cr, x - extents.width * 0.5, y + std::abs(extents.y_bearing) - extents.height * 0.5);
    if (angle >= 1.0)
        cairo_rotate(cr, angle * kPi / 180);
    cairo_move_to(cr, 0.0, 0.0);
    cairo_set_source_rgba(cr, color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0, color.getA() / 255.0);
    for (int i = 0; i < (height < 15.0 ? 2 : 1); ++i)
        cairo_show_glyphs(cr, glyphs, count);
    cairo_glyph_free(glyphs);
    cairo_restore(cr);
}
