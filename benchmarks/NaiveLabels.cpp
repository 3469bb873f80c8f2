#include "NaiveLabels.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPalette>
#include <QTextDocument>

#include "Canvas.h"

using namespace TZObjects;

namespace
{

QColor ToQColor(const TXColor& color) { return QColor(color.getR(), color.getG(), color.getB(), color.getA()); }

void PaintHaloAndText(QPainter& painter, const QPainterPath& path, const LabelLook& look)
{
    painter.strokePath(path, QPen(QBrush(ToQColor(look.haloColor)), look.haloWidth));
    painter.fillPath(path, QBrush(ToQColor(look.fill)));
}

void PaintCairoText(cairo_t* context, const LabelLook& look, bool halo)
{
    if (halo)
    {
        SetCairoColor(context, look.haloColor);
        cairo_set_line_width(context, look.haloWidth);
        cairo_stroke_preserve(context);
    }
    SetCairoColor(context, look.fill);
    cairo_fill(context);
}

} // namespace

TXRefPtr<TXFont> MakeFont(const LabelLook& look)
{
    const TXRefPtr<TXFont> font(Engine().NewFont());
    font->Create();
    font->SetFontBold(false);
    font->SetFontItalicMode(TXFont::ItalicNone);
    font->SetFontName(TXString(look.family));
    font->SetFontHeight(look.height);
    font->SetWordSpacing(0.0);
    font->SetFontHalo(true);
    font->SetFontHaloWidth(look.haloWidth);
    font->SetFontHaloColor(look.haloColor);
    return font;
}

QFont DirectFont(const LabelLook& look)
{
    QFont font;
    font.setWeight(50);
    font.setStyle(QFont::StyleNormal);
    font.setFamily(QString::fromUtf8(look.family));
    font.setPixelSize(look.height);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.0);
    return font;
}

void DrawHaloLabel(QPainter& painter, const QFont& font, const LabelLook& look, const QPointF& topLeft,
                   const QString& text)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QFontMetricsF metrics(font);
    painter.translate(topLeft);
    QPainterPath path;
    path.addText(QPointF(0.0, metrics.ascent()), font, text);
    PaintHaloAndText(painter, path, look);
    painter.restore();
}

void DrawPlainLabel(QPainter& painter, const QFont& font, double x, double y, const QString& text)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(text);
    const double height = metrics.boundingRect(text).height();
    painter.translate(x + width * 0.5, y + height * 0.5);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addText(QPointF(-width * 0.5, -height * 0.5 + metrics.ascent()), font, text);
    const QColor color = painter.pen().color();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(color));
    painter.drawPath(path);
    painter.restore();
}

void DrawRichLabel(QPainter& painter, double x, double y, const QString& html)
{
    if (!Qt::mightBeRichText(html))
        return;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(x, y);
    QTextDocument document;
    document.setDefaultFont(painter.font());
    document.setHtml(QString(html).replace(QLatin1Char('\n'), QLatin1String("<br>")));
    QAbstractTextDocumentLayout::PaintContext context;
    context.cursorPosition = -1;
    context.palette.setBrush(QPalette::Text, QBrush(painter.pen().color()));
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

double DrawVerticalLabel(QPainter& painter, const QFont& font, const LabelLook& look, const QPointF& topLeft,
                         const QString& text)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QFontMetricsF metrics(font);
    double widest = 0.0;
    for (int i = 0; i < text.size(); ++i)
        widest = std::max(widest, metrics.horizontalAdvance(text.mid(i, 1)));
    painter.translate(topLeft);
    QPainterPath path;
    for (int i = 0; i < text.size(); ++i)
        path.addText(QPointF(0.0, metrics.ascent() + i * metrics.ascent()), font, text.mid(i, 1));
    PaintHaloAndText(painter, path, look);
    painter.restore();
    return widest;
}

void PrepareCairo(cairo_t* context, const LabelLook& look)
{
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GOOD);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_MEDIUM);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
    cairo_select_font_face(context, look.family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, look.height);
}

void DrawCairoLabel(cairo_t* context, const LabelLook& look, bool halo, double x, double y, const std::string& utf8)
{
    cairo_font_extents_t metrics;
    cairo_set_font_size(context, look.height);
    cairo_font_extents(context, &metrics);
    cairo_save(context);
    cairo_translate(context, x, y);
    cairo_move_to(context, 0.0, metrics.ascent);
    cairo_text_path(context, utf8.c_str());
    PaintCairoText(context, look, halo);
    cairo_restore(context);
}

void DrawCairoColumn(cairo_t* context, const LabelLook& look, double x, double y,
                     const std::vector<std::string>& characters)
{
    cairo_font_extents_t metrics;
    cairo_set_font_size(context, look.height);
    cairo_font_extents(context, &metrics);
    cairo_save(context);
    cairo_text_extents_t first;
    cairo_text_extents(context, characters.front().c_str(), &first);
    // The tallest column, being the only one, starts at the top.
    cairo_translate(context, x, y + (metrics.ascent + std::abs(first.y_bearing)) * 0.5);
    double baseline = 0.0;
    for (const std::string& character : characters)
    {
        cairo_move_to(context, 0.0, baseline);
        cairo_text_path(context, character.c_str());
        PaintCairoText(context, look, true);
        baseline += metrics.ascent;
    }
    cairo_restore(context);
}
