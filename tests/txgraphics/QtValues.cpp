// Backends hand these numbers to Qt as they are, so they must be Qt's. The compiler checks that here; nothing runs.
#include <QImage>
#include <QPainter>

#include <txgraphics/TXGraphics.h>

using TZObjects::TXGraphics;
using TZObjects::TXImage;

namespace
{

template <class Ours, class Qts>
constexpr bool Same(Ours ours, Qts qts)
{
    return static_cast<int>(ours) == static_cast<int>(qts);
}

using G = TXGraphics;
using P = QPainter;
static_assert(Same(G::CompositionMode_SourceOver, P::CompositionMode_SourceOver));
static_assert(Same(G::CompositionMode_DestinationOver, P::CompositionMode_DestinationOver));
static_assert(Same(G::CompositionMode_Clear, P::CompositionMode_Clear));
static_assert(Same(G::CompositionMode_Source, P::CompositionMode_Source));
static_assert(Same(G::CompositionMode_Destination, P::CompositionMode_Destination));
static_assert(Same(G::CompositionMode_SourceIn, P::CompositionMode_SourceIn));
static_assert(Same(G::CompositionMode_DestinationIn, P::CompositionMode_DestinationIn));
static_assert(Same(G::CompositionMode_SourceOut, P::CompositionMode_SourceOut));
static_assert(Same(G::CompositionMode_DestinationOut, P::CompositionMode_DestinationOut));
static_assert(Same(G::CompositionMode_SourceAtop, P::CompositionMode_SourceAtop));
static_assert(Same(G::CompositionMode_DestinationAtop, P::CompositionMode_DestinationAtop));
static_assert(Same(G::CompositionMode_Xor, P::CompositionMode_Xor));
static_assert(Same(G::CompositionMode_Plus, P::CompositionMode_Plus));
static_assert(Same(G::CompositionMode_Multiply, P::CompositionMode_Multiply));
static_assert(Same(G::CompositionMode_Screen, P::CompositionMode_Screen));
static_assert(Same(G::CompositionMode_Overlay, P::CompositionMode_Overlay));
static_assert(Same(G::CompositionMode_Darken, P::CompositionMode_Darken));
static_assert(Same(G::CompositionMode_Lighten, P::CompositionMode_Lighten));
static_assert(Same(G::CompositionMode_ColorDodge, P::CompositionMode_ColorDodge));
static_assert(Same(G::CompositionMode_ColorBurn, P::CompositionMode_ColorBurn));
static_assert(Same(G::CompositionMode_HardLight, P::CompositionMode_HardLight));
static_assert(Same(G::CompositionMode_SoftLight, P::CompositionMode_SoftLight));
static_assert(Same(G::CompositionMode_Difference, P::CompositionMode_Difference));
static_assert(Same(G::CompositionMode_Exclusion, P::CompositionMode_Exclusion));
static_assert(Same(G::RasterOp_SourceOrDestination, P::RasterOp_SourceOrDestination));
static_assert(Same(G::RasterOp_SourceAndDestination, P::RasterOp_SourceAndDestination));
static_assert(Same(G::RasterOp_SourceXorDestination, P::RasterOp_SourceXorDestination));
static_assert(Same(G::RasterOp_NotSourceAndNotDestination, P::RasterOp_NotSourceAndNotDestination));
static_assert(Same(G::RasterOp_NotSourceOrNotDestination, P::RasterOp_NotSourceOrNotDestination));
static_assert(Same(G::RasterOp_NotSourceXorDestination, P::RasterOp_NotSourceXorDestination));
static_assert(Same(G::RasterOp_NotSource, P::RasterOp_NotSource));
static_assert(Same(G::RasterOp_NotSourceAndDestination, P::RasterOp_NotSourceAndDestination));
static_assert(Same(G::RasterOp_SourceAndNotDestination, P::RasterOp_SourceAndNotDestination));
static_assert(Same(G::RasterOp_NotSourceOrDestination, P::RasterOp_NotSourceOrDestination));
static_assert(Same(G::RasterOp_SourceOrNotDestination, P::RasterOp_SourceOrNotDestination));
static_assert(Same(G::RasterOp_ClearDestination, P::RasterOp_ClearDestination));
static_assert(Same(G::RasterOp_SetDestination, P::RasterOp_SetDestination));
static_assert(Same(G::RasterOp_NotDestination, P::RasterOp_NotDestination));

using I = TXImage;
using Q = QImage;
static_assert(Same(I::Format_Invalid, Q::Format_Invalid));
static_assert(Same(I::Format_Mono, Q::Format_Mono));
static_assert(Same(I::Format_MonoLSB, Q::Format_MonoLSB));
static_assert(Same(I::Format_Indexed8, Q::Format_Indexed8));
static_assert(Same(I::Format_RGB32, Q::Format_RGB32));
static_assert(Same(I::Format_ARGB32, Q::Format_ARGB32));
static_assert(Same(I::Format_ARGB32_Premultiplied, Q::Format_ARGB32_Premultiplied));
static_assert(Same(I::Format_RGB16, Q::Format_RGB16));
static_assert(Same(I::Format_ARGB8565_Premultiplied, Q::Format_ARGB8565_Premultiplied));
static_assert(Same(I::Format_RGB666, Q::Format_RGB666));
static_assert(Same(I::Format_ARGB6666_Premultiplied, Q::Format_ARGB6666_Premultiplied));
static_assert(Same(I::Format_RGB555, Q::Format_RGB555));
static_assert(Same(I::Format_ARGB8555_Premultiplied, Q::Format_ARGB8555_Premultiplied));
static_assert(Same(I::Format_RGB888, Q::Format_RGB888));
static_assert(Same(I::Format_RGB444, Q::Format_RGB444));
static_assert(Same(I::Format_ARGB4444_Premultiplied, Q::Format_ARGB4444_Premultiplied));
static_assert(Same(I::Format_RGBX8888, Q::Format_RGBX8888));
static_assert(Same(I::Format_RGBA8888, Q::Format_RGBA8888));
static_assert(Same(I::Format_RGBA8888_Premultiplied, Q::Format_RGBA8888_Premultiplied));
static_assert(Same(I::Format_BGR30, Q::Format_BGR30));
static_assert(Same(I::Format_A2BGR30_Premultiplied, Q::Format_A2BGR30_Premultiplied));
static_assert(Same(I::Format_RGB30, Q::Format_RGB30));
static_assert(Same(I::Format_A2RGB30_Premultiplied, Q::Format_A2RGB30_Premultiplied));
static_assert(Same(I::Format_Alpha8, Q::Format_Alpha8));
static_assert(Same(I::Format_Grayscale8, Q::Format_Grayscale8));

} // namespace
