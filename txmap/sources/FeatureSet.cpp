#include <txmap/sources/FeatureSet.h>

#include <algorithm>

namespace txmap
{

using TZObjects::TXPoint;

const Value* FeatureSet::Property(const SetFeature& feature, const std::string& name) const
{
    const auto found = keyNumbers.find(name);
    if (found == keyNumbers.end())
        return nullptr;
    for (std::size_t i = feature.firstTag; i < feature.firstTag + feature.tags; ++i)
        if (tags[i].key == found->second)
            return &values[tags[i].value];
    return nullptr;
}

MercatorBox FeatureSet::BoundsOf(const SetFeature& feature) const
{
    MercatorBox box{1e300, 1e300, -1e300, -1e300};
    ForEachPart(feature,
                [&](const TXPoint* part, std::size_t count)
                {
                    for (const TXPoint* point = part; point != part + count; ++point)
                        box = {std::min(box.left, point->x), std::min(box.top, point->y), std::max(box.right, point->x),
                               std::max(box.bottom, point->y)};
                });
    return box;
}

std::size_t FeatureSet::Bytes() const
{
    // What names and texts take on the heap.
    constexpr std::size_t kKey = 128, kText = 64;
    std::size_t bytes = sizeof *this + keys.size() * kKey + features.capacity() * sizeof(SetFeature) +
                        points.capacity() * sizeof(TXPoint) + counts.capacity() * sizeof(int) +
                        tags.capacity() * sizeof(Tag) + values.capacity() * sizeof(Value);
    for (const Value& value : values)
        if (value.Is(Value::Kind::String))
            bytes += kText + value.String().size();
    return bytes;
}

LonLatGeometry FeatureSet::ToDegrees(const SetFeature& feature) const
{
    LonLatGeometry geometry;
    geometry.type = feature.type;
    if (feature.type == GeometryType::Point)
        geometry.parts.emplace_back();
    double outerSense = 0.0;
    ForEachPart(feature,
                [&](const TXPoint* part, std::size_t count)
                {
                    LonLatGeometry::Part degrees;
                    for (std::size_t i = 0; i < count; ++i)
                    {
                        const TXPoint place = projection.ToDegrees(part[i]);
                        degrees.push_back({place.x, place.y});
                    }
                    if (feature.type == GeometryType::Point)
                    {
                        geometry.parts[0].insert(geometry.parts[0].end(), degrees.begin(), degrees.end());
                        return;
                    }
                    if (feature.type == GeometryType::LineString)
                    {
                        geometry.parts.push_back(std::move(degrees));
                        return;
                    }
                    const double area = TwiceSignedArea(part, count);
                    if (outerSense == 0.0)
                        outerSense = area;
                    if (geometry.polygons.empty() || area * outerSense > 0.0)
                        geometry.polygons.emplace_back();
                    geometry.polygons.back().push_back(std::move(degrees));
                });
    return geometry;
}

double TwiceSignedArea(const TXPoint* ring, std::size_t count)
{
    double sum = 0.0;
    for (std::size_t i = 1; i < count; ++i)
        // From the first point, so that small rings far from the origin keep their digits.
        sum += (ring[i - 1].x - ring[0].x) * (ring[i].y - ring[0].y) -
               (ring[i].x - ring[0].x) * (ring[i - 1].y - ring[0].y);
    return sum;
}

ValueObject FeatureAttributes::Properties() const
{
    ValueObject all;
    for (std::size_t i = feature->firstTag; i < feature->firstTag + feature->tags; ++i)
        all.emplace_back(set.keys[set.tags[i].key], set.values[set.tags[i].value]);
    return all;
}

std::string_view FeatureAttributes::GeometryType() const
{
    switch (feature->type)
    {
    case LonLatGeometry::Type::Point:
        return "Point";
    case LonLatGeometry::Type::LineString:
        return "LineString";
    default:
        return "Polygon";
    }
}

const LonLatGeometry* FeatureAttributes::Geometry() const
{
    if (!hasGeometry)
        geometry = set.ToDegrees(*feature);
    hasGeometry = true;
    return &geometry;
}

} // namespace txmap
