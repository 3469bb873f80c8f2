// Images scaled in place, against a scaled copy that is drawn.
#include <random>

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QPixmap>

#include <gtest/gtest.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>
#include <txpluginqt/graphics/FastScaling.h>
#include <txpluginqt/support/Images.h>

namespace
{

/// Random numbers, the same for the same seed.
class Numbers
{
public:
    explicit Numbers(unsigned seed) : engine(seed) {}
    int Int(int lowest, int highest)
    {
        return lowest + static_cast<int>(engine() % static_cast<unsigned>(highest - lowest + 1));
    }
    bool Chance(int percent) { return Int(1, 100) <= percent; }

private:
    std::mt19937 engine;
};

QImage NoisyImage(int width, int height, QImage::Format format, unsigned seed)
{
    std::mt19937 engine(seed);
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, engine());
    return image.convertToFormat(format);
}

void DrawCopy(QPainter& painter, const QImage& image, const QRect& target)
{
    painter.drawImage(QPointF(target.topLeft()),
                      image.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

/// Success when scaling in place is refused, or takes the pixels of the scaled copy and leaves the painter as it was.
::testing::AssertionResult TakesTheSamePixels(QPainter& actual, QPainter& expected, const QImage& source,
                                              const QRect& target, int& inPlace)
{
    if (!ScalesAlikeInPlace(actual, source, target))
        return ::testing::AssertionSuccess();
    ++inPlace;
    const QPainter::RenderHints hints = actual.renderHints();
    DrawScaledInPlace(actual, source, target);
    if (actual.renderHints() != hints)
        return ::testing::AssertionFailure() << "other hints";
    DrawCopy(expected, source, target);
    return SamePixels(*static_cast<QImage*>(actual.device()), *static_cast<QImage*>(expected.device()));
}

TEST(FastScalingTest, TakesThePixelsOfAScaledCopy)
{
    constexpr int kCases = 3000;
    int inPlace = 0;
    for (int i = 0; i < kCases; ++i)
    {
        Numbers numbers(static_cast<unsigned>(i));
        constexpr QImage::Format formats[] = {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
                                              QImage::Format_ARGB32, QImage::Format_RGB16};
        const int most = numbers.Chance(20) ? 300 : 40;
        const QImage source = NoisyImage(numbers.Int(1, most), numbers.Int(1, most),
                                         formats[numbers.Int(0, numbers.Chance(80) ? 1 : 3)], 7u * i);
        QImage actual = NoisyImage(410, 120, formats[numbers.Int(0, numbers.Chance(80) ? 1 : 3)], 5);
        QImage expected = actual.copy();
        QPainter painter(&actual);
        QPainter direct(&expected);
        const double opacity = numbers.Chance(70) ? 1.0 : numbers.Int(0, 256) / 256.0;
        const int moved = numbers.Chance(30) ? numbers.Int(-30, 30) : 0;
        const bool smooth = numbers.Chance(50);
        const bool antialiased = numbers.Chance(50);
        const bool clipped = numbers.Chance(10);
        for (QPainter* const p : {&painter, &direct})
        {
            p->setOpacity(opacity);
            p->translate(moved, -moved);
            p->setRenderHint(QPainter::SmoothPixmapTransform, smooth);
            p->setRenderHint(QPainter::Antialiasing, antialiased);
            if (clipped)
                p->setClipRect(QRect(10, 10, 100, 80));
        }
        QRect target(numbers.Int(-5, 60), numbers.Int(-5, 60), numbers.Int(1, 400), numbers.Int(1, 110));
        if (numbers.Chance(40))
            // Whole multiples and parts, where rounding decides.
            target.setSize(source.size() * numbers.Int(1, 5) / numbers.Int(1, 4));
        ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inPlace))
            << "case " << i << ": " << source.width() << " x " << source.height() << " to " << target.width() << " x "
            << target.height() << " at " << target.x() << ", " << target.y();
    }
    EXPECT_GE(inPlace, kCases / 4);
}

/// Pixels that a host has written itself, with any colour beside any alpha.
QImage RawImage(int width, int height, QImage::Format format, unsigned seed)
{
    QImage image = NoisyImage(width, height, QImage::Format_ARGB32, seed);
    image.reinterpretAsFormat(format);
    return image;
}

TEST(FastScalingTest, TakesThePixelsOfAScaledCopyForRawPixels)
{
    int inPlace = 0;
    for (int i = 0; i < 400; ++i)
    {
        Numbers numbers(static_cast<unsigned>(i));
        constexpr QImage::Format formats[] = {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied};
        const QImage source = RawImage(numbers.Int(1, 40), numbers.Int(1, 40), formats[numbers.Int(0, 1)], 3u * i);
        QImage actual = RawImage(100, 80, formats[numbers.Int(0, 1)], 5u * i + 1);
        QImage expected = actual.copy();
        QPainter painter(&actual);
        QPainter direct(&expected);
        ASSERT_TRUE(TakesTheSamePixels(
            painter, direct, source,
            QRect(numbers.Int(0, 20), numbers.Int(0, 20), numbers.Int(1, 80), numbers.Int(1, 60)), inPlace))
            << i;
    }
    EXPECT_GE(inPlace, 150) << "pixels without alpha";
}

TEST(FastScalingTest, KeepsTheTargetsAlphaUnderColoursWithoutAlpha)
{
    QImage source(10, 10, QImage::Format_ARGB32_Premultiplied);
    source.fill(0x00ffffffu);
    QImage actual(40, 40, QImage::Format_ARGB32_Premultiplied);
    actual.fill(0x80402010u);
    QPainter painter(&actual);
    EXPECT_FALSE(ScalesAlikeInPlace(painter, source, QRect(0, 0, 30, 30)));
    // The last pixel alone is as bad.
    source.fill(0x40404040u);
    EXPECT_TRUE(ScalesAlikeInPlace(painter, source, QRect(0, 0, 30, 30)));
    for (const QRgb color : {0x40410000u, 0x40004100u, 0x40000041u, 0x00000001u})
    {
        source.setPixel(9, 9, color);
        EXPECT_FALSE(ScalesAlikeInPlace(painter, source, QRect(0, 0, 30, 30)));
    }
}

TEST(FastScalingTest, TakesTheSamePixelsAtTheFarEdgesOfWideTargets)
{
    int inPlace = 0;
    Numbers numbers(4);
    for (const bool wide : {true, false})
        for (const int edge : {32700, 32765, 32766, 32767, 32768, 32769, 33000, 40000})
            for (int i = 0; i < 12; ++i)
            {
                const int from = numbers.Int(1, 300);
                const int length = i == 0 ? edge : numbers.Int(1, edge);
                const QImage source = wide ? NoisyImage(from, 2, QImage::Format_ARGB32_Premultiplied, 1)
                                           : NoisyImage(2, from, QImage::Format_ARGB32_Premultiplied, 1);
                const QRect target = wide ? QRect(edge - length, 0, length, 1) : QRect(0, edge - length, 1, length);
                QImage actual(wide ? QSize(40000, 1) : QSize(1, 40000), QImage::Format_ARGB32_Premultiplied);
                actual.fill(Qt::transparent);
                QImage expected = actual.copy();
                QPainter painter(&actual);
                QPainter direct(&expected);
                ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inPlace))
                    << from << " to " << length << " up to " << edge;
            }
    EXPECT_GE(inPlace, 20);
}

TEST(FastScalingTest, TakesTheSamePixelsForEveryPairOfLengths)
{
    int inPlace = 0;
    QImage actual(410, 2, QImage::Format_ARGB32_Premultiplied);
    QImage expected = actual.copy();
    for (int from = 1; from <= 300; from += from < 70 ? 1 : 23)
    {
        const QImage source = NoisyImage(from, 2, QImage::Format_ARGB32_Premultiplied, 3);
        for (int to = 1; to <= 400; to += to < 90 ? 1 : 17)
        {
            actual.fill(Qt::transparent);
            expected.fill(Qt::transparent);
            QPainter painter(&actual);
            QPainter direct(&expected);
            ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, QRect(to % 9, 0, to, 2), inPlace))
                << from << " to " << to;
        }
    }
    EXPECT_GE(inPlace, 8000);
}

TEST(FastScalingTest, TakesTheSamePixelsWhereTheScaleCannotBeExact)
{
    // The scale times the source is not the target there, and falls on the other side of a border between pixels: at
    // the first pixel, or farther on.
    constexpr struct
    {
        int from;
        int to;
    } lengths[] = {{98, 1},    {196, 2},   {206, 1},   {294, 3},   {588, 6},    {273, 384},
                   {273, 768}, {297, 384}, {525, 640}, {546, 768}, {525, 1792}, {273, 24576}};
    int inPlace = 0;
    for (const auto& [from, to] : lengths)
    {
        const double scale = double(to) / from;
        ASSERT_NE(scale * from, to);
        for (const bool wide : {true, false})
        {
            const QImage source = NoisyImage(wide ? from : 2, wide ? 2 : from, QImage::Format_RGB32, 9);
            const QRect target(0, 0, wide ? to : 2, wide ? 2 : to);
            QImage actual(target.size(), QImage::Format_RGB32);
            actual.fill(Qt::white);
            QImage expected = actual.copy();
            QPainter painter(&actual);
            QPainter direct(&expected);
            ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inPlace)) << from << " to " << to;
        }
    }
}

TEST(FastScalingTest, IsOnlyForPaintersOfImages)
{
    const QImage source = NoisyImage(20, 20, QImage::Format_ARGB32_Premultiplied, 1);
    const QRect target(10, 10, 30, 25);
    QPixmap pixmap(100, 100);
    QPainter onPixmap(&pixmap);
    EXPECT_EQ(PaintedImage(onPixmap), nullptr);
    EXPECT_FALSE(ScalesAlikeInPlace(onPixmap, source, target));
    QPicture picture;
    QPainter onPicture(&picture);
    EXPECT_EQ(PaintedImage(onPicture), nullptr);
    EXPECT_FALSE(ScalesAlikeInPlace(onPicture, source, target));
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter onImage(&image);
    EXPECT_EQ(PaintedImage(onImage), &image);
    EXPECT_TRUE(ScalesAlikeInPlace(onImage, source, target));
}

TEST(FastScalingTest, DrawsNothingInPlaceThatQtWouldDrawInAnotherWay)
{
    const QImage source = NoisyImage(20, 20, QImage::Format_ARGB32_Premultiplied, 1);
    QImage device(100, 100, QImage::Format_ARGB32_Premultiplied);
    const QRect target(10, 10, 30, 25);
    const auto refuses = [&](auto change, const QImage& image, const QRect& rect)
    {
        QPainter painter(&device);
        change(painter);
        return !ScalesAlikeInPlace(painter, image, rect);
    };
    const auto nothing = [](QPainter&) {};
    EXPECT_FALSE(refuses(nothing, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.translate(0.5, 0.0); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.translate(0.0, 0.25); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.scale(2.0, 1.0); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.rotate(90.0); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.setClipRect(QRect(20, 20, 10, 10)); }, source, target));
    for (const QRect& outside : {QRect(-1, 10, 30, 25), QRect(10, -1, 30, 25), QRect(71, 10, 30, 25),
                                 QRect(10, 76, 30, 25), QRect(10, 10, 0, 25), QRect(10, 10, 30, 0),
                                 QRect(50, 10, -30, 25), QRect(10, 50, 30, -25), QRect(50, 50, -30, -25)})
        EXPECT_TRUE(refuses(nothing, source, outside));
    EXPECT_FALSE(refuses(nothing, source, QRect(70, 75, 30, 25)));
    EXPECT_FALSE(refuses(nothing, source, QRect(0, 0, 30, 25)));
    EXPECT_TRUE(refuses([](QPainter& p) { p.translate(-11, 0); }, source, target));
    QImage fine = source;
    fine.setDevicePixelRatio(2.0);
    EXPECT_TRUE(refuses(nothing, fine, target));
    EXPECT_TRUE(refuses(nothing, source.convertToFormat(QImage::Format_RGB16), target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.setOpacity(0.5); }, source.convertToFormat(QImage::Format_RGB32), target));
}

TEST(FastScalingTest, HandlesStripsThatAreLongerOrEnlargedMore)
{
    int inPlace = 0;
    for (const int from : {1, 2, 3, 7, 32766, 32767, 32768})
        for (const int to : {1, 2, 511, 512, 513, 1023, 1024, 1025, 32767})
            for (const bool wide : {true, false})
            {
                const QImage source = wide ? NoisyImage(from, 2, QImage::Format_ARGB32_Premultiplied, 1)
                                           : NoisyImage(2, from, QImage::Format_ARGB32_Premultiplied, 1);
                const QSize size = wide ? QSize(to, 3) : QSize(3, to);
                QImage actual(size, QImage::Format_ARGB32_Premultiplied);
                actual.fill(Qt::transparent);
                QImage expected = actual.copy();
                QPainter painter(&actual);
                QPainter direct(&expected);
                ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, QRect(QPoint(0, 0), size), inPlace))
                    << from << " to " << to;
            }
    EXPECT_GE(inPlace, 40);
}

} // namespace
