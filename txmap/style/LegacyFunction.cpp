#include <txmap/style/LegacyFunction.h>

namespace txmap
{
namespace
{

Json Undefined() { return Json(Json::value_t::discarded); }

// A member, or what stands for none.
Json Member(const Json& object, const char* name)
{
    if (!object.is_object())
        return Undefined();
    const auto found = object.find(name);
    return found == object.end() ? Undefined() : *found;
}

Json Literal(const Json& value)
{
    return value.is_array() || value.is_object() ? Json::array({"literal", value}) : value;
}

Json Get(const Json& function) { return Json::array({"get", Member(function, "property")}); }

std::string TypeOf(const Json& function, const PropertySpec& spec)
{
    const Json type = Member(function, "type");
    if (type.is_string())
        return type.get<std::string>();
    return spec.interpolated ? "exponential" : "interval";
}

Json Fallback(const Json& function, const PropertySpec& spec)
{
    const Json own = Member(function, "default");
    if (!own.is_discarded())
        return Literal(own);
    if (spec.defaultValue)
        return Literal(*spec.defaultValue);
    return spec.type == "resolvedImage" ? Json("") : Undefined();
}

// Functions may have an input twice, of which the first counts. The first output of steps has no input.
void AppendStop(Json& curve, const Json& input, const Json& output, bool isStep)
{
    if (curve.size() > 3 && input == curve[curve.size() - 2])
        return;
    if (!isStep || curve.size() != 2)
        curve.push_back(input);
    curve.push_back(output);
}

Json StartCurve(const std::string& type, const Json& function, const Json& input)
{
    if (type == "interval")
        return Json::array({"step", input});
    const Json base = Member(function, "base");
    const Json space = Member(function, "colorSpace");
    const char* const name = space == "hcl" ? "interpolate-hcl" : space == "lab" ? "interpolate-lab" : "interpolate";
    const bool linear = base.is_discarded() || base == 1;
    return Json::array({name, linear ? Json::array({"linear"}) : Json::array({"exponential", base}), input});
}

// One step alone is the same everywhere; a second one makes it an expression.
void CompleteSteps(Json& curve)
{
    if (curve[0] == "step" && curve.size() == 3)
    {
        curve.push_back(0);
        const Json output = curve[2];
        curve.push_back(output);
    }
}

Json Curve(const std::string& type, const Json& function, const Json& input, const std::vector<Json>& stops)
{
    Json curve = StartCurve(type, function, input);
    for (const Json& stop : stops)
        AppendStop(curve, stop[0], stop[1], type == "interval");
    CompleteSteps(curve);
    return curve;
}

Json CategoricalFunction(const Json& function, const PropertySpec& spec, const std::vector<Json>& stops)
{
    const bool booleans = stops.front()[0].is_boolean();
    Json result = booleans ? Json::array({"case"}) : Json::array({"match", Get(function)});
    for (const Json& stop : stops)
    {
        if (booleans)
        {
            result.push_back(Json::array({"==", Get(function), stop[0]}));
            result.push_back(stop[1]);
        }
        else
            AppendStop(result, stop[0], stop[1], false);
    }
    result.push_back(Fallback(function, spec));
    return result;
}

Json PropertyFunction(const Json& function, const PropertySpec& spec, const std::vector<Json>& stops)
{
    const std::string type = TypeOf(function, spec);
    if (type == "categorical")
        return CategoricalFunction(function, spec, stops);
    const Json get = Get(function);
    Json curve = Curve(type, function, Json::array({"number", get}), stops);
    const Json fallback = Member(function, "default");
    if (fallback.is_discarded())
        return curve;
    const Json isNumber = Json::array({"==", Json::array({"typeof", get}), "number"});
    return Json::array({"case", isNumber, std::move(curve), Literal(fallback)});
}

// A curve over the zoom of curves over an attribute. How values change with the zoom follows from the property alone.
Json ZoomAndPropertyFunction(const Json& function, const PropertySpec& spec, const std::vector<Json>& stops)
{
    std::vector<std::pair<Json, std::vector<Json>>> byZoom;
    for (const Json& stop : stops)
    {
        const Json zoom = Member(stop[0], "zoom");
        auto found = byZoom.begin();
        while (found != byZoom.end() && found->first != zoom)
            ++found;
        if (found == byZoom.end())
            found = byZoom.emplace(found, zoom, std::vector<Json>());
        found->second.push_back(Json::array({Member(stop[0], "value"), stop[1]}));
    }
    Json inner = function;
    inner.erase("base");
    inner.erase("colorSpace");
    Json outer = function;
    outer.erase("base");
    std::vector<Json> zoomStops;
    for (const auto& [zoom, ofZoom] : byZoom)
        zoomStops.push_back(Json::array({zoom, PropertyFunction(inner, spec, ofZoom)}));
    return Curve(spec.interpolated ? "exponential" : "interval", outer, Json::array({"zoom"}), zoomStops);
}

Json IdentityFunction(const Json& function, const PropertySpec& spec)
{
    const Json get = Get(function);
    const Json fallback = Member(function, "default");
    if (fallback.is_discarded())
        // Expressions convert to texts; functions did not.
        return spec.type == "string" ? Json::array({"string", get}) : get;
    if (spec.type == "enum")
        return Json::array({"match", get, spec.enumValues, get, fallback});
    Json result = Json::array({spec.type == "color" ? "to-color" : spec.type});
    if (spec.type == "array")
    {
        result.push_back(spec.item);
        result.push_back(spec.length ? Json(*spec.length) : Json());
    }
    result.push_back(get);
    result.push_back(Literal(fallback));
    return result;
}

// Two elements each, or nothing where something else is among them.
std::vector<Json> ReadStops(const Json& json)
{
    std::vector<Json> stops;
    if (!json.is_array())
        return stops;
    for (const Json& stop : json)
    {
        if (!stop.is_array() || stop.size() != 2)
            return {};
        stops.push_back(stop);
    }
    return stops;
}

} // namespace

Json ConvertTokens(const std::string& text)
{
    Json parts = Json::array({"concat"});
    std::size_t done = 0;
    for (std::size_t open = text.find('{'); open != std::string::npos; open = text.find('{', open + 1))
    {
        const std::size_t close = text.find_first_of("{}", open + 1);
        if (close == std::string::npos || text[close] == '{' || close == open + 1)
            continue;
        if (open > done)
            parts.push_back(text.substr(done, open - done));
        parts.push_back(Json::array({"get", text.substr(open + 1, close - open - 1)}));
        done = close + 1;
    }
    if (parts.size() == 1)
        return text;
    if (done < text.size())
        parts.push_back(text.substr(done));
    else if (parts.size() == 2)
        return Json::array({"to-string", parts[1]});
    return parts;
}

Json ConvertLegacyFunction(const Json& function, const PropertySpec& spec)
{
    if (!function.contains("stops"))
        return IdentityFunction(function, spec);
    std::vector<Json> stops = ReadStops(function["stops"]);
    if (stops.empty())
        return Undefined();
    const bool byBoth = stops.front()[0].is_structured();
    const bool byProperty = byBoth || function.contains("property");
    for (Json& stop : stops)
    {
        const bool tokens = !byProperty && spec.tokens && stop[1].is_string();
        const Json output = tokens ? ConvertTokens(stop[1].get<std::string>()) : Literal(stop[1]);
        stop[1] = output;
    }
    if (byBoth)
        return ZoomAndPropertyFunction(function, spec, stops);
    if (byProperty)
        return PropertyFunction(function, spec, stops);
    return Curve(TypeOf(function, spec), function, Json::array({"zoom"}), stops);
}

} // namespace txmap
