#pragma once

#include <array>
#include <string>

#include <txbase/TXPoint.h>

namespace txmap
{

/// How much of a box lies to the left of its anchor and above it, from 0 to 1.
struct AnchorAlignment
{
    double left = 0.5;
    double above = 0.5;
};

/// The alignment that a value of "text-anchor" or "icon-anchor" means: "top-left" puts the top left corner of the box
/// at the anchor.
AnchorAlignment AlignmentOf(const std::string& anchor);

/// The offset that "text-radial-offset" means for an anchor, in ems: away from the point on the side where the box is.
TZObjects::TXPoint RadialOffset(const std::string& anchor, double radius);

/// The offset that "text-offset" means for an anchor of several, in ems: its amounts, away from the point.
TZObjects::TXPoint OutwardOffset(const std::string& anchor, const std::array<double, 2>& offset);

} // namespace txmap
