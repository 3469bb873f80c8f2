#include <txmap/symbols/RepeatedTexts.h>

#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

bool RepeatedTexts::Add(const std::string& text, const TXPoint& point)
{
    std::map<Cell, std::vector<TXPoint>>& known = texts[text];
    // A cell is as large as the distance, so that what is too close lies in one that touches it.
    const double column = std::floor(point.x / distance);
    const double row = std::floor(point.y / distance);
    for (const double dx : {-1.0, 0.0, 1.0})
        for (const double dy : {-1.0, 0.0, 1.0})
            if (const auto found = known.find({column + dx, row + dy}); found != known.end())
                for (const TXPoint& other : found->second)
                    if (std::hypot(other.x - point.x, other.y - point.y) < distance)
                        return false;
    known[{column, row}].push_back(point);
    return true;
}

} // namespace txmap
