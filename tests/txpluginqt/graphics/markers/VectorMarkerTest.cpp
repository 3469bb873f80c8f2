// What is special about symbols of points, one sentence at a time.
#include <functional>
#include <limits>

#include <QPicture>

#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "SameCalls.h"
#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

class VectorMarkerTest : public SurfaceTest, public ::testing::WithParamInterface<Placement>
{
protected:
    VectorMarkerTest() { symbol.SetPoints(Star(5, 2, 25.0)); }

    bool Draw() { return ::Draw(twins.Surface(), GetParam(), symbol); }
    void DrawDirectly() { ::DrawDirectly(twins.Direct(), GetParam(), symbol); }
    ::testing::AssertionResult SameAsDirect()
    {
        twins.Wipe();
        if (!Draw())
            return ::testing::AssertionFailure() << "the answer is false";
        DrawDirectly();
        return twins.SameWithState();
    }
    /// The calls that reach a paint engine, which show what no picture does.
    ::testing::AssertionResult SameCalls(const std::function<void(QPainter&)>& change = {})
    {
        return ::SameCalls(
            twins.Surface(), change, [this] { return Draw(); },
            [this](QPainter& direct) { ::DrawDirectly(direct, GetParam(), symbol); });
    }
    bool LeftInk() { return twins.Actual() != untouched; }

    Twins twins{96, 72};
    const QImage untouched = twins.Actual().copy();
    PointSymbol symbol;
};

TEST_P(VectorMarkerTest, FillsByTheOddEvenRule)
{
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameCalls());
    // A hole in the middle of the star, whose points are filled.
    symbol.x = symbol.offsetX = 48.0;
    symbol.y = symbol.offsetY = 36.0;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Actual().pixel(48, 36), untouched.pixel(48, 36));
    EXPECT_NE(twins.Actual().pixel(48, 18), untouched.pixel(48, 18));
}

TEST_P(VectorMarkerTest, LeavesAnOpenSymbolOpenAndUnfilled)
{
    symbol.closed = false;
    EXPECT_TRUE(SameAsDirect());
    const QImage open = twins.Actual().copy();
    symbol.closed = true;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), open);
    // The first point is not repeated at the end.
    symbol.closed = false;
    symbol.points.push_back(symbol.points.front());
    ++symbol.count;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), open);
}

TEST_P(VectorMarkerTest, IsTurnedOnlyByAnglesAboveAHundredMillionth)
{
    symbol.points.resize(3);
    symbol.count = 3;
    for (const double angle : {0.0, 1e-9, -1e-9, 1e-8, -1e-8, 1.0000001e-8, -1.0000001e-8, 1e-7, -1e-7, 1e-4,
                               0.5, -0.5, 0.99,  90.0, -30.0, 360.0,        720.5,         1e6,  -1e6,  1e12})
    {
        symbol.angle = angle;
        for (const bool closed : {true, false})
        {
            symbol.closed = closed;
            EXPECT_TRUE(SameCalls()) << angle;
            EXPECT_TRUE(SameAsDirect()) << angle;
        }
    }
}

TEST_P(VectorMarkerTest, TurnsAClockwiseQuarter)
{
    // From three o'clock to six.
    symbol.SetPoints({{0, 0}, {30, 0}});
    symbol.closed = false;
    symbol.angle = 90.0;
    symbol.offsetX = symbol.x;
    symbol.offsetY = symbol.y;
    EXPECT_TRUE(Draw());
    EXPECT_NE(twins.Actual().pixel(48, 56), untouched.pixel(48, 56));
    EXPECT_EQ(twins.Actual().pixel(68, 36), untouched.pixel(68, 36));
    EXPECT_EQ(twins.Actual().pixel(48, 16), untouched.pixel(48, 16));
}

TEST_P(VectorMarkerTest, TakesAnyNumberOfPoints)
{
    for (const int count : {3, 63, 64, 65, 66, 200, 5000})
        for (const bool closed : {true, false})
        {
            symbol.SetPoints(Star(count, count > 7 ? 7 : 1, 30.0));
            symbol.closed = closed;
            EXPECT_TRUE(SameAsDirect()) << count;
            EXPECT_TRUE(SameCalls()) << count;
        }
}

TEST_P(VectorMarkerTest, TakesTheFirstPointsOfALongerArray)
{
    symbol.SetPoints(Star(9, 4, 25.0));
    symbol.count = 5;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameCalls());
}

TEST_P(VectorMarkerTest, OfNoneOneOrFewerPointsIsTrueAndDrawsNothing)
{
    for (const int count : {1, 0, -1, -64, std::numeric_limits<int>::min()})
        for (const bool closed : {true, false})
        {
            symbol.count = count;
            symbol.closed = closed;
            symbol.angle = 30.0;
            const WholeState before(twins.SurfacePainter());
            EXPECT_TRUE(Draw()) << count;
            EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before));
            EXPECT_FALSE(LeftInk()) << count;
        }
}

TEST_P(VectorMarkerTest, OfTwoPointsIsALine)
{
    symbol.SetPoints({{-20, -10}, {20, 15}});
    for (const bool closed : {true, false})
    {
        symbol.closed = closed;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_TRUE(LeftInk());
    }
}

TEST_P(VectorMarkerTest, IsMirroredAndFlattenedByItsScales)
{
    for (const auto& [scaleX, scaleY] :
         {std::pair(-1.0, 1.0), {1.0, -1.0}, {-0.7, -1.3}, {0.0, 1.0}, {1.0, 0.0}, {0.0, 0.0}, {0.01, 2.0}})
    {
        symbol.scaleX = scaleX;
        symbol.scaleY = scaleY;
        symbol.angle = 20.0;
        EXPECT_TRUE(SameAsDirect()) << scaleX << ' ' << scaleY;
        EXPECT_TRUE(SameCalls()) << scaleX << ' ' << scaleY;
    }
}

TEST_P(VectorMarkerTest, IsNotRounded)
{
    symbol.x = 48.37;
    symbol.y = 36.81;
    symbol.offsetX = 50.19;
    symbol.offsetY = 33.43;
    symbol.scaleX = 0.913;
    symbol.scaleY = 1.117;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameCalls());
}

TEST_P(VectorMarkerTest, FollowsTheWindowOrigin)
{
    twins.Surface().SetWindowOrg(7, -5);
    twins.Direct().translate(7, -5);
    symbol.angle = 33.0;
    EXPECT_TRUE(SameAsDirect());
    twins.Surface().SetWindowOrg(3, 4);
    twins.Direct().translate(3, 4);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Surface().GetWindowOrg().x, 10.0);
    EXPECT_EQ(twins.Surface().GetWindowOrg().y, -1.0);
}

TEST_P(VectorMarkerTest, UsesTheSelectedPenAndBrush)
{
    twins.Surface().SelectPen(NewPen(TXColor(200, 30, 10, 120), 4.0));
    twins.Surface().SelectBrush(NewBrush(TXColor(10, 200, 40, 90)));
    QPen pen(QColor(200, 30, 10, 120), 4.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    twins.Direct().setPen(pen);
    twins.Direct().setBrush(QColor(10, 200, 40, 90));
    EXPECT_TRUE(SameAsDirect());
    twins.Surface().SelectPen(TXPen::NullPen);
    twins.Direct().setPen(Qt::NoPen);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(LeftInk());
}

TEST_P(VectorMarkerTest, PutsASwitchedOffWorldMatrixBack)
{
    const auto change = [](QPainter& painter)
    {
        painter.translate(5, 3);
        painter.rotate(10);
        painter.setWorldMatrixEnabled(false);
    };
    EXPECT_TRUE(SameCalls(change));
    twins.Both(change);
    const WholeState before(twins.SurfacePainter());
    ASSERT_FALSE(before.worldMatrixEnabled);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before));
}

TEST_P(VectorMarkerTest, FollowsWindowAndViewport)
{
    const auto change = [](QPainter& painter)
    {
        painter.setWindow(-20, -10, 200, 150);
        painter.setViewport(10, 5, 80, 60);
    };
    EXPECT_TRUE(SameCalls(change));
    twins.Both(change);
    const WholeState before(twins.SurfacePainter());
    symbol.angle = -12.5;
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before));
    EXPECT_TRUE(LeftInk());
}

TEST_P(VectorMarkerTest, LeavesTheStackOfStatesAsItIs)
{
    const WholeState before(twins.SurfacePainter());
    twins.Surface().Save();
    twins.SurfacePainter().setPen(Qt::red);
    twins.SurfacePainter().rotate(40);
    EXPECT_TRUE(Draw());
    twins.Surface().Restore();
    EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before));
}

TEST_P(VectorMarkerTest, IsPlayedBackFromAPictureAsItWasDrawn)
{
    QPicture actual;
    QPicture expected;
    symbol.angle = 25.0;
    {
        QPainter outside(&actual);
        QPainter direct(&expected);
        for (QPainter* const painter : {&outside, &direct})
            painter->translate(4, 6);
        twins.Surface().Attach(&outside);
        EXPECT_TRUE(Draw());
        ::DrawDirectly(direct, GetParam(), symbol);
        for (QPainter* const painter : {&outside, &direct})
            painter->drawRect(3, 3, 20, 10);
        twins.Surface().Detach();
    }
    twins.SurfacePainter().drawPicture(0, 0, actual);
    twins.Direct().drawPicture(0, 0, expected);
    EXPECT_TRUE(twins.Same());
    EXPECT_TRUE(LeftInk());
}

INSTANTIATE_TEST_SUITE_P(Overloads, VectorMarkerTest, ::testing::ValuesIn(kPlacements),
                         [](const ::testing::TestParamInfo<Placement>& placement)
                         { return placement.param == Placement::ByAnchor ? "ByAnchor" : "ByOffset"; });

TEST_F(SurfaceTest, AVectorMarkerByOffsetLiesThereWhateverItTurnsAbout)
{
    PointSymbol symbol;
    symbol.SetPoints({{-10, -5}, {15, 0}, {0, 12}});
    symbol.offsetX = 40.0;
    symbol.offsetY = 30.0;
    for (const double about : {0.0, 20.0, -300.0})
    {
        Twins twins(96, 72);
        symbol.x = about;
        symbol.y = 2.0 * about;
        EXPECT_TRUE(Draw(twins.Surface(), Placement::ByOffset, symbol));
        const QPointF triangle[] = {{30, 25}, {55, 30}, {40, 42}};
        twins.Direct().drawPolygon(triangle, 3);
        EXPECT_TRUE(twins.SameWithState()) << about;
    }
}

} // namespace
