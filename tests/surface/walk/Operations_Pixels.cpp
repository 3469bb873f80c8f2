// Changes of images' pixels below the surfaces that paint on them.
#include <algorithm>

#include <QBuffer>

#include "Operations.h"

using namespace TZObjects;

namespace
{

int SomeImage(Random& random) { return random.Int(0, kImages - 1); }

/// A small image file.
const QByteArray& File()
{
    static const QByteArray file = []
    {
        QImage image(24, 18, QImage::Format_RGB32);
        PaintBackground(image);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "BMP");
        return buffer.data();
    }();
    return file;
}

/// A few colours, the last one translucent.
QVector<QRgb> Colors(int count)
{
    QVector<QRgb> colors;
    for (int i = 1; i <= count; ++i)
        colors.append(qRgba(50 * i, 255 - 40 * i, 20 * i, i == count ? 120 : 255));
    return colors;
}

} // namespace

std::vector<Operation> PixelOperations()
{
    return {
        Row(
            "Fill of a part of an image", 2,
            [](Random& r)
            {
                const double left = r.Real(-5.0, 50.0);
                const double top = r.Real(-5.0, 40.0);
                const double size = r.Real(0.0, 12.0);
                return std::tuple{SomeImage(r), TXRect(left, left + size, top, top + 1.5 * size), r.Color()};
            },
            [](auto& side, int image, const TXRect& rect, const TXColor& color)
            { side.Image(image)->Fill(rect, color); }),
        Row(
            "SetPixel", 1,
            [](Random& r) {
                return std::tuple{SomeImage(r), r.Int(-1, 50), r.Int(-1, 40), r.Color()};
            },
            [](auto& side, int image, int x, int y, const TXColor& color)
            { side.Image(image)->SetPixel(x, y, color); }),
        Row(
            "GetPixel", 3,
            [](Random& r) {
                return std::tuple{SomeImage(r), r.Int(-1, 50), r.Int(-1, 40)};
            },
            [](auto& side, int image, int x, int y) { return side.Image(image)->GetPixel(x, y).GetColor(); }),
        Row(
            "SetBits", 2,
            [](Random& r) {
                return std::tuple{SomeImage(r), r.Chance(20), r.OneOf({0, 30, 2000, 2000})};
            },
            [](auto& side, int image, bool isNull, int size)
            {
                side.Image(image)->SetBits(isNull ? nullptr : File().constData(),
                                           static_cast<unsigned int>(std::min(size, File().size())));
            }),
        Row(
            "an image of indices", 1,
            [](Random& r)
            {
                // Only the image that is never saved may lack colours, about which the writers of files print.
                const int image = SomeImage(r);
                return std::tuple{image, image == kImages - 1 ? r.Int(0, 6) : 5};
            },
            [](auto& side, int image, int colors)
            {
                side.Image(image)->CreateImage(37, 28, TXImage::Format_Indexed8);
                QImage& pixels = *side.QtImage(image);
                pixels.setColorTable(Colors(colors));
                for (int y = 0; y < pixels.height(); ++y)
                    for (int x = 0; x < pixels.width(); ++x)
                        pixels.scanLine(y)[x] = static_cast<uchar>((x / 5 + y / 4) % 5);
            }),
    };
}
