#pragma once

#include <map>
#include <string>

#include <txmap/sources/MapData.h>
#include <txmap/sources/SourcePath.h>

namespace txmap
{

/// The sources of a style for many pictures of one projection: each is opened once, and features that are not in tiles
/// are read once.
class KeptSources
{
public:
    /// @param style must outlive this object.
    KeptSources(const MapStyle& style, const SourceFolder& folder) : style(style), folder(folder) {}

    /// What a view shows. Give it back by `Keep` before the next one.
    /// @param margin so many pixels around the view are read for symbols.
    /// @throw Failure with `ExitCode::Data`.
    MapData Read(const MapView& view, double margin, SourceDiagnostics& diagnostics);
    void Keep(MapData& data) { opened = data.Release(); }

private:
    void ReadFeatures(const StyleSource& source, const MapView& view, double margin, SourceDiagnostics& diagnostics);
    void ReadImages(const StyleSource& source, const MapView& view, SourceDiagnostics& diagnostics);

    const MapStyle& style;
    SourceFolder folder;
    LoadedSources opened;
    std::map<std::string, double> readAt; ///< The zoom at which a source was read that is read once.
};

} // namespace txmap
