#pragma once

#include <functional>
#include <set>
#include <string>

#include <txmap/map/Mercator.h>
#include <txmap/sources/FeatureSource.h>

namespace txmap
{

class FeatureSetBuilder;

/// How the features of GeoJSON are read.
struct GeoJsonOptions
{
    WantedProperties properties;
    SourceFilter filter;
    bool generatesIds = false; ///< The identifier is the feature's number, from 0.
    std::string promotedId;    ///< The attribute that is the identifier; empty for none.
};

/// What became of the text.
struct GeoJsonResult
{
    /// Why it is no GeoJSON; empty if it is.
    std::string problem;
    /// True when it is JSON or a sequence of JSON that some other reader may understand.
    bool isOther = false;
    std::size_t brokenFeatures = 0; ///< Features that were left out because their geometry is none.
    bool hasFarPositions = false;   ///< Some coordinates can be no degrees.
};

/// Reads GeoJSON as it comes, without a tree of it in between. A geometry collection gives a feature for each of its
/// geometries, as in web maps.
/// @param text is used up.
GeoJsonResult ReadGeoJsonText(std::string text, const GeoJsonOptions& options, FeatureSetBuilder& builder,
                              FeatureSet& set);

/// The same for GeoJSON that stands in a style.
GeoJsonResult ReadGeoJson(const Json& json, const GeoJsonOptions& options, FeatureSetBuilder& builder, FeatureSet& set);

/// An identifier as web maps see it: a whole number, or null.
Value FeatureId(const Value& given);

} // namespace txmap
