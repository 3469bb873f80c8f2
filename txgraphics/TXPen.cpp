#include <txgraphics/TXPen.h>

namespace TZObjects
{

TXPen::TXPen() = default;
TXPen::~TXPen() = default;

bool TXPen::Create() { return Create(SolidLine, 1.0, TXColor::BLACK_, RoundCap, RoundJoin); }

} // namespace TZObjects
