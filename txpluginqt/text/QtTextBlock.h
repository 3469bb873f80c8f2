#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <QFont>
#include <QStringList>

#include <txpluginqt/text/LabelOutlines.h>

namespace txqt
{

/// The lines of a horizontal label, measured as Qt draws them.
class QtTextBlock
{
public:
    QtTextBlock(const QString& text, const QFont& font);
    /// The same, from the cache of labels.
    static std::shared_ptr<const QtTextBlock> Of(const QString& text, const QFont& font);

    /// The width of the widest line. Strong negative letter spacing makes it negative.
    qreal Width() const { return width; }
    /// The height of the tallest line's bounds. An empty line takes as much room as every other.
    qreal LineHeight() const { return lineHeight; }
    /// At least 1; an empty label is one empty line.
    int LineCount() const { return lines.size(); }

    /// The outlines of all lines, the block's top left at @p topLeft and each line @p step below the one before.
    /// @param font the one that the lines were measured with. @param hAlign 1 and 3 let the lines' left or right edges
    /// meet; any other value centres them.
    LabelOutlines Outlines(const QFont& font, const QPointF& topLeft, qreal step, int hAlign,
                           Qt::FillRule fillRule) const;

    /// How much memory the block takes.
    std::size_t Bytes() const;

private:
    QString text;
    QStringList lines;
    std::vector<qreal> widths;
    qreal width = 0.0;
    qreal lineHeight = 0.0;
    qreal ascent = 0.0;
};

} // namespace txqt
