#include <txgraphics/TXImage.h>

namespace TZObjects
{

TXImage::TXImage() = default;
TXImage::~TXImage() = default;

} // namespace TZObjects
