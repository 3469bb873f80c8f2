#pragma once

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

class MapView;

/// How symbols are placed in pictures that join without a seam, so that one that reaches across an edge is in both
/// pictures or in neither.
///
/// A grid divides the world into cells of 2048 logical pixels, whatever the pictures are. First those symbols make room
/// for each other that lie near corners of cells, then those that cross the sides of cells, then the rest. Symbols at
/// different corners are too far apart to meet, and so are those of different sides, and those within different cells.
/// What is shown in a cell then depends on the symbols of this cell, its sides and its corners alone, and a picture
/// places all of those of each cell that it shows a part of.
class PlacementGrid
{
public:
    /// When a symbol is placed.
    enum class Turn : unsigned char
    {
        Corner,
        Side,
        Cell,
        Never ///< It is too large, or of no cell that is shown.
    };

    /// @param view has a `GridOrigin`.
    explicit PlacementGrid(const MapView& view);

    /// In pixels of the picture: what of the world matters for it.
    const TZObjects::TXRect& Area() const { return area; }
    /// How far that reaches beyond the picture, in pixels.
    double Margin() const;
    /// @param extent the box around all that a symbol may cover, with its anchor, in pixels of the picture.
    Turn TurnOf(const TZObjects::TXRect& extent) const;
    /// True for an extent of a symbol that is too large to be placed in cells.
    bool IsTooLarge(const TZObjects::TXRect& extent) const;

private:
    TZObjects::TXPoint origin;
    double width, height;                           ///< Of the picture.
    double side;                                    ///< Of a cell.
    double ink;                                     ///< So far, what is drawn may reach beyond an extent.
    double largest;                                 ///< The longest side of what is placed.
    int firstColumn, lastColumn, firstRow, lastRow; ///< The cells that are shown.
    TZObjects::TXRect area;
};

} // namespace txmap
