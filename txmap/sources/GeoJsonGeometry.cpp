#include <txmap/sources/GeoJsonGeometry.h>

#include <algorithm>
#include <cmath>

#include <txmap/sources/FeatureSetBuilder.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

struct TypeOfGeometry
{
    const char* name;
    GeometryType type;
    int pointDepth; ///< In how many arrays a position's numbers stand.
    bool partForEachPoint;
};

constexpr TypeOfGeometry kTypes[] = {
    {"Point", GeometryType::Point, 1, true},
    {"MultiPoint", GeometryType::Point, 2, true},
    {"LineString", GeometryType::LineString, 2, false},
    {"MultiLineString", GeometryType::LineString, 3, false},
    {"Polygon", GeometryType::Polygon, 3, false},
    {"MultiPolygon", GeometryType::Polygon, 4, false},
};

const TypeOfGeometry* FindType(const std::string& name)
{
    const auto* const found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                           [&](const TypeOfGeometry& type) { return name == type.name; });
    return found == std::end(kTypes) ? nullptr : found;
}

} // namespace

bool IsFarFromDegrees(const TXPoint& position)
{
    return std::abs(position.x) > kFarthestLongitude + 1.0 || std::abs(position.y) > 91.0;
}

void GeoJsonGeometry::Clear()
{
    type.clear();
    points.clear();
    endings.clear();
    depth = pointDepth = numbers = 0;
    broken = far = false;
}

bool GeoJsonGeometry::IsType(const std::string& name) { return FindType(name) != nullptr; }

void GeoJsonGeometry::EndArray()
{
    if (numbers > 0)
    {
        broken = broken || numbers < 2 || (pointDepth != 0 && pointDepth != depth);
        pointDepth = depth;
        numbers = 0;
        far = far || IsFarFromDegrees(position);
        points.push_back(position);
    }
    else
        endings.push_back({depth, points.size()});
    --depth;
}

bool GeoJsonGeometry::AddTo(FeatureSetBuilder& builder) const
{
    const TypeOfGeometry* const known = FindType(type);
    if (!known || broken || (pointDepth != 0 && pointDepth != known->pointDepth))
        return false;
    builder.SetType(known->type);
    if (known->partForEachPoint)
    {
        for (const TXPoint& point : points)
        {
            builder.AddPosition(point);
            builder.EndPart();
        }
        return true;
    }
    const int partDepth = known->pointDepth - 1;
    bool outer = true;
    std::size_t next = 0;
    for (const Ending& ending : endings)
    {
        if (ending.depth < partDepth)
        {
            outer = true;
            continue;
        }
        // An array without positions is empty, however deep it is.
        if (ending.depth != partDepth)
            continue;
        for (; next < ending.points; ++next)
            builder.AddPosition(points[next]);
        if (known->type == GeometryType::Polygon)
            builder.EndRing(outer);
        else
            builder.EndPart();
        outer = false;
    }
    return true;
}

} // namespace txmap
