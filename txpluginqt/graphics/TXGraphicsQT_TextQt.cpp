// Labels through Qt.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <cmath>
#include <limits>

#include <QAbstractTextDocumentLayout>
#include <QPalette>

#include <txpluginqt/graphics/text/QtColumns.h>
#include <txpluginqt/graphics/text/QtTextBlock.h>
#include <txpluginqt/graphics/text/RichTextTags.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Fonts.h>
#include <txpluginqt/support/QtFonts.h>
#include <txpluginqt/support/RichTextDocument.h>

using namespace TZObjects;

namespace
{

// How a font is slanted that has no italic face of its own.
constexpr double kSlantAngle = 351.0;
constexpr double kSlantShear = 0.16;

// The nudge by which one of the renderers, and no other, lifts its baselines.
constexpr double kCentredLift = 1.0;

const QFont& QFontOf(const TXFont& font) { return *static_cast<const QFont*>(font.GetInternalObject()); }

bool IsDrawableScale(double scale) { return IsDrawable(scale * kLargestFontSize); }

QString ConvertedText(const TXString& text)
{
    QString converted = ToQString(text);
    ConvertRichTextTags(converted);
    return converted;
}

/// The label without its formatting, for renderers of outlines.
QString UnformattedText(const TXString& text, const QFont& font)
{
    const QString converted = ConvertedText(text);
    return IsRichText(converted) ? RichTextDocument(converted, font).toPlainText() : converted;
}

/// A rich label, laid out.
class RichLabel
{
public:
    RichLabel(const QString& text, const QFont& font)
        : document(QString(text).replace(QLatin1Char('\n'), QLatin1String("<br>")), font), size(document.size())
    {
    }

    const QSizeF& Size() const { return size; }

    /// Draws at the origin in the colour of the painter's pen, within @p clip where one is given.
    void Draw(QPainter& painter, const QRectF& clip = QRectF())
    {
        QAbstractTextDocumentLayout::PaintContext context;
        context.cursorPosition = -1;
        context.clip = clip;
        context.palette.setBrush(QPalette::Text, QBrush(painter.pen().color()));
        document.documentLayout()->draw(&painter, context);
    }

private:
    RichTextDocument document;
    QSizeF size;
};

/// The widest line of a rich label's lines and the sum of their heights, each line measured alone: rich ones with the
/// painter's font, which may be older than the selected one's settings.
QSizeF RichLinesExtent(const QString& text, const QFont& font, const QFont& painterFont)
{
    const QFontMetricsF metrics(font);
    double width = -std::numeric_limits<double>::infinity();
    double height = 0.0;
    for (const QString& line : text.split(QLatin1Char('\n')))
    {
        QSizeF size = metrics.boundingRect(line).size();
        if (IsRichText(line))
        {
            const QSizeF rich = RichTextDocument(line, painterFont).size();
            size = QSizeF(Truncated(rich.width()), Truncated(rich.height()));
        }
        width = std::max(width, size.width());
        height += size.height();
    }
    return QSizeF(width, height);
}

void FillInPenColor(QPainter& painter, const QtLabelOutlines& outlines)
{
    outlines.Fill(painter, QBrush(painter.pen().color()));
}

void StrokeHalo(QPainter& painter, const QtLabelOutlines& outlines, const TXFont& font)
{
    const TXColor color = font.GetFontHaloColor();
    const QBrush opaque(QColor(color.getR(), color.getG(), color.getB()));
    outlines.Stroke(painter, QPen(opaque, font.GetFontHaloWidth()));
}

/// Turns the painter to a label: anchor, rotation, scale.
void Turn(QPainter& painter, double angle, double scale)
{
    painter.rotate(angle);
    painter.scale(scale, scale);
}

/// The same, but leaves the transform without a rotation where there is none to speak of.
void TurnIfNeeded(QPainter& painter, double angle, double scale)
{
    if (std::abs(angle) > std::numeric_limits<double>::epsilon())
        painter.rotate(angle);
    painter.scale(scale, scale);
}

/// Moves to a label's anchor and slants what follows when the font asks for it.
void MoveToAnchor(QPainter& painter, const QPointF& anchor, TXFont& font)
{
    painter.translate(anchor);
    if (font.GetFontItalicMode() != TXFont::ItalicSlant)
        return;
    painter.rotate(kSlantAngle);
    painter.shear(0.0, kSlantShear);
}

} // namespace

template <class Draw>
bool TXGraphicsQT::PaintLabel(Draw draw)
{
    if (!font || !font->GetInternalObject() || !QtTextIsAvailable())
        return false;
    bool drawable = true;
    const bool painted = Paint(
        [&](QPainter& p)
        {
            const PainterStateScope state(p);
            p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            drawable = draw(p, QFontOf(*font));
        });
    return painted && drawable;
}

bool TXGraphicsQT::DrawStringWithQt(double ox, double oy, double left, double right, double top, double,
                                    TXTextVertAlign, TXTextHorizAlign hAlign, const TXString& text, double angle,
                                    const double& scale)
{
    if (!IsDrawable(ox, oy, left, top, angle) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            const QString label = ConvertedText(text);
            if (!IsRichText(label))
            {
                const auto block = QtTextBlock::Of(label, qfont);
                MoveToAnchor(p, QPointF(ox, oy), *font);
                Turn(p, angle, scale);
                FillInPenColor(p, block->Outlines(qfont, QPointF(left - ox, top - oy), block->LineHeight(), hAlign,
                                                  Qt::WindingFill));
                return true;
            }
            // The right edge matters here alone.
            if (hAlign == TextAlignRight && !IsDrawable(right))
                return false;
            RichLabel rich(label, p.font());
            const double width = rich.Size().width() * scale;
            double x = ox - width * 0.5;
            if (hAlign == TextAlignLeft)
                x = ox - (ox - left) * scale;
            else if (hAlign == TextAlignRight)
                x = ox + (right - ox) * scale - width;
            MoveToAnchor(p, QPointF(x, oy + (top - oy) * scale), *font);
            Turn(p, angle, scale);
            rich.Draw(p, QRectF(QPointF(0.0, 0.0), rich.Size()));
            return true;
        });
}

bool TXGraphicsQT::DrawStringWithQt(double x, double y, double dx, double dy, TXTextVertAlign, TXTextHorizAlign hAlign,
                                    const TXString& text, double angle, const double& scale)
{
    if (!IsDrawable(x, y, angle) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            const QString label = ConvertedText(text);
            if (!IsRichText(label))
            {
                if (!IsDrawable(dx, dy))
                    return false;
                const auto block = QtTextBlock::Of(label, qfont);
                const double halfWidth = block->Width() * 0.5;
                const double halfHeight = block->LineCount() * block->LineHeight() * 0.5;
                MoveToAnchor(p, QPointF(x + dx + halfWidth, y + dy + halfHeight), *font);
                Turn(p, angle, scale);
                FillInPenColor(p, block->Outlines(qfont, QPointF(-halfWidth, -halfHeight - kCentredLift),
                                                  block->LineHeight(), hAlign, Qt::WindingFill));
                return true;
            }
            // Without dx and dy, unlike the plain label.
            RichLabel rich(label, p.font());
            const double growth = scale - 1.0;
            MoveToAnchor(p, QPointF(x - growth * rich.Size().width() * 0.5, y - growth * rich.Size().height() * 0.5),
                         *font);
            Turn(p, angle, scale);
            rich.Draw(p);
            return true;
        });
}

bool TXGraphicsQT::DrawStringWithQt(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign, const TXString& text,
                                    double angle, double lineSpacing, const double& scale)
{
    if (!IsDrawable(x, y, angle) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            const QString label = ConvertedText(text);
            if (!IsRichText(label))
            {
                if (!IsDrawable(lineSpacing))
                    return false;
                const auto block = QtTextBlock::Of(label, qfont);
                const double halfWidth = block->Width() * 0.5;
                const double halfHeight =
                    ((block->LineCount() - 1) * lineSpacing + block->LineCount() * block->LineHeight()) * 0.5;
                MoveToAnchor(p, QPointF(x + halfWidth, y + halfHeight), *font);
                Turn(p, angle, scale);
                FillInPenColor(p, block->Outlines(qfont, QPointF(-halfWidth, -halfHeight),
                                                  block->LineHeight() + lineSpacing, hAlign, Qt::WindingFill));
                return true;
            }
            const QSizeF lines = RichLinesExtent(label, qfont, p.font());
            RichLabel rich(label, p.font());
            const double growth = scale - 1.0;
            MoveToAnchor(p, QPointF(x - growth * lines.width() * 0.5, y - growth * lines.height() * 0.5), *font);
            Turn(p, angle, scale);
            rich.Draw(p);
            return true;
        });
}

bool TXGraphicsQT::DrawOutlineStringWithQt(double ox, double oy, double left, double top, TXTextVertAlign,
                                           TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill,
                                           double angle, double lineSpacing, const double& scale)
{
    if (!IsDrawable(ox, oy, left, top, angle, lineSpacing) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            const auto block = QtTextBlock::Of(UnformattedText(text, p.font()), qfont);
            MoveToAnchor(p, QPointF(ox, oy), *font);
            TurnIfNeeded(p, angle, scale);
            const QtLabelOutlines outlines = block->Outlines(
                qfont, QPointF(left - ox, top - oy), block->LineHeight() + lineSpacing, hAlign, Qt::OddEvenFill);
            // Whatever the font's own switch says: outlined text is text with a halo.
            StrokeHalo(p, outlines, *font);
            outlines.Fill(p, QBrush(ToQColor(fill)));
            return true;
        });
}

bool TXGraphicsQT::DrawOutlineStringWithQt(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign,
                                           const TXString& text, const TXColor& fill, double angle, double lineSpacing,
                                           const double& scale)
{
    if (!IsDrawable(x, y, angle, lineSpacing) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            // Tags are drawn as they stand here.
            const auto block = QtTextBlock::Of(ToQString(text), qfont);
            const double halfWidth = block->Width() * 0.5;
            // The lines are spaced, but the centre does not take the spacing into account.
            const double halfHeight = block->LineCount() * block->LineHeight() * 0.5;
            MoveToAnchor(p, QPointF(x + halfWidth, y + halfHeight), *font);
            TurnIfNeeded(p, angle, scale);
            const QtLabelOutlines outlines = block->Outlines(
                qfont, QPointF(-halfWidth, -halfHeight), block->LineHeight() + lineSpacing, hAlign, Qt::OddEvenFill);
            StrokeHalo(p, outlines, *font);
            outlines.Fill(p, QBrush(ToQColor(fill)));
            return true;
        });
}

bool TXGraphicsQT::DrawVerticalStringWithQt(double ox, double oy, double left, double top, TXTextVertAlign,
                                            TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill,
                                            double angle, double columnSpacing, double charSpacing, bool halo,
                                            const double& scale)
{
    if (!IsDrawable(ox, oy, left, top, angle, columnSpacing, charSpacing) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            const auto columns = QtColumns::Of(UnformattedText(text, p.font()), qfont, columnSpacing, charSpacing);
            p.translate(ox, oy);
            TurnIfNeeded(p, angle, scale);
            const QtLabelOutlines outlines = columns->Outlines(qfont, QPointF(left - ox, top - oy), hAlign);
            if (halo)
                StrokeHalo(p, outlines, *font);
            outlines.Fill(p, QBrush(ToQColor(fill)));
            return true;
        });
}

bool TXGraphicsQT::DrawVerticalStringWithQt(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign,
                                            const TXString& text, const TXColor& fill, double angle,
                                            double columnSpacing, double charSpacing, bool halo, const double& scale)
{
    if (!IsDrawable(x, y, angle, columnSpacing, charSpacing) || !IsDrawableScale(scale))
        return false;
    return PaintLabel(
        [&](QPainter& p, const QFont& qfont)
        {
            // Tags are drawn as they stand here.
            const auto columns = QtColumns::Of(ToQString(text), qfont, columnSpacing, charSpacing);
            const double halfWidth = columns->Width() * 0.5;
            const double halfHeight = columns->Height() * 0.5;
            p.translate(x + halfWidth, y + halfHeight);
            TurnIfNeeded(p, angle, scale);
            const QtLabelOutlines outlines = columns->Outlines(qfont, QPointF(-halfWidth, -halfHeight), hAlign);
            if (halo)
                StrokeHalo(p, outlines, *font);
            outlines.Fill(p, QBrush(ToQColor(fill)));
            return true;
        });
}
