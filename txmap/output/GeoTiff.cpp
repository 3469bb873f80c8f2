#include <txmap/output/GeoTiff.h>

#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

using Dataset = GDALDatasetUniquePtr;

[[noreturn]] void Fail(const std::string& name)
{
    const std::string reason = CPLGetLastErrorMsg();
    throw Failure(ExitCode::Drawing,
                  name + ": the picture cannot be written" + (reason.empty() ? "" : " (" + reason + ")"));
}

} // namespace

void WriteGeoTiff(const std::string& picture, const std::string& path, const std::string& name,
                  const GeoReference& reference)
{
    CPLErrorReset();
    GDALDriver* const tiff = GetGDALDriverManager()->GetDriverByName("GTiff");
    GDALDriver* const link = GetGDALDriverManager()->GetDriverByName("VRT");
    OGRSpatialReference system;
    if (!tiff || !link || system.SetFromUserInput(reference.system.c_str()) != OGRERR_NONE)
        Fail(name);
    const Dataset pixels(GDALDataset::Open(picture.c_str(), GDAL_OF_RASTER));
    // What the copy is to say of itself that its pixels do not.
    const Dataset placed(pixels ? link->CreateCopy("", pixels.get(), FALSE, nullptr, nullptr, nullptr) : nullptr);
    double transform[] = {reference.x0, reference.xAcross, reference.xDown,
                          reference.y0, reference.yAcross, reference.yDown};
    if (!placed || placed->SetGeoTransform(transform) != CE_None || placed->SetSpatialRef(&system) != CE_None)
        Fail(name);
    CPLStringList options;
    for (const char* const option : {"COMPRESS=DEFLATE", "PREDICTOR=2", "TILED=YES", "BIGTIFF=IF_SAFER"})
        options.AddString(option);
    Dataset copy(tiff->CreateCopy(path.c_str(), placed.get(), FALSE, options.List(), nullptr, nullptr));
    // What is buffered is written at the end, and a full disk is known only then.
    if (copy)
        copy->FlushCache();
    const bool isWritten = copy != nullptr && CPLGetLastErrorType() < CE_Failure;
    copy.reset();
    if (!isWritten || CPLGetLastErrorType() >= CE_Failure)
        Fail(name);
}

} // namespace txmap
