#include <txpluginqt/raster/FixedOutline.h>

#include <algorithm>
#include <cmath>

namespace txqt
{
namespace
{

/// Qt rasterises no farther, as its spans have coordinates of 16 bits.
constexpr double kLimit = 32767.0;
/// Qt rounds to 1/64 of a pixel and computes in 1/256.
constexpr double kRounded = 64.0;
constexpr int kFinerThanRounded = 4;
constexpr int kPixel = 256;

bool IsInRange(const QPointF& point)
{
    // Both are false for what is not a number.
    return std::abs(point.x()) <= kLimit && std::abs(point.y()) <= kLimit;
}

FixedPoint Fixed(const QPointF& point)
{
    return {qRound(point.x() * kRounded) * kFinerThanRounded, qRound(point.y() * kRounded) * kFinerThanRounded};
}

} // namespace

void FixedOutline::EndContour(int last)
{
    if (contours.empty())
        return;
    FixedContour& contour = contours.back();
    contour.count = last - contour.first;
    int least = points[static_cast<std::size_t>(contour.first)].y;
    int greatest = least;
    for (int i = contour.first; i < last; ++i)
    {
        const int y = points[static_cast<std::size_t>(i)].y;
        least = std::min(least, y);
        greatest = std::max(greatest, y);
    }
    contour.top = least;
    contour.bottom = greatest;
}

template <class Map>
bool FixedOutline::Fill(const QPointF* source, const QPainterPath::ElementType* kinds, int count, Map map)
{
    // Qt ignores a move that nothing follows.
    if (kinds && count > 0 && kinds[count - 1] == QPainterPath::MoveToElement)
        --count;
    contours.clear();
    points.resize(static_cast<std::size_t>(count));
    if (count < 1)
        return true;
    const QPointF first = map(source[0]);
    double leastX = first.x();
    double leastY = first.y();
    double greatestX = leastX;
    double greatestY = leastY;
    FixedPoint* const fixed = points.data();
    for (int i = 0; i < count; ++i)
    {
        const QPointF point = map(source[i]);
        if (!IsInRange(point))
            return false;
        leastX = std::min(leastX, point.x());
        leastY = std::min(leastY, point.y());
        greatestX = std::max(greatestX, point.x());
        greatestY = std::max(greatestY, point.y());
        if (i == 0 || (kinds && kinds[i] == QPainterPath::MoveToElement))
        {
            EndContour(i);
            contours.push_back({i, 0, 0, 0});
        }
        fixed[i] = Fixed(point);
    }
    EndContour(count);
    left = leastX;
    top = leastY;
    right = greatestX;
    bottom = greatestY;
    return right - left <= kLimit && bottom - top <= kLimit;
}

bool FixedOutline::Set(const QPointF* source, const QPainterPath::ElementType* kinds, int count,
                       const QTransform& transform)
{
    // The same operations as `QTransform::map`, without its choice for each point.
    const double m11 = transform.m11();
    const double m12 = transform.m12();
    const double m21 = transform.m21();
    const double m22 = transform.m22();
    const double dx = transform.dx();
    const double dy = transform.dy();
    switch (transform.type())
    {
    case QTransform::TxNone:
        return Fill(source, kinds, count, [](const QPointF& p) { return p; });
    case QTransform::TxTranslate:
        return Fill(source, kinds, count, [=](const QPointF& p) { return QPointF(p.x() + dx, p.y() + dy); });
    case QTransform::TxScale:
        return Fill(source, kinds, count,
                    [=](const QPointF& p) { return QPointF(m11 * p.x() + dx, m22 * p.y() + dy); });
    default:
        return Fill(source, kinds, count,
                    [=](const QPointF& p)
                    { return QPointF(m11 * p.x() + m21 * p.y() + dx, m12 * p.x() + m22 * p.y() + dy); });
    }
}

QRect FixedOutline::Pixels() const
{
    if (contours.empty())
        return QRect();
    // Rounding keeps the order of numbers.
    const FixedPoint least = Fixed(QPointF(left, top));
    const FixedPoint greatest = Fixed(QPointF(right, bottom));
    const auto ceiling = [](int v) { return (v + kPixel - 1) >> 8; };
    return QRect(QPoint(least.x >> 8, least.y >> 8), QPoint(ceiling(greatest.x) - 1, ceiling(greatest.y) - 1));
}

std::size_t FixedOutline::Bytes() const
{
    return points.capacity() * sizeof(FixedPoint) + contours.capacity() * sizeof(FixedContour);
}

void FixedOutline::Release()
{
    std::vector<FixedPoint>().swap(points);
    std::vector<FixedContour>().swap(contours);
}

} // namespace txqt
