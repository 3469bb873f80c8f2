#include <txpluginqt/raster/OutlineEngine.h>

#include <QScopedValueRollback>

#include <private/qpainter_p.h>

#include <txpluginqt/raster/Hairline.h>
#include <txpluginqt/raster/OutlineFill.h>
#include <txpluginqt/raster/SolidPixels.h>
#include <txpluginqt/raster/SpanBatch.h>

namespace txqt
{
namespace
{

/// Qt splits polygons of more points in two.
constexpr int kMostPolygonPoints = 65535;
/// More than maps need is given back.
constexpr std::size_t kKeptBytes = std::size_t(8) << 20;

Qt::FillRule FillRuleOf(const QVectorPath& path) { return path.hasWindingFill() ? Qt::WindingFill : Qt::OddEvenFill; }

QPaintEngineExPrivate& PrivateOf(QPaintEngine& engine)
{
    return static_cast<QPaintEngineExPrivate&>(*QPaintEnginePrivate::get(&engine));
}

} // namespace

OutlineEngine& OutlineEngine::For(QRasterPaintEngine& raster)
{
    thread_local OutlineEngine engine;
    engine.raster = &raster;
    engine.setState(raster.state());
    PrivateOf(engine).exDeviceRect = PrivateOf(raster).exDeviceRect;
    return engine;
}

void OutlineEngine::transformChanged() { raster->transformChanged(); }

void OutlineEngine::fill(const QVectorPath& path, const QBrush& brush)
{
    if (path.isEmpty())
        return;
    if (path.shape() == QVectorPath::RectangleHint)
    {
        raster->fill(path, brush);
        return;
    }
    const RasterTarget target(*raster);
    QSpanData* const data = strokeData ? strokeData : target.Brush(brush);
    if (data && !FillWith(*data, path))
        raster->fill(path, brush);
}

bool OutlineEngine::FillWith(QSpanData& data, const QVectorPath& path)
{
    if (!SetOutline(path))
        return false;
    // The bounds of the control points, which a solid colour does not need.
    FillCells(data, FillRuleOf(path), [&] { return state()->matrix.mapRect(path.controlPointRect()); });
    return true;
}

bool OutlineEngine::FillPolygon(QSpanData& data, const QPointF* points, int count, Qt::FillRule rule)
{
    if (count > kMostPolygonPoints || !outline.Set(points, nullptr, count, state()->matrix))
        return false;
    FillCells(data, rule, [&] { return outline.Bounds(); });
    return true;
}

template <class Bounds>
void OutlineEngine::FillCells(QSpanData& data, Qt::FillRule rule, Bounds bounds)
{
    const RasterTarget target(*raster);
    if (std::optional<SolidPixels> solid = SolidPixels::For(target, data))
        FillOutlineCells(outline, solid->Area(), rule, *solid);
    else
    {
        SpanBatch spans(target.BlendOf(data, bounds()), &data);
        FillOutlineCells(outline, target.Device(), rule, spans);
    }
    ReleaseLarge();
}

bool OutlineEngine::SetOutline(const QVectorPath& path)
{
    const auto* const points = reinterpret_cast<const QPointF*>(path.points());
    if (!path.isCurved() || !path.elements())
        return outline.Set(points, path.elements(), path.elementCount(), state()->matrix);
    flat.Flatten(points, path.elements(), path.elementCount(), FlatOutline::FlatnessFor(state()->matrix));
    return outline.Set(flat.Points().data(), flat.Kinds().data(), static_cast<int>(flat.Points().size()),
                       state()->matrix);
}

void OutlineEngine::stroke(const QVectorPath& path, const QPen& pen)
{
    const RasterTarget target(*raster);
    if (!target.Pen(pen))
        return;
    const QRasterPaintEngineState& current = target.State();
    const bool isDrawnByLines = current.flags.non_complex_pen && path.shape() == QVectorPath::LinesHint;
    if (current.flags.fast_pen)
        StrokeHairline(path, pen);
    else if (isDrawnByLines)
        raster->stroke(path, pen);
    else
        StrokeOutline(path, pen);
}

void OutlineEngine::StrokeHairline(const QVectorPath& path, const QPen& pen)
{
    const RasterTarget target(*raster);
    if (Hairline::Applies(target))
        Hairline(target).Draw(path);
    else
        raster->stroke(path, pen);
}

void OutlineEngine::StrokeOutline(const QVectorPath& path, const QPen& pen)
{
    if (pen.style() != Qt::SolidLine || qt_pen_is_cosmetic(pen, state()->renderHints))
    {
        StrokeByQt(path, pen);
        return;
    }
    // Dashes are closed or not as the last solid stroke was.
    PrivateOf(*raster).stroker.setForceOpen(path.hasExplicitOpen());
    stroker.Stroke(path, pen);
    if (stroker.Kinds().empty())
        return;
    const uint curved = stroker.HasCurves() ? QVectorPath::CurvedShapeMask : 0;
    const QVectorPath stroked(reinterpret_cast<const qreal*>(stroker.Points().data()),
                              static_cast<int>(stroker.Kinds().size()), stroker.Kinds().data(),
                              QVectorPath::WindingFill | QVectorPath::NonConvexShapeMask | curved);
    // A solid colour is the same for pens and brushes, and Qt need not set up the brush again.
    const bool isSolid = pen.brush().style() == Qt::SolidPattern;
    const QScopedValueRollback<QSpanData*> data(strokeData, isSolid ? &RasterTarget(*raster).State().penData : nullptr);
    fill(stroked, pen.brush());
}

void OutlineEngine::StrokeByQt(const QVectorPath& path, const QPen& pen)
{
    QPaintEngineExPrivate& own = PrivateOf(*this);
    QPaintEngineExPrivate& qts = PrivateOf(*raster);
    own.stroker.setForceOpen(qts.stroker.forceOpen());
    QPaintEngineEx::stroke(path, pen);
    qts.stroker.setForceOpen(own.stroker.forceOpen());
}

void OutlineEngine::drawPoints(const QPointF* points, int count)
{
    const RasterTarget target(*raster);
    target.Pen(state()->pen);
    const QRasterPaintEngineState& current = target.State();
    const bool isThin = state()->matrix.type() <= QTransform::TxTranslate && current.lastPen.widthF() <= 1.0;
    // The base class makes a short line of each point, and strokes it.
    if (current.flags.fast_pen || isThin)
        raster->drawPoints(points, count);
    else
        QPaintEngineEx::drawPoints(points, count);
}

void OutlineEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    const RasterTarget target(*raster);
    if (mode != PolylineMode && QVectorPath::isRect(reinterpret_cast<const qreal*>(points), count))
    {
        raster->drawPolygon(points, count, mode);
        return;
    }
    QSpanData* const penData = target.Pen(state()->pen);
    if (mode != PolylineMode)
    {
        const Qt::FillRule rule = mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill;
        QSpanData* const brushData = target.Brush(state()->brush);
        if (brushData && !FillPolygon(*brushData, points, count, rule))
            raster->fillPolygon(points, count, mode);
    }
    if (!penData)
        return;
    const QVectorPath path(reinterpret_cast<const qreal*>(points), count, nullptr, QVectorPath::polygonFlags(mode));
    const QPen& pen = target.State().lastPen;
    if (target.State().flags.fast_pen)
        StrokeHairline(path, pen);
    else
        StrokeOutline(path, pen);
}

void OutlineEngine::ReleaseLarge()
{
    if (outline.Bytes() > kKeptBytes)
        outline.Release();
    if (stroker.Bytes() > kKeptBytes)
        stroker.Release();
    if (flat.Bytes() > kKeptBytes)
        flat.Release();
}

} // namespace txqt
