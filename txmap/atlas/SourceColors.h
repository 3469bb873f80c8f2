#pragma once

#include <map>
#include <string>

#include <txmap/atlas/AreaColors.h>

namespace txmap
{

class AtlasSources;
struct AtlasOptions;
struct Style;

/// What decides the colours of the areas of a source.
struct SourceColors
{
    AreaColors areas; ///< Without a ramp.
    RampRange range;  ///< With one.
};

/// The colours of all areas of land that an atlas has, by the id of their source.
std::map<std::string, SourceColors> ColorSources(const AtlasOptions& options, const Style& style,
                                                 const AtlasSources& sources);

} // namespace txmap
