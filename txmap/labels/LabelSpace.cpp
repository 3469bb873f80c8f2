#include <txmap/labels/LabelSpace.h>

#include <algorithm>
#include <tuple>

#include <txmap/map/FrameShape.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// What stays free between a halo and the next label, marker or edge, in pixels.
constexpr double kGap = 1.0;
// Boxes that touch count as overlapping.
constexpr double kTouching = 0.01;

TXRect Grown(const TXRect& box, double by) { return {box.left - by, box.right + by, box.top - by, box.bottom + by}; }

bool Holds(const TXRect& box, const TXPoint& point)
{
    return point.x >= box.left && point.x <= box.right && point.y >= box.top && point.y <= box.bottom;
}

auto Grade(const FeatureName& name) { return std::make_tuple(!name.capital, name.rank); }
auto Importance(const FeatureName& name) { return std::make_tuple(Grade(name), -name.population); }

} // namespace

TXRect CentredBox(const TXPoint& centre, const LabelExtent& extent)
{
    return {centre.x - extent.width / 2.0, centre.x + extent.width / 2.0, centre.y - extent.height / 2.0,
            centre.y + extent.height / 2.0};
}

std::vector<TXRect> BoxesBeside(const TXRect& inner, const LabelExtent& extent, double distance)
{
    const TXPoint centre{(inner.left + inner.right) / 2.0, (inner.top + inner.bottom) / 2.0};
    const double right = inner.right + distance + extent.width / 2.0;
    const double left = inner.left - distance - extent.width / 2.0;
    const double above = inner.top - distance - extent.height / 2.0;
    const double below = inner.bottom + distance + extent.height / 2.0;
    const double higher = centre.y - extent.height / 2.0;
    const double lower = centre.y + extent.height / 2.0;
    std::vector<TXRect> boxes;
    for (const TXPoint& at : {TXPoint{right, centre.y},
                              {left, centre.y},
                              {centre.x, above},
                              {centre.x, below},
                              {right, higher},
                              {right, lower},
                              {left, higher},
                              {left, lower},
                              {right, above},
                              {right, below},
                              {left, above},
                              {left, below}})
        boxes.push_back(CentredBox(at, extent));
    return boxes;
}

LabelSpace::LabelSpace(const std::vector<MapLayer>& layers, const LabelScene& scene)
    : scene(scene), padding((std::max(scene.style.countryHalo.width, scene.style.placeHalo.width) + kGap) / 2.0),
      all(Grown(scene.frame, -padding)), lasting(Grown(scene.frame, -padding))
{
    for (const TXRect& box : scene.taken)
    {
        all.Block(box);
        lasting.Block(box);
    }
    for (std::size_t i = 0; i < layers.size(); ++i)
        AddPlaces(layers[i], i);
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& a, const Place& b) { return Importance(*a.name) < Importance(*b.name); });
}

void LabelSpace::AddPlaces(const MapLayer& layer, std::size_t number)
{
    std::vector<const FeatureName*> names(layer.places.size());
    for (const NamedFeature& feature : layer.placeNames)
        names[feature.index] = &feature.name;
    for (std::size_t i = 0; i < layer.places.size(); ++i)
    {
        const double size = 2.0 * scene.markerRadius;
        const TXRect marker = CentredBox(layer.places[i], {size, size});
        LabelText text = names[i] ? MakeLabelText(names[i]->text, scene.path) : LabelText();
        const bool isNamed = !text.text.isEmpty();
        if (isNamed && !IsVisible(marker))
        {
            leftOut.push_back({number, i});
            continue;
        }
        all.Block(Grown(marker, padding));
        if (!isNamed)
            lasting.Block(Grown(marker, padding));
        else if (Holds(scene.frame, layer.places[i]))
            places.push_back({{number, i}, names[i], std::move(text), marker});
    }
}

bool LabelSpace::IsVisible(const TXRect& marker) const
{
    const bool isTaken =
        std::any_of(scene.taken.begin(), scene.taken.end(), [&](const TXRect& box) { return !box.Disjoint(marker); });
    return !isTaken && (!scene.outline || scene.outline->Contains(marker));
}

double LabelSpace::Distance() const { return 2.0 * padding + kTouching; }

bool LabelSpace::IsFree(const TXRect& box, Markers markers) const
{
    const TXRect room = Grown(box, padding);
    return (markers == Markers::Avoid ? all : lasting).IsFree(room) &&
           (!scene.outline || scene.outline->Contains(room));
}

bool LabelSpace::IsCovered(const Place& place, const TXRect& box) const
{
    return place.waiting && !Grown(place.marker, 2.0 * padding).Disjoint(box);
}

bool LabelSpace::Write(const LabelText& text, const LabelLook& look, const TXRect& box, Markers markers)
{
    if (!IsFree(box, markers))
        return false;
    if (markers == Markers::Cover)
        for (Place& place : places)
            if (IsCovered(place, box))
                LeaveOut(place);
    all.Block(Grown(box, padding));
    lasting.Block(Grown(box, padding));
    labels.push_back({text, look, box});
    return true;
}

bool LabelSpace::Write(Place& place, const LabelLook& look, const TXRect& box, Markers markers)
{
    // Equals do not drive each other off.
    const auto mayBeCovered = [&](const Place& other) { return Grade(*place.name) < Grade(*other.name); };
    if (markers == Markers::Cover &&
        !std::all_of(places.begin(), places.end(),
                     [&](const Place& other) { return !IsCovered(other, box) || mayBeCovered(other); }))
        return false;
    if (!Write(place.text, look, box, markers))
        return false;
    place.waiting = false;
    lasting.Block(Grown(place.marker, padding));
    return true;
}

double LabelSpace::LossAt(const TXRect& box) const
{
    double loss = 0.0;
    for (const Place& place : places)
        if (IsCovered(place, box))
            loss += (place.name->capital ? 1.0 : 0.5) + 1.0 / (1.0 + std::max(0.0, place.name->rank));
    return loss;
}

void LabelSpace::LeaveOut(Place& place)
{
    place.waiting = false;
    all.Release(Grown(place.marker, padding));
    leftOut.push_back(place.index);
}

} // namespace txmap
