#include <tests/support/Recorder.h>

#include <algorithm>
#include <ostream>

#include <QPainterPath>

bool operator==(const RecordedCall& left, const RecordedCall& right)
{
    // Not by Qt's own comparison, which takes coordinates that nearly match for equal.
    const auto same = [](const QPointF& a, const QPointF& b) { return a.x() == b.x() && a.y() == b.y(); };
    return left.isText == right.isText && left.mode == right.mode && left.kinds == right.kinds &&
           std::equal(left.points.begin(), left.points.end(), right.points.begin(), right.points.end(), same) &&
           left.text == right.text && left.font == right.font && left.pen == right.pen && left.brush == right.brush &&
           left.transform == right.transform && left.hints == right.hints;
}

std::ostream& operator<<(std::ostream& out, const RecordedCall& call)
{
    out << (call.isText ? "text" : "polygon") << " of mode " << call.mode << ", hints " << call.hints << ", transform "
        << call.transform.m11() << ' ' << call.transform.m12() << ' ' << call.transform.m21() << ' '
        << call.transform.m22() << ' ' << call.transform.dx() << ' ' << call.transform.dy() << ", points";
    for (const QPointF& point : call.points)
        out << " (" << point.x() << ' ' << point.y() << ')';
    out << ", pen " << call.pen.color().name().toStdString() << ' ' << call.pen.widthF() << ", brush "
        << call.brush.color().name().toStdString();
    return out << ' ' << call.text.toStdString();
}

RecordedCall& Recorder::Engine::NewCall()
{
    RecordedCall& call = calls.emplace_back();
    call.pen = painter()->pen();
    call.brush = painter()->brush();
    call.transform = painter()->combinedTransform();
    call.hints = painter()->renderHints();
    return call;
}

void Recorder::Engine::drawPath(const QPainterPath& path)
{
    RecordedCall& call = NewCall();
    call.mode = -1;
    for (int i = 0; i < path.elementCount(); ++i)
    {
        call.points.push_back(path.elementAt(i));
        call.kinds.push_back(path.elementAt(i).type);
    }
}

void Recorder::Engine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    RecordedCall& call = NewCall();
    call.mode = mode;
    call.points.assign(points, points + count);
}

void Recorder::Engine::drawTextItem(const QPointF& position, const QTextItem& item)
{
    RecordedCall& call = NewCall();
    call.isText = true;
    call.points = {position};
    call.text = item.text();
    call.font = item.font();
}

int Recorder::metric(PaintDeviceMetric wanted) const
{
    switch (wanted)
    {
    case PdmWidth:
    case PdmHeight:
        return 200;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    case PdmDepth:
        return 32;
    default:
        return 96;
    }
}
