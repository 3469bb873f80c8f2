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
    GdalFeatureReader(std::string name, const GeoJsonOptions& options) : name(std::move(name)), options(options) {}

    /// Reads what lies in a box, and maybe more, or all. @return the box around all that there is, if it is known.
    /// @throw Failure with `ExitCode::Data`.
    std::optional<MercatorBox> Read(const std::optional<MercatorBox>& visible, FeatureSetBuilder& builder,
                                    FeatureSet& set, SourceDiagnostics& diagnostics) const;

private:
    std::string name;
    const GeoJsonOptions& options;
};

} // namespace txmap
