#include <txpluginqt/text/InkOutline.h>

#include <optional>
#include <utility>

#include <QByteArray>
#include <QDataStream>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPathStroker>

#include <txpluginqt/raster/Drawing.h>

namespace txqt
{

InkOutline::InkOutline(const QPainterPath& path)
{
    outline.fillRule = path.fillRule();
    const int count = path.elementCount();
    outline.points.reserve(static_cast<std::size_t>(count));
    outline.kinds.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        const QPainterPath::Element element = path.elementAt(i);
        outline.points.emplace_back(element.x, element.y);
        outline.kinds.push_back(element.type);
        outline.isCurved = outline.isCurved || element.type == QPainterPath::CurveToElement;
    }
    Flatten();
}

InkOutline::InkOutline(Outline newOutline) : outline(std::move(newOutline)) { Flatten(); }

void InkOutline::Flatten()
{
    if (outline.isCurved)
        flat = Flattened(outline.View());
}

QPainterPath InkOutline::ToPath() const
{
    QPainterPath path;
    if (outline.points.empty())
        return path;
    // Built up by its operations, a path would leave out moves that a move follows and lines without length.
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    writer << static_cast<int>(outline.points.size());
    int lastMove = 0;
    for (std::size_t i = 0; i < outline.points.size(); ++i)
    {
        writer << static_cast<int>(outline.kinds[i]) << outline.points[i].x() << outline.points[i].y();
        if (outline.kinds[i] == QPainterPath::MoveToElement)
            lastMove = static_cast<int>(i);
    }
    writer << lastMove << static_cast<int>(outline.fillRule);
    QDataStream reader(bytes);
    reader >> path;
    return path;
}

void InkOutline::Fill(QPainter& painter, const QBrush& brush) const
{
    const QPaintEngine* const engine = painter.paintEngine();
    const bool isFlat = outline.isCurved && engine && engine->type() == QPaintEngine::Raster &&
                        painter.deviceTransform().type() <= QTransform::TxTranslate;
    if (!outline.points.empty() && !FillOutline(painter, (isFlat ? flat : outline).View(), brush))
        painter.fillPath(ToPath(), brush);
}

void InkOutline::Stroke(QPainter& painter, const QPen& pen) const
{
    if (!outline.points.empty() && !StrokeOutline(painter, outline.View(), pen))
        painter.strokePath(ToPath(), pen);
}

InkOutline InkOutline::Stroked(const QPen& pen) const
{
    if (std::optional<Outline> stroke = StrokeOutlineOf(outline.View(), pen))
        return InkOutline(std::move(*stroke));
    return InkOutline(QPainterPathStroker(pen).createStroke(ToPath()));
}

std::size_t InkOutline::Bytes() const
{
    std::size_t bytes = sizeof(*this);
    for (const Outline* const part : {&outline, &flat})
        bytes += part->points.capacity() * sizeof(QPointF) + part->kinds.capacity() * sizeof(part->kinds[0]);
    return bytes;
}

} // namespace txqt
