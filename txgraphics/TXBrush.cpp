#include <txgraphics/TXBrush.h>

namespace TZObjects
{

TXBrush::TXBrush() = default;
TXBrush::~TXBrush() = default;

void* TXBrush::GetInternalObject() { return internalObject; }

} // namespace TZObjects
