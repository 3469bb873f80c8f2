#include <txmap/style/document/StyleReader.h>

#include <cmath>

#include <txmap/style/document/PropertyReader.h>
#include <txmap/style/document/ValueCheck.h>

namespace txmap
{
namespace
{

constexpr double kNone = MemberRule::kNone;

constexpr MemberRule kRoot[] = {
    {"version", "*", "", "", Varies::Never, -kNone, kNone, true},
    {"name", "string"},
    {"metadata", "*"},
    {"center", "array<number,2>"},
    {"centerAltitude", "number"},
    {"zoom", "number"},
    {"bearing", "number"},
    {"pitch", "number"},
    {"roll", "number"},
    {"state", "object"},
    {"light", "object"},
    {"sky", "object"},
    {"projection", "object"},
    {"terrain", "object"},
    {"sources", "object", "", "", Varies::Never, -kNone, kNone, true},
    {"sprite", "*"},
    {"glyphs", "string"},
    {"font-faces", "*"},
    {"transition", "object"},
    {"layers", "*", "", "", Varies::Never, -kNone, kNone, true},
};
constexpr MemberRule kLight[] = {
    {"anchor", "enum", "map viewport", "", Varies::Zoom},
    {"position", "array<number,3>", "", "", Varies::Zoom},
    {"color", "color", "", "", Varies::Zoom},
    {"intensity", "number", "", "", Varies::Zoom, 0, 1},
};
constexpr MemberRule kSky[] = {
    {"sky-color", "color", "", "", Varies::Zoom},
    {"horizon-color", "color", "", "", Varies::Zoom},
    {"fog-color", "color", "", "", Varies::Zoom},
    {"fog-ground-blend", "number", "", "", Varies::Zoom, 0, 1},
    {"horizon-fog-blend", "number", "", "", Varies::Zoom, 0, 1},
    {"sky-horizon-blend", "number", "", "", Varies::Zoom, 0, 1},
    {"atmosphere-blend", "number", "", "", Varies::Zoom, 0, 1},
};
constexpr MemberRule kTransition[] = {
    {"duration", "number", "", "", Varies::Never, 0, kNone},
    {"delay", "number", "", "", Varies::Never, 0, kNone},
};
constexpr MemberRule kTerrain[] = {
    {"source", "string"},
    {"exaggeration", "number", "", "", Varies::Never, 0, kNone},
};

const Json* Member(const Json& object, const char* name)
{
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

std::optional<double> Number(const Json& object, const char* name)
{
    const Json* const member = Member(object, name);
    return member && member->is_number() ? std::optional<double>(member->get<double>()) : std::nullopt;
}

/// Members whose values may be expressions.
void CheckProperties(const Json& root, const char* name, const RuleList& rules, StyleProblems& problems)
{
    const Json* const object = Member(root, name);
    if (!object || !object->is_object())
        return;
    for (const auto& [member, value] : object->items())
    {
        const std::string pointer = PointerTo(std::string("/") + name, member);
        if (const MemberRule* const rule = rules.Find(member))
            ReadProperty(value, *rule, pointer, problems);
        else if (member.size() < 12 || member.compare(member.size() - 11, 11, "-transition") != 0)
            problems.Add(pointer, "unknown member");
    }
}

void ReadCamera(const Json& json, MapStyle& style, StyleProblems& problems)
{
    if (const Json* const centre = Member(json, "center");
        centre && centre->is_array() && centre->size() == 2 && (*centre)[0].is_number() && (*centre)[1].is_number())
    {
        const double longitude = (*centre)[0].get<double>();
        const double latitude = (*centre)[1].get<double>();
        if (std::abs(longitude) > 1e6 || std::abs(latitude) > 90.0)
            problems.Add("/center", "no place on earth");
        else
        {
            style.longitude = longitude;
            style.latitude = latitude;
        }
    }
    style.zoom = Number(json, "zoom");
    style.bearing = Number(json, "bearing").value_or(0.0);
    for (const char* const turn : {"pitch", "roll"})
        if (Number(json, turn).value_or(0.0) != 0.0)
            problems.AddUnsupported(std::string("/") + turn, "maps are drawn as seen from above");
}

void ReadState(const Json& json, MapStyle& style)
{
    const Json* const state = Member(json, "state");
    if (!state || !state->is_object())
        return;
    ValueObject values;
    for (const auto& [name, value] : state->items())
    {
        const Json* const fallback = value.is_object() ? Member(value, "default") : nullptr;
        values.emplace_back(name, fallback ? Value::FromJson(*fallback) : Value());
    }
    style.globalState = Value(std::move(values));
}

void ReadSprite(const Json& json, MapStyle& style, StyleProblems& problems)
{
    const Json* const sprite = Member(json, "sprite");
    if (!sprite)
        return;
    if (sprite->is_string())
        style.sprites.push_back({"default", sprite->get<std::string>()});
    else if (!sprite->is_array())
        problems.Add("/sprite", "string or array expected, but " + JsonKind(*sprite) + " found");
    else
        for (std::size_t i = 0; i < sprite->size(); ++i)
        {
            const Json& item = (*sprite)[i];
            const Json* const id = item.is_object() ? Member(item, "id") : nullptr;
            const Json* const url = item.is_object() ? Member(item, "url") : nullptr;
            if (!id || !url || !id->is_string() || !url->is_string())
            {
                problems.Add(PointerTo("/sprite", i), "an object with the texts \"id\" and \"url\" expected");
                continue;
            }
            StyleSprite sprite{id->get<std::string>(), url->get<std::string>()};
            for (const StyleSprite& other : style.sprites)
                if (other.id == sprite.id || other.address == sprite.address)
                    problems.Add(PointerTo("/sprite", i), "the same id or url as another sprite");
            style.sprites.push_back(std::move(sprite));
        }
}

void CheckProjection(const Json& json, StyleProblems& problems)
{
    const Json* const projection = Member(json, "projection");
    const Json* const type = projection && projection->is_object() ? Member(*projection, "type") : nullptr;
    if (!type)
        return;
    if (!type->is_string() && !type->is_array())
        problems.Add("/projection/type", "string or array expected, but " + JsonKind(*type) + " found");
    else if (*type != "mercator")
        problems.AddUnsupported("/projection/type", "only \"mercator\" is drawn");
}

} // namespace

void CheckMembers(const Json& object, const RuleList& rules, const std::string& pointer, StyleProblems& problems,
                  OtherMembers others)
{
    for (const MemberRule& rule : rules)
        if (rule.required && !object.contains(rule.name))
            problems.Add(pointer, std::string("\"") + rule.name + "\" is missing");
    for (const auto& [name, value] : object.items())
    {
        if (const MemberRule* const rule = rules.Find(name))
            CheckConstant(value, *rule, PointerTo(pointer, name), problems);
        else if (others == OtherMembers::Refused)
            problems.Add(PointerTo(pointer, name), "unknown member");
    }
}

void ReadRoot(const Json& json, MapStyle& style, StyleProblems& problems)
{
    CheckMembers(json, ListOf(kRoot), "", problems, OtherMembers::Allowed);
    if (const Json* const version = Member(json, "version"); version && *version != 8)
        problems.Add("/version", "8 expected, but " + version->dump().substr(0, 40) + " found");
    if (const Json* const metadata = Member(json, "metadata"); metadata && metadata->is_object())
        style.metadata = *metadata;
    CheckProperties(json, "light", ListOf(kLight), problems);
    CheckProperties(json, "sky", ListOf(kSky), problems);
    for (const auto& [name, rules] : {std::pair{"transition", ListOf(kTransition)}, {"terrain", ListOf(kTerrain)}})
        if (const Json* const object = Member(json, name); object && object->is_object())
            CheckMembers(*object, rules, std::string("/") + name, problems);
    if (json.contains("terrain"))
        problems.AddUnsupported("/terrain", "maps are flat");
    CheckProjection(json, problems);
    if (const Json* const glyphs = Member(json, "glyphs"); glyphs && glyphs->is_string())
        for (const char* const token : {"{fontstack}", "{range}"})
            if (glyphs->get<std::string>().find(token) == std::string::npos)
                problems.Add("/glyphs", std::string("must include ") + token);
    ReadCamera(json, style, problems);
    ReadState(json, style);
    ReadSprite(json, style, problems);
}

const StyleSource* MapStyle::FindSource(const std::string& name) const
{
    for (const StyleSource& source : sources)
        if (source.name == name)
            return &source;
    return nullptr;
}

StyleReading ReadStyle(const std::string& text)
{
    StyleReading reading;
    StyleProblems problems;
    Json json;
    try
    {
        json = Json::parse(text);
    }
    catch (const Json::exception& error)
    {
        // The library's own text begins with its name and a number in brackets.
        const std::string reason = error.what();
        const std::size_t bracket = reason.find("] ");
        problems.Add("", "no JSON: " + (bracket == std::string::npos ? reason : reason.substr(bracket + 2)));
        reading.problems = problems.Take();
        return reading;
    }
    if (IsNestedTooDeep(json))
        problems.Add("", "nested deeper than " + std::to_string(kMaximumNesting) + " levels");
    else if (RequireKind(json, "object", "", problems))
    {
        ReadRoot(json, reading.style, problems);
        if (const Json* const sources = Member(json, "sources"); sources && sources->is_object())
            ReadSources(*sources, reading.style, problems);
        if (const Json* const layers = Member(json, "layers");
            layers && RequireKind(*layers, "array", "/layers", problems))
            ReadLayers(json, reading.style, problems);
    }
    reading.problems = problems.Take();
    return reading;
}

} // namespace txmap
