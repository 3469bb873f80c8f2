#include <txpluginqt/raster/OutlineEngine.h>

#include <QScopedValueRollback>

#include <private/qbezier_p.h>
#include <private/qpainter_p.h>

#include <txpluginqt/raster/Hairline.h>
#include <txpluginqt/raster/OutlineFill.h>
#include <txpluginqt/raster/SolidPixels.h>
#include <txpluginqt/raster/SpanBatch.h>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT extern bool qt_scaleForTransform(const QTransform& transform, qreal* scale);
QT_END_NAMESPACE

namespace txqt
{
namespace
{

/// Qt splits polygons of more points in two.
constexpr int kMostPolygonPoints = 65535;
/// In pixels.
constexpr double kFlatness = 0.25;
/// More than maps need is given back.
constexpr std::size_t kKeptBytes = std::size_t(8) << 20;

Qt::FillRule FillRuleOf(const QVectorPath& path) { return path.hasWindingFill() ? Qt::WindingFill : Qt::OddEvenFill; }

QPaintEngineExPrivate& PrivateOf(QPaintEngine& engine)
{
    return static_cast<QPaintEngineExPrivate&>(*QPaintEnginePrivate::get(&engine));
}

/// How far a curve may be from its lines, in the units of the path.
double FlatnessFor(const QTransform& transform)
{
    qreal scale = 1.0;
    qt_scaleForTransform(transform, &scale);
    return scale == 0.0 ? kFlatness : kFlatness / scale;
}

} // namespace

OutlineEngine::OutlineEngine() : flatPoints(0), flatKinds(0) {}

OutlineEngine::~OutlineEngine() = default;

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
    const RasterTarget target(*raster);
    const QRectF bounds = state()->matrix.mapRect(path.controlPointRect());
    if (!bounds.intersects(QRectF(target.Device())))
        return true;
    if (!SetOutline(path))
        return false;
    FillCells(data, bounds, FillRuleOf(path));
    return true;
}

bool OutlineEngine::FillPolygon(QSpanData& data, const QPointF* points, int count, Qt::FillRule rule)
{
    if (count > kMostPolygonPoints || !outline.Set(points, nullptr, count, state()->matrix))
        return false;
    FillCells(data, outline.Bounds(), rule);
    return true;
}

void OutlineEngine::FillCells(QSpanData& data, const QRectF& bounds, Qt::FillRule rule)
{
    const RasterTarget target(*raster);
    if (std::optional<SolidPixels> solid = SolidPixels::For(target, data))
        FillOutlineCells(outline, solid->Area(), rule, *solid);
    else
    {
        SpanBatch spans(target.BlendOf(data, bounds), &data);
        FillOutlineCells(outline, target.Device(), rule, spans);
    }
    ReleaseLarge();
}

bool OutlineEngine::SetOutline(const QVectorPath& path)
{
    const auto* const points = reinterpret_cast<const QPointF*>(path.points());
    if (!path.isCurved() || !path.elements())
        return outline.Set(points, path.elements(), path.elementCount(), state()->matrix);
    Flatten(path);
    return outline.Set(flatPoints.data(), flatKinds.data(), flatPoints.size(), state()->matrix);
}

void OutlineEngine::Flatten(const QVectorPath& path)
{
    const auto* const points = reinterpret_cast<const QPointF*>(path.points());
    const QPainterPath::ElementType* const kinds = path.elements();
    const QTransform& transform = state()->matrix;
    const double flatness = FlatnessFor(transform);
    const QRectF device(RasterTarget(*raster).Device());
    flatPoints.reset();
    flatKinds.reset();
    for (int i = 0; i < path.elementCount(); ++i)
    {
        if (kinds[i] != QPainterPath::CurveToElement)
        {
            flatPoints.add(points[i]);
            flatKinds.add(kinds[i]);
            continue;
        }
        const QPointF& end = points[i + 2];
        const QBezier curve = QBezier::fromPoints(flatPoints.last(), points[i], points[i + 1], end);
        // Qt draws a straight line where nobody sees the curve.
        if (device.contains(transform.map(end)) || transform.mapRect(curve.bounds()).intersects(device))
            curve.addToPolygon(flatPoints, flatness);
        else
            flatPoints.add(end);
        while (flatKinds.size() < flatPoints.size())
            flatKinds.add(QPainterPath::LineToElement);
        i += 2;
    }
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
    if (static_cast<std::size_t>(flatPoints.size()) * sizeof(QPointF) > kKeptBytes)
    {
        flatPoints.shrink(0);
        flatKinds.shrink(0);
    }
}

} // namespace txqt
