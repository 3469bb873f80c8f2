#include <txpluginqt/raster/OutlineFill.h>

#include <algorithm>
#include <cstdlib>

#include <txpluginqt/raster/CellGrid.h>
#include <txpluginqt/raster/SolidPixels.h>
#include <txpluginqt/raster/SpanBatch.h>
#include <txpluginqt/raster/ThreadEnd.h>

namespace txqt
{
namespace
{

constexpr int kMostCells = 512 * 1024;
/// From twice the area, in 1/256 squared, to coverage from 0 to 256.
constexpr int kAreaBits = 9;
constexpr int kFull = 256;
constexpr int kPixel = 256;
/// More than maps need is given back.
constexpr std::size_t kKeptBytes = std::size_t(16) << 20;

thread_local FillWork lastWork;

struct WindingCoverage
{
    static int Of(std::int64_t area)
    {
        const int coverage = std::abs(static_cast<int>(area >> kAreaBits));
        return std::min(coverage, kFull - 1);
    }
};

struct OddEvenCoverage
{
    static int Of(std::int64_t area)
    {
        const int coverage = std::abs(static_cast<int>(area >> kAreaBits)) & (2 * kFull - 1);
        return coverage > kFull ? 2 * kFull - coverage : std::min(coverage, kFull - 1);
    }
};

/// Never inlined: who knows that the grid is a thread's own computes its address again wherever it is used, by a call.
template <class Area>
Q_NEVER_INLINE CellGrid<Area>& GridOfThread()
{
    struct Grid
    {
        ThreadEndMark threadEnd;
        CellGrid<Area> cells;
    };
    thread_local Grid grid;
    return grid.cells;
}

/// @tparam IsInside true promises that no part of the outline is beyond the sides of the band.
/// @return false when the cells could not hold an area.
template <bool IsInside, class Area>
bool AddContours(CellGrid<Area>& grid, const FixedOutline& outline, const Band& band)
{
    const int top = band.top * kPixel;
    const int bottom = (band.top + band.height) * kPixel;
    grid.Begin(band);
    const std::size_t visits = grid.Visits();
    std::size_t edges = 0;
    for (const FixedContour& contour : outline.Contours())
    {
        if (!IsInside && (contour.bottom <= top || contour.top >= bottom))
            continue;
        const FixedPoint* const points = outline.Points() + contour.first;
        FixedPoint before = points[contour.count - 1];
        for (int i = 0; i < contour.count; ++i)
        {
            grid.template AddEdge<IsInside>(before, points[i]);
            before = points[i];
        }
        edges += static_cast<std::size_t>(contour.count);
    }
    const bool isExact = grid.End();
    lastWork.edges += edges;
    lastWork.cells += grid.Visits() - visits;
    return isExact;
}

template <class Coverage, class Area, class Spans>
void SweepInto(CellGrid<Area>& grid, Spans& spans)
{
    grid.Sweep(
        [&](int x, int y, std::int64_t area, int length)
        {
            const int coverage = Coverage::Of(area);
            if (coverage != 0)
                spans.Add(x, y, length, coverage);
        });
}

template <class Area, class Spans>
void SweepByRule(CellGrid<Area>& grid, Qt::FillRule rule, Spans& spans)
{
    if (rule == Qt::WindingFill)
        SweepInto<WindingCoverage>(grid, spans);
    else
        SweepInto<OddEvenCoverage>(grid, spans);
}

/// Releases what the grid holds when it is more than usual.
template <class Area>
void ReleaseLarge(CellGrid<Area>& grid)
{
    if (grid.Bytes() > kKeptBytes)
        grid.Release();
}

template <class Spans>
void FillBand(const FixedOutline& outline, const Band& band, bool isInside, Qt::FillRule rule, Spans& spans)
{
    CellGrid<int>& grid = GridOfThread<int>();
    if (isInside ? AddContours<true>(grid, outline, band) : AddContours<false>(grid, outline, band))
    {
        SweepByRule(grid, rule, spans);
        return;
    }
    // One pixel is crossed thousands of times.
    grid.Clear();
    CellGrid<std::int64_t>& wideGrid = GridOfThread<std::int64_t>();
    AddContours<false>(wideGrid, outline, band);
    SweepByRule(wideGrid, rule, spans);
    wideGrid.Release();
}

template <class Spans>
void FillBands(const FixedOutline& outline, const QRect& area, Qt::FillRule rule, Spans& spans)
{
    lastWork = FillWork();
    const QRect all = outline.Pixels();
    const QRect pixels = all & area;
    if (pixels.isEmpty())
        return;
    const int rows = std::max(kMostCells / (pixels.width() + 2), 1);
    for (int top = pixels.top(); top <= pixels.bottom(); top += rows)
    {
        const Band band{pixels.left(), top, pixels.width(), std::min(rows, pixels.bottom() - top + 1)};
        FillBand(outline, band, pixels == all && rows >= pixels.height(), rule, spans);
    }
    spans.Flush();
    ReleaseLarge(GridOfThread<int>());
}

} // namespace

void FillOutlineCells(const FixedOutline& outline, const QRect& area, Qt::FillRule rule, SpanBatch& spans)
{
    FillBands(outline, area, rule, spans);
}

void FillOutlineCells(const FixedOutline& outline, const QRect& area, Qt::FillRule rule, SolidPixels& spans)
{
    FillBands(outline, area, rule, spans);
}

FillWork LastFillWork() { return lastWork; }

} // namespace txqt
