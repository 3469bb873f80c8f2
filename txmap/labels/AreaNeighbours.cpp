#include <txmap/labels/AreaNeighbours.h>

#include <algorithm>
#include <iterator>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// A box is judged by a grid of points.
constexpr int kColumns = 10;
constexpr int kRows = 3;

} // namespace

AreaNeighbours::AreaNeighbours(const MapLayer& layer, const TXRect& frame) : names(layer.areas.size(), nullptr)
{
    std::vector<Entry> entries;
    shapes.reserve(layer.areas.size());
    for (const Area& area : layer.areas)
    {
        shapes.emplace_back(layer, area, frame);
        if (shapes.back().IsEmpty())
            continue;
        const TXRect& bounds = shapes.back().Bounds();
        entries.emplace_back(Box({bounds.left, bounds.top}, {bounds.right, bounds.bottom}), shapes.size() - 1);
    }
    for (const NamedFeature& feature : layer.areaNames)
        names[feature.index] = &feature.name.text;
    index = decltype(index)(entries);
}

bool AreaNeighbours::IsHome(std::size_t one, std::size_t other) const
{
    return one == other || (names[one] && names[other] && *names[one] == *names[other]);
}

BoxCover AreaNeighbours::CoverOf(const TXRect& box, std::size_t area) const
{
    constexpr double kShare = 1.0 / (kColumns * kRows);
    std::vector<Entry> near;
    index.query(boost::geometry::index::intersects(Box({box.left, box.top}, {box.right, box.bottom})),
                std::back_inserter(near));
    BoxCover cover;
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column)
        {
            const TXPoint point{box.left + (column + 0.5) * box.Width() / kColumns,
                                box.top + (row + 0.5) * box.Height() / kRows};
            const auto covering = std::find_if(
                near.begin(), near.end(), [&](const Entry& entry) { return shapes[entry.second].Contains(point); });
            if (covering != near.end())
                (IsHome(covering->second, area) ? cover.home : cover.foreign) += kShare;
        }
    return cover;
}

} // namespace txmap
