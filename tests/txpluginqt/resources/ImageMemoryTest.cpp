#include "Images.h"
#include "ResourceTest.h"

#include <climits>

#include <QBuffer>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

// Images decoded from bytes in memory.
class ImageMemoryTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(image);
        image->CreateImage(3, 2, TXImage::Format_RGB32);
        image->Fill(0xff0a0b0cu);
    }

    bool Load(QByteArray bytes, const char* format)
    {
        const int length = bytes.size();
        const bool loaded = image->Load(reinterpret_cast<unsigned char*>(bytes.data()), length, format);
        bytes.fill('x');
        return loaded;
    }

    void ExpectUnchanged()
    {
        ASSERT_EQ(image->GetWidth(), 3);
        EXPECT_EQ(image->GetHeight(), 2);
        EXPECT_EQ(image->GetPixel(2, 1).GetColor(), 0xff0a0b0cu);
    }

    void ExpectAbsent()
    {
        EXPECT_EQ(image->GetInternalObject(), nullptr);
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_EQ(image->GetBits(), nullptr);
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
    const QImage picture = Pattern(13, 9, QImage::Format_ARGB32);
};

// A pixmap whose last rows are missing; its reader refuses it without printing.
QByteArray TruncatedPixmap()
{
    QByteArray bytes = Encoded(Pattern(13, 9, QImage::Format_RGB888), "PPM");
    bytes.chop(40);
    return bytes;
}

} // namespace

TEST_F(ImageMemoryTest, LoadDetectsTheFormatWhenNoneIsNamed)
{
    for (const char* const format : {"PNG", "BMP", "PPM", "JPG"})
    {
        SCOPED_TRACE(format);
        const QByteArray bytes = Encoded(picture, format);
        EXPECT_TRUE(Load(bytes, nullptr));
        EXPECT_TRUE(SamePixels(QtImage(*image), QImage::fromData(bytes)));
        EXPECT_EQ(image->GetWidth(), 13);
        EXPECT_EQ(image->GetHeight(), 9);
    }
}

TEST_F(ImageMemoryTest, LoadTakesTheNameOfAFormat)
{
    const QByteArray bytes = Encoded(picture, "PNG");
    for (const char* const format : {"PNG", "png", "BMP", "JPG", "nonsense", ""})
    {
        SCOPED_TRACE(format);
        QByteArray data = bytes;
        QBuffer buffer(&data);
        QImage expected;
        const bool loadable = expected.load(&buffer, format);
        EXPECT_EQ(Load(bytes, format), loadable);
        if (loadable)
            EXPECT_TRUE(SamePixels(QtImage(*image), expected));
        else
            ExpectAbsent();
    }
    EXPECT_TRUE(Load(bytes, "PNG"));
}

TEST_F(ImageMemoryTest, LoadOnAnAbsentImageMakesItPresent)
{
    image->Delete();
    EXPECT_TRUE(Load(Encoded(picture, "PNG"), nullptr));
    EXPECT_TRUE(SamePixels(QtImage(*image), picture));
}

TEST_F(ImageMemoryTest, LoadReadsNoMoreThanTheLength)
{
    QByteArray bytes = Encoded(picture, "BMP");
    const int length = bytes.size();
    bytes.append("bytes that belong to something else");
    EXPECT_TRUE(image->Load(reinterpret_cast<unsigned char*>(bytes.data()), length, nullptr));
    EXPECT_TRUE(SamePixels(QtImage(*image), QImage::fromData(bytes.left(length))));
}

TEST_F(ImageMemoryTest, LoadWithoutLengthOrDataKeepsTheImage)
{
    QByteArray bytes = Encoded(picture, "PNG");
    auto* const data = reinterpret_cast<unsigned char*>(bytes.data());
    for (const int length : {0, -1, INT_MIN})
    {
        EXPECT_FALSE(image->Load(data, length, nullptr));
        EXPECT_FALSE(image->Load(data, length, "PNG"));
        ExpectUnchanged();
    }
    EXPECT_FALSE(image->Load(nullptr, 100, nullptr));
    EXPECT_FALSE(image->Load(nullptr, INT_MAX, "PNG"));
    EXPECT_FALSE(image->Load(nullptr, 0, nullptr));
    ExpectUnchanged();
}

TEST_F(ImageMemoryTest, LoadWithoutLengthOrDataKeepsTheImageAbsent)
{
    image->Delete();
    unsigned char byte = 0;
    EXPECT_FALSE(image->Load(&byte, 0, nullptr));
    EXPECT_FALSE(image->Load(nullptr, 1, nullptr));
    ExpectAbsent();
}

TEST_F(ImageMemoryTest, LoadOfUndecodableBytesLeavesTheImageAbsent)
{
    EXPECT_FALSE(Load("these are no pixels", nullptr));
    ExpectAbsent();
    EXPECT_FALSE(Load("these are no pixels", "PNG"));
    ExpectAbsent();

    image->CreateImage(3, 2, TXImage::Format_RGB32);
    EXPECT_FALSE(Load(TruncatedPixmap(), nullptr));
    ExpectAbsent();
}

TEST_F(ImageMemoryTest, SetBitsDecodesAnImageFile)
{
    for (const char* const format : {"PNG", "BMP", "PPM"})
    {
        SCOPED_TRACE(format);
        const QByteArray bytes = Encoded(picture, format);
        image->SetBits(bytes.constData(), static_cast<unsigned int>(bytes.size()));
        EXPECT_TRUE(SamePixels(QtImage(*image), QImage::fromData(bytes)));
    }
}

TEST_F(ImageMemoryTest, SetBitsReadsNoMoreThanTheSize)
{
    QByteArray bytes = Encoded(picture, "BMP");
    const int size = bytes.size();
    bytes.append("bytes that belong to something else");
    image->SetBits(bytes.constData(), static_cast<unsigned int>(size));
    EXPECT_TRUE(SamePixels(QtImage(*image), QImage::fromData(bytes.left(size))));
}

TEST_F(ImageMemoryTest, SetBitsLeavesAnAbsentImageAbsent)
{
    image->Delete();
    const QByteArray bytes = Encoded(picture, "PNG");
    image->SetBits(bytes.constData(), static_cast<unsigned int>(bytes.size()));
    ExpectAbsent();
}

// As QImage::loadFromData leaves it: the image is there, but has no pixels.
TEST_F(ImageMemoryTest, SetBitsOfRawPixelsIsNotACopy)
{
    const QByteArray raw(3 * 2 * 4, '\x7f');
    image->SetBits(raw.constData(), static_cast<unsigned int>(raw.size()));
    ASSERT_NE(image->GetInternalObject(), nullptr);
    EXPECT_TRUE(QtImage(*image).isNull());
    EXPECT_EQ(image->GetWidth(), 0);
}

TEST_F(ImageMemoryTest, SetBitsOfNothingLeavesAnImageWithoutPixels)
{
    const QByteArray bytes = Encoded(picture, "PNG");
    const std::pair<const void*, unsigned int> nothing[] = {
        {bytes.constData(), 0u}, {nullptr, 0u}, {nullptr, 100u}, {nullptr, UINT_MAX}};
    for (const auto& [data, size] : nothing)
    {
        image->CreateImage(3, 2, TXImage::Format_ARGB32);
        image->SetBits(data, size);
        ASSERT_NE(image->GetInternalObject(), nullptr);
        EXPECT_TRUE(QtImage(*image).isNull());
        EXPECT_EQ(image->GetWidth(), 0);
        EXPECT_EQ(image->GetBits(), nullptr);
    }
}

TEST_F(ImageMemoryTest, SetBitsOfMoreThanQtCountsChangesNothing)
{
    const QByteArray bytes = Encoded(picture, "PNG");
    image->CreateImage(3, 2, TXImage::Format_ARGB32);
    image->Fill(0xff102030u);
    const QImage before = QtImage(*image).copy();
    image->SetBits(bytes.constData(), static_cast<unsigned int>(INT_MAX) + 1u);
    image->SetBits(bytes.constData(), UINT_MAX);
    EXPECT_EQ(QtImage(*image), before);
}
