#pragma once

#include <optional>
#include <string>

#include <txmap/style/Expression.h>

namespace txmap
{

/// A feature made of JSON: {"properties": {...}, "id": ..., "type": "Point", "geometry": {...}}.
class TestFeature : public ExpressionFeature
{
public:
    explicit TestFeature(const std::string& text);

    const Value* Property(const std::string& name) const override { return properties.Member(name); }
    ValueObject Properties() const override { return properties.Object(); }
    Value Id() const override { return id; }
    std::string_view GeometryType() const override { return type; }
    const LonLatGeometry* Geometry() const override { return geometry ? &*geometry : nullptr; }

private:
    Value properties;
    Value id;
    std::string type;
    std::optional<LonLatGeometry> geometry;
};

/// The type of a compiled expression, or its errors, as "[1] what is wrong", one a line.
std::string Compiled(const std::string& expression, const PropertySpec& spec = {});

/// What an expression gives for a feature and a zoom, as JSON, or "[1] what is wrong".
std::string Evaluated(const std::string& expression, const std::string& feature = "{}", double zoom = 0.0,
                      const PropertySpec& spec = {});

/// The same for a filter.
std::string Filtered(const std::string& filter, const std::string& feature);

/// A property of this type: {"type": "color"} and so on.
PropertySpec Spec(const std::string& json);

} // namespace txmap
