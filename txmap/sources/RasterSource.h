#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/GeoBox.h>
#include <txmap/map/Mercator.h>
#include <txmap/sources/Raster.h>
#include <txmap/style/Value.h>

namespace txmap
{

class MapView;
class SourceDiagnostics;
class SourceFolder;

/// A picture, and where it is drawn.
struct PlacedImage
{
    std::shared_ptr<const Raster> image;
    /// Where the corners of the picture lie: top left, top right, bottom right and bottom left, in Mercator
    /// coordinates.
    std::array<TZObjects::TXPoint, 4> corners;
    /// How many worlds to the east it is drawn, once for each.
    std::vector<int> worlds;
    /// The tile that it is. Neighbouring tiles meet where `MapView::AlignedToPixels` says.
    std::optional<MercatorBox> tile;
};

/// A source of pictures: tiles of them, a georeferenced file, or a picture with four corners.
class RasterSource
{
public:
    virtual ~RasterSource() = default;

    /// Reads what a view shows. @throw Failure with `ExitCode::Data`.
    virtual void Load(const MapView& view, SourceDiagnostics& diagnostics) = 0;
    const std::vector<PlacedImage>& Images() const { return images; }
    /// Whether nothing is seen of what was read.
    bool IsBlank() const;
    /// Where the pictures lie, as far as that is known.
    virtual std::optional<GeoBox> Extent() const = 0;

protected:
    std::vector<PlacedImage> images;
};

/// Makes the source of pictures that a source of type `raster` or `image` of a style describes. The `url` of a `raster`
/// may be a georeferenced file. @param name what the source is called, for messages. @param ratio real pixels for each
/// logical one. @throw Failure with `ExitCode::Data`.
std::unique_ptr<RasterSource> MakeRasterSource(const std::string& name, const Json& source, const SourceFolder& folder,
                                               double ratio);

/// The corners of a box, in the order of `PlacedImage`.
std::array<TZObjects::TXPoint, 4> CornersOf(const MercatorBox& box);

/// True for a source whose `url` is a file that GDAL reads, not a description of tiles.
bool NamesGeoreferencedFile(const Json& source, const SourceFolder& folder);

} // namespace txmap
