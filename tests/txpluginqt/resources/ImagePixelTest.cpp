#include "Images.h"
#include "ResourceTest.h"

#include <climits>
#include <tests/support/RandomSource.h>
#include <utility>
#include <vector>

using namespace TZObjects;

namespace
{

class ImagePixelTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(image); }

    void Make(int format)
    {
        image->CreateImage(8, 4, static_cast<TXImage::Format>(format));
        ASSERT_NE(image->GetBits(), nullptr);
        QtImage(*image).fill(0);
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
};

constexpr std::pair<int, int> kOutside[] = {{-1, 0},      {0, -1},      {8, 0},           {0, 4},
                                            {8, 4},       {-1, -1},     {INT_MAX, 0},     {0, INT_MAX},
                                            {INT_MIN, 0}, {0, INT_MIN}, {100000, 100000}, {-1, 1}};

} // namespace

TEST_F(ImagePixelTest, SetPixelStoresTheColorInEveryFormatWithColors)
{
    RandomSource random(99);
    for (int format = 4; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        Make(format);
        QImage twin(8, 4, static_cast<QImage::Format>(format));
        twin.fill(0);
        for (int i = 0; i < 500; ++i)
        {
            const int x = random.Below(8);
            const int y = random.Below(4);
            const TXColor color(random.Next(), true);
            image->SetPixel(x, y, color);
            twin.setPixelColor(x, y, SameChannels(color));
            ASSERT_TRUE(SameBytes(QtImage(*image), twin)) << "color " << std::hex << color.GetColor();
        }
    }
}

TEST_F(ImagePixelTest, GetPixelAnswersThePackedPixelInEveryFormat)
{
    for (int format = 4; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        Make(format);
        PaintPattern(QtImage(*image));
        const QImage twin = Pattern(8, 4, static_cast<QImage::Format>(format));
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 8; ++x)
                EXPECT_EQ(image->GetPixel(x, y).GetColor(), twin.pixel(x, y)) << x << ", " << y;
    }
}

TEST_F(ImagePixelTest, AColorComesBackExactlyFromFormat5)
{
    RandomSource random(7);
    Make(TXImage::Format_ARGB32);
    for (int i = 0; i < 2000; ++i)
    {
        const unsigned int value = random.Next();
        image->SetPixel(3, 2, TXColor(value, true));
        ASSERT_EQ(image->GetPixel(3, 2).GetColor(), value);
        ASSERT_EQ(QtImage(*image).pixel(3, 2), value);
    }
}

TEST_F(ImagePixelTest, PremultipliedPixelsAreWrittenAsColorsAndReadAsTheyAreStored)
{
    Make(TXImage::Format_ARGB32_Premultiplied);
    image->SetPixel(1, 1, TXColor(200, 100, 50, 128));
    EXPECT_EQ(static_cast<QRgb*>(image->GetBits())[9], 0x80643219u);
    EXPECT_EQ(image->GetPixel(1, 1).GetColor(), 0x80643219u);

    static_cast<QRgb*>(image->GetBits())[0] = 0x40202020u;
    EXPECT_EQ(image->GetPixel(0, 0).GetColor(), 0x40202020u);

    for (int format = 1; format < QImage::NImageFormats; ++format)
    {
        QImage twin(8, 4, static_cast<QImage::Format>(format));
        if (twin.pixelFormat().premultiplied() != QPixelFormat::Premultiplied)
            continue;
        SCOPED_TRACE(format);
        Make(format);
        twin.fill(0);
        image->SetPixel(1, 1, TXColor(200, 100, 50, 128));
        twin.setPixelColor(1, 1, QColor(200, 100, 50, 128));
        EXPECT_EQ(image->GetPixel(1, 1).GetColor(), twin.pixel(1, 1));
    }
}

TEST_F(ImagePixelTest, PixelsOutsideReadAsTheDefaultColor)
{
    for (int format = 1; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        Make(format);
        QtImage(*image).fill(1);
        for (const auto& [x, y] : kOutside)
            EXPECT_EQ(image->GetPixel(x, y).GetColor(), TXColor().GetColor()) << x << ", " << y;
    }
}

TEST_F(ImagePixelTest, PixelsOutsideAreNotWritten)
{
    std::vector<QRgb> memory(96, 0x11223344u);
    image->CreateImage(reinterpret_cast<unsigned char*>(memory.data() + 32), 8, 4, TXImage::Format_ARGB32);
    for (const auto& [x, y] : kOutside)
        image->SetPixel(x, y, TXColor::RED_);
    EXPECT_EQ(memory, std::vector<QRgb>(96, 0x11223344u));
}

TEST_F(ImagePixelTest, SetPixelDoesNothingInFormatsWithoutColors)
{
    for (int format = 1; format <= 3; ++format)
    {
        SCOPED_TRACE(format);
        Make(format);
        const QImage before = QtImage(*image).copy();
        for (const TXColor& color : {TXColor::WHITE_, TXColor::RED_, TXColor(0, 0, 1, 0)})
            for (int x = 0; x < 8; ++x)
                image->SetPixel(x, 1, color);
        EXPECT_TRUE(SameBytes(QtImage(*image), before));
    }
}

TEST_F(ImagePixelTest, GetPixelReadsThroughAColorTable)
{
    for (int format = 1; format <= 3; ++format)
    {
        SCOPED_TRACE(format);
        Make(format);
        QtImage(*image).setColorTable({0xff112233u, 0x80445566u});
        QtImage(*image).setPixel(5, 2, 1);
        EXPECT_EQ(image->GetPixel(5, 2).GetColor(), 0x80445566u);
        EXPECT_EQ(image->GetPixel(4, 2).GetColor(), 0xff112233u);
    }
}

TEST_F(ImagePixelTest, AnIndexWithoutAColorReadsAsZeroAndDoesNotPrint)
{
    Make(TXImage::Format_Indexed8);
    QtImage(*image).fill(7);
    EXPECT_EQ(image->GetPixel(0, 0).GetColor(), 0u);
    QtImage(*image).setColorTable({0xff112233u});
    EXPECT_EQ(image->GetPixel(7, 3).GetColor(), 0u);
    Make(TXImage::Format_Mono);
    QtImage(*image).fill(1);
    QtImage(*image).setColorTable({0xff112233u});
    EXPECT_EQ(image->GetPixel(7, 3).GetColor(), 0u);
}

TEST_F(ImagePixelTest, ByteCountIsThatOfAllRows)
{
    for (int format = 1; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        image->CreateImage(13, 7, static_cast<TXImage::Format>(format));
        const QImage twin(13, 7, static_cast<QImage::Format>(format));
        EXPECT_EQ(image->GetByteCount(), 7 * ((13 * twin.depth() + 31) / 32 * 4));
        EXPECT_EQ(image->GetWidth(), 13);
        EXPECT_EQ(image->GetHeight(), 7);
    }
}
