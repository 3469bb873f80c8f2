#pragma once

#include <vector>

#include <txbase/TXColor.h>

namespace TZObjects
{

/// A line's colour and its width, in pixels of a picture of the usual size.
struct Stroke
{
    TXColor color;
    double width = 1.0;
};

/// How the map looks.
struct Style
{
    TXColor paper; ///< The margins around the world.
    TXColor oceanAtPoles;
    TXColor oceanAtEquator;
    std::vector<Stroke> shore; ///< Drawn along all coasts, one over the other, widest first.
    TXColor noCategory;        ///< Areas without a category.
    std::vector<TXColor> categories;
    Stroke outline; ///< Around every area of land.
    Stroke border;
    TXColor lake;
    Stroke lakeShore;
    Stroke river;
    Stroke graticule;
    std::vector<double> graticuleDashes; ///< Lengths of dash and gap, in multiples of the width.
    TXColor placeFill;
    Stroke placeRing;
    double placeRadius = 0.0;

    /// The colour of a category from `CategoryOf`.
    const TXColor& Fill(int category) const
    {
        return category < 1 || category > Categories() ? noCategory
                                                       : categories[static_cast<std::size_t>(category) - 1];
    }
    /// How many categories have a colour.
    int Categories() const { return static_cast<int>(categories.size()); }
};

/// The look of an atlas page: muted areas, thin warm outlines, a pale sea.
Style AtlasStyle();

} // namespace TZObjects
