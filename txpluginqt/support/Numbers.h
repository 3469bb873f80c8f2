#pragma once

#include <algorithm>
#include <cmath>

#include <txbase/TXPoint.h>

/// The farthest from 0 that an integer handed to Qt may lie: Qt adds a position and a size, or doubles a radius, in
/// int.
constexpr int kLargestInt = (1 << 30) - 1;

/// The farthest from 0 that a coordinate handed to Qt may lie; far beyond it Qt's rasteriser loops or divides by zero.
constexpr double kLargestCoordinate = 1e12;

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

/// True when every coordinate is one that Qt can draw.
inline bool AreDrawable(const TZObjects::TXPoint* points, long long count)
{
    bool drawable = true;
    // Without an early exit, so that the compiler can vectorise it: the usual answer is true.
    for (long long i = 0; i < count; ++i)
        drawable &= IsDrawable(points[i].x) & IsDrawable(points[i].y);
    return drawable;
}
