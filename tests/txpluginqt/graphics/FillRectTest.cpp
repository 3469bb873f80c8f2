#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

QRect Truncated(const TXRect& rect)
{
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right - rect.left),
            static_cast<int>(rect.bottom - rect.top)};
}

TXRect SomeRect(Random& random)
{
    const double left = random.Coordinate();
    const double top = random.Coordinate();
    const double width = random.Length();
    return {left, left + width, top, top + random.Length()};
}

class FillRectTest : public SurfaceTest
{
};

TEST_F(FillRectTest, FillsWithAColour)
{
    ForRandomCases(15, 400,
                   [](Random& random, Twins& twins)
                   {
                       const TXRect rect = SomeRect(random);
                       const TXColor color = random.Color();
                       EXPECT_TRUE(twins.Surface().fillRect(rect, color));
                       twins.Direct().fillRect(Truncated(rect), ToQt(color));
                   });
}

TEST_F(FillRectTest, FillsWithALinearGradient)
{
    ForRandomCases(16, 300,
                   [](Random& random, Twins& twins)
                   {
                       const TXRect rect = SomeRect(random);
                       const QPointF from = ToQt(random.Point());
                       const QPointF to = ToQt(random.Point());
                       const TXRefPtr<TXLinearGradient> gradient =
                           TestEngine().NewLinearGradient(from.x(), from.y(), to.x(), to.y());
                       QLinearGradient expected(from, to);
                       for (const double position : {0.0, 0.3, 1.0})
                       {
                           const TXColor color = random.Color();
                           gradient->SetColorAt(position, color);
                           expected.setColorAt(position, ToQt(color));
                       }
                       EXPECT_TRUE(twins.Surface().FillRect(rect, gradient.get()));
                       twins.Direct().fillRect(Truncated(rect), QBrush(expected));
                   });
}

TEST_F(FillRectTest, FillsWithARadialGradient)
{
    ForRandomCases(17, 300,
                   [](Random& random, Twins& twins)
                   {
                       const TXRect rect = SomeRect(random);
                       const QPointF centre = ToQt(random.Point());
                       const double radius = random.Real(1.0, 90.0);
                       const TXRefPtr<TXRadialGradient> gradient =
                           TestEngine().NewRadialGradient(centre.x(), centre.y(), radius);
                       QRadialGradient expected(centre, radius);
                       for (const double position : {0.0, 0.6, 1.0})
                       {
                           const TXColor color = random.Color();
                           gradient->SetColorAt(position, color);
                           expected.setColorAt(position, QColor(color.getR(), color.getG(), color.getB()));
                       }
                       EXPECT_TRUE(twins.Surface().FillRect(rect, gradient.get()));
                       twins.Direct().fillRect(Truncated(rect), QBrush(expected));
                   });
}

TEST_F(FillRectTest, TruncatesWidthAndHeightAndNotTheFarEdges)
{
    Twins twins;
    // From 10.9 to 20.1 the width is 9.2, which fills the nine columns from 10 on.
    EXPECT_TRUE(twins.Surface().fillRect(TXRect(10.9, 20.1, -0.5, 7.4), TXColor(200, 10, 10, 255)));
    twins.Direct().fillRect(QRect(10, 0, 9, 7), QColor(200, 10, 10));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(FillRectTest, KeepsTheAlphaOfTheColour)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().fillRect(TXRect(10, 90, 10, 90), TXColor(10, 200, 30, 0)));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(FillRectTest, IsRefusedWithoutAGradient)
{
    const TXRefPtr<TXLinearGradient> deleted = TestEngine().NewLinearGradient(0, 0, 50, 50);
    deleted->Delete();
    Twins twins;
    EXPECT_FALSE(twins.Surface().FillRect(TXRect(10, 90, 10, 90), nullptr));
    EXPECT_FALSE(twins.Surface().FillRect(TXRect(10, 90, 10, 90), deleted.get()));
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
