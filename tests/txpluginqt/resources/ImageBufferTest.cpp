#include "Images.h"
#include "ResourceTest.h"

#include <climits>
#include <vector>

using namespace TZObjects;

namespace
{

// Images over memory of the host's.
class ImageBufferTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(image); }

    unsigned char* Bytes() { return reinterpret_cast<unsigned char*>(memory.data()); }

    // Wide enough for 7 x 5 pixels of any format.
    std::vector<quint64> memory = std::vector<quint64>(64, 0x5a5a5a5a5a5a5a5aull);
    TXRefPtr<TXImage> image{TestEngine().NewImage()};
};

TXImage::Format Format(int value) { return static_cast<TXImage::Format>(value); }

} // namespace

TEST_F(ImageBufferTest, TheFormatIsMapped)
{
    for (int format = -5; format <= 40; ++format)
    {
        SCOPED_TRACE(format);
        EXPECT_TRUE(image->CreateImage(Bytes(), 7, 5, Format(format)));
        ASSERT_NE(image->GetInternalObject(), nullptr);
        if (format == 0)
        {
            EXPECT_TRUE(QtImage(*image).isNull());
            continue;
        }
        EXPECT_EQ(QtImage(*image).format(), MappedFormat(format));
        EXPECT_EQ(image->GetWidth(), 7);
        EXPECT_EQ(image->GetHeight(), 5);
        EXPECT_EQ(QtImage(*image).constBits(), Bytes());
        EXPECT_EQ(image->GetBits(), Bytes());
    }
    for (const int format : {INT_MIN, 1000, INT_MAX})
    {
        EXPECT_TRUE(image->CreateImage(Bytes(), 7, 5, Format(format)));
        EXPECT_EQ(QtImage(*image).format(), QImage::Format_ARGB32);
    }
}

TEST_F(ImageBufferTest, WithoutAFormatTheMappedDefaultIsUsed)
{
    for (int format = -5; format <= 40; ++format)
    {
        SCOPED_TRACE(format);
        TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(format);
        EXPECT_TRUE(image->CreateImage(Bytes(), 7, 5));
        ASSERT_NE(image->GetInternalObject(), nullptr);
        if (format == 0)
        {
            EXPECT_TRUE(QtImage(*image).isNull());
            continue;
        }
        EXPECT_EQ(QtImage(*image).format(), MappedFormat(format));
        EXPECT_EQ(QtImage(*image).size(), QSize(7, 5));
        EXPECT_EQ(QtImage(*image).constBits(), Bytes());
    }
}

TEST_F(ImageBufferTest, AGivenFormatDoesNotDependOnTheDefault)
{
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_RGB16);
    image->CreateImage(Bytes(), 7, 5, TXImage::Format_RGB888);
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB888);
    image->CreateImage(Bytes(), 7, 5, Format(30));
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_ARGB32);
}

TEST_F(ImageBufferTest, CreationDoesNotTouchTheMemory)
{
    image->CreateImage(Bytes(), 7, 5, TXImage::Format_ARGB32);
    image->CreateImage(Bytes(), 7, 5);
    image->Delete();
    EXPECT_EQ(memory, std::vector<quint64>(64, 0x5a5a5a5a5a5a5a5aull));
}

TEST_F(ImageBufferTest, WritesReachTheMemoryAndReadsComeFromIt)
{
    auto* const pixels = reinterpret_cast<QRgb*>(memory.data());
    image->CreateImage(Bytes(), 7, 5, TXImage::Format_ARGB32);

    image->SetPixel(6, 4, TXColor(1, 2, 3, 4));
    EXPECT_EQ(pixels[4 * 7 + 6], 0x04010203u);
    pixels[7] = 0x80112233u;
    EXPECT_EQ(image->GetPixel(0, 1).GetColor(), 0x80112233u);
    image->Fill(TXRect(1, 2, 1, 2), TXColor(9, 8, 7, 255));
    EXPECT_EQ(pixels[8], 0xff090807u);
    image->Fill(TXColor(10, 20, 30, 255));
    EXPECT_EQ(pixels[34], 0xff0a141eu);
    EXPECT_EQ(pixels[35], 0x5a5a5a5au);
    image->Fill(0x01020304u);
    EXPECT_EQ(pixels[0], 0x01020304u);
    EXPECT_EQ(pixels[34], 0x01020304u);
    EXPECT_EQ(pixels[35], 0x5a5a5a5au);
    EXPECT_EQ(image->GetBits(), Bytes());
}

TEST_F(ImageBufferTest, RowsAreAlignedToFourBytes)
{
    image->CreateImage(Bytes(), 5, 3, TXImage::Format_RGB888);
    image->SetPixel(0, 1, TXColor(11, 22, 33, 255));
    EXPECT_EQ(Bytes()[16], 11);
    EXPECT_EQ(Bytes()[17], 22);
    EXPECT_EQ(Bytes()[18], 33);
    EXPECT_EQ(image->GetByteCount(), 48);
}

TEST_F(ImageBufferTest, TheMemoryStaysTheHosts)
{
    image->CreateImage(Bytes(), 7, 5, TXImage::Format_ARGB32);
    image->Fill(0x01020304u);
    image->Delete();
    EXPECT_EQ(memory[0], 0x0102030401020304ull);

    image->CreateImage(Bytes(), 7, 5);
    image = nullptr;
    EXPECT_EQ(memory[0], 0x0102030401020304ull);
}

TEST_F(ImageBufferTest, NoMemoryOrNoAreaGivesAnImageWithoutPixels)
{
    EXPECT_TRUE(image->CreateImage(nullptr, 7, 5, TXImage::Format_ARGB32));
    EXPECT_EQ(image->GetWidth(), 0);
    EXPECT_TRUE(image->CreateImage(nullptr, 7, 5));
    EXPECT_EQ(image->GetWidth(), 0);
    for (const int bad : {0, -1, INT_MIN})
    {
        EXPECT_TRUE(image->CreateImage(Bytes(), bad, 5, TXImage::Format_ARGB32));
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_TRUE(image->CreateImage(Bytes(), 7, bad));
        EXPECT_EQ(image->GetHeight(), 0);
    }
    EXPECT_EQ(memory, std::vector<quint64>(64, 0x5a5a5a5a5a5a5a5aull));
}

TEST_F(ImageBufferTest, ByteCountSaturates)
{
    // Four gigabytes that nothing reads or writes.
    EXPECT_TRUE(image->CreateImage(Bytes(), 32768, 32768, TXImage::Format_ARGB32));
    ASSERT_EQ(image->GetWidth(), 32768);
    EXPECT_EQ(image->GetByteCount(), INT_MAX);
}
