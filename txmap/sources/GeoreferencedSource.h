#pragma once

#include <string>
#include <utility>

#include <txmap/sources/RasterSource.h>

namespace txmap
{

/// The part of the map that a raster is brought into, and its size there.
struct WarpWindow
{
    MercatorBox box; ///< At most one world wide.
    int width = 0;
    int height = 0;
};

/// What is needed of a raster for a view: what is visible, a pixel for each of the picture's, or all of one world.
WarpWindow WindowFor(const MapView& view, double margin = 0.0);

/// A georeferenced file that GDAL reads, in whatever coordinate system.
class GeoreferencedSource final : public RasterSource
{
public:
    explicit GeoreferencedSource(const std::string& file) : GeoreferencedSource(file, file) {}
    /// @param name what the file is called in messages.
    GeoreferencedSource(std::string file, std::string name) : file(std::move(file)), name(std::move(name)) {}

    void Load(const MapView& view, SourceDiagnostics& diagnostics) override;
    std::optional<GeoBox> Extent() const override;

private:
    std::string file;
    std::string name;
};

} // namespace txmap
