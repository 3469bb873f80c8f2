// Shapes and clipping of the model.
#include <cmath>

#include <txbase/TXMathUtil.h>

#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

QPolygonF AsPolygon(const TXPoint* points, int count)
{
    QPolygonF polygon;
    for (int i = 0; i < count; ++i)
        polygon << ToQt(points[i]);
    return polygon;
}

/// The rings as a shape that is outlined as they are given.
QPainterPath AsGiven(const TXPoint* points, const int* counts, int parts)
{
    QPainterPath path;
    for (int i = 0; i < parts; ++i)
        for (int k = 0; k < counts[i]; ++k, ++points)
            k == 0 ? path.moveTo(ToQt(*points)) : path.lineTo(ToQt(*points));
    return path;
}

QPainterPath AsPolygons(const TXPoint* points, const int* counts, int parts)
{
    QPainterPath path;
    for (int i = 0; i < parts; points += counts[i++])
        if (counts[i] > 0)
            path.addPolygon(AsPolygon(points, counts[i]));
    return path;
}

QPainterPath ClipShape(const TXPoint* points, const int* counts, int parts)
{
    QPainterPath path;
    for (int i = 0; i < parts; ++i)
    {
        QPolygon polygon;
        for (int k = 0; k < counts[i]; ++k, ++points)
            polygon << QPoint(Nearest(points->x), Nearest(points->y));
        if (!polygon.isEmpty())
            path.addPolygon(QPolygonF(polygon));
    }
    return path;
}

void UseGradient(QPainter& painter, const QRectF& bounds, const ModelSurface::Gradient& gradient)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(GradientBrush(bounds, gradient));
}

} // namespace

int Truncate(double value) { return static_cast<int>(value); }

int Nearest(double value) { return static_cast<int>(value < 0.0 ? std::ceil(value - 0.5) : std::floor(value + 0.5)); }

QRect TruncatedRect(double x, double y, double w, double h)
{
    return {Truncate(x), Truncate(y), Truncate(w), Truncate(h)};
}

bool ModelSurface::Line(const TXPoint& from, const TXPoint& to) { return Line(from.x, from.y, to.x, to.y); }

bool ModelSurface::Line(double x1, double y1, double x2, double y2)
{
    return Paint([&](QPainter& p) { p.drawLine(Nearest(x1), Nearest(y1), Nearest(x2), Nearest(y2)); });
}

bool ModelSurface::Polyline(const TXPoint* points, int count)
{
    if (!points || count < 1)
        return false;
    bool isDot = true;
    for (int i = 1; i < count; ++i)
        isDot = isDot && Nearest(points[i].x) == Nearest(points[0].x) && Nearest(points[i].y) == Nearest(points[0].y);
    return Paint(
        [&](QPainter& p)
        {
            if (isDot)
                p.drawPoint(ToQt(points[0]));
            else
                p.drawPolyline(AsPolygon(points, count));
        });
}

bool ModelSurface::PolyPolyline(const TXPoint* points, const int* counts, int parts)
{
    bool all = points && counts && parts > 0;
    for (int i = 0; all && i < parts; points += counts[i++])
        if (counts[i] > 0)
            all = Polyline(points, counts[i]);
    return all;
}

bool ModelSurface::Polygon(const TXPoint* points, int count)
{
    if (!points || count < 3)
        return false;
    return Paint([&](QPainter& p) { p.drawPolygon(AsPolygon(points, count), Qt::OddEvenFill); });
}

bool ModelSurface::Polygon(const TXPoint* points, int count, const Gradient& gradient)
{
    if (!points || count < 3)
        return false;
    return Paint(
        [&](QPainter& p)
        {
            const QPolygonF polygon = AsPolygon(points, count);
            UseGradient(p, polygon.boundingRect(), gradient);
            p.drawPolygon(polygon, Qt::OddEvenFill);
        });
}

bool ModelSurface::PaintRings(const QPainterPath& asGiven, const QPainterPath& asPolygons, const Gradient* gradient)
{
    return Paint(
        [&](QPainter& p)
        {
            const bool ontoPicture = p.device()->devType() == QInternal::Picture;
            if (ontoPicture && gradient)
                UseGradient(p, asPolygons.boundingRect(), *gradient);
            p.drawPath(ontoPicture ? asPolygons : asGiven);
        });
}

bool ModelSurface::PolyPolygon(const TXPoint* points, const int* counts, int parts)
{
    return points && counts && parts > 0 &&
           PaintRings(AsGiven(points, counts, parts), AsPolygons(points, counts, parts), nullptr);
}

bool ModelSurface::PolyPolygon(const TXPoint* points, const int* counts, int parts, const Gradient& gradient)
{
    return points && counts && parts > 0 &&
           PaintRings(AsGiven(points, counts, parts), AsPolygons(points, counts, parts), &gradient);
}

bool ModelSurface::Rectangle(const TXRect& rect)
{
    return Rectangle(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

bool ModelSurface::Rectangle(double x, double y, double w, double h)
{
    return Paint([&](QPainter& p) { p.drawRect(TruncatedRect(x, y, w, h)); });
}

bool ModelSurface::Ellipse(const TXPoint& center, int rx, int ry)
{
    return Paint([&](QPainter& p) { p.drawEllipse(QPoint(Truncate(center.x), Truncate(center.y)), rx, ry); });
}

bool ModelSurface::Ellipse(const TXRect& rect, int angle, bool fill)
{
    return Ellipse((rect.left + rect.right) * 0.5, (rect.top + rect.bottom) * 0.5, rect.right - rect.left,
                   rect.bottom - rect.top, angle, fill);
}

bool ModelSurface::Ellipse(double cx, double cy, double w, double h, int angle, bool fill)
{
    return Paint(
        [&](QPainter& p)
        {
            p.save();
            p.translate(cx, cy);
            if (std::abs(w - h) > 1e-5 && angle != 0)
                p.rotate(angle);
            if (!fill)
                p.setBrush(Qt::NoBrush);
            p.drawEllipse(TruncatedRect(0.0 - w * 0.5, 0.0 - h * 0.5, w, h));
            p.restore();
        });
}

bool ModelSurface::EllipseByRadialGradient(const TXPoint& center, int radius, const TXColor& inner,
                                           const TXColor& outer)
{
    return Paint(
        [&](QPainter& p)
        {
            QRadialGradient gradient(center.x, center.y, radius);
            gradient.setColorAt(0.0, ToQt(inner));
            gradient.setColorAt(1.0, ToQt(outer));
            p.setPen(Qt::NoPen);
            p.setBrush(QBrush(gradient));
            p.drawEllipse(QPoint(Truncate(center.x), Truncate(center.y)), radius, radius);
        });
}

bool ModelSurface::Curve(const TXPoint* points, int count)
{
    if (!Painter())
        return false;
    std::vector<TXPoint> polyline;
    TXMathUtil::CurveToPolyline(const_cast<TXPoint*>(points), count, polyline, 0.0);
    Polyline(polyline.data(), static_cast<int>(polyline.size()));
    return true;
}

bool ModelSurface::Arc(const TXRect& rect, double start, double span)
{
    return Arc(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, start, span);
}

bool ModelSurface::Arc(double x, double y, double w, double h, double start, double span)
{
    return Paint([&](QPainter& p)
                 { p.drawArc(QRectF(TruncatedRect(x, y, w, h)), Truncate(start * 16), Truncate(span * 16)); });
}

bool ModelSurface::Pie(const TXRect& rect, double start, double span)
{
    return Pie(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, start, span);
}

bool ModelSurface::Pie(double x, double y, double w, double h, double start, double span)
{
    return Paint([&](QPainter& p)
                 { p.drawPie(QRectF(TruncatedRect(x, y, w, h)), Truncate(start * 16), Truncate(span * 16)); });
}

bool ModelSurface::FillRect(const TXRect& rect, const ModelGradient* gradient)
{
    return gradient && Paint(
                           [&](QPainter& p) {
                               p.fillRect(TruncatedRect(rect.left, rect.top, rect.Width(), rect.Height()),
                                          QBrush(gradient->qgradient));
                           });
}

bool ModelSurface::fillRect(const TXRect& rect, const TXColor& color)
{
    return Paint([&](QPainter& p)
                 { p.fillRect(TruncatedRect(rect.left, rect.top, rect.Width(), rect.Height()), ToQt(color)); });
}

void ModelSurface::SetClipRegion(const TXPoint* points, const int* counts, int parts, const Gradient& gradient)
{
    if (!points || !counts || parts < 1)
        return;
    Paint(
        [&](QPainter& p)
        {
            const QPainterPath region = ClipShape(points, counts, parts);
            p.setClipping(true);
            p.setClipPath(region, Qt::ReplaceClip);
            const QPen oldPen = p.pen();
            const QBrush oldBrush = p.brush();
            UseGradient(p, region.boundingRect(), gradient);
            p.drawPath(region);
            p.setPen(oldPen);
            p.setBrush(oldBrush);
        });
}

void ModelSurface::SetClipRegion(const TXPoint* points, const int* counts, int parts, bool fill, const TXColor& color)
{
    if (!points || !counts || parts < 1 || !Painter())
        return;
    const QPainterPath region = ClipShape(points, counts, parts);
    Paint(
        [&](QPainter& p)
        {
            p.setClipping(true);
            p.setClipPath(region, Qt::ReplaceClip);
        });
    if (cairoEnabled && cairo)
    {
        const cairo_fill_rule_t oldRule = cairo_get_fill_rule(cairo.get());
        cairo_set_fill_rule(cairo.get(), CAIRO_FILL_RULE_EVEN_ODD);
        for (int i = 0; i < parts; ++i)
        {
            cairo_new_sub_path(cairo.get());
            for (int k = 0; k < counts[i]; ++k, ++points)
                (k == 0 ? cairo_move_to : cairo_line_to)(cairo.get(), points->x, points->y);
        }
        cairo_clip(cairo.get());
        cairo_set_fill_rule(cairo.get(), oldRule);
        cairo_new_sub_path(cairo.get());
    }
    if (!fill)
        return;
    Paint(
        [&](QPainter& p)
        {
            const QPen oldPen = p.pen();
            const QBrush oldBrush = p.brush();
            p.setPen(Qt::NoPen);
            p.setBrush(QBrush(ToQt(color), Qt::SolidPattern));
            p.drawPath(region);
            p.setPen(oldPen);
            p.setBrush(oldBrush);
        });
}

void ModelSurface::RestoreClipRegion()
{
    if (!Painter())
        return;
    Paint([](QPainter& p) { p.setClipping(false); });
    if (cairoEnabled && cairo)
        cairo_reset_clip(cairo.get());
}
