#include <vector>

#include <gtest/gtest.h>
#include <txpluginqt/support/Images.h>

#include "Pictures.h"

using namespace txqt;

namespace
{

QImage Indexed(int width, int height, const QVector<QRgb>& colors, int index)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorTable(colors);
    image.fill(0);
    image.scanLine(height - 1)[width - 1] = static_cast<uchar>(index);
    return image;
}

TEST(DrawableImageTest, HasPixelsAndColours)
{
    EXPECT_FALSE(CanBeDrawn(QImage()));
    EXPECT_TRUE(CanBeDrawn(Picture(3, 3, QImage::Format_ARGB32)));
    EXPECT_FALSE(CanBeDrawn(QImage(3, 3, QImage::Format_Indexed8)));
    EXPECT_TRUE(CanBeDrawn(Indexed(3, 3, {0xffffffffu}, 9)));
    EXPECT_TRUE(CanBeDrawn(QImage(3, 3, QImage::Format_Mono)));
    std::vector<uchar> memory(64);
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8})
        EXPECT_FALSE(CanBeDrawn(QImage(memory.data(), 3, 3, format))) << "over memory, Qt gives it no colours";
    EXPECT_TRUE(CanBeDrawn(QImage(memory.data(), 3, 3, QImage::Format_Grayscale8)));
}

TEST(DrawableImageTest, IsAnotherImageItself)
{
    const QImage target = Picture(30, 20, QImage::Format_ARGB32);
    for (const QImage::Format format : DrawnFormats())
    {
        const QImage image = Picture(30, 20, format);
        EXPECT_EQ(&DrawableImage(image, &target).Get(), &image) << format;
        EXPECT_EQ(&DrawableImage(image, nullptr).Get(), &image) << format;
    }
}

TEST(DrawableImageTest, CopiesTheTargetItself)
{
    const QImage target = Picture(30, 20, QImage::Format_ARGB32);
    const DrawableImage drawable(target, &target);
    EXPECT_NE(drawable.Get().constBits(), target.constBits());
    EXPECT_EQ(drawable.Get(), target);
}

TEST(DrawableImageTest, CopiesWhatLiesInTheTargetsMemory)
{
    std::vector<uchar> memory(30 * 4 * 40);
    const QImage target(memory.data(), 30, 20, QImage::Format_ARGB32);
    for (const int row : {0, 1, 19, 20})
    {
        const QImage image(memory.data() + row * 30 * 4, 30, 20, QImage::Format_RGB32);
        EXPECT_EQ(DrawableImage(image, &target).Get().constBits() == image.constBits(), row == 20) << row;
        EXPECT_EQ(DrawableImage(target, &image).Get().constBits() == target.constBits(), row == 20) << row;
    }
}

TEST(DrawableImageTest, ColoursThatAreMissingAreTransparent)
{
    const QVector<QRgb> colors = {0xff102030u, 0xff405060u};
    for (const int index : {2, 3, 17, 254, 255})
    {
        const QImage image = Indexed(30, 20, colors, index);
        const DrawableImage made(image, nullptr);
        const QImage& drawable = made.Get();
        ASSERT_GT(drawable.colorCount(), index);
        EXPECT_EQ(drawable.color(0), colors[0]);
        EXPECT_EQ(drawable.color(1), colors[1]);
        for (int i = 2; i < drawable.colorCount(); ++i)
            EXPECT_EQ(drawable.color(i), 0u);
        EXPECT_TRUE(drawable.hasAlphaChannel()) << "Qt must not take it for opaque";
        EXPECT_EQ(drawable.convertToFormat(QImage::Format_ARGB32).pixel(29, 19), 0u);
        EXPECT_EQ(image.colorTable(), colors);
    }
}

TEST(DrawableImageTest, EnoughColoursAreLeftAsTheyAre)
{
    for (const int index : {0, 1})
    {
        const QImage image = Indexed(30, 20, {0xff102030u, 0xff405060u}, index);
        const DrawableImage made(image, nullptr);
        const QImage& drawable = made.Get();
        EXPECT_EQ(drawable.colorTable(), image.colorTable());
        EXPECT_FALSE(drawable.hasAlphaChannel());
        EXPECT_EQ(drawable.constBits(), image.constBits());
    }
}

TEST(DrawableImageTest, PartsAreWhatQtCopies)
{
    for (const QImage::Format format : DrawnFormats())
    {
        const QImage image = Picture(37, 23, format);
        for (const QRect& part :
             {QRect(0, 0, 37, 23), QRect(0, 0, 1, 1), QRect(36, 22, 1, 1), QRect(5, 3, 17, 11), QRect(1, 0, 36, 23),
              QRect(0, 1, 37, 22), QRect(-1, 0, 20, 20), QRect(0, -1, 20, 20), QRect(20, 0, 18, 5), QRect(0, 20, 5, 4),
              QRect(-9, -9, 60, 60), QRect(50, 50, 4, 4), QRect(5, 5, 0, 0), QRect(5, 5, 0, 4), QRect(5, 5, 4, 0),
              QRect(5, 5, -2, 3), QRect(5, 5, -2, -3)})
        {
            const QImage expected = image.copy(part);
            const QImage actual = PartOf(image, part);
            EXPECT_EQ(actual.size(), expected.size()) << format;
            EXPECT_EQ(actual.format(), expected.format());
            EXPECT_EQ(actual, expected) << format << ": " << part.x() << " " << part.y() << " " << part.width() << " "
                                        << part.height();
            EXPECT_EQ(actual.colorTable(), expected.colorTable());
        }
    }
}

TEST(DrawableImageTest, PartsOfBitsWithoutColoursAreCopied)
{
    const QImage picture = Picture(40, 23, QImage::Format_Mono);
    const QImage image(picture.constBits(), 40, 23, picture.bytesPerLine(), QImage::Format_MonoLSB);
    for (int left = 0; left < 17; ++left)
    {
        const QImage part = PartOf(image, QRect(left, 3, 17, 11));
        ASSERT_EQ(part.size(), QSize(17, 11));
        for (int y = 0; y < 11; ++y)
            for (int x = 0; x < 17; ++x)
                ASSERT_EQ(part.pixelIndex(x, y), image.pixelIndex(left + x, 3 + y)) << left;
    }
}

TEST(DrawableImageTest, PartsLieInTheImageWhereTheyCan)
{
    for (const QImage::Format format : DrawnFormats())
    {
        const QImage image = Picture(37, 23, format);
        if (image.colorCount() == 0)
        {
            EXPECT_EQ(PartOf(image, QRect(2, 1, 3, 4)).constBits(), image.constScanLine(1) + 2 * image.depth() / 8)
                << format;
        }
    }
    const QImage image = Picture(37, 23, QImage::Format_RGB888);
    EXPECT_EQ(PartOf(image, QRect(5, 3, 17, 11)).constBits(), image.constScanLine(3) + 5 * 3);
    EXPECT_EQ(PartOf(image, image.rect()).constBits(), image.constBits());
    EXPECT_EQ(PartOf(image, QRect(5, 3, 0, 0)).constBits(), image.constBits()) << "which Qt takes for the whole";
    EXPECT_EQ(PartOf(image, QRect(36, 22, 1, 1)).constBits(), image.constScanLine(22) + 36 * 3);
}

TEST(DrawableImageTest, PartsKeepTheRatioOfDevicePixels)
{
    QImage image = Picture(37, 23, QImage::Format_ARGB32);
    image.setDevicePixelRatio(2.0);
    EXPECT_EQ(PartOf(image, QRect(5, 3, 17, 11)).devicePixelRatio(), 2.0);
    EXPECT_EQ(PartOf(image, QRect(5, 3, 17, 11)), image.copy(5, 3, 17, 11));
}

TEST(DrawableImageTest, APartIsNotWrittenThrough)
{
    const QImage image = Picture(37, 23, QImage::Format_ARGB32);
    const QImage before = image.copy();
    QImage part = PartOf(image, QRect(5, 3, 17, 11));
    part.fill(Qt::red);
    EXPECT_EQ(image, before);
}

} // namespace
