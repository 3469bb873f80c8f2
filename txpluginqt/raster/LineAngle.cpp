#include <txpluginqt/raster/LineAngle.h>

#include <array>
#include <cmath>

#include <QLineF>
#include <QtMath>

namespace txqt
{
namespace
{

/// Slopes at the middle of equal parts of the numbers from 0 to 1, with their angles.
class Slopes
{
public:
    Slopes()
    {
        for (int i = 0; i < kParts; ++i)
            angles[static_cast<std::size_t>(i)] = std::atan(SlopeOf(i));
    }

    /// The angle of a slope from 0 to 1: that of the nearest slope in the table, and what is left, which is so small
    /// that four terms of the series are exact.
    double AngleOf(double rise, double run) const
    {
        const int part = static_cast<int>(rise / run * kParts);
        const double slope = SlopeOf(part);
        const double rest = (rise - slope * run) / (run + slope * rise);
        const double square = rest * rest;
        return angles[static_cast<std::size_t>(part)] +
               (rest - rest * square * (1.0 / 3 - square * (1.0 / 5 - square * (1.0 / 7))));
    }

private:
    static constexpr int kParts = 64;

    static double SlopeOf(int part) { return (part + 0.5) / kParts; }

    std::array<double, kParts> angles;
};

} // namespace

double LineAngle(const QLineF& line)
{
    // Beyond these, products leave the range of numbers.
    constexpr double kShort = 1e-100;
    constexpr double kLong = 1e100;
    const double right = line.dx();
    const double up = -line.dy();
    const double width = std::abs(right);
    const double height = std::abs(up);
    // Angles of eighths of a turn are exact, and curves are cut at quarters.
    const bool isOrdinary = width > kShort && width < kLong && height > kShort && height < kLong && width != height;
    if (!isOrdinary)
        return line.angle();

    static const Slopes slopes;
    double radians = width > height ? slopes.AngleOf(height, width) : M_PI_2 - slopes.AngleOf(width, height);
    if (right < 0.0)
        radians = M_PI - radians;
    const double degrees = qRadiansToDegrees(up < 0.0 ? -radians : radians);
    const double inTurn = degrees < 0.0 ? degrees + 360 : degrees;
    return qFuzzyCompare(inTurn, 360.0) ? 0.0 : inTurn;
}

} // namespace txqt
