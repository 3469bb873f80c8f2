#include "ExpectedLabel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPalette>

#include "NaiveTags.h"

using namespace TZObjects;

namespace
{

constexpr double kEpsilon = 2.220446049250313e-16;

QString Html(const Label& label) { return ConvertedNaively(label.Text()); }

bool IsSlanted(const Label& label) { return label.font.italic == TXFont::ItalicSlant; }

double Offset(int align, double room) { return align == 1 ? 0.0 : align == 3 ? room : room * 0.5; }

QString Joined(QString html) { return html.replace("\n", "<br>"); }

/// Widest and summed height, every line measured alone.
QSizeF LinesExtent(const QString& html, const QFont& font)
{
    double width = -std::numeric_limits<double>::infinity();
    double height = 0.0;
    for (const QString& line : html.split('\n'))
    {
        QSizeF size = QFontMetricsF(font).boundingRect(line).size();
        if (Qt::mightBeRichText(line))
        {
            QTextDocument document;
            SetHtml(document, line, font);
            size = QSizeF(int(document.size().width()), int(document.size().height()));
        }
        width = std::max(width, size.width());
        height += size.height();
    }
    return {width, height};
}

/// A transform like that of Place, but without a call of `rotate` for an angle that is as good as none.
void PlaceOutline(QPainter& painter, const QPointF& anchor, bool slanted, double angle, double scale)
{
    Place(painter, anchor, slanted, std::abs(angle) > kEpsilon ? angle : 0.0, scale);
}

void DrawPlain(QPainter& painter, Entry entry, const Label& l, double angle)
{
    const PlainBlock block(Html(l), DirectFont(l.font));
    const double n = block.lines.size();
    const double w = block.width;
    const double h = block.height;
    QPointF anchor(l.x, l.y);
    QPointF topLeft(l.left - l.x, l.top - l.y);
    double step = h;
    if (entry == Entry::StringMoved)
    {
        anchor = QPointF(l.x + l.dx + w * 0.5, l.y + l.dy + n * h * 0.5);
        topLeft = QPointF(-w * 0.5, -n * h * 0.5 - 1.0);
    }
    else if (entry == Entry::StringAt)
    {
        const double total = (n - 1) * l.lineSpacing + n * h;
        anchor = QPointF(l.x + w * 0.5, l.y + total * 0.5);
        topLeft = QPointF(-w * 0.5, -total * 0.5);
        step = h + l.lineSpacing;
    }
    Place(painter, anchor, IsSlanted(l), angle, l.scale);
    FillInPenColor(painter, block.Path(topLeft, step, l.hAlign, Qt::WindingFill));
}

void DrawRich(QPainter& painter, Entry entry, const Label& l, double angle)
{
    const QColor color = painter.pen().color();
    QTextDocument document;
    SetHtml(document, Joined(Html(l)), painter.font());
    const double docW = document.size().width();
    const double docH = document.size().height();
    const double s = l.scale;
    QPointF anchor;
    QRectF clip;
    if (entry == Entry::StringInBox)
    {
        anchor.setX(l.hAlign == 1   ? l.x - (l.x - l.left) * s
                    : l.hAlign == 3 ? l.x + (l.right - l.x) * s - docW * s
                                    : l.x - docW * s * 0.5);
        anchor.setY(l.y + (l.top - l.y) * s);
        clip = QRectF(0.0, 0.0, docW, docH);
    }
    else
    {
        const QSizeF size = entry == Entry::StringMoved ? QSizeF(docW, docH) : LinesExtent(Html(l), painter.font());
        anchor = QPointF(l.x - (s - 1) * size.width() * 0.5, l.y - (s - 1) * size.height() * 0.5);
    }
    Place(painter, anchor, IsSlanted(l), angle, s);
    DrawDocument(painter, document, color, clip);
}

void DrawOutline(QPainter& painter, Entry entry, const Label& l)
{
    const bool about = entry == Entry::OutlineAbout;
    const PlainBlock block(about ? WithoutFormatting(l) : l.Text(), DirectFont(l.font));
    const QPointF half(block.width * 0.5, block.lines.size() * block.height * 0.5);
    PlaceOutline(painter, about ? QPointF(l.x, l.y) : QPointF(l.x + half.x(), l.y + half.y()), IsSlanted(l), l.angle,
                 l.scale);
    const QPainterPath path = block.Path(about ? QPointF(l.left - l.x, l.top - l.y) : -half,
                                         block.height + l.lineSpacing, l.hAlign, Qt::OddEvenFill);
    StrokeHalo(painter, path, l.font);
    FillInColor(painter, path, l.fill);
}

void DrawVertical(QPainter& painter, Entry entry, const Label& l)
{
    const bool about = entry == Entry::VerticalAbout;
    const ColumnBlock block(about ? WithoutFormatting(l) : l.Text(), DirectFont(l.font), l.columnSpacing,
                            l.charSpacing);
    const QPointF half(block.width * 0.5, block.height * 0.5);
    PlaceOutline(painter, about ? QPointF(l.x, l.y) : QPointF(l.x + half.x(), l.y + half.y()), false, l.angle, l.scale);
    const QPainterPath path = block.Path(about ? QPointF(l.left - l.x, l.top - l.y) : -half, l.hAlign);
    if (l.halo)
        StrokeHalo(painter, path, l.font);
    FillInColor(painter, path, l.fill);
}

} // namespace

bool IsRich(const Label& label) { return Qt::mightBeRichText(Html(label)); }

QString WithoutFormatting(const Label& label)
{
    if (!IsRich(label))
        return Html(label);
    QTextDocument document;
    document.setHtml(Html(label));
    return document.toPlainText();
}

PlainBlock::PlainBlock(const QString& text, const QFont& blockFont) : font(blockFont), lines(text.split('\n'))
{
    const QFontMetricsF metrics(font);
    ascent = metrics.ascent();
    for (const QString& line : lines)
    {
        widths.push_back(metrics.horizontalAdvance(line));
        height = std::max(height, metrics.boundingRect(line).height());
    }
    width = *std::max_element(widths.begin(), widths.end());
}

QPainterPath PlainBlock::Path(const QPointF& topLeft, double step, int align, Qt::FillRule rule) const
{
    QPainterPath path;
    path.setFillRule(rule);
    for (std::size_t i = 0; i < widths.size(); ++i)
    {
        const double x = topLeft.x() + Offset(align, width - widths[i]);
        path.addText(QPointF(x, topLeft.y() + ascent + static_cast<double>(i) * step), font,
                     lines[static_cast<int>(i)]);
    }
    return path;
}

ColumnBlock::ColumnBlock(const QString& text, const QFont& blockFont, double columnSpace, double charSpacing)
    : font(blockFont), columns(text.split('\n')), columnSpacing(columnSpace)
{
    const QFontMetricsF metrics(font);
    ascent = metrics.ascent();
    step = ascent + charSpacing;
    const bool italic = font.style() != QFont::StyleNormal;
    for (const QString& column : columns)
    {
        double widest = column.isEmpty() ? 0.0 : metrics.horizontalAdvance(column.mid(0, 1));
        for (int j = 1; j < column.size(); ++j)
            widest = std::max(widest, metrics.horizontalAdvance(column.mid(j, 1)));
        const bool first = widths.empty();
        widths.push_back(widest);
        heights.push_back(column.size() * step - charSpacing);
        gaps.push_back(metrics.height() * (first ? (italic ? 0.3 : 0.2) : (italic ? 0.2 : 0.05)));
    }
    height = *std::max_element(heights.begin(), heights.end());
    for (const double one : widths)
        width += one;
    width += static_cast<double>(widths.size() - 1) * columnSpacing;
    if (widths.size() > 1)
        for (const double gap : gaps)
            width += gap;
}

QPainterPath ColumnBlock::Path(const QPointF& topLeft, int align) const
{
    QPainterPath path;
    double x = topLeft.x();
    for (std::size_t i = 0; i < widths.size(); ++i)
    {
        const QString column = columns[static_cast<int>(i)];
        const double first = topLeft.y() + ascent + Offset(align, height - heights[i]);
        for (int j = 0; j < column.size(); ++j)
            path.addText(QPointF(x, first + j * step), font, column.mid(j, 1));
        x += widths[i] + columnSpacing + gaps[i];
    }
    return path;
}

void Place(QPainter& painter, const QPointF& anchor, bool slanted, double angle, double scale)
{
    painter.translate(anchor);
    if (slanted)
    {
        painter.rotate(351.0);
        painter.shear(0.0, 0.16);
    }
    painter.rotate(angle);
    painter.scale(scale, scale);
}

void FillInPenColor(QPainter& painter, const QPainterPath& path)
{
    const QColor color = painter.pen().color();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(color));
    painter.drawPath(path);
}

void StrokeHalo(QPainter& painter, const QPainterPath& path, const FontChoice& font)
{
    const TXColor& c = font.haloColor;
    painter.strokePath(path, QPen(QBrush(QColor(c.getR(), c.getG(), c.getB(), 255)), font.haloWidth));
}

void FillInColor(QPainter& painter, const QPainterPath& path, const TXColor& color)
{
    painter.fillPath(path, QBrush(QColor(color.getR(), color.getG(), color.getB(), color.getA())));
}

void SetHtml(QTextDocument& document, const QString& html, const QFont& font)
{
    document.setDefaultFont(font);
    document.setHtml(html);
}

void DrawDocument(QPainter& painter, QTextDocument& document, const QColor& color, const QRectF& clip)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.cursorPosition = -1;
    if (clip.isValid())
        context.clip = clip;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        context.palette.setBrush(group, QPalette::Text, QBrush(color));
    document.documentLayout()->draw(&painter, context);
}

void DrawDirectly(QPainter& painter, Entry entry, const Label& label)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (entry == Entry::VerticalAbout || entry == Entry::VerticalAt)
        DrawVertical(painter, entry, label);
    else if (entry == Entry::OutlineAbout || entry == Entry::OutlineAt)
        DrawOutline(painter, entry, label);
    else
    {
        const double angle = entry == Entry::StringByFontAngle ? label.font.angle : label.angle;
        const Entry renderer = entry == Entry::StringByFontAngle ? Entry::StringMoved : entry;
        if (IsRich(label))
            DrawRich(painter, renderer, label, angle);
        else
            DrawPlain(painter, renderer, label, angle);
    }
    painter.restore();
}
