#include <txgraphics/TXRgn.h>

namespace TZObjects
{

TXRgn::TXRgn() = default;
TXRgn::~TXRgn() = default;

} // namespace TZObjects
