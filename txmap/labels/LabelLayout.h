#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include <txbase/TXColor.h>
#include <txbase/TXRect.h>
#include <txmap/labels/LabelOptions.h>
#include <txmap/labels/LabelText.h>
#include <txmap/labels/TextPath.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/View.h>
#include <txmap/style/Style.h>

namespace TZObjects
{

class FrameShape;

/// How a label is written.
struct LabelLook
{
    int size = 0;         ///< The height of the text in pixels.
    double spacing = 0.0; ///< Between letters, in pixels.
    TXColor color;
    LabelHalo halo;
};

/// The room that a label takes, in pixels.
struct LabelExtent
{
    double width = 0.0;
    double height = 0.0;
};

/// A label and the box in which it is written, without its halo.
struct PlacedLabel
{
    LabelText text;
    LabelLook look;
    TXRect box;
};

/// Measures a label as it will be drawn.
using LabelMeasure = std::function<LabelExtent(const LabelText&, const LabelLook&)>;

/// What a layout depends on besides the features themselves.
struct LabelScene
{
    TXRect frame;            ///< What is visible; no label reaches beyond it.
    LabelStyle style;        ///< In pixels of this picture.
    double markerRadius = 0; ///< Of the places' markers, outlines included.
    TextPath path = TextPath::Qt;
    const FrameShape* outline = nullptr; ///< What lies in the frame and is visible; null for all of it.
    std::vector<TXRect> taken;           ///< Where neither a label nor a named place may lie.
};

/// A place in the array of its layer.
struct LayerPlace
{
    std::size_t layer = 0;
    std::size_t place = 0;
};

/// What is written on a map, and what must not be drawn for it.
struct LabelLayout
{
    std::vector<PlacedLabel> labels;
    std::vector<LayerPlace> leftOut; ///< Places that have a name but no room for it.
};

/// Decides which names are written, and where: first those of countries, by rank and by what is visible of them, each
/// in the largest part of its country; then those of places, capitals first, each beside its marker. No label touches
/// another, the marker of a place that is drawn, or the edge of the frame; what finds no room is left out. A name that
/// several areas of a layer share appears once.
LabelLayout LayOutLabels(const std::vector<MapLayer>& layers, const LabelScene& scene, const LabelMeasure& measure);

/// A size of text as fonts take it.
int WholePixels(double size);

/// The style in pixels of a picture, with what the command line asks for.
LabelStyle ScaledLabelStyle(const LabelStyle& style, const LabelOptions& options, double unit);

} // namespace TZObjects
