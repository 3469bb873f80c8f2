#include <txmap/style/PropertySpec.h>

#include <algorithm>
#include <unordered_map>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

std::optional<ExpressionType> SimpleType(const std::string& name)
{
    static const std::unordered_map<std::string, Kind> kinds = {
        {"color", Kind::Color},           {"string", Kind::String},
        {"number", Kind::Number},         {"enum", Kind::String},
        {"boolean", Kind::Boolean},       {"formatted", Kind::Formatted},
        {"padding", Kind::Padding},       {"numberArray", Kind::NumberArray},
        {"colorArray", Kind::ColorArray}, {"projectionDefinition", Kind::Projection},
        {"resolvedImage", Kind::Image},   {"variableAnchorOffsetCollection", Kind::VariableAnchorOffsets},
    };
    const auto found = kinds.find(name);
    return found == kinds.end() ? std::nullopt : std::optional<ExpressionType>(found->second);
}

std::string Text(const Json& json, const char* name)
{
    const auto found = json.find(name);
    return found != json.end() && found->is_string() ? found->get<std::string>() : std::string();
}

bool Flag(const Json& json, const char* name)
{
    const auto found = json.find(name);
    return found != json.end() && found->is_boolean() && found->get<bool>();
}

void ReadEnumValues(const Json& values, std::vector<std::string>& names)
{
    if (values.is_object())
        for (const auto& value : values.items())
            names.push_back(value.key());
    else if (values.is_array())
        for (const Json& value : values)
            if (value.is_string())
                names.push_back(value.get<std::string>());
}

} // namespace

std::optional<ExpressionType> PropertySpec::ExpectedType() const
{
    if (type == "array")
        return ExpressionType::ArrayOf(SimpleType(item).value_or(Kind::Value), length);
    return SimpleType(type);
}

PropertySpec PropertySpec::FromJson(const Json& json)
{
    PropertySpec spec;
    if (!json.is_object())
        return spec;
    spec.type = Text(json, "type");
    spec.item = Text(json, "value");
    if (const auto length = json.find("length"); length != json.end() && length->is_number_unsigned())
        spec.length = length->get<std::size_t>();
    if (const auto values = json.find("values"); values != json.end())
        ReadEnumValues(*values, spec.enumValues);
    if (const auto value = json.find("default"); value != json.end())
        spec.defaultValue = *value;
    spec.tokens = Flag(json, "tokens");
    spec.propertyType = Text(json, "property-type");
    if (spec.propertyType.empty())
        spec.propertyType = "data-driven";
    spec.dataDriven = spec.propertyType == "data-driven" || spec.propertyType == "cross-faded-data-driven";
    if (const auto expression = json.find("expression"); expression != json.end() && expression->is_object())
    {
        spec.interpolated = Flag(*expression, "interpolated");
        const Json parameters = expression->value("parameters", Json::array());
        spec.zoomAllowed = std::find(parameters.begin(), parameters.end(), "zoom") != parameters.end();
    }
    return spec;
}

PropertySpec PropertySpec::Filter()
{
    PropertySpec spec;
    spec.type = "boolean";
    spec.defaultValue = Json(false);
    spec.interpolated = false;
    spec.propertyType = "data-driven";
    return spec;
}

} // namespace txmap
