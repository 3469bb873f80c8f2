#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace txmap
{

/// The space in which two colours are mixed.
enum class ColorSpace
{
    Rgb,
    Hcl, ///< Hue, chroma and lightness of CIELAB: hues change at the same lightness.
    Lab  ///< CIELAB, white point D50.
};

/// A colour of sRGB. The channels are from 0 to 1 and not multiplied by the opacity, so that a colour of no opacity
/// still has a hue that takes part in mixing.
struct Color
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 1.0;

    /// Red, green and blue times the opacity, and the opacity.
    std::array<double, 4> Premultiplied() const { return {red * alpha, green * alpha, blue * alpha, alpha}; }
    /// As CSS writes it: "rgba(85,255,0,0.5)".
    std::string ToString() const;

    /// Reads a CSS colour: a name, hexadecimal digits, rgb() or hsl() in the old and the new notation.
    static std::optional<Color> Parse(std::string_view text);
    /// The colour between two others; `position` is 0 at `from` and 1 at `to`.
    static Color Mix(const Color& from, const Color& to, double position, ColorSpace space);
};

inline bool operator==(const Color& a, const Color& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}
inline bool operator!=(const Color& a, const Color& b) { return !(a == b); }

} // namespace txmap
