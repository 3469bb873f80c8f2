#include <txbase/TXMathUtil.h>

#include <algorithm>
#include <cmath>

namespace TZObjects
{
namespace
{

constexpr double kDefaultTolerance = 0.1;
constexpr double kMostSegments = 1024.0;

/// One stretch of the curve as a cubic polynomial: a + b t + c t² + d t³, t from 0 to 1.
struct Cubic
{
    TXPoint a, b, c, d;

    TXPoint At(double t) const
    {
        return {a.x + t * (b.x + t * (c.x + t * d.x)), a.y + t * (b.y + t * (c.y + t * d.y))};
    }
};

Cubic CatmullRom(const TXPoint& before, const TXPoint& from, const TXPoint& to, const TXPoint& after)
{
    const auto coefficients = [](double p0, double p1, double p2, double p3, double& a, double& b, double& c, double& d)
    {
        a = p1;
        b = 0.5 * (p2 - p0);
        c = p0 - 2.5 * p1 + 2.0 * p2 - 0.5 * p3;
        d = 0.5 * (p3 - p0) + 1.5 * (p1 - p2);
    };
    Cubic curve;
    coefficients(before.x, from.x, to.x, after.x, curve.a.x, curve.b.x, curve.c.x, curve.d.x);
    coefficients(before.y, from.y, to.y, after.y, curve.a.y, curve.b.y, curve.c.y, curve.d.y);
    return curve;
}

/// How many chords of equal parameter length keep within the tolerance: a chord over a step h is off by at most
/// h² / 8 times the greatest second derivative, which a cubic has at one of its ends.
int SegmentCount(const Cubic& curve, double tolerance)
{
    const double atStart = std::hypot(2.0 * curve.c.x, 2.0 * curve.c.y);
    const double atEnd = std::hypot(2.0 * curve.c.x + 6.0 * curve.d.x, 2.0 * curve.c.y + 6.0 * curve.d.y);
    const double segments = std::ceil(std::sqrt(std::max(atStart, atEnd) / (8.0 * tolerance)));
    // Written so that a NaN counts as 1.
    return segments > 1.0 ? static_cast<int>(std::min(segments, kMostSegments)) : 1;
}

} // namespace

void TXMathUtil::CurveToPolyline(TXPoint* points, int count, std::vector<TXPoint>& out, double tolerance)
{
    if (!points || count < 1)
        return;
    if (!(tolerance > 0.0))
        tolerance = kDefaultTolerance;
    out.push_back(points[0]);
    for (int i = 0; i + 1 < count; ++i)
    {
        const Cubic curve =
            CatmullRom(points[std::max(i - 1, 0)], points[i], points[i + 1], points[std::min(i + 2, count - 1)]);
        const int segments = SegmentCount(curve, tolerance);
        for (int k = 1; k < segments; ++k)
            out.push_back(curve.At(static_cast<double>(k) / segments));
        out.push_back(points[i + 1]);
    }
}

} // namespace TZObjects
