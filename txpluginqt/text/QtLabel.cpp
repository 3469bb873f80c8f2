#include <txpluginqt/text/QtLabel.h>

#include <cmath>
#include <limits>

#include <txgraphics/TXGraphics.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Fonts.h>
#include <txpluginqt/support/ScopeGuards.h>
#include <txpluginqt/text/QtColumns.h>
#include <txpluginqt/text/QtTextBlock.h>
#include <txpluginqt/text/RichLabel.h>
#include <txpluginqt/text/RichTextTags.h>

using namespace TZObjects;

namespace txqt
{
namespace
{

// How a font is slanted that has no italic face of its own.
constexpr double kSlantAngle = 351.0;
constexpr double kSlantShear = 0.16;

enum class Tags
{
    Formatted, ///< Rich text is drawn as such.
    Dropped,   ///< Rich text is drawn without its formatting.
    Shown,     ///< Tags are drawn as they stand.
};

/// What distinguishes the forms.
struct Traits
{
    Tags tags;
    bool turnsAboutPoint; ///< Else about the label's middle.
    bool isOutlined;      ///< With a halo and a colour of its own.
    bool isSpaced;        ///< Lines are apart by the spacing as well.
    bool countsSpacing;   ///< The label's middle takes the spacing into account.
    double lift;          ///< By how much all baselines are higher.
};

Traits TraitsOf(QtLabelForm form)
{
    switch (form)
    {
    case QtLabelForm::StringInBox:
        return {Tags::Formatted, true, false, false, false, 0.0};
    case QtLabelForm::StringMoved:
        return {Tags::Formatted, false, false, false, false, 1.0};
    case QtLabelForm::StringAt:
        return {Tags::Formatted, false, false, true, true, 0.0};
    case QtLabelForm::OutlineAbout:
        return {Tags::Dropped, true, true, true, false, 0.0};
    case QtLabelForm::OutlineAt:
        return {Tags::Shown, false, true, true, false, 0.0};
    case QtLabelForm::ColumnsAbout:
        return {Tags::Dropped, true, true, true, true, 0.0};
    case QtLabelForm::ColumnsAt:
    default:
        return {Tags::Shown, false, true, true, true, 0.0};
    }
}

bool IsColumns(QtLabelForm form) { return form == QtLabelForm::ColumnsAbout || form == QtLabelForm::ColumnsAt; }

bool IsDrawablePoint(const QPointF& point) { return IsDrawable(point.x(), point.y()); }

const QFont& QFontOf(TXFont& font) { return *static_cast<const QFont*>(font.GetInternalObject()); }

/// The text as the form draws it, without formatting where it drops that.
QString TextOf(const QtLabel& label, Tags tags, const QFont& painterFont)
{
    QString text = ToQString(label.text);
    if (tags == Tags::Shown)
        return text;
    ConvertRichTextTags(text);
    return tags == Tags::Dropped && IsRichText(text) ? RichTextDocument(text, painterFont).toPlainText() : text;
}

/// Moves to a label's anchor and slants what follows when the font asks for it.
void MoveTo(QPainter& painter, const QPointF& anchor, TXFont& font)
{
    painter.translate(anchor);
    if (font.GetFontItalicMode() != TXFont::ItalicSlant)
        return;
    painter.rotate(kSlantAngle);
    painter.shear(0.0, kSlantShear);
}

void Turn(QPainter& painter, const QtLabel& label)
{
    painter.rotate(label.angle);
    painter.scale(label.scale, label.scale);
}

/// The same, but leaves the transform without a rotation where the angle is as good as none.
void TurnIfNeeded(QPainter& painter, const QtLabel& label)
{
    if (std::abs(label.angle) > std::numeric_limits<double>::epsilon())
        painter.rotate(label.angle);
    painter.scale(label.scale, label.scale);
}

void StrokeHalo(QPainter& painter, const LabelOutlines& outlines, TXFont& font)
{
    const TXColor color = font.GetFontHaloColor();
    const QBrush opaque(QColor(color.getR(), color.getG(), color.getB()));
    outlines.Stroke(painter, QPen(opaque, font.GetFontHaloWidth()));
}

void DrawLines(QPainter& painter, TXFont& font, const QtLabel& label, const Traits& traits, const QString& text)
{
    const QFont& qfont = QFontOf(font);
    const auto block = QtTextBlock::Of(text, qfont);
    const int lines = block->LineCount();
    QPointF anchor = label.at;
    QPointF topLeft = label.corner - label.at;
    if (!traits.turnsAboutPoint)
    {
        const double halfWidth = block->Width() * 0.5;
        const double halfHeight = traits.countsSpacing
                                      ? ((lines - 1) * label.spacing + lines * block->LineHeight()) * 0.5
                                      : lines * block->LineHeight() * 0.5;
        anchor = label.at + label.offset + QPointF(halfWidth, halfHeight);
        topLeft = QPointF(-halfWidth, -halfHeight - traits.lift);
    }
    MoveTo(painter, anchor, font);
    if (traits.isOutlined)
        TurnIfNeeded(painter, label);
    else
        Turn(painter, label);
    const double step = traits.isSpaced ? block->LineHeight() + label.spacing : block->LineHeight();
    // Where letters overlap, an outlined label has holes.
    const Qt::FillRule fillRule = traits.isOutlined ? Qt::OddEvenFill : Qt::WindingFill;
    const LabelOutlines outlines = block->Outlines(qfont, topLeft, step, label.align, fillRule);
    if (!traits.isOutlined)
    {
        outlines.Fill(painter, QBrush(painter.pen().color()));
        return;
    }
    // The font's own switch does not matter: outlined text is text with a halo.
    StrokeHalo(painter, outlines, font);
    outlines.Fill(painter, QBrush(ToQColor(label.fill)));
}

void DrawColumns(QPainter& painter, TXFont& font, const QtLabel& label, const Traits& traits, const QString& text)
{
    const QFont& qfont = QFontOf(font);
    const auto columns = QtColumns::Of(text, qfont, label.spacing, label.charSpacing);
    QPointF anchor = label.at;
    QPointF topLeft = label.corner - label.at;
    if (!traits.turnsAboutPoint)
    {
        const QPointF half(columns->Width() * 0.5, columns->Height() * 0.5);
        anchor = label.at + half;
        topLeft = -half;
    }
    // Columns are never slanted.
    painter.translate(anchor);
    TurnIfNeeded(painter, label);
    const LabelOutlines outlines = columns->Outlines(qfont, topLeft, label.align);
    if (label.halo)
        StrokeHalo(painter, outlines, font);
    outlines.Fill(painter, QBrush(ToQColor(label.fill)));
}

/// Where a rich label lies in its box.
QPointF RichAnchor(const QtLabel& label, const QSizeF& size)
{
    const double x = label.at.x();
    const double scale = label.scale;
    const double y = label.at.y() + (label.corner.y() - label.at.y()) * scale;
    if (label.align == TXGraphics::TextAlignLeft)
        return QPointF(x - (x - label.corner.x()) * scale, y);
    if (label.align == TXGraphics::TextAlignRight)
        return QPointF(x + (label.right - x) * scale - size.width() * scale, y);
    return QPointF(x - size.width() * scale * 0.5, y);
}

void DrawRich(QPainter& painter, TXFont& font, const QtLabel& label, const QString& html)
{
    RichLabel rich(html, painter.font());
    const double growth = label.scale - 1.0;
    QPointF anchor;
    QRectF clip;
    if (label.form == QtLabelForm::StringInBox)
    {
        anchor = RichAnchor(label, rich.Size());
        clip = QRectF(QPointF(0.0, 0.0), rich.Size());
    }
    else
    {
        // A moved label is not moved when it is rich.
        const QSizeF size =
            label.form == QtLabelForm::StringMoved ? rich.Size() : RichLinesExtent(html, QFontOf(font), painter.font());
        anchor = QPointF(label.at.x() - growth * size.width() * 0.5, label.at.y() - growth * size.height() * 0.5);
    }
    MoveTo(painter, anchor, font);
    Turn(painter, label);
    rich.Draw(painter, clip);
}

} // namespace

bool IsDrawable(const QtLabel& label)
{
    const Traits traits = TraitsOf(label.form);
    return IsDrawablePoint(label.at) && IsDrawable(label.angle) && IsDrawable(label.scale * kLargestFontSize) &&
           (!traits.turnsAboutPoint || IsDrawablePoint(label.corner)) &&
           (!traits.isOutlined || IsDrawable(label.spacing, label.charSpacing));
}

bool DrawQtLabel(QPainter& painter, TXFont& font, const QtLabel& label)
{
    const Traits traits = TraitsOf(label.form);
    const QString text = TextOf(label, traits.tags, painter.font());
    const bool isRich = traits.tags == Tags::Formatted && IsRichText(text);
    const bool usesRight = label.form == QtLabelForm::StringInBox && label.align == TXGraphics::TextAlignRight;
    if (isRich ? usesRight && !IsDrawable(label.right) : !IsDrawablePoint(label.offset) || !IsDrawable(label.spacing))
        return false;

    const PainterStateScope state(painter);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (isRich)
        DrawRich(painter, font, label, text);
    else if (IsColumns(label.form))
        DrawColumns(painter, font, label, traits, text);
    else
        DrawLines(painter, font, label, traits, text);
    return true;
}

} // namespace txqt
