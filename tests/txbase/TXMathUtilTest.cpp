#include <txbase/TXMathUtil.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

using TZObjects::TXMathUtil;
using TZObjects::TXPoint;

namespace
{

using Points = std::vector<TXPoint>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::size_t kMostSegments = 1024;

const Points kWave = {{0, 0}, {40, 90}, {130, -60}, {150, 20}, {300, 25}, {290, 200}, {10, 180}};

Points Flatten(Points points, double tolerance)
{
    Points out;
    TXMathUtil::CurveToPolyline(points.data(), static_cast<int>(points.size()), out, tolerance);
    return out;
}

bool Same(const TXPoint& a, const TXPoint& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

bool Same(const Points& a, const Points& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TXPoint& p, const TXPoint& q) { return Same(p, q); });
}

TXPoint Between(const TXPoint& a, const TXPoint& b, double t) { return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; }

/// A point of the Catmull-Rom stretch from @p from to @p to, by repeated interpolation between the control points of
/// the Bézier curve that it is.
TXPoint CatmullRom(const TXPoint& before, const TXPoint& from, const TXPoint& to, const TXPoint& after, double t)
{
    const TXPoint c1(from.x + (to.x - before.x) / 6.0, from.y + (to.y - before.y) / 6.0);
    const TXPoint c2(to.x - (after.x - from.x) / 6.0, to.y - (after.y - from.y) / 6.0);
    const TXPoint a = Between(from, c1, t);
    const TXPoint b = Between(c1, c2, t);
    const TXPoint c = Between(c2, to, t);
    return Between(Between(a, b, t), Between(b, c, t), t);
}

/// Many points of stretch @p i of the curve through @p points. At the ends the missing neighbour is the end itself.
Points DenseStretch(const Points& points, std::size_t i)
{
    constexpr int kSamples = 500;
    Points dense;
    const TXPoint before = points[i == 0 ? 0 : i - 1];
    const TXPoint after = points[std::min(i + 2, points.size() - 1)];
    for (int k = 0; k <= kSamples; ++k)
        dense.push_back(CatmullRom(before, points[i], points[i + 1], after, static_cast<double>(k) / kSamples));
    return dense;
}

double Distance(const TXPoint& p, const TXPoint& a, const TXPoint& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

double Distance(const TXPoint& p, const Points& line)
{
    double least = Distance(p, line.front(), line.front());
    for (std::size_t i = 0; i + 1 < line.size(); ++i)
        least = std::min(least, Distance(p, line[i], line[i + 1]));
    return least;
}

/// The polyline's part from one given point to the next.
Points StretchOf(const Points& line, const TXPoint& from, const TXPoint& to)
{
    const auto first = std::find_if(line.begin(), line.end(), [&](const TXPoint& p) { return Same(p, from); });
    const auto last = std::find_if(first, line.end(), [&](const TXPoint& p) { return Same(p, to); });
    return last == line.end() ? Points() : Points(first, last + 1);
}

void ExpectFollowsCurve(const Points& points, double tolerance, double promised)
{
    const Points line = Flatten(points, tolerance);
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
    {
        SCOPED_TRACE(i);
        const Points stretch = StretchOf(line, points[i], points[i + 1]);
        ASSERT_GE(stretch.size(), 2u);
        const Points dense = DenseStretch(points, i);
        double farthest = 0;
        for (const TXPoint& p : dense)
            farthest = std::max(farthest, Distance(p, stretch));
        EXPECT_LE(farthest, promised * (1 + 1e-9));
        // The corners of the polyline lie on the curve, not somewhere within the tolerance of it.
        for (const TXPoint& p : stretch)
            EXPECT_LE(Distance(p, dense), 0.01);
    }
}

} // namespace

TEST(CurveToPolyline, RunsThroughAllPointsInOrder)
{
    const Points line = Flatten(kWave, 0.5);
    ASSERT_FALSE(line.empty());
    EXPECT_TRUE(Same(line.front(), kWave.front()));
    EXPECT_TRUE(Same(line.back(), kWave.back()));
    auto place = line.begin();
    for (const TXPoint& point : kWave)
    {
        place = std::find_if(place, line.end(), [&](const TXPoint& p) { return Same(p, point); });
        ASSERT_NE(place, line.end()) << point.x << ", " << point.y;
    }
}

TEST(CurveToPolyline, KeepsWithinTheTolerance)
{
    for (const double tolerance : {10.0, 1.0, 0.1, 0.01, 0.001})
    {
        SCOPED_TRACE(tolerance);
        ExpectFollowsCurve(kWave, tolerance, tolerance);
    }
}

TEST(CurveToPolyline, ToleranceOfZeroLessOrNaNIsATenth)
{
    for (const double tolerance : {0.0, -0.0, -1.0, -kInfinity, kNaN})
    {
        SCOPED_TRACE(tolerance);
        ExpectFollowsCurve(kWave, tolerance, 0.1);
        EXPECT_TRUE(Same(Flatten(kWave, tolerance), Flatten(kWave, 0.1)));
    }
}

TEST(CurveToPolyline, DoesNotSpendPointsWhereNoneAreNeeded)
{
    const std::size_t coarse = Flatten(kWave, 1.0).size();
    EXPECT_LT(Flatten(kWave, 100.0).size(), coarse);
    EXPECT_LT(coarse, Flatten(kWave, 0.01).size());
    // A hundred times the accuracy takes about ten times the segments of a flattened cubic.
    EXPECT_LT(Flatten(kWave, 0.01).size(), coarse * 20);
}

TEST(CurveToPolyline, EvenlySpacedPointsOnALineStayOnIt)
{
    for (const TXPoint& p : Flatten({{0, 0}, {10, 5}, {20, 10}, {30, 15}}, 0.1))
        EXPECT_NEAR(p.y, p.x / 2, 1e-12);
}

TEST(CurveToPolyline, TwoPointsAreALine)
{
    const Points line = Flatten({{1, 2}, {31, 12}}, 0.1);
    ASSERT_GE(line.size(), 2u);
    EXPECT_TRUE(Same(line.front(), TXPoint(1, 2)));
    EXPECT_TRUE(Same(line.back(), TXPoint(31, 12)));
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        EXPECT_LE(Distance(line[i], TXPoint(1, 2), TXPoint(31, 12)), 1e-12);
        EXPECT_TRUE(i == 0 || line[i].x > line[i - 1].x);
    }
}

TEST(CurveToPolyline, OnePointIsThatPoint)
{
    const Points line = Flatten({{3.25, -4.5}}, 0.0);
    ASSERT_EQ(line.size(), 1u);
    EXPECT_TRUE(Same(line[0], TXPoint(3.25, -4.5)));
}

TEST(CurveToPolyline, RepeatedPointsAreHarmless)
{
    const Points points = {{5, 5}, {5, 5}, {5, 5}};
    const Points line = Flatten(points, 0.0);
    ASSERT_GE(line.size(), points.size());
    for (const TXPoint& p : line)
        EXPECT_TRUE(Same(p, points[0]));
}

TEST(CurveToPolyline, AppendsToWhatIsThere)
{
    Points points = kWave;
    Points out = {{-1, -2}, {-3, -4}};
    TXMathUtil::CurveToPolyline(points.data(), static_cast<int>(points.size()), out, 1.0);
    const Points line = Flatten(kWave, 1.0);
    ASSERT_EQ(out.size(), line.size() + 2);
    EXPECT_TRUE(Same(out[0], TXPoint(-1, -2)));
    EXPECT_TRUE(Same(out[1], TXPoint(-3, -4)));
    EXPECT_TRUE(Same(Points(out.begin() + 2, out.end()), line));
}

TEST(CurveToPolyline, NothingFromNullOrNoPoints)
{
    Points points = kWave;
    Points out = {{7, 8}};
    TXMathUtil::CurveToPolyline(nullptr, 3, out, 1.0);
    TXMathUtil::CurveToPolyline(nullptr, 0, out, 1.0);
    TXMathUtil::CurveToPolyline(points.data(), 0, out, 1.0);
    TXMathUtil::CurveToPolyline(points.data(), -1, out, 1.0);
    TXMathUtil::CurveToPolyline(points.data(), std::numeric_limits<int>::min(), out, 1.0);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(Same(out[0], TXPoint(7, 8)));
}

TEST(CurveToPolyline, DoesNotWriteToThePoints)
{
    Points points = kWave;
    Points out;
    TXMathUtil::CurveToPolyline(points.data(), static_cast<int>(points.size()), out, 0.0);
    EXPECT_TRUE(Same(points, kWave));
}

TEST(CurveToPolyline, ReadsAsManyPointsAsItWasTold)
{
    Points points = kWave;
    Points out;
    TXMathUtil::CurveToPolyline(points.data(), 3, out, 1.0);
    EXPECT_TRUE(Same(out, Flatten({kWave[0], kWave[1], kWave[2]}, 1.0)));
}

TEST(CurveToPolyline, SubdivisionIsBounded)
{
    const std::size_t most = kMostSegments * (kWave.size() - 1) + 1;
    for (const double tolerance : {1e-12, 1e-300, std::numeric_limits<double>::denorm_min()})
    {
        const Points line = Flatten(kWave, tolerance);
        EXPECT_LE(line.size(), most);
        EXPECT_TRUE(Same(line.back(), kWave.back()));
    }
    EXPECT_LE(Flatten({{0, 0}, {1e300, 1e300}, {-1e300, 5}, {0, 0}}, 0.0).size(), kMostSegments * 3 + 1);
}

TEST(CurveToPolyline, PointsThatAreNoNumbersAreBounded)
{
    for (const double odd : {kNaN, kInfinity, -kInfinity})
        for (std::size_t at = 0; at < kWave.size(); ++at)
        {
            Points points = kWave;
            points[at].x = odd;
            const Points line = Flatten(points, 0.1);
            EXPECT_GE(line.size(), points.size());
            EXPECT_LE(line.size(), kMostSegments * (points.size() - 1) + 1);
            EXPECT_TRUE(Same(line.front(), points.front()));
            EXPECT_TRUE(Same(line.back(), points.back()));
        }
}
