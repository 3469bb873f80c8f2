#pragma once

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <txmap/style/ExpressionType.h>

namespace txmap
{

/// What the style format says about a property: the type of its value, and what an expression for it may use.
struct PropertySpec
{
    std::string type;                  ///< "number", "color", "enum", "array" and so on; empty if anything is allowed.
    std::string item;                  ///< Of arrays: the type of the items, or empty.
    std::optional<std::size_t> length; ///< Of arrays.
    std::vector<std::string> enumValues;
    std::optional<Json> defaultValue;
    bool dataDriven = true;   ///< Whether an expression may use the feature.
    bool zoomAllowed = true;  ///< Whether an expression may use the zoom.
    bool interpolated = true; ///< Whether values are mixed between stops.
    bool tokens = false;      ///< Whether "{name}" in a text stands for an attribute.
    std::string propertyType; ///< How styles call it: "data-driven", "color-ramp", "cross-faded".

    /// The type that an expression must have, or nothing if any will do.
    std::optional<ExpressionType> ExpectedType() const;

    /// Reads the description of a property from its JSON form.
    static PropertySpec FromJson(const Json& json);
    /// Of the filter of a layer.
    static PropertySpec Filter();
};

} // namespace txmap
