#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/map/AffineMatrix.h>
#include <txmap/map/Mercator.h>
#include <txmap/map/RectangleClipper.h>

namespace txmap
{

/// Makes pixels of geometry in world coordinates: cuts it, brings it to the picture, and drops the points that
/// nobody could see. The time this takes grows with the number of points alone.
///
/// Results are appended to `Result()`, ready to be drawn at once or feature by feature.
class PixelParts
{
public:
    /// @param toPixels world coordinates to pixels, for one world.
    /// @param picture the part of the picture, in pixels, that geometry is cut to: larger than the picture by more than
    /// half the widest line, because cut fills have edges along it.
    /// @param tile what geometry is cut to before; nothing for no cut. See `MapView::AlignedToPixels`.
    PixelParts(const AffineMatrix& toPixels, const TZObjects::TXRect& picture,
               const std::optional<MercatorBox>& tile = std::nullopt);

    /// Drops points of lines that are closer than this to the one before, and of lines that are shorter all but one at
    /// each spot: what a line is too wide to show. In pixels.
    void SetTolerance(double pixels);

    /// Makes pixels that are the same in every picture that shows a place: points are rounded to 1/64 of a pixel, and
    /// edges get points where they cross the lines of a grid, both in the pixels of the world, so that nothing depends
    /// on what a picture is cut to. @param origin see `MapView::GridOrigin`.
    /// @param keepsLines keeps lines whole, for dashes, which go on from where the line begins.
    void SnapToGrid(const TZObjects::TXPoint& origin, bool keepsLines = false);

    /// Adds a closed ring that is to be filled. One that is smaller than a few tenths of a pixel leaves nothing.
    void AddRing(const TZObjects::TXPoint* points, std::size_t count);
    /// Adds a line, or the outline of a ring, that is to be stroked: the pieces that are seen.
    /// @param spans gets where each piece lies on the line, from 0 at its start to 1 at its end; null for not wanted.
    void AddLine(const TZObjects::TXPoint* points, std::size_t count, std::vector<LineSpan>* spans = nullptr);
    /// Adds the lines that are left of the outline of a closed ring by `AppendOutline`.
    void AddOutline(const TZObjects::TXPoint* ring, std::size_t count, const MercatorBox& world,
                    std::vector<LineSpan>* spans = nullptr);
    /// Adds a point as a part of its own. The west and north sides of a tile belong to it, the others do not.
    void AddPoint(const TZObjects::TXPoint& point);

    Parts& Result() { return result; }
    const Parts& Result() const { return result; }

private:
    void Reduce(const TZObjects::TXPoint* points, std::size_t count);
    /// Rounds `pixels`, and brings them from the pixels of the world to those of the picture.
    /// @param splits gives edges points at the lines of the grid.
    void Snap(bool splits);
    void AddLinePiece(const TZObjects::TXPoint* points, std::size_t count, std::vector<LineSpan>* spans);

    AffineMatrix toPixels;                    ///< To the pixels of the world where there is a grid.
    std::optional<TZObjects::TXPoint> origin; ///< Of a grid.
    bool keepsLines = false;
    TZObjects::TXRect seen; ///< What a segment of a grid must touch to be kept.
    std::vector<TZObjects::TXPoint> snapped;
    double tolerance;
    std::unordered_set<std::uint64_t> spots; ///< Where there is a short line already; of a tolerance that was set.
    bool joinsSpots = false;
    RectangleClipper pictureClipper;
    std::optional<RectangleClipper> tileClipper;
    Parts cut;                              ///< What the tile leaves, in world coordinates.
    std::vector<TZObjects::TXPoint> pixels; ///< One part, without the points that nobody could see.
    Parts result;
};

/// Splits the outline of a closed ring into the lines that are left without its edges along the edge of the world: they
/// come from where the data was cut, at the date line or at the poles, and are no border of anything. One closed line
/// where there is no such edge.
void AppendOutline(const TZObjects::TXPoint* ring, std::size_t count, const MercatorBox& world, Parts& lines);

/// Appends the pieces of a line that may be seen in a box, of whole segments.
/// @param spans gets where each piece lies on the line, in its units; null for not wanted.
void AppendSeenSegments(const TZObjects::TXPoint* line, std::size_t count, const TZObjects::TXRect& box, Parts& result,
                        std::vector<LineSpan>* spans);

} // namespace txmap
