#include <txpluginqt/raster/FlatOutline.h>

#include <private/qbezier_p.h>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT extern bool qt_scaleForTransform(const QTransform& transform, qreal* scale);
QT_END_NAMESPACE

namespace txqt
{

double FlatOutline::FlatnessFor(const QTransform& transform)
{
    qreal scale = 1.0;
    qt_scaleForTransform(transform, &scale);
    return scale == 0.0 ? kFlatness : kFlatness / scale;
}

void FlatOutline::Flatten(const QPointF* source, const QPainterPath::ElementType* sourceKinds, int count,
                          double flatness)
{
    points.clear();
    kinds.clear();
    for (int i = 0; i < count; ++i)
    {
        if (sourceKinds[i] != QPainterPath::CurveToElement)
        {
            points.push_back(source[i]);
            kinds.push_back(sourceKinds[i]);
            continue;
        }
        // Qt draws straight lines for curves that nobody sees; that changes no pixel.
        curvePoints.reset();
        QBezier::fromPoints(points.back(), source[i], source[i + 1], source[i + 2]).addToPolygon(curvePoints, flatness);
        points.insert(points.end(), curvePoints.data(), curvePoints.data() + curvePoints.size());
        kinds.resize(points.size(), QPainterPath::LineToElement);
        i += 2;
    }
}

std::size_t FlatOutline::Bytes() const
{
    return points.capacity() * sizeof(QPointF) + kinds.capacity() * sizeof(kinds[0]);
}

void FlatOutline::Release()
{
    std::vector<QPointF>().swap(points);
    std::vector<QPainterPath::ElementType>().swap(kinds);
    curvePoints.shrink(0);
}

} // namespace txqt
