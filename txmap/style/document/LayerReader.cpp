#include <map>
#include <set>

#include <txmap/style/document/PropertyReader.h>
#include <txmap/style/document/StyleReader.h>
#include <txmap/style/document/ValueCheck.h>
#include <txmap/style/operators/Utf8.h>

namespace txmap
{
namespace
{

constexpr double kNone = MemberRule::kNone;

constexpr MemberRule kLayer[] = {
    {"id", "string", "", "", Varies::Never, -kNone, kNone, true},
    {"type", "*"},
    {"metadata", "*"},
    {"source", "string"},
    {"source-layer", "string"},
    {"minzoom", "number", "", "", Varies::Never, 0, 24},
    {"maxzoom", "number", "", "", Varies::Never, 0, 24},
    {"filter", "*"},
    {"layout", "object"},
    {"paint", "object"},
    {"ref", "string"},
};
constexpr MemberRule kTransition[] = {
    {"duration", "number", "", "", Varies::Never, 0, kNone},
    {"delay", "number", "", "", Varies::Never, 0, kNone},
};

constexpr const char* kHatches = "horizontal vertical cross";
constexpr MemberRule kTextMetadata[] = {
    {"txmap:text-engine", "enum", "qt cairo"},
    {"txmap:vertical", "boolean"},
};
constexpr MemberRule kFontMarker[] = {
    {"font", "string", "", "", Varies::Never, -MemberRule::kNone, MemberRule::kNone, true},
    {"character", "string", "", "", Varies::Never, -MemberRule::kNone, MemberRule::kNone, true},
};

bool EndsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string TextOf(const Json& object, const char* name)
{
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

bool HasWord(const std::string& words, const std::string& word)
{
    return (" " + words + " ").find(" " + word + " ") != std::string::npos;
}

/// Reads one layer after another.
class LayerReader
{
public:
    LayerReader(const Json& root, MapStyle& style, StyleProblems& problems)
        : root(root), layers(root["layers"]), style(style), problems(problems)
    {
    }

    void ReadAll()
    {
        for (std::size_t i = 0; i < layers.size(); ++i)
        {
            const std::string pointer = PointerTo("/layers", i);
            if (!RequireKind(layers[i], "object", pointer, problems))
                continue;
            CheckId(layers[i], pointer);
            Read(layers[i], pointer);
        }
    }

private:
    void CheckId(const Json& json, const std::string& pointer)
    {
        const auto id = json.find("id");
        if (id == json.end() || !id->is_string())
            return;
        const auto [known, isNew] = places.emplace(id->get<std::string>(), pointer);
        if (!isNew)
            problems.Add(PointerTo(pointer, "id"), "the same id as " + known->second);
    }

    /// A layer with what it takes from the one that it refers to. Nothing if that cannot be.
    std::optional<Json> Resolved(const Json& json, const std::string& pointer)
    {
        if (!json.contains("ref") || !json["ref"].is_string())
            return json;
        for (const char* const name : {"type", "source", "source-layer", "filter", "layout"})
            if (json.contains(name))
                problems.Add(PointerTo(pointer, name), "must not stand beside \"ref\"");
        for (const Json& other : layers)
        {
            if (!other.is_object() || !other.contains("id") || other["id"] != json["ref"])
                continue;
            if (other.contains("ref"))
            {
                problems.Add(PointerTo(pointer, "ref"), "refers to a layer that itself refers to another");
                return std::nullopt;
            }
            Json resolved = json;
            for (const char* const name : {"type", "source", "source-layer", "minzoom", "maxzoom", "filter", "layout"})
                if (other.contains(name))
                    resolved[name] = other[name];
            return resolved;
        }
        problems.Add(PointerTo(pointer, "ref"), "there is no layer of this id");
        return std::nullopt;
    }

    void Read(const Json& written, const std::string& pointer)
    {
        const std::size_t before = problems.Count();
        CheckMembers(written, ListOf(kLayer), pointer, problems, OtherMembers::Allowed);
        const std::optional<Json> json = Resolved(written, pointer);
        if (!json)
            return;
        if (!json->contains("type"))
            return problems.Add(pointer, "\"type\" is missing");
        const LayerRules* const rules = (*json)["type"].is_string() ? FindLayerRules(TextOf(*json, "type")) : nullptr;
        if (!rules)
            return ReportType((*json)["type"], PointerTo(pointer, "type"));
        StyleLayer layer;
        layer.id = TextOf(*json, "id");
        layer.pointer = pointer;
        layer.type = rules->type;
        layer.source = TextOf(*json, "source");
        layer.sourceLayer = TextOf(*json, "source-layer");
        ReadZooms(*json, layer);
        CheckSource(*json, *rules, pointer);
        if (const auto metadata = json->find("metadata"); metadata != json->end() && metadata->is_object())
        {
            layer.metadata = *metadata;
            ReadHatch(PointerTo(pointer, "metadata"), layer);
            ReadTextMetadata(PointerTo(pointer, "metadata"), layer);
            ReadFontMarker(PointerTo(pointer, "metadata"), layer);
        }
        if (const auto filter = json->find("filter"); filter != json->end())
            layer.filter = WithoutState(ReadFilter(*filter, PointerTo(pointer, "filter"), problems),
                                        PointerTo(pointer, "filter"), "filters");
        bool usable = problems.Count() == before && (*rules->sources == '\0' || style.FindSource(layer.source));
        ReadProperties(*json, "layout", rules->layout, layer);
        ReadProperties(*json, "paint", rules->paint, layer);
        CheckGradient(*json, pointer);
        ReadVisibility(layer);
        if (*rules->unsupported != '\0')
        {
            problems.AddUnsupported(pointer, std::string(rules->name) + ": " + rules->unsupported);
            usable = false;
        }
        if (usable)
            style.layers.push_back(std::move(layer));
    }

    /// What the style format has no word for stands in the metadata.
    void ReadHatch(const std::string& pointer, StyleLayer& layer)
    {
        const auto hatch = layer.metadata.find("txmap:hatch");
        if (hatch == layer.metadata.end())
            return;
        const std::string place = PointerTo(pointer, "txmap:hatch");
        const std::size_t before = problems.Count();
        CheckConstant(*hatch, {"", "enum", kHatches}, place, problems);
        if (layer.type != LayerType::Fill)
            problems.Add(place, "only layers of type fill are hatched");
        if (problems.Count() == before)
            layer.hatch = hatch->get<std::string>();
    }

    /// Members for symbols: what draws texts, and whether these stand in columns.
    void ReadTextMetadata(const std::string& pointer, StyleLayer& layer)
    {
        for (const MemberRule& rule : kTextMetadata)
        {
            const auto found = layer.metadata.find(rule.name);
            if (found == layer.metadata.end())
                continue;
            const std::string place = PointerTo(pointer, rule.name);
            const std::size_t before = problems.Count();
            CheckConstant(*found, rule, place, problems);
            if (layer.type != LayerType::Symbol)
                problems.Add(place, "only layers of type symbol have texts");
            if (problems.Count() > before)
                continue;
            layer.textThroughCairo = layer.textThroughCairo || *found == "cairo";
            layer.textIsVertical = layer.textIsVertical || *found == true;
        }
    }

    /// A character of a font that stands for a picture of a sprite.
    void ReadFontMarker(const std::string& pointer, StyleLayer& layer)
    {
        const auto marker = layer.metadata.find("txmap:font-marker");
        if (marker == layer.metadata.end())
            return;
        const std::string place = PointerTo(pointer, "txmap:font-marker");
        const std::size_t before = problems.Count();
        if (!RequireKind(*marker, "object", place, problems))
            return;
        CheckMembers(*marker, ListOf(kFontMarker), place, problems, OtherMembers::Refused);
        if (layer.type != LayerType::Symbol)
            problems.Add(place, "only layers of type symbol have icons");
        if (problems.Count() > before)
            return;
        layer.markFont = TextOf(*marker, "font");
        layer.markCharacter = TextOf(*marker, "character");
        // Surfaces take characters of 16 bits, which are at most three bytes.
        if (CountCharacters(layer.markCharacter) != 1 || layer.markCharacter.size() > 3)
        {
            problems.Add(PointerTo(place, "character"), "one character below U+10000 is expected");
            layer.markCharacter.clear();
        }
    }

    void ReportType(const Json& type, const std::string& pointer)
    {
        std::string names;
        for (const std::string& name : LayerTypeNames())
            names += (names.empty() ? "" : " ") + name;
        CheckConstant(type, {"", "enum", names.c_str()}, pointer, problems);
    }

    static void ReadZooms(const Json& json, StyleLayer& layer)
    {
        if (const auto zoom = json.find("minzoom"); zoom != json.end() && zoom->is_number())
            layer.minZoom = zoom->get<double>();
        if (const auto zoom = json.find("maxzoom"); zoom != json.end() && zoom->is_number())
            layer.maxZoom = zoom->get<double>();
    }

    void CheckSource(const Json& json, const LayerRules& rules, const std::string& pointer)
    {
        if (*rules.sources == '\0')
            return;
        if (!json.contains("source"))
            return problems.Add(pointer, "\"source\" is missing");
        const std::string name = TextOf(json, "source");
        const StyleSource* const source = style.FindSource(name);
        // What is wrong with a source is not said again for each of its layers.
        if (!source && !IsWritten(name))
            return problems.Add(PointerTo(pointer, "source"), "there is no source \"" + name + "\"");
        if (!source)
            return;
        if (!HasWord(rules.sources, source->type))
            return problems.Add(PointerTo(pointer, "source"), std::string("a layer of type ") + rules.name +
                                                                  " cannot draw a source of type " + source->type);
        if (source->type == "vector" && !json.contains("source-layer"))
            problems.Add(pointer, "\"source-layer\" is missing");
    }

    bool IsWritten(const std::string& source) const
    {
        const auto sources = root.find("sources");
        return sources != root.end() && sources->is_object() && sources->contains(source);
    }

    /// How far a line has got is known of lines that are not cut into tiles.
    void CheckGradient(const Json& json, const std::string& pointer)
    {
        const auto paint = json.find("paint");
        if (paint == json.end() || !paint->is_object() || !paint->contains("line-gradient"))
            return;
        const StyleSource* const source = style.FindSource(TextOf(json, "source"));
        if (source && (source->type != "geojson" || source->json.value("lineMetrics", Json()) != true))
            problems.Add(PointerTo(PointerTo(pointer, "paint"), "line-gradient"),
                         "needs a source of type geojson with \"lineMetrics\"");
    }

    void ReadProperties(const Json& json, const char* group, const RuleList& rules, StyleLayer& layer)
    {
        const std::string pointer = PointerTo(layer.pointer, group);
        if (const auto found = json.find(group); found != json.end() && found->is_object())
            for (const auto& [name, value] : found->items())
                ReadOne(name, value, group, rules, PointerTo(pointer, name), layer);
        for (const MemberRule& rule : rules)
            if (layer.properties.count(rule.name) == 0)
                if (auto fallback = DefaultOf(rule))
                    layer.properties.emplace(rule.name, std::move(*fallback));
    }

    void ReadOne(const std::string& name, const Json& value, const char* group, const RuleList& rules,
                 const std::string& pointer, StyleLayer& layer)
    {
        static const std::string kSuffix = "-transition";
        if (const MemberRule* const rule = rules.Find(name))
        {
            if (EndsWith(name, "-layer-blend") && (value == "color" || value == "luminosity"))
                problems.AddUnsupported(pointer, value.get<std::string>() + ": this way of blending is not drawn");
            auto property = ReadProperty(value, *rule, pointer, problems);
            if (std::string(group) == "layout")
                property = WithoutState(std::move(property), pointer, "layout properties");
            if (property)
                layer.properties.emplace(name, std::move(*property));
        }
        else if (std::string(group) == "paint" && EndsWith(name, kSuffix) &&
                 rules.Find(name.substr(0, name.size() - kSuffix.size())))
        {
            // A picture does not move, so that transitions are checked and otherwise left alone.
            if (RequireKind(value, "object", pointer, problems))
                CheckMembers(value, ListOf(kTransition), pointer, problems);
        }
        else
            problems.Add(pointer, "unknown property");
    }

    /// Which features are drawn, and in what order, is decided before applications give them a state.
    std::optional<Expression> WithoutState(std::optional<Expression> expression, const std::string& pointer,
                                           const char* where)
    {
        if (!expression || expression->IsFeatureStateConstant())
            return expression;
        problems.Add(pointer, std::string("\"feature-state\" data expressions are not supported with ") + where + ".");
        return std::nullopt;
    }

    void ReadVisibility(StyleLayer& layer) const
    {
        EvaluationContext context;
        context.globalState = &style.globalState;
        if (const Expression* const visibility = layer.Find("visibility"))
            layer.visible = visibility->EvaluateOrDefault(context) != Value("none");
    }

    const Json& root;
    const Json& layers;
    MapStyle& style;
    StyleProblems& problems;
    std::map<std::string, std::string> places; ///< Where each id stands.
};

} // namespace

void ReadLayers(const Json& root, MapStyle& style, StyleProblems& problems)
{
    LayerReader(root, style, problems).ReadAll();
}

} // namespace txmap
