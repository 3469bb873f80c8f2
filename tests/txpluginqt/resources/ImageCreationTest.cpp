#include "Images.h"
#include "ResourceTest.h"

#include <climits>
#include <utility>

#include <QFile>
#include <QTemporaryDir>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

class ImageCreationTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(image); }

    void ExpectAbsent()
    {
        EXPECT_EQ(image->GetInternalObject(), nullptr);
        EXPECT_EQ(image->GetBits(), nullptr);
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_EQ(image->GetHeight(), 0);
        EXPECT_EQ(image->GetByteCount(), 0);
        EXPECT_EQ(image->GetPixel(0, 0).GetColor(), TXColor().GetColor());
    }

    // Present, but with a null Qt image.
    void ExpectWithoutPixels()
    {
        ASSERT_NE(image->GetInternalObject(), nullptr);
        EXPECT_TRUE(QtImage(*image).isNull());
        EXPECT_EQ(image->GetBits(), nullptr);
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_EQ(image->GetHeight(), 0);
        EXPECT_EQ(image->GetByteCount(), 0);
        EXPECT_EQ(image->GetPixel(0, 0).GetColor(), TXColor().GetColor());
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
};

TXImage::Format Format(int value) { return static_cast<TXImage::Format>(value); }

constexpr std::pair<int, int> kAreaLess[] = {{0, 0},   {0, 5},       {5, 0},       {-1, 5},       {5, -1},
                                             {-3, -3}, {INT_MIN, 1}, {1, INT_MIN}, {INT_MIN, -1}, {INT_MAX, INT_MAX}};

} // namespace

TEST_F(ImageCreationTest, ANewImageIsAbsentAndDoesNothing)
{
    ExpectAbsent();
    const QTemporaryDir folder;
    const QString path = folder.filePath("absent.png");
    const QByteArray file = Encoded(Pattern(4, 4, QImage::Format_RGB32), "PNG");

    image->Fill(TXColor::RED_);
    image->Fill(0x12345678u);
    image->Fill(TXRect(0, 5, 0, 5), TXColor::RED_);
    image->SetPixel(0, 0, TXColor::RED_);
    image->SetBits(file.constData(), static_cast<unsigned int>(file.size()));
    image->Save(TXString(path.toStdWString()));
    image->Save(path.toLatin1().constData());

    ExpectAbsent();
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ImageCreationTest, DeleteMakesTheImageAbsentAndIsTrueEveryTime)
{
    EXPECT_TRUE(image->Delete());
    ExpectAbsent();
    image->CreateImage(4, 3, TXImage::Format_ARGB32);
    EXPECT_TRUE(image->Delete());
    ExpectAbsent();
    EXPECT_TRUE(image->Delete());
    ExpectAbsent();
}

TEST_F(ImageCreationTest, CreateImageTakesTheFormatsNumberAsItIs)
{
    for (int format = -5; format <= 40; ++format)
    {
        SCOPED_TRACE(format);
        EXPECT_TRUE(image->CreateImage(7, 5, Format(format)));
        if (format < 1 || format >= QImage::NImageFormats)
        {
            ExpectWithoutPixels();
            continue;
        }
        EXPECT_EQ(int{QtImage(*image).format()}, format);
        EXPECT_EQ(image->GetWidth(), 7);
        EXPECT_EQ(image->GetHeight(), 5);
        const QImage twin(7, 5, static_cast<QImage::Format>(format));
        EXPECT_EQ(image->GetByteCount(), twin.bytesPerLine() * twin.height());
        EXPECT_EQ(image->GetBits(), QtImage(*image).bits());
        EXPECT_NE(image->GetBits(), nullptr);
    }
    for (const int format : {INT_MIN, -1000, 1000, 1 << 20, INT_MAX})
    {
        SCOPED_TRACE(format);
        EXPECT_TRUE(image->CreateImage(7, 5, Format(format)));
        ExpectWithoutPixels();
    }
}

TEST_F(ImageCreationTest, SizesWithoutAreaGiveAnImageWithoutPixels)
{
    for (const auto& [width, height] : kAreaLess)
    {
        SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
        EXPECT_TRUE(image->CreateImage(width, height, TXImage::Format_ARGB32));
        ExpectWithoutPixels();
        EXPECT_TRUE(image->CreateCompatibleImage(nullptr, width, height));
        ExpectWithoutPixels();
    }
}

TEST_F(ImageCreationTest, AnImageWithoutPixelsTakesEveryCall)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("nothing.png");
    image->CreateImage(0, 0, TXImage::Format_ARGB32);

    image->Fill(TXColor::RED_);
    image->Fill(0xffffffffu);
    image->Fill(TXRect(-10, 10, -10, 10), TXColor::RED_);
    image->SetPixel(0, 0, TXColor::RED_);
    image->Save(TXString(path.toStdWString()));
    image->Save(path.toLatin1().constData());
    ExpectWithoutPixels();
    EXPECT_FALSE(QFile::exists(path));

    EXPECT_TRUE(image->CreateImage(2, 2, TXImage::Format_ARGB32));
    EXPECT_EQ(image->GetWidth(), 2);
}

TEST_F(ImageCreationTest, EveryCreatingOperationReplacesTheImageBefore)
{
    unsigned char memory[16 * 16 * 4] = {};
    EXPECT_TRUE(image->CreateImage(5, 6, TXImage::Format_RGB32));
    EXPECT_TRUE(image->CreateImage(memory, 7, 8, TXImage::Format_RGB32));
    EXPECT_EQ(image->GetWidth(), 7);
    EXPECT_TRUE(image->CreateImage(memory, 9, 10));
    EXPECT_EQ(image->GetWidth(), 9);
    EXPECT_TRUE(image->CreateCompatibleImage(nullptr, 11, 12));
    EXPECT_EQ(image->GetWidth(), 11);
    EXPECT_EQ(image->GetHeight(), 12);
    EXPECT_TRUE(image->CreateImage(13, 14, TXImage::Format_RGB16));
    EXPECT_EQ(image->GetWidth(), 13);
    EXPECT_EQ(image->GetHeight(), 14);
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB16);
}

TEST_F(ImageCreationTest, ACompatibleImageIsTransparentWhite)
{
    EXPECT_TRUE(image->CreateCompatibleImage(nullptr, 6, 4));
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_ARGB32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(image->GetPixel(x, y).GetColor(), 0x00ffffffu);
}

TEST_F(ImageCreationTest, ACompatibleImageHasTheMappedDefaultFormat)
{
    for (int format = -5; format <= 40; ++format)
    {
        SCOPED_TRACE(format);
        TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(format);
        EXPECT_TRUE(image->CreateCompatibleImage(nullptr, 8, 4));
        if (format == 0)
        {
            ExpectWithoutPixels();
            continue;
        }
        QImage expected(8, 4, MappedFormat(format));
        expected.fill(QColor(255, 255, 255, 0));
        ASSERT_NE(image->GetInternalObject(), nullptr);
        EXPECT_TRUE(SameBytes(QtImage(*image), expected));
    }
}

TEST_F(ImageCreationTest, TheDefaultFormatIsReadWhenAnImageIsMade)
{
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_RGB16);
    image->CreateCompatibleImage(nullptr, 3, 3);
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB16);
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_RGB888);
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB16);
    image->CreateCompatibleImage(nullptr, 3, 3);
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB888);
}

TEST_F(ImageCreationTest, TheSurfaceOfACompatibleImageIsNotConsulted)
{
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_RGB32);
    const TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics());
    ASSERT_TRUE(surface);
    surface->CreateCompatibleGraphics(20, 20);
    TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(TXImage::Format_RGB16);

    EXPECT_TRUE(image->CreateCompatibleImage(surface.get(), 3, 2));
    EXPECT_EQ(QtImage(*image).format(), QImage::Format_RGB16);
    EXPECT_EQ(image->GetWidth(), 3);
    EXPECT_EQ(image->GetHeight(), 2);
}
