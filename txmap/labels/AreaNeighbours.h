#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <txmap/labels/VisibleShape.h>
#include <txmap/map/MapLayer.h>

namespace txmap
{

/// On what a box lies, in parts of its size; what is left is neither.
struct BoxCover
{
    double home = 0.0;    ///< The area itself, and those of the same name.
    double foreign = 0.0; ///< Other areas.
};

/// The visible areas of a layer, and which of them a box covers.
class AreaNeighbours
{
public:
    AreaNeighbours(const MapLayer& layer, const TZObjects::TXRect& frame);

    const VisibleShape& Shape(std::size_t area) const { return shapes[area]; }
    /// On what a box lies.
    BoxCover CoverOf(const TZObjects::TXRect& box, std::size_t area) const;

private:
    using Corner = boost::geometry::model::d2::point_xy<double>;
    using Box = boost::geometry::model::box<Corner>;
    using Entry = std::pair<Box, std::size_t>;

    bool IsHome(std::size_t one, std::size_t other) const;

    std::vector<VisibleShape> shapes;
    std::vector<const std::string*> names; ///< Null for areas without one.
    boost::geometry::index::rtree<Entry, boost::geometry::index::quadratic<16>> index;
};

} // namespace txmap
