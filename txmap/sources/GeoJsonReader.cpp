#include <txmap/sources/GeoJsonReader.h>

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdlib>
#include <vector>

#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/sources/GeoJsonGeometry.h>
#include <txmap/sources/JsonWalk.h>
#include <txmap/sources/ValueBuilder.h>

namespace txmap
{
namespace
{

// Attributes of features nest a few levels deep. Copies of values need the stack.
constexpr std::size_t kDeepest = 200;

/// What the object or array is that is being read.
enum class Role
{
    Root,          ///< A collection, a feature or a geometry; which, its members show.
    Features,      ///< The array of features.
    Feature,       ///< One of them.
    Geometry,      ///< Its geometry, or one of a collection of geometries.
    Geometries,    ///< The array of geometries of a collection.
    Coordinates,   ///< An array of coordinates, at any depth.
    Properties,    ///< The attributes of a feature.
    Attribute,     ///< An array or object that an attribute has for a value.
    System,        ///< The coordinate system of former versions of the format.
    SystemMembers, ///< What that consists of.
    Skipped        ///< Anything else, and what is in it.
};

/// Takes the events of a JSON reader.
class GeoJsonEvents final : public nlohmann::json_sax<Json>
{
public:
    GeoJsonEvents(const GeoJsonOptions& options, FeatureSetBuilder& builder, FeatureSet& set)
        : options(options), builder(builder), set(set)
    {
    }

    GeoJsonResult result;

    bool null() override { return Scalar(Value()); }
    bool boolean(bool value) override { return Scalar(value); }
    bool number_integer(number_integer_t value) override { return Number(static_cast<double>(value)); }
    bool number_unsigned(number_unsigned_t value) override { return Number(static_cast<double>(value)); }
    bool number_float(number_float_t value, const string_t&) override { return Number(value); }
    bool string(string_t& value) override { return Scalar(std::move(value)); }
    bool binary(binary_t&) override { return true; }

    bool key(string_t& name) override
    {
        if (CurrentRole() == Role::Attribute)
            attribute.Key(name);
        else if (CurrentRole() != Role::Skipped)
            member.swap(name);
        return true;
    }

    bool start_object(std::size_t) override { return Begin(true); }
    bool start_array(std::size_t) override { return Begin(false); }
    bool end_object() override { return End(); }
    bool end_array() override { return End(); }

    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& problem) override
    {
        constexpr int kNumberTooLarge = 406;
        result.problem =
            (problem.id == kNumberTooLarge ? "has a number out of range at byte " : "is no valid JSON at byte ") +
            std::to_string(position);
        // A sequence of features fails behind the first, or before it. Others are more lenient with what stands in
        // texts.
        result.isOther = roles.empty() || problem.id != kNumberTooLarge;
        return false;
    }

private:
    Role CurrentRole() const { return roles.empty() ? Role::Skipped : roles.back(); }

    Role RoleOfNext(bool isObject)
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

    bool Begin(bool isObject)
    {
        const Role role = RoleOfNext(isObject);
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
            if (roles.size() > kDeepest)
            {
                result.problem = "has attributes that are nested too deep";
                return false;
            }
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

    bool End()
    {
        const Role role = CurrentRole();
        roles.pop_back();
        switch (role)
        {
        case Role::Coordinates:
            Geometry().EndArray();
            break;
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

    bool Number(double value)
    {
        if (CurrentRole() != Role::Coordinates)
            return Scalar(value);
        Geometry().AddNumber(value);
        return true;
    }

    bool Scalar(Value value)
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

    /// Stops at a coordinate system other than the usual one.
    bool IsDegrees(const std::string& system)
    {
        if (system.find("CRS84") != std::string::npos || system.find("4326") != std::string::npos)
            return true;
        result.problem = "is in the coordinate system " + system;
        result.isOther = true;
        return false;
    }

    void SetType(const std::string& name)
    {
        if (CurrentRole() == Role::Root)
            rootType = name;
        else if (CurrentRole() == Role::Geometry)
            Geometry().SetType(name);
    }

    GeoJsonGeometry& Geometry() { return geometries[openGeometries.back()]; }

    void BeginGeometry()
    {
        // Geometries are used again and again, with the memory that they have.
        if (geometryCount == geometries.size())
            geometries.emplace_back();
        openGeometries.push_back(geometryCount++);
        Geometry().Clear();
    }

    void BeginFeature()
    {
        geometryCount = 0;
        attributes.clear();
        id = promoted = Value();
        if (CurrentRole() == Role::Root)
            BeginGeometry();
    }

    bool IsWanted() const
    {
        const auto has = [&](const WantedProperties& wanted) { return !wanted || wanted->count(member) > 0; };
        return has(options.properties) || (options.filter.accepts && has(options.filter.properties)) ||
               (!options.promotedId.empty() && member == options.promotedId);
    }

    void AddAttribute(Value value)
    {
        if (member == options.promotedId)
            promoted = value;
        attributes.emplace_back(builder.KeyNumber(member), std::move(value));
    }

    void EndFeature()
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

    void AddFeature(const GeoJsonGeometry& geometry)
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

    bool EndRoot()
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

    const GeoJsonOptions& options;
    FeatureSetBuilder& builder;
    FeatureSet& set;
    std::vector<Role> roles;
    std::string member; ///< The name of the member that is being read, of the innermost object that matters.
    std::string rootType;
    std::vector<GeoJsonGeometry> geometries; ///< Those of the feature, and some to be used again.
    std::size_t geometryCount = 0;
    std::vector<std::size_t> openGeometries;                 ///< Those that are being read, one in the other.
    std::vector<std::pair<std::uint32_t, Value>> attributes; ///< Those of the feature.
    ValueBuilder attribute;                                  ///< The one that is being read.
    Value id;
    Value promoted;
    std::size_t number = 0; ///< Of the feature that is being read.
};

} // namespace

GeoJsonResult ReadGeoJsonText(std::string_view text, const GeoJsonOptions& options, FeatureSetBuilder& builder,
                              FeatureSet& set)
{
    GeoJsonEvents events(options, builder, set);
    Json::sax_parse(text.begin(), text.end(), &events);
    return events.result;
}

GeoJsonResult ReadGeoJson(const Json& json, const GeoJsonOptions& options, FeatureSetBuilder& builder, FeatureSet& set)
{
    GeoJsonEvents events(options, builder, set);
    if (json.is_object())
        WalkJson(json, events);
    else
        events.result.problem = "is no GeoJSON";
    return events.result;
}

Value FeatureId(const Value& given)
{
    double number = std::nan("");
    if (given.Is(Value::Kind::Number))
        number = given.Number();
    else if (given.Is(Value::Kind::String) && !given.String().empty())
    {
        char* end = nullptr;
        number = std::strtod(given.String().c_str(), &end);
        if (*end != '\0')
            return {};
    }
    return std::isfinite(number) ? Value(std::trunc(number)) : Value();
}

} // namespace txmap
