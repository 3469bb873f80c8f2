#include <txmap/style/document/ValueCheck.h>

#include <algorithm>
#include <cmath>

#include <txmap/style/Color.h>

namespace txmap
{
namespace
{

// Numbers of inhabitants and identifiers are smaller.
constexpr double kLargest = 1e12;

std::string Shown(const Json& json)
{
    return json.is_structured() ? JsonKind(json) : json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void CheckEnum(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems)
{
    const std::vector<std::string> names = rule.Values();
    if (json.is_string() && std::find(names.begin(), names.end(), json.get<std::string>()) != names.end())
        return;
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    problems.Add(pointer, "expected one of " + list + ", but " + Shown(json) + " found");
}

void CheckColor(const Json& json, const std::string& pointer, StyleProblems& problems)
{
    if (RequireKind(json, "string", pointer, problems) && !Color::Parse(json.get<std::string>()))
        problems.Add(pointer, Shown(json) + " is no color");
}

/// An array of values that each follow a rule, or one such value alone.
void CheckOneOrMany(const Json& json, const MemberRule& item, const std::string& pointer, StyleProblems& problems)
{
    if (!json.is_array())
        return CheckConstant(json, item, pointer, problems);
    if (json.empty())
        problems.Add(pointer, "at least one value expected");
    for (std::size_t i = 0; i < json.size(); ++i)
        CheckConstant(json[i], item, PointerTo(pointer, i), problems);
}

void CheckArray(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems)
{
    if (!RequireKind(json, "array", pointer, problems))
        return;
    const PropertySpec spec = rule.Spec();
    if (spec.length && json.size() != *spec.length)
        problems.Add(pointer, "an array of length " + std::to_string(*spec.length) + " expected, but one of length " +
                                  std::to_string(json.size()) + " found");
    const auto isLong = [](const Json& length) { return !length.is_number() || length.get<double>() > 0.0; };
    if (std::string(rule.name) == "line-dasharray" && !json.empty() && std::none_of(json.begin(), json.end(), isLong))
        problems.Add(pointer, "all dashes and gaps are without length");
    MemberRule item = rule;
    item.type = spec.item.c_str();
    for (std::size_t i = 0; i < json.size(); ++i)
        CheckConstant(json[i], item, PointerTo(pointer, i), problems);
}

void CheckPadding(const Json& json, const std::string& pointer, StyleProblems& problems)
{
    if (json.is_array() && (json.empty() || json.size() > 4))
        problems.Add(pointer, "1 to 4 numbers expected, but " + std::to_string(json.size()) + " found");
    CheckOneOrMany(json, {"", "number"}, pointer, problems);
}

void CheckAnchorOffsets(const Json& json, const std::string& pointer, StyleProblems& problems)
{
    static const MemberRule kAnchor = {"", "enum",
                                       "center left right top bottom top-left top-right bottom-left bottom-right"};
    if (!RequireKind(json, "array", pointer, problems))
        return;
    if (json.empty() || json.size() % 2 != 0)
        problems.Add(pointer, "pairs of an anchor and an offset expected");
    for (std::size_t i = 0; i < json.size(); ++i)
        CheckConstant(json[i], i % 2 == 0 ? kAnchor : MemberRule{"", "array<number,2>"}, PointerTo(pointer, i),
                      problems);
}

} // namespace

std::string JsonKind(const Json& json) { return json.type_name(); }

bool RequireKind(const Json& json, const char* kind, const std::string& pointer, StyleProblems& problems)
{
    if (JsonKind(json) == kind)
        return true;
    problems.Add(pointer, std::string(kind) + " expected, but " + JsonKind(json) + " found");
    return false;
}

void CheckRange(double number, const MemberRule& rule, const std::string& pointer, StyleProblems& problems)
{
    if (std::abs(number) > kLargest)
        return problems.Add(pointer, NumberText(number) + " is larger than anything on a map");
    if (number < rule.minimum)
        problems.Add(pointer, NumberText(number) + " is less than the minimum " + NumberText(rule.minimum));
    if (number > rule.maximum)
        problems.Add(pointer, NumberText(number) + " is greater than the maximum " + NumberText(rule.maximum));
}

void CheckConstant(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems)
{
    const std::string type = rule.type;
    if (type == "*")
        return;
    if (type == "number")
    {
        if (RequireKind(json, "number", pointer, problems))
            CheckRange(json.get<double>(), rule, pointer, problems);
    }
    else if (type == "string" || type == "resolvedImage" || type == "formatted")
        RequireKind(json, "string", pointer, problems);
    else if (type == "boolean" || type == "object")
        RequireKind(json, rule.type, pointer, problems);
    else if (type == "enum")
        CheckEnum(json, rule, pointer, problems);
    else if (type == "color")
        CheckColor(json, pointer, problems);
    else if (type == "padding")
        CheckPadding(json, pointer, problems);
    else if (type == "numberArray")
        // Ranges are recommendations here: 360 degrees are 0 degrees.
        CheckOneOrMany(json, {"", "number"}, pointer, problems);
    else if (type == "colorArray")
        CheckOneOrMany(json, {"", "color"}, pointer, problems);
    else if (type == "variableAnchorOffsetCollection")
        CheckAnchorOffsets(json, pointer, problems);
    else
        CheckArray(json, rule, pointer, problems);
}

} // namespace txmap
