#include <txmap/symbols/PlacementGrid.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/MapView.h>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

// In logical pixels.
constexpr double kCellSide = 2048.0;
constexpr double kInk = 16.0;

} // namespace

PlacementGrid::PlacementGrid(const MapView& view)
    : origin(*view.GridOrigin()), width(view.Size().width), height(view.Size().height), side(kCellSide * view.Scale()),
      ink(kInk * view.Scale()), largest(side / 4.0)
{
    // The last cell is that of the last pixel.
    firstColumn = static_cast<int>(std::floor(origin.x / side));
    lastColumn = static_cast<int>(std::floor((origin.x + width - 0.5) / side));
    firstRow = static_cast<int>(std::floor(origin.y / side));
    lastRow = static_cast<int>(std::floor((origin.y + height - 0.5) / side));
    // Near a corner is what touches a square of twice the largest symbol around it.
    const double reach = 2.0 * largest;
    area = {firstColumn * side - origin.x - reach, (lastColumn + 1) * side - origin.x + reach,
            firstRow * side - origin.y - reach, (lastRow + 1) * side - origin.y + reach};
}

double PlacementGrid::Margin() const
{
    return std::max({-area.left, area.right - width, -area.top, area.bottom - height});
}

bool PlacementGrid::IsTooLarge(const TXRect& extent) const
{
    return !(extent.right - extent.left + 2.0 * ink < largest && extent.bottom - extent.top + 2.0 * ink < largest);
}

PlacementGrid::Turn PlacementGrid::TurnOf(const TXRect& extent) const
{
    if (IsTooLarge(extent))
        return Turn::Never;
    const TXRect box{extent.left + origin.x - ink, extent.right + origin.x + ink, extent.top + origin.y - ink,
                     extent.bottom + origin.y + ink};
    const double x = (box.left + box.right) / 2.0, y = (box.top + box.bottom) / 2.0;
    const double column = std::round(x / side), row = std::round(y / side);
    const bool nearColumn = box.left <= column * side + largest && box.right >= column * side - largest;
    const bool nearRow = box.top <= row * side + largest && box.bottom >= row * side - largest;
    const auto isCorner = [](double line, int first, int last) { return line >= first && line <= last + 1; };
    const auto isCell = [](double cell, int first, int last) { return cell >= first && cell <= last; };
    if (nearColumn && nearRow)
        return isCorner(column, firstColumn, lastColumn) && isCorner(row, firstRow, lastRow) ? Turn::Corner
                                                                                             : Turn::Never;
    const bool inColumns = isCell(std::floor(x / side), firstColumn, lastColumn);
    const bool inRows = isCell(std::floor(y / side), firstRow, lastRow);
    if (box.left <= column * side && box.right >= column * side)
        return isCorner(column, firstColumn, lastColumn) && inRows ? Turn::Side : Turn::Never;
    if (box.top <= row * side && box.bottom >= row * side)
        return isCorner(row, firstRow, lastRow) && inColumns ? Turn::Side : Turn::Never;
    return inColumns && inRows ? Turn::Cell : Turn::Never;
}

} // namespace txmap
