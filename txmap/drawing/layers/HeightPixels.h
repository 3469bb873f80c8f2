#pragma once

#include <algorithm>
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
        TZObjects::TXRect around(1e300, -1e300, 1e300, -1e300);
        for (const double x : {box.left, box.right})
            for (const double y : {box.top, box.bottom})
            {
                const TZObjects::TXPoint corner = matrix.Map({x, y});
                around = {std::min(around.left, corner.x), std::max(around.right, corner.x),
                          std::min(around.top, corner.y), std::max(around.bottom, corner.y)};
            }
        PixelWindow window(scene.canvas, around);
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
