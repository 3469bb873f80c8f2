#include <txmap/sources/FeatureSource.h>

#include <txmap/sources/GeoJsonSource.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/VectorTileSource.h>
#include <txmap/support/Failure.h>

namespace txmap
{

std::unique_ptr<FeatureSource> MakeFeatureSource(const std::string& name, const Json& source,
                                                 const SourceFolder& folder, SourceFilter filter)
{
    const auto type = source.find("type");
    const std::string text = type != source.end() && type->is_string() ? type->get<std::string>() : "";
    if (text == "geojson")
        return std::make_unique<GeoJsonSource>(name, source, folder, std::move(filter));
    if (text == "vector")
        return std::make_unique<VectorTileSource>(source, folder);
    throw Failure(ExitCode::Data, "the source " + name + " has no features");
}

} // namespace txmap
