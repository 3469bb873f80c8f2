#pragma once

#include <functional>
#include <vector>

#include <txgraphics/txgraphics.h>

namespace gallery
{

using namespace TZObjects;

/// One operation: what stands above its picture, and how the picture is drawn. Every picture has a surface of its own,
/// `kWidth` by `kHeight` pixels, so that none of them inherits the state that another one leaves behind.
struct Cell
{
    const char* caption;
    std::function<void(TXGraphics&)> draw;
};

using Cells = std::vector<Cell>;

/// Lines and polygons.
Cells PolygonCells();
/// Rectangles, ellipses, arcs, fills and the path.
Cells FigureCells();
/// Pens, brushes, and what else changes how shapes are drawn.
Cells StyleCells();
Cells MarkerCells();
Cells ImageCells();
Cells ClippingCells();

} // namespace gallery
