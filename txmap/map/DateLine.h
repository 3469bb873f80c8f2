#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/Mercator.h>

namespace txmap
{

/// @name Geometry that crosses the date line
/// Both work on the points from @p first on, in world coordinates, and may add some.
/// @{

/// Makes a line continuous: where two neighbouring points lie almost a world apart, the line went the other way, across
/// the date line, and what follows is moved by a world.
///
/// Almost a world is more than three quarters of it; less is a long straight line. What would lose all its width, such
/// as a parallel given by its two ends, did not cross the date line and stays as it is.
void UnwrapLine(std::vector<TZObjects::TXPoint>& points, std::size_t first);

/// The same for a closed ring. One that runs round a pole is closed along that edge of the world.
void UnwrapRing(std::vector<TZObjects::TXPoint>& points, std::size_t first, const MercatorBox& world);

/// @}

/// The columns that a ring covers.
struct WorldSpan
{
    double west = 0.0;
    double east = 1.0;
};

WorldSpan SpanOf(const std::vector<TZObjects::TXPoint>& points, std::size_t first);

/// Moves an inner ring by whole worlds so that it comes to lie in the outer one.
void MoveInto(const WorldSpan& outer, std::vector<TZObjects::TXPoint>& points, std::size_t first);

} // namespace txmap
