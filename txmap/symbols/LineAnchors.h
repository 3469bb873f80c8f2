#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// What a symbol needs of the line that it stands on. Lengths are in the units of the line.
struct LineAnchorNeeds
{
    double spacing = 250.0;   ///< Between the middles of two symbols.
    double labelLength = 0.0; ///< Along the line.
    double textSize = 16.0;
    bool hasText = true;      ///< Icons alone may stand at any corner.
    double maxAngle = 45.0;   ///< Degrees by which the line may turn below a few letters.
    double overscaling = 1.0; ///< How many times larger its tile is than usual.
    bool isContinued = false; ///< Whether the line goes on before its first point, in another tile.
};

/// A place for the middle of a symbol on a line.
struct LineAnchor
{
    TZObjects::TXPoint point;
    double distance = 0.0; ///< From the start of the line, along it.
    double angle = 0.0;    ///< Of the line there, in radians, clockwise from eastward.
};

/// Where symbols stand along a line: one after the other at equal distances, of which none is left where the symbol
/// would reach beyond an end of the line or the line turns too much; at least one in the middle if it fits there.
std::vector<LineAnchor> AnchorsAlong(const std::vector<TZObjects::TXPoint>& line, const LineAnchorNeeds& needs);

/// The middle of a line, unless the line turns too much there or is shorter than the symbol.
std::optional<LineAnchor> MiddleAnchor(const std::vector<TZObjects::TXPoint>& line, const LineAnchorNeeds& needs);

} // namespace txmap
