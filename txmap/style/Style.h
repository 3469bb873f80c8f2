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

/// The pale band around letters that keeps them readable over lines.
struct LabelHalo
{
    double width = 0.0; ///< How far it reaches beyond the letters, in pixels; 0 for no halo.
    TXColor color;
};

/// How names look.
struct LabelStyle
{
    double size = 0.0;      ///< The height of the text of a country of medium size.
    double smallest = 0.0;  ///< By how much the text of small countries is smaller.
    double largest = 0.0;   ///< By how much the text of large countries is larger.
    double placeSize = 0.0; ///< By how much the text of places is smaller.
    double spacing = 0.0;   ///< Between the letters of the largest countries, as a part of the text's height.
    TXColor country;
    TXColor place;
    LabelHalo countryHalo;
    LabelHalo placeHalo;
};

/// How a north arrow looks.
struct ArrowStyle
{
    TXColor dark;
    TXColor light;
    TXColor glow; ///< Around it, so that it is readable over anything.
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
    LabelStyle labels;
    Stroke frame;      ///< Around a map that is cut to a frame.
    Stroke overRaster; ///< Below the outlines of land that lie over a raster, wider than these.
    ArrowStyle arrow;

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
