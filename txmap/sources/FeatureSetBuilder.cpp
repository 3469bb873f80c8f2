#include <txmap/sources/FeatureSetBuilder.h>

#include <algorithm>
#include <utility>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr MercatorBox kNothing{1e300, 1e300, -1e300, -1e300};

void Include(MercatorBox& all, const MercatorBox& box)
{
    all = {std::min(all.left, box.left), std::min(all.top, box.top), std::max(all.right, box.right),
           std::max(all.bottom, box.bottom)};
}

} // namespace

void FeatureSetBuilder::Begin(GeometryType type, Value id)
{
    feature = {std::move(id), type, set.counts.size(), set.points.size(), 0, set.tags.size(), 0};
    partStart = set.points.size();
    featureBox = kNothing;
}

std::uint32_t FeatureSetBuilder::KeyNumber(const std::string& name)
{
    const auto [entry, isNew] = set.keyNumbers.emplace(name, static_cast<std::uint32_t>(set.keys.size()));
    if (isNew)
        set.keys.push_back(name);
    return entry->second;
}

std::uint32_t FeatureSetBuilder::ValueNumber(Value value)
{
    set.values.push_back(std::move(value));
    return static_cast<std::uint32_t>(set.values.size() - 1);
}

void FeatureSetBuilder::AddPosition(const TXPoint& degrees)
{
    const double longitude = std::clamp(degrees.x, -kFarthestLongitude, kFarthestLongitude);
    AddPoint(set.projection.ToWorld(longitude, degrees.y));
}

void FeatureSetBuilder::CloseRing()
{
    if (PartSize() == 0)
        return;
    const TXPoint first = set.points[partStart];
    if (PartSize() == 1 || set.points.back().x != first.x || set.points.back().y != first.y)
        set.points.push_back(first);
}

void FeatureSetBuilder::EndPart()
{
    if (feature.type == GeometryType::Polygon)
        CloseRing();
    else if (joins && feature.type == GeometryType::LineString)
        UnwrapLine(set.points, partStart);
    KeepPart();
}

void FeatureSetBuilder::EndRing(bool outer)
{
    CloseRing();
    if (joins && PartSize() > 2)
    {
        UnwrapRing(set.points, partStart, set.projection.World());
        if (outer)
            outerSpan = SpanOf(set.points, partStart);
        else
            MoveInto(outerSpan, set.points, partStart);
    }
    const auto begin = set.points.begin() + static_cast<std::ptrdiff_t>(partStart);
    if (PartSize() > 2 && (TwiceSignedArea(&*begin, PartSize()) > 0.0) != outer)
        std::reverse(begin, set.points.end());
    KeepPart();
}

void FeatureSetBuilder::KeepPart()
{
    const std::size_t least = feature.type == GeometryType::Point        ? 1
                              : feature.type == GeometryType::LineString ? 2
                                                                         : 3;
    MercatorBox box = kNothing;
    for (std::size_t i = partStart; i < set.points.size(); ++i)
        Include(box, {set.points[i].x, set.points[i].y, set.points[i].x, set.points[i].y});
    Include(extent, box);
    if (PartSize() < least || (visible && !keepsWhole && !visible->Shows(box)))
    {
        set.points.resize(partStart);
        return;
    }
    set.counts.push_back(static_cast<int>(PartSize()));
    ++feature.parts;
    partStart = set.points.size();
    Include(featureBox, box);
}

void FeatureSetBuilder::DropFrom(const SetFeature& dropped)
{
    set.points.resize(dropped.firstPoint);
    set.counts.resize(dropped.firstPart);
    set.tags.resize(dropped.firstTag);
    partStart = set.points.size();
}

bool FeatureSetBuilder::End()
{
    set.points.resize(partStart);
    if (feature.parts == 0 || (visible && keepsWhole && !visible->Shows(featureBox)))
    {
        DropFrom(feature);
        return false;
    }
    Include(set.bounds, featureBox);
    feature.tags = set.tags.size() - feature.firstTag;
    set.features.push_back(std::move(feature));
    return true;
}

void FeatureSetBuilder::DropLast()
{
    // The bounds stay as large as they were: they promise to hold everything, not to be the smallest.
    DropFrom(set.features.back());
    set.features.pop_back();
}

} // namespace txmap
