#include <txgraphics/TXGradient.h>

namespace TZObjects
{

TXGradient::TXGradient() = default;
TXGradient::TXGradient(const TXGradient& other) = default;
TXGradient& TXGradient::operator=(const TXGradient& other) = default;
TXGradient::~TXGradient() = default;

void* TXGradient::GetInternalObject() { return internalObject; }

} // namespace TZObjects
