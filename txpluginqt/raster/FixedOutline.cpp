#include <txpluginqt/raster/FixedOutline.h>

#include <algorithm>
#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

FixedPoint Fixed(const QPointF& point)
{
    return {qRound(point.x() * kRounded) * kFinerThanRounded, qRound(point.y() * kRounded) * kFinerThanRounded};
}

/// The same for points that are known to have no negative coordinates.
FixedPoint FixedFromPositive(const QPointF& point)
{
#if defined(__SSE2__)
    const __m128d scaled = _mm_mul_pd(_mm_loadu_pd(reinterpret_cast<const double*>(&point)), _mm_set1_pd(kRounded));
    const __m128i rounded = _mm_slli_epi32(_mm_cvttpd_epi32(_mm_add_pd(scaled, _mm_set1_pd(0.5))), 2);
    FixedPoint fixed;
    _mm_storel_epi64(reinterpret_cast<__m128i*>(&fixed), rounded);
    return fixed;
#else
    return {static_cast<int>(point.x() * kRounded + 0.5) * kFinerThanRounded,
            static_cast<int>(point.y() * kRounded + 0.5) * kFinerThanRounded};
#endif
}

/// The least and the greatest coordinates of points.
struct Extent
{
    QPointF least;
    QPointF greatest;
    bool isNumber; ///< False when a coordinate is not a number.
};

Extent ExtentOf(const QPointF* points, std::size_t count)
{
    Extent extent{points[0], points[0], true};
#if defined(__SSE2__)
    const auto* const numbers = reinterpret_cast<const double*>(points);
    __m128d least = _mm_loadu_pd(numbers);
    __m128d greatest = least;
    __m128d unordered = _mm_setzero_pd();
    for (std::size_t i = 0; i < count; ++i)
    {
        const __m128d point = _mm_loadu_pd(numbers + 2 * i);
        least = _mm_min_pd(point, least);
        greatest = _mm_max_pd(point, greatest);
        unordered = _mm_or_pd(unordered, _mm_cmpunord_pd(point, point));
    }
    _mm_storeu_pd(reinterpret_cast<double*>(&extent.least), least);
    _mm_storeu_pd(reinterpret_cast<double*>(&extent.greatest), greatest);
    extent.isNumber = _mm_movemask_pd(unordered) == 0;
#else
    for (std::size_t i = 0; i < count; ++i)
    {
        const QPointF& point = points[i];
        extent.least = QPointF(std::min(extent.least.x(), point.x()), std::min(extent.least.y(), point.y()));
        extent.greatest = QPointF(std::max(extent.greatest.x(), point.x()), std::max(extent.greatest.y(), point.y()));
        extent.isNumber = extent.isNumber && !std::isnan(point.x()) && !std::isnan(point.y());
    }
#endif
    return extent;
}

} // namespace

template <class Map>
void FixedOutline::MapPoints(const QPointF* source, std::size_t count, Map map)
{
    if (mapped.size() < count)
        mapped.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        mapped[i] = map(source[i]);
}

bool FixedOutline::FindBounds(const QPointF* source, std::size_t count)
{
    const Extent extent = ExtentOf(source, count);
    left = extent.least.x();
    top = extent.least.y();
    right = extent.greatest.x();
    bottom = extent.greatest.y();
    return extent.isNumber && left >= -kLimit && top >= -kLimit && right <= kLimit && bottom <= kLimit &&
           right - left <= kLimit && bottom - top <= kLimit;
}

template <class Round>
void FixedOutline::RoundPoints(const QPointF* source, std::size_t first, std::size_t last, Round round)
{
    int least = round(source[first]).y;
    int greatest = least;
    for (std::size_t i = first; i < last; ++i)
    {
        const FixedPoint point = round(source[i]);
        points[i] = point;
        least = std::min(least, point.y);
        greatest = std::max(greatest, point.y);
    }
    contours.push_back({static_cast<int>(first), static_cast<int>(last - first), least, greatest});
}

bool FixedOutline::SetMapped(const QPointF* source, const QPainterPath::ElementType* kinds, std::size_t count)
{
    if (!FindBounds(source, count))
        return false;
    if (points.size() < count)
        points.resize(count);
    const bool isPositive = left >= 0.0 && top >= 0.0;
    for (std::size_t first = 0; first < count;)
    {
        std::size_t next = kinds ? first + 1 : count;
        while (next < count && kinds[next] != QPainterPath::MoveToElement)
            ++next;
        if (isPositive)
            RoundPoints(source, first, next, FixedFromPositive);
        else
            RoundPoints(source, first, next, Fixed);
        first = next;
    }
    return true;
}

bool FixedOutline::Set(const QPointF* source, const QPainterPath::ElementType* kinds, int count,
                       const QTransform& transform)
{
    // Qt ignores a move that nothing follows.
    if (kinds && count > 0 && kinds[count - 1] == QPainterPath::MoveToElement)
        --count;
    contours.clear();
    if (count < 1)
        return true;
    const auto size = static_cast<std::size_t>(count);
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
        return SetMapped(source, kinds, size);
    case QTransform::TxTranslate:
        MapPoints(source, size, [=](const QPointF& p) { return QPointF(p.x() + dx, p.y() + dy); });
        break;
    case QTransform::TxScale:
        MapPoints(source, size, [=](const QPointF& p) { return QPointF(m11 * p.x() + dx, m22 * p.y() + dy); });
        break;
    default:
        MapPoints(source, size,
                  [=](const QPointF& p)
                  { return QPointF(m11 * p.x() + m21 * p.y() + dx, m12 * p.x() + m22 * p.y() + dy); });
        break;
    }
    return SetMapped(mapped.data(), kinds, size);
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
    return mapped.capacity() * sizeof(QPointF) + points.capacity() * sizeof(FixedPoint) +
           contours.capacity() * sizeof(FixedContour);
}

void FixedOutline::Release()
{
    std::vector<QPointF>().swap(mapped);
    std::vector<FixedPoint>().swap(points);
    std::vector<FixedContour>().swap(contours);
}

} // namespace txqt
