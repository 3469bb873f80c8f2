#include <type_traits>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include "VirtualSlot.h"

using namespace TZObjects;
using VirtualSlot::Row;
using VirtualSlot::Slot;

namespace
{

using G = TXGraphics;
using Stops = TXGraphics::stGradientParams;
using V = TXGraphics::TXTextVertAlign;
using H = TXGraphics::TXTextHorizAlign;
using D = const double&;
using Text = const TXString&;
using Rect = const TXRect&;

template <class T>
using Exchange = TXRefPtr<T>(TXRefPtr<T>);

static_assert(std::is_base_of_v<TXRefBase, TXGraphics> && std::is_convertible_v<TXGraphics*, TXRefBase*>);
static_assert(std::has_virtual_destructor_v<TXGraphics>);

const Row kSelectionAndState[] = {
    {1, Slot<bool(int, int)>(&G::CreateCompatibleGraphics), "CreateCompatibleGraphics"},
    {2, Slot<bool()>(&G::Delete), "Delete"},
    {3, Slot<void(TXPen::PenStyle)>(&G::SelectPen), "SelectPen by style"},
    {4, Slot<Exchange<TXPen>>(&G::SelectPen), "SelectPen"},
    {5, Slot<Exchange<TXImage>>(&G::SelectImage), "SelectImage"},
    {6, Slot<Exchange<TXFont>>(&G::SelectFont), "SelectFont"},
    {7, Slot<Exchange<TXBrush>>(&G::SelectBrush), "SelectBrush"},
    {8, Slot<void(TXGradient*)>(&G::SelectGradient), "SelectGradient"},
    {9, Slot<Exchange<TXRgn>>(&G::SelectRgn), "SelectRgn"},
    {10, Slot<TXRefPtr<TXPen>()>(&G::GetPen), "GetPen"},
    {11, Slot<TXRefPtr<TXBrush>()>(&G::GetBrush), "GetBrush"},
    {12, Slot<TXRefPtr<TXFont>()>(&G::GetFont), "GetFont"},
    {13, Slot<TXRefPtr<TXImage>()>(&G::GetImage), "GetImage"},
    {14, Slot<void(int)>(&G::SetTextHorizAlign), "SetTextHorizAlign"},
    {15, Slot<void(int)>(&G::SetTextVertAlign), "SetTextVertAlign"},
    {16, Slot<int() const>(&G::GetTextHorizAlign), "GetTextHorizAlign"},
    {17, Slot<int() const>(&G::GetTextVertAlign), "GetTextVertAlign"},
    {18, Slot<void(const TXColor&)>(&G::SetBackGoundColor), "SetBackGoundColor"},
    {19, Slot<TXColor()>(&G::GetBackGoundColor), "GetBackGoundColor"},
    {20, Slot<bool(Text)>(&G::Save), "Save to a file"},
    {21, Slot<void()>(&G::Save), "Save the state"},
    {22, Slot<void()>(&G::Restore), "Restore"},
    {23, Slot<void(D)>(&G::SetOpacity), "SetOpacity"},
    {24, Slot<double() const>(&G::GetOpacity), "GetOpacity"},
    {25, Slot<TXPoint(TXPoint)>(&G::SetWindowOrg), "SetWindowOrg by a point"},
    {26, Slot<TXPoint(int, int)>(&G::SetWindowOrg), "SetWindowOrg"},
    {27, Slot<TXPoint() const>(&G::GetWindowOrg), "GetWindowOrg"},
    {28, Slot<void(TXPoint*, int)>(&G::DPtoLP), "DPtoLP"},
    {29, Slot<void(TXPoint*, int)>(&G::LPtoDP), "LPtoDP"},
};

const Row kShapes[] = {
    {30, Slot<bool(double, double)>(&G::MoveTo), "MoveTo"},
    {31, Slot<bool(double, double)>(&G::LineTo), "LineTo"},
    {32, Slot<bool(D, D, D, D, D, D)>(&G::CurveTo), "CurveTo"},
    {33, Slot<bool(D, D, D, D)>(&G::QuadTo), "QuadTo"},
    {34, Slot<void()>(&G::ClosePath), "ClosePath"},
    {35, Slot<void()>(&G::DrawPath), "DrawPath"},
    {36, Slot<bool(TXPoint, TXPoint)>(&G::Line), "Line by points"},
    {37, Slot<bool(double, double, double, double)>(&G::Line), "Line"},
    {38, Slot<bool(const TXPoint*, int)>(&G::Polyline), "Polyline"},
    {39, Slot<bool(const TXPoint*, const int*, int)>(&G::PolyPolyline), "PolyPolyline"},
    {40, Slot<bool(const TXPoint*, int, const Stops&)>(&G::Polygon), "Polygon with a gradient"},
    {41, Slot<bool(const TXPoint*, int)>(&G::Polygon), "Polygon"},
    {42, Slot<bool(const TXPoint*, const int*, int, const Stops&)>(&G::PolyPolygon), "PolyPolygon with a gradient"},
    {43, Slot<bool(const TXPoint*, const int*, int)>(&G::PolyPolygon), "PolyPolygon"},
    {44, Slot<bool(Rect)>(&G::Rectangle), "Rectangle by edges"},
    {45, Slot<bool(double, double, double, double)>(&G::Rectangle), "Rectangle"},
    {46, Slot<bool(const TXPoint&, int, int)>(&G::Ellipse), "Ellipse by radii"},
    {47, Slot<bool(Rect, int, bool)>(&G::Ellipse), "Ellipse by edges"},
    {48, Slot<bool(double, double, double, double, int, bool)>(&G::Ellipse), "Ellipse"},
    {49, Slot<bool(const TXPoint&, int, TXColor, TXColor)>(&G::EllipseByRadialGradient), "EllipseByRadialGradient"},
    {50, Slot<bool(const TXPoint*, int)>(&G::Curve), "Curve"},
    {51, Slot<bool(Rect, double, double)>(&G::Arc), "Arc by edges"},
    {52, Slot<bool(double, double, double, double, double, double)>(&G::Arc), "Arc"},
    {53, Slot<bool(Rect, double, double)>(&G::Pie), "Pie by edges"},
    {54, Slot<bool(double, double, double, double, double, double)>(&G::Pie), "Pie"},
};

const Row kMarkersAndText[] = {
    {55, Slot<bool(D, D, D, D, D, D, D, const TXPoint*, int, bool)>(&G::VectorMarker), "VectorMarker with an offset"},
    {56, Slot<bool(const TXPoint&, double, double, double, const TXPoint*, int, bool)>(&G::VectorMarker),
     "VectorMarker by a point"},
    {57, Slot<bool(double, double, double, double, double, const TXPoint*, int, bool)>(&G::VectorMarker),
     "VectorMarker"},
    {58, Slot<bool(const TXPoint&, double, double, double, TXString, short)>(&G::FontMarker), "FontMarker by a point"},
    {59, Slot<bool(double, double, double, double, double, TXString, short)>(&G::FontMarker), "FontMarker"},
    {60, Slot<bool(double, double, double, double, double, double, V, H, Text, double, D)>(&G::DrawString),
     "DrawString in a box"},
    {61, Slot<bool(double, double, V, H, Text, double, double, D)>(&G::DrawString), "DrawString with line spacing"},
    {62, Slot<bool(double, double, double, double, V, H, Text, double, D)>(&G::DrawString), "DrawString with an angle"},
    {63, Slot<bool(double, double, double, double, V, H, Text, D)>(&G::DrawString), "DrawString by the font's angle"},
    {64,
     Slot<bool(double, double, double, double, V, H, Text, const TXColor&, double, double, D)>(&G::DrawOutlineString),
     "DrawOutlineString about an origin"},
    {65, Slot<bool(double, double, V, H, Text, const TXColor&, double, double, D)>(&G::DrawOutlineString),
     "DrawOutlineString"},
    {66,
     Slot<bool(double, double, double, double, V, H, Text, const TXColor&, double, double, double, bool, D)>(
         &G::DrawVerticalString),
     "DrawVerticalString about an origin"},
    {67,
     Slot<bool(double, double, V, H, Text, const TXColor&, double, double, double, bool, D)>(&G::DrawVerticalString),
     "DrawVerticalString"},
};

const Row kImagesAndSurfaces[] = {
    {68, Slot<bool(TXImage*, double)>(&G::DrawImage), "DrawImage whole"},
    {69, Slot<bool(Rect, TXImage*, Rect, double)>(&G::DrawImage), "DrawImage"},
    {70, Slot<bool(Rect, TXImage*, Rect, double, double)>(&G::DrawImage4BitmapRotate), "DrawImage4BitmapRotate"},
    {71, Slot<bool(Rect, const TXColor&)>(&G::fillRect), "fillRect"},
    {72, Slot<bool(Rect, TXGradient*)>(&G::FillRect), "FillRect"},
    {73, Slot<void(const TXPoint*, const int*, int, const Stops&)>(&G::SetClipRegion), "SetClipRegion with a gradient"},
    {74, Slot<void(const TXPoint*, const int*, int, bool, TXColor)>(&G::SetClipRegion), "SetClipRegion"},
    {75, Slot<void()>(&G::RestoreClipRegion), "RestoreClipRegion"},
    {76, Slot<bool(Rect, const TXGraphics*, Rect)>(&G::StretchBlt), "StretchBlt"},
    {77, Slot<bool(TXGraphics*, int, int) const>(&G::BiltTo), "BiltTo"},
    {78, Slot<bool(TXColor)>(&G::ClearWithColor), "ClearWithColor"},
    {79, Slot<void(G::TXCompositionMode)>(&G::SetCompositionMode), "SetCompositionMode"},
    {80, Slot<TXBrush*() const>(&G::NewBrush), "NewBrush"},
    {81, Slot<TXPen*() const>(&G::NewPen), "NewPen"},
    {82, Slot<TXFont*() const>(&G::NewFont), "NewFont"},
    {83, Slot<TXImage*() const>(&G::NewImage), "NewImage"},
    {84, Slot<void(bool)>(&G::EnableAntialiasing), "EnableAntialiasing"},
    {85, Slot<void(void*)>(&G::Attach), "Attach"},
    {86, Slot<void()>(&G::Detach), "Detach"},
    {87, Slot<void(bool)>(&G::EnableCairoDrawing), "EnableCairoDrawing"},
    {88, Slot<bool() const>(&G::CairoDrawingEnabled), "CairoDrawingEnabled"},
};

template <std::size_t N>
void ExpectSlots(const Row (&rows)[N])
{
    for (const Row& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.operation;
}

} // namespace

TEST(TXGraphicsSlots, SelectionAndState) { ExpectSlots(kSelectionAndState); }

TEST(TXGraphicsSlots, Shapes) { ExpectSlots(kShapes); }

TEST(TXGraphicsSlots, MarkersAndText) { ExpectSlots(kMarkersAndText); }

TEST(TXGraphicsSlots, ImagesAndSurfaces) { ExpectSlots(kImagesAndSurfaces); }

TEST(TXGraphicsSlots, ThereAreNoOthers) { EXPECT_EQ(VirtualSlot::Count<TXGraphics>(), 89); }

TEST(TXGraphicsSlots, AccessToTheBackendsPainterIsNotVirtual)
{
    EXPECT_EQ(Slot<void*() const>(&G::GetInteralObject), VirtualSlot::kNotVirtual);
}
