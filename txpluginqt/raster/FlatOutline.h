#pragma once

#include <vector>

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QTransform>

namespace txqt
{

/// An outline of lines in place of curves, with the points that Qt's rasteriser takes.
class FlatOutline
{
public:
    /// How far a curve may be from its lines, in pixels.
    static constexpr double kFlatness = 0.25;
    /// The same in the units of an outline that is to be transformed.
    static double FlatnessFor(const QTransform& transform);

    /// Replaces the points by those of another outline.
    void Flatten(const QPointF* source, const QPainterPath::ElementType* sourceKinds, int count, double flatness);

    const std::vector<QPointF>& Points() const { return points; }
    const std::vector<QPainterPath::ElementType>& Kinds() const { return kinds; }

    /// How much memory is held, in bytes.
    std::size_t Bytes() const;
    /// Lets go of the memory.
    void Release();

private:
    struct Curve;

    /// Adds the lines in place of a curve that begins at the last point.
    void AddCurve(const Curve& curve, double flatness);

    std::vector<QPointF> points;
    std::vector<QPainterPath::ElementType> kinds;
};

} // namespace txqt
