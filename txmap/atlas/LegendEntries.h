#pragma once

#include <vector>

#include <txmap/drawing/Legend.h>

namespace txmap
{

class AtlasSources;
struct AtlasOptions;

/// What the legend of an atlas explains: the colours of a ramp, or of the texts of the attribute that is asked for, and
/// what else is drawn of each source.
std::vector<LegendEntry> LegendEntries(const AtlasOptions& options, const Style& style, const AtlasSources& sources);

} // namespace txmap
