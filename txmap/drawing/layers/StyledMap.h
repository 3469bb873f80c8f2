#pragma once

#include <string>
#include <vector>

#include <txmap/drawing/layers/LayerScene.h>

namespace txmap
{

class KeptLines;

/// What there is to say about a map that was drawn.
struct DrawingReport
{
    Stopwatch evaluating; ///< What painters ask expressions.
    Stopwatch placing;    ///< Laying out texts and icons, and making room for them.
    std::vector<std::string> warnings;
};

/// Draws the layers of a style, one over the other.
/// @param keptLines where lines with names are kept for other views of the same data; null for a single picture.
void DrawLayers(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report,
                KeptLines* keptLines = nullptr);

} // namespace txmap
