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
// How far around a town its suburbs lie, in heights of its name, and by how many times fewer people live in these.
constexpr double kSuburbReach = 2.5;
constexpr double kSuburbPeople = 4.0;
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
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        const TXRect box = Grown(places[i].marker, 2.0 * padding);
        entries.emplace_back(Box({box.left, box.top}, {box.right, box.bottom}), i);
    }
    waiting = Index(entries);
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

std::vector<std::size_t> LabelSpace::CoveredBy(const TXRect& box) const
{
    std::vector<std::size_t> covered;
    for (auto found =
             waiting.qbegin(boost::geometry::index::intersects(Box({box.left, box.top}, {box.right, box.bottom})));
         found != waiting.qend(); ++found)
    {
        const Place& place = places[found->second];
        if (place.waiting && !Grown(place.marker, 2.0 * padding).Disjoint(box))
            covered.push_back(found->second);
    }
    std::sort(covered.begin(), covered.end());
    return covered;
}

bool LabelSpace::GoesWithoutSaying(const Place& place) const
{
    const double reach = kSuburbReach * scene.style.size * scene.style.placeSize;
    const TXRect near = Grown(place.marker, reach);
    const auto says = [&](const Entry& entry)
    {
        const Place& other = places[entry.second];
        if (other.text.text == place.text.text)
            return true;
        const bool hasPeople = place.name->population > 0.0;
        return hasPeople && !place.name->capital && other.name->population > kSuburbPeople * place.name->population;
    };
    for (auto found =
             named.qbegin(boost::geometry::index::intersects(Box({near.left, near.top}, {near.right, near.bottom})));
         found != named.qend(); ++found)
        if (says(*found))
            return true;
    return false;
}

bool LabelSpace::Write(const LabelText& text, const LabelLook& look, const TXRect& box, Markers markers)
{
    if (!IsFree(box, markers))
        return false;
    Put(text, look, box, markers == Markers::Cover ? CoveredBy(box) : std::vector<std::size_t>());
    return true;
}

bool LabelSpace::Write(Place& place, const LabelLook& look, const TXRect& box, Markers markers)
{
    // Equals do not drive each other off.
    const auto mayBeCovered = [&](const Place& other) { return Grade(*place.name) < Grade(*other.name); };
    if (!IsFree(box, markers))
        return false;
    const std::vector<std::size_t> covered = markers == Markers::Cover ? CoveredBy(box) : std::vector<std::size_t>();
    if (!std::all_of(covered.begin(), covered.end(), [&](std::size_t other) { return mayBeCovered(places[other]); }))
        return false;
    Put(place.text, look, box, covered);
    place.waiting = false;
    named.insert({Box({place.marker.left, place.marker.top}, {place.marker.right, place.marker.bottom}),
                  static_cast<std::size_t>(&place - places.data())});
    lasting.Block(Grown(place.marker, padding));
    return true;
}

void LabelSpace::Put(const LabelText& text, const LabelLook& look, const TXRect& box,
                     const std::vector<std::size_t>& covered)
{
    for (const std::size_t place : covered)
        LeaveOut(places[place]);
    all.Block(Grown(box, padding));
    lasting.Block(Grown(box, padding));
    labels.push_back({text, look, box});
}

double LabelSpace::LossAt(const TXRect& box) const
{
    double loss = 0.0;
    for (const std::size_t covered : CoveredBy(box))
    {
        const FeatureName& name = *places[covered].name;
        loss += (name.capital ? 1.0 : 0.5) + 1.0 / (1.0 + std::max(0.0, name.rank));
    }
    return loss;
}

void LabelSpace::LeaveOut(Place& place)
{
    place.waiting = false;
    all.Release(Grown(place.marker, padding));
    leftOut.push_back(place.index);
}

} // namespace txmap
