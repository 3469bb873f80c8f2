#include <functional>

#include <tests/support/AllocationCount.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

constexpr int kSide = 2000;
/// Room for the description of an image, and far too little for pixels.
constexpr std::size_t kDescription = 2048;

/// What image drawing allocates. Nothing is copied where the image, or a part of it, can be drawn as it is.
class ImageAllocationTest : public ImageTest
{
protected:
    /// A large image. It is not converted from another format, for which Qt would start threads.
    static TXRefPtr<TXImage> NewLargeSource()
    {
        QImage pixels(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
        pixels.fill(QColor(90, 20, 30, 100));
        return NewImageOf(pixels);
    }

    /// Every way of drawing the image, or a part of it, unscaled.
    static std::vector<Allocations> OfUnscaledCalls(TXGraphics& surface, TXImage& image)
    {
        const TXRect whole(0, kSide, 0, kSide);
        const TXRect part(700, 800, 900, 950);
        const TXRect moved(20, 120, 10, 60);
        const TXRect over(-300, kSide - 300, -200, kSide - 200);
        const std::vector<std::function<bool()>> calls = {
            [&] { return surface.DrawImage(&image, 0.5); },
            [&] { return surface.DrawImage(whole, &image, whole, 0.5); },
            [&] { return surface.DrawImage(TXRect(0, 90, 0, 90), &image, TXRect(0, 90, 0, 90), 0.5); },
            [&] { return surface.DrawImage(moved, &image, part, 0.5); },
            [&] { return surface.DrawImage(over, &image, whole, 0.5); },
            [&] { return surface.DrawImage4BitmapRotate(whole, &image, whole, 0.0, 0.5); },
            [&] { return surface.DrawImage4BitmapRotate(moved, &image, part, 0.0, 0.5); },
        };
        std::vector<Allocations> allocations;
        for (const auto& call : calls)
            allocations.push_back(AllocationsOf([&] { EXPECT_TRUE(call()); }));
        return allocations;
    }
};

TEST_F(ImageAllocationTest, AWholeImageTakesNothing)
{
    const TXRefPtr<TXImage> source = NewSource(100, 80);
    Twins twins(160, 120);
    twins.SurfacePainter().setRenderHint(QPainter::Antialiasing, false);
    const TXRect whole(0, 100, 0, 80);
    const TXRect moved(20, 120, 10, 90);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_TRUE(twins.Surface().DrawImage(source.get(), 0.5)); }).count, 0u);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_TRUE(twins.Surface().DrawImage(whole, source.get(), whole, 0.5)); }).count,
              0u);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_TRUE(twins.Surface().DrawImage(moved, source.get(), whole, 0.5)); }).count,
              0u);
}

TEST_F(ImageAllocationTest, ARotatedImageTakesWhatQtTakes)
{
    const TXRefPtr<TXImage> source = NewSource(100, 80);
    Twins twins(160, 120);
    const TXRect whole(0, 100, 0, 80);
    const TXRect moved(20, 120, 10, 90);
    const Allocations direct = AllocationsOf(
        [&]
        {
            twins.SurfacePainter().save();
            twins.SurfacePainter().translate(70, 50);
            twins.SurfacePainter().rotate(30);
            twins.SurfacePainter().translate(-70, -50);
            twins.SurfacePainter().drawImage(QPointF(20, 10), PixelsOf(*source));
            twins.SurfacePainter().restore();
        });
    for (const TXRect& dst : {whole, moved})
    {
        const Allocations surface = AllocationsOf(
            [&] { EXPECT_TRUE(twins.Surface().DrawImage4BitmapRotate(dst, source.get(), whole, 30.0, 1.0)); });
        EXPECT_LE(surface.count, direct.count);
        EXPECT_LE(surface.bytes, direct.bytes);
    }
}

TEST_F(ImageAllocationTest, APartOfALargeImageTakesNoPixels)
{
    const TXRefPtr<TXImage> source = NewLargeSource();
    Twins twins(160, 120);
    for (const Allocations& allocations : OfUnscaledCalls(twins.Surface(), *source))
        EXPECT_LT(allocations.bytes, kDescription);
}

TEST_F(ImageAllocationTest, APartOfALargeImageInACallersMemoryTakesNoPixels)
{
    std::vector<unsigned char> memory(static_cast<std::size_t>(kSide) * kSide * 4);
    const TXRefPtr<TXImage> source = TestEngine().NewImage();
    source->CreateImage(memory.data(), kSide, kSide, TXImage::Format_ARGB32_Premultiplied);
    Twins twins(160, 120);
    for (const Allocations& allocations : OfUnscaledCalls(twins.Surface(), *source))
        EXPECT_LT(allocations.bytes, kDescription);
}

TEST_F(ImageAllocationTest, APartOfALayerThatIsStillPaintedTakesNoPixels)
{
    // Qt copies an image that is being painted as soon as it is passed by value.
    const TXRefPtr<TXImage> image = NewLargeSource();
    const TXRefPtr<TXGraphics> layer = TestEngine().NewGraphics();
    layer->SelectImage(image);
    Twins twins(160, 120);
    for (const Allocations& allocations : OfUnscaledCalls(twins.Surface(), *image))
        EXPECT_LT(allocations.bytes, kDescription);
}

TEST_F(ImageAllocationTest, AWholeLayerThatIsStillPaintedIsScaledWithoutACopy)
{
    const TXRefPtr<TXImage> image = NewLargeSource();
    const TXRefPtr<TXGraphics> layer = TestEngine().NewGraphics();
    layer->SelectImage(image);
    Twins twins(160, 120);
    const TXRect whole(0, kSide, 0, kSide);
    const TXRect small(20, 120, 10, 60);
    EXPECT_LT(AllocationsOf([&] { EXPECT_TRUE(twins.Surface().DrawImage(small, image.get(), whole, 0.5)); }).bytes,
              160u * 120u * 4u * 2u);
}

TEST_F(ImageAllocationTest, ScalingTakesTheSizeThatIsDrawn)
{
    const TXRefPtr<TXImage> source = NewLargeSource();
    Twins twins(160, 120);
    // The whole of it would be drawn in a hundred million pixels. Of the smaller part less than a pixel is left, which
    // is taken for the whole image.
    for (const TXRect& part : {TXRect(700, 900, 900, 1100), TXRect(700, 720, 900, 920)})
        EXPECT_LT(
            AllocationsOf(
                [&]
                { EXPECT_TRUE(twins.Surface().DrawImage(TXRect(-5000, 5000, -5000, 5000), source.get(), part, 1.0)); })
                .bytes,
            160u * 120u * 4u * 2u);
}

TEST_F(ImageAllocationTest, WhatIsRefusedOrOutsideTakesNothing)
{
    const TXRefPtr<TXImage> source = NewSource(100, 80);
    Twins twins(160, 120);
    TXGraphics& surface = twins.Surface();
    const TXRect dst(10, 60, 10, 60);
    const TXRect huge(-1e6, 1e6, -1e6, 1e6);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_FALSE(surface.DrawImage(dst, source.get(), huge, 1.0)); }).count, 0u);
    EXPECT_EQ(
        AllocationsOf([&] { EXPECT_FALSE(surface.DrawImage4BitmapRotate(dst, source.get(), huge, 9.0, 1.0)); }).count,
        0u);
    EXPECT_EQ(
        AllocationsOf([&] { EXPECT_TRUE(surface.DrawImage(TXRect(500, 600, 0, 50), source.get(), huge, 1.0)); }).count,
        0u);
    EXPECT_EQ(
        AllocationsOf([&] { EXPECT_FALSE(surface.DrawImage(TXRect(-50, 0, 0, 50), source.get(), huge, 1.0)); }).count,
        0u);
}

} // namespace
