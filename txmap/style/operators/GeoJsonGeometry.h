#pragma once

#include <vector>

#include <nlohmann/json.hpp>

#include <txmap/style/EvaluationContext.h>

namespace txmap
{

/// A GeoJSON geometry, or nothing where it is none or is broken. Collections of geometries are none.
std::optional<LonLatGeometry> ReadGeoJsonGeometry(const Json& json);

/// The geometries of a GeoJSON geometry, feature or collection of features; broken ones are left out.
std::vector<LonLatGeometry> ReadGeoJson(const Json& json);

} // namespace txmap
