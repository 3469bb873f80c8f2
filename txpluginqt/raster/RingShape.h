#pragma once

#include <QPainterPath>

#include <txbase/TXPoint.h>

class QPainter;

namespace txqt
{

/// One shape of several rings: the rings' points one after another, and how many each ring has. Rings with no point, or
/// with fewer, are not there. Nothing is copied from the host's arrays, which must outlive this.
class RingShape
{
public:
    RingShape(const TZObjects::TXPoint* points, const int* counts, int rings);

    /// True when Qt can draw the shape: every coordinate is in range, and there are no more points than Qt can count.
    bool IsDrawable() const;
    /// Draws the shape with the painter's brush and pen straight from the host's points. False, nothing drawn, when the
    /// painter's engine cannot do that.
    bool DrawInPlace(QPainter& painter) const;
    /// The same shape as a path of Qt's, for all other engines.
    QPainterPath ToPath() const;
    /// The same with every coordinate rounded to the nearest whole number, halves away from zero.
    QPainterPath ToRoundedPath() const;

private:
    template <class Convert>
    QPainterPath ConvertedPath(Convert convert) const;

    const TZObjects::TXPoint* points;
    const int* counts;
    int rings;
    long long total = 0;
};

} // namespace txqt
