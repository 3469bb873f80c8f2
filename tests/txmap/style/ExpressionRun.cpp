#include <tests/txmap/style/ExpressionRun.h>

#include <txmap/style/Filter.h>
#include <txmap/style/operators/GeoJsonGeometry.h>

namespace txmap
{
namespace
{

std::string ErrorLines(const std::vector<ParsingError>& errors)
{
    std::string lines;
    for (const ParsingError& error : errors)
        lines += (lines.empty() ? "" : "\n") + error.key + " " + error.message;
    return lines;
}

std::string ValueOf(const CompiledExpression& compiled, const std::string& feature, double zoom)
{
    if (const auto* errors = std::get_if<std::vector<ParsingError>>(&compiled))
        return ErrorLines(*errors);
    const TestFeature testFeature(feature);
    EvaluationContext context;
    context.zoom = zoom;
    context.feature = &testFeature;
    // What only some properties know.
    context.lineProgress = 0.25;
    context.heatmapDensity = 0.75;
    context.elevation = 321.0;
    context.accumulated = Value("sum");
    try
    {
        const Value value = std::get<Expression>(compiled).Evaluate(context);
        return value.Is(Value::Kind::Color) ? value.ToString() : value.ToJsonText();
    }
    catch (const EvaluationError& error)
    {
        return error.Key() + " " + error.what();
    }
}

} // namespace

TestFeature::TestFeature(const std::string& text)
{
    const Json json = Json::parse(text);
    properties = Value::FromJson(json.value("properties", Json::object()));
    id = Value::FromJson(json.value("id", Json()));
    type = json.value("type", std::string());
    geometry = ReadGeoJsonGeometry(json.value("geometry", Json()));
}

std::string Compiled(const std::string& expression, const PropertySpec& spec)
{
    const CompiledExpression compiled = CompileProperty(Json::parse(expression), spec);
    if (const auto* errors = std::get_if<std::vector<ParsingError>>(&compiled))
        return ErrorLines(*errors);
    return std::get<Expression>(compiled).Type().ToString();
}

std::string Evaluated(const std::string& expression, const std::string& feature, double zoom, const PropertySpec& spec)
{
    return ValueOf(CompileProperty(Json::parse(expression), spec), feature, zoom);
}

std::string Filtered(const std::string& filter, const std::string& feature)
{
    return ValueOf(CompileFilter(Json::parse(filter)), feature, 0.0);
}

PropertySpec Spec(const std::string& json) { return PropertySpec::FromJson(Json::parse(json)); }

} // namespace txmap
