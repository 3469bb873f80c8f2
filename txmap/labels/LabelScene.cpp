#include <txmap/labels/LabelScene.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

int WholePixels(double size) { return std::max(1, static_cast<int>(std::lround(size))); }

LabelStyle ScaledLabelStyle(const LabelStyle& style, const LabelOptions& options, double unit)
{
    LabelStyle scaled = style;
    const double factor = options.size ? *options.size / style.size : unit;
    scaled.size = style.size * factor;
    for (LabelHalo* const halo : {&scaled.countryHalo, &scaled.placeHalo})
    {
        halo->width *= factor;
        if (options.halo)
            *halo = *options.halo;
    }
    return scaled;
}

} // namespace txmap
