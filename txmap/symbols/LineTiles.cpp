#include <txmap/symbols/LineTiles.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/RectangleClipper.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

/// The parts of a line in a box.
Parts CutTo(const TXPoint* points, std::size_t count, const MercatorBox& box)
{
    Parts parts;
    RectangleClipper({box.left, box.right, box.top, box.bottom}).ClipLine(points, count, parts);
    return parts;
}

void Append(const Parts& parts, const MercatorBox& tile, double worldSize, std::vector<TiledLine>& lines)
{
    const TXPoint* point = parts.points.data();
    const double side = (tile.right - tile.left) * worldSize;
    for (const int count : parts.counts)
    {
        TiledLine line{{}, tile, worldSize, false};
        for (int i = 0; i < count; ++i, ++point)
            line.points.emplace_back((point->x - tile.left) * worldSize, (point->y - tile.top) * worldSize);
        const auto isEdge = [&](double place) { return std::abs(place) < 1e-6 || std::abs(place - side) < 1e-6; };
        line.isContinued = count > 0 && (isEdge(line.points[0].x) || isEdge(line.points[0].y));
        if (count > 1)
            lines.push_back(std::move(line));
    }
}

} // namespace

MercatorBox BoundsOf(const TXPoint* points, std::size_t count)
{
    MercatorBox box{1e300, 1e300, -1e300, -1e300};
    for (const TXPoint* point = points; point != points + count; ++point)
        box = {std::min(box.left, point->x), std::min(box.top, point->y), std::max(box.right, point->x),
               std::max(box.bottom, point->y)};
    return box;
}

MercatorBox WholeTiles(const MercatorBox& box, int zoom)
{
    const double count = std::exp2(zoom);
    return {std::floor(box.left * count) / count, std::floor(box.top * count) / count,
            (std::floor(box.right * count) + 1.0) / count, (std::floor(box.bottom * count) + 1.0) / count};
}

TiledLine WholeLine(const TXPoint* points, std::size_t count, double worldSize)
{
    const MercatorBox bounds = BoundsOf(points, count);
    TiledLine line{{}, {bounds.left, bounds.top, bounds.right, bounds.bottom}, worldSize, false};
    for (std::size_t i = 0; i < count; ++i)
        line.points.emplace_back((points[i].x - bounds.left) * worldSize, (points[i].y - bounds.top) * worldSize);
    return line;
}

std::vector<TiledLine> LinesInTile(const std::vector<TXPoint>& points, const MercatorBox& tile, double worldSize)
{
    std::vector<TiledLine> lines;
    Append(CutTo(points.data(), points.size(), tile), tile, worldSize, lines);
    return lines;
}

std::vector<TiledLine> LinesInTiles(const std::vector<TXPoint>& points, int zoom, const MercatorBox& shown,
                                    double worldSize)
{
    std::vector<TiledLine> lines;
    const double count = std::exp2(zoom);
    const MercatorBox bounds = BoundsOf(points.data(), points.size());
    const double left = std::floor(std::max(bounds.left, shown.left) * count);
    const double right = std::min(bounds.right, shown.right) * count;
    const double top = std::floor(std::max(bounds.top, shown.top) * count);
    const double bottom = std::min(bounds.bottom, shown.bottom) * count;
    // Column by column, so that a long line is not gone through for each tile.
    for (double x = left; x <= right; x += 1.0)
    {
        const MercatorBox strip{x / count, top / count, (x + 1.0) / count, (std::floor(bottom) + 1.0) / count};
        const Parts column = CutTo(points.data(), points.size(), strip);
        for (double y = top; y <= bottom && !column.IsEmpty(); y += 1.0)
        {
            const MercatorBox tile{strip.left, y / count, strip.right, (y + 1.0) / count};
            const TXPoint* piece = column.points.data();
            for (const int size : column.counts)
            {
                const auto length = static_cast<std::size_t>(size);
                Append(CutTo(piece, length, tile), tile, worldSize, lines);
                piece += length;
            }
        }
    }
    return lines;
}

} // namespace txmap
