#include <txgraphics/TXGraphics.h>

#include <climits>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "RecordingGraphics.h"
#include "ResourceDoubles.h"

using namespace TZObjects;

namespace
{

using Calls = std::vector<std::string>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <class... Arguments>
std::string Call(const std::string& operation, const Arguments&... arguments)
{
    return RecordingGraphics::Call(operation, arguments...);
}

/// Runs an operation with a backend that succeeds and one that fails: it must make the one call and answer as that did.
template <class Operation>
void ExpectForwards(Operation operation, const std::string& call)
{
    RecordingGraphics succeeding;
    EXPECT_TRUE(operation(static_cast<TXGraphics&>(succeeding)));
    EXPECT_EQ(succeeding.calls, Calls{call});
    RecordingGraphics failing;
    failing.answers = {false};
    EXPECT_FALSE(operation(static_cast<TXGraphics&>(failing)));
    EXPECT_EQ(failing.calls, Calls{call});
}

} // namespace

TEST(TXGraphicsBase, AlignsTextLeftAndTopUntilSet)
{
    const RecordingGraphics surface;
    EXPECT_EQ(surface.GetTextHorizAlign(), TXGraphics::TextAlignLeft);
    EXPECT_EQ(surface.GetTextVertAlign(), TXGraphics::TextAlignTop);
}

TEST(TXGraphicsBase, KeepsEachTextAlignment)
{
    RecordingGraphics surface;
    surface.SetTextHorizAlign(TXGraphics::TextAlignRight);
    EXPECT_EQ(surface.GetTextHorizAlign(), 3);
    EXPECT_EQ(surface.GetTextVertAlign(), 1);
    surface.SetTextVertAlign(TXGraphics::TextAlignVCenter);
    EXPECT_EQ(surface.GetTextVertAlign(), 2);
    EXPECT_EQ(surface.GetTextHorizAlign(), 3);
    EXPECT_EQ(surface.calls, Calls{});
}

TEST(TXGraphicsBase, HasAnOpaqueWhiteBackgroundUntilSet)
{
    RecordingGraphics surface;
    EXPECT_EQ(surface.GetBackGoundColor().GetColor(), 0xFFFFFFFFu);
    surface.SetBackGoundColor(TXColor(1, 2, 3, 4));
    EXPECT_EQ(surface.GetBackGoundColor().GetColor(), 0x04010203u);
    EXPECT_EQ(surface.calls, Calls{});
}

TEST(TXGraphicsBase, AttributesBelongToOneSurface)
{
    RecordingGraphics one;
    one.SetTextHorizAlign(2);
    one.SetTextVertAlign(3);
    one.SetBackGoundColor(TXColor::RED_);
    RecordingGraphics other;
    EXPECT_EQ(other.GetTextHorizAlign(), 1);
    EXPECT_EQ(other.GetTextVertAlign(), 1);
    EXPECT_EQ(other.GetBackGoundColor().GetColor(), 0xFFFFFFFFu);
}

TEST(TXGraphicsBase, SetWindowOrgTruncatesAndAnswersAsTheOther)
{
    const auto calls = [](const TXPoint& origin)
    {
        RecordingGraphics surface;
        const TXPoint before = static_cast<TXGraphics&>(surface).SetWindowOrg(origin);
        EXPECT_EQ(before.x, -7.5);
        EXPECT_EQ(before.y, 8.25);
        return surface.calls;
    };
    EXPECT_EQ(calls({3, -4}), Calls{Call("SetWindowOrg", 3, -4)});
    EXPECT_EQ(calls({3.99, -3.99}), Calls{Call("SetWindowOrg", 3, -3)});
    EXPECT_EQ(calls({-0.5, 0.5}), Calls{Call("SetWindowOrg", 0, 0)});
    EXPECT_EQ(calls({2147483647.0, -2147483648.0}), Calls{Call("SetWindowOrg", INT_MAX, INT_MIN)});
}

TEST(TXGraphicsBase, SetWindowOrgTakesNaNAsZeroAndSaturates)
{
    const auto calls = [](const TXPoint& origin)
    {
        RecordingGraphics surface;
        static_cast<TXGraphics&>(surface).SetWindowOrg(origin);
        return surface.calls;
    };
    EXPECT_EQ(calls({kNaN, 5}), Calls{Call("SetWindowOrg", 0, 5)});
    EXPECT_EQ(calls({5, kNaN}), Calls{Call("SetWindowOrg", 5, 0)});
    EXPECT_EQ(calls({1e300, -1e300}), Calls{Call("SetWindowOrg", INT_MAX, INT_MIN)});
    EXPECT_EQ(calls({-kInfinity, kInfinity}), Calls{Call("SetWindowOrg", INT_MIN, INT_MAX)});
    EXPECT_EQ(calls({2147483648.0, -2147483649.0}), Calls{Call("SetWindowOrg", INT_MAX, INT_MIN)});
}

TEST(TXGraphicsBase, LineByPoints)
{
    ExpectForwards([](TXGraphics& surface) { return surface.Line(TXPoint(1.25, 2.5), TXPoint(-3.75, 4.125)); },
                   Call("Line", 1.25, 2.5, -3.75, 4.125));
}

TEST(TXGraphicsBase, RectangleByEdges)
{
    ExpectForwards([](TXGraphics& surface) { return surface.Rectangle(TXRect(1.5, 11.75, 2.5, 22.25)); },
                   Call("Rectangle", 1.5, 2.5, 10.25, 19.75));
    ExpectForwards([](TXGraphics& surface) { return surface.Rectangle(TXRect(10, 4, 20, 5)); },
                   Call("Rectangle", 10, 20, -6, -15));
}

TEST(TXGraphicsBase, EllipseByEdges)
{
    ExpectForwards([](TXGraphics& surface) { return surface.Ellipse(TXRect(10, 40, 5, 25), 30, true); },
                   Call("Ellipse", 25, 15, 30, 20, 30, true));
    ExpectForwards([](TXGraphics& surface) { return surface.Ellipse(TXRect(-4, 3, 0, 0.5), -90, false); },
                   Call("Ellipse", -0.5, 0.25, 7, 0.5, -90, false));
}

TEST(TXGraphicsBase, ArcByEdges)
{
    ExpectForwards([](TXGraphics& surface) { return surface.Arc(TXRect(1.5, 11.75, 2.5, 22.25), 15.5, -270.25); },
                   Call("Arc", 1.5, 2.5, 10.25, 19.75, 15.5, -270.25));
}

TEST(TXGraphicsBase, PieByEdges)
{
    ExpectForwards([](TXGraphics& surface) { return surface.Pie(TXRect(1.5, 11.75, 2.5, 22.25), 15.5, -270.25); },
                   Call("Pie", 1.5, 2.5, 10.25, 19.75, 15.5, -270.25));
}

TEST(TXGraphicsBase, VectorMarkerByAPoint)
{
    const TXPoint points[3] = {};
    for (const bool closed : {true, false})
        ExpectForwards([&](TXGraphics& surface)
                       { return surface.VectorMarker(TXPoint(1.5, 2.5), 3.5, 4.5, 5.5, points, 3, closed); },
                       Call("VectorMarker", 1.5, 2.5, 3.5, 4.5, 5.5, &points[0], 3, closed));
}

TEST(TXGraphicsBase, FontMarkerByAPoint)
{
    ExpectForwards([](TXGraphics& surface)
                   { return surface.FontMarker(TXPoint(1.5, 2.5), 3.5, 4.5, 5.5, L"Symbole \x00FC", short{-3}); },
                   Call("FontMarker", 1.5, 2.5, 3.5, 4.5, 5.5, TXString(L"Symbole \x00FC"), short{-3}));
}

TEST(TXGraphicsBase, PolyPolylineDrawsPartByPart)
{
    const TXPoint points[7] = {};
    const int counts[] = {2, 1, 4};
    RecordingGraphics surface;
    EXPECT_TRUE(surface.PolyPolyline(points, counts, 3));
    EXPECT_EQ(surface.calls, (Calls{Call("Polyline", &points[0], 2), Call("Polyline", &points[2], 1),
                                    Call("Polyline", &points[3], 4)}));
}

TEST(TXGraphicsBase, PolyPolylineSkipsEmptyParts)
{
    const TXPoint points[5] = {};
    const int counts[] = {0, 2, 0, -3, 3, 0};
    RecordingGraphics surface;
    EXPECT_TRUE(surface.PolyPolyline(points, counts, 6));
    EXPECT_EQ(surface.calls, (Calls{Call("Polyline", &points[0], 2), Call("Polyline", &points[2], 3)}));
}

TEST(TXGraphicsBase, PolyPolylineReadsAsManyPartsAsItWasTold)
{
    const TXPoint points[5] = {};
    const int counts[] = {2, 3};
    RecordingGraphics surface;
    EXPECT_TRUE(surface.PolyPolyline(points, counts, 1));
    EXPECT_EQ(surface.calls, Calls{Call("Polyline", &points[0], 2)});
}

TEST(TXGraphicsBase, PolyPolylineRefusesNullAndNoParts)
{
    const TXPoint points[2] = {};
    const int counts[] = {2};
    RecordingGraphics surface;
    EXPECT_FALSE(surface.PolyPolyline(nullptr, counts, 1));
    EXPECT_FALSE(surface.PolyPolyline(points, nullptr, 1));
    EXPECT_FALSE(surface.PolyPolyline(points, counts, 0));
    EXPECT_FALSE(surface.PolyPolyline(points, counts, -1));
    EXPECT_FALSE(surface.PolyPolyline(points, counts, INT_MIN));
    EXPECT_EQ(surface.calls, Calls{});
}

TEST(TXGraphicsBase, PolyPolylineFailsWhereAPartFails)
{
    const TXPoint points[6] = {};
    const int counts[] = {2, 2, 2};
    for (const std::vector<bool>& answers :
         {std::vector<bool>{false, true, true}, {true, false, true}, {true, true, false}, {false, false, false}})
    {
        RecordingGraphics surface;
        surface.answers = answers;
        EXPECT_FALSE(surface.PolyPolyline(points, counts, 3));
    }
}

TEST(TXGraphicsBase, StretchBltDrawsTheSourcesImage)
{
    const TXRefPtr<TXImage> image = new ImageDouble;
    RecordingGraphics source;
    source.image = image;
    const TXRect dst(1, 2, 3, 4);
    const TXRect src(5, 6, 7, 8);
    ExpectForwards([&](TXGraphics& target) { return target.StretchBlt(dst, &source, src); },
                   Call("DrawImage", dst, static_cast<const void*>(image.get()), src, 1.0));
    EXPECT_EQ(source.calls, Calls{});
}

TEST(TXGraphicsBase, StretchBltKeepsNoReference)
{
    int deaths = 0;
    RecordingGraphics source;
    source.image = new ImageDouble(&deaths);
    RecordingGraphics target;
    target.StretchBlt(TXRect(), &source, TXRect());
    EXPECT_EQ(deaths, 0);
    source.image = nullptr;
    EXPECT_EQ(deaths, 1);
}

TEST(TXGraphicsBase, StretchBltRefusesNullAndASourceWithoutImage)
{
    RecordingGraphics target;
    target.image = new ImageDouble;
    const RecordingGraphics source;
    EXPECT_FALSE(target.StretchBlt(TXRect(0, 1, 0, 1), nullptr, TXRect(0, 1, 0, 1)));
    EXPECT_FALSE(target.StretchBlt(TXRect(0, 1, 0, 1), &source, TXRect(0, 1, 0, 1)));
    EXPECT_EQ(target.calls, Calls{});
}

TEST(TXGraphicsBase, HandsOutTheBackendsPainter)
{
    RecordingGraphics surface;
    EXPECT_EQ(surface.GetInteralObject(), nullptr);
    int painter = 0;
    surface.SetInternalObject(&painter);
    EXPECT_EQ(surface.GetInteralObject(), &painter);
}

TEST(TXGraphicsBase, IsCounted)
{
    TXRefPtr<TXGraphics> surface = new RecordingGraphics;
    const TXRefPtr<TXGraphics> other = surface;
    surface = nullptr;
    EXPECT_FALSE(other->CairoDrawingEnabled());
}
