#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/labels/VisibleShape.h>

namespace txmap
{

/// A place for the centre of a label.
struct InnerPoint
{
    TZObjects::TXPoint position;
    double room = 0.0;  ///< Half the height of the largest label whose middle stays that far from every edge.
    double merit = 0.0; ///< The room, and less of it the farther the point is from the shape's centre.
};

/// Where in the largest part of a shape a label sits well, the best place first: the one from which the nearest edge is
/// farthest (the pole of inaccessibility), measured such that room to the sides counts as much as the label is longer
/// than high. Where there is about the same room in many places, as in a long country, the one nearest to the centre
/// wins. The others follow in falling order of merit, all of them inside.
/// @param shape not empty.
/// @param proportion the label's width by its height.
std::vector<InnerPoint> InnerPoints(const VisibleShape& shape, double proportion);

} // namespace txmap
