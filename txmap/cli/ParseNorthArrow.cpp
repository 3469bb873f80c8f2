#include <txmap/cli/ParseNorthArrow.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include <txmap/cli/OptionValues.h>

namespace txmap
{
namespace
{

struct Corner
{
    std::string_view name;
    bool left;
    bool bottom;
};

constexpr std::array<Corner, 4> kCorners = {{{"top-left", true, false},
                                             {"top-right", false, false},
                                             {"bottom-left", true, true},
                                             {"bottom-right", false, true}}};

} // namespace

ArrowRequest ParseNorthArrow(const std::string& text)
{
    const std::size_t colon = text.find(':');
    const auto* const corner = std::find_if(kCorners.begin(), kCorners.end(),
                                            [&](const Corner& known) { return known.name == text.substr(0, colon); });
    if (corner == kCorners.end())
        Refuse("--north-arrow", text,
               "must be top-left, top-right, bottom-left or bottom-right, with an angle behind it if need be, such as "
               "top-right:15");
    if (colon == std::string::npos)
        return {corner->left, corner->bottom, 0.0};
    const std::vector<double> angle = NumbersIn<double>(text.substr(colon + 1), ',');
    // Written so that a NaN is refused as well.
    if (angle.size() != 1 || !(std::abs(angle[0]) <= 360.0))
        Refuse("--north-arrow", text, "the angle must be a number of degrees from -360 to 360");
    return {corner->left, corner->bottom, angle[0]};
}

} // namespace txmap
