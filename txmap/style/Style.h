#pragma once

#include <vector>

#include <txbase/TXColor.h>

namespace txmap
{

/// A line's colour and its width, in pixels of a picture of the usual size.
struct Stroke
{
    TZObjects::TXColor color;
    double width = 1.0;
};

/// The pale band around letters that keeps them readable over lines.
struct LabelHalo
{
    double width = 0.0; ///< How far it reaches beyond the letters, in pixels; 0 for no halo.
    TZObjects::TXColor color;
};

/// How names look.
struct LabelStyle
{
    double size = 0.0;      ///< The height of the text of a country of medium size.
    double smallest = 0.0;  ///< By how much the text of small countries is smaller.
    double largest = 0.0;   ///< By how much the text of large countries is larger.
    double placeSize = 0.0; ///< By how much the text of places is smaller.
    double spacing = 0.0;   ///< Between the letters of the largest countries, as a part of the text's height.
    TZObjects::TXColor country;
    TZObjects::TXColor place;
    LabelHalo countryHalo;
    LabelHalo placeHalo;
};

/// How a north arrow looks.
struct ArrowStyle
{
    TZObjects::TXColor dark;
    TZObjects::TXColor light;
    TZObjects::TXColor glow; ///< Around it, so that it is readable over anything.
};

/// How the map looks.
struct Style
{
    TZObjects::TXColor paper; ///< The margins around the world.
    TZObjects::TXColor oceanAtPoles;
    TZObjects::TXColor oceanAtEquator;
    std::vector<Stroke> shore;     ///< Drawn along all coasts, one over the other, widest first.
    TZObjects::TXColor noCategory; ///< Areas without a category.
    std::vector<TZObjects::TXColor> categories;
    Stroke outline; ///< Around every area of land.
    Stroke border;
    TZObjects::TXColor lake;
    Stroke lakeShore;
    Stroke river;
    Stroke graticule;
    std::vector<double> graticuleDashes; ///< Lengths of dash and gap, in multiples of the width.
    TZObjects::TXColor placeFill;
    Stroke placeRing;
    double placeRadius = 0.0;
    LabelStyle labels;
    Stroke frame;      ///< Around a map that is cut to a frame.
    Stroke overRaster; ///< Below the outlines of land that lie over a raster, wider than these.
    ArrowStyle arrow;
    TZObjects::TXColor panel; ///< Below legends.

    /// The colour of a category, from 1; of none for every other number.
    const TZObjects::TXColor& Fill(int category) const
    {
        return category < 1 || category > Categories() ? noCategory
                                                       : categories[static_cast<std::size_t>(category) - 1];
    }
    /// How many categories have a colour.
    int Categories() const { return static_cast<int>(categories.size()); }
};

/// The look of an atlas page: muted areas, thin warm outlines, a pale sea.
Style AtlasStyle();

} // namespace txmap
