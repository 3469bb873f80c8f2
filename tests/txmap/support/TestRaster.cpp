#include "TestRaster.h"

#include <ogr_spatialref.h>

#include <stdexcept>

std::string TestRaster::Write(const std::string& path) const
{
    GDALAllRegister();
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    const GDALDatasetUniquePtr dataset(driver->Create(path.c_str(), width, height, bands, type, nullptr));
    if (!dataset)
        throw std::runtime_error(path + " cannot be written");
    if (!transform.empty())
    {
        std::vector<double> copy = transform;
        dataset->SetGeoTransform(copy.data());
    }
    if (!system.empty())
    {
        OGRSpatialReference reference;
        reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        reference.SetFromUserInput(system.c_str());
        dataset->SetSpatialRef(&reference);
    }
    prepare(*dataset);
    std::vector<double> row(static_cast<std::size_t>(width));
    for (int band = 0; band < bands; ++band)
        for (int y = 0; y < height; ++y)
        {
            for (int x = 0; x < width; ++x)
                row[static_cast<std::size_t>(x)] = value(x, y, band);
            if (dataset->GetRasterBand(band + 1)->RasterIO(GF_Write, 0, y, width, 1, row.data(), width, 1, GDT_Float64,
                                                           0, 0, nullptr) != CE_None)
                throw std::runtime_error(path + " cannot be written");
        }
    return path;
}

TestRaster FourColors()
{
    TestRaster raster;
    raster.bands = 3;
    raster.value = [](int x, int y, int band)
    {
        constexpr int kColors[2][2][3] = {{{200, 0, 0}, {0, 160, 0}}, {{0, 0, 220}, {255, 255, 255}}};
        return kColors[y < 9 ? 0 : 1][x < 18 ? 0 : 1][band];
    };
    return raster;
}
