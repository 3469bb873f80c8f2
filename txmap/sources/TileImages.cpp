#include <txmap/sources/TileImages.h>

#include <stdexcept>

#include <txmap/sources/ImageDecoder.h>
#include <txmap/sources/SourceDiagnostics.h>

namespace txmap
{

std::shared_ptr<const Raster> TileImages::Read(const TileId& tile, SourceDiagnostics& diagnostics)
{
    if (std::shared_ptr<const Raster> image = kept.Find(tile))
        return image;
    const std::optional<std::string> data = set.Read(tile, diagnostics);
    if (!data)
        return nullptr;
    try
    {
        auto image = std::make_shared<const Raster>(DecodeImage(*data, kLongestSide));
        ++decoded;
        kept.Keep(tile, image, image->pixels.size() * sizeof image->pixels[0]);
        return image;
    }
    catch (const std::runtime_error& problem)
    {
        diagnostics.Report(set.NameOf(tile) + ": " + problem.what());
        return nullptr;
    }
}

} // namespace txmap
