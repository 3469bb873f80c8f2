#include <txmap/sources/BoxIndex.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace txmap
{
namespace
{

using Corner = boost::geometry::model::d2::point_xy<double>;
using Box = boost::geometry::model::box<Corner>;
using Entry = std::pair<Box, std::uint32_t>;

Box ToBox(const MercatorBox& box) { return Box({box.left, box.top}, {box.right, box.bottom}); }

std::vector<Entry> EntriesOf(const std::vector<MercatorBox>& boxes)
{
    std::vector<Entry> entries;
    entries.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (boxes[i].left <= boxes[i].right && boxes[i].top <= boxes[i].bottom)
            entries.emplace_back(ToBox(boxes[i]), static_cast<std::uint32_t>(i));
    return entries;
}

} // namespace

struct BoxIndex::Tree
{
    explicit Tree(const std::vector<Entry>& entries) : packed(entries) {}

    boost::geometry::index::rtree<Entry, boost::geometry::index::quadratic<16>> packed;
};

BoxIndex::BoxIndex(const std::vector<MercatorBox>& boxes) : tree(std::make_unique<const Tree>(EntriesOf(boxes))) {}

BoxIndex::~BoxIndex() = default;

std::vector<std::size_t> BoxIndex::Touching(const std::vector<MercatorBox>& areas) const
{
    std::vector<std::size_t> found;
    for (const MercatorBox& area : areas)
        tree->packed.query(
            boost::geometry::index::intersects(ToBox(area)),
            boost::make_function_output_iterator([&](const Entry& entry) { found.push_back(entry.second); }));
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace txmap
