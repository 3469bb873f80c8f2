#pragma once

namespace TZObjects
{

/// A position: x to the right, y downward, in the units of the surface unless an operation names others.
///
/// A point holds its two coordinates and nothing else. Backends read an array of points in place, as pairs of doubles.
struct TXPoint
{
    /// Makes the origin.
    constexpr TXPoint() = default;
    /// Makes a point from its coordinates.
    constexpr TXPoint(double x, double y) : x(x), y(y) {}

    double x = 0.0; ///< Distance from the origin to the right.
    double y = 0.0; ///< Distance from the origin downward.
};

static_assert(sizeof(TXPoint) == 2 * sizeof(double), "backends read point arrays as pairs of doubles");

} // namespace TZObjects
