#include <txmap/atlas/Adjacency.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

#include <txmap/sources/FeatureSet.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// Cells along the longer side of all areas.
constexpr double kCells = 4096.0;

/// The cells that outlines run through, and whose outlines these are.
class BorderGrid
{
public:
    BorderGrid(const MercatorBox& bounds, std::size_t groups)
        : bounds(bounds), cell(std::max({bounds.right - bounds.left, bounds.bottom - bounds.top, 1e-9}) / kCells),
          neighbours(groups)
    {
    }

    void AddRing(const TXPoint* points, std::size_t count, std::size_t group)
    {
        std::uint64_t last = ~std::uint64_t{0};
        for (std::size_t i = 1; i < count; ++i)
        {
            const TXPoint& a = points[i - 1];
            const TXPoint& b = points[i];
            const double length = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)) / cell;
            // No line is longer than the grid, unless its coordinates are no numbers.
            const int steps = length <= 2 * kCells ? static_cast<int>(std::ceil(length)) : 0;
            for (int step = 0; step <= steps; ++step)
            {
                const double part = steps > 0 ? static_cast<double>(step) / steps : 0.0;
                const std::uint64_t key = KeyOf(a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part);
                if (key != last)
                    Add(key, group);
                last = key;
            }
        }
    }

    std::vector<std::set<std::size_t>> Take() { return std::move(neighbours); }

private:
    std::uint64_t KeyOf(double x, double y) const
    {
        const auto column = static_cast<std::uint64_t>(std::max(0.0, (x - bounds.left) / cell));
        const auto row = static_cast<std::uint64_t>(std::max(0.0, (y - bounds.top) / cell));
        return row << 32 | column;
    }

    void Add(std::uint64_t key, std::size_t group)
    {
        std::vector<std::size_t>& there = cells[key];
        if (std::find(there.begin(), there.end(), group) != there.end())
            return;
        for (const std::size_t other : there)
        {
            neighbours[other].insert(group);
            neighbours[group].insert(other);
        }
        there.push_back(group);
    }

    MercatorBox bounds;
    double cell;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> cells;
    std::vector<std::set<std::size_t>> neighbours;
};

} // namespace

std::vector<std::set<std::size_t>> FindNeighbours(const FeatureSet& set, const std::vector<std::size_t>& groups,
                                                  std::size_t count)
{
    if (count < 2)
        return std::vector<std::set<std::size_t>>(count);
    BorderGrid grid(set.bounds, count);
    for (std::size_t i = 0; i < set.features.size(); ++i)
        if (groups[i] != kNoGroup && set.features[i].type == GeometryType::Polygon)
            set.ForEachPart(set.features[i],
                            [&](const TXPoint* points, std::size_t size) { grid.AddRing(points, size, groups[i]); });
    return grid.Take();
}

} // namespace txmap
