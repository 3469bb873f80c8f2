#include <txmap/style/document/MemberRule.h>

#include <sstream>

namespace txmap
{
namespace
{

bool IsInterpolated(const std::string& type)
{
    for (const char* const mixed :
         {"number", "color", "padding", "numberArray", "colorArray", "variableAnchorOffsetCollection"})
        if (type == mixed)
            return true;
    return type.compare(0, 12, "array<number") == 0;
}

const char* PropertyType(Varies varies)
{
    switch (varies)
    {
    case Varies::Never:
    case Varies::State:
    case Varies::Zoom:
        break;
    case Varies::Feature:
        return "data-driven";
    case Varies::ZoomCrossFaded:
        return "cross-faded";
    case Varies::FeatureCrossFaded:
        return "cross-faded-data-driven";
    case Varies::LineProgress:
    case Varies::OtherRamp:
        return "color-ramp";
    }
    return "data-constant";
}

} // namespace

PropertySpec MemberRule::Spec() const
{
    PropertySpec spec;
    spec.type = type;
    if (spec.type.compare(0, 6, "array<") == 0)
    {
        const std::size_t comma = spec.type.find(',');
        if (comma != std::string::npos)
            spec.length = std::stoul(spec.type.substr(comma + 1));
        spec.item = spec.type.substr(6, (comma == std::string::npos ? spec.type.size() - 1 : comma) - 6);
        spec.type = "array";
    }
    spec.enumValues = Values();
    if (*fallback != '\0')
        spec.defaultValue = Json::parse(fallback);
    spec.dataDriven = varies == Varies::Feature || varies == Varies::FeatureCrossFaded;
    spec.zoomAllowed = spec.dataDriven || varies == Varies::Zoom || varies == Varies::ZoomCrossFaded;
    const bool fades = varies == Varies::ZoomCrossFaded || varies == Varies::FeatureCrossFaded;
    spec.interpolated = !fades && IsInterpolated(type);
    spec.tokens = tokens;
    spec.propertyType = PropertyType(varies);
    return spec;
}

std::vector<std::string> MemberRule::Values() const
{
    std::istringstream words(values);
    std::vector<std::string> names;
    for (std::string word; words >> word;)
        names.push_back(word);
    return names;
}

} // namespace txmap
