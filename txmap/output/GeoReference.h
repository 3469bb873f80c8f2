#pragma once

#include <string>

namespace txmap
{

/// Where the pixels of a picture lie in a coordinate system: x = `x0` + column * `xAcross` + row * `xDown`, and y
/// likewise. Columns and rows count from the top left corner of the picture.
struct GeoReference
{
    std::string system; ///< As GDAL names it, such as "EPSG:3857".
    double x0 = 0.0;
    double xAcross = 1.0;
    double xDown = 0.0;
    double y0 = 0.0;
    double yAcross = 0.0;
    double yDown = -1.0;
};

} // namespace txmap
