#pragma once

#include <cstdint>

#include <txbase/TXPoint.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PixelWindow.h>

namespace txmap
{

/// Draws a grid of heights pixel by pixel, in each world where the view shows it.
/// @param color is called with the place of a pixel and its column and row on the grid, which are numbers with
/// fractions. It answers 0xAARRGGBB, premultiplied.
template <class ColorOf>
void DrawHeightPixels(const LayerScene& scene, const ElevationGrid& grid, double opacity, ColorOf color)
{
    const MercatorBox& box = grid.box;
    for (const int world : grid.worlds)
    {
        const AffineMatrix matrix = scene.canvas.View().ToPixels(world);
        PixelWindow window(scene.canvas, matrix.MapBox({box.left, box.right, box.top, box.bottom}));
        const AffineMatrix toPlace = matrix.Inverted();
        window.Fill(
            [&](double x, double y) -> std::uint32_t
            {
                const TZObjects::TXPoint place = toPlace.Map({x, y});
                if (!box.Contains(place))
                    return 0;
                return color(place, (place.x - box.left) / (box.right - box.left) * grid.width,
                             (place.y - box.top) / (box.bottom - box.top) * grid.height);
            });
        window.Draw(scene.canvas, opacity);
    }
}

} // namespace txmap
