#include "Drawn.h"

#include "Twins.h"

QImage Drawn(const QSize& size, QImage::Format format, const std::function<void(QPainter&)>& draw)
{
    static QImage background;
    if (background.size() != size)
    {
        background = QImage(size, QImage::Format_ARGB32_Premultiplied);
        PaintBackground(background);
    }
    QImage image = background.convertToFormat(format);
    image.detach();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}
