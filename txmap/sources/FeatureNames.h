#pragma once

#include <string>
#include <vector>

#include <txmap/map/MapLayer.h>
#include <txmap/sources/FeatureSet.h>

namespace txmap
{

/// Which names are read.
struct NameRequest
{
    bool wanted = false;
    std::string field; ///< The attribute that holds the names; empty for what each layer offers.
};

/// The names that attributes may be found under, in the cases that data has them in: as given, all small, all capital,
/// and with a capital first letter.
std::vector<std::string> FieldSpellings(const std::string& name);

/// The first attribute that a set has, in whatever case; empty for none.
std::string FirstField(const FeatureSet& set, const std::vector<std::string>& names);

/// Takes the names of features, and what says how much they matter, from the attributes of a set.
class FeatureNames
{
public:
    /// @param set must outlive this object.
    FeatureNames(const NameRequest& request, const FeatureSet& set);

    /// The attributes that may say something.
    static std::vector<std::string> Fields(const NameRequest& request);

    /// The name of a feature; none where it has none, or no names are wanted.
    FeatureName Of(const SetFeature& feature) const;
    /// The attribute that holds the names; empty if there is none.
    const std::string& Field() const { return nameField; }
    /// The attributes that say how much features matter; empty if there are none.
    const std::string& RankField() const { return rankField; }
    const std::string& PopulationField() const { return populationField; }

private:
    double NumberOr(double otherwise, const SetFeature& feature, const std::string& field) const;
    bool IsCapital(const SetFeature& feature) const;

    const FeatureSet& set;
    bool wanted;
    std::string nameField;
    std::string capitalField;
    std::string codeField;
    std::string rankField;
    std::string populationField;
};

/// The message for names that no layer has.
std::string MissingNames(const NameRequest& request);

} // namespace txmap
