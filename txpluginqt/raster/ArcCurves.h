#pragma once

#include <QPointF>

namespace txqt
{

/// Curves of an arc.
struct ArcCurves
{
    QPointF points[15]; ///< Two control points and an end for each curve.
    int count = 0;      ///< Of points.
};

/// The curves of an arc around a centre as Qt's stroker has them, to the last bit. The angles are degrees,
/// counter-clockwise; the sweep is not positive.
ArcCurves CurvesOfArc(const QPointF& centre, double radius, double start, double sweep);

} // namespace txqt
