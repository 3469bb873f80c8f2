#pragma once

#include <optional>

#include <txmap/map/GeoBox.h>
#include <txmap/sources/MapData.h>

namespace txmap
{

/// The features of a style, read before it is known what is shown, as that depends on where they lie.
class FittedData
{
public:
    /// Reads them. Of tiles, groups of points and pictures only the extent is asked; these are read once the view is
    /// known. @throw Failure with `ExitCode::Data`.
    FittedData(const MapStyle& style, const SourceFolder& folder, SourceDiagnostics& diagnostics);

    /// The box around the data of all layers that are drawn at some zoom; nothing if no source says where its data
    /// lies.
    const std::optional<GeoBox>& Box() const { return box; }
    /// Hands over what was read, as a view shows it.
    LoadedSources Take(const MapStyle& style, const MapView& view);

private:
    std::optional<GeoBox> ExtentOf(const StyleSource& source, const MapStyle& style, const SourceFolder& folder,
                                   SourceDiagnostics& diagnostics);

    LoadedSources loaded;
    std::optional<GeoBox> box;
};

} // namespace txmap
