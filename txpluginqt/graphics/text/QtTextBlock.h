#pragma once

#include <vector>

#include <QFont>
#include <QPainterPath>
#include <QStringList>

/// The lines of a horizontal label, measured as Qt draws them.
class QtTextBlock
{
public:
    QtTextBlock(const QString& text, const QFont& font);

    /// The widest line.
    qreal Width() const { return width; }
    /// The height of the tallest line's bounds; empty lines take as much room as all others.
    qreal LineHeight() const { return lineHeight; }
    /// At least 1; an empty label is one empty line.
    int LineCount() const { return lines.size(); }

    /// The outlines of all lines, the block's top left at @p topLeft and each line @p step below the one before.
    /// @param hAlign 1 and 3 let the lines' left or right edges meet; any other value centres them.
    QPainterPath Outlines(const QPointF& topLeft, qreal step, int hAlign, Qt::FillRule fillRule) const;

private:
    QFont font;
    QStringList lines;
    std::vector<qreal> widths;
    qreal width = 0.0;
    qreal lineHeight = 0.0;
    qreal ascent = 0.0;
};
