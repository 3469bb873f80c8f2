#include "Canvas.h"

#include <tests/support/Twins.h>

Canvas::Canvas(Kind kind) : image(70, 60, QImage::Format_ARGB32_Premultiplied)
{
    PaintBackground(image);
    if (kind == Picture)
        painter.begin(&picture);
    else
        painter.begin(&image);
    if (kind != Turned)
        return;
    QFont font("DejaVu Serif");
    font.setPixelSize(13);
    painter.setFont(font);
    painter.setPen(QPen(QColor(0, 120, 40, 220), 2.0, Qt::DashLine));
    painter.setBrush(QColor(240, 200, 30, 130));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(30.0, 5.5);
    painter.rotate(25.0);
    painter.scale(0.9, 1.1);
    painter.setOpacity(0.7);
}

void Canvas::Finish(int savedStates)
{
    for (int i = 0; i < savedStates; ++i)
        painter.restore();
    painter.end();
    if (!picture.isNull())
        QPainter(&image).drawPicture(0, 0, picture);
}
