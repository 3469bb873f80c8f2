#pragma once

#include <cstddef>
#include <vector>

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QRectF>

class QPainter;

namespace txqt
{

struct OutlineView;

/// The outlines of a label's ink, for drawing many times.
///
/// Filling goes by parts that have no pixel in common: Qt's rasteriser looks for the place of each piece of an edge
/// along the whole row of pixels, which makes a long label dearer than its letters one by one.
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
    /// Contours that overlap sideways, such as those of one letter.
    struct Part
    {
        int first;
        int count;
        QRectF bounds;
    };

    OutlineView View(int first, int count) const;
    QPainterPath ToPath() const;
    void AddContour(int first, int count);
    void FillParts(QPainter& painter, const QBrush& brush) const;

    std::vector<QPointF> points;
    std::vector<QPainterPath::ElementType> kinds;
    Qt::FillRule fillRule;
    std::vector<Part> parts;
    QRectF bounds;
};

} // namespace txqt
