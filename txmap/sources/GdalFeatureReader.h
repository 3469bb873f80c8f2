#pragma once

#include <string>

#include <txmap/map/Mercator.h>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/GeoJsonReader.h>

namespace txmap
{

class SourceDiagnostics;

/// Reads the features of whatever GDAL opens, in degrees whatever their coordinate system.
class GdalFeatureReader
{
public:
    /// @param name what GDAL opens, with "#" and the name of a layer behind it if need be.
    /// @param geometry of several layers, the first is read that may hold such; nothing for the first of all.
    GdalFeatureReader(std::string name, const GeoJsonOptions& options, std::optional<GeometryType> geometry = {})
        : name(std::move(name)), options(options), geometry(geometry)
    {
    }

    /// Reads what lies in a box, and maybe more, or all. @return the box around all that there is, if it is known.
    /// @throw Failure with `ExitCode::Data`.
    std::optional<MercatorBox> Read(const std::optional<MercatorBox>& visible, FeatureSetBuilder& builder,
                                    FeatureSet& set, SourceDiagnostics& diagnostics);
    /// The layer that was read of several; empty where there is one, or it is named.
    const std::string& ChosenLayer() const { return chosenLayer; }

private:
    std::string name;
    const GeoJsonOptions& options;
    std::optional<GeometryType> geometry;
    std::string chosenLayer;
};

} // namespace txmap
