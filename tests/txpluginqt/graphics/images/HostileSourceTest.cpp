#include <algorithm>
#include <functional>
#include <vector>

#include <tests/support/ImageCompare.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

/// The ways that a call can go on a target of 100 x 80 pixels.
const std::vector<ImageCall> kCalls = {
    {TXRect(0, 40, 0, 30), TXRect(0, 40, 0, 30), 0.8, 20.0},
    {TXRect(0, 25, 0, 20), TXRect(0, 25, 0, 20), 0.8, 20.0},
    {TXRect(10, 50, 12, 42), TXRect(0, 40, 0, 30), 0.8, 20.0},
    {TXRect(10, 30, 12, 27), TXRect(5, 25, 5, 20), 0.8, 0.0},
    {TXRect(10, 90, 12, 70), TXRect(0, 40, 0, 30), 0.8, 20.0},
    {TXRect(-10, 30, 60, 90), TXRect(0, 40, 0, 30), 1.0, 5.0},
    {TXRect(20, 60, 20, 50), TXRect(-5, 35, 10, 40), 0.8, 20.0},
    {TXRect(300, 340, 0, 30), TXRect(0, 40, 0, 30), 0.8, 0.0},
    {TXRect(-40, 0, 0, 30), TXRect(0, 40, 0, 30), 0.8, 20.0},
    {TXRect(10, 40, -9, 0), TXRect(0, 40, 0, 30), 0.8, 0.0},
};

/// Sources that are no ordinary images of their own.
class HostileSourceTest : public ImageTest
{
protected:
    /// What a source draws as @p looks does, in every way that a call can go.
    static void ExpectDrawnAs(TXImage& source, const QImage& looks)
    {
        for (std::size_t i = 0; i < kCalls.size(); ++i)
            for (const ImageOperation operation : kImageOperations)
            {
                SCOPED_TRACE(i);
                Twins twins(100, 80);
                Unsettle(twins);
                DrawBoth(twins, operation, kCalls[i], source, looks);
                EXPECT_TRUE(SameInAll(twins));
            }
        Twins twins(100, 80);
        Unsettle(twins);
        EXPECT_TRUE(twins.Surface().DrawImage(&source, 0.5));
        const TXRect whole(0, source.GetWidth(), 0, source.GetHeight());
        PaintDirectly(twins.Direct(), QSize(100, 80), ImageOperation::Draw, {whole, whole, 0.5, 0.0}, looks);
        EXPECT_TRUE(SameInAll(twins));
    }

    static QImage Indices(int width, int height, int from, int kinds)
    {
        QImage image(width, height, QImage::Format_Indexed8);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.scanLine(y)[x] = static_cast<uchar>(from + (x + y * width) % kinds);
        return image;
    }

    /// The same with transparent colours for the indices below @p kinds that have none.
    static QImage Padded(QImage image, int kinds)
    {
        QVector<QRgb> colors = image.colorTable();
        while (colors.size() < kinds)
            colors.append(0u);
        image.setColorTable(colors);
        return image;
    }
};

TEST_F(HostileSourceTest, WithoutPixelsDrawsNothing)
{
    const std::vector<std::function<void(TXImage&)>> makings = {
        [](TXImage& image) { image.CreateImage(0, 0, TXImage::Format_ARGB32); },
        [](TXImage& image) { image.CreateImage(40, -30, TXImage::Format_ARGB32); },
        [](TXImage& image) { image.CreateImage(40, 30, TXImage::Format_Invalid); },
        [](TXImage& image) { image.CreateImage(40, 30, static_cast<TXImage::Format>(77)); },
    };
    for (const auto& make : makings)
    {
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        make(*source);
        ExpectDrawnAs(*source, QImage());
    }
}

TEST_F(HostileSourceTest, OfIndicesWithoutColoursDrawsNothing)
{
    const TXRefPtr<TXImage> source = NewImageOf(Indices(40, 30, 0, 200));
    ASSERT_EQ(PixelsOf(*source).colorCount(), 0);
    ExpectDrawnAs(*source, QImage());
    std::vector<unsigned char> memory(40 * 30, 7);
    source->CreateImage(memory.data(), 40, 30, TXImage::Format_Indexed8);
    ExpectDrawnAs(*source, QImage());
}

TEST_F(HostileSourceTest, ThatIsNotDrawnDoesNotEraseEither)
{
    // Drawn as transparent pixels, it would.
    const TXRefPtr<TXImage> source = NewImageOf(Indices(40, 30, 0, 200));
    for (const ImageCall& call : kCalls)
    {
        Twins twins(100, 80);
        twins.Both([](QPainter& painter) { painter.setCompositionMode(QPainter::CompositionMode_Source); });
        DrawBoth(twins, ImageOperation::Rotate, call, *source, QImage());
        EXPECT_TRUE(twins.Surface().DrawImage(source.get(), 0.5));
        EXPECT_TRUE(SameInAll(twins));
    }
}

TEST_F(HostileSourceTest, IndicesBeyondTheColoursAreTransparent)
{
    const QVector<QRgb> opaque = {qRgb(200, 10, 10), qRgb(10, 200, 10), qRgb(10, 10, 200)};
    const QVector<QRgb> translucent = {qRgba(200, 10, 10, 90), qRgba(10, 200, 10, 0), qRgba(10, 10, 200, 250)};
    for (const int kinds : {3, 4, 16, 256})
        for (const QVector<QRgb>& colors :
             {opaque, translucent, QVector<QRgb>(1, qRgb(1, 2, 3)), QVector<QRgb>(255, qRgb(90, 80, 70))})
        {
            QImage indices = Indices(40, 30, 0, kinds);
            indices.setColorTable(colors);
            const TXRefPtr<TXImage> source = NewImageOf(indices);
            ExpectDrawnAs(*source, Padded(indices, kinds));
            EXPECT_EQ(PixelsOf(*source).colorTable(), colors) << "the source stays as it was";
        }
}

TEST_F(HostileSourceTest, OneIndexBeyondTheColoursIsFoundWhereverItIs)
{
    for (const QPoint& place : {QPoint(0, 0), QPoint(39, 0), QPoint(0, 29), QPoint(39, 29), QPoint(17, 12)})
    {
        QImage indices = Indices(40, 30, 0, 2);
        indices.setColorTable({qRgb(200, 10, 10), qRgb(10, 200, 10)});
        indices.scanLine(place.y())[place.x()] = 2;
        const TXRefPtr<TXImage> source = NewImageOf(indices);
        ExpectDrawnAs(*source, Padded(indices, 3));
    }
}

TEST_F(HostileSourceTest, OfIndicesInACallersMemoryIsReadAndLeftAlone)
{
    std::vector<unsigned char> memory(40 * 30);
    for (std::size_t i = 0; i < memory.size(); ++i)
        memory[i] = static_cast<unsigned char>(i % 7);
    const std::vector<unsigned char> before = memory;
    const TXRefPtr<TXImage> source = TestEngine().NewImage();
    source->CreateImage(memory.data(), 40, 30, TXImage::Format_Indexed8);
    PixelsOf(*source).setColorTable({qRgb(200, 10, 10), qRgb(10, 200, 10)});
    ExpectDrawnAs(*source, Padded(PixelsOf(*source).copy(), 7));
    EXPECT_EQ(memory, before);
    EXPECT_EQ(PixelsOf(*source).colorCount(), 2);
}

TEST_F(HostileSourceTest, OfBitsWithoutColoursDrawsNothing)
{
    std::vector<unsigned char> memory(8 * 30, 0xa7);
    for (const TXImage::Format format : {TXImage::Format_Mono, TXImage::Format_MonoLSB})
    {
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        source->CreateImage(memory.data(), 40, 30, format);
        ASSERT_EQ(PixelsOf(*source).colorCount(), 0);
        ExpectDrawnAs(*source, QImage());
    }
}

TEST_F(HostileSourceTest, BitsOfOneColourAreTransparentWhereTheyAreSet)
{
    std::vector<unsigned char> memory(8 * 30, 0xa7);
    for (const TXImage::Format format : {TXImage::Format_Mono, TXImage::Format_MonoLSB})
    {
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        source->CreateImage(memory.data(), 40, 30, format);
        PixelsOf(*source).setColorTable({qRgb(90, 20, 30)});
        QImage looks = PixelsOf(*source).copy();
        looks.setColorTable({qRgb(90, 20, 30), 0u});
        ExpectDrawnAs(*source, looks);
    }
}

TEST_F(HostileSourceTest, InACallersMemoryIsReadAndLeftAlone)
{
    for (const QImage::Format format : DrawnFormats())
    {
        if (format > QImage::Format_A2RGB30_Premultiplied)
            continue;
        const QImage picture = Picture(40, 30, format);
        std::vector<unsigned char> memory(picture.constBits(), picture.constBits() + picture.sizeInBytes());
        const std::vector<unsigned char> before = memory;
        const TXRefPtr<TXImage> source = TestEngine().NewImage();
        source->CreateImage(memory.data(), 40, 30, static_cast<TXImage::Format>(static_cast<int>(format)));
        PixelsOf(*source).setColorTable(picture.colorTable());
        ExpectDrawnAs(*source, picture);
        EXPECT_EQ(memory, before);
        EXPECT_EQ(PixelsOf(*source).constBits(), memory.data());
        // What the caller changes is drawn from then on.
        // Whole pixels of any depth, as colours that exceed their alpha are not always drawn the same.
        constexpr std::ptrdiff_t pixels = 24;
        std::copy(memory.end() - pixels, memory.end(), memory.begin());
        ASSERT_NE(memory, before);
        ExpectDrawnAs(*source, PixelsOf(*source).copy());
    }
}

TEST_F(HostileSourceTest, DecodedIntoAnImageIsDrawn)
{
    const TXRefPtr<TXImage> source = NewSource(9, 9);
    const unsigned char gif[] = {'G', 'I', 'F', '8', '9', 'a', 2, 0, 1, 0, 0x80, 0, 0,    0xff, 0,    0,    0, 0,
                                 0,   ',', 0,   0,   0,   0,   2, 0, 1, 0, 0,    2, 0x02, 0x04, 0x0a, 0x00, 0, ';'};
    source->SetBits(gif, sizeof gif);
    ExpectDrawnAs(*source, PixelsOf(*source).isNull() ? QImage() : PixelsOf(*source).copy());
}

TEST_F(HostileSourceTest, WhoseRowsAreAnyLengthAreCropped)
{
    // The crop shares the rows of its source, whatever they are aligned to.
    for (const QImage::Format format : DrawnFormats())
        for (int x = 0; x < 9; ++x)
        {
            const TXRefPtr<TXImage> source = NewSource(31, 17, format);
            Twins twins(100, 80);
            Unsettle(twins);
            const TXRect src(x, x + 13, 2, 13);
            DrawBoth(twins, ImageOperation::Draw, {TXRect(11, 24, 7, 18), src, 1.0, 0.0}, *source);
            DrawBoth(twins, ImageOperation::Draw, {TXRect(40, 66, 17, 28), src, 1.0, 0.0}, *source);
            DrawBoth(twins, ImageOperation::Rotate, {TXRect(50, 66, 47, 68), src, 1.0, 9.0}, *source);
            EXPECT_TRUE(SameInAll(twins)) << format << ", from " << x;
        }
}

} // namespace
