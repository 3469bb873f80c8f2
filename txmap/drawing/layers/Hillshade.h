#pragma once

#include <string>
#include <vector>

#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/style/Color.h>

namespace txmap
{

/// A light of a shaded relief.
struct HillshadeLight
{
    double azimuth = 0.0;  ///< Where it comes from, in radians clockwise from the top of the picture's north.
    double altitude = 0.0; ///< Above the horizon, in radians.
    Color shadow;
    Color highlight;
};

/// How a relief is shaded.
struct HillshadeLook
{
    std::string method; ///< "standard", "basic", "combined", "igor" or "multidirectional".
    double exaggeration = 0.5;
    Color accent;
    std::vector<HillshadeLight> lights; ///< One or more; all but one method use the first.
};

/// The colour of a place whose height grows by so much for each unit eastward and southward.
SampledColor HillshadeColor(const HillshadeLook& look, double eastward, double southward);

} // namespace txmap
