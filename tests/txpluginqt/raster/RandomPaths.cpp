#include "RandomPaths.h"

#include <cmath>

#include <QFont>
#include <QLinearGradient>

void RandomPaths::AddContour(QPainterPath& path, const QPointF& at, double size)
{
    const double width = size * Real(0.1, 1.0);
    const double height = size * Real(0.1, 1.0);
    switch (Int(0, 6))
    {
    case 0:
    case 1:
        path.addEllipse(QRectF(at, QSizeF(width, height)));
        break;
    case 2:
        path.addRect(QRectF(at, QSizeF(width, height)));
        break;
    case 3:
        path.addRect(std::round(at.x()), std::round(at.y()), std::ceil(width), std::ceil(height));
        break;
    case 4:
        // Not closed.
        path.moveTo(at);
        path.lineTo(at.x() + width, at.y());
        path.lineTo(at.x() + width * Real(-0.5, 1.0), at.y() + height);
        break;
    case 5:
        path.moveTo(at);
        path.cubicTo(at.x() + width * Real(-1.0, 2.0), at.y() + height * Real(-1.0, 2.0), at.x() + width,
                     at.y() + height * Real(-1.0, 1.0), at.x() + width, at.y() + height);
        path.closeSubpath();
        break;
    default:
        path.moveTo(at);
        if (Chance(50))
            path.lineTo(at.x() + width, at.y());
        break;
    }
}

QPainterPath RandomPaths::NextPath()
{
    QPainterPath path;
    const int count = Chance(5) ? Int(200, 320) : Int(1, 14);
    const double size = Chance(20) ? 0.8 : Chance(10) ? 60.0 : Real(2.0, 14.0);
    switch (Int(0, 4))
    {
    case 0: // Anywhere.
        for (int i = 0; i < count; ++i)
            AddContour(path, QPointF(Real(-10, 95), Real(-10, 75)), size);
        break;
    case 1: // In a line, with gaps from below nothing to some pixels.
    case 2: // The same from the right to the left.
    {
        const double direction = Chance(50) ? 1.0 : -1.0;
        double x = direction > 0 ? Real(-5, 10) : Real(80, 95);
        const double y = Real(0, 60);
        for (int i = 0; i < count; ++i)
        {
            AddContour(path, QPointF(x, y + Real(-2, 2)), size);
            x += direction * (size + (Chance(30) ? Real(-0.05, 0.05) : Real(-size, 4.0)));
        }
        break;
    }
    case 3: // Nested.
        for (int i = 0; i < count; ++i)
            path.addEllipse(QPointF(Real(20, 24), 30), size * (i + 1) / 4, size * (i + 1) / 5);
        AddContour(path, QPointF(Real(0, 90), Real(0, 70)), size);
        break;
    default:
        return NextLetters();
    }
    path.setFillRule(Chance(50) ? Qt::WindingFill : Qt::OddEvenFill);
    return path;
}

QPainterPath RandomPaths::NextLetters()
{
    static const char* const texts[] = {"Main Street", "i l . ' |", "fj gy", "AVAWA", "W. i", "8&@", "l", "- _ -"};
    QFont font(Chance(50) ? "DejaVu Sans" : "DejaVu Serif");
    font.setPixelSize(Int(4, 30));
    font.setItalic(Chance(30));
    font.setUnderline(Chance(15));
    font.setLetterSpacing(QFont::AbsoluteSpacing, Chance(60) ? 0.0 : Real(-4.0, 6.0));
    QPainterPath path;
    path.setFillRule(Chance(50) ? Qt::WindingFill : Qt::OddEvenFill);
    const int lines = Chance(60) ? 1 : Int(2, 4);
    for (int i = 0; i < lines; ++i)
        path.addText(Real(0, 30), 15 + i * Real(-2, 25), font, OneOf(texts));
    return path;
}

QBrush RandomPaths::NextBrush()
{
    const QColor color(Int(0, 255), Int(0, 255), Int(0, 255), Chance(50) ? 255 : Int(0, 255));
    if (Chance(80))
        return color;
    if (Chance(50))
        return {color, static_cast<Qt::BrushStyle>(Int(Qt::Dense1Pattern, Qt::DiagCrossPattern))};
    QLinearGradient gradient(Real(0, 90), Real(0, 70), Real(0, 90), Real(0, 70));
    gradient.setColorAt(0.0, color);
    gradient.setColorAt(1.0, Qt::yellow);
    return gradient;
}

QTransform RandomPaths::NextTransform()
{
    QTransform transform;
    if (Chance(70))
        transform.translate(Real(-15, 15), Real(-15, 15));
    if (Chance(15))
        transform.rotate(Chance(30) ? 90.0 : Real(-180, 180));
    if (Chance(50))
        transform.scale(Real(0.1, 3.0), Real(0.1, 3.0));
    if (Chance(10))
        transform.scale(-1, 1);
    if (Chance(5))
        transform.shear(Real(-0.5, 0.5), 0.0);
    return transform;
}

std::function<void(QPainter&)> RandomPaths::NextState()
{
    const double opacity = Chance(80) ? 1.0 : Real(0, 1);
    const auto mode = Chance(80) ? QPainter::CompositionMode_SourceOver
                                 : static_cast<QPainter::CompositionMode>(Int(0, QPainter::RasterOp_NotDestination));
    const bool antialiased = Chance(85);
    const int clip = Int(0, 9);
    const QRectF where(Real(-5, 30), Real(-5, 25), Real(20, 70), Real(20, 50));
    return [=](QPainter& p)
    {
        p.setOpacity(opacity);
        p.setCompositionMode(mode);
        p.setRenderHint(QPainter::Antialiasing, antialiased);
        if (clip == 0)
            p.setClipRect(where.toRect());
        else if (clip == 1)
            p.setClipRect(where);
        else if (clip == 2)
        {
            QPainterPath path;
            path.addEllipse(where);
            p.setClipPath(path);
        }
    };
}
