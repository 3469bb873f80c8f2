#include "ExpectedGradient.h"

#include <cmath>

#include <QConicalGradient>
#include <QLinearGradient>
#include <QRadialGradient>

using namespace TZObjects;

namespace
{

QColor Packed(const TXColor& color) { return QColor::fromRgba(color.GetColor()); }

int Mean(unsigned char a, unsigned char b) { return (a + b) / 2; }

} // namespace

std::vector<QPointF> EdgeHits(const QRectF& bounds, double angle)
{
    const double left = bounds.x();
    const double top = bounds.y();
    const double right = bounds.x() + bounds.width();
    const double bottom = bounds.y() + bounds.height();
    const double cx = bounds.x() + bounds.width() * 0.5;
    const double cy = bounds.y() + bounds.height() * 0.5;
    const double slope = std::tan(angle * 3.141592653589793 / 180.0);
    std::vector<QPointF> hits;
    const auto onSide = [&](double x)
    {
        const double y = (x - cx) * slope + cy;
        if (top <= y && y <= bottom)
            hits.emplace_back(x, y);
    };
    const auto onLevel = [&](double y)
    {
        const double x = (y - cy) / slope + cx;
        if (left <= x && x <= right)
            hits.emplace_back(x, y);
    };
    onSide(left);
    onLevel(bottom);
    onSide(right);
    onLevel(top);
    return hits;
}

QLineF GradientAxis(const QRectF& bounds, double angle)
{
    const double cx = bounds.x() + bounds.width() * 0.5;
    const double cy = bounds.y() + bounds.height() * 0.5;
    const QPointF left(bounds.x(), cy);
    const QPointF right(bounds.x() + bounds.width(), cy);
    const QPointF top(cx, bounds.y());
    const QPointF bottom(cx, bounds.y() + bounds.height());
    if (angle == 0.0 || angle == 360.0)
        return {left, right};
    if (angle == 90.0)
        return {top, bottom};
    if (angle == 180.0)
        return {right, left};
    if (angle == 270.0)
        return {bottom, top};
    const std::vector<QPointF> hits = EdgeHits(bounds, angle);
    const QPointF first = hits.at(0);
    const QPointF second = hits.at(1);
    const bool firstIsLower = first.y() > second.y();
    if (angle < 180.0)
        return firstIsLower ? QLineF(second, first) : QLineF(first, second);
    return firstIsLower ? QLineF(first, second) : QLineF(second, first);
}

QBrush GradientBrush(const QRectF& bounds, const TXGraphics::stGradientParams& gradient)
{
    const auto finish = [&](QGradient& result)
    {
        result.setColorAt(1.0, Packed(gradient.endColor));
        return QBrush(result);
    };
    if (gradient.type == 1)
    {
        QRadialGradient radial(bounds.center(), QLineF(bounds.center(), bounds.bottomRight()).length());
        radial.setColorAt(0.0, Packed(gradient.startColor));
        return finish(radial);
    }
    if (gradient.type == 2)
    {
        QConicalGradient conical(bounds.center(), 45.0);
        conical.setColorAt(0.0, Packed(gradient.startColor));
        return finish(conical);
    }
    const QLineF axis = GradientAxis(bounds, gradient.angle);
    QLinearGradient linear(axis.p1(), axis.p2());
    linear.setColorAt(0.0, Packed(gradient.startColor));
    linear.setColorAt(gradient.middle / 100.0, QColor(Mean(gradient.startColor.getR(), gradient.endColor.getR()),
                                                      Mean(gradient.startColor.getG(), gradient.endColor.getG()),
                                                      Mean(gradient.startColor.getB(), gradient.endColor.getB()), 255));
    return finish(linear);
}

TXGraphics::stGradientParams SomeGradient(Random& random)
{
    TXGraphics::stGradientParams gradient;
    gradient.type = random.Chance(70) ? 0 : random.Int(1, 2);
    gradient.startColor = random.Color();
    gradient.endColor = random.Color();
    gradient.middle = random.Chance(20) ? random.Int(0, 4) * 25.0 : random.Real(0.0, 100.0);
    if (random.Chance(30))
        gradient.angle = random.Int(0, 4) * 90.0;
    else if (random.Chance(30))
        gradient.angle = random.Int(-8, 16) * 45.0;
    else
        gradient.angle = random.Real(-400.0, 800.0);
    return gradient;
}
