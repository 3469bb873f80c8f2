#include <txmap/style/Color.h>

#include <cmath>
#include <limits>

#include <txmap/style/Value.h>

namespace txmap
{
namespace
{

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

/// A colour of CIELAB, or in its cylindrical form of hue, chroma and lightness.
struct LabColor
{
    double lightness = 0.0;
    double a = 0.0;
    double b = 0.0;
    double alpha = 1.0;
};

struct HclColor
{
    double hue = 0.0; ///< In degrees. NaN for grey, which has none.
    double chroma = 0.0;
    double lightness = 0.0;
    double alpha = 1.0;
};

// The white point D50, relative to which CIELAB is defined here.
constexpr double kWhiteX = 0.96422;
constexpr double kWhiteZ = 0.82521;
constexpr double kEdge = 6.0 / 29.0; // below this, cube roots give way to a straight line

double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Gamma(double light)
{
    const double channel = light <= 0.00304 ? 12.92 * light : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055;
    return channel < 0.0 ? 0.0 : channel > 1.0 ? 1.0 : channel;
}

double Compress(double light)
{
    return light > kEdge * kEdge * kEdge ? std::cbrt(light) : light / (3.0 * kEdge * kEdge) + 4.0 / 29.0;
}

double Expand(double value)
{
    return value > kEdge ? value * value * value : 3.0 * kEdge * kEdge * (value - 4.0 / 29.0);
}

LabColor ToLab(const Color& color)
{
    const double red = Linear(color.red);
    const double green = Linear(color.green);
    const double blue = Linear(color.blue);
    const double y = Compress(0.2225045 * red + 0.7168786 * green + 0.0606169 * blue);
    double x = y;
    double z = y;
    // Grey has no hue at all, not one from rounding.
    if (red != green || green != blue)
    {
        x = Compress((0.4360747 * red + 0.3850649 * green + 0.1430804 * blue) / kWhiteX);
        z = Compress((0.0139322 * red + 0.0971045 * green + 0.7141733 * blue) / kWhiteZ);
    }
    const double lightness = 116.0 * y - 16.0;
    return {lightness < 0.0 ? 0.0 : lightness, 500.0 * (x - y), 200.0 * (y - z), color.alpha};
}

Color FromLab(const LabColor& color)
{
    const double level = (color.lightness + 16.0) / 116.0;
    const double x = kWhiteX * Expand(level + color.a / 500.0);
    const double y = Expand(level);
    const double z = kWhiteZ * Expand(level - color.b / 200.0);
    return {Gamma(3.1338561 * x - 1.6168667 * y - 0.4906146 * z), Gamma(-0.9787684 * x + 1.9161415 * y + 0.0334540 * z),
            Gamma(0.0719453 * x - 0.2289914 * y + 1.4052427 * z), color.alpha};
}

HclColor ToHcl(const Color& color)
{
    const LabColor lab = ToLab(color);
    const double chroma = std::hypot(lab.a, lab.b);
    double hue = std::numeric_limits<double>::quiet_NaN();
    if (std::round(chroma * 10000.0) != 0.0)
    {
        hue = std::atan2(lab.b, lab.a) * kDegrees;
        hue += hue < 0.0 ? 360.0 : 0.0;
    }
    return {hue, chroma, lab.lightness, lab.alpha};
}

Color FromHcl(const HclColor& color)
{
    const double angle = std::isnan(color.hue) ? 0.0 : color.hue / kDegrees;
    return FromLab({color.lightness, std::cos(angle) * color.chroma, std::sin(angle) * color.chroma, color.alpha});
}

double Between(double from, double to, double position) { return from + position * (to - from); }

bool IsBlackOrWhite(const HclColor& color) { return color.lightness == 0.0 || color.lightness == 1.0; }

// Hues take the short way around the circle. A colour without a hue takes the other one's.
HclColor MixHcl(const HclColor& from, const HclColor& to, double position)
{
    HclColor mixed;
    mixed.chroma = Between(from.chroma, to.chroma, position);
    mixed.lightness = Between(from.lightness, to.lightness, position);
    mixed.alpha = Between(from.alpha, to.alpha, position);
    if (!std::isnan(from.hue) && !std::isnan(to.hue))
    {
        double turn = to.hue - from.hue;
        turn += turn > 180.0 ? -360.0 : turn < -180.0 ? 360.0 : 0.0;
        mixed.hue = from.hue + position * turn;
        return mixed;
    }
    mixed.hue = std::isnan(from.hue) ? to.hue : from.hue;
    if (!std::isnan(from.hue) && IsBlackOrWhite(to))
        mixed.chroma = from.chroma;
    else if (!std::isnan(to.hue) && IsBlackOrWhite(from))
        mixed.chroma = to.chroma;
    return mixed;
}

} // namespace

std::string Color::ToString() const
{
    const auto channel = [](double value) { return NumberText(std::floor(value * 255.0 + 0.5)); };
    return "rgba(" + channel(red) + "," + channel(green) + "," + channel(blue) + "," + NumberText(alpha) + ")";
}

Color Color::Mix(const Color& from, const Color& to, double position, ColorSpace space)
{
    switch (space)
    {
    case ColorSpace::Hcl:
        return FromHcl(MixHcl(ToHcl(from), ToHcl(to), position));
    case ColorSpace::Lab:
    {
        const LabColor a = ToLab(from);
        const LabColor b = ToLab(to);
        return FromLab({Between(a.lightness, b.lightness, position), Between(a.a, b.a, position),
                        Between(a.b, b.b, position), Between(a.alpha, b.alpha, position)});
    }
    default:
        return {Between(from.red, to.red, position), Between(from.green, to.green, position),
                Between(from.blue, to.blue, position), Between(from.alpha, to.alpha, position)};
    }
}

} // namespace txmap
