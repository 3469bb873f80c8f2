#include <txmap/sources/Raster.h>

#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include <txmap/sources/Gdal.h>
#include <txmap/sources/RasterColors.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr double kTurn = 360.0;

[[noreturn]] void Fail(const std::string& name, const std::string& reason)
{
    throw Failure(ExitCode::Data, name + ": " + reason);
}

/// Why GDAL could not open a file as a raster.
std::string OpenProblem(const std::string& file, const std::string& complaint)
{
    if (std::string problem = FileProblem(file); !problem.empty())
        return problem;
    const GDALDatasetUniquePtr vectors(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (vectors && vectors->GetLayerCount() > 0)
        return "holds vector data, where a raster is wanted";
    return "cannot be read as a raster" + complaint;
}

GDALDatasetUniquePtr Open(const std::string& file, const std::string& name)
{
    CPLErrorReset();
    GDALDatasetUniquePtr dataset(
        GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    if (!dataset)
        Fail(name, OpenProblem(file, LastGdalComplaint()));
    if (dataset->GetRasterCount() == 0)
        Fail(name, "holds no raster by itself, but perhaps several");
    return dataset;
}

/// True when the corners of a raster without a coordinate system can be degrees.
bool LooksLikeDegrees(GDALDataset& dataset, const std::array<double, 6>& transform)
{
    const auto isDegree = [](double origin, double step, int count, double limit)
    { return std::abs(origin) <= limit && std::abs(origin + step * count) <= limit; };
    return isDegree(transform[0], transform[1], dataset.GetRasterXSize(), 541.0) &&
           isDegree(transform[3], transform[5], dataset.GetRasterYSize(), 91.0);
}

/// Whether the coordinate system must be given, as the raster has none but its coordinates are degrees.
bool NeedsDegrees(GDALDataset& dataset, const std::string& name)
{
    std::array<double, 6> transform{};
    const bool hasTransform = dataset.GetGeoTransform(transform.data()) == CE_None;
    const bool hasPoints =
        dataset.GetGCPCount() > 0 || dataset.GetMetadata("RPC") != nullptr || dataset.GetMetadata("GEOLOCATION");
    if (!hasTransform && !hasPoints)
        Fail(name, "has no georeference");
    if (hasTransform && !std::all_of(transform.begin(), transform.end(), [](double c) { return std::isfinite(c); }))
        Fail(name, "has a georeference that is none");
    if (hasPoints || dataset.GetSpatialRef())
        return false;
    if (!LooksLikeDegrees(dataset, transform))
        Fail(name, "has no coordinate system, and its coordinates are not degrees");
    return true;
}

struct TranslateDeleter
{
    void operator()(GDALTranslateOptions* options) const { GDALTranslateOptionsFree(options); }
};
struct WarpDeleter
{
    void operator()(GDALWarpAppOptions* options) const { GDALWarpAppOptionsFree(options); }
};

/// The raster with those bands alone that are drawn, and with a coordinate system.
GDALDatasetUniquePtr Selected(GDALDataset& dataset, const RasterBands& bands, const std::string& name)
{
    CPLStringList arguments;
    arguments.AddString("-of");
    arguments.AddString("VRT");
    std::vector<int> numbers = bands.colors;
    if (bands.alpha > 0)
        numbers.push_back(bands.alpha);
    for (const int number : numbers)
    {
        arguments.AddString("-b");
        arguments.AddString(std::to_string(number).c_str());
    }
    if (NeedsDegrees(dataset, name))
    {
        arguments.AddString("-a_srs");
        arguments.AddString("EPSG:4326");
    }
    const std::unique_ptr<GDALTranslateOptions, TranslateDeleter> options(
        GDALTranslateOptionsNew(arguments.List(), nullptr));
    GDALDatasetUniquePtr selected(
        GDALDataset::FromHandle(GDALTranslate("", GDALDataset::ToHandle(&dataset), options.get(), nullptr)));
    if (!selected)
        Fail(name, "cannot be read as a raster" + LastGdalComplaint());
    return selected;
}

/// A raster in memory that has the size of the picture, the bands to draw, and last one of opacity.
GDALDatasetUniquePtr MakeTarget(const MapView& view, const RasterBands& bands, const std::string& name)
{
    GDALDriver* const memory = GetGDALDriverManager()->GetDriverByName("MEM");
    const int count = static_cast<int>(bands.colors.size()) + 1;
    GDALDatasetUniquePtr target(
        memory ? memory->Create("", view.Size().width, view.Size().height, count, bands.type, nullptr) : nullptr);
    OGRSpatialReference system;
    system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (!target || system.SetFromUserInput(view.MapProjection().Name()) != OGRERR_NONE ||
        target->SetSpatialRef(&system) != CE_None)
        Fail(name, "cannot be warped" + LastGdalComplaint());
    target->GetRasterBand(count)->SetColorInterpretation(GCI_AlphaBand);
    return target;
}

/// In which worlds, so many degrees to the east, a part of the raster may lie that the view shows. Rasters in degrees
/// lie between -180 and 180 or between 0 and 360, and the view may reach to both sides of either.
std::vector<double> WorldsOf(const GDALDataset& dataset, const MapView& view)
{
    const OGRSpatialReference* const system = dataset.GetSpatialRef();
    const GeoBox visible = view.VisibleDegrees();
    const bool crossesDateLine = visible.west < -180.001 || visible.east > 180.001;
    if (system && system->IsProjected() && !crossesDateLine)
        return {0.0};
    return {0.0, -kTurn, kTurn};
}

/// Warps into an empty target what lies in the picture of the world that is so many degrees to the east.
void Warp(GDALDataset& source, GDALDataset& target, const MapView& view, double degrees, const RasterBands& bands,
          const std::string& name)
{
    const double circumference = view.MapProjection().Circumference();
    const double size = circumference / view.WorldSize();
    const TZObjects::TXPoint corner = view.ToPlace({0.0, 0.0});
    std::array<double, 6> transform = {
        (corner.x - 0.5 + degrees / kTurn) * circumference, size, 0.0, (0.5 - corner.y) * circumference, 0.0, -size};
    target.SetGeoTransform(transform.data());

    CPLStringList arguments;
    // Numbers of colours in a table have nothing between them.
    for (const char* const argument : {"-r", bands.table.empty() ? "bilinear" : "near", "-wo", "DST_ALPHA_MAX=255"})
        arguments.AddString(argument);
    const std::unique_ptr<GDALWarpAppOptions, WarpDeleter> options(GDALWarpAppOptionsNew(arguments.List(), nullptr));
    GDALDatasetH sources[] = {GDALDataset::ToHandle(&source)};
    CPLErrorReset();
    if (!GDALWarp(nullptr, GDALDataset::ToHandle(&target), 1, sources, options.get(), nullptr))
        Fail(name, "cannot be brought into the map" + LastGdalComplaint());
}

bool IsTransparent(std::uint32_t pixel) { return pixel >> 24 == 0; }

void FillGaps(std::vector<std::uint32_t>& pixels, std::vector<std::uint32_t> others)
{
    if (pixels.empty())
        pixels = std::move(others);
    else
        std::transform(pixels.begin(), pixels.end(), others.begin(), pixels.begin(),
                       [](std::uint32_t pixel, std::uint32_t other) { return IsTransparent(pixel) ? other : pixel; });
}

} // namespace

bool Raster::IsBlank() const { return std::all_of(pixels.begin(), pixels.end(), IsTransparent); }

Raster ReadRaster(const std::string& file, const MapView& view, const std::string& name)
{
    const GDALDatasetUniquePtr dataset = Open(file, name);
    const RasterBands bands = BandsOf(*dataset);
    const GDALDatasetUniquePtr selected = Selected(*dataset, bands, name);
    std::optional<ValueRange> range;
    if (bands.type != GDT_Byte && bands.table.empty())
        range = UsualValues(*selected, static_cast<int>(bands.colors.size()));
    Raster raster{view.Size(), {}};
    for (const double degrees : WorldsOf(*selected, view))
    {
        // Into one target, translucent pixels would add up.
        const GDALDatasetUniquePtr target = MakeTarget(view, bands, name);
        Warp(*selected, *target, view, degrees, bands, name);
        std::vector<std::uint32_t> pixels = ToColors(*target, bands, range);
        if (pixels.empty())
            Fail(name, "cannot be brought into the map" + LastGdalComplaint());
        FillGaps(raster.pixels, std::move(pixels));
        if (std::none_of(raster.pixels.begin(), raster.pixels.end(), IsTransparent))
            break;
    }
    return raster;
}

} // namespace txmap
