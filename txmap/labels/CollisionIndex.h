#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

/// Whether a text or an icon may lie on others.
enum class Overlap
{
    Never,
    Cooperative, ///< On all that are not `Never`.
    Always
};

/// A part of what a text along a line covers, in pixels.
struct CollisionCircle
{
    TZObjects::TXPoint centre;
    double radius = 0.0;
};

/// Finds out where in a picture there is room for texts and icons: a grid of the boxes and circles that are taken.
/// What touches, collides.
class CollisionIndex
{
public:
    /// @param area nothing outside is taken or free: the picture and its surroundings.
    explicit CollisionIndex(const TZObjects::TXRect& area);

    /// True when a part of a box or circle lies in the area. Never for one with a NaN.
    bool Reaches(const TZObjects::TXRect& box) const;
    bool Reaches(const CollisionCircle& circle) const { return Reaches(Around(circle)); }
    /// True when nothing that is taken forbids a box or circle that overlaps like this.
    bool IsFree(const TZObjects::TXRect& box, Overlap overlap) const;
    bool IsFree(const CollisionCircle& circle, Overlap overlap) const;
    /// Takes a box or circle. @param overlap what it lets lie on itself.
    void Take(const TZObjects::TXRect& box, Overlap overlap);
    void Take(const CollisionCircle& circle, Overlap overlap);
    /// Gives back one box like this that was taken with `Overlap::Never`, if there is one.
    void Release(const TZObjects::TXRect& box);

private:
    /// A box, or a circle if there is a radius.
    struct Item
    {
        TZObjects::TXRect box;
        double radius = -1.0;
    };
    /// Items by their number. Those that let something lie on them are kept apart: what overlaps itself need not look
    /// at them.
    struct Cell
    {
        std::vector<std::uint32_t> never;
        std::vector<std::uint32_t> lenient;
    };
    struct CellRange
    {
        std::size_t left, right, top, bottom;
    };

    static TZObjects::TXRect Around(const CollisionCircle& circle);
    static bool Collide(const Item& a, const Item& b);
    CellRange CellsOf(const TZObjects::TXRect& box) const;
    bool IsFree(const Item& item, Overlap overlap) const;
    void Take(const Item& item, Overlap overlap);

    TZObjects::TXRect area;
    std::size_t columns;
    std::size_t rows;
    std::vector<Item> items;
    std::vector<Cell> cells;
};

} // namespace txmap
