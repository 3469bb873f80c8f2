#pragma once

#include <map>
#include <string>

#include <txmap/style/Value.h>

namespace txmap
{

class AtlasSources;
struct AtlasOptions;
struct SourceColors;
struct Style;

/// Makes the style of an atlas, in the form of the MapLibre Style Specification: sources, and the layers that draw them
/// in the look of the atlas. Places, names and decorations are drawn over it.
/// @param colors as `ColorSources` makes them.
/// @throw Failure with `ExitCode::Data` when an attribute is asked for that there is not.
Json MakeStyleDocument(const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                       const std::map<std::string, SourceColors>& colors);

/// The style in a form that stands alone: with absolute paths, with a camera, and with layers for the places.
Json StandaloneDocument(Json document, const Style& style, const AtlasSources& sources);

} // namespace txmap
