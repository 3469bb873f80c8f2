#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <txmap/map/Mercator.h>
#include <txmap/sources/FeatureSet.h>
#include <txmap/sources/VectorTileReader.h>
#include <txmap/style/Value.h>

namespace txmap
{

class BoxIndex;
class MapView;
class SourceDiagnostics;
class SourceFolder;

/// What the layers of a style want of a source for one picture.
struct FeatureRequest
{
    /// The attributes that are used, for each source layer that is used; sources without layers know "" alone.
    std::map<std::string, WantedProperties> layers;
    /// So many pixels around the picture, features are still seen: by the width of lines, the radius of circles and the
    /// size of labels.
    double margin = 0.0;
    /// Keeps features as a whole, because some expression asks for their geometry: `within` and `distance`.
    bool keepsWholeFeatures = false;
    /// Joins what goes on at the other side of the map: see `FeatureSetBuilder::JoinAtDateLine`.
    bool joinsAtDateLine = false;
    /// Of a file with several layers, the first is read that may hold such geometry; nothing for the first of all.
    std::optional<GeometryType> geometry = std::nullopt;
    /// Of sources in tiles, so many pixels around the picture the features of a source layer are wanted that are not in
    /// the picture's own tiles as well: points. 0 for layers that are not named.
    std::map<std::string, double> layerMargins = {};
};

/// Features, and where they are drawn.
struct PlacedFeatures
{
    std::shared_ptr<const FeatureSet> features;
    /// How many worlds to the east they are drawn, once for each (see `MapView::ToPixels`).
    std::vector<int> worlds;
    /// The tile that they come from; nothing for a source without tiles. Features reach beyond their tile, and are in
    /// the neighbouring one, too: fills are cut to `MapView::AlignedToPixels` of this box, lines are drawn with
    /// `MapView::PixelsOf` of it as clip, and points outside belong to the neighbour.
    std::optional<MercatorBox> tile;
    /// The zoom of that tile.
    std::optional<int> tileZoom;
    /// Where each feature of the set lies, by its number; null for a set that is drawn in few pictures.
    std::shared_ptr<const BoxIndex> index;
};

/// Which features of a source there are, for the member `filter` of sources.
struct SourceFilter
{
    /// False for features that are left out; nothing for none.
    std::function<bool(const ExpressionFeature&)> accepts;
    /// The attributes that it uses.
    WantedProperties properties;
};

/// A source of features. For a picture it is loaded once, with all that is wanted of it, and then asked layer by layer.
class FeatureSource
{
public:
    virtual ~FeatureSource() = default;

    /// Reads what a view shows. Every tile is decoded once. @throw Failure with `ExitCode::Data`.
    virtual void Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics) = 0;
    /// Shows what was read in another view of the same projection, which sees no more of the world. What is kept in
    /// tiles stays as it is. @param margin as in the request.
    virtual void ShowIn(const MapView& /*view*/, double /*margin*/) {}
    /// Prepares what was read for many views, each of which shows a part of it.
    virtual void IndexFeatures() {}
    /// The features of a source layer, "" for a source without layers; none for one that there is not.
    virtual const std::vector<PlacedFeatures>& Features(const std::string& sourceLayer) const = 0;
    /// Whether anything was read that is seen.
    virtual bool HasFeatures() const = 0;
    /// The box around everything that the source has, in world coordinates; nothing if it is not known or there is
    /// nothing.
    virtual std::optional<MercatorBox> Extent() const { return std::nullopt; }
    /// The layer of a file that was read, if the file has several and the source does not name it; else empty.
    virtual std::string ChosenLayer() const { return {}; }
};

/// Makes the source of features that a source of type `geojson` or `vector` of a style describes.
/// @param source the member of the style's `sources`. @param name what it is called, for messages.
/// @throw Failure with `ExitCode::Data`, also for a `filter` or `clusterProperties` that do not compile.
std::unique_ptr<FeatureSource> MakeFeatureSource(const std::string& name, const Json& source,
                                                 const SourceFolder& folder);

} // namespace txmap
