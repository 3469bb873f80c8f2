// Shapes, paths and clipping.
#include "Operations.h"

using namespace TZObjects;

namespace
{

int Count(const std::vector<TXPoint>& points) { return static_cast<int>(points.size()); }
int Count(const Rings& rings) { return static_cast<int>(rings.counts.size()); }

std::tuple<double, double, double, double> SomeFour(Random& r)
{
    return {r.Coordinate(), r.Coordinate(), r.Length(), r.Length()};
}

std::tuple<double, double> SomeAngles(Random& r) { return {r.Real(-400.0, 400.0), r.Real(-400.0, 400.0)}; }

/// Often so close to each other that they make one pixel.
std::tuple<std::vector<TXPoint>> SomeLine(Random& r)
{
    std::vector<TXPoint> points = r.Points(0, 8);
    if (!points.empty() && r.Chance(25))
        for (TXPoint& point : points)
            point = TXPoint(points[0].x + r.Real(-0.3, 0.3), points[0].y + r.Real(-0.3, 0.3));
    return {points};
}

/// Between no and three rings that are a region to clip to, of which a good part of the surface is left.
std::tuple<Rings> SomeRegion(Random& r)
{
    Rings rings;
    for (int i = r.Chance(5) ? 1 : 0; i < 2; ++i)
    {
        const double x = r.Real(-10.0, 40.0) + (r.Chance(20) ? 0.5 : 0.0);
        const double y = r.Real(-10.0, 30.0);
        const double w = r.Real(20.0, 80.0);
        const double h = r.Real(20.0, 70.0);
        const double slope = r.Real(-5.0, 5.0);
        rings.Add({TXPoint(x, y), TXPoint(x + w, y + slope), TXPoint(x + w, y + h), TXPoint(x, y + h)});
        if (r.Chance(40))
            break;
        if (r.Chance(10))
            rings.Add({});
    }
    return {rings};
}

std::tuple<TXGraphics::stGradientParams> SomeParams(Random& r)
{
    TXGraphics::stGradientParams gradient = SomeGradient(r);
    if (r.Chance(25))
        gradient.type = 2;
    return {gradient};
}

} // namespace

std::vector<Operation> ShapeOperations()
{
    const auto someRect = [](Random& r) { return std::tuple{SomeRect(r)}; };
    const auto someRings = [](Random& r) { return std::tuple{SomeRings(r)}; };
    const auto somePolygon = [](Random& r) { return std::tuple{r.Points(r.Chance(5) ? 2 : 3, 8)}; };
    return {
        SurfaceRow(
            "Line", 5,
            [](Random& r) {
                return std::tuple{r.Coordinate(), r.Coordinate(), r.Coordinate(), r.Coordinate()};
            },
            [](auto& s, auto... a) { return s.Line(a...); }),
        SurfaceRow(
            "Line(points)", 3,
            [](Random& r) {
                return std::tuple{r.Point(), r.Point()};
            },
            [](auto& s, auto... a) { return s.Line(a...); }),
        SurfaceRow("Polyline", 6, SomeLine, [](auto& s, const auto& p) { return s.Polyline(p.data(), Count(p)); }),
        SurfaceRow("PolyPolyline", 4, someRings,
                   [](auto& s, const Rings& p) { return s.PolyPolyline(p.points.data(), p.counts.data(), Count(p)); }),
        SurfaceRow("Polygon", 6, somePolygon, [](auto& s, const auto& p) { return s.Polygon(p.data(), Count(p)); }),
        SurfaceRow("Polygon(gradient)", 5, Joined(somePolygon, SomeParams),
                   [](auto& s, const auto& p, const auto& g) { return s.Polygon(p.data(), Count(p), g); }),
        SurfaceRow("PolyPolygon", 5, someRings,
                   [](auto& s, const Rings& p) { return s.PolyPolygon(p.points.data(), p.counts.data(), Count(p)); }),
        SurfaceRow("PolyPolygon(gradient)", 4, Joined(someRings, SomeParams),
                   [](auto& s, const Rings& p, const auto& g)
                   { return s.PolyPolygon(p.points.data(), p.counts.data(), Count(p), g); }),
        SurfaceRow("Rectangle", 5, SomeFour, [](auto& s, auto... a) { return s.Rectangle(a...); }),
        SurfaceRow("Rectangle(rect)", 3, someRect, [](auto& s, auto... a) { return s.Rectangle(a...); }),
        SurfaceRow(
            "Ellipse(centre)", 4,
            [](Random& r) {
                return std::tuple{r.Point(), r.Int(0, 40), r.Int(0, 30)};
            },
            [](auto& s, auto... a) { return s.Ellipse(a...); }),
        SurfaceRow(
            "Ellipse(rect)", 3,
            [](Random& r) {
                return std::tuple{SomeRect(r), r.Int(-90, 90), r.Chance(60)};
            },
            [](auto& s, auto... a) { return s.Ellipse(a...); }),
        SurfaceRow(
            "Ellipse", 5,
            [](Random& r)
            {
                const double width = r.Length();
                return std::tuple{r.Coordinate(), r.Coordinate(), width, r.Chance(15) ? width : r.Length(),
                                  r.Int(-90, 90), r.Chance(60)};
            },
            [](auto& s, auto... a) { return s.Ellipse(a...); }),
        SurfaceRow(
            "EllipseByRadialGradient", 4,
            [](Random& r) {
                return std::tuple{r.Point(), r.Int(0, 40), r.Color(), r.Color()};
            },
            [](auto& s, auto... a) { return s.EllipseByRadialGradient(a...); }),
        SurfaceRow(
            "Curve", 4, [](Random& r) { return std::tuple{r.Points(0, 6)}; },
            [](auto& s, const auto& p) { return s.Curve(p.data(), Count(p)); }),
        SurfaceRow("Arc", 4, Joined(SomeFour, SomeAngles), [](auto& s, auto... a) { return s.Arc(a...); }),
        SurfaceRow("Arc(rect)", 3, Joined(someRect, SomeAngles), [](auto& s, auto... a) { return s.Arc(a...); }),
        SurfaceRow("Pie", 4, Joined(SomeFour, SomeAngles), [](auto& s, auto... a) { return s.Pie(a...); }),
        SurfaceRow("Pie(rect)", 3, Joined(someRect, SomeAngles), [](auto& s, auto... a) { return s.Pie(a...); }),
        SurfaceRow(
            "fillRect", 5,
            [](Random& r) {
                return std::tuple{SomeRect(r), r.Color()};
            },
            [](auto& s, auto... a) { return s.fillRect(a...); }),
        Row(
            "FillRect", 5,
            [](Random& r) {
                return std::tuple{SomeRect(r), r.Int(-1, kGradients - 1)};
            },
            [](auto& side, const TXRect& rect, int gradient)
            { return side.Surface().FillRect(rect, side.Gradient(gradient)); }),
    };
}

std::vector<Operation> PathOperations()
{
    const auto somePoint = [](Random& r) { return std::tuple{r.Coordinate(), r.Coordinate()}; };
    return {
        SurfaceRow("MoveTo", 4, somePoint, [](auto& s, auto... a) { return s.MoveTo(a...); }),
        SurfaceRow("LineTo", 7, somePoint, [](auto& s, auto... a) { return s.LineTo(a...); }),
        SurfaceRow("CurveTo", 4, Joined(somePoint, somePoint, somePoint),
                   [](auto& s, auto... a) { return s.CurveTo(a...); }),
        SurfaceRow("QuadTo", 4, Joined(somePoint, somePoint), [](auto& s, auto... a) { return s.QuadTo(a...); }),
        SurfaceRow("ClosePath", 3, Nothing, [](auto& s) { s.ClosePath(); }),
        SurfaceRow("DrawPath", 6, Nothing, [](auto& s) { s.DrawPath(); }),
    };
}

std::vector<Operation> ClipOperations()
{
    return {
        SurfaceRow("SetClipRegion(gradient)", 4, Joined(SomeRegion, SomeParams),
                   [](auto& s, const Rings& p, const auto& g)
                   { s.SetClipRegion(p.points.data(), p.counts.data(), Count(p), g); }),
        SurfaceRow("SetClipRegion", 6,
                   Joined(SomeRegion,
                          [](Random& r) {
                              return std::tuple{r.Chance(50), r.Color()};
                          }),
                   [](auto& s, const Rings& p, bool fill, const TXColor& color)
                   { s.SetClipRegion(p.points.data(), p.counts.data(), Count(p), fill, color); }),
        SurfaceRow("RestoreClipRegion", 8, Nothing, [](auto& s) { s.RestoreClipRegion(); }),
    };
}
