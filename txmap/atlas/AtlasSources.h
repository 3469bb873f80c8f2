#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <txmap/atlas/AtlasOptions.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/MapData.h>
#include <txmap/sources/RasterSource.h>

namespace txmap
{

class SourceDiagnostics;

/// How far around the picture features are read and placed, in logical pixels: farther than the widest line reaches.
constexpr double kAtlasMargin = 32.0;

/// A source of an atlas, and what it is drawn as.
struct AtlasSource
{
    std::string id; ///< In the style.
    LayerRole role = LayerRole::Any;
    Json json; ///< As the style has it.
    std::unique_ptr<FeatureSource> source;

    const std::vector<PlacedFeatures>& Features() const { return source->Features(""); }
    /// Whether its areas are land.
    bool IsLand() const { return role == LayerRole::Any || role == LayerRole::Countries; }
    /// Whether there is anything of a type in the view.
    bool Has(GeometryType type) const;
};

/// What the data of an atlas is, read before its style is made: how it looks depends on what there is.
class AtlasSources
{
public:
    /// Reads all data. Where no box is asked for, the view is that of the data. @throw Failure.
    AtlasSources(const AtlasOptions& options, SourceDiagnostics& diagnostics);

    const AtlasView& View() const { return *view; }
    const std::vector<AtlasSource>& Features() const { return features; }
    /// The name of the raster's source; empty for no raster.
    const std::string& RasterId() const { return rasterId; }
    const Json& RasterJson() const { return rasterJson; }
    /// True when the raster has no colours, as a shaded relief has none.
    bool RasterIsGrey() const { return rasterIsGrey; }
    /// What to say where there is nothing to see; empty when all is well.
    std::string EmptyMap(const AtlasOptions& options) const;
    /// Hands over what was read.
    LoadedSources Take();

private:
    void Load(const MapView& shown, const AtlasOptions& options, SourceDiagnostics& diagnostics);
    std::optional<GeoBox> Extent(const AtlasOptions& options) const;

    std::vector<AtlasSource> features;
    std::optional<AtlasView> view;
    std::string rasterId;
    Json rasterJson;
    std::unique_ptr<RasterSource> raster;
    bool rasterIsGrey = false;
};

} // namespace txmap
