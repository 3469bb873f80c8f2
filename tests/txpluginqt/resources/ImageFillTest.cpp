#include "Images.h"
#include "ResourceTest.h"

#include <climits>

using namespace TZObjects;

namespace
{

class ImageFillTest : public ResourceTest
{
protected:
    void SetUp() override { ASSERT_TRUE(image); }

    static void SetDefaultFormat(int format) { TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(format); }

    // An image of the format, every byte of it set.
    void Make(int format, int width = 8, int height = 4)
    {
        image->CreateImage(width, height, static_cast<TXImage::Format>(format));
        ASSERT_NE(image->GetBits(), nullptr);
        QtImage(*image).fill(0);
    }
    static QImage Twin(int format, int width = 8, int height = 4)
    {
        QImage twin(width, height, static_cast<QImage::Format>(format));
        twin.fill(0);
        return twin;
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
};

const TXColor kColors[] = {TXColor(200, 100, 50, 255), TXColor(200, 100, 50, 128), TXColor(255, 255, 255, 0),
                           TXColor(1, 254, 127, 77), TXColor(0, 0, 0, 1)};

} // namespace

TEST_F(ImageFillTest, AColorFillsEveryFormatAsItIs)
{
    for (int format = 1; format < QImage::NImageFormats; ++format)
        for (const TXColor& color : kColors)
        {
            SCOPED_TRACE(std::to_string(format) + ", color " + std::to_string(color.GetColor()));
            Make(format);
            QImage twin = Twin(format);
            image->Fill(color);
            twin.fill(SameChannels(color));
            EXPECT_TRUE(SameBytes(QtImage(*image), twin));
        }
}

TEST_F(ImageFillTest, DefaultFormats10And15FillThePremultipliedRawValueInEveryFormat)
{
    for (const int defaultFormat : {10, 15})
    {
        SetDefaultFormat(defaultFormat);
        for (int format = 1; format < QImage::NImageFormats; ++format)
            for (const TXColor& color : kColors)
            {
                SCOPED_TRACE(std::to_string(format) + ", color " + std::to_string(color.GetColor()));
                Make(format);
                QImage twin = Twin(format);
                image->Fill(color);
                twin.fill(qPremultiply(color.GetColor()));
                EXPECT_TRUE(SameBytes(QtImage(*image), twin));
            }
    }
}

TEST_F(ImageFillTest, NoOtherDefaultFormatChangesTheFill)
{
    const TXColor color(200, 100, 50, 128);
    for (const int format : {5, 6, 10, 15})
    {
        QImage twin = Twin(format);
        twin.fill(SameChannels(color));
        Make(format);
        for (int defaultFormat = -5; defaultFormat <= 40; ++defaultFormat)
        {
            if (defaultFormat == 10 || defaultFormat == 15)
                continue;
            SCOPED_TRACE(defaultFormat);
            SetDefaultFormat(defaultFormat);
            image->Fill(0u);
            image->Fill(color);
            EXPECT_TRUE(SameBytes(QtImage(*image), twin));
        }
        for (const int defaultFormat : {INT_MIN, INT_MAX, 256 + 10, 65536 + 15, -10, -15})
        {
            SetDefaultFormat(defaultFormat);
            image->Fill(0u);
            image->Fill(color);
            EXPECT_TRUE(SameBytes(QtImage(*image), twin));
        }
    }
}

TEST_F(ImageFillTest, TheDefaultFormatIsReadAtEachFill)
{
    Make(QImage::Format_ARGB32);
    image->Fill(TXColor(200, 100, 50, 128));
    EXPECT_EQ(QtImage(*image).pixel(0, 0), 0x80c86432u);
    SetDefaultFormat(10);
    image->Fill(TXColor(200, 100, 50, 128));
    EXPECT_EQ(QtImage(*image).pixel(0, 0), 0x80643219u);
    SetDefaultFormat(6);
    image->Fill(TXColor(200, 100, 50, 128));
    EXPECT_EQ(QtImage(*image).pixel(0, 0), 0x80c86432u);
}

TEST_F(ImageFillTest, PremultiplyingRoundsEveryChannelAndAlpha)
{
    SetDefaultFormat(15);
    Make(QImage::Format_ARGB32, 1, 1);
    for (int alpha = 0; alpha < 256; ++alpha)
        for (int channel = 0; channel < 256; ++channel)
        {
            const TXColor color(channel, 255 - channel, channel / 2, alpha);
            image->Fill(color);
            const QRgb filled = QtImage(*image).pixel(0, 0);
            ASSERT_EQ(filled, qPremultiply(color.GetColor())) << "channel " << channel << ", alpha " << alpha;
            ASSERT_EQ(qAlpha(filled), alpha);
            // Qt's integer arithmetic misses the nearest number by 1 where the quotient lies within 1/500 of a half.
            ASSERT_NEAR(qRed(filled), channel * alpha / 255.0, 0.502);
            ASSERT_NEAR(qGreen(filled), (255 - channel) * alpha / 255.0, 0.502);
            ASSERT_NEAR(qBlue(filled), channel / 2 * alpha / 255.0, 0.502);
        }
}

TEST_F(ImageFillTest, ARawValueFillsEveryFormatWhateverTheDefaultIs)
{
    for (const int defaultFormat : {5, 10, 15})
    {
        SetDefaultFormat(defaultFormat);
        for (int format = 1; format < QImage::NImageFormats; ++format)
            for (const unsigned int value : {0u, 1u, 0x12345678u, 0x80ff4020u, 0xffffffffu})
            {
                SCOPED_TRACE(std::to_string(format) + ", value " + std::to_string(value));
                Make(format);
                QImage twin = Twin(format);
                image->Fill(value);
                twin.fill(value);
                EXPECT_TRUE(SameBytes(QtImage(*image), twin));
            }
    }
}
