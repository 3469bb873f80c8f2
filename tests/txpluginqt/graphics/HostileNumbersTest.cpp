#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "Rings.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

/// Values that no point of a shape may have.
const std::vector<double> kRefused = {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e13, -1e13};
/// All values that a host could pass by mistake.
const std::vector<double> kHostile = {kNaN,    kInfinity, -kInfinity, 1e300,        -1e300,        1e13,   -1e13,
                                      kLowest, kLargest,  1e12,       1073741824.0, -1073741825.0, 5e-324, 0.0};

/// An operation of several numbers, with ordinary ones.
struct NumbersCall
{
    std::string name;
    std::vector<double> numbers;
    std::function<bool(TXGraphics&, const std::vector<double>&)> draw;
};

std::vector<NumbersCall> SnappingCalls()
{
    using Numbers = std::vector<double>;
    return {
        {"Line", {5, 6, 70, 50}, [](TXGraphics& s, const Numbers& n) { return s.Line(n[0], n[1], n[2], n[3]); }},
        {"Rectangle",
         {5, 6, 70, 50},
         [](TXGraphics& s, const Numbers& n) { return s.Rectangle(n[0], n[1], n[2], n[3]); }},
        {"Ellipse", {40, 30}, [](TXGraphics& s, const Numbers& n) { return s.Ellipse(TXPoint(n[0], n[1]), 30, 20); }},
        {"Arc",
         {5, 6, 70, 50, 30, 200},
         [](TXGraphics& s, const Numbers& n) { return s.Arc(n[0], n[1], n[2], n[3], n[4], n[5]); }},
        {"Pie",
         {5, 6, 70, 50, 30, 200},
         [](TXGraphics& s, const Numbers& n) { return s.Pie(n[0], n[1], n[2], n[3], n[4], n[5]); }},
    };
}

std::vector<NumbersCall> OtherCalls()
{
    using Numbers = std::vector<double>;
    return {
        {"Ellipse of diameters",
         {60, 50, 80, 40},
         [](TXGraphics& s, const Numbers& n) { return s.Ellipse(n[0], n[1], n[2], n[3], 30, true); }},
        {"fillRect",
         {5, 70, 6, 50},
         [](TXGraphics& s, const Numbers& n) {
             return s.fillRect({n[0], n[1], n[2], n[3]}, TXColor(1, 2, 3, 100));
         }},
        {"FillRect",
         {5, 70, 6, 50},
         [](TXGraphics& s, const Numbers& n)
         {
             const TXRefPtr<TXRadialGradient> gradient = TestEngine().NewRadialGradient(30, 30, 20);
             return s.FillRect({n[0], n[1], n[2], n[3]}, gradient.get());
         }},
    };
}

/// Pens that make most work of long lines.
void SetPen(Twins& twins, int kind)
{
    const QPen pens[] = {QPen(Qt::black), QPen(QColor(0, 90, 200, 120), 7.5, Qt::DashDotLine, Qt::RoundCap),
                         QPen(Qt::black, 1.0, Qt::DotLine), QPen(Qt::NoPen)};
    twins.Both(
        [&](QPainter& painter)
        {
            painter.setPen(pens[kind]);
            painter.setRenderHint(QPainter::Antialiasing, kind == 1);
            if (kind == 2)
                painter.rotate(30);
        });
}

class HostileNumbersTest : public SurfaceTest
{
protected:
    /// After whatever was drawn, drawing goes on as ever.
    static ::testing::AssertionResult DrawsOn(Twins& twins)
    {
        twins.Wipe();
        if (!twins.Surface().Rectangle(20, 20, 60, 40))
            return ::testing::AssertionFailure() << "an ordinary rectangle was refused";
        twins.Direct().drawRect(20, 20, 60, 40);
        return twins.SameWithState();
    }

    static const std::vector<TXPoint> kTriangle;
};

const std::vector<TXPoint> HostileNumbersTest::kTriangle = {{10, 10}, {100, 30}, {50, 80}};

TEST_F(HostileNumbersTest, OperationsOnWholeUnitsTakeAnyNumber)
{
    for (int pen = 0; pen < 4; ++pen)
    {
        Twins twins(100, 80);
        SetPen(twins, pen);
        for (const std::vector<NumbersCall>& calls : {SnappingCalls(), OtherCalls()})
            for (const NumbersCall& call : calls)
                for (std::size_t i = 0; i <= call.numbers.size(); ++i)
                    for (const double hostile : kHostile)
                    {
                        std::vector<double> numbers = call.numbers;
                        if (i < numbers.size())
                            numbers[i] = hostile;
                        else
                            numbers.assign(numbers.size(), hostile);
                        call.draw(twins.Surface(), numbers);
                    }
        EXPECT_TRUE(DrawsOn(twins)) << "pen " << pen;
    }
}

TEST_F(HostileNumbersTest, OperationsOnWholeUnitsTakeNaNAsZero)
{
    for (const NumbersCall& call : SnappingCalls())
        for (std::size_t i = 0; i < call.numbers.size(); ++i)
        {
            std::vector<double> numbers = call.numbers;
            Twins withNaN;
            Twins withZero;
            numbers[i] = kNaN;
            EXPECT_TRUE(call.draw(withNaN.Surface(), numbers)) << call.name;
            numbers[i] = 0.0;
            EXPECT_TRUE(call.draw(withZero.Surface(), numbers)) << call.name;
            EXPECT_EQ(withNaN.Actual(), withZero.Actual()) << call.name << ", number " << i;
        }
}

TEST_F(HostileNumbersTest, OperationsOnWholeUnitsSaturate)
{
    for (const NumbersCall& call : SnappingCalls())
        for (std::size_t i = 0; i < call.numbers.size(); ++i)
            for (const double sign : {1.0, -1.0})
            {
                std::vector<double> numbers = call.numbers;
                Twins infinite;
                Twins large;
                numbers[i] = sign * kInfinity;
                EXPECT_TRUE(call.draw(infinite.Surface(), numbers)) << call.name;
                numbers[i] = sign * 1e30;
                EXPECT_TRUE(call.draw(large.Surface(), numbers)) << call.name;
                EXPECT_EQ(infinite.Actual(), large.Actual()) << call.name << ", number " << i;
                // An end that runs out of the picture runs the same way as one that is merely far.
                if (call.name == "Line")
                {
                    numbers[i] = sign * 1073741823.0;
                    Twins far;
                    EXPECT_TRUE(call.draw(far.Surface(), numbers));
                    EXPECT_EQ(infinite.Actual(), far.Actual()) << "number " << i;
                }
            }
}

TEST_F(HostileNumbersTest, WholeNumbersCanBeAny)
{
    for (int pen = 0; pen < 4; ++pen)
    {
        Twins twins(100, 80);
        SetPen(twins, pen);
        for (const int hostile : {kLowest, kLargest, kLowest + 1, 1 << 30, -(1 << 30), -1, 0})
        {
            twins.Surface().Ellipse(TXPoint(50, 40), hostile, 20);
            twins.Surface().Ellipse(TXPoint(50, 40), 20, hostile);
            twins.Surface().Ellipse(TXPoint(1e300, -1e300), hostile, hostile);
            twins.Surface().Ellipse(50, 40, 60, 30, hostile, true);
            twins.Surface().Ellipse(TXRect(10, 90, 10, 70), hostile, false);
        }
        EXPECT_TRUE(DrawsOn(twins)) << "pen " << pen;
    }
}

TEST_F(HostileNumbersTest, EllipsesAboutARefusedCentreAreNotDrawn)
{
    for (const double refused : kRefused)
    {
        Twins twins;
        EXPECT_FALSE(twins.Surface().Ellipse(refused, 50, 40, 20, 30, true)) << refused;
        EXPECT_FALSE(twins.Surface().Ellipse(50, refused, 40, 20, 30, true)) << refused;
        EXPECT_TRUE(twins.SameWithState()) << refused;
    }
}

TEST_F(HostileNumbersTest, ShapesOfRefusedPointsAreNotDrawn)
{
    const TXGraphics::stGradientParams gradient;
    const int count = 3;
    for (const double refused : kRefused)
        for (std::size_t i = 0; i < 3; ++i)
            for (const bool inX : {true, false})
            {
                std::vector<TXPoint> points = kTriangle;
                (inX ? points[i].x : points[i].y) = refused;
                Twins twins(100, 80);
                TXGraphics& surface = twins.Surface();
                EXPECT_FALSE(surface.Polyline(points.data(), 3)) << refused;
                EXPECT_FALSE(surface.Polygon(points.data(), 3)) << refused;
                EXPECT_FALSE(surface.Polygon(points.data(), 3, gradient)) << refused;
                EXPECT_FALSE(surface.PolyPolygon(points.data(), &count, 1)) << refused;
                EXPECT_FALSE(surface.PolyPolygon(points.data(), &count, 1, gradient)) << refused;
                EXPECT_FALSE(surface.PolyPolyline(points.data(), &count, 1)) << refused;
                EXPECT_TRUE(twins.SameWithState()) << refused << ", point " << i;
                surface.Curve(points.data(), 3);
                EXPECT_TRUE(i == 1 || twins.SameWithState()) << refused << ", point " << i;
            }
}

TEST_F(HostileNumbersTest, ASinglePointIsCheckedToo)
{
    const TXPoint refused(kNaN, 5);
    Twins twins;
    EXPECT_FALSE(twins.Surface().Polyline(&refused, 1));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(HostileNumbersTest, PointsAsFarAsAMillionMillionAreDrawn)
{
    const int count = 3;
    for (int pen = 0; pen < 4; ++pen)
        for (const double far : {1e12, -1e12, 1e9, -3e10})
            for (std::size_t i = 0; i < 3; ++i)
                for (const bool inX : {true, false})
                {
                    std::vector<TXPoint> points = kTriangle;
                    (inX ? points[i].x : points[i].y) = far;
                    Twins twins(100, 80);
                    SetPen(twins, pen);
                    EXPECT_TRUE(twins.Surface().Polyline(points.data(), 3));
                    twins.Direct().drawPolyline(ToQt(points));
                    EXPECT_TRUE(twins.Surface().Polygon(points.data(), 3));
                    twins.Direct().drawPolygon(ToQt(points), Qt::OddEvenFill);
                    EXPECT_TRUE(twins.SameWithState()) << far << ", pen " << pen << ", point " << i;
                    EXPECT_TRUE(twins.Surface().PolyPolygon(points.data(), &count, 1));
                }
    const double beyond = std::nextafter(1e12, 2e12);
    Twins twins;
    EXPECT_FALSE(twins.Surface().Polygon(std::vector<TXPoint>({{0, 0}, {beyond, 0}, {0, 9}}).data(), 3));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(HostileNumbersTest, TheOriginCanGoAnywhere)
{
    for (const int step : {kLargest, kLowest})
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        surface->SelectPen(TXPen::DashDotLine);
        for (int i = 0; i < 50; ++i)
        {
            surface->SetWindowOrg(step, step);
            surface->Line(0, 0, 50, 50);
            surface->Line(step, step, -1.0 * step, 50);
            surface->Rectangle(step, step, 50, 50);
            surface->Polygon(kTriangle.data(), 3);
            surface->Ellipse(TXPoint(10, 10), 20, 30);
        }
        EXPECT_EQ(surface->GetWindowOrg().x, 50.0 * step);
    }
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->SetWindowOrg(TXPoint(kNaN, kNaN));
    EXPECT_EQ(surface->GetWindowOrg().x, 0.0);
    surface->SetWindowOrg(TXPoint(1e300, -kInfinity));
    surface->Rectangle(0, 0, 50, 50);
    EXPECT_TRUE(std::isfinite(surface->GetWindowOrg().x));
}

TEST_F(HostileNumbersTest, OpacityStaysBetweenZeroAndOne)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    for (const double hostile : kHostile)
    {
        surface->SetOpacity(hostile);
        EXPECT_GE(surface->GetOpacity(), 0.0) << hostile;
        EXPECT_LE(surface->GetOpacity(), 1.0) << hostile;
        surface->Rectangle(5, 5, 30, 20);
    }
}

TEST_F(HostileNumbersTest, BlitsCanGoAnywhere)
{
    const TXRefPtr<TXGraphics> source = NewPaintingSurface();
    Twins twins;
    for (const int x : {kLowest, kLargest, 0, 1 << 30})
        for (const int y : {kLowest, kLargest, 1 << 30, -100000})
            EXPECT_TRUE(source->BiltTo(&twins.Surface(), x, y));
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
