#pragma once

namespace TZObjects
{

/// A position: x to the right and y downward, in the units of the surface unless an operation says otherwise.
///
/// Nothing but the two coordinates is stored, so that an array of points is a plain array of x, y pairs, which drawing
/// backends read in place.
struct TXPoint
{
    /// The origin.
    constexpr TXPoint() = default;
    constexpr TXPoint(double x, double y) : x(x), y(y) {}

    double x = 0.0; ///< Distance from the origin to the right.
    double y = 0.0; ///< Distance from the origin downward.
};

static_assert(sizeof(TXPoint) == 2 * sizeof(double), "backends read point arrays as pairs of doubles");

} // namespace TZObjects
