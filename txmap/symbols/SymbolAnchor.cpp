#include <txmap/symbols/SymbolAnchor.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// Letters seem to begin at their baseline, so that boxes above and below a point move closer by this, in ems.
constexpr double kBelowBaseline = 7.0 / 24.0;

bool Has(const std::string& anchor, const char* side) { return anchor.find(side) != std::string::npos; }

/// The signs of an offset away from the anchor, and the correction for the baseline.
TXPoint Outward(const std::string& anchor, double x, double y)
{
    const AnchorAlignment alignment = AlignmentOf(anchor);
    const double across = 1.0 - 2.0 * alignment.left;
    const double down = 1.0 - 2.0 * alignment.above;
    return {across * x, down * (y - kBelowBaseline)};
}

} // namespace

AnchorAlignment AlignmentOf(const std::string& anchor)
{
    AnchorAlignment alignment;
    if (Has(anchor, "left"))
        alignment.left = 0.0;
    else if (Has(anchor, "right"))
        alignment.left = 1.0;
    if (Has(anchor, "top"))
        alignment.above = 0.0;
    else if (Has(anchor, "bottom"))
        alignment.above = 1.0;
    return alignment;
}

TXPoint RadialOffset(const std::string& anchor, double radius)
{
    const double length = std::max(0.0, radius);
    const double part = Has(anchor, "-") ? length / std::sqrt(2.0) : length;
    return Outward(anchor, part, part);
}

TXPoint OutwardOffset(const std::string& anchor, const std::array<double, 2>& offset)
{
    return Outward(anchor, std::abs(offset[0]), std::abs(offset[1]));
}

} // namespace txmap
