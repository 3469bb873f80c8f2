#include <txpluginqt/graphics/text/InkOutline.h>

#include <algorithm>
#include <cmath>

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRect>
#include <QVarLengthArray>

#include <txpluginqt/graphics/VectorOutline.h>

namespace
{

/// Grouping compares each part with each other.
constexpr std::size_t kMostParts = 256;
/// Beyond this distance in device pixels Qt clips outlines before it rasterises them.
constexpr double kFarthest = 16000.0;
/// Qt moves points by less than 1/64 of a pixel when it rasterises.
constexpr double kRasterError = 1.0 / 32.0;

/// The pixels that a part may touch.
QRect PixelRect(const QRectF& bounds, const QTransform& transform)
{
    const QRectF device = transform.mapRect(bounds);
    const int left = static_cast<int>(std::floor(device.left() - kRasterError));
    const int top = static_cast<int>(std::floor(device.top() - kRasterError));
    const int right = static_cast<int>(std::floor(device.right() + kRasterError));
    const int bottom = static_cast<int>(std::floor(device.bottom() + kRasterError));
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

/// Neighbouring parts that are filled together.
struct Run
{
    int first;
    int count;
    QRect pixels;
};

} // namespace

InkOutline::InkOutline(const QPainterPath& path) : fillRule(path.fillRule())
{
    const int count = path.elementCount();
    points.reserve(static_cast<std::size_t>(count));
    kinds.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        const QPainterPath::Element element = path.elementAt(i);
        points.emplace_back(element.x, element.y);
        kinds.push_back(element.type);
    }
    for (int first = 0; first < count;)
    {
        int next = first + 1;
        while (next < count && kinds[static_cast<std::size_t>(next)] != QPainterPath::MoveToElement)
            ++next;
        AddContour(first, next - first);
        first = next;
    }
    parts.shrink_to_fit();
}

void InkOutline::AddContour(int first, int count)
{
    const auto* const begin = points.data() + first;
    const auto [left, right] =
        std::minmax_element(begin, begin + count, [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
    const auto [top, bottom] =
        std::minmax_element(begin, begin + count, [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
    const QRectF contour(QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y()));
    bounds = parts.empty() ? contour : bounds.united(contour);
    if (!parts.empty())
    {
        Part& part = parts.back();
        if (contour.left() <= part.bounds.right() && part.bounds.left() <= contour.right())
        {
            part.count += count;
            part.bounds = part.bounds.united(contour);
            return;
        }
    }
    parts.push_back({first, count, contour});
}

OutlineView InkOutline::View(int first, int count) const
{
    return {reinterpret_cast<const qreal*>(points.data() + first), kinds.data() + first, count, fillRule};
}

QPainterPath InkOutline::ToPath() const
{
    QPainterPath path;
    path.setFillRule(fillRule);
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        switch (kinds[i])
        {
        case QPainterPath::MoveToElement:
            path.moveTo(points[i]);
            break;
        case QPainterPath::LineToElement:
            path.lineTo(points[i]);
            break;
        case QPainterPath::CurveToElement:
            path.cubicTo(points[i], points[i + 1], points[i + 2]);
            i += 2;
            break;
        default:
            break;
        }
    }
    return path;
}

bool InkOutline::CanBeFilledInParts(QPainter& painter) const
{
    const QPaintEngine* const engine = painter.paintEngine();
    if (parts.size() < 2 || parts.size() > kMostParts || !engine || engine->type() != QPaintEngine::Raster)
        return false;
    const QTransform& transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxScale)
        return false;
    const QRectF device = transform.mapRect(bounds);
    return device.left() > -kFarthest && device.right() < kFarthest && device.top() > -kFarthest &&
           device.bottom() < kFarthest;
}

void InkOutline::Fill(QPainter& painter, const QBrush& brush) const
{
    if (points.empty())
        return;
    if (CanBeFilledInParts(painter))
        FillParts(painter, brush);
    else if (!FillOutline(painter, View(0, static_cast<int>(points.size())), brush))
        painter.fillPath(ToPath(), brush);
}

void InkOutline::FillParts(QPainter& painter, const QBrush& brush) const
{
    const QTransform& transform = painter.deviceTransform();
    QVarLengthArray<Run, 64> runs;
    for (const Part& part : parts)
    {
        const QRect pixels = PixelRect(part.bounds, transform);
        runs.append({part.first, part.count, pixels});
        // Parts follow one another in memory, so what meets an earlier run takes all between along.
        for (int i = 0; i + 1 < runs.size(); ++i)
        {
            if (!runs[i].pixels.intersects(runs.last().pixels))
                continue;
            for (int k = i + 1; k < runs.size(); ++k)
            {
                runs[i].count += runs[k].count;
                runs[i].pixels |= runs[k].pixels;
            }
            runs.resize(i + 1);
            // The larger run may meet others now.
            i = -1;
        }
    }
    for (const Run& run : runs)
        FillOutline(painter, View(run.first, run.count), brush);
}

void InkOutline::Stroke(QPainter& painter, const QPen& pen) const
{
    if (!points.empty() && !StrokeOutline(painter, View(0, static_cast<int>(points.size())), pen))
        painter.strokePath(ToPath(), pen);
}

InkOutline InkOutline::Stroked(const QPen& pen) const
{
    return InkOutline(QPainterPathStroker(pen).createStroke(ToPath()));
}

std::size_t InkOutline::Bytes() const
{
    return sizeof(*this) + points.capacity() * sizeof(QPointF) + kinds.capacity() * sizeof(kinds[0]) +
           parts.capacity() * sizeof(Part);
}
