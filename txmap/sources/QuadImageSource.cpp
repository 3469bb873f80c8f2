#include <txmap/sources/QuadImageSource.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include <txmap/map/MapView.h>
#include <txmap/sources/GeoJsonGeometry.h>
#include <txmap/sources/ImageDecoder.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kLimit = std::size_t{256} << 20;

bool IsPosition(const Json& json)
{
    return json.is_array() && json.size() == 2 && json[0].is_number() && json[1].is_number() &&
           std::isfinite(json[0].get<double>()) && std::isfinite(json[1].get<double>());
}

} // namespace

QuadImageSource::QuadImageSource(const std::string& name, const Json& source, const SourceFolder& folder)
{
    const auto url = source.find("url");
    const auto given = source.find("coordinates");
    if (url == source.end() || !url->is_string())
        throw Failure(ExitCode::Data, "the source " + name + " has no picture");
    if (given == source.end() || !given->is_array() || given->size() != corners.size() ||
        !std::all_of(given->begin(), given->end(), IsPosition))
        throw Failure(ExitCode::Data, "the source " + name + " has no four corners");
    for (std::size_t i = 0; i < corners.size(); ++i)
    {
        const TZObjects::TXPoint degrees((*given)[i][0].get<double>(), (*given)[i][1].get<double>());
        if (IsFarFromDegrees(degrees))
            throw Failure(ExitCode::Data, "the source " + name + " has corners that are no degrees");
        corners[i] = ToMercator(degrees.x, degrees.y);
    }
    const MercatorBox bounds = Bounds();
    if (!(bounds.left < bounds.right && bounds.top < bounds.bottom))
        throw Failure(ExitCode::Data, "the source " + name + " has corners without an area");
    file = folder.PathOf(url->get<std::string>());
}

MercatorBox QuadImageSource::Bounds() const
{
    MercatorBox box{1e300, 1e300, -1e300, -1e300};
    for (const TZObjects::TXPoint& corner : corners)
        box = {std::min(box.left, corner.x), std::min(box.top, corner.y), std::max(box.right, corner.x),
               std::max(box.bottom, corner.y)};
    return box;
}

std::optional<GeoBox> QuadImageSource::Extent() const { return Projection::WebMercator().ToDegrees(Bounds()); }

std::shared_ptr<const Raster> QuadImageSource::Picture(SourceDiagnostics& diagnostics)
{
    if (kept)
        return kept;
    const std::string data = ReadSourceFile(file, kLimit);
    try
    {
        auto picture = std::make_shared<const Raster>(DecodeImage(data, kLongestSide));
        if (picture->pixels.size() * sizeof picture->pixels[0] <= kMostBytes)
            kept = picture;
        return picture;
    }
    catch (const std::runtime_error& problem)
    {
        diagnostics.Report(file + ": " + problem.what());
        return nullptr;
    }
}

void QuadImageSource::Load(const MapView& view, SourceDiagnostics& diagnostics)
{
    images.clear();
    std::vector<int> worlds = view.WorldsThatShow(Bounds());
    if (worlds.empty())
        return;
    if (std::shared_ptr<const Raster> picture = Picture(diagnostics))
        images.push_back({std::move(picture), corners, std::move(worlds), std::nullopt});
}

} // namespace txmap
