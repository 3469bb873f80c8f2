#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

int RoundedAway(double value) { return static_cast<int>(value < 0.0 ? value - 0.5 : value + 0.5); }

class LineTest : public SurfaceTest
{
};

TEST_F(LineTest, JoinsPointsRoundedToWholeUnits)
{
    ForRandomCases(1, 400,
                   [](Random& random, Twins& twins)
                   {
                       const TXPoint from = random.Point();
                       const TXPoint to = random.Point();
                       EXPECT_TRUE(twins.Surface().Line(from.x, from.y, to.x, to.y));
                       const QLine line(RoundedAway(from.x), RoundedAway(from.y), RoundedAway(to.x), RoundedAway(to.y));
                       twins.Direct().drawLines(&line, 1);
                   });
}

TEST_F(LineTest, RoundsHalvesAwayFromZero)
{
    struct Case
    {
        double x1, y1, x2, y2;
        QLine drawn;
    };
    const Case cases[] = {{-0.5, 0.5, 1.49, 2.5, {-1, 1, 1, 3}},
                          {-2.5, -3.5, 2.5, 3.5, {-3, -4, 3, 4}},
                          {-0.49, -1.49, 0.49, 1.49, {0, -1, 0, 1}},
                          {10.5, 20.5, 11.5, 21.5, {11, 21, 12, 22}},
                          {-10.5, 5.0, 10.499999, 5.5, {-11, 5, 10, 6}}};
    for (const Case& tried : cases)
    {
        Twins twins;
        twins.Both(
            [](QPainter& painter)
            {
                painter.setPen(Qt::black);
                painter.setRenderHint(QPainter::Antialiasing, false);
                painter.translate(20, 20);
            });
        EXPECT_TRUE(twins.Surface().Line(tried.x1, tried.y1, tried.x2, tried.y2));
        twins.Direct().drawLine(tried.drawn);
        EXPECT_TRUE(twins.SameWithState()) << tried.x1 << ", " << tried.y1 << " to " << tried.x2 << ", " << tried.y2;
    }
}

TEST_F(LineTest, TakesPointsAsWell)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().Line(TXPoint(3.5, 80.4), TXPoint(120.5, -7.5)));
    twins.Direct().drawLine(4, 80, 121, -8);
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
