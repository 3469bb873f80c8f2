#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/RectangleClipper.h>

namespace txmap
{

/// A line in pixels.
using PixelLine = std::vector<TZObjects::TXPoint>;

/// The length of a line.
double LengthOf(const TZObjects::TXPoint* points, std::size_t count);

/// The line that runs beside another one, by so many pixels to the right of its direction; to the left if negative.
/// Corners keep their distance from both sides, sharp ones get an edge.
PixelLine OffsetLine(const TZObjects::TXPoint* points, std::size_t count, double offset);

/// A line whose sharp corners are replaced by two half as sharp, so close that nobody sees them apart: mitred joins
/// then look cut off, as they must where the mitre would be longer than @p limit times the width of the line.
PixelLine BluntCorners(const TZObjects::TXPoint* points, std::size_t count, double limit);

/// The part of a line between two lengths from its start.
PixelLine SubLine(const TZObjects::TXPoint* points, std::size_t count, double from, double to);

/// Appends the dashes of a line as parts of their own.
/// @param pattern the lengths of dash, gap, dash and so on, in pixels; with an odd number of them the last dash and
/// the first one are one. A pattern too fine to be seen gives the whole line.
/// @param phase how far into the pattern the line begins.
void AppendDashes(const TZObjects::TXPoint* points, std::size_t count, const std::vector<double>& pattern, double phase,
                  Parts& result);

} // namespace txmap
