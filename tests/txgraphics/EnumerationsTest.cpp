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

} // namespace

TEST(Enumerations, PenStyles)
{
    EXPECT_EQ(TXPen::NullPen, 0);
    EXPECT_EQ(TXPen::SolidLine, 1);
    EXPECT_EQ(TXPen::DashLine, 2);
    EXPECT_EQ(TXPen::DotLine, 3);
    EXPECT_EQ(TXPen::DashDotLine, 4);
    EXPECT_EQ(TXPen::DashDotDotLine, 5);
    EXPECT_EQ(TXPen::CustomDashLine, 6);
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
    EXPECT_EQ(TXBrush::SolidBrush, 1);
    EXPECT_EQ(TXBrush::HorizontalHatch, 2);
    EXPECT_EQ(TXBrush::VerticalHatch, 3);
    EXPECT_EQ(TXBrush::CrossHatch, 4);
    EXPECT_EQ(TXBrush::TextureBrush, 5);
}

TEST(Enumerations, ItalicModes)
{
    EXPECT_EQ(TXFont::ItalicNone, 0);
    EXPECT_EQ(TXFont::ItalicFace, 1);
    EXPECT_EQ(TXFont::ItalicSlant, 2);
}

TEST(Enumerations, TextAlignments)
{
    EXPECT_EQ(TXGraphics::TextAlignLeft, 1);
    EXPECT_EQ(TXGraphics::TextAlignHCenter, 2);
    EXPECT_EQ(TXGraphics::TextAlignRight, 3);
    EXPECT_EQ(TXGraphics::TextAlignTop, 1);
    EXPECT_EQ(TXGraphics::TextAlignVCenter, 2);
    EXPECT_EQ(TXGraphics::TextAlignBottom, 3);
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
