#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/GeoJsonReader.h>
#include <txmap/sources/PointClusters.h>

namespace txmap
{

/// Features that stand in the style, in a file of GeoJSON, or in whatever else GDAL reads. They are not cut into tiles.
class GeoJsonSource final : public FeatureSource
{
public:
    /// @throw Failure with `ExitCode::Data` if `data` cannot be.
    GeoJsonSource(const std::string& name, const Json& source, const SourceFolder& folder, SourceFilter filter);

    void Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics) override;
    void ShowIn(const MapView& view, double margin) override;
    void IndexFeatures() override;
    const std::vector<PlacedFeatures>& Features(const std::string& sourceLayer) const override;
    bool HasFeatures() const override;
    std::optional<MercatorBox> Extent() const override { return extent; }
    std::string ChosenLayer() const override { return chosenLayer; }

private:
    std::optional<std::string> ReadText() const;
    void WantProperties(const FeatureRequest& request);
    /// Reads what lies in a box, or all that there is.
    FeatureSet ReadFeatures(const Projection& projection, const std::optional<MercatorBox>& box,
                            const FeatureRequest& request, SourceDiagnostics& diagnostics);
    void Check(const GeoJsonResult& result, SourceDiagnostics& diagnostics) const;

    std::string name;
    Json inlineData;  ///< Null if the data is elsewhere.
    std::string path; ///< Where it is then: a file, or a text that GDAL knows what to do with.
    GeoJsonOptions options;
    std::optional<ClusterOptions> clusters; ///< Nothing for points that stand for themselves.
    std::vector<PlacedFeatures> placed;
    std::optional<MercatorBox> extent;
    std::string chosenLayer;
};

} // namespace txmap
