#include "RandomDrawings.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>

#include <QConicalGradient>
#include <QLinearGradient>
#include <QRadialGradient>

#include <txpluginqt/raster/Drawing.h>

using namespace txqt;

namespace
{

constexpr int kShapes = 7;
/// Formats that Qt paints on, each as it stores pixels.
constexpr QImage::Format kFormats[] = {
    QImage::Format_ARGB32_Premultiplied,
    QImage::Format_ARGB32_Premultiplied,
    QImage::Format_RGB32,
    QImage::Format_ARGB32,
    QImage::Format_RGB16,
    QImage::Format_ARGB8565_Premultiplied,
    QImage::Format_RGB666,
    QImage::Format_RGB555,
    QImage::Format_RGB888,
    QImage::Format_RGB444,
    QImage::Format_RGBA8888,
    QImage::Format_RGBA8888_Premultiplied,
    QImage::Format_A2RGB30_Premultiplied,
    QImage::Format_RGB30,
    QImage::Format_Grayscale8,
    QImage::Format_Alpha8,
    QImage::Format_Mono,
    QImage::Format_MonoLSB,
    QImage::Format_RGBA64_Premultiplied,
};
/// The end of what Qt rasterises without clipping.
constexpr double kEdge = 32767.0;

} // namespace

QColor RandomDrawings::RandomColor()
{
    return QColor(random.Int(0, 255), random.Int(0, 255), random.Int(0, 255),
                  random.Chance(50) ? 255 : random.Int(0, 255));
}

QBrush RandomDrawings::RandomBrush(bool solidOnly)
{
    if (solidOnly || random.Chance(60))
        return RandomColor();
    QGradient gradient;
    switch (random.Int(0, 5))
    {
    case 0:
        gradient = QLinearGradient(RandomPoint(100.0), RandomPoint(100.0));
        break;
    case 1:
        gradient = QRadialGradient(RandomPoint(100.0), random.Real(1.0, 90.0));
        break;
    case 2:
        gradient = QConicalGradient(RandomPoint(100.0), random.Real(0.0, 360.0));
        break;
    case 3:
    {
        QImage picture(random.Int(1, 9), random.Int(1, 9), QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixelColor(x, y, RandomColor());
        QBrush brush(picture);
        if (random.Chance(50))
            brush.setTransform(RandomTransform());
        return brush;
    }
    default:
        return QBrush(RandomColor(), static_cast<Qt::BrushStyle>(random.Int(Qt::Dense1Pattern, Qt::DiagCrossPattern)));
    }
    gradient.setSpread(static_cast<QGradient::Spread>(random.Int(0, 2)));
    const int stops = random.Int(1, 6);
    for (int i = 0; i <= stops; ++i)
        gradient.setColorAt(i / double(stops), RandomColor());
    if (random.Chance(10))
        gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    QBrush brush(gradient);
    if (random.Chance(30))
        brush.setTransform(RandomTransform());
    return brush;
}

QPen RandomDrawings::RandomPen()
{
    if (random.Chance(30))
        return Qt::NoPen;
    const double widths[] = {0.0, 0.5, 1.0, 1.0, 1.5, 2.0, 3.0, 3.7, 8.0, 25.0};
    QPen pen(RandomBrush(random.Chance(85)), widths[random.Int(0, 9)]);
    pen.setStyle(random.Chance(75) ? Qt::SolidLine
                                   : static_cast<Qt::PenStyle>(random.Int(Qt::DashLine, Qt::DashDotDotLine)));
    const Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap};
    const Qt::PenJoinStyle joins[] = {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin, Qt::SvgMiterJoin};
    pen.setCapStyle(caps[random.Int(0, 2)]);
    pen.setJoinStyle(joins[random.Int(0, 3)]);
    if (random.Chance(20))
        pen.setMiterLimit(random.Real(-3.0, 12.0));
    if (random.Chance(15))
        pen.setCosmetic(true);
    if (random.Chance(10))
        pen.setDashPattern({random.Real(0.1, 5.0), random.Real(0.1, 5.0)});
    return pen;
}

QPointF RandomDrawings::RandomPoint(double reach)
{
    QPointF point(random.Real(-reach * 0.2, reach * 1.2), random.Real(-reach * 0.2, reach * 1.2));
    if (random.Chance(10))
        point = QPointF(std::round(point.x()), std::round(point.y()));
    if (random.Chance(5))
        point = QPointF(std::round(point.x() * 64.0) / 64.0, std::round(point.y() * 128.0) / 128.0);
    return point;
}

QTransform RandomDrawings::RandomTransform()
{
    switch (random.Int(0, 7))
    {
    case 0:
    case 1:
        return QTransform();
    case 2:
    case 3:
        return QTransform::fromTranslate(random.Real(-30.0, 30.0), random.Real(-30.0, 30.0));
    case 4:
        return QTransform::fromScale(random.Real(-2.0, 2.0), random.Real(0.1, 3.0)) *
               QTransform::fromTranslate(random.Real(0.0, 40.0), random.Real(0.0, 40.0));
    case 5:
        return QTransform().translate(20.0, 20.0).rotate(random.Real(0.0, 360.0)).scale(random.Real(0.2, 2.0), 1.0);
    case 6:
        return QTransform(random.Real(-1.5, 1.5), random.Real(-1.0, 1.0), random.Real(-1.0, 1.0),
                          random.Real(-1.5, 1.5), random.Real(-20.0, 90.0), random.Real(-20.0, 90.0));
    default:
        if (random.Chance(20))
            return QTransform(1.0, 0.1, 0.001, 0.05, 0.9, 0.002, 3.0, 4.0, 1.0);
        return QTransform::fromScale(random.Chance(50) ? 0.001 : 40.0, random.Chance(50) ? 0.0 : 7.0);
    }
}

RandomDrawings::Shape RandomDrawings::RandomShape()
{
    Shape shape;
    shape.kind = random.Int(0, kShapes - 1);
    shape.rule = random.Chance(50) ? Qt::OddEvenFill : Qt::WindingFill;
    shape.start = random.Int(-6000, 12000);
    shape.span = random.Int(-7000, 7000);
    shape.rect = QRect(random.Int(-20, 80), random.Int(-20, 80), random.Int(-30, 120), random.Int(-30, 120));
    const int counts[] = {2, 3, 3, 4, 5, 8, 30, 200};
    const int count = counts[random.Int(0, 7)];
    const int manner = random.Int(0, 19);
    const QPointF first = RandomPoint(100.0);
    for (int i = 0; i < count; ++i)
    {
        QPointF point = RandomPoint(100.0);
        if (manner < 4) // Small.
            point = first + QPointF(random.Real(-2.0, 2.0), random.Real(-2.0, 2.0));
        else if (manner == 4) // On one line.
            point = first + QPointF(1.0, 0.5) * random.Real(-50.0, 50.0);
        else if (manner == 5) // The same points again and again.
            point = i % 3 == 0 ? first : QPointF(first.x(), point.y());
        else if (manner == 6) // Far away.
            point = QPointF(random.Real(-kEdge, kEdge), random.Real(-kEdge, kEdge)) * 0.5;
        else if (manner == 7 && random.Chance(30)) // At the limits.
            point =
                QPointF(random.Chance(50) ? kEdge : random.Real(-40000.0, 40000.0), random.Chance(50) ? 0.0 : kEdge);
        else if (manner == 8) // Along the edges of pixels.
            point = QPointF(std::round(point.x()), std::round(point.y()));
        else if (manner == 9 && random.Chance(5))
            point.setX(std::numeric_limits<double>::quiet_NaN());
        shape.points.push_back(point);
    }
    if (random.Chance(5))
        shape.points = {first, first + QPointF(20.0, 0.0), first + QPointF(20.0, 9.0), first + QPointF(0.0, 9.0)};
    if (shape.kind >= 5)
    {
        shape.path = random.NextPath();
        for (std::size_t i = 0; i + 2 < shape.points.size(); i += 3)
        {
            if (std::isnan(shape.points[i].x() + shape.points[i + 1].x() + shape.points[i + 2].x()))
                continue;
            if (random.Chance(20))
                shape.path.moveTo(shape.points[i]);
            else if (random.Chance(50))
                shape.path.lineTo(shape.points[i]);
            else
                shape.path.cubicTo(shape.points[i], shape.points[i + 1], shape.points[i + 2]);
        }
        if (random.Chance(20))
            shape.path.moveTo(first);
        shape.path.setFillRule(shape.rule);
    }
    return shape;
}

void RandomDrawings::SetRandomClip(QPainter& painter)
{
    const auto rect = [&]
    { return QRect(random.Int(-10, 60), random.Int(-10, 60), random.Int(1, 90), random.Int(1, 90)); };
    switch (random.Int(0, 7))
    {
    case 0:
        painter.setClipRect(rect());
        break;
    case 1:
        painter.setClipRegion(QRegion(rect()) + QRegion(rect(), QRegion::Ellipse));
        break;
    case 2:
    {
        QPainterPath path;
        path.addEllipse(QRectF(rect()));
        painter.setClipPath(path);
        break;
    }
    case 3:
        painter.setClipRect(QRectF(QPointF(0.0, 0.0), QSizeF(painter.device()->width(), painter.device()->height())));
        break;
    default:
        break;
    }
}

void RandomDrawings::Draw(QPainter& painter, const Shape& shape, Way way)
{
    const bool isFast = way == Way::Rasterizer;
    const auto count = static_cast<int>(shape.points.size());
    switch (shape.kind)
    {
    case 0:
        isFast ? DrawPolygon(painter, shape.points.data(), count, shape.rule)
               : painter.drawPolygon(shape.points.data(), count, shape.rule);
        break;
    case 1:
        isFast ? DrawPolyline(painter, shape.points.data(), count) : painter.drawPolyline(shape.points.data(), count);
        break;
    case 2:
        isFast ? DrawEllipse(painter, shape.rect) : painter.drawEllipse(shape.rect);
        break;
    case 3:
        if (shape.rule == Qt::WindingFill)
            isFast ? DrawPie(painter, shape.rect, shape.start, shape.span)
                   : painter.drawPie(shape.rect, shape.start, shape.span);
        else
            isFast ? DrawArc(painter, shape.rect, shape.start, shape.span)
                   : painter.drawArc(shape.rect, shape.start, shape.span);
        break;
    case 4:
        isFast ? DrawPoints(painter, shape.points.data(), count) : painter.drawPoints(shape.points.data(), count);
        break;
    default:
        isFast ? DrawPath(painter, shape.path) : painter.drawPath(shape.path);
        break;
    }
}

void RandomDrawings::DrawAll(QImage& picture, const QImage& background, Way way)
{
    std::memcpy(picture.bits(), background.constBits(), static_cast<std::size_t>(background.sizeInBytes()));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, random.Chance(95));
    painter.setTransform(RandomTransform());
    SetRandomClip(painter);
    // Several operations with one painter, as what Qt decided for the first may outlive it.
    const int operations = random.Int(1, 4);
    for (int i = 0; i < operations; ++i)
    {
        if (i == 0 || random.Chance(50))
            painter.setPen(RandomPen());
        if (i == 0 || random.Chance(50))
            painter.setBrush(random.Chance(20) ? QBrush(Qt::NoBrush) : RandomBrush(false));
        if (random.Chance(15))
            painter.setOpacity(random.Real(0.0, 1.0));
        if (random.Chance(20))
            painter.setCompositionMode(static_cast<QPainter::CompositionMode>(
                random.Int(QPainter::CompositionMode_SourceOver, QPainter::CompositionMode_Exclusion)));
        if (random.Chance(10))
            painter.setTransform(RandomTransform());
        if (random.Chance(10))
            painter.setBrushOrigin(RandomPoint(20.0));
        const Shape shape = RandomShape();
        Draw(painter, shape, way);
    }
}

void RandomDrawings::DrawAllFarther(int bytes, QImage& picture, const QImage& background)
{
    // Whatever Qt keeps on the stack moves by so much.
    auto* const room = static_cast<volatile char*>(__builtin_alloca(static_cast<std::size_t>(bytes)));
    room[0] = 0;
    DrawAll(picture, background, Way::QPainter);
}

::testing::AssertionResult RandomDrawings::DrawnAlike()
{
    const QImage::Format format = kFormats[random.Int(0, static_cast<int>(std::size(kFormats)) - 1)];
    const int width = random.Chance(5) ? random.Int(1, 3) : random.Int(20, 160);
    const int height = random.Chance(5) ? random.Int(1, 3) : random.Int(20, 120);
    QImage picture(width, height, format);
    picture.fill(RandomColor());
    for (int i = 0; i < 5; ++i)
    {
        QPainter painter(&picture);
        painter.fillRect(random.Int(0, 100), random.Int(0, 100), random.Int(1, 50), random.Int(1, 50), RandomColor());
    }
    const QImage background = picture.copy();

    const RandomPaths start = random;
    const auto isDrawnAs = [&](const QImage& expected)
    {
        const auto rowBytes = static_cast<std::size_t>(width * picture.depth() / 8);
        for (int y = 0; y < height; ++y)
            if (std::memcmp(picture.constScanLine(y), expected.constScanLine(y), rowBytes) != 0)
                return false;
        return true;
    };
    // Qt draws a gradient in another way for the first time, and turned textures by where its buffers lie.
    DrawAll(picture, background, Way::QPainter);
    random = start;
    DrawAll(picture, background, Way::Rasterizer);
    const QImage actual = picture.copy();
    for (const int bytes : {16, 32, 48, 64, 1008, 1024, 8016, 8032})
    {
        random = start;
        DrawAllFarther(bytes, picture, background);
        if (isDrawnAs(actual))
            return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "format " << format;
}
