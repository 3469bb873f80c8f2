#pragma once

#include <vector>

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

namespace txqt
{

/// A point of the device in 1/256 of a pixel.
struct FixedPoint
{
    int x;
    int y;
};

/// A run of points of a `FixedOutline`, which closes by itself.
struct FixedContour
{
    int first; ///< The index of its first point.
    int count;
    int top;    ///< The least y, in 1/256 of a pixel.
    int bottom; ///< The greatest.
};

/// Closed contours of straight lines in device space, with the coordinates that Qt's rasteriser computes with: mapped
/// by the transform, rounded to 1/64 of a pixel, then scaled to 1/256.
class FixedOutline
{
public:
    /// Replaces the contours by others.
    /// @param kinds moves and lines only; null for a single contour.
    /// @return false when Qt would clip this outline first: a point or the whole extent is beyond 32,767 pixels.
    bool Set(const QPointF* points, const QPainterPath::ElementType* kinds, int count, const QTransform& transform);

    const std::vector<FixedContour>& Contours() const { return contours; }
    const FixedPoint* Points() const { return points.data(); }
    /// The bounds of the mapped points before they were rounded.
    QRectF Bounds() const { return QRectF(QPointF(left, top), QPointF(right, bottom)); }
    /// The bounds in whole pixels; empty without points.
    QRect Pixels() const;

    /// How much memory is held, in bytes.
    std::size_t Bytes() const;
    /// Lets go of the memory.
    void Release();

private:
    template <class Map>
    void MapPoints(const QPointF* source, std::size_t count, Map map);
    bool SetMapped(const QPointF* source, const QPainterPath::ElementType* kinds, std::size_t count);
    bool FindBounds(const QPointF* source, std::size_t count);
    template <class Round>
    void RoundPoints(const QPointF* source, std::size_t first, std::size_t last, Round round);

    // These only grow, since points that are written at once need no initial value.
    std::vector<QPointF> mapped;
    std::vector<FixedPoint> points;
    std::vector<FixedContour> contours;
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

} // namespace txqt
