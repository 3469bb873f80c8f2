#pragma once

#include <vector>

#include <QLineF>
#include <QPainterPath>
#include <QPen>

#include <private/qvectorpath_p.h>

#include <txpluginqt/raster/ArcCurves.h>

namespace txqt
{

/// Makes the outlines of solid strokes, with the arithmetic of Qt's stroker to the last bit, but without computing
/// again what it knows: Qt finds the angle of each line six times for a round join.
class Stroker
{
public:
    /// Makes the outline of a stroke, in the units of the path. It is to be filled by the winding rule.
    /// @param pen solid, and not cosmetic.
    void Stroke(const QVectorPath& path, const QPen& pen);

    const std::vector<QPointF>& Points() const { return points; }
    const std::vector<QPainterPath::ElementType>& Kinds() const { return kinds; }
    bool HasCurves() const { return hasCurves; }

    /// How much memory is held, in bytes.
    std::size_t Bytes() const;
    /// Lets go of the memory.
    void Release();

private:
    struct Element
    {
        QPainterPath::ElementType kind;
        QPointF point;
    };
    using Elements = std::vector<Element>;

    enum class Join
    {
        Bevel,
        Square,
        Miter,
        Round,
        RoundCap,
        SvgMiter
    };

    void SetPen(const QPen& pen);
    void AddSubpath(const QVectorPath& path, int first, int last);
    void StrokeSubpath();
    void Reverse();
    bool StrokeSide(const Elements& side, bool capFirst, QLineF& startTangent);
    void StartOrJoin(const QPointF& corner, const QLineF& line, bool capFirst, bool& isFirst, QLineF& startTangent);

    void JoinTo(const QPointF& corner, const QLineF& next, Join join);
    bool JoinInside(const QPointF& corner, const QLineF& previous, const QLineF& next);
    void JoinMitred(const QPointF& corner, const QLineF& previous, const QLineF& next);
    void JoinSvgMitred(const QPointF& corner, const QLineF& previous, const QLineF& next);
    void JoinSquare(const QLineF& previous, const QLineF& next);
    void JoinRound(const QPointF& corner, const QLineF& previous, const QLineF& next);
    void CapRound(const QPointF& corner, const QLineF& previous, const QLineF& next);
    double AngleOf(const QLineF& line);

    void MoveTo(const QPointF& point);
    void LineTo(const QPointF& point);
    void CurveTo(const QPointF& control1, const QPointF& control2, const QPointF& end);

    double width = 1.0;
    double offset = 0.5; ///< Half the width.
    double miterLimit = 2.0;
    double curveThreshold = 0.25;
    Join joinStyle = Join::Bevel;
    Join capStyle = Join::Square;
    bool forceOpen = false;

    Elements forward;
    Elements backward;
    std::vector<QPointF> points;
    std::vector<QPainterPath::ElementType> kinds;
    bool hasCurves = false;
    QPointF back1; ///< The last point.
    QPointF back2; ///< The one before, or the control point from which the last curve comes.
    QLineF angleLine;
    double angle = 0.0; ///< Of `angleLine`.
};

} // namespace txqt
