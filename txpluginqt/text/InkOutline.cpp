#include <txpluginqt/text/InkOutline.h>

#include <algorithm>

#include <QByteArray>
#include <QDataStream>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRect>
#include <QVarLengthArray>

#include <txpluginqt/raster/InkReach.h>
#include <txpluginqt/raster/VectorOutline.h>

namespace txqt
{
namespace
{

/// Grouping compares each part with each other.
constexpr std::size_t kMostParts = 256;

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
    if (points.empty())
        return path;
    // Built up by its operations, a path would leave out moves that a move follows and lines without length.
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    writer << static_cast<int>(points.size());
    int lastMove = 0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        writer << static_cast<int>(kinds[i]) << points[i].x() << points[i].y();
        if (kinds[i] == QPainterPath::MoveToElement)
            lastMove = static_cast<int>(i);
    }
    writer << lastMove << static_cast<int>(fillRule);
    QDataStream reader(bytes);
    reader >> path;
    return path;
}

void InkOutline::Fill(QPainter& painter, const QBrush& brush) const
{
    if (points.empty())
        return;
    if (parts.size() > 1 && parts.size() <= kMostParts && CanBeDrawnInParts(painter, bounds))
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
        const QRect pixels = TouchedPixels(part.bounds, transform);
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

} // namespace txqt
