#include <txgraphics/TXRadialGradient.h>

namespace TZObjects
{

TXRadialGradient::TXRadialGradient(double cx, double cy, double radius) : cx(cx), cy(cy), radius(radius) {}
TXRadialGradient::TXRadialGradient(const TXRadialGradient& other) = default;
TXRadialGradient& TXRadialGradient::operator=(const TXRadialGradient& other) = default;
TXRadialGradient::~TXRadialGradient() = default;

} // namespace TZObjects
