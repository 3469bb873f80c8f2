#include <txbase/TXColor.h>

namespace TZObjects
{

const TXColor TXColor::BLACK_(0, 0, 0, 255);
const TXColor TXColor::WHITE_(255, 255, 255, 255);
const TXColor TXColor::RED_(255, 0, 0, 255);

TXColor::~TXColor() = default;

unsigned int TXColor::getRGB(bool withAlpha) const noexcept
{
    const unsigned int rgb = static_cast<unsigned int>(red) << 16 | static_cast<unsigned int>(green) << 8 | blue;
    return withAlpha ? rgb | static_cast<unsigned int>(alpha) << 24 : rgb;
}

void TXColor::setColor(unsigned int value, bool withAlpha) noexcept
{
    red = Byte(value, 16);
    green = Byte(value, 8);
    blue = Byte(value, 0);
    if (withAlpha)
        alpha = Byte(value, 24);
}

} // namespace TZObjects
