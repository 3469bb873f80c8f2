// Symbols of points that are refused: false, and nothing drawn or changed.
#include <cmath>
#include <functional>
#include <limits>

#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const std::vector<double> kRefused = {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e13, -1e13, 1.001e12, -1.001e12};

class VectorMarkerRefusalTest : public SurfaceTest, public ::testing::WithParamInterface<Placement>
{
protected:
    VectorMarkerRefusalTest() { symbol.SetPoints(Star(5, 2, 25.0)); }

    ::testing::AssertionResult IsRefused(const PointSymbol& refused)
    {
        const WholeState before(twins.SurfacePainter());
        if (Draw(twins.Surface(), GetParam(), refused))
            return ::testing::AssertionFailure() << "the answer is true; " << refused;
        if (!twins.Same())
            return ::testing::AssertionFailure() << "ink; " << refused;
        return SameWholeState(WholeState(twins.SurfacePainter()), before);
    }
    ::testing::AssertionResult DrawsOn()
    {
        PointSymbol ordinary;
        ordinary.SetPoints(Star(7, 3, 20.0));
        twins.Wipe();
        if (!Draw(twins.Surface(), GetParam(), ordinary))
            return ::testing::AssertionFailure() << "an ordinary symbol was refused";
        DrawDirectly(twins.Direct(), GetParam(), ordinary);
        return twins.SameWithState();
    }

    Twins twins{96, 72};
    PointSymbol symbol;
};

TEST_P(VectorMarkerRefusalTest, NumbersThatAreNotFiniteOrTooLargeAreRefusedInEveryArgument)
{
    for (const bool closed : {true, false})
    {
        symbol.closed = closed;
        for (std::size_t i = 0; i < symbol.Numbers(GetParam()).size(); ++i)
            for (const double refused : kRefused)
            {
                PointSymbol spoilt = symbol;
                *spoilt.Numbers(GetParam())[i] = refused;
                EXPECT_TRUE(IsRefused(spoilt)) << "number " << i << " is " << refused;
            }
    }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(VectorMarkerRefusalTest, PointsThatAreNotFiniteOrTooLargeAreRefused)
{
    symbol.offsetX = symbol.x;
    symbol.offsetY = symbol.y;
    for (const int count : {5, 64, 65, 200})
        for (const double refused : kRefused)
            for (const int spoilt : {0, 3, count - 1})
                for (const bool inX : {true, false})
                {
                    symbol.SetPoints(Star(count, 2, 25.0));
                    TXPoint& point = symbol.points[static_cast<std::size_t>(spoilt)];
                    (inX ? point.x : point.y) = refused;
                    EXPECT_TRUE(IsRefused(symbol)) << "point " << spoilt << " of " << count << " is " << refused;
                }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(VectorMarkerRefusalTest, TheBoundItselfIsNotBeyondIt)
{
    const double beyond = std::nextafter(1e12, 2e12);
    const std::vector<std::function<void(PointSymbol&, double)>> spoilers = {
        [](PointSymbol& spoilt, double number) { spoilt.x = spoilt.offsetX = number; },
        [](PointSymbol& spoilt, double number) { spoilt.y = spoilt.offsetY = number; },
        [](PointSymbol& spoilt, double number) { spoilt.angle = number; },
        [](PointSymbol& spoilt, double number) { spoilt.points[4].x = number; },
        [](PointSymbol& spoilt, double number) { spoilt.points[4].y = number; }};
    symbol.x = symbol.y = symbol.offsetX = symbol.offsetY = 0.0;
    for (const auto& spoil : spoilers)
        for (const double sign : {1.0, -1.0})
        {
            PointSymbol spoilt = symbol;
            spoil(spoilt, sign * beyond);
            EXPECT_TRUE(IsRefused(spoilt));
            spoil(spoilt, sign * 1e12);
            EXPECT_TRUE(Draw(twins.Surface(), GetParam(), spoilt)) << spoilt;
            twins.Wipe();
        }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(VectorMarkerRefusalTest, PointsAfterTheCountDoNotMatter)
{
    symbol.points.emplace_back(kNaN, 1e300);
    EXPECT_TRUE(Draw(twins.Surface(), GetParam(), symbol));
    DrawDirectly(twins.Direct(), GetParam(), symbol);
    EXPECT_TRUE(twins.SameWithState());
    // Of no points at all, not even the first is looked at.
    symbol.points.front() = TXPoint(kNaN, 1e300);
    for (const int count : {0, -1, -70})
    {
        symbol.count = count;
        EXPECT_TRUE(Draw(twins.Surface(), GetParam(), symbol));
        EXPECT_TRUE(twins.SameWithState());
    }
}

TEST_P(VectorMarkerRefusalTest, ProductsThatAreTooLargeAreRefused)
{
    for (const auto& [scale, coordinate] : {std::pair(1e200, 1e200),
                                            {1e7, 1e6},
                                            {-1e7, 1e6},
                                            {kInfinity, 0.0},
                                            {1e300, 1.0},
                                            {3e11, 25.0},
                                            {1e308, 1e308}})
        for (const bool inX : {true, false})
        {
            PointSymbol spoilt = symbol;
            (inX ? spoilt.scaleX : spoilt.scaleY) = scale;
            (inX ? spoilt.points[1].x : spoilt.points[1].y) = coordinate;
            EXPECT_TRUE(IsRefused(spoilt)) << scale << " x " << coordinate;
        }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(VectorMarkerRefusalTest, PlacesThatCancelOutAreRefusedAllTheSame)
{
    for (const double refused : kRefused)
        for (const bool inX : {true, false})
        {
            PointSymbol spoilt = symbol;
            (inX ? spoilt.x : spoilt.y) = refused;
            (inX ? spoilt.offsetX : spoilt.offsetY) = refused;
            EXPECT_TRUE(IsRefused(spoilt)) << refused;
        }
    EXPECT_TRUE(DrawsOn());
}

TEST_P(VectorMarkerRefusalTest, AreJudgedByThePlacedPoints)
{
    // Far points that the scale brings back are as ordinary as any.
    symbol.scaleX = symbol.scaleY = 1e-14;
    for (TXPoint& point : symbol.points)
        point = TXPoint(point.x * 1e14, point.y * 1e14);
    EXPECT_TRUE(Draw(twins.Surface(), GetParam(), symbol));
    DrawDirectly(twins.Direct(), GetParam(), symbol);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_P(VectorMarkerRefusalTest, NumbersUpToTheBoundDoNoHarm)
{
    const QPen pens[] = {QPen(Qt::black), QPen(Qt::black, 0.0, Qt::DotLine),
                         QPen(QColor(0, 90, 200, 120), 7.5, Qt::DashDotLine, Qt::RoundCap), QPen(Qt::NoPen)};
    for (const QPen& pen : pens)
        for (const bool closed : {true, false})
        {
            twins.Both([&](QPainter& painter) { painter.setPen(pen); });
            symbol.closed = closed;
            for (std::size_t i = 0; i < symbol.Numbers(GetParam()).size(); ++i)
                for (const double extreme : {1e12, -1e12, 1e9, -1e9, 1073741824.0, 5e-324, 0.0})
                {
                    PointSymbol far = symbol;
                    *far.Numbers(GetParam())[i] = i < 2 ? extreme / 100.0 : extreme;
                    Draw(twins.Surface(), GetParam(), far);
                }
            PointSymbol farPoints = symbol;
            farPoints.offsetX = farPoints.x;
            farPoints.offsetY = farPoints.y;
            farPoints.points[0] = TXPoint(1e12, -1e12);
            farPoints.points[3] = TXPoint(-1e12, 1e12);
            farPoints.x = -1e12;
            farPoints.offsetX = -1e12;
            farPoints.angle = 45.0;
            Draw(twins.Surface(), GetParam(), farPoints);
            EXPECT_TRUE(DrawsOn());
        }
}

TEST_P(VectorMarkerRefusalTest, NullPointsAreRefused)
{
    PointSymbol none;
    for (const int count : {0, 3, -1})
    {
        none.count = count;
        ASSERT_EQ(none.points.data(), nullptr);
        for (const bool closed : {true, false})
        {
            none.closed = closed;
            EXPECT_TRUE(IsRefused(none)) << count;
        }
    }
}

TEST_P(VectorMarkerRefusalTest, WithoutAPainterTheAnswerIsFalse)
{
    const TXRefPtr<TXGraphics> never = TestEngine().NewGraphics(nullptr);
    EXPECT_FALSE(Draw(*never, GetParam(), symbol));
    const QImage before = twins.Actual().copy();
    const QImage& image = twins.Actual();
    twins.Surface().Delete();
    EXPECT_FALSE(Draw(twins.Surface(), GetParam(), symbol));
    EXPECT_EQ(image, before);
}

TEST_P(VectorMarkerRefusalTest, AnInactivePainterDrawsNothingAndSaysNothing)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    ASSERT_FALSE(PainterOf(*surface).isActive());
    EXPECT_TRUE(Draw(*surface, GetParam(), symbol));
    symbol.angle = 12.0;
    symbol.closed = false;
    EXPECT_TRUE(Draw(*surface, GetParam(), symbol));
}

INSTANTIATE_TEST_SUITE_P(Overloads, VectorMarkerRefusalTest, ::testing::ValuesIn(kPlacements),
                         [](const ::testing::TestParamInfo<Placement>& placement)
                         { return placement.param == Placement::ByAnchor ? "ByAnchor" : "ByOffset"; });

} // namespace
