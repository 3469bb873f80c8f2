#pragma once

#include <vector>

#include <txbase/TXRect.h>
#include <txmap/labels/LabelOptions.h>
#include <txmap/labels/TextPath.h>
#include <txmap/style/Style.h>

namespace txmap
{

class FrameShape;

/// What a layout depends on besides the features themselves.
struct LabelScene
{
    TZObjects::TXRect frame; ///< What is visible; no label reaches beyond it.
    LabelStyle style;        ///< In pixels of this picture.
    double markerRadius = 0; ///< Of the places' markers, outlines included.
    TextPath path = TextPath::Qt;
    const FrameShape* outline = nullptr;  ///< What lies in the frame and is visible; null for all of it.
    std::vector<TZObjects::TXRect> taken; ///< Where neither a label nor a named place may lie.
};

/// A size of text as fonts take it.
int WholePixels(double size);

/// The style in pixels of a picture, with what the command line asks for.
LabelStyle ScaledLabelStyle(const LabelStyle& style, const LabelOptions& options, double unit);

} // namespace txmap
