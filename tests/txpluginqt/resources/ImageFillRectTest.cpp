#include "Images.h"
#include "ResourceTest.h"

#include <cmath>
#include <limits>
#include <tests/support/RandomSource.h>
#include <vector>

using namespace TZObjects;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kWidth = 10;
constexpr int kHeight = 8;
constexpr QRgb kBackground = 0x40302010u;
constexpr QRgb kFilled = 0x80c86432u;

const TXColor kColor(200, 100, 50, 128);

class ImageFillRectTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(image);
        image->CreateImage(kWidth, kHeight, TXImage::Format_ARGB32);
        ASSERT_NE(image->GetInternalObject(), nullptr);
    }

    // Fills the rectangle and tells whether exactly the pixels from (x0, y0) up to, not including, (x1, y1) are filled.
    ::testing::AssertionResult Fills(const TXRect& rect, int x0, int x1, int y0, int y1)
    {
        QtImage(*image).fill(kBackground);
        image->Fill(rect, kColor);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
            {
                const bool inside = x >= x0 && x < x1 && y >= y0 && y < y1;
                if (QtImage(*image).pixel(x, y) != (inside ? kFilled : kBackground))
                    return ::testing::AssertionFailure()
                           << "(" << x << ", " << y << ") should " << (inside ? "" : "not ") << "be filled by "
                           << rect.left << " " << rect.right << " " << rect.top << " " << rect.bottom;
            }
        return ::testing::AssertionSuccess();
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
};

struct Range
{
    double from;
    double to;
    int first;
    int end;
};

// For a side of 8 to 10 pixels; what reaches beyond 10 is cut at the side's own length.
const Range kRanges[] = {
    {-5.0, 3.0, 0, 3},
    {0.0, 3.0, 0, 3},
    {0.0, 3.999, 0, 3},
    {0.999, 3.0, 0, 3},
    {1.0, 3.0, 1, 3},
    {1.5, 1.9, 1, 1},
    {1.9, 2.0, 1, 2},
    {2.0, 2.0, 2, 2},
    {3.0, 1.0, 0, 0},
    {-3.0, -1.0, 0, 0},
    {-0.5, 0.5, 0, 0},
    {-0.5, 1.0, 0, 1},
    {-1e300, 1e300, 0, 99},
    {-kInfinity, 2, 0, 2},
    {2, kInfinity, 2, 99},
    {-kInfinity, kInfinity, 0, 99},
    {100.0, 200.0, 0, 0},
    {1e300, kInfinity, 0, 0},
    {7.0, 8.0, 7, 8},
    {7.0, 7.99, 7, 7},
    {0.0, 100.0, 0, 99},
    {-kInfinity, -1, 0, 0},
    {-2147483649.0, 4294967296.0, 0, 99},
};

} // namespace

TEST_F(ImageFillRectTest, TheBlockAtTheOriginIsFilledByARectangleThatBeginsOutside)
{
    image->CreateImage(10, 10, TXImage::Format_ARGB32);
    QtImage(*image).fill(kBackground);
    image->Fill(TXRect(-5, 3, -5, 3), kColor);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            EXPECT_EQ(image->GetPixel(x, y).GetColor(), x < 3 && y < 3 ? kFilled : kBackground);
}

TEST_F(ImageFillRectTest, EdgesAreClippedAndTruncated)
{
    for (const Range& x : kRanges)
        for (const Range& y : kRanges)
            EXPECT_TRUE(Fills(TXRect(x.from, x.to, y.from, y.to), x.first, x.end, y.first, y.end));
}

TEST_F(ImageFillRectTest, RandomRectanglesFillWhatAModelFills)
{
    RandomSource random(73);
    for (int i = 0; i < 5000; ++i)
    {
        // Every fourth coordinate is whole.
        const auto next = [&]
        {
            const bool isWhole = random.Below(4) == 0;
            const double coordinate = random.Real(-4.0, 14.0);
            return isWhole ? std::floor(coordinate) : coordinate;
        };
        const double left = next();
        const double right = next();
        const double top = next();
        const double bottom = next();
        const int x0 = left > 0.0 ? static_cast<int>(left) : 0;
        const int x1 = right < kWidth ? static_cast<int>(right) : kWidth;
        const int y0 = top > 0.0 ? static_cast<int>(top) : 0;
        const int y1 = bottom < kHeight ? static_cast<int>(bottom) : kHeight;
        ASSERT_TRUE(Fills(TXRect(left, right, top, bottom), x0, x1, y0, y1));
    }
}

TEST_F(ImageFillRectTest, EdgesThatAreNoNumbersDoNoHarm)
{
    for (int odd = 1; odd < 16; ++odd)
        image->Fill(TXRect(odd & 1 ? kNaN : 1.0, odd & 2 ? kNaN : 3.0, odd & 4 ? kNaN : 1.0, odd & 8 ? kNaN : 3.0),
                    kColor);
    EXPECT_TRUE(Fills(TXRect(1, 3, 1, 3), 1, 3, 1, 3));
}

TEST_F(ImageFillRectTest, EveryFormatWithColorsGetsTheColor)
{
    for (int format = 4; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        image->CreateImage(8, 4, static_cast<TXImage::Format>(format));
        QImage twin = Pattern(8, 4, static_cast<QImage::Format>(format));
        QtImage(*image).fill(0);
        PaintPattern(QtImage(*image));

        image->Fill(TXRect(2, 6, 1, 3), kColor);
        for (int y = 1; y < 3; ++y)
            for (int x = 2; x < 6; ++x)
                twin.setPixelColor(x, y, SameChannels(kColor));
        EXPECT_TRUE(SameBytes(QtImage(*image), twin));
    }
}

TEST_F(ImageFillRectTest, TheDefaultFormatDoesNotMatter)
{
    for (const int format : {10, 15})
    {
        TXGraphicsEngineManager::instance("")->SetDefaultImageFormat(format);
        EXPECT_TRUE(Fills(TXRect(2, 4, 2, 4), 2, 4, 2, 4));
    }
}

TEST_F(ImageFillRectTest, FormatsWithoutColorsDoNotPrint)
{
    for (int format = 1; format <= 3; ++format)
    {
        image->CreateImage(8, 4, static_cast<TXImage::Format>(format));
        image->Fill(TXRect(0, 8, 0, 4), kColor);
    }
}

TEST_F(ImageFillRectTest, OnlyTheRectangleOfTheHostsMemoryIsWritten)
{
    std::vector<QRgb> memory(48, kBackground);
    // The middle third of the memory.
    image->CreateImage(reinterpret_cast<unsigned char*>(memory.data() + 16), 4, 4, TXImage::Format_ARGB32);
    image->Fill(TXRect(-100, 100, -100, 100), kColor);
    for (std::size_t i = 0; i < memory.size(); ++i)
        EXPECT_EQ(memory[i], i >= 16 && i < 32 ? kFilled : kBackground) << i;
}
