#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <txbase/TXPoint.h>

namespace txqt
{

/// The farthest from 0 that an integer handed to Qt may lie: Qt adds a position and a size, or doubles a radius, in
/// int.
constexpr int kLargestInt = (1 << 30) - 1;

/// The farthest from 0 that a coordinate handed to Qt may lie; far beyond it Qt's rasteriser loops or divides by zero.
constexpr double kLargestCoordinate = 1e12;

constexpr double kPi = 3.141592653589793;

/// To int, toward zero. Defined for every double: NaN gives 0 and what is out of range saturates at ±kLargestInt.
inline int Truncated(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp(value, -double(kLargestInt), double(kLargestInt)));
}

/// To the nearest whole number, halves away from zero, without leaving double.
inline double RoundedHalfAway(double value) { return std::trunc(value >= 0.0 ? value + 0.5 : value - 0.5); }

/// To the nearest int, halves away from zero; NaN and out of range as in `Truncated`.
inline int RoundHalfAway(double value) { return Truncated(RoundedHalfAway(value)); }

/// An int that Qt may add to or double.
inline int Clamped(int value) { return std::clamp(value, -kLargestInt, kLargestInt); }

/// True for a coordinate that Qt can draw; false for NaN, infinities and what lies beyond kLargestCoordinate.
inline bool IsDrawable(double coordinate) { return std::abs(coordinate) <= kLargestCoordinate; }

template <class... Rest>
bool IsDrawable(double first, Rest... rest)
{
    return IsDrawable(first) && IsDrawable(rest...);
}

/// A number's representation, for keys that must tell apart whatever is not the same.
inline std::int64_t BitsOf(double value)
{
    std::int64_t bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// True when every coordinate is one that Qt can draw.
inline bool AreDrawable(const TZObjects::TXPoint* points, long long count)
{
    // As whole numbers, representations without their signs are in the order of the absolute values, with what is not
    // finite beyond. Differences are negative for what is too large; without a comparison and an early exit the
    // compiler vectorises them, and the usual answer is true.
    const std::int64_t largest = BitsOf(kLargestCoordinate);
    constexpr std::int64_t magnitude = std::numeric_limits<std::int64_t>::max();
    std::int64_t signs = 0;
    for (long long i = 0; i < count; ++i)
        signs |= (largest - (BitsOf(points[i].x) & magnitude)) | (largest - (BitsOf(points[i].y) & magnitude));
    return signs >= 0;
}

} // namespace txqt
