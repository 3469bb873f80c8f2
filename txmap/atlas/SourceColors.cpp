#include <txmap/atlas/SourceColors.h>

#include <txmap/atlas/AtlasSources.h>
#include <txmap/style/Style.h>

namespace txmap
{

std::map<std::string, SourceColors> ColorSources(const AtlasOptions& options, const Style& style,
                                                 const AtlasSources& sources)
{
    std::map<std::string, SourceColors> all;
    for (const AtlasSource& source : sources.Features())
    {
        if (!source.IsLand() || !source.Has(GeometryType::Polygon))
            continue;
        const FeatureSet& set = *source.Features().front().features;
        SourceColors& colors = all[source.id];
        if (options.ramp)
            colors.range = RangeOf(set, *options.ramp);
        else
            colors.areas = ColorAreas(set, options.colorBy, style.Categories());
    }
    return all;
}

} // namespace txmap
