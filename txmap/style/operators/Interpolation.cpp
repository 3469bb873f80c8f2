#include <txmap/style/operators/Interpolation.h>

#include <cmath>
#include <stdexcept>

namespace txmap
{
namespace
{

using Kind = Value::Kind;

double Mix(double from, double to, double position) { return from + position * (to - from); }

// One coordinate of a cubic Bézier curve from 0 to 1.
double Bezier(double a, double b, double t)
{
    const double s = 1.0 - t;
    return 3.0 * s * s * t * a + 3.0 * s * t * t * b + t * t * t;
}

double BezierSlope(double a, double b, double t)
{
    const double s = 1.0 - t;
    return 3.0 * s * s * a + 6.0 * s * t * (b - a) + 3.0 * t * t * (1.0 - b);
}

// The parameter at which x is reached. x grows with it, because the control points are from 0 to 1. Newton's method is
// fast; where the curve is too flat for it, halving takes over.
double BezierParameter(double a, double b, double x)
{
    constexpr double kTolerance = 1e-12;
    double t = x;
    for (int i = 0; i < 8; ++i)
    {
        const double error = Bezier(a, b, t) - x;
        if (std::fabs(error) < kTolerance)
            return t;
        const double slope = BezierSlope(a, b, t);
        if (std::fabs(slope) < 1e-6)
            break;
        t -= error / slope;
    }
    double low = 0.0;
    double high = 1.0;
    for (int i = 0; i < 60; ++i)
    {
        t = 0.5 * (low + high);
        (Bezier(a, b, t) < x ? low : high) = t;
    }
    return t;
}

std::string LengthMismatch(const char* what, std::size_t from, std::size_t to)
{
    return std::string(what) + ": Arrays have mismatched length (" + std::to_string(from) + " vs. " +
           std::to_string(to) + "), cannot interpolate.";
}

Value MixArrays(const ValueArray& from, const ValueArray& to, double position)
{
    if (from.size() != to.size())
        throw std::runtime_error(LengthMismatch("array", from.size(), to.size()));
    ValueArray mixed;
    for (std::size_t i = 0; i < from.size(); ++i)
        mixed.emplace_back(Mix(from[i].Number(), to[i].Number(), position));
    return mixed;
}

Value MixNumbers(const std::vector<double>& from, const std::vector<double>& to, double position)
{
    if (from.size() != to.size())
        throw std::runtime_error(LengthMismatch("numberArray", from.size(), to.size()));
    NumberArray mixed;
    for (std::size_t i = 0; i < from.size(); ++i)
        mixed.values.push_back(Mix(from[i], to[i], position));
    return mixed;
}

Value MixColors(const std::vector<Color>& from, const std::vector<Color>& to, double position, ColorSpace space)
{
    if (from.size() != to.size())
        throw std::runtime_error(LengthMismatch("colorArray", from.size(), to.size()));
    ColorArray mixed;
    for (std::size_t i = 0; i < from.size(); ++i)
        mixed.values.push_back(Color::Mix(from[i], to[i], position, space));
    return mixed;
}

Value MixAnchors(const Value& from, const Value& to, double position)
{
    const auto& a = from.AnchorOffsets().entries;
    const auto& b = to.AnchorOffsets().entries;
    if (a.size() != b.size())
        throw std::runtime_error("Cannot interpolate values of different length. from: " + from.ToString() +
                                 ", to: " + to.ToString());
    VariableAnchorOffsets mixed;
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        if (a[i].anchor != b[i].anchor)
        {
            const std::string index = std::to_string(2 * i);
            throw std::runtime_error("Cannot interpolate values containing mismatched anchors. from[" + index +
                                     "]: " + a[i].anchor + ", to[" + index + "]: " + b[i].anchor);
        }
        mixed.entries.push_back(
            {a[i].anchor,
             {Mix(a[i].offset[0], b[i].offset[0], position), Mix(a[i].offset[1], b[i].offset[1], position)}});
    }
    return mixed;
}

Value MixPaddings(const Padding& from, const Padding& to, double position)
{
    Padding mixed;
    for (std::size_t i = 0; i < mixed.values.size(); ++i)
        mixed.values[i] = Mix(from.values[i], to.values[i], position);
    return mixed;
}

} // namespace

double CurveShape::Position(double input, double lower, double upper) const
{
    const double range = upper - lower;
    const double progress = input - lower;
    if (range == 0.0)
        return 0.0;
    if (kind == Kind::CubicBezier)
        return Bezier(y1, y2, BezierParameter(x1, x2, progress / range));
    if (base == 1.0)
        return progress / range;
    return (std::pow(base, progress) - 1.0) / (std::pow(base, range) - 1.0);
}

Value MixValues(const Value& from, const Value& to, double position, ColorSpace space)
{
    if (from.GetKind() != to.GetKind())
        throw std::runtime_error("Values of different types cannot be interpolated.");
    switch (from.GetKind())
    {
    case Kind::Number:
        return Mix(from.Number(), to.Number(), position);
    case Kind::Color:
        return Color::Mix(from.GetColor(), to.GetColor(), position, space);
    case Kind::Array:
        return MixArrays(from.Array(), to.Array(), position);
    case Kind::Padding:
        return MixPaddings(from.GetPadding(), to.GetPadding(), position);
    case Kind::NumberArray:
        return MixNumbers(from.Numbers().values, to.Numbers().values, position);
    case Kind::ColorArray:
        return MixColors(from.Colors().values, to.Colors().values, position, space);
    case Kind::VariableAnchorOffsets:
        return MixAnchors(from, to, position);
    case Kind::String: // two projections
        return ProjectionTransition{from.String(), to.String(), position};
    default:
        throw std::runtime_error("Values of this type cannot be interpolated.");
    }
}

} // namespace txmap
