#include <type_traits>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

using namespace TZObjects;

namespace
{

/// An enumeration that a host may cast any number to, and whose members convert to numbers.
template <class E>
constexpr bool kPlain = std::is_same_v<std::underlying_type_t<E>, int>&& std::is_convertible_v<E, int>;

static_assert(kPlain<TXPen::PenStyle> && kPlain<TXPen::PenCapStyle> && kPlain<TXPen::PenJoinStyle>);
static_assert(kPlain<TXBrush::BrushStyle> && kPlain<TXImage::Format> && kPlain<TXFont::TXItalicMode>);
static_assert(kPlain<TXGraphics::TXTextVertAlign> && kPlain<TXGraphics::TXTextHorizAlign>);
static_assert(kPlain<TXGraphics::TXCompositionMode>);

/// The members have these numbers: @p first and those that follow.
template <class E>
void ExpectNumbered(int first, std::initializer_list<E> members)
{
    int number = first;
    for (const E member : members)
        EXPECT_EQ(member, number++);
}

} // namespace

TEST(Enumerations, PenStyles)
{
    ExpectNumbered(0, {TXPen::NullPen, TXPen::SolidLine, TXPen::DashLine, TXPen::DotLine, TXPen::DashDotLine,
                       TXPen::DashDotDotLine, TXPen::CustomDashLine});
}

TEST(Enumerations, PenCapsAndJoinsWithTheirGaps)
{
    EXPECT_EQ(TXPen::RoundCap, 0);
    EXPECT_EQ(TXPen::SquareCap, 256);
    EXPECT_EQ(TXPen::FlatCap, 512);
    EXPECT_EQ(TXPen::BevelJoin, 0);
    EXPECT_EQ(TXPen::RoundJoin, 256);
    EXPECT_EQ(TXPen::MiterJoin, 8192);
}

TEST(Enumerations, BrushStyles)
{
    ExpectNumbered(1, {TXBrush::SolidBrush, TXBrush::HorizontalHatch, TXBrush::VerticalHatch, TXBrush::CrossHatch,
                       TXBrush::TextureBrush});
}

TEST(Enumerations, ItalicModes) { ExpectNumbered(0, {TXFont::ItalicNone, TXFont::ItalicFace, TXFont::ItalicSlant}); }

TEST(Enumerations, TextAlignments)
{
    ExpectNumbered(1, {TXGraphics::TextAlignLeft, TXGraphics::TextAlignHCenter, TXGraphics::TextAlignRight});
    ExpectNumbered(1, {TXGraphics::TextAlignTop, TXGraphics::TextAlignVCenter, TXGraphics::TextAlignBottom});
}

TEST(Enumerations, ImageFormats)
{
    const TXImage::Format inOrder[] = {TXImage::Format_Invalid,
                                       TXImage::Format_Mono,
                                       TXImage::Format_MonoLSB,
                                       TXImage::Format_Indexed8,
                                       TXImage::Format_RGB32,
                                       TXImage::Format_ARGB32,
                                       TXImage::Format_ARGB32_Premultiplied,
                                       TXImage::Format_RGB16,
                                       TXImage::Format_ARGB8565_Premultiplied,
                                       TXImage::Format_RGB666,
                                       TXImage::Format_ARGB6666_Premultiplied,
                                       TXImage::Format_RGB555,
                                       TXImage::Format_ARGB8555_Premultiplied,
                                       TXImage::Format_RGB888,
                                       TXImage::Format_RGB444,
                                       TXImage::Format_ARGB4444_Premultiplied,
                                       TXImage::Format_RGBX8888,
                                       TXImage::Format_RGBA8888,
                                       TXImage::Format_RGBA8888_Premultiplied,
                                       TXImage::Format_BGR30,
                                       TXImage::Format_A2BGR30_Premultiplied,
                                       TXImage::Format_RGB30,
                                       TXImage::Format_A2RGB30_Premultiplied,
                                       TXImage::Format_Alpha8,
                                       TXImage::Format_Grayscale8};
    int number = 0;
    for (const TXImage::Format format : inOrder)
        EXPECT_EQ(format, number++);
    EXPECT_EQ(number, 25);
}

TEST(Enumerations, CompositionModes)
{
    using G = TXGraphics;
    const G::TXCompositionMode inOrder[] = {G::CompositionMode_SourceOver,
                                            G::CompositionMode_DestinationOver,
                                            G::CompositionMode_Clear,
                                            G::CompositionMode_Source,
                                            G::CompositionMode_Destination,
                                            G::CompositionMode_SourceIn,
                                            G::CompositionMode_DestinationIn,
                                            G::CompositionMode_SourceOut,
                                            G::CompositionMode_DestinationOut,
                                            G::CompositionMode_SourceAtop,
                                            G::CompositionMode_DestinationAtop,
                                            G::CompositionMode_Xor,
                                            G::CompositionMode_Plus,
                                            G::CompositionMode_Multiply,
                                            G::CompositionMode_Screen,
                                            G::CompositionMode_Overlay,
                                            G::CompositionMode_Darken,
                                            G::CompositionMode_Lighten,
                                            G::CompositionMode_ColorDodge,
                                            G::CompositionMode_ColorBurn,
                                            G::CompositionMode_HardLight,
                                            G::CompositionMode_SoftLight,
                                            G::CompositionMode_Difference,
                                            G::CompositionMode_Exclusion,
                                            G::RasterOp_SourceOrDestination,
                                            G::RasterOp_SourceAndDestination,
                                            G::RasterOp_SourceXorDestination,
                                            G::RasterOp_NotSourceAndNotDestination,
                                            G::RasterOp_NotSourceOrNotDestination,
                                            G::RasterOp_NotSourceXorDestination,
                                            G::RasterOp_NotSource,
                                            G::RasterOp_NotSourceAndDestination,
                                            G::RasterOp_SourceAndNotDestination,
                                            G::RasterOp_NotSourceOrDestination,
                                            G::RasterOp_SourceOrNotDestination,
                                            G::RasterOp_ClearDestination,
                                            G::RasterOp_SetDestination,
                                            G::RasterOp_NotDestination};
    int number = 0;
    for (const G::TXCompositionMode mode : inOrder)
        EXPECT_EQ(mode, number++);
    EXPECT_EQ(number, 38);
}

namespace
{

template <class Field>
std::ptrdiff_t Offset(const TXGraphics::stGradientParams& params, const Field& field)
{
    return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&params);
}

} // namespace

TEST(GradientParams, HasItsFieldsInOrder)
{
    const TXGraphics::stGradientParams params;
    EXPECT_EQ(Offset(params, params.type), 0);
    EXPECT_LT(Offset(params, params.type), Offset(params, params.startColor));
    EXPECT_LT(Offset(params, params.startColor), Offset(params, params.endColor));
    EXPECT_LT(Offset(params, params.endColor), Offset(params, params.angle));
    EXPECT_LT(Offset(params, params.angle), Offset(params, params.middle));
    using Params = TXGraphics::stGradientParams;
    static_assert(std::is_same_v<decltype(Params::type), std::int32_t>);
    static_assert(std::is_same_v<decltype(Params::startColor), TXColor>);
    static_assert(std::is_same_v<decltype(Params::endColor), TXColor>);
    static_assert(std::is_same_v<decltype(Params::angle), double> && std::is_same_v<decltype(Params::middle), double>);
}

TEST(GradientParams, IsALinearGradientFromBlackToBlackByDefault)
{
    const TXGraphics::stGradientParams params;
    EXPECT_EQ(params.type, 0);
    EXPECT_EQ(params.startColor.GetColor(), 0xFF000000u);
    EXPECT_EQ(params.endColor.GetColor(), 0xFF000000u);
    EXPECT_EQ(params.angle, 0.0);
    EXPECT_EQ(params.middle, 50.0);
}
