#include <txpluginqt/raster/Stroker.h>

#include <algorithm>
#include <cmath>

#include <private/qbezier_p.h>
#include <private/qstroker_p.h>

#include <txpluginqt/raster/LineAngle.h>

namespace txqt
{
namespace
{

constexpr double kKappa = QT_PATH_KAPPA;
/// Qt splits a curve into at most so many.
constexpr int kMostCurves = 16;
/// The square of the sine from which on an angle is certainly not near a limit.
constexpr double kCertain = 1e-6;
/// How far two ways to compute a length differ at most, relatively.
constexpr double kLengthError = 1e-9;

double Cross(const QLineF& a, const QLineF& b) { return a.dx() * b.dy() - a.dy() * b.dx(); }
double Dot(const QLineF& a, const QLineF& b) { return a.dx() * b.dx() + a.dy() * b.dy(); }
double SquaredLength(const QLineF& line) { return Dot(line, line); }

/// True when the line from the end of @p previous to the start of @p next turns by more than 90 degrees, clockwise or
/// not, into the direction of @p previous. Angles are computed only where they are close to a limit.
bool TurnsBack(const QLineF& previous, const QLineF& next, bool isRound)
{
    const QLineF shortCut(previous.p2(), next.p1());
    if (!shortCut.isNull() && !previous.isNull())
    {
        const double across = Cross(shortCut, previous);
        const double along = Dot(shortCut, previous);
        const double certain = kCertain * SquaredLength(shortCut) * SquaredLength(previous);
        if (across * across > certain)
        {
            // y grows downwards.
            if (across > 0.0)
                return true;
            if (along * along > certain)
                return along < 0.0;
        }
    }
    const double angle = shortCut.angleTo(previous);
    return isRound ? angle > 90.01 : angle > 90 && !qFuzzyCompare(angle, 90.0);
}

bool IsLonger(const QLineF& line, double length)
{
    const double difference = SquaredLength(line) - length * length;
    return std::abs(difference) > kLengthError * length * length ? difference > 0.0 : line.length() > length;
}

QLineF Reversed(const QLineF& line) { return QLineF(line.p2(), line.p1()); }

/// The line that goes on from the end of another.
QLineF Continued(QLineF line)
{
    line.translate(line.dx(), line.dy());
    return line;
}

} // namespace

void Stroker::SetPen(const QPen& pen)
{
    width = pen.widthF() == 0.0 ? 1.0 : pen.widthF();
    offset = width / 2;
    miterLimit = pen.miterLimit();
    // Qt keeps this number in single precision where it is used.
    curveThreshold = qBound(0.00025, 1.0 / width, 0.25);
    joinStyle = pen.joinStyle() == Qt::BevelJoin      ? Join::Bevel
                : pen.joinStyle() == Qt::MiterJoin    ? Join::Miter
                : pen.joinStyle() == Qt::SvgMiterJoin ? Join::SvgMiter
                                                      : Join::Round;
    capStyle = pen.capStyle() == Qt::FlatCap     ? Join::Bevel
               : pen.capStyle() == Qt::SquareCap ? Join::Square
                                                 : Join::RoundCap;
}

void Stroker::Stroke(const QVectorPath& path, const QPen& pen)
{
    SetPen(pen);
    forceOpen = path.hasExplicitOpen();
    points.clear();
    kinds.clear();
    hasCurves = false;
    const int count = path.elementCount();
    const QPainterPath::ElementType* const types = path.elements();
    int first = 0;
    for (int i = 1; types && i < count; ++i)
        if (types[i] == QPainterPath::MoveToElement)
        {
            AddSubpath(path, first, i);
            StrokeSubpath();
            first = i;
        }
    AddSubpath(path, first, count);
    if (path.hasImplicitClose())
        forward.push_back({QPainterPath::LineToElement, *reinterpret_cast<const QPointF*>(path.points())});
    StrokeSubpath();
}

void Stroker::AddSubpath(const QVectorPath& path, int first, int last)
{
    const auto* const source = reinterpret_cast<const QPointF*>(path.points());
    const QPainterPath::ElementType* const types = path.elements();
    forward.clear();
    forward.push_back({QPainterPath::MoveToElement, source[first]});
    for (int i = first + 1; i < last; ++i)
        forward.push_back({types ? types[i] : QPainterPath::LineToElement, source[i]});
}

void Stroker::Reverse()
{
    backward.clear();
    backward.push_back({QPainterPath::MoveToElement, forward.back().point});
    // A point is reached by what leads away from it on the other side. Of curves, any element says that it is one.
    for (std::size_t i = forward.size() - 1; i-- > 0;)
        backward.push_back({forward[i + 1].kind, forward[i].point});
}

void Stroker::StrokeSubpath()
{
    if (forward.size() < 2)
        return;
    Reverse();
    QLineF startTangent;
    QLineF endTangent;
    const bool isClosed = StrokeSide(forward, false, startTangent);
    const bool isClosedBack = StrokeSide(backward, !isClosed, endTangent);
    if (!isClosedBack && !startTangent.isNull())
        JoinTo(forward.front().point, startTangent, capStyle);
}

void Stroker::StartOrJoin(const QPointF& corner, const QLineF& line, bool capFirst, bool& isFirst, QLineF& startTangent)
{
    if (!isFirst)
    {
        JoinTo(corner, line, joinStyle);
        return;
    }
    if (capFirst)
        JoinTo(corner, line, capStyle);
    else
        MoveTo(line.p1());
    startTangent = line;
    isFirst = false;
}

bool Stroker::StrokeSide(const Elements& side, bool capFirst, QLineF& startTangent)
{
    const QPointF start = side.front().point;
    QPointF before = start;
    bool isFirst = true;
    for (std::size_t i = 1; i < side.size(); ++i)
    {
        const QPointF& point = side[i].point;
        if (side[i].kind == QPainterPath::LineToElement)
        {
            QLineF line(before, point);
            if (line.p1() == line.p2())
                continue;
            QLineF normal = line.normalVector();
            normal.setLength(offset);
            line.translate(normal.dx(), normal.dy());
            StartOrJoin(before, line, capFirst, isFirst, startTangent);
            LineTo(line.p2());
            before = point;
            continue;
        }
        const QBezier curve = QBezier::fromPoints(before, point, side[i + 1].point, side[i + 2].point);
        QBezier shifted[kMostCurves];
        const int count = curve.shifted(shifted, kMostCurves, offset, static_cast<float>(curveThreshold));
        if (count > 0)
        {
            QLineF tangent = curve.startTangent();
            tangent.translate(shifted[0].pt1() - curve.pt1());
            if (isFirst && !capFirst)
            {
                MoveTo(shifted[0].pt1());
                startTangent = tangent;
                isFirst = false;
            }
            else
                StartOrJoin(before, tangent, capFirst, isFirst, startTangent);
            for (int k = 0; k < count; ++k)
                CurveTo(shifted[k].pt2(), shifted[k].pt3(), shifted[k].pt4());
        }
        before = side[i + 2].point;
        i += 2;
    }
    if (!qFuzzyCompare(start.x(), before.x()) || !qFuzzyCompare(start.y(), before.y()) || forceOpen)
        return false;
    if (!isFirst)
        JoinTo(before, startTangent, joinStyle);
    return true;
}

void Stroker::JoinTo(const QPointF& corner, const QLineF& next, Join join)
{
    if (qFuzzyCompare(back1.x(), next.x1()) && qFuzzyCompare(back1.y(), next.y1()))
        return;
    const QLineF previous(back2, back1);
    switch (join)
    {
    case Join::Bevel:
        if (!JoinInside(corner, previous, next))
            LineTo(next.p1());
        break;
    case Join::Miter:
        JoinMitred(corner, previous, next);
        break;
    case Join::SvgMiter:
        JoinSvgMitred(corner, previous, next);
        break;
    case Join::Square:
        JoinSquare(previous, next);
        break;
    case Join::Round:
        JoinRound(corner, previous, next);
        break;
    case Join::RoundCap:
        CapRound(corner, previous, next);
        break;
    }
}

bool Stroker::JoinInside(const QPointF& corner, const QLineF& previous, const QLineF& next)
{
    if (!TurnsBack(previous, next, false) && previous.intersects(next, nullptr) != QLineF::BoundedIntersection)
        return false;
    LineTo(corner);
    LineTo(next.p1());
    return true;
}

void Stroker::JoinMitred(const QPointF& corner, const QLineF& previous, const QLineF& next)
{
    if (JoinInside(corner, previous, next))
        return;
    QPointF tip;
    const QLineF::IntersectionType type = previous.intersects(next, &tip);
    const double limit = width * miterLimit;
    if (type == QLineF::NoIntersection || QLineF(back1, tip).length() > limit)
    {
        QLineF before(previous);
        before.setLength(limit);
        before.translate(previous.dx(), previous.dy());
        QLineF after(next);
        after.setLength(limit);
        after.translate(-after.dx(), -after.dy());
        LineTo(before.p2());
        LineTo(after.p1());
    }
    else
        LineTo(tip);
    LineTo(next.p1());
}

void Stroker::JoinSvgMitred(const QPointF& corner, const QLineF& previous, const QLineF& next)
{
    if (JoinInside(corner, previous, next))
        return;
    QPointF tip;
    const QLineF::IntersectionType type = previous.intersects(next, &tip);
    if (type != QLineF::NoIntersection && !(QLineF(corner, tip).length() > width * miterLimit / 2))
        LineTo(tip);
    LineTo(next.p1());
}

void Stroker::JoinSquare(const QLineF& previous, const QLineF& next)
{
    // In the same direction, the line before is of a curve that was turned round when it was shifted.
    QLineF before = Dot(previous, next) > 0.0 ? Reversed(previous) : Continued(previous);
    before.setLength(offset);
    QLineF after = Continued(Reversed(next));
    after.setLength(offset);
    LineTo(before.p2());
    LineTo(after.p2());
    LineTo(after.p1());
}

double Stroker::AngleOf(const QLineF& line)
{
    if (line.p1().x() != angleLine.x1() || line.p1().y() != angleLine.y1() || line.p2().x() != angleLine.x2() ||
        line.p2().y() != angleLine.y2())
    {
        angleLine = line;
        angle = line.isNull() ? 0.0 : LineAngle(line);
    }
    return angle;
}

void Stroker::JoinRound(const QPointF& corner, const QLineF& previous, const QLineF& next)
{
    const bool isInside =
        TurnsBack(previous, next, true) || previous.intersects(next, nullptr) == QLineF::BoundedIntersection;
    if (isInside && IsLonger(next, offset))
    {
        LineTo(corner);
        LineTo(next.p1());
        return;
    }
    // In this order, so that the angle of the next line is there for the next join.
    const double before = AngleOf(previous);
    const double after = AngleOf(next);
    const ArcCurves arc = CurvesOfArc(corner, offset, before + 90, -std::abs(after - before));
    for (int i = 0; i < arc.count; i += 3)
        CurveTo(arc.points[i], arc.points[i + 1], arc.points[i + 2]);
    LineTo(next.p1());
}

void Stroker::CapRound(const QPointF& corner, const QLineF& previous, const QLineF& next)
{
    QLineF before = Dot(previous, next) > 0.0 ? Reversed(previous) : Continued(previous);
    before.setLength(kKappa * offset);
    QLineF tip(corner, previous.p2());
    tip.translate(-tip.dy(), tip.dx());
    tip.setLength(kKappa * offset);
    CurveTo(before.p2(), tip.p2(), tip.p1());
    tip = QLineF(tip.x1(), tip.y1(), tip.x1() - tip.dx(), tip.y1() - tip.dy());
    before.translate(next.x1() - before.x1(), next.y1() - before.y1());
    CurveTo(tip.p2(), before.p2(), before.p1());
}

void Stroker::MoveTo(const QPointF& point)
{
    back2 = back1;
    back1 = point;
    points.push_back(point);
    kinds.push_back(QPainterPath::MoveToElement);
}

void Stroker::LineTo(const QPointF& point)
{
    back2 = back1;
    back1 = point;
    points.push_back(point);
    kinds.push_back(QPainterPath::LineToElement);
}

void Stroker::CurveTo(const QPointF& control1, const QPointF& control2, const QPointF& end)
{
    const auto same = [](const QPointF& a, const QPointF& b) { return a.x() == b.x() && a.y() == b.y(); };
    if (!same(control2, end))
        back2 = control2;
    else
        back2 = same(control1, end) ? back1 : control1;
    back1 = end;
    points.insert(points.end(), {control1, control2, end});
    kinds.insert(kinds.end(),
                 {QPainterPath::CurveToElement, QPainterPath::CurveToDataElement, QPainterPath::CurveToDataElement});
    hasCurves = true;
}

std::size_t Stroker::Bytes() const
{
    return points.capacity() * sizeof(QPointF) + kinds.capacity() * sizeof(kinds[0]) +
           (forward.capacity() + backward.capacity()) * sizeof(Element);
}

void Stroker::Release()
{
    std::vector<QPointF>().swap(points);
    std::vector<QPainterPath::ElementType>().swap(kinds);
    Elements().swap(forward);
    Elements().swap(backward);
}

} // namespace txqt
