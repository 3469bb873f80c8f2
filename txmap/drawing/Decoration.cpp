#include <txmap/drawing/Decoration.h>

#include <algorithm>

#include <txmap/labels/LabelScene.h>
#include <txmap/map/MapView.h>

namespace txmap
{
namespace
{

// As a part of the names' size.
constexpr double kTextSize = 0.85;
// As a part of the map's shorter side.
constexpr double kMargin = 0.015;

} // namespace

LabelLook DecorationLook(const Style& style, const MapView& view)
{
    return {WholePixels(style.labels.size * std::max(1.0, view.Scale()) * kTextSize),
            0.0,
            style.labels.place,
            {0.0, style.labels.place}};
}

double DecorationMargin(const MapView& view) { return kMargin * std::min(view.Frame().Width(), view.Frame().Height()); }

} // namespace txmap
