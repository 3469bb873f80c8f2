#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <txmap/style/Color.h>

namespace txmap
{

class FeatureSet;

/// Which areas get which colour.
struct AreaColors
{
    std::string field;                  ///< The attribute that decides; empty for the identifier.
    std::map<std::string, int> classes; ///< The class of each of its values, from 1; 0 for no colour of its own.
};

/// Colours between two, by a number.
struct ColorRamp
{
    std::string field;
    Color low;
    Color high;
    std::optional<double> from; ///< The number that has the low colour; nothing for the least that is seen.
    std::optional<double> to;   ///< The number that has the high colour; nothing for the greatest.
};

/// The numbers between which a ramp reaches.
struct RampRange
{
    std::string field; ///< As the set has it; empty if it has none.
    double low = 0.0;
    double high = 1.0;
    bool isLogarithmic = false; ///< For numbers of very different size.
};

RampRange RangeOf(const FeatureSet& set, const ColorRamp& ramp);

/// The attributes that colour areas: the one that is asked for, else those that data may have for it, best first.
std::vector<std::string> ColorFields(const std::string& colorBy);

/// Gives each value of an attribute a class. Whole numbers count round the classes; 0, negative numbers and the empty
/// text are none. All else is coloured so that neighbours differ, as far as there are classes, in the same way whatever
/// the order of the features.
/// @param colorBy the attribute; empty for what the set has.
/// @param classes how many classes there are, at least one.
AreaColors ColorAreas(const FeatureSet& set, const std::string& colorBy, int classes);

} // namespace txmap
