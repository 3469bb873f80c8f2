#include <txpluginqt/text/QtColumns.h>

#include <algorithm>

#include <QFontMetricsF>

#include <txpluginqt/support/Numbers.h>
#include <txpluginqt/text/Alignment.h>
#include <txpluginqt/text/ColumnGap.h>

namespace txqt
{
namespace
{

struct LetterAdvance
{
    qreal width;

    static std::size_t Bytes() { return sizeof(LetterAdvance); }
};

/// Measuring a letter takes long, and labels share their letters.
qreal LetterWidth(const QFontMetricsF& metrics, const QFont& font, const QString& letter)
{
    return LabelCache::OfThread()
        .Get<LetterAdvance>(font, letter, NoDetail(), [&] { return LetterAdvance{metrics.horizontalAdvance(letter)}; })
        ->width;
}

/// What columns depend on besides their font and text.
struct ColumnsDetail
{
    double columnSpacing;
    double charSpacing;

    bool operator==(const ColumnsDetail& other) const
    {
        return BitsOf(columnSpacing) == BitsOf(other.columnSpacing) && BitsOf(charSpacing) == BitsOf(other.charSpacing);
    }
    std::size_t Hash() const
    {
        auto hash = static_cast<std::size_t>(BitsOf(columnSpacing));
        CombineHash(hash, static_cast<std::size_t>(BitsOf(charSpacing)));
        return hash;
    }
    static std::size_t Bytes() { return 0; }
};

} // namespace

QtColumns::QtColumns(const QString& text, const QFont& font, qreal columnSpacing, qreal charSpacing)
    : text(text), columnSpacing(columnSpacing)
{
    const QFontMetricsF metrics(font);
    ascent = metrics.ascent();
    // The ascent, not the height: a descender may touch the next character.
    step = ascent + charSpacing;
    // A slant that the font itself does not have makes no wider gaps.
    const bool italic = font.style() != QFont::StyleNormal;
    for (const QString& line : text.split(QLatin1Char('\n')))
    {
        qreal width = 0.0;
        for (int k = 0; k < line.size(); ++k)
        {
            if (line.indexOf(line[k]) != k)
                continue;
            const qreal letter = LetterWidth(metrics, font, line.mid(k, 1));
            width = k == 0 ? letter : std::max(width, letter);
        }
        const qreal length = line.size() * step - charSpacing;
        height = columns.empty() ? length : std::max(height, length);
        columns.push_back({line, width, length, metrics.height() * GapFactor(columns.empty(), italic)});
    }
}

qreal QtColumns::Width() const
{
    // In this order: the last bit of the sum can move a label by 1/64 of a pixel.
    qreal width = 0.0;
    for (const Column& column : columns)
        width += column.width;
    width += static_cast<qreal>(columns.size() - 1) * columnSpacing;
    if (columns.size() > 1)
        for (const Column& column : columns)
            width += column.gap;
    return width;
}

std::shared_ptr<const QtColumns> QtColumns::Of(const QString& text, const QFont& font, qreal columnSpacing,
                                               qreal charSpacing)
{
    return LabelCache::OfThread().Get<QtColumns>(font, text, ColumnsDetail{columnSpacing, charSpacing},
                                                 [&] { return QtColumns(text, font, columnSpacing, charSpacing); });
}

LabelOutlines QtColumns::Outlines(const QFont& font, const QPointF& topLeft, int align) const
{
    std::vector<PlacedText> pieces;
    pieces.reserve(static_cast<std::size_t>(text.size()));
    qreal x = topLeft.x();
    for (const Column& column : columns)
    {
        const qreal firstBaseline = topLeft.y() + ascent + AlignedOffset(align, height - column.height);
        for (int k = 0; k < column.text.size(); ++k)
            pieces.push_back({QPointF(x, firstBaseline + k * step), column.text.mid(k, 1)});
        x += column.width + columnSpacing + column.gap;
    }
    return LabelOutlines(font, text, pieces, Qt::OddEvenFill);
}

std::size_t QtColumns::Bytes() const
{
    return sizeof(*this) + columns.capacity() * (sizeof(Column) + 32) +
           static_cast<std::size_t>(text.size()) * 2 * sizeof(QChar);
}

} // namespace txqt
