#include <txmap/labels/CollisionIndex.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// About as large as a small label, so that most lie in a few cells, and few in each.
constexpr double kCell = 32.0;
constexpr std::size_t kMostCells = 4096;

std::size_t CellCount(double length)
{
    return std::clamp<std::size_t>(static_cast<std::size_t>(std::max(0.0, length) / kCell) + 1, 1, kMostCells);
}

TXPoint Centre(const TXRect& box) { return {(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0}; }

double Outside(double value, double low, double high) { return value - std::clamp(value, low, high); }

} // namespace

CollisionIndex::CollisionIndex(const TXRect& area)
    : area(area), columns(CellCount(area.Width())), rows(CellCount(area.Height())), cells(columns * rows)
{
}

bool CollisionIndex::Reaches(const TXRect& box) const
{
    // Written so that a box with a NaN is refused.
    return box.left <= box.right && box.top <= box.bottom && box.left <= area.right && box.right >= area.left &&
           box.top <= area.bottom && box.bottom >= area.top;
}

bool CollisionIndex::IsFree(const TXRect& box, Overlap overlap) const { return IsFree(Item{box}, overlap); }

bool CollisionIndex::IsFree(const CollisionCircle& circle, Overlap overlap) const
{
    return IsFree(Item{Around(circle), circle.radius}, overlap);
}

void CollisionIndex::Take(const TXRect& box, Overlap overlap) { Take(Item{box}, overlap); }

void CollisionIndex::Take(const CollisionCircle& circle, Overlap overlap)
{
    Take(Item{Around(circle), circle.radius}, overlap);
}

void CollisionIndex::Release(const TXRect& box)
{
    if (!Reaches(box))
        return;
    const auto isSame = [&](std::uint32_t number)
    {
        const Item& item = items[number];
        return item.radius < 0.0 && item.box.left == box.left && item.box.right == box.right &&
               item.box.top == box.top && item.box.bottom == box.bottom;
    };
    // Numbers stay in the order of taking, so that it is the same item that leaves every cell.
    const CellRange range = CellsOf(box);
    for (std::size_t row = range.top; row <= range.bottom; ++row)
        for (std::size_t column = range.left; column <= range.right; ++column)
        {
            std::vector<std::uint32_t>& taken = cells[row * columns + column].never;
            if (const auto found = std::find_if(taken.begin(), taken.end(), isSame); found != taken.end())
                taken.erase(found);
        }
}

TXRect CollisionIndex::Around(const CollisionCircle& circle)
{
    return {circle.centre.x - circle.radius, circle.centre.x + circle.radius, circle.centre.y - circle.radius,
            circle.centre.y + circle.radius};
}

bool CollisionIndex::Collide(const Item& a, const Item& b)
{
    if (!(a.box.left <= b.box.right && b.box.left <= a.box.right && a.box.top <= b.box.bottom &&
          b.box.top <= a.box.bottom))
        return false;
    if (a.radius < 0.0 && b.radius < 0.0)
        return true;
    const Item& circle = a.radius < 0.0 ? b : a;
    const Item& other = a.radius < 0.0 ? a : b;
    const TXPoint centre = Centre(circle.box);
    if (other.radius < 0.0)
        return std::hypot(Outside(centre.x, other.box.left, other.box.right),
                          Outside(centre.y, other.box.top, other.box.bottom)) <= circle.radius;
    const TXPoint second = Centre(other.box);
    return std::hypot(centre.x - second.x, centre.y - second.y) <= circle.radius + other.radius;
}

CollisionIndex::CellRange CollisionIndex::CellsOf(const TXRect& box) const
{
    const auto cell = [](double value, std::size_t count)
    { return static_cast<std::size_t>(std::clamp(value / kCell, 0.0, static_cast<double>(count - 1))); };
    return {cell(box.left - area.left, columns), cell(box.right - area.left, columns), cell(box.top - area.top, rows),
            cell(box.bottom - area.top, rows)};
}

bool CollisionIndex::IsFree(const Item& item, Overlap overlap) const
{
    if (!Reaches(item.box))
        return false;
    if (overlap == Overlap::Always)
        return true;
    const auto isFree = [&](const std::vector<std::uint32_t>& taken)
    {
        return std::none_of(taken.begin(), taken.end(),
                            [&](std::uint32_t number) { return Collide(item, items[number]); });
    };
    const CellRange range = CellsOf(item.box);
    for (std::size_t row = range.top; row <= range.bottom; ++row)
        for (std::size_t column = range.left; column <= range.right; ++column)
        {
            const Cell& cell = cells[row * columns + column];
            if (!isFree(cell.never) || (overlap == Overlap::Never && !isFree(cell.lenient)))
                return false;
        }
    return true;
}

void CollisionIndex::Take(const Item& item, Overlap overlap)
{
    if (!Reaches(item.box))
        return;
    const auto number = static_cast<std::uint32_t>(items.size());
    items.push_back(item);
    const CellRange range = CellsOf(item.box);
    for (std::size_t row = range.top; row <= range.bottom; ++row)
        for (std::size_t column = range.left; column <= range.right; ++column)
        {
            Cell& cell = cells[row * columns + column];
            (overlap == Overlap::Never ? cell.never : cell.lenient).push_back(number);
        }
}

} // namespace txmap
