#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// Finds out which texts are too close to the same text in the same tile.
class RepeatedTexts
{
public:
    /// @param distance between two of the same, above 0.
    explicit RepeatedTexts(double distance) : distance(distance) {}

    /// Adds a text at a point. @return false, without adding it, if the same text is too close.
    bool Add(const std::string& text, const TZObjects::TXPoint& point);

private:
    using Cell = std::pair<double, double>;

    double distance;
    std::map<std::string, std::map<Cell, std::vector<TZObjects::TXPoint>>> texts;
};

} // namespace txmap
