#include <txmap/labels/LabelLayout.h>

#include <set>

#include <txmap/labels/CountryLabels.h>
#include <txmap/labels/LabelSpace.h>

namespace txmap
{

using TZObjects::TXRect;
using TZObjects::TXString;

namespace
{

bool WritePlace(Place& place, const LabelLook& look, const LabelExtent& extent, LabelSpace& space)
{
    if (!(extent.width > 0.0 && extent.height > 0.0))
        return false;
    const std::vector<TXRect> boxes = BoxesBeside(place.marker, extent, space.Distance());
    for (const Markers markers : {Markers::Avoid, Markers::Cover})
        for (const TXRect& box : boxes)
            if (space.Write(place, look, box, markers))
                return true;
    return false;
}

/// @return the names that were written.
std::set<TXString> WritePlaces(LabelSpace& space, const LabelScene& scene, const LabelMeasure& measure)
{
    const LabelStyle& style = scene.style;
    const LabelLook look{WholePixels(style.size * style.placeSize), 0.0, style.place, style.placeHalo};
    std::set<TXString> written;
    for (Place& place : space.Places())
    {
        if (!place.waiting)
            continue;
        if (!space.GoesWithoutSaying(place) && WritePlace(place, look, measure(place.text, look), space))
            written.insert(place.text.text);
        else
            space.LeaveOut(place);
    }
    return written;
}

} // namespace

LabelLayout LayOutLabels(const std::vector<MapLayer>& layers, const LabelScene& scene, const LabelMeasure& measure)
{
    LabelSpace space(layers, scene);
    std::vector<CountryLabels> countries;
    countries.reserve(layers.size());
    for (const MapLayer& layer : layers)
        countries.emplace_back(layer, scene, measure).Write(space);
    // Where a place has an island's name, as on many a small one, it speaks for both.
    const std::set<TXString> places = WritePlaces(space, scene, measure);
    for (const CountryLabels& layer : countries)
        layer.WriteTiny(space, places);
    return {space.TakeLabels(), space.TakeLeftOut()};
}

} // namespace txmap
