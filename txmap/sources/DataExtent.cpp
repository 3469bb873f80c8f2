#include <txmap/sources/DataExtent.h>

#include <algorithm>
#include <cmath>

#include <txmap/style/Value.h>

namespace txmap
{
namespace
{

// Around data, as a part of its size, and the least size of what is shown, in degrees.
constexpr double kRoomAround = 0.04;
constexpr double kSmallestView = 0.2;

std::string BoxText(const GeoBox& box)
{
    const auto degrees = [](double value) { return NumberText(std::round(value * 100.0) / 100.0 + 0.0); };
    return degrees(box.west) + "," + degrees(box.south) + "," + degrees(box.east) + "," + degrees(box.north);
}

} // namespace

void Include(std::optional<GeoBox>& all, const GeoBox& box)
{
    all = all ? GeoBox{std::min(all->west, box.west), std::min(all->south, box.south), std::max(all->east, box.east),
                       std::max(all->north, box.north)}
              : box;
}

GeoBox WithRoom(const GeoBox& box, double maxLatitude)
{
    const auto room = [](double size) { return std::max(size * kRoomAround, (kSmallestView - size) / 2.0); };
    const double across = room(box.east - box.west);
    const double along = room(box.north - box.south);
    // Of data beyond the map, the edge of the map is shown.
    const double south = std::clamp(box.south, -maxLatitude, maxLatitude);
    const double north = std::clamp(box.north, -maxLatitude, maxLatitude);
    return {box.west - across, std::max(south - along, -maxLatitude), box.east + across,
            std::min(north + along, maxLatitude)};
}

std::string EmptyMapText(const GeoBox& shown, const std::vector<DataPart>& parts)
{
    if (parts.empty() || std::any_of(parts.begin(), parts.end(), [](const DataPart& part) { return part.isSeen; }))
        return {};
    std::string text;
    for (const DataPart& part : parts)
        text += (text.empty() ? "" : ", ") + part.name +
                (part.extent ? " covers " + BoxText(*part.extent) : " has nothing there");
    return "nothing lies in the part of the world shown, " + BoxText(shown) + ": " + text;
}

} // namespace txmap
