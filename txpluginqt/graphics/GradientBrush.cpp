#include <txpluginqt/graphics/GradientBrush.h>

#include <array>
#include <cmath>

#include <QGradient>
#include <QPainter>

#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/resources/GradientStops.h>
#include <txpluginqt/support/Numbers.h>

using namespace TZObjects;

namespace txqt
{
namespace
{

/// Where the line of a slope through a rectangle's centre meets its edges.
class EdgeHits
{
public:
    EdgeHits(const QRectF& bounds, double slope)
    {
        const double left = bounds.x();
        const double top = bounds.y();
        const double right = left + bounds.width();
        const double bottom = top + bounds.height();
        const double cx = left + bounds.width() * 0.5;
        const double cy = top + bounds.height() * 0.5;
        // The order decides which two count: a line through a corner meets both of its edges there, and that corner is
        // then listed twice.
        AddOnVertical(left, (left - cx) * slope + cy, top, bottom);
        AddOnHorizontal((bottom - cy) / slope + cx, bottom, left, right);
        AddOnVertical(right, (right - cx) * slope + cy, top, bottom);
        AddOnHorizontal((top - cy) / slope + cx, top, left, right);
    }

    bool Enough() const { return count >= 2; }
    const QPointF& First() const { return hits[0]; }
    const QPointF& Second() const { return hits[1]; }

private:
    void AddOnVertical(double x, double y, double top, double bottom)
    {
        if (top <= y && y <= bottom)
            hits[count++] = QPointF(x, y);
    }
    void AddOnHorizontal(double x, double y, double left, double right)
    {
        if (left <= x && x <= right)
            hits[count++] = QPointF(x, y);
    }

    std::array<QPointF, 4> hits;
    std::size_t count = 0;
};

/// Opaque even between translucent ends.
QColor MeanColor(const TXColor& a, const TXColor& b)
{
    return QColor((a.getR() + b.getR()) / 2, (a.getG() + b.getG()) / 2, (a.getB() + b.getB()) / 2);
}

QBrush WithStops(QGradient gradient, const TXGraphics::stGradientParams& params)
{
    gradient.setColorAt(0.0, QColor::fromRgba(params.startColor.GetColor()));
    if (gradient.type() == QGradient::LinearGradient)
        SetStop(&gradient, params.middle / 100.0, MeanColor(params.startColor, params.endColor));
    gradient.setColorAt(1.0, QColor::fromRgba(params.endColor.GetColor()));
    return QBrush(gradient);
}

} // namespace

std::optional<QLineF> LinearGradientLine(const QRectF& bounds, double angle)
{
    const QPointF left(bounds.x(), bounds.y() + bounds.height() * 0.5);
    const QPointF right(bounds.x() + bounds.width(), left.y());
    const QPointF top(bounds.x() + bounds.width() * 0.5, bounds.y());
    const QPointF bottom(top.x(), bounds.y() + bounds.height());
    if (angle == 0.0 || angle == 360.0)
        return QLineF(left, right);
    if (angle == 90.0)
        return QLineF(top, bottom);
    if (angle == 180.0)
        return QLineF(right, left);
    if (angle == 270.0)
        return QLineF(bottom, top);

    const EdgeHits hits(bounds, std::tan(angle * kPi / 180.0));
    if (!hits.Enough())
        return std::nullopt;
    const bool secondIsHigher = hits.First().y() > hits.Second().y();
    const bool startsAtSecond = angle < 180.0 ? secondIsHigher : !secondIsHigher;
    return startsAtSecond ? QLineF(hits.Second(), hits.First()) : QLineF(hits.First(), hits.Second());
}

std::optional<QBrush> GradientBrush(const QRectF& bounds, const TXGraphics::stGradientParams& params)
{
    switch (params.type)
    {
    case 0:
        if (const std::optional<QLineF> line = LinearGradientLine(bounds, params.angle))
            return WithStops(QLinearGradient(line->p1(), line->p2()), params);
        return std::nullopt;
    case 1:
        return WithStops(QRadialGradient(bounds.center(), QLineF(bounds.center(), bounds.bottomRight()).length()),
                         params);
    case 2:
        return WithStops(QConicalGradient(bounds.center(), 45.0), params);
    default:
        return QBrush(Qt::NoBrush);
    }
}

bool ApplyGradientBrush(QPainter& painter, const QRectF& bounds, const TXGraphics::stGradientParams& params)
{
    const std::optional<QBrush> brush = GradientBrush(bounds, params);
    if (!brush)
        return false;
    painter.setPen(Qt::NoPen);
    painter.setBrush(*brush);
    return true;
}

} // namespace txqt
