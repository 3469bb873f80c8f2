#pragma once

#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// Drops points of a line on which it hardly bends: what is left passes all of them within a distance. Both ends stay.
/// The time grows with the number of points alone.
void DropStraightPoints(std::vector<TZObjects::TXPoint>& line, double distance);

} // namespace txmap
