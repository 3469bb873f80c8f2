#include <txmap/drawing/layers/Hillshade.h>

#include <algorithm>
#include <cmath>

namespace txmap
{
namespace
{

constexpr double kPi = 3.14159265358979323846;

/// Channels from 0 to 1, premultiplied.
SampledColor Weighted(const Color& color, double weight)
{
    return {color.red * color.alpha * weight, color.green * color.alpha * weight, color.blue * color.alpha * weight,
            color.alpha * weight};
}

SampledColor Sum(const SampledColor& a, const SampledColor& b, double part = 1.0)
{
    return {a.red + b.red * part, a.green + b.green * part, a.blue + b.blue * part, a.alpha + b.alpha * part};
}

/// The direction in which the ground falls or rises, as an angle.
double Aspect(double dx, double dy)
{
    if (dx != 0.0)
        return std::atan2(dy, -dx);
    return kPi / 2.0 * (dy > 0.0 ? 1.0 : -1.0);
}

/// From 0 where the ground faces the light to 1 where it turns away.
double Turned(double aspect, double azimuth)
{
    double turns = std::fmod((aspect + azimuth) / kPi + 0.5, 2.0);
    if (turns < 0.0)
        turns += 2.0;
    return std::abs(turns - 1.0);
}

SampledColor Standard(const HillshadeLook& look, double dx, double dy)
{
    const HillshadeLight& light = look.lights.front();
    const double slope = std::atan(0.625 * std::hypot(dx, dy));
    const double intensity = look.exaggeration;
    const double base = 1.875 - intensity * 1.75;
    const double steepest = kPi / 2.0;
    const double scaled =
        intensity == 0.5 ? slope : (std::pow(base, slope) - 1.0) / (std::pow(base, steepest) - 1.0) * steepest;
    const double strength = std::clamp(intensity * 2.0, 0.0, 1.0);
    const SampledColor accent = Weighted(look.accent, (1.0 - std::cos(scaled)) * strength);
    const double lit = Turned(Aspect(dx, dy), light.azimuth + kPi);
    const double shading = std::sin(scaled) * strength;
    const SampledColor shade =
        Sum(Weighted(light.shadow, (1.0 - lit) * shading), Weighted(light.highlight, lit * shading));
    return Sum(shade, accent, 1.0 - shade.alpha);
}

/// The sine of the angle between the ground and the light.
double Illumination(const HillshadeLight& light, double dx, double dy)
{
    const double azimuth = light.azimuth + kPi;
    const double flat = std::cos(light.altitude);
    return (std::sin(light.altitude) - (dy * std::cos(azimuth) * flat - dx * std::sin(azimuth) * flat)) /
           std::sqrt(1.0 + dx * dx + dy * dy);
}

SampledColor Basic(const HillshadeLight& light, double dx, double dy)
{
    const double shade = std::clamp(Illumination(light, dx, dy), 0.0, 1.0);
    return shade > 0.5 ? Weighted(light.highlight, 2.0 * shade - 1.0) : Weighted(light.shadow, 1.0 - 2.0 * shade);
}

SampledColor Combined(const HillshadeLight& light, double dx, double dy)
{
    const double angle = std::clamp(std::acos(std::clamp(Illumination(light, dx, dy), -1.0, 1.0)), 0.0, kPi / 2.0);
    const double slope = std::atan(std::hypot(dx, dy)) * 4.0 / kPi / kPi;
    return Sum(Weighted(light.shadow, angle * slope), Weighted(light.highlight, (kPi / 2.0 - angle) * slope));
}

SampledColor Igor(const HillshadeLight& light, double dx, double dy)
{
    const double steep = std::atan(std::hypot(dx, dy)) * 2.0 / kPi;
    const double away = 1.0 - Turned(Aspect(dx, dy), light.azimuth + kPi);
    return Sum(Weighted(light.shadow, steep * away), Weighted(light.highlight, steep * (1.0 - away)));
}

SampledColor Shade(const HillshadeLook& look, double dx, double dy)
{
    if (look.method == "standard")
        return Standard(look, dx, dy);
    const double factor = look.exaggeration * 2.0;
    dx *= factor;
    dy *= factor;
    if (look.method == "combined")
        return Combined(look.lights.front(), dx, dy);
    if (look.method == "igor")
        return Igor(look.lights.front(), dx, dy);
    if (look.method == "basic")
        return Basic(look.lights.front(), dx, dy);
    SampledColor sum;
    for (const HillshadeLight& light : look.lights)
        sum = Sum(sum, Basic(light, dx, dy), 1.0 / static_cast<double>(look.lights.size()));
    return sum;
}

} // namespace

SampledColor HillshadeColor(const HillshadeLook& look, double eastward, double southward)
{
    const SampledColor shade = Shade(look, eastward, southward);
    return {shade.red * 255.0, shade.green * 255.0, shade.blue * 255.0, shade.alpha * 255.0};
}

} // namespace txmap
