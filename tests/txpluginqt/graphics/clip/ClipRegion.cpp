#include "ClipRegion.h"

#include <stdexcept>

using namespace TZObjects;

namespace
{

/// Never null, as a region without a point is a region too.
const TXPoint* Points(const Rings& region)
{
    static const TXPoint none;
    return region.points.empty() ? &none : region.points.data();
}

int Parts(const Rings& region) { return static_cast<int>(region.counts.size()); }

int Rounded(double value) { return static_cast<int>(value >= 0.0 ? value + 0.5 : value - 0.5); }

std::vector<TXPoint> Corners(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

/// A rectangle at fractions, halves or whole numbers.
std::vector<TXPoint> SomeCorners(Random& random)
{
    const double grid = random.Int(0, 2);
    const auto snapped = [&](double value) {
        return grid == 0.0 ? value : random.Int(0, 3) == 0 ? value : static_cast<int>(value) + grid / 2.0;
    };
    const double left = snapped(random.Real(-30.0, 70.0));
    const double top = snapped(random.Real(-30.0, 50.0));
    const double right = snapped(left + random.Real(5.0, 90.0));
    return Corners(left, top, right, snapped(top + random.Real(5.0, 80.0)));
}

std::vector<TXPoint> SomeRing(Random& random, const Rings& before)
{
    const int kind = random.Int(1, 100);
    if (kind <= 8)
        return {};
    if (kind <= 22)
        return random.Points(1, 2);
    if (kind <= 60)
        return SomeCorners(random);
    if (kind <= 70 && !before.points.empty())
        return before.points;
    std::vector<TXPoint> ring = random.Points(3, 8);
    if (random.Chance(30))
        ring.push_back(ring.front());
    return ring;
}

} // namespace

void Clip(TXGraphics& surface, const Rings& region, const TXGraphics::stGradientParams& gradient)
{
    surface.SetClipRegion(Points(region), region.counts.data(), Parts(region), gradient);
}

void Clip(TXGraphics& surface, const Rings& region, bool fill, const TXColor& color)
{
    surface.SetClipRegion(Points(region), region.counts.data(), Parts(region), fill, color);
}

void Clip(TXGraphics& surface, const Rings& region) { Clip(surface, region, false, TXColor::RED_); }

void ClipDirectly(QPainter& painter, const Rings& region, const TXGraphics::stGradientParams& gradient)
{
    const QPainterPath path = RoundedPath(region);
    painter.setClipping(true);
    painter.setClipPath(path, Qt::ReplaceClip);
    try
    {
        const QBrush fill = GradientBrush(path.boundingRect(), gradient);
        const QPen pen = painter.pen();
        const QBrush brush = painter.brush();
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawPath(path);
        painter.setPen(pen);
        painter.setBrush(brush);
    }
    catch (const std::out_of_range&)
    {
        // The gradient has no line, and nothing is filled.
    }
}

void ClipDirectly(QPainter& painter, const Rings& region, bool fill, const TXColor& color)
{
    const QPainterPath path = RoundedPath(region);
    painter.setClipping(true);
    painter.setClipPath(path, Qt::ReplaceClip);
    if (!fill)
        return;
    const QPen pen = painter.pen();
    painter.setPen(Qt::NoPen);
    const QBrush brush = painter.brush();
    painter.setBrush(QBrush(ToQt(color), Qt::SolidPattern));
    painter.drawPath(path);
    painter.setPen(pen);
    painter.setBrush(brush);
}

void ClipDirectly(QPainter& painter, const Rings& region) { ClipDirectly(painter, region, false, TXColor::RED_); }

void ClipDirectly(cairo_t* context, const Rings& region)
{
    const cairo_fill_rule_t rule = cairo_get_fill_rule(context);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    auto point = region.points.cbegin();
    for (const int count : region.counts)
    {
        cairo_new_sub_path(context);
        for (int i = 0; i < count; ++i, ++point)
            if (i == 0)
                cairo_move_to(context, point->x, point->y);
            else
                cairo_line_to(context, point->x, point->y);
    }
    cairo_clip(context);
    cairo_set_fill_rule(context, rule);
    cairo_new_sub_path(context);
}

QPainterPath RoundedPath(const Rings& region)
{
    QPainterPath path;
    auto point = region.points.cbegin();
    for (const int count : region.counts)
    {
        QPolygon polygon;
        for (int i = 0; i < count; ++i, ++point)
            polygon.append(QPoint(Rounded(point->x), Rounded(point->y)));
        path.addPolygon(QPolygonF(polygon));
    }
    return path;
}

Rings Box(double left, double top, double right, double bottom) { return {Corners(left, top, right, bottom)}; }

Rings SomeRegion(Random& random)
{
    Rings region;
    const int parts = random.Int(1, 5);
    for (int i = 0; i < parts; ++i)
    {
        if (random.Chance(5))
            region.counts.push_back(random.Chance(50) ? -random.Int(1, 9) : -2000000000);
        region.Add(SomeRing(random, region));
    }
    return region;
}
