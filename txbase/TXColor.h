#pragma once

#include <txbase/Export.h>

namespace TZObjects
{

/// A colour of four 8-bit channels, not premultiplied. Alpha 0 is transparent, 255 opaque.
///
/// The packed form is 0xAARRGGBB: alpha in bits 24 to 31, red 16 to 23, green 8 to 15, blue 0 to 7.
class TXBASE_API TXColor
{
public:
    /// Opaque black.
    constexpr TXColor() noexcept = default;
    /// From channels; each is clamped to 0 to 255.
    constexpr TXColor(int r, int g, int b, int a) noexcept
        : red(Channel(r)), green(Channel(g)), blue(Channel(b)), alpha(Channel(a))
    {
    }
    /// From the packed form. Without @p withAlpha the alpha byte is ignored and the colour is opaque.
    constexpr TXColor(unsigned int value, bool withAlpha) noexcept
        : red(Byte(value, 16)), green(Byte(value, 8)), blue(Byte(value, 0)), alpha(withAlpha ? Byte(value, 24) : 255)
    {
    }
    TXColor(const TXColor&) = default;
    TXColor& operator=(const TXColor&) = default;
    virtual ~TXColor();

    /// The red channel, 0 to 255.
    unsigned char getR() const noexcept { return red; }
    /// The green channel, 0 to 255.
    unsigned char getG() const noexcept { return green; }
    /// The blue channel, 0 to 255.
    unsigned char getB() const noexcept { return blue; }
    /// The alpha channel, 0 (transparent) to 255 (opaque).
    unsigned char getA() const noexcept { return alpha; }

    /// The packed form 0xAARRGGBB.
    unsigned int GetColor() const noexcept { return getRGB(true); }
    /// The packed form; without @p withAlpha the alpha byte is 0.
    unsigned int getRGB(bool withAlpha) const noexcept;
    /// Takes the channels of a packed value; without @p withAlpha this colour keeps its own alpha.
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
