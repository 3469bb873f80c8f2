#include <txpluginqt/raster/Drawing.h>

#include <algorithm>
#include <cmath>

#include <QPainter>

// Drawing from an array that is not Qt's needs the interface below QPainter. A copy of a map layer's polygons costs
// more than drawing them, and so does a copy of a label's outlines.
#include <private/qpaintengineex_p.h>
#include <private/qvectorpath_p.h>

#include <txpluginqt/raster/Eligibility.h>
#include <txpluginqt/raster/FlatOutline.h>
#include <txpluginqt/raster/OutlineEngine.h>
#include <txpluginqt/raster/SelfCheck.h>

namespace txqt
{
namespace
{

/// A whole turn and the parts that Qt's angles are made of.
constexpr int kSixteenths = 16;
constexpr int kTurn = 360 * kSixteenths;

/// The rasteriser's engine, or null where QPainter draws.
OutlineEngine* FastEngine(QPainter& painter)
{
    QRasterPaintEngine* const raster = RasterizerEngine(painter);
    return raster ? &OutlineEngine::For(*raster) : nullptr;
}

/// The engine that draws outlines which are not Qt's, or null when none can.
QPaintEngineEx* EngineFor(QPainter& painter)
{
    if (OutlineEngine* const engine = FastEngine(painter))
        return engine;
    return dynamic_cast<QPaintEngineEx*>(painter.paintEngine());
}

/// The same for a brush that is not the painter's own.
QPaintEngineEx* EngineFor(QPainter& painter, const QBrush& brush)
{
    return IsPlain(brush) ? EngineFor(painter) : dynamic_cast<QPaintEngineEx*>(painter.paintEngine());
}

/// Without closing lines, as Qt's own paths are.
QVectorPath VectorPath(const OutlineView& outline)
{
    const uint fillRule = outline.fillRule == Qt::WindingFill ? QVectorPath::WindingFill : QVectorPath::OddEvenFill;
    const uint shape = outline.isCurved ? QVectorPath::ArbitraryShapeHint : QVectorPath::PolygonHint;
    return QVectorPath(outline.points, outline.count, outline.kinds, shape | fillRule);
}

} // namespace

Outline Flattened(const OutlineView& outline)
{
    FlatOutline flat;
    flat.Flatten(reinterpret_cast<const QPointF*>(outline.points), outline.kinds, outline.count,
                 FlatOutline::kFlatness);
    return {flat.Points(), flat.Kinds(), outline.fillRule, false};
}

std::optional<Outline> StrokeOutlineOf(const OutlineView& outline, const QPen& pen)
{
    if (!RasterizerIsOn())
        return std::nullopt;
    Stroker stroker;
    stroker.Stroke(VectorPath(outline), pen);
    return Outline{stroker.Points(), stroker.Kinds(), Qt::WindingFill, stroker.HasCurves()};
}

void DrawPolygon(QPainter& painter, const QPointF* points, int count, Qt::FillRule rule)
{
    OutlineEngine* const engine = count >= 2 ? FastEngine(painter) : nullptr;
    if (engine)
        engine->drawPolygon(points, count, static_cast<QPaintEngine::PolygonDrawMode>(rule));
    else
        painter.drawPolygon(points, count, rule);
}

void DrawPolyline(QPainter& painter, const QPointF* points, int count)
{
    OutlineEngine* const engine = count >= 2 ? FastEngine(painter) : nullptr;
    if (engine)
        engine->drawPolygon(points, count, QPaintEngine::PolylineMode);
    else
        painter.drawPolyline(points, count);
}

void DrawPoints(QPainter& painter, const QPointF* points, int count)
{
    if (OutlineEngine* const engine = FastEngine(painter))
        engine->drawPoints(points, count);
    else
        painter.drawPoints(points, count);
}

void DrawPath(QPainter& painter, const QPainterPath& path)
{
    if (OutlineEngine* const engine = FastEngine(painter))
        engine->drawPath(path);
    else
        painter.drawPath(path);
}

void DrawEllipse(QPainter& painter, const QRect& rect)
{
    if (OutlineEngine* const engine = FastEngine(painter))
        engine->drawEllipse(rect.normalized());
    else
        painter.drawEllipse(rect);
}

void DrawArc(QPainter& painter, const QRectF& rect, int start, int span)
{
    OutlineEngine* const engine = FastEngine(painter);
    if (!engine)
    {
        painter.drawArc(rect, start, span);
        return;
    }
    const QRectF normal = rect.normalized();
    QPainterPath path;
    path.arcMoveTo(normal, start / double(kSixteenths));
    path.arcTo(normal, start / double(kSixteenths), span / double(kSixteenths));
    if (!path.isEmpty())
        engine->stroke(qtVectorPathForPath(path), painter.pen());
}

void DrawPie(QPainter& painter, const QRectF& rect, int start, int span)
{
    OutlineEngine* const engine = FastEngine(painter);
    if (!engine)
    {
        painter.drawPie(rect, start, span);
        return;
    }
    const int inTurn = start > kTurn || start < 0 ? (start % kTurn + kTurn) % kTurn : start;
    const QRectF normal = rect.normalized();
    QPainterPath path;
    path.moveTo(normal.center());
    path.arcTo(normal, inTurn / double(kSixteenths), span / double(kSixteenths));
    path.closeSubpath();
    engine->drawPath(path);
}

bool DrawOutline(QPainter& painter, const OutlineView& outline)
{
    QPaintEngineEx* const engine = EngineFor(painter);
    if (engine && outline.count > 0)
        engine->draw(VectorPath(outline));
    return engine != nullptr;
}

bool FillOutline(QPainter& painter, const OutlineView& outline, const QBrush& brush)
{
    QPaintEngineEx* const engine = EngineFor(painter, brush);
    if (engine && outline.count > 0)
        engine->fill(VectorPath(outline), brush);
    return engine != nullptr;
}

bool StrokeOutline(QPainter& painter, const OutlineView& outline, const QPen& pen)
{
    QPaintEngineEx* const engine = EngineFor(painter, pen.brush());
    if (engine && outline.count > 0)
        engine->stroke(VectorPath(outline), pen);
    return engine != nullptr;
}

bool IsFilledStroke(const QPainter& painter, const QPen& pen)
{
    constexpr double certainlyWider = 1.0 + 1e-6;
    const QPaintEngine* const engine = painter.paintEngine();
    const QTransform& t = painter.deviceTransform();
    if (!engine || engine->type() != QPaintEngine::Raster || t.type() >= QTransform::TxProject || pen.isCosmetic())
        return false;
    const double smallestScale = std::min({std::hypot(t.m11(), t.m12()), std::hypot(t.m21(), t.m22()),
                                           std::hypot(t.m11(), t.m21()), std::hypot(t.m12(), t.m22())});
    return pen.widthF() * smallestScale > certainlyWider;
}

} // namespace txqt
