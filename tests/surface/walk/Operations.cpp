#include "Operations.h"

#include <ostream>

using namespace TZObjects;

TXRect SomeRect(Random& random)
{
    const double left = random.Coordinate();
    const double top = random.Coordinate();
    const double width = random.Length();
    return {left, left + width, top, top + random.Length()};
}

namespace TZObjects
{

void PrintTo(const TXPoint& point, std::ostream* out) { *out << '(' << point.x << ", " << point.y << ')'; }

void PrintTo(const TXRect& rect, std::ostream* out)
{
    *out << '[' << rect.left << ", " << rect.right << ", " << rect.top << ", " << rect.bottom << ']';
}

void PrintTo(const TXColor& color, std::ostream* out) { *out << "0x" << std::hex << color.GetColor() << std::dec; }

void PrintTo(const TXString& text, std::ostream* out) { *out << '"' << TXString(text).toUTF8() << '"'; }

void PrintTo(const TXGraphics::stGradientParams& gradient, std::ostream* out)
{
    *out << "gradient " << gradient.type << " from ";
    PrintTo(gradient.startColor, out);
    *out << " to ";
    PrintTo(gradient.endColor, out);
    *out << " at " << gradient.angle << ", middle " << gradient.middle;
}

} // namespace TZObjects

void PrintTo(const Rings& rings, std::ostream* out)
{
    *out << ::testing::PrintToString(rings.counts) << " points " << ::testing::PrintToString(rings.points);
}

void PrintTo(const ImagePart& part, std::ostream* out) { PrintTo(static_cast<const TXRect&>(part), out); }
