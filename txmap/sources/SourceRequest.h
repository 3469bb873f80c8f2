#pragma once

#include <optional>

#include <txmap/sources/FeatureSource.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// What the layers of a style want of a source of features in a picture.
/// @param zoom of the picture; nothing while it is not known: then what they want at some zoom, without a margin.
/// @param scale pixels for each logical one.
FeatureRequest RequestFor(const StyleSource& source, const MapStyle& style, std::optional<double> zoom, double scale);

/// True if a layer that is drawn at a zoom, or at any if that is not known, uses the source.
bool IsUsed(const StyleSource& source, const MapStyle& style, std::optional<double> zoom);

} // namespace txmap
