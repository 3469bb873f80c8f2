#include <txpluginqt/text/QtTextBlock.h>

#include <algorithm>

#include <QFontMetricsF>

#include <txpluginqt/text/Alignment.h>

namespace txqt
{

QtTextBlock::QtTextBlock(const QString& text, const QFont& font) : text(text), lines(text.split(QLatin1Char('\n')))
{
    const QFontMetricsF metrics(font);
    ascent = metrics.ascent();
    widths.reserve(static_cast<std::size_t>(lines.size()));
    for (const QString& line : lines)
    {
        widths.push_back(metrics.horizontalAdvance(line));
        lineHeight = std::max(lineHeight, metrics.boundingRect(line).height());
    }
    width = *std::max_element(widths.begin(), widths.end());
}

std::shared_ptr<const QtTextBlock> QtTextBlock::Of(const QString& text, const QFont& font)
{
    return LabelCache::OfThread().Get<QtTextBlock>(font, text, NoDetail(), [&] { return QtTextBlock(text, font); });
}

LabelOutlines QtTextBlock::Outlines(const QFont& font, const QPointF& topLeft, qreal step, int hAlign,
                                    Qt::FillRule fillRule) const
{
    std::vector<PlacedText> pieces;
    pieces.reserve(widths.size());
    for (int i = 0; i < lines.size(); ++i)
    {
        const qreal indent = AlignedOffset(hAlign, width - widths[static_cast<std::size_t>(i)]);
        pieces.push_back({QPointF(topLeft.x() + indent, topLeft.y() + ascent + i * step), lines[i]});
    }
    return LabelOutlines(font, text, pieces, fillRule);
}

std::size_t QtTextBlock::Bytes() const
{
    // A label of one line shares its text with the line.
    constexpr std::size_t lineBytes = sizeof(QString) + sizeof(qreal) + 32;
    return sizeof(*this) + static_cast<std::size_t>(lines.size()) * lineBytes +
           static_cast<std::size_t>(text.size()) * sizeof(QChar);
}

} // namespace txqt
