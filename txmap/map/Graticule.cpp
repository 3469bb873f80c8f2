#include <txmap/map/Graticule.h>

#include <algorithm>
#include <cmath>

namespace txmap
{
namespace
{

constexpr double kFewest = 7.0;
constexpr double kClosest = 4.0;
// Divisors of the full circle first, then decimal fractions of a degree.
constexpr double kSteps[] = {30.0, 15.0, 10.0, 5.0, 2.0, 1.0, 0.5, 0.2, 0.1, 0.05, 0.02, 0.01};

} // namespace

double SuitableStep(const MapView& view)
{
    const GeoBox box = view.VisibleDegrees();
    const double longer = std::max(box.east - box.west, box.north - box.south);
    const auto fits = [&](double step) { return longer / step >= kFewest; };
    const auto* const step = std::find_if(std::begin(kSteps), std::end(kSteps), fits);
    return step == std::end(kSteps) ? 0.0 : *step;
}

std::vector<GraticuleLine> MakeGraticule(const MapView& view, double step)
{
    std::vector<GraticuleLine> lines;
    if (!(step > 0.0))
        return lines;
    const GeoBox box = view.VisibleDegrees();
    const double columns = (box.east - box.west) / step;
    const double rows = (box.north - box.south) / step;
    if (columns * kClosest > view.Frame().Width() || rows * kClosest > view.Frame().Height())
        return lines;
    // Lines on the edge of the picture are left out; they would be half as wide as the others.
    const double tolerance = step * 1e-6;
    for (double i = std::ceil((box.west + tolerance) / step); i * step < box.east - tolerance; ++i)
        lines.push_back({view.ToPixel(i * step, box.north), view.ToPixel(i * step, box.south)});
    for (double i = std::ceil((box.south + tolerance) / step); i * step < box.north - tolerance; ++i)
        lines.push_back({view.ToPixel(box.west, i * step), view.ToPixel(box.east, i * step)});
    return lines;
}

} // namespace txmap
