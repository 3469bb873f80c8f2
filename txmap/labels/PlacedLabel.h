#pragma once

#include <functional>

#include <txbase/TXColor.h>
#include <txbase/TXRect.h>
#include <txmap/labels/LabelText.h>
#include <txmap/style/Style.h>

namespace txmap
{

/// How a label is written.
struct LabelLook
{
    int size = 0;         ///< The height of the text in pixels.
    double spacing = 0.0; ///< Between letters, in pixels.
    TZObjects::TXColor color;
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
    TZObjects::TXRect box;
};

/// Measures a label as it will be drawn.
using LabelMeasure = std::function<LabelExtent(const LabelText&, const LabelLook&)>;

} // namespace txmap
