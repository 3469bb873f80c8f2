#pragma once

#include <txbase/Export.h>

namespace TZObjects
{

/// A colour of four 8-bit channels: red, green, blue and alpha. The channels are not premultiplied.
///
/// The packed form is 0xAARRGGBB: alpha in bits 24 to 31, red in 16 to 23, green in 8 to 15, blue in 0 to 7.
class TXBASE_API TXColor
{
public:
    /// Makes opaque black, the default colour.
    constexpr TXColor() noexcept = default;
    /// Makes a colour from channels. A number below 0 counts as 0, one above 255 as 255.
    /// @param r,g,b red, green and blue.
    /// @param a alpha, from 0 (transparent) to 255 (opaque).
    constexpr TXColor(int r, int g, int b, int a) noexcept
        : red(Channel(r)), green(Channel(g)), blue(Channel(b)), alpha(Channel(a))
    {
    }
    /// Makes a colour from the packed form.
    /// @param value the packed form, 0xAARRGGBB.
    /// @param withAlpha takes alpha from @p value; otherwise the colour is opaque.
    constexpr TXColor(unsigned int value, bool withAlpha) noexcept
        : red(Byte(value, 16)), green(Byte(value, 8)), blue(Byte(value, 0)), alpha(withAlpha ? Byte(value, 24) : 255)
    {
    }
    /// Copies all four channels.
    TXColor(const TXColor&) = default;
    /// Copies all four channels.
    TXColor& operator=(const TXColor&) = default;
    virtual ~TXColor();

    /// Returns red, 0 to 255.
    unsigned char getR() const noexcept { return red; }
    /// Returns green, 0 to 255.
    unsigned char getG() const noexcept { return green; }
    /// Returns blue, 0 to 255.
    unsigned char getB() const noexcept { return blue; }
    /// Returns alpha, from 0 (transparent) to 255 (opaque).
    unsigned char getA() const noexcept { return alpha; }

    /// Returns the packed form, 0xAARRGGBB.
    unsigned int GetColor() const noexcept { return getRGB(true); }
    /// Returns the packed form. Without @p withAlpha its alpha byte is 0.
    unsigned int getRGB(bool withAlpha) const noexcept;
    /// Sets the channels from the packed form @p value. Without @p withAlpha this colour keeps its alpha.
    void setColor(unsigned int value, bool withAlpha) noexcept;

    static const TXColor BLACK_; ///< Opaque black.
    static const TXColor WHITE_; ///< Opaque white.
    static const TXColor RED_;   ///< Opaque red.

private:
    static constexpr unsigned char Channel(int value)
    {
        return static_cast<unsigned char>(value < 0 ? 0 : value > 255 ? 255 : value);
    }
    static constexpr unsigned char Byte(unsigned int value, int shift)
    {
        return static_cast<unsigned char>(value >> shift & 0xFFu);
    }

    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    unsigned char alpha = 255;
};

} // namespace TZObjects
