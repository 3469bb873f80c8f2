#include <txmap/sources/RasterExtent.h>

#include <gdal_priv.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <txmap/sources/GdalDegrees.h>

namespace txmap
{
namespace
{

// A pixel of a raster may reach a little over a pole.
constexpr double kFarthestLatitude = 91.0;

} // namespace

std::optional<GeoBox> RasterExtent(const std::string& file)
{
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    std::array<double, 6> transform{};
    if (!dataset || dataset->GetGeoTransform(transform.data()) != CE_None)
        return std::nullopt;
    GeoBox box{1e300, 1e300, -1e300, -1e300};
    for (const double column : {0.0, static_cast<double>(dataset->GetRasterXSize())})
        for (const double row : {0.0, static_cast<double>(dataset->GetRasterYSize())})
        {
            const double x = transform[0] + column * transform[1] + row * transform[2];
            const double y = transform[3] + column * transform[4] + row * transform[5];
            box = {std::min(box.west, x), std::min(box.south, y), std::max(box.east, x), std::max(box.north, y)};
        }
    if (const OGRSpatialReference* const system = dataset->GetSpatialRef())
    {
        const OGRSpatialReference degrees = Degrees();
        const Transformation toDegrees(OGRCreateCoordinateTransformation(system, &degrees));
        if (!toDegrees || !toDegrees->TransformBounds(box.west, box.south, box.east, box.north, &box.west, &box.south,
                                                      &box.east, &box.north, kBoundsSamples))
            return std::nullopt;
    }
    // Without a coordinate system, these may be anything.
    const bool isKnown = std::isfinite(box.west) && std::isfinite(box.east) && box.west < box.east &&
                         box.south < box.north && box.south >= -kFarthestLatitude && box.north <= kFarthestLatitude;
    return isKnown ? std::optional(box) : std::nullopt;
}

} // namespace txmap
