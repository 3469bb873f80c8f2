#include "Images.h"
#include "ResourceTest.h"

#include <utility>
#include <vector>

#include <QBrush>
#include <QPainter>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

constexpr int kWidth = 12;
constexpr int kHeight = 9;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

TXRefPtr<TXImage> PatternImage(TXImage::Format format = TXImage::Format_ARGB32)
{
    TXRefPtr<TXImage> image(TestEngine().NewImage());
    image->CreateImage(kWidth, kHeight, format);
    PaintPattern(QtImage(*image));
    return image;
}

class BrushTextureTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(brush);
        ASSERT_TRUE(image);
        brush->Create(TXColor(1, 2, 3, 4), TXBrush::HorizontalHatch);
        ASSERT_NE(brush->GetInternalObject(), nullptr);
    }

    QBrush& QtBrush() { return *static_cast<QBrush*>(brush->GetInternalObject()); }

    TXRefPtr<TXBrush> brush{TestEngine().NewBrush()};
    TXRefPtr<TXImage> image = PatternImage();
};

} // namespace

TEST_F(BrushTextureTest, TheBrushTakesTheImagesPictureAndHoldsTheImage)
{
    brush->SetTextureImage(image);

    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
    EXPECT_EQ(QtBrush().style(), Qt::TexturePattern);
    EXPECT_EQ(brush->textureImage(), image);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), Pattern(kWidth, kHeight, QImage::Format_ARGB32)));
}

TEST_F(BrushTextureTest, AnImageWithoutPixelsIsHeldAndLeavesNoBrush)
{
    const TXRefPtr<TXImage> empty(TestEngine().NewImage());
    empty->CreateImage(0, 0, TXImage::Format_ARGB32);
    QBrush expected = QtBrush();
    expected.setTextureImage(QImage());
    brush->SetTextureImage(empty);
    EXPECT_EQ(brush->textureImage(), empty);
    EXPECT_EQ(QtBrush(), expected);
    EXPECT_EQ(QtBrush().style(), Qt::NoBrush);
    EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush) << "the answer for every style that is not in the table";
    brush->SetTextureImage(image);
    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
    brush->SetTextureImage(empty);
    EXPECT_EQ(QtBrush().style(), Qt::NoBrush);
}

TEST_F(BrushTextureTest, ItPaintsRepetitionsOfTheImage)
{
    brush->SetTextureImage(image);

    QImage painted(40, 30, QImage::Format_ARGB32_Premultiplied);
    painted.fill(0xff336699u);
    QImage expected = painted;
    QPainter(&painted).fillRect(painted.rect(), QtBrush());
    QPainter painter(&expected);
    for (int y = 0; y < expected.height(); y += kHeight)
        for (int x = 0; x < expected.width(); x += kWidth)
            painter.drawImage(x, y, Pattern(kWidth, kHeight, QImage::Format_ARGB32));
    painter.end();
    EXPECT_TRUE(SamePixels(painted, expected));
}

TEST_F(BrushTextureTest, ImagesOfEveryFormatWithColorsServeAsTexture)
{
    for (int format = 4; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        brush->SetTextureImage(PatternImage(static_cast<TXImage::Format>(format)));
        EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
        EXPECT_TRUE(
            SamePixels(QtBrush().textureImage(), Pattern(kWidth, kHeight, static_cast<QImage::Format>(format))));
    }
}

TEST_F(BrushTextureTest, LaterChangesOfTheImageDoNotReachTheBrush)
{
    brush->SetTextureImage(image);
    const QImage before = Pattern(kWidth, kHeight, QImage::Format_ARGB32);

    image->SetPixel(3, 3, TXColor(1, 2, 3, 255));
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    image->Fill(TXRect(0, 4, 0, 4), TXColor::WHITE_);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    QPainter(&QtImage(*image)).fillRect(2, 2, 5, 5, Qt::blue);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    image->Fill(TXColor::RED_);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    image->CreateImage(3, 3, TXImage::Format_RGB32);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    image->Delete();
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
    EXPECT_EQ(brush->textureImage(), image);
}

TEST_F(BrushTextureTest, APainterThatIsAlreadyAtWorkOnTheImageDoesNotReachTheBrush)
{
    QPainter painter(&QtImage(*image));
    brush->SetTextureImage(image);
    painter.fillRect(0, 0, kWidth, kHeight, Qt::green);
    painter.end();

    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), Pattern(kWidth, kHeight, QImage::Format_ARGB32)));
    EXPECT_EQ(image->GetPixel(5, 5).GetColor(), 0xff00ff00u);
}

TEST_F(BrushTextureTest, TheImagesBitsStayWhereTheyAre)
{
    auto* const bits = static_cast<QRgb*>(image->GetBits());

    brush->SetTextureImage(image);
    bits[0] = 0xff010203u;
    image->SetPixel(1, 0, TXColor(4, 5, 6, 255));

    EXPECT_EQ(image->GetBits(), bits);
    EXPECT_EQ(image->GetPixel(0, 0).GetColor(), 0xff010203u);
    EXPECT_EQ(bits[1], 0xff040506u);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), Pattern(kWidth, kHeight, QImage::Format_ARGB32)));
}

TEST_F(BrushTextureTest, PaintingOnAnImageOverTheHostsMemoryGoesOnReachingIt)
{
    std::vector<QRgb> memory(kPixels, 0xff101010u);
    auto* const bytes = reinterpret_cast<unsigned char*>(memory.data());
    image->CreateImage(bytes, kWidth, kHeight, TXImage::Format_ARGB32);
    brush->SetTextureImage(image);

    QPainter(&QtImage(*image)).fillRect(0, 0, 2, 1, QColor(255, 0, 0));
    EXPECT_EQ(memory[1], 0xffff0000u);
    image->SetPixel(2, 0, TXColor(0, 255, 0, 255));
    EXPECT_EQ(memory[2], 0xff00ff00u);
    image->Fill(TXRect(3, 4, 0, 1), TXColor(0, 0, 255, 255));
    EXPECT_EQ(memory[3], 0xff0000ffu);
    EXPECT_EQ(image->GetBits(), bytes);
    image->Fill(TXColor::WHITE_);
    EXPECT_EQ(memory[4], 0xffffffffu);
    memory[5] = 0xff123456u;
    EXPECT_EQ(image->GetPixel(5, 0).GetColor(), 0xff123456u);

    QImage before(kWidth, kHeight, QImage::Format_ARGB32);
    before.fill(0xff101010u);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), before));
}

TEST_F(BrushTextureTest, ASurfaceOnAnImageOverTheHostsMemoryGoesOnReachingIt)
{
    std::vector<QRgb> memory(kPixels, 0xff101010u);
    image->CreateImage(reinterpret_cast<unsigned char*>(memory.data()), kWidth, kHeight, TXImage::Format_ARGB32);
    brush->SetTextureImage(image);
    const TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics());
    ASSERT_TRUE(surface);

    surface->SelectImage(image);
    EXPECT_TRUE(surface->fillRect(TXRect(0, kWidth, 0, kHeight), TXColor(0, 0, 255, 255)));
    surface->SelectImage(nullptr);

    EXPECT_EQ(memory, std::vector<QRgb>(kPixels, 0xff0000ffu));
    EXPECT_EQ(QtBrush().textureImage().pixel(5, 5), 0xff101010u);
}

TEST_F(BrushTextureTest, TheBrushMayOutliveTheHostsMemory)
{
    {
        std::vector<QRgb> memory(kPixels, 0xff0a0b0cu);
        image->CreateImage(reinterpret_cast<unsigned char*>(memory.data()), kWidth, kHeight, TXImage::Format_ARGB32);
        brush->SetTextureImage(image);
        image->Delete();
    }
    EXPECT_EQ(QtBrush().textureImage().pixel(kWidth - 1, kHeight - 1), 0xff0a0b0cu);
}

TEST_F(BrushTextureTest, NullIsRefused)
{
    brush->SetTextureImage(nullptr);
    EXPECT_EQ(brush->GetStyle(), TXBrush::HorizontalHatch);
    EXPECT_FALSE(brush->textureImage());

    brush->SetTextureImage(image);
    brush->SetTextureImage(nullptr);
    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
    EXPECT_EQ(brush->textureImage(), image);
}

TEST_F(BrushTextureTest, AnAbsentImageIsRefused)
{
    const TXRefPtr<TXImage> absent(TestEngine().NewImage());
    brush->SetTextureImage(absent);
    EXPECT_EQ(brush->GetStyle(), TXBrush::HorizontalHatch);
    EXPECT_EQ(brush->textureImage(), nullptr);

    brush->SetTextureImage(image);
    brush->SetTextureImage(absent);
    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
    EXPECT_EQ(brush->textureImage(), image);
}

TEST_F(BrushTextureTest, AnEmptyBrushTakesNoTexture)
{
    const TXRefPtr<TXBrush> empty(TestEngine().NewBrush());
    empty->SetTextureImage(image);
    EXPECT_EQ(empty->GetInternalObject(), nullptr);
    EXPECT_FALSE(empty->textureImage());
}

TEST_F(BrushTextureTest, SetColorKeepsTheTexture)
{
    brush->SetTextureImage(image);
    brush->SetColor(TXColor(11, 12, 13, 14));
    EXPECT_EQ(brush->GetStyle(), TXBrush::TextureBrush);
    EXPECT_EQ(brush->GetColor().GetColor(), 0x0E0B0C0Du);
    EXPECT_TRUE(SamePixels(QtBrush().textureImage(), Pattern(kWidth, kHeight, QImage::Format_ARGB32)));
}

TEST_F(BrushTextureTest, CreateAndDeleteKeepTheReference)
{
    brush->SetTextureImage(image);
    brush->Create(TXColor::RED_, TXBrush::SolidBrush);
    EXPECT_EQ(brush->GetStyle(), TXBrush::SolidBrush);
    EXPECT_EQ(brush->textureImage(), image);

    brush->Delete();
    EXPECT_EQ(brush->textureImage(), image);
    brush->Delete();
    EXPECT_EQ(brush->textureImage(), image);

    // The brush's reference is a real one: the image survives although the host has let go of it.
    image->SetPixel(0, 0, TXColor(1, 2, 3, 255));
    image = nullptr;
    ASSERT_TRUE(brush->textureImage());
    EXPECT_EQ(brush->textureImage()->GetWidth(), kWidth);
    EXPECT_EQ(brush->textureImage()->GetPixel(0, 0).GetColor(), 0xff010203u);
}

TEST_F(BrushTextureTest, TheNextTextureReleasesTheOneBefore)
{
    const TXRefPtr<TXImage> other = PatternImage();
    brush->SetTextureImage(image);
    brush->SetTextureImage(other);

    EXPECT_EQ(brush->textureImage(), other);
    EXPECT_TRUE(DestroyedByLastRelease(std::move(image)));
}

TEST_F(BrushTextureTest, TheSameTextureAgainIsHeldOnce)
{
    brush->SetTextureImage(image);
    brush->SetTextureImage(image);
    EXPECT_EQ(brush->textureImage(), image);
    brush = nullptr;
    EXPECT_TRUE(DestroyedByLastRelease(std::move(image)));
}

TEST_F(BrushTextureTest, DestructionReleasesTheTexture)
{
    brush->SetTextureImage(image);
    brush->Delete();
    brush = nullptr;
    EXPECT_TRUE(DestroyedByLastRelease(std::move(image)));
}

TEST_F(BrushTextureTest, TheBrushHoldsTheImageWhileItLives)
{
    brush->SetTextureImage(image);
    ASSERT_FALSE(DestroyedByLastRelease(std::move(image)));
    EXPECT_EQ(brush->textureImage()->GetHeight(), kHeight);
}
