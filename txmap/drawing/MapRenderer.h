#pragma once

#include <string>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXPen.h>
#include <txmap/map/Graticule.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/View.h>
#include <txmap/style/Style.h>

namespace TZObjects
{

class FrameShape;
class PlacePainter;
class TXGraphicsEngine;
struct Raster;

/// What there is to draw on a map.
struct MapContent
{
    const std::vector<MapLayer>& layers;
    const std::vector<GraticuleLine>& graticule;
    const PlacePainter& places;
    const FrameShape* frame = nullptr; ///< What the map is cut to; null for nothing.
    Raster* raster = nullptr;          ///< What lies over the areas and under the lines; null for nothing.
    double rasterOpacity = 1.0;
};

/// Draws a map on a surface of its own, through the drawing interfaces alone.
///
/// Every drawing operation throws a `Failure` with `ExitCode::Drawing` when the surface refuses to draw.
class MapRenderer
{
public:
    /// Makes a surface of the view's size. All three must outlive the renderer.
    MapRenderer(TXGraphicsEngine& engine, const View& view, const Style& style);

    /// Draws the sea, then the areas, lines and places of all layers in their order, the graticule above the areas, and
    /// last the margins, over whatever reached beyond the world. A raster lies above sea and areas, and these have
    /// their outlines above it once more. With a frame the surface stays clipped to it, until `DrawFrame`.
    void Draw(const MapContent& content);
    /// Lifts the clip, and draws the outline of the frame over the edge of the map.
    void DrawFrame(const FrameShape& frame);
    /// How wide that outline is, in pixels.
    double FrameWidth() const;
    /// Writes the picture to a file; the suffix names the format. @return false when it cannot be written.
    bool Save(const std::string& path);
    /// What the map is drawn on.
    TXGraphics& Surface() const { return *surface; }
    const View& MapView() const { return view; }
    const Style& MapStyle() const { return style; }
    /// What the style calls a pixel, in pixels of this picture.
    double Unit() const { return unit; }

private:
    void DrawSea();
    void DrawShores(const std::vector<MapLayer>& layers);
    void DrawBand(const MapLayer& layer, double width);
    void DrawAreas(const MapLayer& layer);
    void DrawLines(const MapLayer& layer);
    void ClipTo(const FrameShape& frame);
    void DrawRaster(Raster& raster, double opacity);
    void DrawOutlines(const MapLayer& layer);
    void DrawGraticule(const std::vector<GraticuleLine>& graticule);
    void DrawMargins();

    TXRefPtr<TXPen> MakePen(const Stroke& stroke) const;
    void Use(const Stroke& stroke);

    TXGraphicsEngine& engine;
    const View& view;
    const Style& style;
    double unit;
    TXRefPtr<TXGraphics> surface;
    std::vector<TXPoint> piece; ///< Scratch space, kept so that it need not be allocated again.
};

} // namespace TZObjects
