#include <txmap/sources/ElevationFile.h>

#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>

#include <txmap/map/Projection.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GeoreferencedSource.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

struct TranslateDeleter
{
    void operator()(GDALTranslateOptions* options) const { GDALTranslateOptionsFree(options); }
};
struct WarpDeleter
{
    void operator()(GDALWarpAppOptions* options) const { GDALWarpAppOptionsFree(options); }
};

[[noreturn]] void Fail(const std::string& file, const std::string& reason)
{
    throw Failure(ExitCode::Data, file + ": " + reason + LastGdalComplaint());
}

/// The first band alone. Files without a coordinate system are taken for degrees.
GDALDatasetUniquePtr FirstBand(GDALDataset& dataset, const std::string& file)
{
    CPLStringList arguments;
    for (const char* const argument : {"-of", "VRT", "-b", "1"})
        arguments.AddString(argument);
    if (!dataset.GetSpatialRef() && dataset.GetGCPCount() == 0)
        for (const char* const argument : {"-a_srs", "EPSG:4326"})
            arguments.AddString(argument);
    const std::unique_ptr<GDALTranslateOptions, TranslateDeleter> options(
        GDALTranslateOptionsNew(arguments.List(), nullptr));
    GDALDatasetUniquePtr band(
        GDALDataset::FromHandle(GDALTranslate("", GDALDataset::ToHandle(&dataset), options.get(), nullptr)));
    if (!band)
        Fail(file, "cannot be read as a raster");
    return band;
}

/// Warps into a fresh grid what lies in the window, which is moved so many worlds to the west.
std::vector<float> Warped(GDALDataset& source, const WarpWindow& window, int world, const std::string& file)
{
    GDALDriver* const memory = GetGDALDriverManager()->GetDriverByName("MEM");
    const GDALDatasetUniquePtr target(memory->Create("", window.width, window.height, 1, GDT_Float32, nullptr));
    OGRSpatialReference system;
    system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (!target || system.SetFromUserInput("EPSG:3857") != OGRERR_NONE || target->SetSpatialRef(&system) != CE_None)
        Fail(file, "cannot be warped");
    const double metres = Projection::WebMercator().Circumference();
    std::array<double, 6> transform = {(window.box.left + world - 0.5) * metres,
                                       (window.box.right - window.box.left) * metres / window.width,
                                       0.0,
                                       (0.5 - window.box.top) * metres,
                                       0.0,
                                       -(window.box.bottom - window.box.top) * metres / window.height};
    target->SetGeoTransform(transform.data());
    const double unknown = std::numeric_limits<double>::quiet_NaN();
    target->GetRasterBand(1)->SetNoDataValue(unknown);
    target->GetRasterBand(1)->Fill(unknown);

    CPLStringList arguments;
    for (const char* const argument : {"-r", "bilinear", "-dstnodata", "nan"})
        arguments.AddString(argument);
    const std::unique_ptr<GDALWarpAppOptions, WarpDeleter> options(GDALWarpAppOptionsNew(arguments.List(), nullptr));
    GDALDatasetH sources[] = {GDALDataset::ToHandle(&source)};
    CPLErrorReset();
    if (!GDALWarp(nullptr, GDALDataset::ToHandle(target.get()), 1, sources, options.get(), nullptr))
        Fail(file, "cannot be brought into the map");
    std::vector<float> heights(static_cast<std::size_t>(window.width) * static_cast<std::size_t>(window.height));
    if (target->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, window.width, window.height, heights.data(), window.width,
                                           window.height, GDT_Float32, 0, 0, nullptr) != CE_None)
        Fail(file, "cannot be read");
    return heights;
}

} // namespace

std::vector<float> ReadElevations(const std::string& file, const WarpWindow& window)
{
    CPLErrorReset();
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    if (!dataset || dataset->GetRasterCount() == 0)
        Fail(file, "cannot be read as a raster");
    std::array<double, 6> transform{};
    if (dataset->GetGeoTransform(transform.data()) != CE_None && dataset->GetGCPCount() == 0)
        throw Failure(ExitCode::Data, file + ": has no georeference");
    const GDALDatasetUniquePtr band = FirstBand(*dataset, file);
    std::vector<float> heights;
    // The window may reach over the date line, on either side, and the file may count from 0 to 360.
    for (const int world : {0, -1, 1})
    {
        std::vector<float> more = Warped(*band, window, world, file);
        bool complete = true;
        if (heights.empty())
            heights = std::move(more);
        else
            for (std::size_t i = 0; i < heights.size(); ++i)
                heights[i] = std::isnan(heights[i]) ? more[i] : heights[i];
        for (const float height : heights)
            complete = complete && !std::isnan(height);
        if (complete)
            break;
    }
    return heights;
}

} // namespace txmap
