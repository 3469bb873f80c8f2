#include <txmap/atlas/AreaColors.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <set>

#include <txmap/atlas/Adjacency.h>
#include <txmap/sources/FeatureNames.h>

namespace txmap
{
namespace
{

// From this many times the least number on, the greatest would leave all others in one colour.
constexpr double kFarApart = 500.0;

std::optional<long long> WholeNumber(const std::string& text)
{
    long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// A number that depends on the text alone, on every machine.
std::uint32_t Hash(const std::string& text)
{
    std::uint32_t hash = 2166136261u;
    for (const unsigned char c : text)
        hash = (hash ^ c) * 16777619u;
    return hash ^ hash >> 15;
}

/// The class that fewest neighbours have; among equals the first from that which the text itself suggests, so that an
/// area mostly has the same colour on maps of different places.
int Choose(const std::string& text, const std::set<std::size_t>& neighbours, const std::vector<int>& given, int classes)
{
    std::vector<int> taken(static_cast<std::size_t>(classes) + 1);
    for (const std::size_t neighbour : neighbours)
        ++taken[static_cast<std::size_t>(given[neighbour])];
    const std::uint32_t first = Hash(text);
    int best = 0;
    for (int step = 0; step < classes; ++step)
    {
        const int candidate =
            static_cast<int>((first + static_cast<std::uint32_t>(step)) % static_cast<std::uint32_t>(classes)) + 1;
        if (best == 0 || taken[static_cast<std::size_t>(candidate)] < taken[static_cast<std::size_t>(best)])
            best = candidate;
    }
    return best;
}

} // namespace

RampRange RangeOf(const FeatureSet& set, const ColorRamp& ramp)
{
    RampRange range;
    range.field = FirstField(set, {ramp.field});
    if (range.field.empty())
        return range;
    double least = 1e300;
    double greatest = -1e300;
    for (const SetFeature& feature : set.features)
    {
        const Value* const value = set.Property(feature, range.field);
        if (!value || !value->Is(Value::Kind::Number) || !std::isfinite(value->Number()))
            continue;
        least = std::min(least, value->Number());
        greatest = std::max(greatest, value->Number());
    }
    if (least > greatest)
        return range;
    range.low = ramp.from.value_or(least);
    range.high = ramp.to.value_or(greatest);
    range.isLogarithmic = !ramp.from && range.low > 0.0 && range.high / range.low > kFarApart;
    if (!(range.high > range.low))
        range.high = range.low + 1.0;
    return range;
}

std::vector<std::string> ColorFields(const std::string& colorBy)
{
    // First those that are made for it.
    return colorBy.empty() ? std::vector<std::string>{"mapcolor", "mapcolor7", "name", "admin"}
                           : std::vector<std::string>{colorBy};
}

AreaColors ColorAreas(const FeatureSet& set, const std::string& colorBy, int classes)
{
    AreaColors colors;
    colors.field = FirstField(set, ColorFields(colorBy));
    std::map<std::string, std::size_t> numbers;
    std::vector<std::string> texts;
    std::vector<std::size_t> groups;
    for (const SetFeature& feature : set.features)
    {
        const Value* const value = colors.field.empty() ? &feature.id : set.Property(feature, colors.field);
        const std::string text = value ? value->ToString() : "";
        const std::optional<long long> number = colors.field.empty() ? std::nullopt : WholeNumber(text);
        std::size_t group = kNoGroup;
        if (number)
            colors.classes[text] = *number <= 0 ? 0 : static_cast<int>((*number - 1) % classes) + 1;
        else if (!text.empty())
        {
            group = numbers.emplace(text, texts.size()).first->second;
            if (group == texts.size())
                texts.push_back(text);
        }
        groups.push_back(group);
    }
    const std::vector<std::set<std::size_t>> neighbours = FindNeighbours(set, groups, texts.size());
    // Those with many neighbours first, while there is a choice.
    std::vector<std::size_t> order(texts.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b)
              {
                  return neighbours[a].size() != neighbours[b].size() ? neighbours[a].size() > neighbours[b].size()
                                                                      : texts[a] < texts[b];
              });
    std::vector<int> given(texts.size());
    // Of a few values, all differ.
    const bool allDiffer = texts.size() <= static_cast<std::size_t>(classes);
    std::set<std::size_t> before;
    for (const std::size_t group : order)
    {
        given[group] = Choose(texts[group], allDiffer ? before : neighbours[group], given, classes);
        before.insert(group);
        colors.classes[texts[group]] = given[group];
    }
    return colors;
}

} // namespace txmap
