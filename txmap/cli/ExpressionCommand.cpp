#include <txmap/cli/ExpressionCommand.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <sstream>

#include <nlohmann/json.hpp>

#include <txmap/style/Expression.h>
#include <txmap/style/operators/GeoJsonGeometry.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// The property that messages are about: any one will do, and this is the one of the public tests.
constexpr const char* kProperty = "layers[0].paint.some-property";
constexpr const char* kUsage =
    "usage: txmap expression [FILE]\n\n"
    "Reads {\"expression\": ..., \"propertySpec\": {...}, \"globalState\": {...}, \"inputs\":\n"
    "[[{\"zoom\": 5}, {\"properties\": {...}, \"geometry\": {...}, \"id\": ...}], ...]} and prints\n"
    "{\"compiled\": {...}, \"outputs\": [...]}. Without FILE, standard input is read.\n";
constexpr double kPi = 3.14159265358979323846;

std::optional<double> Number(const Json& json, const char* name)
{
    const auto found = json.find(name);
    return found != json.end() && found->is_number() ? std::optional<double>(found->get<double>()) : std::nullopt;
}

const Json& Object(const Json& json, const char* name)
{
    static const Json empty = Json::object();
    const auto found = json.find(name);
    return found != json.end() && found->is_object() ? *found : empty;
}

// Where a place lies after it has been stored in a tile of this zoom, which is 8192 units wide.
LonLat RoundToTile(const LonLat& place, int zoom)
{
    const double world = std::ldexp(8192.0, zoom);
    const double x = std::round((180.0 + place.lon) / 360.0 * world) / world;
    const double mercator = (180.0 - 180.0 / kPi * std::log(std::tan(kPi / 4.0 + place.lat * kPi / 360.0))) / 360.0;
    const double y = std::round(mercator * world) / world;
    return {x * 360.0 - 180.0, 360.0 / kPi * std::atan(std::exp((180.0 - y * 360.0) * kPi / 180.0)) - 90.0};
}

/// A feature as the input describes it.
class JsonFeature : public ExpressionFeature
{
public:
    JsonFeature(const Json& json, std::optional<int> tileZoom)
        : properties(Value::FromJson(Object(json, "properties"))), state(Value::FromJson(Object(json, "featureState")))
    {
        if (const auto found = json.find("id"); found != json.end())
            id = Value::FromJson(*found);
        const Json& geometryJson = Object(json, "geometry");
        if (const auto name = geometryJson.find("type"); name != geometryJson.end() && name->is_string())
            type = name->get<std::string>();
        geometry = ReadGeoJsonGeometry(geometryJson);
        if (tileZoom)
            PutIntoTile(*tileZoom);
    }

    const Value* Property(const std::string& name) const override { return properties.Member(name); }
    ValueObject Properties() const override { return properties.Object(); }
    Value Id() const override { return id; }
    std::string_view GeometryType() const override { return type; }
    const LonLatGeometry* Geometry() const override { return geometry ? &*geometry : nullptr; }
    const Value* State(const std::string& name) const override { return state.Member(name); }

private:
    // Tiles do not tell one point, line or polygon from many.
    void PutIntoTile(int zoom)
    {
        if (type.compare(0, 5, "Multi") == 0)
            type.erase(0, 5);
        if (!geometry)
            return;
        const auto round = [&](LonLatGeometry::Part& part)
        {
            for (LonLat& place : part)
                place = RoundToTile(place, zoom);
        };
        for (LonLatGeometry::Part& part : geometry->parts)
            round(part);
        for (auto& polygon : geometry->polygons)
            for (LonLatGeometry::Part& ring : polygon)
                round(ring);
    }

    Value properties;
    Value state;
    Value id;
    std::string type;
    std::optional<LonLatGeometry> geometry;
};

std::string CompilationText(const CompiledExpression& compiled)
{
    if (const auto* expression = std::get_if<Expression>(&compiled))
        return std::string("{\"result\":\"success\",\"isFeatureConstant\":") +
               (expression->IsFeatureConstant() ? "true" : "false") +
               ",\"isZoomConstant\":" + (expression->IsZoomConstant() ? "true" : "false") +
               ",\"type\":" + Value(expression->Type().ToString()).ToJsonText() + "}";
    std::string errors;
    for (const ParsingError& error : std::get<std::vector<ParsingError>>(compiled))
        errors += (errors.empty() ? "{\"key\":" : ",{\"key\":") + Value(error.key).ToJsonText() +
                  ",\"error\":" + Value(error.message).ToJsonText() + "}";
    return "{\"result\":\"error\",\"errors\":[" + errors + "]}";
}

std::string OutputText(const Value& value)
{
    if (!value.Is(Value::Kind::Color))
        return value.ToJsonText();
    const auto [red, green, blue, alpha] = value.GetColor().Premultiplied();
    return Value(ValueArray{red, green, blue, alpha}).ToJsonText();
}

std::string Evaluate(const Expression& expression, const Json& input, const Value& globalState)
{
    const bool good = input.is_array() && input.size() == 2 && input[0].is_object() && input[1].is_object();
    if (!good)
        throw Failure(ExitCode::Data, "an input must be an array of two objects: globals and feature");
    const Json& globals = input[0];
    EvaluationContext context;
    context.zoom = Number(globals, "zoom");
    context.heatmapDensity = Number(globals, "heatmapDensity");
    context.lineProgress = Number(globals, "lineProgress");
    context.elevation = Number(globals, "elevation");
    if (const auto accumulated = globals.find("accumulated"); accumulated != globals.end())
        context.accumulated = Value::FromJson(*accumulated);
    context.globalState = &globalState;

    std::unordered_set<std::string> images;
    if (const auto names = globals.find("availableImages"); names != globals.end() && names->is_array())
        for (const Json& name : *names)
            images.insert(Value::FromJson(name).ToString());
    context.availableImages = &images;
    if (const auto zoom = Number(Object(globals, "canonicalID"), "z"))
        context.tileZoom = static_cast<int>(std::max(0.0, std::min(*zoom, 30.0)));

    const JsonFeature feature(input[1], context.tileZoom);
    context.feature = &feature;
    try
    {
        return OutputText(expression.Evaluate(context));
    }
    catch (const EvaluationError& error)
    {
        return "{\"error\":" + Value(kProperty + error.Key() + ": " + error.what()).ToJsonText() + "}";
    }
}

std::string ReadAll(std::istream& input, const std::string& name)
{
    std::ostringstream text;
    text << input.rdbuf();
    if (input.bad())
        throw Failure(ExitCode::Data, name + " cannot be read");
    return text.str();
}

} // namespace

std::string EvaluateExpressionText(const std::string& text)
{
    const Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded())
        throw Failure(ExitCode::Data, "the expression is no JSON");
    if (!json.is_object() || !json.contains("expression"))
        throw Failure(ExitCode::Data, "there is no member \"expression\"");
    const CompiledExpression compiled =
        CompileProperty(json["expression"], PropertySpec::FromJson(Object(json, "propertySpec")));
    std::string result = "{\"compiled\":" + CompilationText(compiled);
    if (const auto* expression = std::get_if<Expression>(&compiled))
    {
        const Value globalState = Value::FromJson(Object(json, "globalState"));
        std::string outputs;
        const auto inputs = json.find("inputs");
        if (inputs != json.end() && inputs->is_array())
            for (const Json& input : *inputs)
                outputs += (outputs.empty() ? "" : ",") + Evaluate(*expression, input, globalState);
        result += ",\"outputs\":[" + outputs + "]";
    }
    return result + "}\n";
}

void RunExpressionCommand(int argc, const char* const* argv, std::istream& input, std::ostream& output)
{
    if (argc > 2)
        throw Failure(ExitCode::Usage, "expression takes one file");
    const std::string name = argc == 2 ? argv[1] : "";
    if (name == "-h" || name == "--help")
    {
        output << kUsage;
        return;
    }
    if (name.size() > 1 && name[0] == '-')
        throw Failure(ExitCode::Usage, "expression has no option " + name);
    if (name.empty() || name == "-")
    {
        output << EvaluateExpressionText(ReadAll(input, "standard input"));
        return;
    }
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw Failure(ExitCode::Data, name + " cannot be opened");
    output << EvaluateExpressionText(ReadAll(file, name));
}

} // namespace txmap
