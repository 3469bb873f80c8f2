#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/atlas/AreaColors.h>
#include <txmap/atlas/MapFrame.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/drawing/PlaceSymbol.h>
#include <txmap/labels/LabelOptions.h>
#include <txmap/map/GeoBox.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/Projection.h>

namespace txmap
{

/// A layer of the map, and where it comes from.
struct LayerRequest
{
    std::string source; ///< Anything that GDAL opens, with "#" and the name of a layer behind it if need be.
    LayerRole role = LayerRole::Any;
};

/// The raster under the map's lines.
struct RasterRequest
{
    std::string file;
    double opacity = 1.0;           ///< 0 for invisible, 1 for as it is.
    std::optional<bool> multiplies; ///< Darkens what is below; nothing for what suits the raster.
};

/// Which map is drawn, and how.
struct AtlasOptions
{
    std::vector<LayerRequest> layers;
    std::string output = "map.png";
    std::string styleOutput; ///< Where the style is written as well; empty for nowhere.
    std::optional<PixelSize> size;
    double scale = 1.0; ///< How large lines, symbols and names are.
    Projection projection = Projection::PlateCarree();
    std::optional<GeoBox> box;
    std::optional<double> graticule; ///< Degrees between lines, 0 for no lines; nothing for what suits the map.
    std::optional<ColorRamp> ramp;   ///< The numbers that colour the countries, instead of `colorBy`.
    std::string colorBy;             ///< The attribute that colours the countries; empty for what the layer offers.
    LabelOptions labels;
    PlaceSymbol symbol;
    std::optional<RasterRequest> raster;
    std::optional<FrameRequest> frame;
    std::optional<ArrowRequest> arrow;
    bool legend = false;
    bool scaleBar = false;
    std::string plugin = "txpluginqt";
};

} // namespace txmap
