#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include "VirtualSlot.h"

using namespace TZObjects;
using VirtualSlot::Entry;
using VirtualSlot::kNotVirtual;
using VirtualSlot::Row;
using VirtualSlot::Slot;

namespace
{

template <class Derived, class Base>
constexpr bool kDerives = std::is_base_of_v<Base, Derived>&& std::is_convertible_v<Derived*, Base*>;

static_assert(kDerives<TXPen, TXRefBase> && kDerives<TXBrush, TXRefBase> && kDerives<TXFont, TXRefBase>);
static_assert(kDerives<TXImage, TXRefBase> && kDerives<TXRgn, TXRefBase> && kDerives<TXGradient, TXRefBase>);
static_assert(kDerives<TXLinearGradient, TXGradient> && kDerives<TXRadialGradient, TXGradient>);
static_assert(kDerives<TXGraphicsEngine, TXPlugin> && kDerives<TXPlugin, TXRefBase>);
static_assert(!std::is_base_of_v<TXRefBase, TXGraphicsEngineManager>);
static_assert(!std::is_polymorphic_v<TXGraphicsEngineManager>);

void ExpectSlots(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.operation;
}

} // namespace

TEST(ResourceSlots, Pen)
{
    using T = TXPen;
    ExpectSlots({
        {1, Slot<bool(T::PenStyle, double, TXColor, T::PenCapStyle, T::PenJoinStyle)>(&T::Create), "Create"},
        {2, Slot<bool()>(&T::Create), "Create the default"},
        {3, Slot<bool()>(&T::Delete), "Delete"},
        {4, Slot<T::PenStyle() const>(&T::GetPenStyle), "GetPenStyle"},
        {5, Slot<void(T::PenStyle)>(&T::SetPenStyle), "SetPenStyle"},
        {6, Slot<T::PenCapStyle() const>(&T::GetPenCapStyle), "GetPenCapStyle"},
        {7, Slot<void(T::PenCapStyle)>(&T::SetPenCapStyle), "SetPenCapStyle"},
        {8, Slot<T::PenJoinStyle() const>(&T::GetPenJoinStyle), "GetPenJoinStyle"},
        {9, Slot<void(T::PenJoinStyle)>(&T::SetPenJoinStyle), "SetPenJoinStyle"},
        {10, Slot<double() const>(&T::GetWidth), "GetWidth"},
        {11, Slot<void(double)>(&T::SetWidth), "SetWidth"},
        {12, Slot<TXColor() const>(&T::GetColor), "GetColor"},
        {13, Slot<void(const TXColor&)>(&T::SetColor), "SetColor"},
        {14, Slot<std::vector<double>() const>(&T::GetSteps), "GetSteps"},
        {15, Slot<void(std::vector<double>)>(&T::SetSteps), "SetSteps"},
        {kNotVirtual, Slot<void*() const>(&T::GetInternalObject), "GetInternalObject"},
    });
    EXPECT_EQ(VirtualSlot::Count<T>(), 16);
}

TEST(ResourceSlots, Brush)
{
    using T = TXBrush;
    ExpectSlots({
        {1, Slot<bool(const TXColor&, T::BrushStyle)>(&T::Create), "Create"},
        {2, Slot<bool()>(&T::Delete), "Delete"},
        {3, Slot<T::BrushStyle()>(&T::GetStyle), "GetStyle"},
        {4, Slot<void(const TXColor&)>(&T::SetColor), "SetColor"},
        {5, Slot<TXColor()>(&T::GetColor), "GetColor"},
        {6, Slot<TXRefPtr<TXImage>() const>(&T::textureImage), "textureImage"},
        {7, Slot<void(TXRefPtr<TXImage>)>(&T::SetTextureImage), "SetTextureImage"},
        {8, Slot<void*()>(&T::GetInternalObject), "GetInternalObject"},
    });
    EXPECT_EQ(VirtualSlot::Count<T>(), 9);
}

// The destructor's entries come first, as the gradient is a counted object; what it declares itself follows in order.
TEST(ResourceSlots, Gradient)
{
    using T = TXGradient;
    ExpectSlots({
        {2, Entry<void*()>(&T::GetInternalObject), "GetInternalObject"},
        {3, Entry<bool()>(&T::Delete), "Delete"},
        {4, Entry<void(double, const TXColor&)>(&T::SetColorAt), "SetColorAt"},
    });
    EXPECT_EQ(VirtualSlot::Count<T>(), 4);
}

TEST(ResourceSlots, LinearAndRadialGradientsAddNone)
{
    EXPECT_EQ(VirtualSlot::Count<TXLinearGradient>(), 4);
    EXPECT_EQ(VirtualSlot::Count<TXRadialGradient>(), 4);
}

TEST(ResourceSlots, Font)
{
    using T = TXFont;
    using Text = const TXString&;
    using Mode = TXFont::TXItalicMode;
    ExpectSlots({
        {1, Slot<bool()>(&T::Create), "Create"},
        {2, Slot<void()>(&T::Delete), "Delete"},
        {3, Slot<void(int)>(&T::SetFontWidth), "SetFontWidth"},
        {4, Slot<int() const>(&T::GetFontWidth), "GetFontWidth"},
        {5, Slot<void(int)>(&T::SetFontHeight), "SetFontHeight"},
        {6, Slot<int() const>(&T::GetFontHeight), "GetFontHeight"},
        {7, Slot<void(int)>(&T::SetFontWeight), "SetFontWeight"},
        {8, Slot<int() const>(&T::GetFontWeight), "GetFontWeight"},
        {9, Slot<void(int)>(&T::SetFontAngle), "SetFontAngle"},
        {10, Slot<int() const>(&T::GetFontAngle), "GetFontAngle"},
        {11, Slot<void(bool)>(&T::SetFontBold), "SetFontBold"},
        {12, Slot<bool() const>(&T::GetFontBold), "GetFontBold"},
        {13, Slot<void(bool)>(&T::SetFontItalic), "SetFontItalic"},
        {14, Slot<bool() const>(&T::GetFontItalic), "GetFontItalic"},
        {15, Slot<void(Mode)>(&T::SetFontItalicMode), "SetFontItalicMode"},
        {16, Slot<Mode()>(&T::GetFontItalicMode), "GetFontItalicMode"},
        {17, Slot<void(int)>(&T::SetFontItalicAngle), "SetFontItalicAngle"},
        {18, Slot<int() const>(&T::GetFontItalicAngle), "GetFontItalicAngle"},
        {19, Slot<void(bool)>(&T::SetFontUnderline), "SetFontUnderline"},
        {20, Slot<bool() const>(&T::GetFontUnderline), "GetFontUnderline"},
        {21, Slot<void(bool)>(&T::SetFontStrikeOut), "SetFontStrikeOut"},
        {22, Slot<bool() const>(&T::GetFontStrikeOut), "GetFontStrikeOut"},
        {23, Slot<void(bool)>(&T::SetFontHalo), "SetFontHalo"},
        {24, Slot<bool() const>(&T::GetFontHalo), "GetFontHalo"},
        {25, Slot<void(int)>(&T::SetFontHaloWidth), "SetFontHaloWidth"},
        {26, Slot<int() const>(&T::GetFontHaloWidth), "GetFontHaloWidth"},
        {27, Slot<void(TXColor)>(&T::SetFontHaloColor), "SetFontHaloColor"},
        {28, Slot<TXColor() const>(&T::GetFontHaloColor), "GetFontHaloColor"},
        {29, Slot<void(bool)>(&T::SetFontShadow), "SetFontShadow"},
        {30, Slot<bool() const>(&T::GetFontShadow), "GetFontShadow"},
        {31, Slot<void(TXString)>(&T::SetFontName), "SetFontName"},
        {32, Slot<TXString() const>(&T::GetFontName), "GetFontName"},
        {33, Slot<bool(Text, double&, double&, bool) const>(&T::GetTextExtent), "GetTextExtent"},
        {34, Slot<bool(Text, int&, int&, bool) const>(&T::GetTextExtent), "GetTextExtent in whole units"},
        {35, Slot<bool(Text, double&, double&, bool) const>(&T::GetMultiTextExtent), "GetMultiTextExtent"},
        {36, Slot<bool(Text, int&, int&, bool) const>(&T::GetMultiTextExtent), "GetMultiTextExtent in whole units"},
        {37, Slot<void(double)>(&T::SetWordSpacing), "SetWordSpacing"},
        {38, Slot<double() const>(&T::GetWordSpacing), "GetWordSpacing"},
        {39, Slot<void(double&, double&, double&, bool) const>(&T::GetFontMetricsInfo), "GetFontMetricsInfo"},
        {40, Slot<void(int&, int&, int&, bool) const>(&T::GetFontMetricsInfo), "GetFontMetricsInfo in whole units"},
        {41, Slot<double(Text, bool) const>(&T::GetMaxCharWidthOfText), "GetMaxCharWidthOfText"},
        {kNotVirtual, Slot<void*() const>(&T::GetInternalObject), "GetInternalObject"},
    });
    EXPECT_EQ(VirtualSlot::Count<T>(), 42);
    static_assert(std::is_same_v<decltype(&T::GetEnglishNameForKnownFont), const TXString& (*)(const TXString&)>);
}

TEST(ResourceSlots, Image)
{
    using T = TXImage;
    using Int = const int&;
    using Bytes = unsigned char*;
    ExpectSlots({
        {1, Slot<bool(const char*)>(&T::CreateCompatibleImage), "CreateCompatibleImage from a file"},
        {2, Slot<bool(TXGraphics*, Int, Int)>(&T::CreateCompatibleImage), "CreateCompatibleImage"},
        {3, Slot<void*()>(&T::GetBits), "GetBits"},
        {4, Slot<void(const void*, unsigned int)>(&T::SetBits), "SetBits"},
        {5, Slot<int()>(&T::GetWidth), "GetWidth"},
        {6, Slot<int()>(&T::GetHeight), "GetHeight"},
        {7, Slot<bool()>(&T::Delete), "Delete"},
        {8, Slot<bool(Int, Int, T::Format)>(&T::CreateImage), "CreateImage"},
        {9, Slot<bool(Bytes, Int, Int, T::Format)>(&T::CreateImage), "CreateImage over pixels"},
        {10, Slot<bool(Bytes, Int, Int)>(&T::CreateImage), "CreateImage in the default format"},
        {11, Slot<bool(Bytes, Int, const char*)>(&T::Load), "Load"},
        {12, Slot<void(const TXString&) const>(&T::Save), "Save"},
        {13, Slot<void(const char*) const>(&T::Save), "Save by a narrow path"},
        {14, Slot<void(const TXRect&, const TXColor&)>(&T::Fill), "Fill a rectangle"},
        {15, Slot<void(const TXColor&)>(&T::Fill), "Fill with a colour"},
        {16, Slot<void(unsigned int)>(&T::Fill), "Fill with a raw value"},
        {17, Slot<TXColor(int, int)>(&T::GetPixel), "GetPixel"},
        {18, Slot<void(int, int, const TXColor&)>(&T::SetPixel), "SetPixel"},
        {19, Slot<int()>(&T::GetByteCount), "GetByteCount"},
        {kNotVirtual, Slot<void*() const>(&T::GetInternalObject), "GetInternalObject"},
    });
    EXPECT_EQ(VirtualSlot::Count<T>(), 20);
}

TEST(ResourceSlots, RegionHasTheDestructorAlone) { EXPECT_EQ(VirtualSlot::Count<TXRgn>(), 1); }

TEST(ResourceSlots, Engine)
{
    using T = TXGraphicsEngine;
    ExpectSlots({
        {1, Slot<void()>(&TXPlugin::InitPlugin), "InitPlugin"},
        {2, Slot<void()>(&TXPlugin::UnloadPlugin), "UnloadPlugin"},
        {3, Slot<bool()>(&TXPlugin::IsDll), "IsDll"},
        {4, Slot<TXBrush*() const>(&T::NewBrush), "NewBrush"},
        {5, Slot<TXPen*() const>(&T::NewPen), "NewPen"},
        {6, Slot<TXFont*() const>(&T::NewFont), "NewFont"},
        {7, Slot<TXRgn*() const>(&T::NewRgn), "NewRgn"},
        {8, Slot<TXGraphics*(TXImage*) const>(&T::NewGraphics), "NewGraphics on an image"},
        {9, Slot<TXGraphics*() const>(&T::NewGraphics), "NewGraphics"},
        {10, Slot<TXImage*() const>(&T::NewImage), "NewImage"},
        {11, Slot<TXLinearGradient*(double, double, double, double)>(&T::NewLinearGradient), "NewLinearGradient"},
        {12, Slot<TXRadialGradient*(double, double, double)>(&T::NewRadialGradient), "NewRadialGradient"},
        {13, Slot<void(bool)>(&T::EnableAntialiasing), "EnableAntialiasing"},
    });
    EXPECT_EQ(VirtualSlot::Count<TXPlugin>(), 4);
    EXPECT_EQ(VirtualSlot::Count<T>(), 14);
}

TEST(ResourceSlots, CountingIsNotVirtual)
{
    EXPECT_EQ(VirtualSlot::Count<TXRefBase>(), 1);
    // A pointer to a member that does not throw has a type of its own; both drop that here.
    EXPECT_EQ(Slot<void()>(static_cast<void (TXRefBase::*)()>(&TXRefBase::AddRef)), kNotVirtual);
    EXPECT_EQ(Slot<bool()>(static_cast<bool (TXRefBase::*)()>(&TXRefBase::Release)), kNotVirtual);
}
