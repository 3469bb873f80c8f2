#pragma once

#include <functional>
#include <vector>

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>

#include <tests/support/RandomSource.h>
#include <tests/support/Twins.h>
#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>

/// Random parameters of drawing calls.
class Random : public RandomSource
{
public:
    using RandomSource::RandomSource;

    /// Mostly on or near the test surface; also exact halves and wholes, tiny numbers around 0, and far outside.
    double Coordinate();
    /// Mostly lengths that fit the test surface; also 0, negative, tiny and large ones.
    double Length();
    TZObjects::TXPoint Point();
    /// Between @p fewest and @p most points.
    std::vector<TZObjects::TXPoint> Points(int fewest, int most);
    /// Any colour, often translucent.
    TZObjects::TXColor Color();
    QPen Pen();
    QBrush Brush();
    /// Sets everything that a painter holds for shapes, the same on both painters.
    void ChangeState(Twins& twins);
};

/// Runs @p draw @p cases times on images of formats 5 and 6, each time over the background and with another random
/// state of both painters. Afterwards both images must hold the same pixels and both painters the same state, and a
/// good share of all cases must have drawn something.
void ForRandomCases(unsigned seed, int cases, const std::function<void(Random&, Twins&)>& draw);

/// Switches antialiasing off where Qt's own pictures are not always the same: the edges of an antialiased gradient, on
/// pixels that are not premultiplied, differ by one with the place of Qt's buffer on the stack.
void AvoidUncertainEdges(QPainter& painter);

/// The points in Qt's type.
QPolygonF ToQt(const std::vector<TZObjects::TXPoint>& points);
QPointF ToQt(const TZObjects::TXPoint& point);
/// The colour in Qt's type, alpha kept.
QColor ToQt(const TZObjects::TXColor& color);
