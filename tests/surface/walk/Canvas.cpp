#include "Canvas.h"

#include "Background.h"

namespace
{

void SetResolution(QImage& image, int dotsPerInch)
{
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
}

QFont SpacedFont()
{
    QFont font("DejaVu Sans");
    font.setPixelSize(14);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 3.0);
    return font;
}

} // namespace

Canvas::Canvas(Kind kind) : image(Background({70, 60}, QImage::Format_ARGB32_Premultiplied).copy())
{
    if (kind == Coarse || kind == Fine)
        SetResolution(image, kind == Coarse ? 72 : 300);
    if (kind == Picture)
        painter.begin(&picture);
    else if (kind != Inactive)
        painter.begin(&image);
    if (kind == Coarse || kind == Fine)
        // The same font on both, with what depends on the resolution though the size does not.
        painter.setFont(SpacedFont());
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
    if (painter.isActive())
        painter.end();
    if (!picture.isNull())
        QPainter(&image).drawPicture(0, 0, picture);
}
