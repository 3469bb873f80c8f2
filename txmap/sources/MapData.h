#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <txmap/sources/DataExtent.h>
#include <txmap/sources/ElevationSource.h>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/RasterSource.h>
#include <txmap/sources/Sprites.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

class MapView;
class SourceDiagnostics;
class SourceFolder;

/// Sources that were opened or read before.
struct LoadedSources
{
    std::map<std::string, std::unique_ptr<FeatureSource>> features;  ///< Read, by their names in the style.
    std::map<std::string, std::unique_ptr<RasterSource>> images;     ///< Read.
    std::map<std::string, std::unique_ptr<ElevationSource>> heights; ///< Opened.
    std::shared_ptr<const Sprites> sprites;                          ///< Null for those that are still to be read.
};

/// Everything that a picture of a style is made of: what the sources have in the view, and the sprites.
class MapData
{
public:
    /// Reads it. Sources that no layer draws in this view are left alone. @param loaded what need not be read.
    /// @throw Failure with `ExitCode::Data`.
    MapData(const MapStyle& style, const SourceFolder& folder, const MapView& view, SourceDiagnostics& diagnostics,
            LoadedSources loaded = {});

    /// What a layer draws; nothing if its source could not be read.
    const std::vector<PlacedFeatures>& Features(const StyleLayer& layer) const;
    const std::vector<PlacedImage>& Images(const StyleLayer& layer) const;
    const ElevationGrid& Heights(const StyleLayer& layer) const;
    const Sprites& Pictures() const { return *opened.sprites; }
    /// The sources that are drawn, in the order of the style, but for those that could not be read.
    const std::vector<DataPart>& Sources() const { return parts; }
    /// Gives away all that was opened and read; this object has no data left.
    LoadedSources Release() { return std::move(opened); }

private:
    struct Grid
    {
        ElevationGrid heights;
        std::optional<GeoBox> extent;
    };

    DataPart PartOf(const std::string& name, const Projection& projection) const;
    void Read(const StyleSource& source, const MapStyle& style, const SourceFolder& folder, const MapView& view,
              SourceDiagnostics& diagnostics);

    LoadedSources opened;
    std::map<std::string, Grid> grids;
    std::vector<DataPart> parts;
};

} // namespace txmap
