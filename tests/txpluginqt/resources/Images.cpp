#include "Images.h"

#include <cstring>

#include <QBuffer>

using namespace TZObjects;

QImage& QtImage(TXImage& image) { return *static_cast<QImage*>(image.GetInternalObject()); }

void PaintPattern(QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 37 % 256, y * 53 % 256, (x + y) * 29 % 256, 255 - (x * y * 11) % 200));
}

QImage Pattern(int width, int height, QImage::Format format)
{
    QImage image(width, height, format);
    image.fill(0);
    PaintPattern(image);
    return image;
}

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

QImage::Format MappedFormat(int format)
{
    const bool unchanged = (format >= 0 && format <= 4) || (format >= 6 && format <= 22);
    return unchanged ? static_cast<QImage::Format>(format) : QImage::Format_ARGB32;
}

::testing::AssertionResult SameBytes(const QImage& actual, const QImage& expected)
{
    if (actual.size() != expected.size() || actual.format() != expected.format())
        return ::testing::AssertionFailure()
               << "an image of " << actual.width() << " x " << actual.height() << ", format " << actual.format()
               << ", where " << expected.width() << " x " << expected.height() << ", format " << expected.format()
               << " was expected";
    const int row = expected.width() * expected.depth() / 8;
    for (int y = 0; y < expected.height(); ++y)
    {
        const uchar* const a = actual.constScanLine(y);
        const uchar* const e = expected.constScanLine(y);
        for (int i = 0; i < row; ++i)
            if (a[i] != e[i])
                return ::testing::AssertionFailure() << "byte " << i << " of row " << y << " is " << int{a[i]}
                                                     << " where " << int{e[i]} << " was expected";
    }
    return ::testing::AssertionSuccess();
}
