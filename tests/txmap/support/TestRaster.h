#pragma once

#include <gdal_priv.h>

#include <functional>
#include <string>
#include <vector>

/// A raster to be written, small and in degrees unless something else is set.
struct TestRaster
{
    int width = 36;
    int height = 18;
    int bands = 1;
    GDALDataType type = GDT_Byte;
    std::string system = "EPSG:4326";                                      ///< Empty for none.
    std::vector<double> transform = {-180.0, 10.0, 0.0, 90.0, 0.0, -10.0}; ///< Empty for none.
    /// The value of a pixel, by its column, row and band, which all begin at 0.
    std::function<double(int, int, int)> value = [](int, int, int) { return 0.0; };
    /// What else there is to set.
    std::function<void(GDALDataset&)> prepare = [](GDALDataset&) {};

    /// Writes a GeoTIFF. @return its path.
    std::string Write(const std::string& path) const;
};

/// A raster whose pixels are of four colours: red in the north-west, green in the north-east, blue in the south-west,
/// white in the south-east of the world.
TestRaster FourColors();
