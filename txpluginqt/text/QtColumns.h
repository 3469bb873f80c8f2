#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <QFont>
#include <QString>

#include <txpluginqt/text/LabelOutlines.h>

namespace txqt
{

/// The columns of a vertical label, measured as Qt draws them: each line of the text is a column, and each UTF-16 unit
/// of it one character below the one before.
class QtColumns
{
public:
    /// @param columnSpacing extra space between columns.
    /// @param charSpacing extra space between the characters of a column.
    QtColumns(const QString& text, const QFont& font, qreal columnSpacing, qreal charSpacing);
    /// The same, from the cache of labels.
    static std::shared_ptr<const QtColumns> Of(const QString& text, const QFont& font, qreal columnSpacing,
                                               qreal charSpacing);

    /// The width of the whole label. With more than one column it includes the gap after the last one.
    qreal Width() const;
    /// The height of the longest column.
    qreal Height() const { return height; }

    /// The outlines of all characters, the label's top left at @p topLeft.
    /// @param font the one that the columns were measured with. @param align 1 lets the columns' tops meet, 3 their
    /// ends; any other value centres them.
    LabelOutlines Outlines(const QFont& font, const QPointF& topLeft, int align) const;

    /// How much memory the columns take.
    std::size_t Bytes() const;

private:
    struct Column
    {
        QString text;
        qreal width;
        qreal height;
        qreal gap; // on top of the column spacing
    };

    QString text;
    std::vector<Column> columns;
    qreal columnSpacing;
    qreal ascent;
    qreal step;
    qreal height = 0.0;
};

} // namespace txqt
