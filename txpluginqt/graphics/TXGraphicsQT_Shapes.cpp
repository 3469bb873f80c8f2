// Lines, polygons, rectangles, ellipses, arcs and curves. Each paints with the pen and brush that the painter holds.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <cmath>

#include <QLine>
#include <QPolygonF>

#include <txbase/TXMathUtil.h>
#include <txpluginqt/graphics/GradientBrush.h>
#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/raster/RingShape.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/ScopeGuards.h>

using namespace TZObjects;
using namespace txqt;

namespace
{

/// Diameters that differ by less are a circle, which no rotation changes.
constexpr double kCircleTolerance = 1e-5;
constexpr int kSixteenths = 16;

QPoint TruncatedPoint(const TXPoint& point) { return QPoint(Truncated(point.x), Truncated(point.y)); }

QRect RectAround(const QPoint& center, int radiusX, int radiusY)
{
    return QRect(center.x() - radiusX, center.y() - radiusY, 2 * radiusX, 2 * radiusY);
}

/// True when every point rounds to the pixel that the first one rounds to.
bool CollapsesToDot(const TXPoint* points, int count)
{
    const double x = RoundedHalfAway(points[0].x);
    const double y = RoundedHalfAway(points[0].y);
    for (int i = 1; i < count; ++i)
        if (RoundedHalfAway(points[i].x) != x || RoundedHalfAway(points[i].y) != y)
            return false;
    return true;
}

bool IsPolygon(const TXPoint* points, int count) { return points && count >= 3 && AreDrawable(points, count); }

bool IsRingShape(const TXPoint* points, const int* counts, int rings) { return points && counts && rings >= 1; }

/// An ellipse's stretch: a rectangle of whole numbers, and angles in Qt's sixteenths of a degree.
struct ArcGeometry
{
    ArcGeometry(double x, double y, double width, double height, double start, double span)
        : rect(Truncated(x), Truncated(y), Truncated(width), Truncated(height)), start(Truncated(start * kSixteenths)),
          span(Truncated(span * kSixteenths))
    {
    }

    QRectF rect;
    int start;
    int span;
};

} // namespace

bool TXGraphicsQT::Line(double x1, double y1, double x2, double y2)
{
    return Paint(
        [&](QPainter& p)
        {
            const QLine line(RoundHalfAway(x1), RoundHalfAway(y1), RoundHalfAway(x2), RoundHalfAway(y2));
            p.drawLines(&line, 1);
        });
}

bool TXGraphicsQT::Polyline(const TXPoint* points, int count)
{
    if (!painter || !points || count < 1 || !AreDrawable(points, count))
        return false;
    // A feature that shrinks to one pixel at this scale still leaves a visible dot.
    if (CollapsesToDot(points, count))
        return Paint([&](QPainter& p) { DrawPoints(p, AsQPoints(points), 1); });
    return Paint([&](QPainter& p) { DrawPolyline(p, AsQPoints(points), count); });
}

bool TXGraphicsQT::Polygon(const TXPoint* points, int count)
{
    return IsPolygon(points, count) &&
           Paint([&](QPainter& p) { DrawPolygon(p, AsQPoints(points), count, Qt::OddEvenFill); });
}

bool TXGraphicsQT::Polygon(const TXPoint* points, int count, const stGradientParams& gradient)
{
    if (!painter || !IsPolygon(points, count))
        return false;
    bool computed = true;
    const bool painted = Paint(
        [&](QPainter& p)
        {
            QPolygonF polygon(count);
            std::copy(AsQPoints(points), AsQPoints(points) + count, polygon.begin());
            // The gradient stays behind as brush, and no pen.
            computed = ApplyGradientBrush(p, polygon.boundingRect(), gradient);
            if (computed)
                DrawPolygon(p, AsQPoints(points), count, Qt::OddEvenFill);
        });
    return painted && computed;
}

bool TXGraphicsQT::PolyPolygon(const TXPoint* points, const int* counts, int parts)
{
    if (!painter || !IsRingShape(points, counts, parts))
        return false;
    const RingShape shape(points, counts, parts);
    if (!shape.IsDrawable())
        return false;
    return Paint(
        [&](QPainter& p)
        {
            if (!shape.DrawInPlace(p))
                txqt::DrawPath(p, shape.ToPath());
        });
}

bool TXGraphicsQT::PolyPolygon(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient)
{
    if (!painter || !IsRingShape(points, counts, parts))
        return false;
    const RingShape shape(points, counts, parts);
    if (!shape.IsDrawable())
        return false;
    bool computed = true;
    const bool painted = Paint(
        [&](QPainter& p)
        {
            // In place the gradient does not apply, and the brush fills.
            if (shape.DrawInPlace(p))
                return;
            const QPainterPath rings = shape.ToPath();
            computed = ApplyGradientBrush(p, rings.boundingRect(), gradient);
            if (computed)
                txqt::DrawPath(p, rings);
        });
    return painted && computed;
}

bool TXGraphicsQT::Rectangle(double x, double y, double width, double height)
{
    return Paint(
        [&](QPainter& p)
        {
            const QRect rect = TruncatedRect(x, y, width, height);
            p.drawRects(&rect, 1);
        });
}

bool TXGraphicsQT::Ellipse(const TXPoint& center, int radiusX, int radiusY)
{
    return Paint([&](QPainter& p)
                 { DrawEllipse(p, RectAround(TruncatedPoint(center), Clamped(radiusX), Clamped(radiusY))); });
}

bool TXGraphicsQT::Ellipse(double cx, double cy, double width, double height, int angle, bool fill)
{
    if (!IsDrawable(cx, cy))
        return false;
    return Paint(
        [&](QPainter& p)
        {
            const PainterStateScope state(p);
            p.translate(cx, cy);
            if (std::abs(width - height) > kCircleTolerance && angle != 0)
                p.rotate(angle);
            if (!fill)
                p.setBrush(Qt::NoBrush);
            DrawEllipse(p, TruncatedRect(0.0 - width * 0.5, 0.0 - height * 0.5, width, height));
        });
}

bool TXGraphicsQT::EllipseByRadialGradient(const TXPoint& center, int radius, TXColor inner, TXColor outer)
{
    QRadialGradient gradient(center.x, center.y, radius);
    if (!IsDrawable(gradient))
        return false;
    return Paint(
        [&](QPainter& p)
        {
            gradient.setColorAt(0.0, QColor::fromRgba(inner.GetColor()));
            gradient.setColorAt(1.0, QColor::fromRgba(outer.GetColor()));
            // Both stay behind.
            p.setPen(Qt::NoPen);
            p.setBrush(QBrush(gradient));
            DrawEllipse(p, RectAround(TruncatedPoint(center), Clamped(radius), Clamped(radius)));
        });
}

bool TXGraphicsQT::Arc(double x, double y, double width, double height, double start, double span)
{
    return Paint(
        [&](QPainter& p)
        {
            const ArcGeometry arc(x, y, width, height, start, span);
            DrawArc(p, arc.rect, arc.start, arc.span);
        });
}

bool TXGraphicsQT::Pie(double x, double y, double width, double height, double start, double span)
{
    return Paint(
        [&](QPainter& p)
        {
            const ArcGeometry pie(x, y, width, height, start, span);
            DrawPie(p, pie.rect, pie.start, pie.span);
        });
}

bool TXGraphicsQT::FillRect(const TXRect& rect, TXGradient* gradient)
{
    const auto* const qgradient = gradient ? static_cast<const QGradient*>(gradient->GetInternalObject()) : nullptr;
    return qgradient && IsDrawable(*qgradient) &&
           Paint([&](QPainter& p) { p.fillRect(TruncatedRect(rect), QBrush(*qgradient)); });
}

bool TXGraphicsQT::fillRect(const TXRect& rect, const TXColor& color)
{
    return Paint([&](QPainter& p) { p.fillRect(TruncatedRect(rect), ToQColor(color)); });
}

bool TXGraphicsQT::Curve(const TXPoint* points, int count)
{
    if (!painter)
        return false;
    Succeeds(
        [&]
        {
            std::vector<TXPoint> polyline;
            // The points are read only.
            TXMathUtil::CurveToPolyline(const_cast<TXPoint*>(points), count, polyline, 0.0);
            Polyline(polyline.data(), static_cast<int>(polyline.size()));
        });
    return true;
}
