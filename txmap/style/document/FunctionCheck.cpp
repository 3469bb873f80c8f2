#include <txmap/style/document/PropertyReader.h>
#include <txmap/style/document/ValueCheck.h>

namespace txmap
{
namespace
{

/// Checks the stops of a function one after another.
class StopsCheck
{
public:
    StopsCheck(const MemberRule& rule, std::string type, StyleProblems& problems)
        : rule(rule), type(std::move(type)), problems(problems)
    {
    }

    void Check(const Json& stop, const std::string& pointer)
    {
        if (!RequireKind(stop, "array", pointer, problems))
            return;
        if (stop.size() != 2)
            return problems.Add(pointer, "a stop has two elements, but this one has " + std::to_string(stop.size()));
        CheckInput(stop[0], PointerTo(pointer, 0));
        CheckConstant(stop[1], rule, PointerTo(pointer, 1), problems);
    }

private:
    void CheckInput(const Json& input, const std::string& pointer)
    {
        if (!input.is_object())
            return CheckDomain(input, pointer);
        const auto zoom = input.find("zoom");
        const auto value = input.find("value");
        if (zoom == input.end() || value == input.end())
            return problems.Add(pointer, "a stop of zoom and property has a \"zoom\" and a \"value\"");
        if (!RequireKind(*zoom, "number", PointerTo(pointer, "zoom"), problems))
            return;
        const double at = zoom->get<double>();
        if (lastZoom && at < *lastZoom)
            problems.Add(PointerTo(pointer, "zoom"), "zooms of stops must ascend");
        if (!lastZoom || at != *lastZoom)
            last.reset();
        lastZoom = at;
        CheckDomain(*value, PointerTo(pointer, "value"));
    }

    void CheckDomain(const Json& input, const std::string& pointer)
    {
        if (type == "categorical")
        {
            const std::string kind = JsonKind(input);
            if (!input.is_string() && !input.is_number() && !input.is_boolean())
                problems.Add(pointer, "string, number or boolean expected, but " + kind + " found");
            else if (!category.empty() && kind != category)
                problems.Add(pointer,
                             "inputs of stops must be of one type: " + category + " before, " + kind + " here");
            category = kind;
            return;
        }
        if (!RequireKind(input, "number", pointer, problems))
            return;
        const double at = input.get<double>();
        if (last && at < *last)
            problems.Add(pointer, "inputs of stops must ascend");
        last = at;
    }

    const MemberRule& rule;
    std::string type;
    StyleProblems& problems;
    std::optional<double> last;
    std::string category; ///< What JSON calls the input before.
    std::optional<double> lastZoom;
};

void CheckStops(const Json& function, const MemberRule& rule, const std::string& type, const std::string& pointer,
                StyleProblems& problems)
{
    const std::string place = PointerTo(pointer, "stops");
    const Json& stops = function["stops"];
    if (type == "identity")
        return problems.Add(place, "identity functions have no \"stops\"");
    if (!RequireKind(stops, "array", place, problems))
        return;
    if (stops.empty())
        problems.Add(place, "at least one stop expected");
    StopsCheck check(rule, type, problems);
    for (std::size_t i = 0; i < stops.size(); ++i)
        check.Check(stops[i], PointerTo(place, i));
}

} // namespace

void CheckFunction(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems)
{
    static const MemberRule kMembers[] = {{"type", "enum", "identity exponential interval categorical"},
                                          {"property", "string"},
                                          {"base", "number", "", "", Varies::Never, 0.0},
                                          {"colorSpace", "enum", "rgb lab hcl"},
                                          {"default", "*"},
                                          {"stops", "*"}};
    if (rule.varies == Varies::Never)
        return problems.Add(pointer, "functions are not allowed here");
    for (const auto& [name, value] : json.items())
    {
        const MemberRule* found = nullptr;
        for (const MemberRule& member : kMembers)
            if (name == member.name)
                found = &member;
        if (found)
            CheckConstant(value, *found, PointerTo(pointer, name), problems);
        else
            problems.Add(PointerTo(pointer, name), "unknown member of a function");
    }
    const bool hasType = json.contains("type") && json["type"].is_string();
    const bool interpolated = rule.Spec().interpolated;
    const std::string type = hasType ? json["type"].get<std::string>() : interpolated ? "exponential" : "interval";
    if (type != "identity" && !json.contains("stops"))
        problems.Add(pointer, "a function has \"stops\"");
    if ((type == "identity" || type == "categorical") && !json.contains("property"))
        problems.Add(pointer, "a function of this type has a \"property\"");
    if (type == "exponential" && !interpolated)
        problems.Add(pointer, "exponential functions cannot be used with this property");
    if (json.contains("property") && rule.varies != Varies::Feature && rule.varies != Varies::FeatureCrossFaded)
        problems.Add(pointer, "functions of a property cannot be used here");
    if (json.contains("default") && rule.type != std::string("*"))
        CheckConstant(json["default"], rule, PointerTo(pointer, "default"), problems);
    if (json.contains("stops"))
        CheckStops(json, rule, type, pointer, problems);
}

} // namespace txmap
