#include <txmap/style/document/OwnMembers.h>

#include <cmath>

#include <txmap/style/document/StyleReader.h>
#include <txmap/style/document/ValueCheck.h>
#include <txmap/style/operators/Utf8.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kNone = MemberRule::kNone;

/// A member for layers of a type.
struct OwnMember
{
    MemberRule rule;
    LayerType type;
    const char* otherwise; ///< What is wrong with it in layers of other types.
};

constexpr OwnMember kHatch = {
    {"txmap:hatch", "enum", "horizontal vertical cross"}, LayerType::Fill, "only layers of type fill are hatched"};
constexpr OwnMember kGradient = {
    {"txmap:gradient", "object"}, LayerType::Fill, "only layers of type fill have gradients"};
constexpr OwnMember kMarker = {{"txmap:marker", "*"}, LayerType::Circle, "only layers of type circle have markers"};
constexpr OwnMember kPolarColor = {
    {"txmap:polar-color", "color"}, LayerType::Background, "only layers of type background have a colour at the poles"};
constexpr OwnMember kTextEngine = {
    {"txmap:text-engine", "enum", "qt cairo"}, LayerType::Symbol, "only layers of type symbol have texts"};
constexpr OwnMember kVertical = {
    {"txmap:vertical", "boolean"}, LayerType::Symbol, "only layers of type symbol have texts"};
constexpr OwnMember kFontMarker = {
    {"txmap:font-marker", "object"}, LayerType::Symbol, "only layers of type symbol have icons"};
constexpr OwnMember kTolerance = {{"txmap:tolerance", "number", "", "", Varies::Never, 0, kNone},
                                  LayerType::Line,
                                  "only layers of type line have a tolerance"};

constexpr MemberRule kGradientMembers[] = {
    {"type", "enum", "linear radial conical", "", Varies::Never, -kNone, kNone, true},
    {"colors", "array<color,2>", "", "", Varies::Never, -kNone, kNone, true},
    {"angle", "number"},
};
constexpr MemberRule kFontMarkerMembers[] = {
    {"font", "string", "", "", Varies::Never, -kNone, kNone, true},
    {"character", "string", "", "", Varies::Never, -kNone, kNone, true},
};
constexpr MemberRule kFrameMembers[] = {
    {"margin", "number", "", "", Varies::Never, 0, kNone, true},
    {"radius", "number", "", "", Varies::Never, 0, kNone},
};

Hatch HatchOf(const std::string& name)
{
    return name == "horizontal" ? Hatch::Horizontal : name == "vertical" ? Hatch::Vertical : Hatch::Cross;
}

AreaGradient::Kind KindOf(const std::string& name)
{
    return name == "linear"   ? AreaGradient::Kind::Linear
           : name == "radial" ? AreaGradient::Kind::Radial
                              : AreaGradient::Kind::Conical;
}

double NumberOr(const Json& object, const char* name, double fallback)
{
    const auto found = object.find(name);
    return found != object.end() ? found->get<double>() : fallback;
}

/// A pair of finite numbers, or more of which the rest does not count.
std::optional<TXPoint> PointIn(const Json& json)
{
    if (!json.is_array() || json.size() < 2 || !json[0].is_number() || !json[1].is_number())
        return std::nullopt;
    const TXPoint point{json[0].get<double>(), json[1].get<double>()};
    return std::isfinite(point.x) && std::isfinite(point.y) ? std::optional(point) : std::nullopt;
}

/// Three points or more; nothing for anything else.
std::vector<TXPoint> CornersIn(const Json& json)
{
    constexpr std::size_t kFewest = 3;
    std::vector<TXPoint> corners;
    if (!json.is_array() || json.size() < kFewest)
        return {};
    for (const Json& item : json)
    {
        const std::optional<TXPoint> corner = PointIn(item);
        if (!corner)
            return {};
        corners.push_back(*corner);
    }
    return corners;
}

/// The rings of the coordinates of a polygon; false if one is none.
bool AddRings(const Json& polygon, LayerClip& clip)
{
    if (!polygon.is_array() || polygon.empty())
        return false;
    for (const Json& ring : polygon)
    {
        clip.rings.push_back(CornersIn(ring));
        if (clip.rings.back().empty())
            return false;
        clip.rings.back().push_back(clip.rings.back().front());
    }
    return true;
}

/// Reads the members of one layer.
class OwnMemberReader
{
public:
    OwnMemberReader(const std::string& pointer, StyleLayer& layer, StyleProblems& problems)
        : pointer(pointer), layer(layer), problems(problems)
    {
    }

    void Read()
    {
        if (const Json* const hatch = Find(kHatch))
            layer.hatch = HatchOf(hatch->get<std::string>());
        if (const Json* const color = Find(kPolarColor))
            layer.polarColor = Color::Parse(color->get<std::string>());
        if (const Json* const tolerance = Find(kTolerance))
            layer.tolerance = tolerance->get<double>();
        if (const Json* const gradient = Find(kGradient))
            ReadGradient(*gradient, PointerTo(pointer, kGradient.rule.name));
        if (const Json* const marker = Find(kMarker))
            ReadMarker(*marker, PointerTo(pointer, kMarker.rule.name));
        if (const Json* const engine = Find(kTextEngine))
            layer.textThroughCairo = *engine == "cairo";
        if (const Json* const vertical = Find(kVertical))
            layer.textIsVertical = vertical->get<bool>();
        if (const Json* const marker = Find(kFontMarker))
            ReadFontMarker(*marker, PointerTo(pointer, kFontMarker.rule.name));
        if (const auto clip = layer.metadata.find("txmap:clip"); clip != layer.metadata.end())
            ReadClip(*clip, PointerTo(pointer, "txmap:clip"));
    }

private:
    /// Null if it is missing or wrong.
    const Json* Find(const OwnMember& member) const
    {
        const auto found = layer.metadata.find(member.rule.name);
        if (found == layer.metadata.end())
            return nullptr;
        const std::string place = PointerTo(pointer, member.rule.name);
        const std::size_t before = problems.Count();
        CheckConstant(*found, member.rule, place, problems);
        if (layer.type != member.type)
            problems.Add(place, member.otherwise);
        return problems.Count() == before ? &*found : nullptr;
    }

    void ReadGradient(const Json& json, const std::string& place)
    {
        const std::size_t before = problems.Count();
        CheckMembers(json, ListOf(kGradientMembers), place, problems, OtherMembers::Refused);
        if (problems.Count() > before)
            return;
        layer.gradient =
            AreaGradient{KindOf(json["type"].get<std::string>()), *Color::Parse(json["colors"][0].get<std::string>()),
                         *Color::Parse(json["colors"][1].get<std::string>()), NumberOr(json, "angle", 0.0)};
    }

    void ReadMarker(const Json& json, const std::string& place)
    {
        if (json.is_string())
        {
            const std::size_t before = problems.Count();
            CheckConstant(json, {"", "enum", "circle square triangle star cross diamond"}, place, problems);
            if (problems.Count() == before)
                layer.marker = LayerMarker{json.get<std::string>(), {}};
            return;
        }
        std::vector<TXPoint> corners = CornersIn(json);
        if (corners.empty())
            problems.Add(place, "the name of a shape, or an array of three corners or more expected");
        else
            layer.marker = LayerMarker{{}, std::move(corners)};
    }

    /// A character of a font that stands for a picture of a sprite.
    void ReadFontMarker(const Json& json, const std::string& place)
    {
        const std::size_t before = problems.Count();
        CheckMembers(json, ListOf(kFontMarkerMembers), place, problems, OtherMembers::Refused);
        if (problems.Count() > before)
            return;
        const auto character = json["character"].get<std::string>();
        // Surfaces take characters of 16 bits, which are at most three bytes.
        constexpr std::size_t kMostBytes = 3;
        if (CountCharacters(character) != 1 || character.size() > kMostBytes)
            return problems.Add(PointerTo(place, "character"), "one character below U+10000 is expected");
        layer.markFont = json["font"].get<std::string>();
        layer.markCharacter = character;
    }

    void ReadClip(const Json& json, const std::string& place)
    {
        if (!RequireKind(json, "object", place, problems))
            return;
        const std::size_t before = problems.Count();
        LayerClip clip;
        if (const auto type = json.find("type"); type != json.end())
        {
            const auto coordinates = json.find("coordinates");
            bool isArea = coordinates != json.end() && coordinates->is_array() && !coordinates->empty();
            if (isArea && *type == "Polygon")
                isArea = AddRings(*coordinates, clip);
            else if (isArea && *type == "MultiPolygon")
                for (const Json& polygon : *coordinates)
                    isArea = isArea && AddRings(polygon, clip);
            else
                isArea = false;
            if (!isArea)
                problems.Add(place, "a Polygon or MultiPolygon of GeoJSON expected");
        }
        else
        {
            CheckMembers(json, ListOf(kFrameMembers), place, problems, OtherMembers::Refused);
            if (problems.Count() == before)
            {
                clip.margin = NumberOr(json, "margin", 0.0);
                clip.radius = NumberOr(json, "radius", 0.0);
            }
        }
        if (problems.Count() == before)
            layer.clip = std::move(clip);
    }

    const std::string& pointer;
    StyleLayer& layer;
    StyleProblems& problems;
};

} // namespace

void ReadOwnMembers(const std::string& pointer, StyleLayer& layer, StyleProblems& problems)
{
    OwnMemberReader(pointer, layer, problems).Read();
}

} // namespace txmap
