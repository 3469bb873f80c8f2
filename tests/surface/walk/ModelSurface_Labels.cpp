// Labels of the model through Qt, and the choice of the text path.
#include <algorithm>
#include <cmath>
#include <limits>

#include <tests/txpluginqt/text/ExpectedLabel.h>
#include <tests/txpluginqt/text/NaiveTags.h>

#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

/// Where a label goes: the painter's translation, and the top left of its lines or columns from there.
struct Placement
{
    QPointF anchor;
    QPointF topLeft;
};

Placement About(const Label& label)
{
    return {QPointF(label.x, label.y), QPointF(label.left - label.x, label.top - label.y)};
}

/// Centred in a box of that size whose top left is at (@p x, @p y).
Placement CentredAt(double x, double y, double width, double height)
{
    const QPointF half(width * 0.5, height * 0.5);
    return {QPointF(x + half.x(), y + half.y()), -half};
}

/// Lines and columns are not turned by what is as good as no angle.
double AngleOrNone(double angle) { return std::abs(angle) > 2.220446049250313e-16 ? angle : 0.0; }

FontChoice HaloOf(const ModelFont& font)
{
    FontChoice choice;
    choice.haloColor = font.haloColor;
    choice.haloWidth = font.haloWidth;
    return choice;
}

void DrawPlain(QPainter& painter, const ModelFont& font, Entry entry, const Label& label)
{
    const PlainBlock block(ConvertedNaively(label.Text()), font.qfont);
    const double lines = static_cast<double>(block.lines.size());
    double step = block.height;
    Placement placement = About(label);
    if (entry == Entry::StringMoved)
    {
        placement = CentredAt(label.x + label.dx, label.y + label.dy, block.width, lines * block.height);
        placement.topLeft.ry() -= 1.0;
    }
    else if (entry == Entry::StringAt)
    {
        placement = CentredAt(label.x, label.y, block.width, (lines - 1) * label.lineSpacing + lines * block.height);
        step += label.lineSpacing;
    }
    Place(painter, placement.anchor, font.italicMode == 2, label.angle, label.scale);
    FillInPenColor(painter, block.Path(placement.topLeft, step, label.hAlign, Qt::WindingFill));
}

/// The widest of a rich label's lines, each measured alone, and the sum of their heights.
QSizeF LinesAlone(const QString& html, const QFont& font, const QFont& painterFont)
{
    QSizeF all(-std::numeric_limits<double>::infinity(), 0.0);
    for (const QString& line : html.split('\n'))
    {
        QSizeF size = QFontMetricsF(font).boundingRect(line).size();
        if (Qt::mightBeRichText(line))
        {
            QTextDocument document;
            SetHtml(document, line, painterFont);
            size = QSizeF(Truncate(document.size().width()), Truncate(document.size().height()));
        }
        all = QSizeF(std::max(all.width(), size.width()), all.height() + size.height());
    }
    return all;
}

void DrawRich(QPainter& painter, const ModelFont& font, Entry entry, const Label& label)
{
    const QString html = ConvertedNaively(label.Text());
    const double s = label.scale;
    QTextDocument document;
    SetHtml(document, QString(html).replace("\n", "<br>"), painter.font());
    const QSizeF size = document.size();
    QSizeF grown = size;
    QPointF anchor;
    QRectF clip;
    if (entry == Entry::StringInBox)
    {
        clip = QRectF(QPointF(0.0, 0.0), size);
        anchor.setX(label.x - size.width() * s * 0.5);
        if (label.hAlign == 1)
            anchor.setX(label.x - (label.x - label.left) * s);
        if (label.hAlign == 3)
            anchor.setX(label.x + (label.right - label.x) * s - size.width() * s);
        anchor.setY(label.y + (label.top - label.y) * s);
    }
    else
    {
        if (entry == Entry::StringAt)
            grown = LinesAlone(html, font.qfont, painter.font());
        anchor = QPointF(label.x - (s - 1) * grown.width() * 0.5, label.y - (s - 1) * grown.height() * 0.5);
    }
    const QColor color = painter.pen().color();
    Place(painter, anchor, font.italicMode == 2, label.angle, s);
    DrawDocument(painter, document, color, clip);
}

void DrawOutline(QPainter& painter, const ModelFont& font, Entry entry, const Label& label)
{
    const bool about = entry == Entry::OutlineAbout;
    const PlainBlock block(about ? WithoutFormatting(label) : label.Text(), font.qfont);
    const Placement placement =
        about ? About(label) : CentredAt(label.x, label.y, block.width, block.lines.size() * block.height);
    Place(painter, placement.anchor, font.italicMode == 2, AngleOrNone(label.angle), label.scale);
    const QPainterPath outlines =
        block.Path(placement.topLeft, block.height + label.lineSpacing, label.hAlign, Qt::OddEvenFill);
    StrokeHalo(painter, outlines, HaloOf(font));
    FillInColor(painter, outlines, label.fill);
}

void DrawVertical(QPainter& painter, const ModelFont& font, Entry entry, const Label& label)
{
    const bool about = entry == Entry::VerticalAbout;
    const ColumnBlock block(about ? WithoutFormatting(label) : label.Text(), font.qfont, label.columnSpacing,
                            label.charSpacing);
    const Placement placement = about ? About(label) : CentredAt(label.x, label.y, block.width, block.height);
    Place(painter, placement.anchor, false, AngleOrNone(label.angle), label.scale);
    const QPainterPath outlines = block.Path(placement.topLeft, label.hAlign);
    if (label.halo)
        StrokeHalo(painter, outlines, HaloOf(font));
    FillInColor(painter, outlines, label.fill);
}

} // namespace

bool Draw(ModelSurface& surface, Entry entry, const Label& label) { return surface.DrawLabel(entry, label); }

bool ModelSurface::DrawLabel(Entry entry, const Label& label)
{
    if (entry != Entry::StringByFontAngle)
        return cairoEnabled ? DrawLabelWithCairo(entry, label) : DrawLabelWithQt(entry, label);
    if (!font)
        return false;
    Label turned = label;
    turned.angle = font->angle;
    return DrawLabel(Entry::StringMoved, turned);
}

bool ModelSurface::DrawLabelWithQt(Entry entry, const Label& label)
{
    if (!font)
        return false;
    return Paint(
        [&](QPainter& p)
        {
            p.save();
            p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            if (entry == Entry::VerticalAbout || entry == Entry::VerticalAt)
                DrawVertical(p, *font, entry, label);
            else if (entry == Entry::OutlineAbout || entry == Entry::OutlineAt)
                DrawOutline(p, *font, entry, label);
            else if (IsRich(label))
                DrawRich(p, *font, entry, label);
            else
                DrawPlain(p, *font, entry, label);
            p.restore();
        });
}
