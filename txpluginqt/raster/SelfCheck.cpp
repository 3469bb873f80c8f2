#include <txpluginqt/raster/SelfCheck.h>

#include <algorithm>
#include <cstring>

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QtDebug>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/raster/OutlineEngine.h>

namespace txqt
{
namespace
{

constexpr int kSide = 48;

/// What is drawn both ways.
struct CheckedShape
{
    QPainterPath path;
    QPen pen;
    QBrush brush;
    QTransform transform;
};

QPainterPath Star(double size, Qt::FillRule rule)
{
    QPainterPath path;
    path.setFillRule(rule);
    path.moveTo(size * 0.51, 1.2);
    for (const QPointF& corner : {QPointF(0.81, 0.97), QPointF(0.03, 0.36), QPointF(0.99, 0.33), QPointF(0.22, 0.94)})
        path.lineTo(corner * size);
    path.closeSubpath();
    return path;
}

QPainterPath Leaf(double size)
{
    QPainterPath path;
    path.moveTo(1.7, size * 0.4);
    path.cubicTo(size * 0.3, -size * 0.4, size * 0.7, size * 1.3, size * 1.1, size * 0.45);
    path.quadTo(size * 0.6, size * 1.4, 1.7, size * 0.4);
    path.addEllipse(QRectF(size * 0.31, size * 0.28, size * 0.4, size * 0.33));
    return path;
}

std::vector<CheckedShape> Shapes()
{
    const QBrush solid(QColor(200, 60, 20, 255));
    const QBrush glass(QColor(20, 90, 200, 120));
    QLinearGradient gradient(3.0, 5.0, 40.0, 31.0);
    gradient.setColorAt(0.0, QColor(250, 230, 10, 200));
    gradient.setColorAt(1.0, QColor(10, 30, 90, 255));
    const QPen wide(QColor(10, 80, 40, 200), 3.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen mitred(QColor(90, 10, 40), 2.6, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    const QPen dashed(QColor(60, 10, 140, 180), 2.2, Qt::DashDotLine, Qt::SquareCap, Qt::BevelJoin);
    const QTransform turned = QTransform().translate(4.3, -2.2).rotate(17.0).scale(0.93, 0.81);
    std::vector<CheckedShape> shapes;
    for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill})
    {
        shapes.push_back({Star(44.0, rule), Qt::NoPen, solid, QTransform()});
        shapes.push_back({Star(43.3, rule), Qt::NoPen, glass, turned});
        shapes.push_back({Star(71.0, rule), Qt::NoPen, gradient, QTransform().translate(-11.4, -9.7)});
    }
    shapes.push_back({Leaf(41.0), Qt::NoPen, solid, QTransform().translate(0.37, 0.61)});
    shapes.push_back({Leaf(38.0), Qt::NoPen, gradient, turned});
    shapes.push_back({Leaf(40.0), wide, glass, QTransform()});
    shapes.push_back({Star(39.0, Qt::OddEvenFill), wide, Qt::NoBrush, turned});
    shapes.push_back({Star(45.0, Qt::OddEvenFill), mitred, Qt::NoBrush, QTransform().scale(1.1, 0.7)});
    shapes.push_back({Leaf(40.0), dashed, Qt::NoBrush, QTransform()});
    shapes.push_back({Star(44.0, Qt::OddEvenFill), QPen(QColor(30, 30, 30, 210), 1.0), Qt::NoBrush, QTransform()});
    return shapes;
}

bool GivesQtsPixels(const CheckedShape& shape)
{
    QImage pictures[2];
    for (QImage& picture : pictures)
    {
        picture = QImage(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
        picture.fill(QColor(120, 160, 140, 170));
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setTransform(shape.transform);
        painter.setPen(shape.pen);
        painter.setBrush(shape.brush);
        if (&picture == pictures)
            painter.drawPath(shape.path);
        else
            OutlineEngine::For(static_cast<QRasterPaintEngine&>(*painter.paintEngine())).drawPath(shape.path);
    }
    return std::memcmp(pictures[0].constBits(), pictures[1].constBits(), std::size_t(pictures[0].sizeInBytes())) == 0;
}

bool PassesSelfCheck()
{
    if (std::strncmp(qVersion(), "5.15.", 5) != 0)
    {
        qWarning("The rasteriser was made for Qt 5.15; with Qt %s QPainter draws everything.", qVersion());
        return false;
    }
    const std::vector<CheckedShape> shapes = Shapes();
    if (std::all_of(shapes.begin(), shapes.end(), GivesQtsPixels))
        return true;
    qWarning("The rasteriser does not give the pixels of this Qt; QPainter draws everything.");
    return false;
}

} // namespace

void CheckRasterizer() { RasterizerIsOn(); }

bool RasterizerIsOn()
{
    static const bool passes = PassesSelfCheck();
    return passes && TZObjects::TXGraphicsEngineManager::instance(TZObjects::TXString())->RasterizerEnabled();
}

} // namespace txqt
