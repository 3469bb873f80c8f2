#include <txpluginqt/raster/VectorOutline.h>

#include <QPainter>

// Drawing from an array that is not Qt's needs the interface below QPainter. A copy of a map layer's polygons costs
// more than drawing them, and so does a copy of a label's outlines in pieces.
#include <private/qpaintengineex_p.h>
#include <private/qvectorpath_p.h>

namespace txqt
{
namespace
{

QPaintEngineEx* EngineOf(QPainter& painter) { return dynamic_cast<QPaintEngineEx*>(painter.paintEngine()); }

/// Without closing lines, as Qt's own paths are.
QVectorPath VectorPath(const OutlineView& outline)
{
    const uint fillRule = outline.fillRule == Qt::WindingFill ? QVectorPath::WindingFill : QVectorPath::OddEvenFill;
    return QVectorPath(outline.points, outline.count, outline.kinds, QVectorPath::ArbitraryShapeHint | fillRule);
}

} // namespace

bool DrawOutline(QPainter& painter, const OutlineView& outline)
{
    QPaintEngineEx* const engine = EngineOf(painter);
    if (engine && outline.count > 0)
        engine->draw(VectorPath(outline));
    return engine != nullptr;
}

bool FillOutline(QPainter& painter, const OutlineView& outline, const QBrush& brush)
{
    QPaintEngineEx* const engine = EngineOf(painter);
    if (engine && outline.count > 0)
        engine->fill(VectorPath(outline), brush);
    return engine != nullptr;
}

bool StrokeOutline(QPainter& painter, const OutlineView& outline, const QPen& pen)
{
    QPaintEngineEx* const engine = EngineOf(painter);
    if (engine && outline.count > 0)
        engine->stroke(VectorPath(outline), pen);
    return engine != nullptr;
}

} // namespace txqt
