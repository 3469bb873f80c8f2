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

/// What becomes of corners when a line is moved.
struct OffsetCorners
{
    double limit = 4.0; ///< Mitres, in widths of the line, are no longer; other corners get an edge.
    bool round = false; ///< Whether that edge is an arc.
    bool meet = true;   ///< Whether both sides meet on the inner side of a corner, where they are long enough.
};

/// The line that runs beside another one, by so many pixels to the right of its direction; to the left if negative.
PixelLine OffsetLine(const TZObjects::TXPoint* points, std::size_t count, double offset,
                     const OffsetCorners& corners = {});

/// A line of some width whose mitred joins are bevelled where they would be longer than @p limit times the width. Each
/// such corner becomes two, between which the edge of the stroke is the bevel.
PixelLine BevelSharpCorners(const TZObjects::TXPoint* points, std::size_t count, double width, double limit);

/// The part of a line between two lengths from its start.
PixelLine SubLine(const TZObjects::TXPoint* points, std::size_t count, double from, double to);

/// Appends the dashes of a line as parts of their own.
/// @param pattern the lengths of dash, gap, dash and so on, in pixels; with an odd number of them the last dash and
/// the first one are one, as are those with a gap of 0 between. A pattern without gaps, or too fine to be seen, gives
/// the whole line.
/// @param phase how far into the pattern the line begins.
void AppendDashes(const TZObjects::TXPoint* points, std::size_t count, const std::vector<double>& pattern, double phase,
                  Parts& result);

} // namespace txmap
