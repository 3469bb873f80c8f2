#pragma once

#include <cstddef>
#include <vector>

#include <QBrush>
#include <QPainterPath>
#include <QPen>

class QPainter;

namespace txqt
{

struct OutlineView;

/// The outlines of a label's ink, for drawing many times.
class InkOutline
{
public:
    explicit InkOutline(const QPainterPath& path);

    /// The pixels of `QPainter::fillPath`.
    void Fill(QPainter& painter, const QBrush& brush) const;
    /// The pixels of `QPainter::strokePath`.
    void Stroke(QPainter& painter, const QPen& pen) const;
    /// What a stroke with that solid pen covers.
    InkOutline Stroked(const QPen& pen) const;

    /// How much memory the outlines take.
    std::size_t Bytes() const;

private:
    OutlineView View() const;
    QPainterPath ToPath() const;

    std::vector<QPointF> points;
    std::vector<QPainterPath::ElementType> kinds;
    Qt::FillRule fillRule;
    bool isCurved = false;
};

} // namespace txqt
