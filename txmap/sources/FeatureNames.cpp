#include <txmap/sources/FeatureNames.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

namespace txmap
{
namespace
{

using Kind = Value::Kind;

const std::vector<std::string> kNames = {"name", "name_en", "name_long", "nameascii", "admin"};
const std::vector<std::string> kCapitals = {"adm0cap", "capital"};
// Codes of GeoNames, and the classes of Natural Earth.
const std::vector<std::string> kCodes = {"fcode", "feature_code", "featureCode", "featurecla"};
const std::vector<std::string> kRanks = {"labelrank", "scalerank"};
const std::vector<std::string> kPopulations = {"pop_max", "population", "pop", "gn_pop", "pop_est"};

// The rank of what has none.
constexpr double kLastRank = 1e9;
// Where there are no ranks, ten million people make the first, and each half as many digits the next.
constexpr double kDigitsOfFirstRank = 7.0;
constexpr double kRanksPerDigit = 2.0;
// A part of a town comes after all towns.
constexpr double kRankOfParts = 20.0;

std::string Cased(std::string text, int (*convert)(int))
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [&](unsigned char c) { return static_cast<char>(convert(c)); });
    return text;
}

std::string TextOf(const Value* value)
{
    const bool isText = value && (value->Is(Kind::String) || value->Is(Kind::Number) || value->Is(Kind::Boolean));
    return isText ? value->ToString() : "";
}

double RankOfPopulation(double population)
{
    return std::max(0.0, std::round((kDigitsOfFirstRank - std::log10(std::max(1.0, population))) * kRanksPerDigit));
}

} // namespace

std::vector<std::string> FieldSpellings(const std::string& name)
{
    std::string first = Cased(name, &std::tolower);
    if (!first.empty())
        first[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(first[0])));
    return {name, Cased(name, &std::tolower), Cased(name, &std::toupper), first};
}

std::string FirstField(const FeatureSet& set, const std::vector<std::string>& names)
{
    for (const std::string& name : names)
        for (const std::string& spelling : FieldSpellings(name))
            if (set.keyNumbers.count(spelling) > 0)
                return spelling;
    return {};
}

FeatureNames::FeatureNames(const NameRequest& request, const FeatureSet& set) : set(set), wanted(request.wanted)
{
    nameField = FirstField(set, request.field.empty() ? kNames : std::vector<std::string>{request.field});
    capitalField = FirstField(set, kCapitals);
    codeField = FirstField(set, kCodes);
    rankField = FirstField(set, kRanks);
    populationField = FirstField(set, kPopulations);
}

std::vector<std::string> FeatureNames::Fields(const NameRequest& request)
{
    std::vector<std::string> fields;
    for (const auto& names : {kNames, kCapitals, kCodes, kRanks, kPopulations, {request.field}})
        for (const std::string& name : names)
            for (const std::string& spelling : FieldSpellings(name))
                fields.push_back(spelling);
    return fields;
}

double FeatureNames::NumberOr(double otherwise, const SetFeature& feature, const std::string& field) const
{
    const Value* const value = field.empty() ? nullptr : set.Property(feature, field);
    if (!value)
        return otherwise;
    if (value->Is(Kind::Number))
        return std::isfinite(value->Number()) ? value->Number() : otherwise;
    if (!value->Is(Kind::String) || value->String().empty())
        return otherwise;
    char* end = nullptr;
    const double number = std::strtod(value->String().c_str(), &end);
    return *end == '\0' && std::isfinite(number) ? number : otherwise;
}

bool FeatureNames::IsCapital(const SetFeature& feature) const
{
    if (!capitalField.empty())
    {
        const std::string text = TextOf(set.Property(feature, capitalField));
        if (text == "1" || text == "true" || text == "yes" || text == "Y" || text == "primary")
            return true;
    }
    const std::string code = codeField.empty() ? "" : TextOf(set.Property(feature, codeField));
    return code == "PPLC" || code == "Admin-0 capital";
}

FeatureName FeatureNames::Of(const SetFeature& feature) const
{
    FeatureName name;
    if (!wanted || nameField.empty())
        return name;
    name.text = TextOf(set.Property(feature, nameField));
    if (name.text.empty())
        return name;
    name.capital = IsCapital(feature);
    name.population = NumberOr(0.0, feature, populationField);
    if (!rankField.empty())
        name.rank = NumberOr(kLastRank, feature, rankField);
    else if (!populationField.empty() && feature.type == GeometryType::Point)
        name.rank = RankOfPopulation(name.population);
    if (!codeField.empty() && TextOf(set.Property(feature, codeField)) == "PPLX")
        name.rank = std::max(name.rank, kRankOfParts);
    return name;
}

std::string MissingNames(const NameRequest& request)
{
    return request.field.empty()
               ? "--labels: no layer of countries or places has an attribute name; --label-field picks another"
               : "--label-field " + request.field + ": no layer of countries or places has this attribute";
}

} // namespace txmap
