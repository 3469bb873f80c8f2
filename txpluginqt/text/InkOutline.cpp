#include <txpluginqt/text/InkOutline.h>

#include <algorithm>

#include <QByteArray>
#include <QDataStream>
#include <QPainter>
#include <QPainterPathStroker>

#include <txpluginqt/raster/Drawing.h>

namespace txqt
{

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
    isCurved = std::find(kinds.begin(), kinds.end(), QPainterPath::CurveToElement) != kinds.end();
}

OutlineView InkOutline::View() const
{
    return {reinterpret_cast<const qreal*>(points.data()), kinds.data(), static_cast<int>(points.size()), fillRule,
            isCurved};
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
    if (!points.empty() && !FillOutline(painter, View(), brush))
        painter.fillPath(ToPath(), brush);
}

void InkOutline::Stroke(QPainter& painter, const QPen& pen) const
{
    if (!points.empty() && !StrokeOutline(painter, View(), pen))
        painter.strokePath(ToPath(), pen);
}

InkOutline InkOutline::Stroked(const QPen& pen) const
{
    return InkOutline(QPainterPathStroker(pen).createStroke(ToPath()));
}

std::size_t InkOutline::Bytes() const
{
    return sizeof(*this) + points.capacity() * sizeof(QPointF) + kinds.capacity() * sizeof(kinds[0]);
}

} // namespace txqt
