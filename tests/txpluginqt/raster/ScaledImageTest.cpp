// Images drawn scaled, a strip at a time, against a scaled copy that is drawn.
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QPixmap>

#include <gtest/gtest.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>
#include <txpluginqt/raster/ScaledImage.h>
#include <txpluginqt/support/Images.h>

using namespace txqt;

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

/// Success when drawing scaled is refused, or gives the pixels of the scaled copy and leaves the painter as it was.
::testing::AssertionResult TakesTheSamePixels(QPainter& actual, QPainter& expected, const QImage& source,
                                              const QRect& target, int& inStrips)
{
    if (!CanDrawScaled(actual, source, target))
        return ::testing::AssertionSuccess();
    ++inStrips;
    const QPainter::RenderHints hints = actual.renderHints();
    DrawScaled(actual, source, target);
    if (actual.renderHints() != hints)
        return ::testing::AssertionFailure() << "other hints";
    DrawCopy(expected, source, target);
    return SamePixels(*static_cast<QImage*>(actual.device()), *static_cast<QImage*>(expected.device()));
}

TEST(ScaledImageTest, TakesThePixelsOfAScaledCopy)
{
    constexpr int kCases = 3000;
    int inStrips = 0;
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
        ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inStrips))
            << "case " << i << ": " << source.width() << " x " << source.height() << " to " << target.width() << " x "
            << target.height() << " at " << target.x() << ", " << target.y();
    }
    EXPECT_GE(inStrips, kCases / 2);
}

/// Pixels that a host has written itself, with any colour beside any alpha.
QImage RawImage(int width, int height, QImage::Format format, unsigned seed)
{
    QImage image = NoisyImage(width, height, QImage::Format_ARGB32, seed);
    image.reinterpretAsFormat(format);
    return image;
}

/// Colours beyond their alpha overflow, and Qt lets them do so differently with a row's place in memory.
class AlignedImage
{
public:
    explicit AlignedImage(const QImage& image)
        : memory(static_cast<std::size_t>(image.sizeInBytes()) + kAlignment),
          view(Aligned(), image.width(), image.height(), image.bytesPerLine(), image.format())
    {
        std::memcpy(view.bits(), image.constBits(), static_cast<std::size_t>(image.sizeInBytes()));
    }

    QImage& View() { return view; }

private:
    static constexpr std::size_t kAlignment = 64;

    uchar* Aligned()
    {
        const auto address = reinterpret_cast<std::uintptr_t>(memory.data());
        return memory.data() + (kAlignment - address % kAlignment);
    }

    std::vector<uchar> memory;
    QImage view;
};

TEST(ScaledImageTest, TakesThePixelsOfAScaledCopyForRawPixels)
{
    int inStrips = 0;
    for (int i = 0; i < 400; ++i)
    {
        Numbers numbers(static_cast<unsigned>(i));
        constexpr QImage::Format formats[] = {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied};
        const QSize size(numbers.Int(1, 40), numbers.Int(1, 40));
        const QImage source = RawImage(size.width(), size.height(), formats[numbers.Int(0, 1)], 3u * i);
        const QImage background = RawImage(100, 80, formats[numbers.Int(0, 1)], 5u * i + 1);
        AlignedImage actual(background);
        AlignedImage expected(background);
        QPainter painter(&actual.View());
        QPainter direct(&expected.View());
        const QPoint corner(numbers.Int(0, 20), numbers.Int(0, 20));
        const QRect target(corner, QSize(numbers.Int(1, 80), numbers.Int(1, 60)));
        ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inStrips))
            << i << ": " << size.width() << " x " << size.height() << ", format " << source.format() << ", to "
            << target.width() << " x " << target.height() << ", format " << background.format();
    }
    EXPECT_GE(inStrips, 390);
}

TEST(ScaledImageTest, BlendsColoursWithoutAlphaAsTheCopyDoes)
{
    int inStrips = 0;
    QImage source(10, 10, QImage::Format_ARGB32_Premultiplied);
    for (const QRgb color : {0x00ffffffu, 0x00000001u, 0x40ff4000u})
    {
        source.fill(color);
        QImage background(40, 40, QImage::Format_ARGB32_Premultiplied);
        background.fill(0x80402010u);
        AlignedImage actual(background);
        AlignedImage expected(background);
        QPainter painter(&actual.View());
        QPainter direct(&expected.View());
        ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, QRect(0, 0, 30, 30), inStrips));
    }
    EXPECT_EQ(inStrips, 3);
}

TEST(ScaledImageTest, TakesTheSamePixelsOfAPartOfALargerImage)
{
    const QImage whole = NoisyImage(100, 90, QImage::Format_RGB32, 3);
    int inStrips = 0;
    for (int i = 0; i < 300; ++i)
    {
        Numbers numbers(static_cast<unsigned>(i));
        const QRect part(numbers.Int(0, 50), numbers.Int(0, 40), numbers.Int(2, 50), numbers.Int(2, 50));
        const QRect target(0, 0, numbers.Int(1, 300), numbers.Int(1, 80));
        QImage actual(300, 80, QImage::Format_RGB32);
        actual.fill(Qt::white);
        QImage expected = actual.copy();
        QPainter painter(&actual);
        ASSERT_TRUE(CanDrawScaled(painter, whole, target));
        DrawScaled(painter, PartOf(whole, part), target);
        QPainter direct(&expected);
        DrawCopy(direct, whole.copy(part), target);
        ASSERT_TRUE(SamePixels(actual, expected)) << i;
        ++inStrips;
    }
    EXPECT_EQ(inStrips, 300);
}

TEST(ScaledImageTest, TakesTheSamePixelsAtTheFarEdgesOfWideTargets)
{
    int inStrips = 0;
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
                ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inStrips))
                    << from << " to " << length << " up to " << edge;
            }
    EXPECT_GE(inStrips, 20);
}

TEST(ScaledImageTest, TakesTheSamePixelsForEveryPairOfLengths)
{
    int inStrips = 0;
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
            ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, QRect(to % 9, 0, to, 2), inStrips))
                << from << " to " << to;
        }
    }
    EXPECT_GE(inStrips, 8000);
}

TEST(ScaledImageTest, TakesTheSamePixelsWhereTheScaleCannotBeExact)
{
    // The scale times the source is not the target there, and falls on the other side of a border between pixels: at
    // the first pixel, or farther on.
    constexpr struct
    {
        int from;
        int to;
    } lengths[] = {{98, 1},    {196, 2},   {206, 1},   {294, 3},   {588, 6},    {273, 384},
                   {273, 768}, {297, 384}, {525, 640}, {546, 768}, {525, 1792}, {273, 24576}};
    int inStrips = 0;
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
            ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, target, inStrips)) << from << " to " << to;
        }
    }
}

TEST(ScaledImageTest, IsOnlyForQtsRasterEngine)
{
    const QImage source = NoisyImage(20, 20, QImage::Format_ARGB32_Premultiplied, 1);
    const QRect target(10, 10, 30, 25);
    QPixmap pixmap(100, 100);
    QPainter onPixmap(&pixmap);
    EXPECT_EQ(PaintedImage(onPixmap), nullptr);
    EXPECT_TRUE(CanDrawScaled(onPixmap, source, target));
    QPicture picture;
    QPainter onPicture(&picture);
    EXPECT_EQ(PaintedImage(onPicture), nullptr);
    EXPECT_FALSE(CanDrawScaled(onPicture, source, target));
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter onImage(&image);
    EXPECT_EQ(PaintedImage(onImage), &image);
    EXPECT_TRUE(CanDrawScaled(onImage, source, target));
}

TEST(ScaledImageTest, DrawsNothingInStripsThatWouldShowThem)
{
    const QImage source = NoisyImage(20, 20, QImage::Format_ARGB32_Premultiplied, 1);
    QImage device(100, 100, QImage::Format_ARGB32_Premultiplied);
    const QRect target(10, 10, 30, 25);
    const auto refuses = [&](auto change, const QImage& image, const QRect& rect)
    {
        QPainter painter(&device);
        change(painter);
        return !CanDrawScaled(painter, image, rect);
    };
    const auto nothing = [](QPainter&) {};
    EXPECT_FALSE(refuses(nothing, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.translate(0.5, 0.0); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.translate(0.0, 0.25); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.scale(2.0, 1.0); }, source, target));
    EXPECT_TRUE(refuses([](QPainter& p) { p.rotate(90.0); }, source, target));
    for (const QRect& empty : {QRect(10, 10, 0, 25), QRect(10, 10, 30, 0), QRect(50, 10, -30, 25)})
        EXPECT_TRUE(refuses(nothing, source, empty));
    QImage fine = source;
    fine.setDevicePixelRatio(2.0);
    EXPECT_TRUE(refuses(nothing, fine, target));
    for (const QImage::Format other : {QImage::Format_RGB16, QImage::Format_ARGB32, QImage::Format_Indexed8})
        EXPECT_TRUE(refuses(nothing, source.convertToFormat(other), target));
    EXPECT_TRUE(refuses(nothing, source.copy(0, 0, 1, 1), target));
}

TEST(ScaledImageTest, HandlesStripsThatAreLongerOrEnlargedMore)
{
    int inStrips = 0;
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
                ASSERT_TRUE(TakesTheSamePixels(painter, direct, source, QRect(QPoint(0, 0), size), inStrips))
                    << from << " to " << to;
            }
    EXPECT_GE(inStrips, 40);
}

} // namespace
