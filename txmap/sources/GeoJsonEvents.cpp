#include <txmap/sources/GeoJsonEvents.h>

#include <optional>

namespace txmap
{

bool GeoJsonEvents::Key(std::string_view name)
{
    if (CurrentRole() == Role::Attribute)
        attribute.Key(std::string(name));
    else if (CurrentRole() != Role::Skipped)
        member = name;
    return true;
}

GeoJsonEvents::Role GeoJsonEvents::RoleOfNext(bool isObject)
{
    const Role in = CurrentRole();
    if (roles.empty())
        return isObject ? Role::Root : Role::Skipped;
    switch (in)
    {
    case Role::Root:
    case Role::Feature:
    case Role::Geometry:
        if (in != Role::Geometry && member == "properties" && isObject)
            return Role::Properties;
        if (in != Role::Geometry && member == "geometry" && isObject)
            return Role::Geometry;
        if (in == Role::Root && member == "features" && !isObject)
            return Role::Features;
        if (in == Role::Root && member == "crs" && isObject)
            return Role::System;
        if (in != Role::Feature && member == "coordinates" && !isObject)
            return Role::Coordinates;
        if (in != Role::Feature && member == "geometries" && !isObject)
            return Role::Geometries;
        return Role::Skipped;
    case Role::Features:
        return isObject ? Role::Feature : Role::Skipped;
    case Role::Geometries:
        return isObject ? Role::Geometry : Role::Skipped;
    case Role::Coordinates:
        return isObject ? Role::Skipped : Role::Coordinates;
    case Role::Properties:
        return IsWanted() ? Role::Attribute : Role::Skipped;
    case Role::Attribute:
        return Role::Attribute;
    case Role::System:
        return member == "properties" && isObject ? Role::SystemMembers : Role::Skipped;
    default:
        return Role::Skipped;
    }
}

bool GeoJsonEvents::BeginOther(bool isObject)
{
    const Role role = RoleOfNext(isObject);
    if (IsTooDeep())
    {
        result.problem = "is nested too deep";
        return false;
    }
    if (role == Role::Skipped && CurrentRole() == Role::Coordinates)
        Geometry().AddNonsense();
    roles.push_back(role);
    switch (role)
    {
    case Role::Root:
    case Role::Feature:
        BeginFeature();
        break;
    case Role::Geometry:
        BeginGeometry();
        break;
    case Role::Coordinates:
        Geometry().BeginArray();
        break;
    case Role::Attribute:
        if (isObject)
            attribute.BeginObject();
        else
            attribute.BeginArray();
        break;
    default:
        break;
    }
    return true;
}

bool GeoJsonEvents::EndOther()
{
    const Role role = CurrentRole();
    roles.pop_back();
    switch (role)
    {
    case Role::Attribute:
        if (const std::optional<Value> value = attribute.End())
            AddAttribute(*value);
        break;
    case Role::Geometry:
        openGeometries.pop_back();
        break;
    case Role::Feature:
        EndFeature();
        break;
    case Role::Root:
        return EndRoot();
    default:
        break;
    }
    return true;
}

bool GeoJsonEvents::Scalar(Value value)
{
    switch (CurrentRole())
    {
    case Role::Attribute:
        attribute.Add(std::move(value));
        break;
    case Role::Properties:
        if (IsWanted())
            AddAttribute(std::move(value));
        break;
    case Role::Coordinates:
        Geometry().AddNonsense();
        break;
    case Role::SystemMembers:
        return member != "name" || !value.Is(Value::Kind::String) || IsDegrees(value.String());
    case Role::Root:
    case Role::Feature:
        if (member == "id")
            id = value;
        [[fallthrough]];
    case Role::Geometry:
        if (member == "type" && value.Is(Value::Kind::String))
            SetType(value.String());
        break;
    default:
        break;
    }
    return true;
}

bool GeoJsonEvents::IsDegrees(const std::string& system)
{
    if (system.find("CRS84") != std::string::npos || system.find("4326") != std::string::npos)
        return true;
    result.problem = "is in the coordinate system " + system;
    result.isOther = true;
    return false;
}

void GeoJsonEvents::SetType(const std::string& name)
{
    if (CurrentRole() == Role::Root)
        rootType = name;
    else if (CurrentRole() == Role::Geometry)
        Geometry().SetType(name);
}

void GeoJsonEvents::BeginGeometry()
{
    // Geometries are used again and again, with the memory that they have.
    if (geometryCount == geometries.size())
        geometries.emplace_back();
    openGeometries.push_back(geometryCount++);
    Geometry().Clear();
}

void GeoJsonEvents::BeginFeature()
{
    geometryCount = 0;
    attributes.clear();
    id = promoted = Value();
    if (CurrentRole() == Role::Root)
        BeginGeometry();
}

bool GeoJsonEvents::IsWanted() const
{
    const auto has = [&](const WantedProperties& wanted) { return !wanted || wanted->count(member) > 0; };
    return has(options.properties) || (options.filter.accepts && has(options.filter.properties)) ||
           (!options.promotedId.empty() && member == options.promotedId);
}

void GeoJsonEvents::AddAttribute(Value value)
{
    if (member == options.promotedId)
        promoted = value;
    attributes.emplace_back(builder.KeyNumber(member), std::move(value));
}

void GeoJsonEvents::EndFeature()
{
    if (!options.promotedId.empty())
        id = promoted;
    else if (options.generatesIds)
        id = static_cast<double>(number);
    ++number;
    for (std::size_t i = 0; i < geometryCount; ++i)
        AddFeature(geometries[i]);
    geometryCount = 0;
}

void GeoJsonEvents::AddFeature(const GeoJsonGeometry& geometry)
{
    if (geometry.Type().empty() || geometry.Type() == "GeometryCollection")
        return;
    builder.Begin(GeometryType::Point, FeatureId(id));
    if (!geometry.AddTo(builder))
        ++result.brokenFeatures;
    result.hasFarPositions = result.hasFarPositions || geometry.IsFar();
    for (const auto& [key, value] : attributes)
        builder.AddTag(key, value);
    if (!builder.End() || !options.filter.accepts)
        return;
    FeatureAttributes asked(set);
    asked.Select(set.features.back());
    if (!options.filter.accepts(asked))
        builder.DropLast();
}

bool GeoJsonEvents::EndRoot()
{
    const bool isGeometry = rootType == "GeometryCollection" || GeoJsonGeometry::IsType(rootType);
    if (rootType == "FeatureCollection")
        return true;
    if (rootType != "Feature" && !isGeometry)
    {
        result.problem = "is no GeoJSON";
        result.isOther = true;
        return false;
    }
    // The root of a feature is no geometry itself.
    if (isGeometry)
        geometries[0].SetType(rootType);
    else
        geometries[0].Clear();
    EndFeature();
    return true;
}

} // namespace txmap
