#pragma once

#include <cstddef>

#include <QBrush>
#include <QPainterPath>
#include <QPen>

#include <txpluginqt/raster/Drawing.h>

class QPainter;

namespace txqt
{

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
    explicit InkOutline(Outline outline);
    QPainterPath ToPath() const;
    void Flatten();

    Outline outline;
    Outline flat; ///< Without curves, for filling where nothing is scaled; empty when there are none anyway.
};

} // namespace txqt
