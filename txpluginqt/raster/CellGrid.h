#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <txpluginqt/raster/FixedOutline.h>

namespace txqt
{

/// What the edges of an outline do in one pixel.
template <class Area>
struct Cell
{
    int cover; ///< The signed height of the edges in the pixel, in 1/256.
    Area area; ///< Twice the signed area between the edges and the left side of the pixel, in 1/256 squared.
};

/// The pixels that a shape may touch within a band of rows: columns and rows of the device.
struct Band
{
    int left;
    int top;
    int width;
    int height;
};

/// Cells of a band of rows, with one bit for each cell that an edge has touched. The cells stand in a dense array, with
/// one more column at the left for all that lies left of the band, and one at the right for edges that run along its
/// right side; what lies beyond leaves no trace.
///
/// Edges are cut up with the arithmetic of Qt's rasteriser, so that every cell has the same sums. What lies outside the
/// band is skipped in closed form, so that an edge costs no more than the cells that it touches.
///
/// @tparam Area 32 bits suffice unless an outline crosses one pixel thousands of times.
template <class Area>
class CellGrid
{
public:
    /// Starts a band. Every cell is empty.
    void Begin(const Band& newBand);
    /// Adds an edge.
    /// @tparam IsInside true promises that no part of the edge is beyond the sides of the band.
    template <bool IsInside>
    void AddEdge(FixedPoint from, FixedPoint to);
    /// Adds what the last edges left open. @return false when an area was too large to be counted.
    bool End();

    /// Calls `run(x, y, area, length)` for all pixels that are alike, in reading order: first what the edges before a
    /// cell cover, then the cell. The area is twice that which is covered of each pixel. Leaves all cells empty.
    template <class Run>
    void Sweep(Run run);
    /// Empties all cells without sweeping them.
    void Clear();

    /// How many cells the edges have touched since the grid was made, counting each visit.
    std::size_t Visits() const { return visits; }
    std::size_t Bytes() const { return cells.capacity() * sizeof(cells[0]) + used.capacity() * sizeof(used[0]); }
    /// Lets go of the memory.
    void Release();

private:
    static constexpr int kPixel = 256;
    static constexpr std::int64_t kFullArea =
        2 * std::int64_t(kPixel); ///< Times the height, the area of a whole pixel.

    template <bool IsInside>
    void AddRow(int row, int x1, int y1, int x2, int y2);
    void Add(int row, int column, Area area, int cover);
    void Flush();
    bool HasRow(int row) const { return row >= 0 && row < band.height; }

    std::vector<Cell<Area>> cells;
    std::vector<std::uint64_t> used;
    Band band{};
    int stride = 0; ///< Cells in a row.
    int words = 0;  ///< Words of bits in a row.
    // The cell that edges go through at the moment.
    int currentRow = 0;
    int currentColumn = 0;
    int openCover = 0;
    std::int64_t openArea = 0;
    bool overflowed = false;
    std::size_t visits = 0;
};

/// The quotient that is not greater than the exact one, and what remains, which has the sign of the divisor.
template <class Number>
struct FloorDivision
{
    FloorDivision(Number number, Number divisor) : quotient(number / divisor), rest(number % divisor)
    {
        if (rest < 0)
        {
            --quotient;
            rest += divisor;
        }
    }

    Number quotient;
    Number rest;
};

template <class Area>
void CellGrid<Area>::Begin(const Band& newBand)
{
    band = newBand;
    // One column for what lies at the left, and one for edges inside that run along the right side.
    stride = band.width + 2;
    words = (stride + 63) / 64;
    const std::size_t rows = static_cast<std::size_t>(band.height);
    // Unused cells are empty already.
    if (cells.size() < rows * static_cast<std::size_t>(stride))
        cells.resize(rows * static_cast<std::size_t>(stride));
    if (used.size() < rows * static_cast<std::size_t>(words))
        used.resize(rows * static_cast<std::size_t>(words));
    currentRow = 0;
    currentColumn = 0;
    openCover = 0;
    openArea = 0;
    overflowed = false;
}

template <class Area>
void CellGrid<Area>::Flush()
{
    if (openCover == 0 && openArea == 0)
        return;
    Cell<Area>& cell = cells[static_cast<std::size_t>(currentRow) * static_cast<std::size_t>(stride) +
                             static_cast<std::size_t>(currentColumn)];
    cell.cover += openCover;
    if (__builtin_add_overflow(cell.area, openArea, &cell.area))
        overflowed = true;
    used[static_cast<std::size_t>(currentRow) * static_cast<std::size_t>(words) +
         static_cast<std::size_t>(currentColumn >> 6)] |= std::uint64_t(1) << (currentColumn & 63);
    openCover = 0;
    openArea = 0;
    ++visits;
}

template <class Area>
inline void CellGrid<Area>::Add(int row, int column, Area area, int cover)
{
    if (column != currentColumn || row != currentRow)
    {
        Flush();
        currentColumn = column;
        currentRow = row;
    }
    openArea += area;
    openCover += cover;
}

template <class Area>
template <bool IsInside>
void CellGrid<Area>::AddEdge(FixedPoint from, FixedPoint to)
{
    const int dy = to.y - from.y;
    // Level edges cover nothing.
    if (dy == 0)
        return;
    const int left = band.left * kPixel;
    if (!IsInside)
    {
        const int top = band.top * kPixel;
        const int bottom = (band.top + band.height) * kPixel;
        if (std::max(from.y, to.y) <= top || std::min(from.y, to.y) >= bottom ||
            std::min(from.x, to.x) >= left + band.width * kPixel)
            return;
    }

    int row1 = (from.y >> 8) - band.top;
    const int row2 = (to.y >> 8) - band.top;
    const int inRow1 = from.y & (kPixel - 1);
    const int inRow2 = to.y & (kPixel - 1);
    const int x1 = from.x - left;
    const int x2 = to.x - left;
    if (row1 == row2)
    {
        AddRow<IsInside>(row1, x1, inRow1, x2, inRow2);
        return;
    }

    const bool isDown = dy > 0;
    const int step = isDown ? 1 : -1;
    const int enter = isDown ? 0 : kPixel; // Where whole rows begin,
    const int leave = isDown ? kPixel : 0; // and where they end.
    const int height = isDown ? dy : -dy;
    const int dx = x2 - x1;
    if (dx == 0)
    {
        if (IsInside || HasRow(row1))
            AddRow<IsInside>(row1, x1, inRow1, x1, leave);
        const int first = IsInside ? row1 + step : std::clamp(row1 + step, -1, band.height);
        const int last = IsInside ? row2 : std::clamp(row2, -1, band.height);
        for (int row = first; row != last; row += step)
            if (IsInside || HasRow(row))
                AddRow<IsInside>(row, x1, enter, x1, leave);
        if (IsInside || HasRow(row2))
            AddRow<IsInside>(row2, x1, enter, x1, inRow2);
        return;
    }

    // The distance to the first boundary between rows decides where every boundary is crossed.
    const int toBoundary = isDown ? kPixel - inRow1 : inRow1;
    const FloorDivision<int> start(toBoundary * dx, height);
    int rest = start.rest;
    int x = x1 + start.quotient;
    if (IsInside || HasRow(row1))
        AddRow<IsInside>(row1, x1, inRow1, x, leave);
    row1 += step;
    if (row1 != row2)
    {
        // Rows above or below the band.
        const int skipped = IsInside ? 0
                            : isDown ? std::min(-row1, row2 - row1)
                                     : std::min(row1 - band.height + 1, row1 - row2);
        if (skipped > 0)
        {
            const FloorDivision<std::int64_t> skip((toBoundary + std::int64_t(skipped) * kPixel) * dx, height);
            x = x1 + static_cast<int>(skip.quotient);
            rest = static_cast<int>(skip.rest);
            row1 += skipped * step;
        }
        const FloorDivision<int> lift(kPixel * dx, height);
        rest -= height;
        // Beyond the band's end nothing is left to do, not even the last row.
        const int end = IsInside ? row2 : isDown ? std::min(row2, band.height) : std::max(row2, -1);
        while (row1 != end)
        {
            int delta = lift.quotient;
            rest += lift.rest;
            if (rest >= 0)
            {
                rest -= height;
                ++delta;
            }
            AddRow<IsInside>(row1, x, enter, x + delta, leave);
            x += delta;
            row1 += step;
        }
    }
    if (IsInside || (row1 == row2 && HasRow(row2)))
        AddRow<IsInside>(row2, x, enter, x2, inRow2);
}

template <class Area>
template <bool IsInside>
void CellGrid<Area>::AddRow(int row, int x1, int y1, int x2, int y2)
{
    const int dy = y2 - y1;
    if (dy == 0)
        return;
    int column1 = x1 >> 8;
    const int column2 = x2 >> 8;
    const int in1 = x1 & (kPixel - 1);
    const int in2 = x2 & (kPixel - 1);
    if (column1 == column2)
    {
        if (IsInside || column1 < band.width)
            Add(row, !IsInside && column1 < 0 ? 0 : column1 + 1, static_cast<Area>(in1 + in2) * dy, dy);
        return;
    }
    if (!IsInside && column1 < 0 && column2 < 0)
    {
        Add(row, 0, 0, dy);
        return;
    }
    if (!IsInside && column1 >= band.width && column2 >= band.width)
        return;

    const bool isRight = x2 > x1;
    const int step = isRight ? 1 : -1;
    const int leave = isRight ? kPixel : 0;
    const int width = isRight ? x2 - x1 : x1 - x2;
    const int toSide = isRight ? kPixel - in1 : in1;
    const FloorDivision<int> start(toSide * dy, width);
    int done = start.quotient; // How much of the height lies behind.
    if (!IsInside && column1 < 0)
        Add(row, 0, 0, done);
    else if (IsInside || column1 < band.width)
        Add(row, column1 + 1, static_cast<Area>(in1 + leave) * done, done);
    column1 += step;
    if (column1 != column2)
    {
        int rest = start.rest;
        // Columns before the band.
        const int skipped = IsInside  ? 0
                            : isRight ? std::min(-column1, column2 - column1)
                                      : std::min(column1 - band.width + 1, column1 - column2);
        if (skipped > 0)
        {
            const FloorDivision<std::int64_t> skip((toSide + std::int64_t(skipped) * kPixel) * dy, width);
            const int before = done;
            done = static_cast<int>(skip.quotient);
            rest = static_cast<int>(skip.rest);
            if (isRight)
                Add(row, 0, 0, done - before);
            column1 += skipped * step;
        }
        const FloorDivision<int> lift(kPixel * dy, width);
        rest -= width;
        const int end = IsInside ? column2 : isRight ? std::min(column2, band.width) : std::max(column2, -1);
        while (column1 != end)
        {
            int delta = lift.quotient;
            rest += lift.rest;
            if (rest >= 0)
            {
                rest -= width;
                ++delta;
            }
            Add(row, column1 + 1, static_cast<Area>(kPixel) * delta, delta);
            done += delta;
            column1 += step;
        }
    }
    if (!IsInside && column2 < 0)
        // Whatever is left of the height lies left of the band.
        Add(row, 0, 0, dy - done);
    else if (IsInside || (column1 == column2 && column2 < band.width))
        Add(row, column2 + 1, static_cast<Area>(in2 + kPixel - leave) * (dy - done), dy - done);
}

template <class Area>
bool CellGrid<Area>::End()
{
    Flush();
    return !overflowed;
}

template <class Area>
template <class Run>
void CellGrid<Area>::Sweep(Run run)
{
    for (int row = 0; row < band.height; ++row)
    {
        Cell<Area>* const cell = cells.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(stride);
        std::uint64_t* const bits = used.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(words);
        const int y = band.top + row;
        int cover = 0;
        int next = 0; // The column that follows the last cell.
        for (int word = 0; word < words; ++word)
        {
            for (std::uint64_t rest = bits[word]; rest != 0; rest &= rest - 1)
            {
                const int column = word * 64 + __builtin_ctzll(rest) - 1;
                Cell<Area>& touched = cell[column + 1];
                if (cover != 0 && column > next)
                    run(band.left + next, y, std::int64_t(cover) * kFullArea, column - next);
                cover += touched.cover;
                const std::int64_t area = std::int64_t(cover) * kFullArea - touched.area;
                if (area != 0 && column >= 0)
                    run(band.left + column, y, area, 1);
                touched = {0, 0};
                next = column + 1;
            }
            bits[word] = 0;
        }
        if (cover != 0 && band.width > next)
            run(band.left + next, y, std::int64_t(cover) * kFullArea, band.width - next);
    }
}

template <class Area>
void CellGrid<Area>::Clear()
{
    openCover = 0;
    openArea = 0;
    Sweep([](int, int, std::int64_t, int) {});
}

template <class Area>
void CellGrid<Area>::Release()
{
    std::vector<Cell<Area>>().swap(cells);
    std::vector<std::uint64_t>().swap(used);
}

} // namespace txqt
