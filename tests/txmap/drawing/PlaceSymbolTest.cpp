#include <algorithm>
#include <cmath>
#include <string>

#include <gtest/gtest.h>
#include <tests/txmap/support/SymbolShapes.h>
#include <txmap/cli/ParseSymbol.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/drawing/PlaceSymbol.h>

using namespace txmap;
using TZObjects::TXPoint;

namespace
{

using Shape = PlaceSymbol::Shape;

/// The sum over a polygon of its area and of what its centre of gravity is made of.
TXPoint CentreOf(const std::vector<TXPoint>& corners)
{
    double area = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i)
    {
        const TXPoint& a = corners[i];
        const TXPoint& b = corners[(i + 1) % corners.size()];
        const double cross = a.x * b.y - b.x * a.y;
        area += cross;
        x += (a.x + b.x) * cross;
        y += (a.y + b.y) * cross;
    }
    return {x / (3.0 * area), y / (3.0 * area)};
}

} // namespace

TEST(SymbolShape, IsOneLongAndHasItsWeightInTheMiddle)
{
    for (const auto& [name, shape] : kSymbolShapes)
    {
        const std::vector<TXPoint> corners = CornersOf(shape);
        const auto [left, right] = std::minmax_element(corners.begin(), corners.end(),
                                                       [](const TXPoint& a, const TXPoint& b) { return a.x < b.x; });
        const auto [top, bottom] = std::minmax_element(corners.begin(), corners.end(),
                                                       [](const TXPoint& a, const TXPoint& b) { return a.y < b.y; });
        EXPECT_NEAR(std::max(right->x - left->x, bottom->y - top->y), 1.0, 1e-9) << name;
        EXPECT_NEAR(CentreOf(corners).x, 0.0, 1e-9) << name;
        EXPECT_NEAR(CentreOf(corners).y, 0.0, 1e-9) << name;
    }
}

TEST(SymbolShape, OfTrianglesAndStarsPointsUpward)
{
    for (const Shape shape : {Shape::Triangle, Shape::Star})
    {
        const std::vector<TXPoint> corners = CornersOf(shape);
        const auto top = std::min_element(corners.begin(), corners.end(),
                                          [](const TXPoint& a, const TXPoint& b) { return a.y < b.y; });
        EXPECT_NEAR(top->x, 0.0, 1e-9);
        EXPECT_EQ(std::count_if(corners.begin(), corners.end(),
                                [&](const TXPoint& corner) { return corner.y < top->y + 0.05; }),
                  1);
    }
}

TEST(PlacePainter, ReachesAsFarAsItsSymbolAndRing)
{
    const Style style = AtlasStyle();
    const auto reach = [&](const std::string& symbol, double size, double unit)
    {
        PlaceSymbol parsed = ParseSymbol(symbol);
        if (size > 0.0)
            parsed.size = size;
        return PlacePainter(parsed, style, unit, TextPath::Qt).Reach();
    };
    EXPECT_NEAR(reach("circle", 0.0, 1.0), style.placeRadius + style.placeRing.width, 1e-9);
    EXPECT_NEAR(reach("circle", 0.0, 3.0), 3.0 * (style.placeRadius + style.placeRing.width), 1e-9);
    EXPECT_NEAR(reach("square", 20.0, 2.0), 10.0 + 2.0 * style.placeRing.width, 1e-9);
    EXPECT_NEAR(reach("triangle", 20.0, 1.0), 20.0 / std::sqrt(3.0) + style.placeRing.width, 1e-9);
    EXPECT_NEAR(reach("font:DejaVu Sans:U+2605", 20.0, 1.0), 10.0 + style.placeRing.width, 1e-9);
    EXPECT_GT(reach("star", 0.0, 1.0), reach("circle", 0.0, 1.0));
}
