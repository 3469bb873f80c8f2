#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/map/GeoBox.h>

namespace txmap
{

/// Enlarges a box so that it contains another one.
void Include(std::optional<GeoBox>& all, const GeoBox& box);
/// A box with a little room around, and not too small for a map. It stays within the latitudes of the map.
GeoBox WithRoom(const GeoBox& box, double maxLatitude);

/// What a map is made of, as far as its place goes.
struct DataPart
{
    std::string name;             ///< What it is called in messages.
    bool isSeen = false;          ///< Whether something of it lies in the view.
    std::optional<GeoBox> extent; ///< Where it lies; nothing if that is not known.
};

/// That nothing lies in a view, and where everything lies. Empty if something is seen, or there is nothing that could
/// be.
std::string EmptyMapText(const GeoBox& shown, const std::vector<DataPart>& parts);

} // namespace txmap
