#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/LabelPainter.h>
#include <txmap/drawing/Legend.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/drawing/ScaleBar.h>
#include <txmap/labels/MapLabels.h>
#include <txmap/map/FrameShape.h>

namespace txmap
{

class MapData;
class MapView;
struct AtlasOptions;
struct MapLayer;
struct MapStyle;
struct Style;

/// A map as it is drawn: what lies over what.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the surface refuses.
class AtlasPage
{
public:
    /// All must outlive the page. @throw Failure also when the frame that is asked for cannot be made.
    AtlasPage(TZObjects::TXGraphicsEngine& engine, const AtlasOptions& options, const MapView& view,
              const Style& style);

    /// Finds room for the names that are asked for, and takes those places out of the layers that have no room for
    /// theirs.
    void LayOutLabels(std::vector<MapLayer>& layers);
    /// Adds a legend and a scale bar, as asked for. To be called before `LayOutLabels`, which keeps clear of them.
    void LayOutDecorations(const std::vector<LegendEntry>& entries);
    /// Draws everything: the layers of the style, and over them graticule, places, names and decorations.
    void Draw(const MapStyle& map, const MapData& data, const std::vector<MapLayer>& layers);
    /// The picture.
    TZObjects::TXGraphics& Surface() const { return canvas.Surface(); }
    /// Says what is wrong with the picture although it is there. @throw Failure with `ExitCode::Usage` for what was
    /// asked for in vain.
    void ReportProblems(const std::function<void(const std::string&)>& warn) const;

private:
    const FrameShape* Outline() const { return frame ? &*frame : nullptr; }

    const AtlasOptions& options;
    const MapView& view;
    const Style& style;
    MapCanvas mapCanvas;
    Canvas canvas;
    PlacePainter places;
    std::optional<FrameShape> frame;
    std::optional<NorthArrow> arrow;
    std::optional<MapLabels> labels;
    std::optional<LabelPainter> labelPainter;
    std::optional<LabelFonts> decorationFonts;
    std::optional<Legend> legend;
    std::optional<ScaleBar> scaleBar;
};

} // namespace txmap
