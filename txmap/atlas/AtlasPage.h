#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/LabelPainter.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/labels/MapLabels.h>
#include <txmap/map/FrameShape.h>

namespace txmap
{

class View;
struct AtlasOptions;
struct MapLayer;
struct Raster;
struct Style;

/// A map as it is drawn: what lies over what.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the surface refuses.
class AtlasPage
{
public:
    /// All must outlive the page. @throw Failure also when the frame that is asked for cannot be made.
    AtlasPage(TZObjects::TXGraphicsEngine& engine, const AtlasOptions& options, const View& view, const Style& style);

    /// Finds room for the names that are asked for, and takes those places out of the layers that have no room for
    /// theirs.
    void LayOutLabels(std::vector<MapLayer>& layers);
    /// Draws everything. @param raster what lies over the areas and under the lines; null for nothing.
    void Draw(const std::vector<MapLayer>& layers, Raster* raster);
    /// Writes the picture to a file; the suffix names the format. @return false when it cannot be written.
    bool Save(const std::string& path) { return canvas.Save(path); }
    /// Says what is wrong with the picture although it is there. @throw Failure with `ExitCode::Usage` for what was
    /// asked for in vain.
    void ReportProblems(const std::function<void(const std::string&)>& warn) const;

private:
    const FrameShape* Outline() const { return frame ? &*frame : nullptr; }
    void DrawMap(const std::vector<MapLayer>& layers, Raster* raster);

    const AtlasOptions& options;
    const View& view;
    const Style& style;
    Canvas canvas;
    PlacePainter places;
    std::optional<FrameShape> frame;
    std::optional<NorthArrow> arrow;
    std::optional<MapLabels> labels;
    std::optional<LabelPainter> labelPainter;
};

} // namespace txmap
