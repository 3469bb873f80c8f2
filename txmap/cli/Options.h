#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/cli/FrameOptions.h>
#include <txmap/cli/LabelOptions.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/drawing/PlaceSymbol.h>
#include <txmap/map/Projection.h>
#include <txmap/map/View.h>
#include <txmap/sources/Raster.h>

namespace TZObjects
{

/// What a layer stands for on the map, which decides how it looks.
enum class LayerRole
{
    Any,       ///< As the geometry suggests: areas as countries, lines as rivers, points as places.
    Countries, ///< Areas in the colours of a category.
    Lakes,     ///< Areas of water.
    Borders,   ///< Lines, or the outlines of areas, between countries.
    Lines      ///< Lines, or the outlines of areas, of water.
};

/// A layer as the command line names it.
struct LayerRequest
{
    std::string source; ///< Anything that GDAL opens, with "#" and the name of a layer behind it if need be.
    LayerRole role = LayerRole::Any;
};

/// What the program is to do.
struct Options
{
    /// Exactly one of these happens.
    enum class Action
    {
        Render,
        ListPlugins,
        ShowText ///< Print `text` and do nothing else.
    };

    Action action = Action::Render;
    std::string text;
    std::vector<LayerRequest> layers;
    std::string output = "map.png";
    std::optional<PixelSize> size;
    Projection projection = Projection::PlateCarree();
    std::optional<GeoBox> box;
    std::optional<double> graticule; ///< Degrees between lines, 0 for no lines; nothing for what suits the map.
    std::string colorBy;             ///< The attribute that colours the countries; empty for what the layer offers.
    LabelOptions labels;
    PlaceSymbol symbol;
    std::optional<RasterRequest> raster;
    std::optional<FrameRequest> frame;
    std::optional<ArrowRequest> arrow;
    std::string plugin = "txpluginqt";
};

/// Reads the command line. @throw Failure with `ExitCode::Usage` when it makes no sense.
Options ParseOptions(int argc, const char* const* argv);

} // namespace TZObjects
