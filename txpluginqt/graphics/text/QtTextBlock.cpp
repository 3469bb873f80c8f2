#include <txpluginqt/graphics/text/QtTextBlock.h>

#include <algorithm>

#include <QFontMetricsF>

#include <txpluginqt/graphics/text/Alignment.h>

QtTextBlock::QtTextBlock(const QString& text, const QFont& font) : font(font), lines(text.split(QLatin1Char('\n')))
{
    const QFontMetricsF metrics(font);
    ascent = metrics.ascent();
    widths.reserve(static_cast<std::size_t>(lines.size()));
    for (const QString& line : lines)
    {
        widths.push_back(metrics.horizontalAdvance(line));
        width = std::max(width, widths.back());
        lineHeight = std::max(lineHeight, metrics.boundingRect(line).height());
    }
}

QPainterPath QtTextBlock::Outlines(const QPointF& topLeft, qreal step, int hAlign, Qt::FillRule fillRule) const
{
    QPainterPath outlines;
    outlines.setFillRule(fillRule);
    for (int i = 0; i < lines.size(); ++i)
    {
        const qreal indent = AlignedOffset(hAlign, width - widths[static_cast<std::size_t>(i)]);
        outlines.addText(topLeft.x() + indent, topLeft.y() + ascent + i * step, font, lines[i]);
    }
    return outlines;
}
