// Measuring, as Qt draws and as cairo draws.
#include <txpluginqt/resources/TXFontQT.h>

#include <algorithm>
#include <vector>

#include <QFont>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QStringList>

#include <txpluginqt/graphics/text/RichTextTags.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Guards.h>
#include <txpluginqt/support/QtFonts.h>
#include <txpluginqt/support/RichTextDocument.h>

namespace TZObjects
{
namespace
{

/// The form in which a label is drawn.
QString ConvertedText(const TXString& text)
{
    QString converted = ToQString(text);
    ConvertRichTextTags(converted);
    return converted;
}

QSizeF RichExtent(const QString& html, const QFont& font) { return RichTextDocument(html, font).size(); }

/// Half up, the way whole units are asked for; sizes are not negative.
int Rounded(qreal size) { return Truncated(size + 0.5); }

cairo_font_extents_t FontExtents(cairo_t* context)
{
    cairo_font_extents_t extents{};
    cairo_font_extents(context, &extents);
    return extents;
}

double TextWidth(cairo_t* context, const TXString& text)
{
    cairo_text_extents_t extents{};
    cairo_text_extents(context, text.toUTF8().c_str(), &extents);
    return extents.width;
}

/// The widest line and the sum of the lines' heights.
struct BlockExtent
{
    double width = 0.0;
    double height = 0.0;

    void Add(double lineWidth, double lineHeight)
    {
        width = std::max(width, lineWidth);
        height += lineHeight;
    }
};

BlockExtent CairoBlockExtent(cairo_t* context, const TXString& text, double spacing)
{
    BlockExtent block;
    const double lineHeight = FontExtents(context).height;
    for (const TXString& line : text.split(L'\n'))
        block.Add((line.length() - 1) * spacing + TextWidth(context, line), lineHeight);
    return block;
}

} // namespace

bool TXFontQT::GetTextExtent(const TXString& text, double& textWidth, double& textHeight, bool useQt) const
{
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            if (!useQt)
            {
                textWidth = TextWidth(measureContext.get(), text);
                textHeight = FontExtents(measureContext.get()).height;
                return;
            }
            const QString converted = ConvertedText(text);
            if (IsRichText(converted))
            {
                const QSizeF size = RichExtent(converted, *Font());
                textWidth = size.width();
                textHeight = size.height();
                return;
            }
            const QFontMetricsF metrics(*Font());
            const QRectF bounds = metrics.boundingRect(converted);
            textWidth = std::max(metrics.horizontalAdvance(converted), bounds.width());
            textHeight = bounds.height();
        });
}

bool TXFontQT::GetTextExtent(const TXString& text, int& textWidth, int& textHeight, bool useQt) const
{
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            if (!useQt)
            {
                textWidth = Truncated(TextWidth(measureContext.get(), text));
                textHeight = Truncated(FontExtents(measureContext.get()).height);
                return;
            }
            const QString converted = ConvertedText(text);
            if (IsRichText(converted))
            {
                const QSizeF size = RichExtent(converted, *Font());
                textWidth = Rounded(size.width());
                textHeight = Rounded(size.height());
                return;
            }
            // The advance alone: unlike in the other variant the bounds do not widen it.
            const QFontMetrics metrics(*Font());
            textWidth = metrics.horizontalAdvance(converted);
            textHeight = metrics.boundingRect(converted).height();
        });
}

bool TXFontQT::GetMultiTextExtent(const TXString& text, double& textWidth, double& textHeight, bool useQt) const
{
    textWidth = 0.0;
    textHeight = 0.0;
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            BlockExtent block;
            if (!useQt)
                block = CairoBlockExtent(measureContext.get(), text, GetWordSpacing());
            else
            {
                const QFontMetricsF metrics(*Font());
                for (const QString& line : ConvertedText(text).split(QLatin1Char('\n')))
                {
                    const QSizeF size =
                        IsRichText(line) ? RichExtent(line, *Font()) : metrics.boundingRect(line).size();
                    block.Add(size.width(), size.height());
                }
            }
            textWidth = block.width;
            textHeight = block.height;
        });
}

bool TXFontQT::GetMultiTextExtent(const TXString& text, int& textWidth, int& textHeight, bool useQt) const
{
    textWidth = 0;
    textHeight = 0;
    if (useQt ? !CanMeasureWithQt() : !measureContext)
        return false;
    return Succeeds(
        [&]
        {
            BlockExtent block;
            if (!useQt)
                block = CairoBlockExtent(measureContext.get(), text, GetWordSpacing());
            else
            {
                const QFontMetrics metrics(*Font());
                for (const QString& line : ConvertedText(text).split(QLatin1Char('\n')))
                {
                    const QSizeF rich = IsRichText(line) ? RichExtent(line, *Font()) : QSizeF();
                    const QSize size = rich.isValid() ? QSize(Truncated(rich.width()), Truncated(rich.height()))
                                                      : metrics.boundingRect(line).size();
                    block.Add(size.width(), size.height());
                }
            }
            textWidth = Truncated(block.width);
            textHeight = Truncated(block.height);
        });
}

void TXFontQT::GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const
{
    if (!useQt && measureContext)
    {
        const cairo_font_extents_t extents = FontExtents(measureContext.get());
        height = extents.height;
        ascent = extents.ascent;
        descent = extents.descent;
    }
    if (useQt && CanMeasureWithQt())
    {
        const QFontMetricsF metrics(*Font());
        height = metrics.height();
        ascent = metrics.ascent();
        descent = metrics.descent();
    }
}

void TXFontQT::GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const
{
    if (!useQt && measureContext)
    {
        const cairo_font_extents_t extents = FontExtents(measureContext.get());
        height = Truncated(extents.height);
        ascent = Truncated(extents.ascent);
        descent = Truncated(extents.descent);
    }
    if (useQt && CanMeasureWithQt())
    {
        const QFontMetrics metrics(*Font());
        height = metrics.height();
        ascent = metrics.ascent();
        descent = metrics.descent();
    }
}

double TXFontQT::GetMaxCharWidthOfText(const TXString& text, bool useQt) const
{
    if (!useQt && !measureContext)
        return GetFontHeight();
    if (text.isEmpty() || (useQt && !CanMeasureWithQt()))
        return 0.0;
    return ResultOr(0.0,
                    [&]
                    {
                        // An average, where Qt's path answers with the widest character.
                        if (!useQt)
                            return TextWidth(measureContext.get(), text) / text.length();
                        const QFontMetricsF metrics(*Font());
                        double widest = 0.0;
                        for (const QChar character : ToQString(text))
                            widest = std::max(widest, metrics.horizontalAdvance(character));
                        return widest;
                    });
}

bool TXFontQT::CanMeasureWithQt() const { return Font() && QtTextIsAvailable(); }

} // namespace TZObjects
