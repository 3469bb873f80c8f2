#pragma once

#include <memory>
#include <string>
#include <vector>

#include <txmap/map/MapLayer.h>
#include <txmap/map/MapLayerBuilder.h>
#include <txmap/map/View.h>
#include <txmap/sources/FeatureNames.h>
#include <txmap/style/CategoryTable.h>

class OGRFeature;
class OGRGeometry;
class OGRLayer;

namespace txmap
{

class VectorSource;

/// Reads layers: brings their features into degrees, whatever their own coordinate system, and hands the geometry that
/// suits to a `MapLayerBuilder`.
class GeometryReader
{
public:
    /// @param view what the picture shows; it must outlive the reader.
    /// @param colorBy the attribute that colours areas; empty for the first that suits.
    /// @param classes how many colours there are.
    /// @param request which names to read, if any.
    GeometryReader(const View& view, std::string colorBy, int classes, const NameRequest& request = {});

    /// Reads the first layer of @p data that suits @p role. @throw Failure with `ExitCode::Data` when none does, or
    /// reading fails.
    MapLayer Read(const VectorSource& data, LayerRole role);
    /// What became of the names. To be asked when all layers are read.
    const FeatureNames& Names() const { return names; }

private:
    void ReadFeatures(OGRLayer& layer, LayerRole role);
    void Add(OGRFeature& feature, LayerRole role);
    void AddGeometry(std::unique_ptr<OGRGeometry> geometry, LayerRole role, std::vector<PolygonPtr>& polygons);
    int FindColorField(OGRLayer& layer) const;
    int Category(const OGRFeature& feature);
    void RequireClipped(bool clipped) const;
    [[noreturn]] void Fail(const std::string& reason) const;

    MapLayerBuilder builder;
    std::string colorBy;
    CategoryTable categories;
    FeatureNames names;
    FeatureName name;        ///< That of the feature that is being read, until it is used.
    std::string sourceName;  ///< What is being read, for messages.
    long long featureId = 0; ///< The feature that is being read, for messages.
    int colorField = -1;     ///< The index of the attribute that colours areas; -1 for none.
};

} // namespace txmap
