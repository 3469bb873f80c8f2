#include "CairoLabels.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include <QPointF>
#include <QStringList>

using namespace TZObjects;

namespace
{

constexpr double kPi = 3.141592653589793;

/// Where the top left of a label lies that is given by its corner, turned about (x, y) and scaled from there.
QPointF TurnedCorner(const Label& label)
{
    const double radians = label.angle * kPi / 180;
    const double dx = label.scale * (label.left - label.x);
    const double dy = label.scale * (label.top - label.y);
    return {label.x + dx * std::cos(radians) - dy * std::sin(radians),
            label.y + dx * std::sin(radians) + dy * std::cos(radians)};
}

/// Where the top left of an entry's label lies.
QPointF TopLeft(Entry entry, const Label& label)
{
    switch (entry)
    {
    case Entry::StringInBox:
    case Entry::OutlineAbout:
    case Entry::VerticalAbout:
        return TurnedCorner(label);
    case Entry::StringMoved:
    case Entry::StringByFontAngle:
        return {label.x + label.dx, label.y + label.dy};
    default:
        return {label.x, label.y};
    }
}

using GlyphList = std::vector<std::unique_ptr<Glyphs>>;

/// The heights of the rules of a piece of text, and how they are stroked.
struct Rules
{
    double strikeOut;
    double underline;
    double length;
    double width;
};

/// Halo, text and rules of the path that has been made; the rules start at @p x.
void PaintPath(cairo_t* cr, const ExpectedLabel& label, double x, const Rules& rules)
{
    if (label.halo)
        StrokeHalo(cr, label.haloColor, label.haloWidth);
    FillPath(cr, label.color);
    if (!label.underline && !label.strikeOut)
        return;
    if (label.strikeOut)
        AddRule(cr, x, rules.strikeOut, rules.length);
    if (label.underline)
        AddRule(cr, x, rules.underline, rules.length);
    StrokeRules(cr, label.color, rules.width);
}

/// A line laid out character by character, its top at 0.
struct SpacedLine
{
    GlyphList characters;
    double width = 0.0;

    SpacedLine(cairo_scaled_font_t* font, const QString& text, double ascent, double spacing)
    {
        double x = 0.0;
        for (int i = 0; i < text.size(); ++i)
        {
            auto glyphs = std::make_unique<Glyphs>(font, text.mid(i, 1), x, ascent);
            if (!glyphs->Converted())
                continue;
            x += glyphs->Extents().width + glyphs->Extents().x_bearing + spacing;
            width += glyphs->Extents().width;
            characters.push_back(std::move(glyphs));
        }
        width += (text.size() - 1) * spacing;
    }

    void Paint(cairo_t* cr, const ExpectedLabel& label, const cairo_font_extents_t& metrics, double ruleWidth) const
    {
        if (characters.empty())
            return;
        for (const auto& character : characters)
            character->AddTo(cr);
        const double bearing = std::abs(characters.front()->Extents().y_bearing);
        PaintPath(cr, label, 0.0,
                  {metrics.ascent - bearing * 0.5, metrics.ascent + metrics.descent / label.scale, width, ruleWidth});
    }
};

double Aligned(int align, double room) { return align == 1 ? 0.0 : align == 3 ? room : room * 0.5; }

void DrawPlainLine(cairo_t* cr, cairo_scaled_font_t* font, const ExpectedLabel& label,
                   const cairo_font_extents_t& metrics)
{
    const Glyphs glyphs(font, label.text, 0.0, metrics.ascent);
    if (!glyphs.Converted())
        return;
    glyphs.AddTo(cr);
    const cairo_text_extents_t& ink = glyphs.Extents();
    PaintPath(cr, label, 0.0,
              {metrics.ascent - std::abs(ink.y_bearing) * 0.5, metrics.ascent + metrics.descent / label.scale,
               ink.width, metrics.height / 15});
}

void DrawPlainLines(cairo_t* cr, cairo_scaled_font_t* font, const ExpectedLabel& label,
                    const cairo_font_extents_t& metrics)
{
    GlyphList lines;
    double widest = 0.0;
    for (const QString& line : label.text.split('\n'))
    {
        lines.push_back(std::make_unique<Glyphs>(font, line, 0.0, 0.0));
        widest = std::max(widest, lines.back()->Extents().width);
    }
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        const double top = (metrics.height + label.lineSpacing * label.scale) * static_cast<double>(i);
        if (!lines[i]->IsNull())
        {
            const double width = lines[i]->Extents().width;
            cairo_save(cr);
            cairo_translate(cr, Aligned(label.align, widest - width), top + metrics.ascent);
            lines[i]->AddTo(cr);
            PaintPath(
                cr, label, 0.0,
                {metrics.descent - metrics.ascent * 0.5, metrics.descent / label.scale, width, metrics.height / 15});
            cairo_restore(cr);
        }
    }
}

void DrawSpacedLines(cairo_t* cr, cairo_scaled_font_t* font, const ExpectedLabel& label,
                     const cairo_font_extents_t& metrics)
{
    std::vector<SpacedLine> lines;
    double widest = 0.0;
    for (const QString& line : label.text.split('\n'))
    {
        lines.emplace_back(font, line, metrics.ascent, label.charSpacing * label.scale);
        widest = lines.size() == 1 ? lines.back().width : std::max(widest, lines.back().width);
    }
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        const double top = static_cast<double>(i) * (metrics.height + label.lineSpacing);
        cairo_save(cr);
        cairo_translate(cr, Aligned(label.align, widest - lines[i].width), top);
        lines[i].Paint(cr, label, metrics, metrics.height / 15);
        cairo_restore(cr);
    }
}

/// One line of the label as a column of characters, the first baseline at 0.
struct Column
{
    GlyphList characters;
    std::vector<double> baselines;
    double x;
    double widest = 0.0;
    double height = 0.0;

    Column(cairo_scaled_font_t* font, const QString& text, double x, double step) : x(x)
    {
        for (int i = 0; i < text.size(); ++i)
        {
            auto glyphs = std::make_unique<Glyphs>(font, text.mid(i, 1), x, height);
            if (!glyphs->Converted())
                continue;
            widest = std::max(widest, glyphs->Extents().width);
            characters.push_back(std::move(glyphs));
            baselines.push_back(height);
            height += step;
        }
    }

    double FirstHeight() const { return characters.empty() ? 0.0 : std::abs(characters[0]->Extents().y_bearing); }

    void Paint(cairo_t* cr, const ExpectedLabel& label, const cairo_font_extents_t& metrics) const
    {
        for (std::size_t i = 0; i < characters.size(); ++i)
        {
            characters[i]->AddTo(cr);
            const cairo_text_extents_t& ink = characters[i]->Extents();
            PaintPath(cr, label, x,
                      {baselines[i] - std::abs(ink.y_bearing) * 0.5, metrics.descent / label.scale + baselines[i],
                       ink.width, metrics.height / 20});
        }
    }
};

} // namespace

Glyphs::Glyphs(cairo_scaled_font_t* font, const QString& text, double x, double y)
    : status(cairo_scaled_font_text_to_glyphs(font, x, y, text.toUtf8().constData(), -1, &array, &count, nullptr,
                                              nullptr, nullptr))
{
    if (Converted())
        cairo_scaled_font_glyph_extents(font, array, count, &extents);
}

Glyphs::~Glyphs() { cairo_glyph_free(array); }

void Glyphs::AddTo(cairo_t* context) const { cairo_glyph_path(context, array, count); }

void SetSource(cairo_t* context, const TXColor& color)
{
    cairo_set_source_rgba(context, color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0,
                          color.getA() / 255.0);
}

cairo_font_extents_t UseSize(cairo_t* context, double size)
{
    cairo_font_extents_t extents;
    cairo_set_font_size(context, size);
    cairo_font_extents(context, &extents);
    return extents;
}

cairo_text_extents_t AddText(cairo_t* context, const QString& text, double x, double y)
{
    const Glyphs glyphs(cairo_get_scaled_font(context), text, x, y);
    glyphs.AddTo(context);
    return glyphs.Extents();
}

void FillPath(cairo_t* context, const TXColor& color)
{
    SetSource(context, color);
    cairo_fill(context);
}

void StrokeHalo(cairo_t* context, const TXColor& color, double width)
{
    SetSource(context, color);
    cairo_set_line_width(context, width);
    cairo_stroke_preserve(context);
}

void AddRule(cairo_t* context, double x, double y, double length)
{
    cairo_move_to(context, x, y);
    cairo_line_to(context, x + length, y);
}

void StrokeRules(cairo_t* context, const TXColor& color, double width)
{
    SetSource(context, color);
    cairo_set_line_width(context, width);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_stroke(context);
}

ExpectedLabel::ExpectedLabel(Entry entry, const Label& label, const FontChoice* font, const TXColor& pen)
    : text(label.Text()), angle(label.angle), scale(label.scale), color(pen),
      inColumns(entry == Entry::VerticalAbout || entry == Entry::VerticalAt)
{
    const bool isOutline = entry == Entry::OutlineAbout || entry == Entry::OutlineAt;
    x = TopLeft(entry, label).x();
    y = TopLeft(entry, label).y();
    align = inColumns ? label.vAlign : label.hAlign;
    if (inColumns)
        lineSpacing = label.columnSpacing;
    else if (isOutline || entry == Entry::StringAt)
        lineSpacing = label.lineSpacing;
    if (inColumns || isOutline)
        color = label.fill;
    halo = isOutline;
    haloColor = isOutline ? TXColor::RED_ : TXColor::WHITE_;
    haloWidth = isOutline ? 1.5 : 0.1;
    if (!font)
        return;
    if (entry == Entry::StringByFontAngle)
        angle = font->angle;
    fontHeight = font->height;
    charSpacing = font->letterSpacing;
    italic = font->italic != TXFont::ItalicNone;
    underline = font->underline;
    strikeOut = font->strikeOut;
    halo = isOutline || (font->halo && (!inColumns || label.halo));
    // The alpha of the halo's colour is dropped.
    haloColor = TXColor(font->haloColor.getR(), font->haloColor.getG(), font->haloColor.getB(), 255);
    haloWidth = std::max(font->haloWidth, 1);
}

void ExpectedLabel::Draw(cairo_t* context) const
{
    if (inColumns)
        DrawColumns(context);
    else
        DrawLines(context);
}

void ExpectedLabel::DrawLines(cairo_t* context) const
{
    cairo_new_path(context);
    const cairo_font_extents_t metrics = UseSize(context, std::max(fontHeight * scale, 0.1));
    cairo_scaled_font_t* const font = cairo_get_scaled_font(context);
    cairo_save(context);
    cairo_translate(context, x, y);
    cairo_rotate(context, angle * kPi / 180);
    const bool several = text.contains('\n');
    const bool spaced = std::abs(charSpacing * scale) > 0.0;
    if (several && spaced)
        DrawSpacedLines(context, font, *this, metrics);
    else if (several)
        DrawPlainLines(context, font, *this, metrics);
    else if (spaced)
        SpacedLine(font, text, metrics.ascent, charSpacing * scale).Paint(context, *this, metrics, metrics.height / 20);
    else
        DrawPlainLine(context, font, *this, metrics);
    cairo_restore(context);
}

void ExpectedLabel::DrawColumns(cairo_t* context) const
{
    cairo_new_path(context);
    const cairo_font_extents_t metrics = UseSize(context, std::max(fontHeight * scale, 0.1));
    cairo_scaled_font_t* const font = cairo_get_scaled_font(context);
    cairo_save(context);
    std::vector<Column> columns;
    double advance = 0.0;
    double tallest = 0.0;
    for (const QString& line : text.split('\n'))
    {
        columns.emplace_back(font, line, advance, metrics.ascent + charSpacing * scale);
        advance += columns.back().widest + lineSpacing * scale;
        tallest = columns.size() == 1 ? columns.back().height : std::max(tallest, columns.back().height);
    }
    cairo_translate(context, x, y);
    cairo_rotate(context, angle * kPi / 180);
    double gaps = 0.0;
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        const double centring = align == 1 || align == 3 ? (tallest - columns[i].height) * 0.5 : 0.0;
        cairo_save(context);
        cairo_translate(context, gaps, centring + (metrics.ascent + columns[i].FirstHeight()) * 0.5);
        columns[i].Paint(context, *this, metrics);
        cairo_restore(context);
        if (i == 0)
            gaps += metrics.height * (italic ? 0.3 : 0.2);
        else
            gaps += metrics.height * (italic ? 0.2 : 0.05);
    }
    cairo_restore(context);
}
