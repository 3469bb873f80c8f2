#include <txmap/labels/LabelLayout.h>

#include <set>

#include <txmap/labels/CountryLabels.h>
#include <txmap/labels/LabelSpace.h>

namespace TZObjects
{
namespace
{

bool WriteTown(Town& town, const LabelLook& look, const LabelExtent& extent, LabelSpace& space)
{
    if (!(extent.width > 0.0 && extent.height > 0.0))
        return false;
    const std::vector<TXRect> boxes = BoxesBeside(town.marker, extent, space.Distance());
    for (const Markers markers : {Markers::Avoid, Markers::Cover})
        for (const TXRect& box : boxes)
            if (space.Write(town, look, box, markers))
                return true;
    return false;
}

/// @return the names that were written.
std::set<TXString> WriteTowns(LabelSpace& space, const LabelScene& scene, const LabelMeasure& measure)
{
    const LabelStyle& style = scene.style;
    const LabelLook look{WholePixels(style.size * style.placeSize), 0.0, style.place, style.placeHalo};
    std::set<TXString> written;
    for (Town& town : space.Towns())
    {
        if (!town.waiting)
            continue;
        if (WriteTown(town, look, measure(town.text, look), space))
            written.insert(town.text.text);
        else
            space.LeaveOut(town);
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
    // Where a town has an island's name, as on many a small one, it speaks for both.
    const std::set<TXString> towns = WriteTowns(space, scene, measure);
    for (const CountryLabels& layer : countries)
        layer.WriteTiny(space, towns);
    return {space.TakeLabels(), space.TakeLeftOut()};
}

} // namespace TZObjects
