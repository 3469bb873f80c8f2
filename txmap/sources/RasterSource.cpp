#include <txmap/sources/RasterSource.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>

#include <txmap/sources/GeoreferencedSource.h>
#include <txmap/sources/QuadImageSource.h>
#include <txmap/sources/RasterTileSource.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{

std::array<TZObjects::TXPoint, 4> CornersOf(const MercatorBox& box)
{
    return {{{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}}};
}

bool RasterSource::IsBlank() const
{
    return std::all_of(images.begin(), images.end(),
                       [](const PlacedImage& placed) { return placed.worlds.empty() || placed.image->IsBlank(); });
}

bool NamesGeoreferencedFile(const Json& source, const SourceFolder& folder)
{
    const auto url = source.find("url");
    if (source.contains("tiles") || url == source.end() || !url->is_string() ||
        StartsWithIgnoringCase(url->get<std::string>(), "mbtiles://"))
        return false;
    // TileJSON is JSON. No raster begins with a brace.
    std::ifstream file(folder.PathOf(url->get<std::string>()));
    char first = '{';
    file >> first;
    return first != '{';
}

std::unique_ptr<RasterSource> MakeRasterSource(const std::string& name, const Json& source, const SourceFolder& folder,
                                               double ratio)
{
    const auto type = source.find("type");
    const std::string text = type != source.end() && type->is_string() ? type->get<std::string>() : "";
    if (text == "image")
        return std::make_unique<QuadImageSource>(name, source, folder);
    if (text != "raster")
        throw Failure(ExitCode::Data, "the source " + name + " has no pictures");
    if (NamesGeoreferencedFile(source, folder))
        return std::make_unique<GeoreferencedSource>(folder.PathOf(source.at("url").get<std::string>()));
    return std::make_unique<RasterTileSource>(source, folder, ratio);
}

} // namespace txmap
