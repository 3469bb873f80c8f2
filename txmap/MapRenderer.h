#pragma once

#include <string>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXPen.h>
#include <txmap/Graticule.h>
#include <txmap/MapLayer.h>
#include <txmap/Style.h>
#include <txmap/View.h>

namespace TZObjects
{

class TXGraphicsEngine;

/// Draws a map on a surface of its own, through the drawing interfaces alone.
///
/// Every drawing operation throws a `Failure` with `ExitCode::Drawing` when the surface refuses to draw.
class MapRenderer
{
public:
    /// Makes a surface of the view's size. All three must outlive the renderer.
    MapRenderer(TXGraphicsEngine& engine, const View& view, const Style& style);

    /// Draws the sea, then the areas, lines and places of all layers in their order, the graticule above the areas, and
    /// last the margins, over whatever reached beyond the world.
    void Draw(const std::vector<MapLayer>& layers, const std::vector<GraticuleLine>& graticule);
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
    void DrawPlaces(const MapLayer& layer);
    void DrawGraticule(const std::vector<GraticuleLine>& graticule);
    void DrawMargins();

    TXRefPtr<TXPen> MakePen(const Stroke& stroke) const;
    TXRefPtr<TXBrush> MakeBrush(const TXColor& color) const;
    void Use(const Stroke& stroke);
    void Use(const TXColor& fill);
    static void Require(bool drawn);

    TXGraphicsEngine& engine;
    const View& view;
    const Style& style;
    double unit;
    TXRefPtr<TXGraphics> surface;
    std::vector<TXPoint> piece; ///< Scratch space, kept so that it need not be allocated again.
};

} // namespace TZObjects
