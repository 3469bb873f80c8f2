#pragma once

#include <optional>
#include <string>

#include <txmap/map/GeoBox.h>
#include <txmap/style/EvaluationContext.h>

namespace txmap
{

/// What is drawn of which style.
struct RenderOptions
{
    std::string style; ///< The file.
    std::string output;
    PixelSize size{1024, 1024};   ///< In logical pixels.
    std::optional<LonLat> center; ///< Nothing here and below is what the style says.
    std::optional<double> zoom;
    std::optional<double> bearing;
    std::optional<GeoBox> box; ///< Shown as large as possible; instead of centre and zoom.
    bool fit = false;          ///< Shows all data as large as possible; instead of centre, zoom and box.
    double scale = 1.0;        ///< Pixels for each logical one.
    bool lenient = false;      ///< Draws what it can.
    bool timings = false;
    bool worldFile = false; ///< Writes where the picture lies beside it.
    std::string plugin = "txpluginqt";
};

} // namespace txmap
