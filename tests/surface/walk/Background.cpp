#include "Background.h"

#include <map>
#include <tuple>

#include <tests/support/Twins.h>

const QImage& Background(const QSize& size, QImage::Format format)
{
    static std::map<std::tuple<int, int, int>, QImage> painted;
    QImage& image = painted[{size.width(), size.height(), format}];
    if (image.isNull())
    {
        image = QImage(size, format);
        PaintBackground(image);
    }
    return image;
}
