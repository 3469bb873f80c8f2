#include <txpluginqt/raster/FlatOutline.h>

#include <cmath>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT extern bool qt_scaleForTransform(const QTransform& transform, qreal* scale);
QT_END_NAMESPACE

namespace txqt
{
namespace
{

/// How often Qt splits a curve at most.
constexpr int kMostSplits = 9;

QPointF Middle(const QPointF& a, const QPointF& b) { return (a + b) * .5; }

} // namespace

/// A cubic curve, or a part of one, and how often it may still be split.
struct FlatOutline::Curve
{
    QPointF start;
    QPointF control1;
    QPointF control2;
    QPointF end;
    int splits;

    /// True when a line is near enough: Qt adds up how far the control points are from it, or, where the ends are
    /// closer than a pixel, from the start.
    bool IsFlat(double flatness) const
    {
        const QPointF span = end - start;
        const double length = std::abs(span.x()) + std::abs(span.y());
        if (length <= 1.0)
            return std::abs(start.x() - control1.x()) + std::abs(start.y() - control1.y()) +
                       std::abs(start.x() - control2.x()) + std::abs(start.y() - control2.y()) <
                   flatness;
        const auto across = [&](const QPointF& control)
        { return std::abs(span.x() * (start.y() - control.y()) - span.y() * (start.x() - control.x())); };
        return across(control1) + across(control2) < flatness * length;
    }
};

double FlatOutline::FlatnessFor(const QTransform& transform)
{
    qreal scale = 1.0;
    qt_scaleForTransform(transform, &scale);
    return scale == 0.0 ? kFlatness : kFlatness / scale;
}

void FlatOutline::Flatten(const QPointF* source, const QPainterPath::ElementType* sourceKinds, int count,
                          double flatness)
{
    points.clear();
    kinds.clear();
    points.reserve(static_cast<std::size_t>(count));
    kinds.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        if (sourceKinds[i] != QPainterPath::CurveToElement)
        {
            points.push_back(source[i]);
            kinds.push_back(sourceKinds[i]);
            continue;
        }
        // Qt draws straight lines for curves that nobody sees; that changes no pixel.
        AddCurve({points.back(), source[i], source[i + 1], source[i + 2], kMostSplits}, flatness);
        i += 2;
    }
}

void FlatOutline::AddCurve(const Curve& curve, double flatness)
{
    if (curve.splits == 0 || curve.IsFlat(flatness))
    {
        points.push_back(curve.end);
        kinds.push_back(QPainterPath::LineToElement);
        return;
    }
    const QPointF first = Middle(curve.start, curve.control1);
    const QPointF between = Middle(curve.control1, curve.control2);
    const QPointF last = Middle(curve.control2, curve.end);
    const QPointF before = Middle(first, between);
    const QPointF after = Middle(between, last);
    const QPointF middle = Middle(before, after);
    AddCurve({curve.start, first, before, middle, curve.splits - 1}, flatness);
    AddCurve({middle, after, last, curve.end, curve.splits - 1}, flatness);
}

std::size_t FlatOutline::Bytes() const
{
    return points.capacity() * sizeof(QPointF) + kinds.capacity() * sizeof(kinds[0]);
}

void FlatOutline::Release()
{
    std::vector<QPointF>().swap(points);
    std::vector<QPainterPath::ElementType>().swap(kinds);
}

} // namespace txqt
