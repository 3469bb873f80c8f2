#pragma once

#include <string>

#include <txmap/style/Value.h>

namespace txmap
{

/// How far a curve between two stops has come.
struct CurveShape
{
    enum class Kind
    {
        Exponential, ///< Linear with base 1.
        CubicBezier
    };

    Kind kind = Kind::Exponential;
    double base = 1.0;
    double x1 = 0.0; ///< The inner control points of a curve from (0, 0) to (1, 1).
    double y1 = 0.0;
    double x2 = 1.0;
    double y2 = 1.0;

    /// From 0 at `lower` to 1 at `upper`.
    double Position(double input, double lower, double upper) const;
};

/// The value between two others of one kind, which is one that can be mixed. Other kinds of space than RGB are for
/// colours.
/// @throw std::runtime_error where the two do not match, with the reason.
Value MixValues(const Value& from, const Value& to, double position, ColorSpace space);

} // namespace txmap
