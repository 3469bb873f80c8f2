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

/// The curves of an arc around a centre as Qt's stroker has them. The coordinates differ by what sine and cosine differ
/// by between processors, less than a billionth of what Qt rounds them to. The angles are degrees, counter-clockwise;
/// the sweep is not positive.
ArcCurves CurvesOfArc(const QPointF& centre, double radius, double start, double sweep);

} // namespace txqt
