#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

/// Lines or rings in the form that surfaces draw: the points of all, one part after another, and the number of points
/// of each.
struct Parts
{
    std::vector<TZObjects::TXPoint> points;
    std::vector<int> counts;

    bool IsEmpty() const { return counts.empty(); }
    void Clear()
    {
        points.clear();
        counts.clear();
    }
};

/// Where a piece of a line lies on the line, in the line's own units.
struct LineSpan
{
    double start = 0.0;
    double end = 0.0;
};

/// Cuts geometry to a rectangle in time that grows with the number of points alone. Nothing has to be valid: rings may
/// cross themselves and each other, and are filled as before inside the rectangle by the odd-even rule and by the
/// non-zero rule. All coordinates must be finite.
class RectangleClipper
{
public:
    explicit RectangleClipper(const TZObjects::TXRect& box) : box(box) {}

    const TZObjects::TXRect& Box() const { return box; }

    /// Appends what of a closed ring, whose last point is its first, lies in the box: one closed ring, or nothing.
    /// Where the ring leaves the box, edges run along the box's sides, so that the result is to be filled, not
    /// outlined.
    void ClipRing(const TZObjects::TXPoint* ring, std::size_t count, Parts& result);

    /// Appends the pieces of a line that lie in the box, one part each.
    /// @param spans gets, for each piece, where it lies on the line; null for not wanted.
    void ClipLine(const TZObjects::TXPoint* line, std::size_t count, Parts& result,
                  std::vector<LineSpan>* spans = nullptr) const;

private:
    template <class Inside, class Cut>
    void CutSide(Inside inside, Cut cut);

    TZObjects::TXRect box;
    std::vector<TZObjects::TXPoint> current; ///< The ring while side after side is cut.
    std::vector<TZObjects::TXPoint> next;
};

} // namespace txmap
