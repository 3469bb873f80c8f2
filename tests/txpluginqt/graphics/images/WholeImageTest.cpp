#include <tests/support/ImageCompare.h>

#include "ImageTest.h"

using namespace TZObjects;

namespace
{

/// An image of another backend, whose size is what it says and not what its pixels have.
class OtherImage : public TXImage
{
public:
    OtherImage(const QImage& source, int width, int height) : pixels(source), width(width), height(height)
    {
        internalObject = &pixels;
    }

    int GetWidth() override { return width; }
    int GetHeight() override { return height; }

    bool CreateCompatibleImage(const char*) override { return false; }
    bool CreateCompatibleImage(TXGraphics*, const int&, const int&) override { return false; }
    void* GetBits() override { return nullptr; }
    void SetBits(const void*, unsigned int) override {}
    bool Delete() override { return false; }
    bool CreateImage(const int&, const int&, Format) override { return false; }
    bool CreateImage(unsigned char*, const int&, const int&, Format) override { return false; }
    bool CreateImage(unsigned char*, const int&, const int&) override { return false; }
    bool Load(unsigned char*, const int&, const char*) override { return false; }
    void Save(const TXString&) const override {}
    void Save(const char*) const override {}
    void Fill(const TXRect&, const TXColor&) override {}
    void Fill(const TXColor&) override {}
    void Fill(unsigned int) override {}
    TXColor GetPixel(int, int) override { return {}; }
    void SetPixel(int, int, const TXColor&) override {}
    int GetByteCount() override { return 0; }

private:
    QImage pixels;
    int width;
    int height;
};

/// A whole image at the origin.
class WholeImageTest : public ImageTest
{
};

TEST_F(WholeImageTest, IsDrawnAtTheOriginAndPutsTheOpacityBack)
{
    const TXRefPtr<TXImage> source = NewSource(10, 10);
    Twins twins(100, 100);
    twins.Both([](QPainter& painter) { painter.setOpacity(0.8); });
    EXPECT_TRUE(twins.Surface().DrawImage(source.get(), 0.5));
    EXPECT_EQ(twins.Surface().GetOpacity(), 0.8);
    twins.Direct().setOpacity(0.5);
    twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source));
    twins.Direct().setOpacity(0.8);
    EXPECT_TRUE(SameInAll(twins));
    EXPECT_NE(twins.Actual(), Twins(100, 100).Expected());
}

TEST_F(WholeImageTest, KeepsEveryStateAndUsesIt)
{
    for (const QImage::Format format : DrawnFormats())
    {
        const TXRefPtr<TXImage> source = NewSource(50, 35, format);
        Twins twins(100, 80);
        Unsettle(twins);
        EXPECT_TRUE(twins.Surface().DrawImage(source.get(), 0.5));
        twins.Direct().setOpacity(0.5);
        twins.Direct().drawImage(QPoint(0, 0), PixelsOf(*source));
        twins.Direct().setOpacity(0.7);
        EXPECT_TRUE(SameInAll(twins)) << format;
    }
}

TEST_F(WholeImageTest, IsAsLargeAsTheImageSays)
{
    for (const QSize& size : {QSize(13, 22), QSize(30, 20), QSize(200, 200), QSize(13, 200)})
    {
        OtherImage source(Picture(30, 20, QImage::Format_ARGB32_Premultiplied), size.width(), size.height());
        Twins twins(100, 80);
        Unsettle(twins);
        EXPECT_TRUE(twins.Surface().DrawImage(&source, 0.5));
        const QRectF rect(QPointF(0.0, 0.0), QSizeF(size));
        twins.Direct().setOpacity(0.5);
        twins.Direct().drawImage(rect, Picture(30, 20, QImage::Format_ARGB32_Premultiplied), rect);
        twins.Direct().setOpacity(0.7);
        EXPECT_TRUE(SameInAll(twins)) << size.width() << " x " << size.height();
    }
}

TEST_F(WholeImageTest, OfNoneIsFalse)
{
    Twins twins(100, 80);
    Unsettle(twins);
    EXPECT_FALSE(twins.Surface().DrawImage(nullptr, 0.5));
    EXPECT_TRUE(SameInAll(twins));
    const TXRefPtr<TXGraphics> idle = TestEngine().NewGraphics();
    EXPECT_FALSE(idle->DrawImage(nullptr, 0.5));
}

TEST_F(WholeImageTest, IsTrueWhateverBecameOfIt)
{
    const TXRefPtr<TXImage> source = NewSource(30, 20);
    const TXRect rect(0, 30, 0, 20);

    const TXRefPtr<TXGraphics> withoutPainter = NewPaintingSurface();
    const QImage before = PixelsOf(*withoutPainter->GetImage()).copy();
    withoutPainter->Delete();
    EXPECT_FALSE(withoutPainter->DrawImage(rect, source.get(), rect, 1.0));
    EXPECT_TRUE(withoutPainter->DrawImage(source.get(), 1.0));
    EXPECT_TRUE(SamePixels(PixelsOf(*withoutPainter->GetImage()), before));

    const TXRefPtr<TXGraphics> withoutImage = TestEngine().NewGraphics();
    EXPECT_FALSE(withoutImage->DrawImage(rect, source.get(), rect, 1.0));
    EXPECT_TRUE(withoutImage->DrawImage(source.get(), 1.0));

    Twins twins(100, 80);
    Unsettle(twins);
    const TXRefPtr<TXImage> absent = TestEngine().NewImage();
    EXPECT_FALSE(twins.Surface().DrawImage(rect, absent.get(), rect, 0.5));
    EXPECT_TRUE(twins.Surface().DrawImage(absent.get(), 0.5));
    EXPECT_TRUE(SameInAll(twins));
}

TEST_F(WholeImageTest, WithoutPixelsIsTrueAndDrawsNothing)
{
    const TXRefPtr<TXImage> source = NewImageOf(QImage());
    Twins twins(100, 80);
    Unsettle(twins);
    EXPECT_TRUE(twins.Surface().DrawImage(source.get(), 0.5));
    EXPECT_TRUE(SameInAll(twins));
}

} // namespace
