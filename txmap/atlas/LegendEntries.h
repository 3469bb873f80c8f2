#pragma once

#include <map>
#include <string>
#include <vector>

#include <txmap/drawing/Legend.h>

namespace txmap
{

class AtlasSources;
struct AtlasOptions;
struct SourceColors;

/// What the legend of an atlas explains: the colours of a ramp, or of the texts of the attribute that is asked for, and
/// what else is drawn of each source. @param colors as `ColorSources` makes them.
std::vector<LegendEntry> LegendEntries(const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                                       const std::map<std::string, SourceColors>& colors);

} // namespace txmap
