#include <txmap/style/operators/GeoJsonGeometry.h>

namespace txmap
{
namespace
{

using Part = LonLatGeometry::Part;

bool ReadPlace(const Json& json, LonLat& place)
{
    if (!json.is_array() || json.size() < 2 || !json[0].is_number() || !json[1].is_number())
        return false;
    place = {json[0].get<double>(), json[1].get<double>()};
    return true;
}

// Items of the kind that `read` reads, one after the other.
template <class T, class Read>
bool ReadAll(const Json& json, std::vector<T>& items, Read read)
{
    if (!json.is_array())
        return false;
    for (const Json& item : json)
    {
        items.emplace_back();
        if (!read(item, items.back()))
            return false;
    }
    return true;
}

bool ReadPart(const Json& json, Part& part) { return ReadAll(json, part, ReadPlace); }
bool ReadParts(const Json& json, std::vector<Part>& parts) { return ReadAll(json, parts, ReadPart); }

bool ReadPoint(const Json& json, LonLatGeometry& geometry)
{
    geometry.parts.assign(1, Part(1));
    return ReadPlace(json, geometry.parts[0][0]);
}

bool ReadCoordinates(const std::string& type, const Json& json, LonLatGeometry& geometry)
{
    if (type == "Point" || type == "MultiPoint")
    {
        geometry.type = LonLatGeometry::Type::Point;
        geometry.parts.resize(1);
        return type == "Point" ? ReadPoint(json, geometry) : ReadPart(json, geometry.parts[0]);
    }
    if (type == "LineString" || type == "MultiLineString")
    {
        geometry.type = LonLatGeometry::Type::LineString;
        geometry.parts.resize(type == "LineString" ? 1 : 0);
        return type == "LineString" ? ReadPart(json, geometry.parts[0]) : ReadParts(json, geometry.parts);
    }
    geometry.type = LonLatGeometry::Type::Polygon;
    geometry.polygons.resize(type == "Polygon" ? 1 : 0);
    if (type == "Polygon")
        return ReadParts(json, geometry.polygons[0]);
    return type == "MultiPolygon" && ReadAll(json, geometry.polygons, ReadParts);
}

void Collect(const Json& json, std::vector<LonLatGeometry>& geometries, int depth)
{
    if (!json.is_object() || depth > 2)
        return;
    const Json type = json.value("type", Json());
    if (type == "FeatureCollection" && json.contains("features") && json["features"].is_array())
    {
        for (const Json& feature : json["features"])
            Collect(feature, geometries, depth + 1);
        return;
    }
    if (type == "Feature" && json.contains("geometry"))
        return Collect(json["geometry"], geometries, depth + 1);
    if (auto geometry = ReadGeoJsonGeometry(json))
        geometries.push_back(*std::move(geometry));
}

} // namespace

std::optional<LonLatGeometry> ReadGeoJsonGeometry(const Json& json)
{
    if (!json.is_object() || !json.contains("type") || !json["type"].is_string() || !json.contains("coordinates"))
        return std::nullopt;
    LonLatGeometry geometry;
    const bool good = ReadCoordinates(json["type"].get<std::string>(), json["coordinates"], geometry);
    return good ? std::optional<LonLatGeometry>(std::move(geometry)) : std::nullopt;
}

std::vector<LonLatGeometry> ReadGeoJson(const Json& json)
{
    std::vector<LonLatGeometry> geometries;
    Collect(json, geometries, 0);
    return geometries;
}

} // namespace txmap
