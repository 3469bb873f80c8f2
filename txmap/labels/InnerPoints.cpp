#include <txmap/labels/InnerPoints.h>

#include <algorithm>
#include <cmath>
#include <queue>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr int kColumns = 16;
constexpr int kRows = 16;
// A label that sits better by less than this, in pixels or as a part of the merit, does not look better.
constexpr double kPrecision = 0.5;
constexpr double kRelativePrecision = 0.02;
constexpr int kMostCells = 2000;

// How much merit the farthest point of the shape's box loses by its distance from the centre.
constexpr double kLossByDistance = 0.35;

/// A box about its centre, and the most merit that any point in it can have.
struct Cell
{
    InnerPoint centre;
    double halfWidth = 0.0;
    double halfHeight = 0.0;
    double best = 0.0;
};

bool operator<(const Cell& a, const Cell& b) { return a.best < b.best; }

class Search
{
public:
    Search(const VisibleShape& shape, double proportion)
        : shape(shape), xFactor(1.0 / proportion),
          reach(std::hypot(shape.LargestPart().Width(), shape.LargestPart().Height()) / 2.0)
    {
    }

    Cell MakeCell(const TXPoint& position, double halfWidth, double halfHeight) const
    {
        const double room = shape.DistanceToEdge(position, xFactor);
        const double mostRoom = room + std::hypot(halfWidth * xFactor, halfHeight);
        return {{position, room, room * Share(position, 0.0, 0.0)},
                halfWidth,
                halfHeight,
                mostRoom * Share(position, halfWidth, halfHeight)};
    }

    /// Improves on a point by looking closer wherever there may be more room.
    InnerPoint Improve(InnerPoint found, std::priority_queue<Cell> cells) const
    {
        for (int count = 0; !cells.empty() && count < kMostCells; ++count)
        {
            const Cell cell = cells.top();
            cells.pop();
            if (cell.centre.room > 0.0 && cell.centre.merit > found.merit)
                found = cell.centre;
            if (found.room > 0.0 && cell.best - found.merit <= std::max(kPrecision, found.merit * kRelativePrecision))
                break;
            Split(cell, cells);
        }
        return found;
    }

private:
    /// The part of its room that counts for a point, or the most that does for any in a box about it.
    double Share(const TXPoint& position, double halfWidth, double halfHeight) const
    {
        const double dx = std::max(0.0, std::abs(position.x - shape.Centre().x) - halfWidth);
        const double dy = std::max(0.0, std::abs(position.y - shape.Centre().y) - halfHeight);
        return 1.0 - kLossByDistance * std::min(1.0, std::hypot(dx, dy) / reach);
    }

    /// In two along the side that is longer for the label.
    void Split(const Cell& cell, std::priority_queue<Cell>& cells) const
    {
        const TXPoint& at = cell.centre.position;
        const bool wide = cell.halfWidth * xFactor > cell.halfHeight;
        const double dx = wide ? cell.halfWidth / 2.0 : 0.0;
        const double dy = wide ? 0.0 : cell.halfHeight / 2.0;
        for (const double side : {-1.0, 1.0})
            cells.push(MakeCell({at.x + side * dx, at.y + side * dy}, cell.halfWidth - dx, cell.halfHeight - dy));
    }

    const VisibleShape& shape;
    double xFactor;
    double reach;
};

} // namespace

std::vector<InnerPoint> InnerPoints(const VisibleShape& shape, double proportion)
{
    const TXRect& box = shape.LargestPart();
    const Search search(shape, proportion);
    const double halfWidth = box.Width() / kColumns / 2.0;
    const double halfHeight = box.Height() / kRows / 2.0;
    std::vector<InnerPoint> points(1);
    std::priority_queue<Cell> cells;
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column)
        {
            const TXPoint centre{box.left + (2 * column + 1) * halfWidth, box.top + (2 * row + 1) * halfHeight};
            const Cell cell = search.MakeCell(centre, halfWidth, halfHeight);
            cells.push(cell);
            if (cell.centre.room > 0.0)
                points.push_back(cell.centre);
        }
    std::sort(points.begin() + 1, points.end(),
              [](const InnerPoint& a, const InnerPoint& b) { return a.merit > b.merit; });
    const InnerPoint start = points.size() > 1 ? points[1] : cells.top().centre;
    points[0] = search.Improve(start, std::move(cells));
    if (!(points[0].room > 0.0))
        points.clear();
    return points;
}

} // namespace txmap
