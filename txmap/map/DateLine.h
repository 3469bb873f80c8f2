#pragma once

#include <memory>
#include <vector>

#include <txmap/map/View.h>

class OGRGeometry;
class OGRLineString;
class OGRPolygon;

namespace txmap
{

using PolygonPtr = std::unique_ptr<OGRPolygon>;

/// The box of a geometry.
GeoBox BoxOf(const OGRGeometry& geometry);

/// Makes the longitudes of a line continuous: where two neighbouring points lie almost a world apart, the line went the
/// other way, across the date line, and what follows is moved by 360 degrees.
///
/// Almost a world is more than 270 degrees; less is a long straight line. What would lose all its width, such as a
/// parallel given by its two ends, did not cross the date line and stays as it is.
void UnwrapLine(OGRLineString& line);

/// Makes the longitudes of a polygon's rings continuous. A ring that runs round the pole is closed beyond it; inner
/// rings come to lie in the outer one.
void UnwrapPolygon(OGRPolygon& polygon);

/// True when a polygon ends at a date line, at -180 or 180 degrees, where data is usually cut, or spans the world.
bool EndsAtDateLine(const OGRPolygon& polygon);

/// Joins what was cut at the date line: the polygons of one shape, and themselves one world to the west and to the
/// east, become one shape without seams. What ends at the pole goes on beyond it, off every map.
/// @return the joined polygons, three worlds wide; nothing when the geometry library cannot join them.
std::vector<PolygonPtr> JoinAcrossDateLine(const std::vector<PolygonPtr>& polygons);

} // namespace txmap
