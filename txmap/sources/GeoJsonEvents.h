#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/sources/GeoJsonGeometry.h>
#include <txmap/sources/GeoJsonReader.h>
#include <txmap/sources/ValueBuilder.h>

namespace txmap
{

/// Makes features of what a reader of JSON comes across. Each event returns false to say that reading is to end.
class GeoJsonEvents
{
public:
    GeoJsonEvents(const GeoJsonOptions& options, FeatureSetBuilder& builder, FeatureSet& set)
        : options(options), builder(builder), set(set)
    {
    }

    bool Null() { return Scalar(Value()); }
    bool Boolean(bool value) { return Scalar(value); }
    bool Number(double value)
    {
        if (CurrentRole() != Role::Coordinates)
            return Scalar(value);
        Geometry().AddNumber(value);
        return true;
    }
    bool Text(std::string value) { return Scalar(std::move(value)); }
    bool Key(std::string_view name);
    bool Begin(bool isObject)
    {
        if (isObject || CurrentRole() != Role::Coordinates || IsTooDeep())
            return BeginOther(isObject);
        roles.push_back(Role::Coordinates);
        Geometry().BeginArray();
        return true;
    }
    bool End()
    {
        if (CurrentRole() != Role::Coordinates)
            return EndOther();
        roles.pop_back();
        Geometry().EndArray();
        return true;
    }

    /// True before anything has begun, and when all has ended.
    bool IsOutside() const { return roles.empty(); }
    GeoJsonResult result;

private:
    // Real data nests a few levels deep. Readers, and copies of values, need the stack.
    static constexpr std::size_t kDeepest = 200;

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

    Role CurrentRole() const { return roles.empty() ? Role::Skipped : roles.back(); }

    bool IsTooDeep() const { return roles.size() >= kDeepest; }
    Role RoleOfNext(bool isObject);
    bool BeginOther(bool isObject);
    bool EndOther();
    bool Scalar(Value value);
    /// Stops at a coordinate system other than the usual one.
    bool IsDegrees(const std::string& system);
    void SetType(const std::string& name);
    GeoJsonGeometry& Geometry() { return geometries[openGeometries.back()]; }

    void BeginGeometry();
    void BeginFeature();
    bool IsWanted() const;
    void AddAttribute(Value value);
    void EndFeature();
    void AddFeature(const GeoJsonGeometry& geometry);
    bool EndRoot();

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

} // namespace txmap
