#include <txpluginqt/raster/ArcCurves.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <QtMath>

#include <private/qbezier_p.h>
#include <private/qpainterpath_p.h>

namespace txqt
{
namespace
{

constexpr double kKappa = QT_PATH_KAPPA;
constexpr int kQuarter = 90;
constexpr int kTurn = 360;
constexpr int kQuadrants = 4;

/// The parameter of a quarter's curve where it has an angle, in quarters from 0 to 1: two steps of Newton's method for
/// the cosine, two more for the sine, and the mean of both.
template <class Number>
Number IteratedParameter(Number quarters, Number cosine, Number sine)
{
    constexpr Number k = kKappa;
    Number byCosine = quarters;
    for (int i = 0; i < 2; ++i)
        byCosine -= ((((2 - 3 * k) * byCosine + 3 * (k - 1)) * byCosine) * byCosine + 1 - cosine) /
                    (((6 - 9 * k) * byCosine + 6 * (k - 1)) * byCosine);
    Number bySine = byCosine;
    for (int i = 0; i < 2; ++i)
        bySine -= ((((3 * k - 2) * bySine - 6 * k + 3) * bySine + 3 * k) * bySine - sine) /
                  (((9 * k - 6) * bySine + 12 * k - 6) * bySine + 3 * k);
    return (byCosine + bySine) / 2;
}

/// The same function of the angle as polynomials, one for each of equal parts of a quarter. They are as exact as the
/// numbers of the iteration, and need neither sine nor division.
class ParameterPolynomials
{
public:
    /// Below this many quarters the iteration takes the difference of numbers that are nearly the same. What it makes
    /// of their last bits is only to be had from itself.
    static constexpr double kLeast = 1.0 / 32;

    ParameterPolynomials()
    {
        constexpr long double pi = 3.14159265358979323846264338327950288L;
        // Where a polynomial meets the function: nodes of Chebyshev.
        for (int i = 0; i < kNodes; ++i)
            nodes[i] = std::cos(static_cast<double>(pi) * (i + 0.5) / kNodes);
        for (int part = 1; part < kParts; ++part)
        {
            std::array<long double, kNodes> differences;
            for (int i = 0; i < kNodes; ++i)
            {
                const long double quarters = (part + (nodes[i] + 1.0L) / 2) / kParts;
                differences[i] = IteratedParameter(quarters, std::cos(quarters * pi / 2), std::sin(quarters * pi / 2));
            }
            for (int order = 1; order < kNodes; ++order)
                for (int i = kNodes - 1; i >= order; --i)
                    differences[i] =
                        (differences[i] - differences[i - 1]) / (static_cast<long double>(nodes[i]) - nodes[i - order]);
            std::copy(differences.begin(), differences.end(), coefficients[part].begin());
        }
    }

    /// @param quarters from `kLeast` to less than 1.
    double At(double quarters) const
    {
        const double scaled = quarters * kParts;
        const int part = static_cast<int>(scaled);
        const double x = 2 * (scaled - part) - 1;
        const std::array<double, kNodes>& c = coefficients[part];
        double value = c[kNodes - 1];
        for (int i = kNodes - 1; i-- > 0;)
            value = value * (x - nodes[i]) + c[i];
        return value;
    }

private:
    static constexpr int kParts = 32;
    static constexpr int kNodes = 8;

    std::array<double, kNodes> nodes{};
    std::array<std::array<double, kNodes>, kParts> coefficients{}; ///< In Newton's form, the constant first.
};

/// The parameter of a quarter's curve where it has an angle from 0 to 90 degrees.
double ParameterOf(double angle)
{
    if (qFuzzyIsNull(angle))
        return 0.0;
    if (qFuzzyCompare(angle, double(kQuarter)))
        return 1.0;
    const double quarters = angle / kQuarter;
    if (quarters >= ParameterPolynomials::kLeast && quarters < 1.0)
    {
        static const ParameterPolynomials polynomials;
        return polynomials.At(quarters);
    }
    const double radians = qDegreesToRadians(angle);
    return IteratedParameter(quarters, std::cos(radians), std::sin(radians));
}

/// A quarter of a circle that spans from -1 to 1, clockwise; quarters are counted counter-clockwise from the right.
QBezier Quarter(int segment, double x, double y, double diameter)
{
    const double half = diameter / 2;
    const double handle = half * kKappa;
    const double middleX = x + half;
    const double middleY = y + half;
    switch (((segment % kQuadrants) + kQuadrants) % kQuadrants)
    {
    case 3:
        return QBezier::fromPoints({x + diameter, middleY}, {x + diameter, middleY + handle},
                                   {middleX + handle, y + diameter}, {middleX, y + diameter});
    case 2:
        return QBezier::fromPoints({middleX, y + diameter}, {middleX - handle, y + diameter}, {x, middleY + handle},
                                   {x, middleY});
    case 1:
        return QBezier::fromPoints({x, middleY}, {x, middleY - handle}, {middleX - handle, y}, {middleX, y});
    default:
        return QBezier::fromPoints({middleX, y}, {middleX + handle, y}, {x + diameter, middleY - handle},
                                   {x + diameter, middleY});
    }
}

/// The point of a circle at an angle.
QPointF PointAt(const QPointF& centre, double radius, double angle)
{
    const double inTurn = angle - kTurn * qFloor(angle / kTurn);
    double t = inTurn / kQuarter;
    const int quadrant = static_cast<int>(t);
    t -= quadrant;
    t = ParameterOf(kQuarter * t);
    if (quadrant & 1)
        t = 1 - t;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    QBezier::coefficients(t, a, b, c, d);
    QPointF point(a + b + c * kKappa, d + c + b * kKappa);
    if (quadrant == 1 || quadrant == 2)
        point.setX(-point.x());
    if (quadrant == 0 || quadrant == 1)
        point.setY(-point.y());
    return centre + QPointF(radius * point.x(), radius * point.y());
}

} // namespace

ArcCurves CurvesOfArc(const QPointF& focus, double radius, double start, double sweep)
{
    ArcCurves arc;
    const QRectF box(focus.x() - radius, focus.y() - radius, radius * 2, radius * 2);
    if (std::isnan(box.x()) || std::isnan(box.y()) || std::isnan(box.width()) || std::isnan(start) ||
        std::isnan(sweep) || box.isNull())
        return arc;

    const double end = start + sweep;
    int startSegment = qFloor(start / kQuarter);
    int endSegment = qFloor(end / kQuarter);
    // Along the way, which is clockwise.
    double startT = 1 - (start - startSegment * kQuarter) / kQuarter;
    double endT = 1 - (end - endSegment * kQuarter) / kQuarter;
    if (qFuzzyIsNull(startT - 1.0))
    {
        startT = 0.0;
        --startSegment;
    }
    if (qFuzzyIsNull(endT))
    {
        endT = 1.0;
        ++endSegment;
    }
    startT = ParameterOf(startT * kQuarter);
    endT = ParameterOf(endT * kQuarter);
    const bool splitAtStart = !qFuzzyIsNull(startT);
    const bool splitAtEnd = !qFuzzyIsNull(endT - 1.0);
    const int beyond = endSegment - 1;
    if (startSegment == beyond || (startSegment == endSegment && qFuzzyCompare(startT, endT)))
        return arc;

    for (int segment = startSegment; segment != beyond; --segment)
    {
        QBezier curve = Quarter(segment, box.x(), box.y(), box.width());
        if (segment == startSegment)
        {
            if (segment == endSegment && splitAtEnd)
                curve = curve.bezierOnInterval(startT, endT);
            else if (splitAtStart)
                curve = curve.bezierOnInterval(startT, 1.0);
        }
        else if (segment == endSegment && splitAtEnd)
            curve = curve.bezierOnInterval(0.0, endT);
        arc.points[arc.count++] = curve.pt2();
        arc.points[arc.count++] = curve.pt3();
        arc.points[arc.count++] = curve.pt4();
    }
    arc.points[arc.count - 1] = PointAt(box.center(), box.width() / 2, end);
    return arc;
}

} // namespace txqt
