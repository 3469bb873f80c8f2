#include <txmap/style/document/PropertyReader.h>
#include <txmap/style/document/StyleReader.h>
#include <txmap/style/document/ValueCheck.h>

namespace txmap
{
namespace
{

constexpr double kNone = MemberRule::kNone;

constexpr MemberRule kVector[] = {
    {"type", "string"},
    {"url", "string"},
    {"tiles", "array<string>"},
    {"bounds", "array<number,4>"},
    {"scheme", "enum", "xyz tms"},
    {"emptyResponse", "enum", "blank missing"},
    {"minzoom", "number"},
    {"maxzoom", "number"},
    {"attribution", "string"},
    {"promoteId", "*"},
    {"volatile", "boolean"},
    {"encoding", "enum", "mvt mlt"},
};
constexpr MemberRule kRaster[] = {
    {"type", "string"},
    {"url", "string"},
    {"tiles", "array<string>"},
    {"bounds", "array<number,4>"},
    {"minzoom", "number"},
    {"maxzoom", "number"},
    {"tileSize", "number"},
    {"scheme", "enum", "xyz tms"},
    {"emptyResponse", "enum", "blank missing"},
    {"attribution", "string"},
    {"volatile", "boolean"},
};
constexpr MemberRule kRasterDem[] = {
    {"type", "string"},         {"url", "string"},
    {"tiles", "array<string>"}, {"bounds", "array<number,4>"},
    {"minzoom", "number"},      {"maxzoom", "number"},
    {"tileSize", "number"},     {"emptyResponse", "enum", "blank missing"},
    {"attribution", "string"},  {"encoding", "enum", "terrarium mapbox custom"},
    {"redFactor", "number"},    {"blueFactor", "number"},
    {"greenFactor", "number"},  {"baseShift", "number"},
    {"volatile", "boolean"},
};
constexpr MemberRule kGeoJson[] = {
    {"type", "string"},
    {"data", "*", "", "", Varies::Never, -kNone, kNone, true},
    {"maxzoom", "number"},
    {"attribution", "string"},
    {"buffer", "number", "", "", Varies::Never, 0, 512},
    {"filter", "*"},
    {"tolerance", "number"},
    {"cluster", "boolean"},
    {"clusterRadius", "number", "", "", Varies::Never, 0, kNone},
    {"clusterMaxZoom", "number"},
    {"clusterMinPoints", "number"},
    {"clusterProperties", "object"},
    {"lineMetrics", "boolean"},
    {"generateId", "boolean"},
    {"promoteId", "*"},
};
constexpr MemberRule kImage[] = {
    {"type", "string"},
    {"url", "string"},
    {"coordinates", "*", "", "", Varies::Never, -kNone, kNone, true},
};
constexpr MemberRule kVideo[] = {
    {"type", "string"},
    {"urls", "array<string>", "", "", Varies::Never, -kNone, kNone, true},
    {"coordinates", "*", "", "", Varies::Never, -kNone, kNone, true},
};

struct SourceRules
{
    const char* type;
    RuleList members;
    OtherMembers others;
};

const SourceRules* FindRules(const std::string& type)
{
    static const SourceRules kRules[] = {
        {"vector", ListOf(kVector), OtherMembers::Allowed},        {"raster", ListOf(kRaster), OtherMembers::Allowed},
        {"raster-dem", ListOf(kRasterDem), OtherMembers::Allowed}, {"geojson", ListOf(kGeoJson), OtherMembers::Refused},
        {"image", ListOf(kImage), OtherMembers::Refused},          {"video", ListOf(kVideo), OtherMembers::Refused}};
    for (const SourceRules& rules : kRules)
        if (type == rules.type)
            return &rules;
    return nullptr;
}

void CheckCoordinates(const Json& source, const std::string& pointer, StyleProblems& problems)
{
    const auto found = source.find("coordinates");
    if (found == source.end() || !RequireKind(*found, "array", pointer, problems))
        return;
    if (found->size() != 4)
        problems.Add(pointer, "4 corners expected, but " + std::to_string(found->size()) + " found");
    for (std::size_t i = 0; i < found->size(); ++i)
        CheckConstant((*found)[i], {"", "array<number,2>"}, PointerTo(pointer, i), problems);
}

void CheckEncoding(const Json& source, const std::string& pointer, StyleProblems& problems)
{
    const auto encoding = source.find("encoding");
    if (encoding != source.end() && *encoding == "custom")
        return;
    for (const char* const name : {"redFactor", "greenFactor", "blueFactor", "baseShift"})
        if (source.contains(name))
            problems.Add(PointerTo(pointer, name), "only used with the encoding \"custom\"");
}

void CheckSource(const Json& json, const SourceRules& rules, const std::string& pointer, StyleProblems& problems)
{
    CheckMembers(json, rules.members, pointer, problems, rules.others);
    const std::string type = rules.type;
    if (type == "image" || type == "video")
        CheckCoordinates(json, PointerTo(pointer, "coordinates"), problems);
    if (type == "raster-dem")
        CheckEncoding(json, pointer, problems);
    if (const auto filter = json.find("filter"); type == "geojson" && filter != json.end())
        ReadFilter(*filter, PointerTo(pointer, "filter"), problems);
    if (type == "video")
        problems.AddUnsupported(pointer, "videos are not drawn");
    if (const auto encoding = json.find("encoding"); type == "vector" && encoding != json.end() && *encoding == "mlt")
        problems.AddUnsupported(PointerTo(pointer, "encoding"), "only \"mvt\" is read");
}

} // namespace

void ReadSources(const Json& json, MapStyle& style, StyleProblems& problems)
{
    for (const auto& [name, source] : json.items())
    {
        const std::string pointer = PointerTo("/sources", name);
        if (!RequireKind(source, "object", pointer, problems))
            continue;
        const auto type = source.find("type");
        if (type == source.end())
        {
            problems.Add(pointer, "\"type\" is missing");
            continue;
        }
        const std::size_t before = problems.Count();
        CheckConstant(*type, {"", "enum", "vector raster raster-dem geojson image video"}, PointerTo(pointer, "type"),
                      problems);
        if (problems.Count() > before)
            continue;
        const auto typeName = type->get<std::string>();
        CheckSource(source, *FindRules(typeName), pointer, problems);
        style.sources.push_back({name, pointer, typeName, source});
    }
}

} // namespace txmap
