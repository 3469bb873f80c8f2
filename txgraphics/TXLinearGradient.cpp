#include <txgraphics/TXLinearGradient.h>

namespace TZObjects
{

TXLinearGradient::TXLinearGradient(double x1, double y1, double x2, double y2) : x1(x1), y1(y1), x2(x2), y2(y2) {}
TXLinearGradient::TXLinearGradient(const TXLinearGradient& other) = default;
TXLinearGradient& TXLinearGradient::operator=(const TXLinearGradient& other) = default;
TXLinearGradient::~TXLinearGradient() = default;

} // namespace TZObjects
