#pragma once

#include <cstddef>
#include <vector>

#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <txbase/TXRect.h>

namespace txmap
{

/// Finds out where there is room for boxes: inside a frame, and clear of all boxes before.
class LabelPlacer
{
public:
    explicit LabelPlacer(const TZObjects::TXRect& frame) : frame(frame) {}

    /// Takes a box, wherever it is, which no later one may touch.
    void Block(const TZObjects::TXRect& box);
    /// Gives a box back that was taken.
    void Release(const TZObjects::TXRect& box);
    /// True when a box lies in the frame and touches no other.
    bool IsFree(const TZObjects::TXRect& box) const;
    /// Takes the box if it is free. @return whether it was.
    bool Place(const TZObjects::TXRect& box);

private:
    using Corner = boost::geometry::model::d2::point_xy<double>;
    using Box = boost::geometry::model::box<Corner>;

    static Box ToBox(const TZObjects::TXRect& box) { return {{box.left, box.top}, {box.right, box.bottom}}; }

    TZObjects::TXRect frame;
    boost::geometry::index::rtree<Box, boost::geometry::index::quadratic<16>> taken;
};

} // namespace txmap
