// Symbols of points with arguments and in states by chance, each against the same calls of Qt.
#include <tests/support/ImageCompare.h>
#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/graphics/RandomCases.h>

#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

constexpr int kCases = 600;

double SomeAngle(Random& random)
{
    constexpr double angles[] = {0.0, 1e-9, 1e-8, -1e-8, -1e-7, 0.5, -0.5, 90.0, 360.0, 1e6, -30.0};
    return random.Chance(50) ? random.OneOf(angles) : random.Real(-400.0, 400.0);
}

double SomeScale(Random& random)
{
    constexpr double scales[] = {1.0, -1.0, 0.0, 0.001, 100.0};
    return random.Chance(25) ? random.OneOf(scales) : random.Real(-2.5, 2.5);
}

std::vector<TXPoint> SomePoints(Random& random)
{
    constexpr int counts[] = {0, 1, 2, 3, 64, 65, 130};
    const int kind = random.Int(1, 100);
    if (kind <= 40)
    {
        const int corners = random.Int(3, 11);
        return Star(corners, random.Int(1, corners - 1), random.Real(2.0, 30.0));
    }
    const int count = kind <= 70 ? random.Int(2, 9) : random.OneOf(counts);
    std::vector<TXPoint> points;
    for (int i = 0; i < count; ++i)
    {
        const double x = random.Real(-30.0, 30.0);
        points.emplace_back(x, random.Real(-30.0, 30.0));
    }
    return points;
}

PointSymbol SomeSymbol(Random& random)
{
    PointSymbol symbol;
    symbol.SetPoints(SomePoints(random));
    if (symbol.points.empty())
        symbol.points.emplace_back(); // no points, yet not null
    if (random.Chance(5))
        symbol.count = random.Int(-70, 0);
    symbol.closed = random.Chance(60);
    symbol.angle = SomeAngle(random);
    symbol.scaleX = SomeScale(random);
    symbol.scaleY = SomeScale(random);
    const bool visible = random.Chance(85);
    symbol.x = visible ? random.Real(10.0, 80.0) : random.Coordinate();
    symbol.y = visible ? random.Real(10.0, 60.0) : random.Coordinate();
    symbol.offsetX = visible ? symbol.x + random.Real(-25.0, 25.0) : random.Coordinate();
    symbol.offsetY = visible ? symbol.y + random.Real(-25.0, 25.0) : random.Coordinate();
    return symbol;
}

/// What the shared random states do not vary.
void ChangeFurther(Random& random, QPainter& painter)
{
    if (random.Chance(20))
    {
        QPen pen = painter.pen();
        pen.setCosmetic(true);
        if (random.Chance(50))
            pen.setWidthF(0.0);
        painter.setPen(pen);
    }
    if (random.Chance(10))
        painter.setPen(QPen(Qt::blue, random.Real(10.0, 40.0), static_cast<Qt::PenStyle>(random.Int(1, 5))));
    if (random.Chance(15))
        painter.setWorldMatrixEnabled(false);
    if (random.Chance(20))
    {
        painter.setWindow(random.Int(-40, 40), random.Int(-40, 40), random.Int(40, 300), random.Int(40, 300));
        painter.setViewport(random.Int(-10, 10), random.Int(-10, 10), random.Int(40, 120), random.Int(40, 120));
    }
    if (random.Chance(20))
        painter.setBrushOrigin(random.Int(0, 7), random.Int(0, 7));
}

class VectorMarkerRandomTest : public QuietTest, public ::testing::WithParamInterface<Placement>
{
};

TEST_P(VectorMarkerRandomTest, IsDrawnAsQtDrawsIt)
{
    ForRandomCases(341u + static_cast<unsigned>(GetParam()), kCases,
                   [](Random& random, Twins& twins)
                   {
                       const PointSymbol symbol = SomeSymbol(random);
                       const unsigned further = static_cast<unsigned>(random.Int(0, 1 << 30));
                       twins.Both(
                           [&](QPainter& painter)
                           {
                               Random same(further);
                               ChangeFurther(same, painter);
                           });
                       const WholeState before(twins.SurfacePainter());
                       EXPECT_TRUE(Draw(twins.Surface(), GetParam(), symbol)) << symbol;
                       DrawDirectly(twins.Direct(), GetParam(), symbol);
                       EXPECT_TRUE(SameWholeState(WholeState(twins.SurfacePainter()), before)) << symbol;
                       EXPECT_TRUE(SameWholeState(before, WholeState(twins.Direct()))) << symbol;
                   });
}

TEST_P(VectorMarkerRandomTest, IsDrawnWithAnOutsidePainterAsQtDrawsIt)
{
    QImage canvas(96, 72, QImage::Format_ARGB32_Premultiplied);
    PaintBackground(canvas);
    Twins twins(20, 20);
    int drawn = 0;
    for (unsigned i = 0; i < 300; ++i)
    {
        Random random(34100u + i);
        QImage actual = canvas.copy();
        QImage expected = canvas.copy();
        QPainter outside(&actual);
        QPainter direct(&expected);
        const double turn = random.Real(-180.0, 180.0);
        const double scaleX = random.Real(-1.5, 1.5);
        const double scaleY = random.Real(0.3, 1.5);
        const QPen pen = random.Pen();
        const QBrush brush = random.Brush();
        const unsigned further = static_cast<unsigned>(random.Int(0, 1 << 30));
        for (QPainter* const painter : {&outside, &direct})
        {
            Random same(further);
            painter->setRenderHint(QPainter::Antialiasing, i % 2 == 0);
            painter->setPen(pen);
            painter->setBrush(brush);
            painter->translate(48, 36);
            painter->rotate(turn);
            painter->scale(scaleX, scaleY);
            painter->translate(-40, -30);
            ChangeFurther(same, *painter);
        }
        const PointSymbol symbol = SomeSymbol(random);
        const WholeState before(outside);
        twins.Surface().Attach(&outside);
        EXPECT_TRUE(Draw(twins.Surface(), GetParam(), symbol)) << symbol;
        twins.Surface().Detach();
        DrawDirectly(direct, GetParam(), symbol);
        ASSERT_TRUE(SameWholeState(WholeState(outside), before)) << symbol;
        ASSERT_TRUE(SamePixels(actual, expected)) << "case " << i << ": " << symbol;
        drawn += expected != canvas;
    }
    EXPECT_GE(drawn, 150) << "too few cases drew anything to say much";
}

INSTANTIATE_TEST_SUITE_P(Overloads, VectorMarkerRandomTest, ::testing::ValuesIn(kPlacements),
                         [](const ::testing::TestParamInfo<Placement>& placement)
                         { return placement.param == Placement::ByAnchor ? "ByAnchor" : "ByOffset"; });

} // namespace
