#include <functional>
#include <vector>

#include <QBuffer>

#include "ShapeCalls.h"
#include "SurfaceTest.h"
#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>

using namespace TZObjects;

namespace
{

/// What can happen to an image while a surface paints on it. The surface follows its image.
class HostileImagesTest : public SurfaceTest
{
protected:
    static std::vector<unsigned char> Png(int width, int height)
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        return {bytes.begin(), bytes.end()};
    }

    /// Success when what the surface draws arrives in the image as it is now.
    static ::testing::AssertionResult PaintsOn(TXGraphics& surface, TXImage& image)
    {
        image.Fill(TXColor::WHITE_);
        surface.fillRect(TXRect(1, 4, 1, 4), TXColor::RED_);
        if (image.GetPixel(2, 2).GetColor() == 0xffff0000u && image.GetPixel(8, 8).GetColor() == 0xffffffffu)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "what is drawn does not arrive in the image";
    }
};

TEST_F(HostileImagesTest, PaintingEndsWithTheImage)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    image->Delete();
    EXPECT_EQ(surface->GetImage(), image);
    EXPECT_TRUE(!surface->GetInteralObject() || !PainterOf(*surface).isActive());
    DrawEverything(*surface);
    ChangeEverything(*surface);
    surface->ClearWithColor(TXColor::RED_);
    EXPECT_FALSE(surface->Save(TXString("absent.png")));
}

TEST_F(HostileImagesTest, PaintingGoesOnInTheNewPixels)
{
    std::vector<unsigned char> png = Png(30, 20);
    std::vector<unsigned char> bits(40 * 30 * 4);
    const std::vector<std::function<void(TXImage&)>> changes = {
        [](TXImage& image) { image.CreateImage(50, 30, TXImage::Format_ARGB32_Premultiplied); },
        [](TXImage& image) { image.CreateImage(60, 40, TXImage::Format_RGB32); },
        [](TXImage& image) { image.CreateCompatibleImage(nullptr, 20, 20); },
        [&](TXImage& image) { image.CreateImage(bits.data(), 40, 30, TXImage::Format_ARGB32); },
        [&](TXImage& image) { image.CreateImage(bits.data(), 40, 30); },
        [&](TXImage& image) { image.Load(png.data(), static_cast<int>(png.size()), nullptr); },
        [&](TXImage& image) { image.SetBits(png.data(), static_cast<unsigned>(png.size())); },
        [](TXImage& image)
        {
            image.Delete();
            image.CreateImage(20, 20, TXImage::Format_ARGB32);
        },
        [](TXImage& image)
        {
            image.CreateImage(20, 20, TXImage::Format_Indexed8);
            image.CreateImage(20, 20, TXImage::Format_ARGB32);
        },
        [](TXImage& image)
        {
            image.CreateCompatibleImage("/no/such/file.png");
            image.CreateImage(20, 20, TXImage::Format_ARGB32);
        },
    };
    for (std::size_t i = 0; i < changes.size(); ++i)
    {
        SCOPED_TRACE(i);
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        const TXRefPtr<TXImage> image = surface->GetImage();
        const TXRefPtr<TXPen> pen = NewPen(TXColor(9, 8, 7, 200), 3.5);
        const TXRefPtr<TXBrush> brush = NewBrush(TXColor(70, 80, 90, 100));
        surface->SelectPen(pen);
        surface->SelectBrush(brush);
        surface->SetWindowOrg(100, 100);
        surface->SetOpacity(0.5);
        PainterOf(*surface).setClipRect(0, 0, 1, 1);
        changes[i](*image);
        EXPECT_EQ(surface->GetImage(), image);
        DrawEverything(*surface);
        surface->SelectBrush(brush);
        surface->SelectPen(pen);
        EXPECT_TRUE(PaintsOn(*surface, *image));
        EXPECT_EQ(PainterOf(*surface).device(), &PixelsOf(*image));
        EXPECT_TRUE(PainterOf(*surface).transform().isIdentity());
        EXPECT_EQ(surface->GetOpacity(), 1.0);
        EXPECT_FALSE(PainterOf(*surface).hasClipping());
    }
}

TEST_F(HostileImagesTest, AntialiasingCarriesOverToTheNewPixels)
{
    for (const bool antialiased : {true, false})
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
        surface->EnableAntialiasing(antialiased);
        PainterOf(*surface).setRenderHint(QPainter::SmoothPixmapTransform);
        surface->GetImage()->CreateImage(50, 30, TXImage::Format_ARGB32_Premultiplied);
        EXPECT_TRUE(surface->fillRect(TXRect(1, 2, 1, 2), TXColor::RED_));
        EXPECT_EQ(PainterOf(*surface).renderHints(), FreshHints() | QPainter::SmoothPixmapTransform |
                                                         (antialiased ? kAntialiasing : QPainter::RenderHints()));
    }
}

TEST_F(HostileImagesTest, NewPixelsAreNotAntialiasedWhereTheManagerSaysSo)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    TXGraphicsEngineManager::instance("")->EnableAntialiasing(false);
    surface->GetImage()->CreateImage(50, 30, TXImage::Format_ARGB32_Premultiplied);
    EXPECT_TRUE(surface->fillRect(TXRect(1, 2, 1, 2), TXColor::RED_));
    EXPECT_EQ(PainterOf(*surface).renderHints(), FreshHints());
}

TEST_F(HostileImagesTest, TheSelectionIsAppliedToTheNewPixels)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const auto [pen, brush, font] = SelectResources(*surface);
    surface->GetImage()->CreateImage(30, 30, TXImage::Format_ARGB32_Premultiplied);
    // What the surface draws next is drawn in the new pixels with the selected pen and brush.
    PixelsOf(*surface->GetImage()).fill(Qt::white);
    EXPECT_TRUE(surface->Rectangle(5, 5, 15, 15));
    QImage expected(30, 30, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    QPainter direct(&expected);
    direct.setRenderHints(kAntialiasing);
    direct.setPen(PenOf(*pen));
    direct.setBrush(BrushOf(*brush));
    direct.drawRect(5, 5, 15, 15);
    EXPECT_EQ(PixelsOf(*surface->GetImage()), expected);
    EXPECT_EQ(PainterOf(*surface).font(), FontOf(*font));
}

TEST_F(HostileImagesTest, ASurfaceOverAnImageFollowsIt)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    image->CreateImage(30, 20, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsOn(*surface, *image));
    image->Delete();
    DrawEverything(*surface);
    image->CreateImage(20, 20, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsOn(*surface, *image));
}

TEST_F(HostileImagesTest, ASurfaceOverAnImageOutlivesIt)
{
    TXRefPtr<TXImage> image = NewPaintedImage();
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
    image = nullptr;
    DrawEverything(*surface);
    ChangeEverything(*surface);
    surface->SelectImage(NewPaintedImage());
    EXPECT_TRUE(!surface->GetInteralObject() || !surface->GetImage() || PaintsOn(*surface, *surface->GetImage()));
}

TEST_F(HostileImagesTest, ASurfaceOverAnAbsentImage)
{
    const TXRefPtr<TXImage> absent = TestEngine().NewImage();
    const TXRefPtr<TXImage> indexed = TestEngine().NewImage();
    indexed->CreateImage(20, 20, TXImage::Format_Indexed8);
    for (const TXRefPtr<TXImage>& image : {absent, indexed})
    {
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(image.get());
        DrawEverything(*surface);
        ChangeEverything(*surface);
        surface->Delete();
    }
}

TEST_F(HostileImagesTest, TwoSurfacesSelectTheSame)
{
    const TXRefPtr<TXImage> image = NewPaintedImage();
    TXRefPtr<TXGraphics> one = TestEngine().NewGraphics();
    one->SelectImage(image);
    TXRefPtr<TXGraphics> other = TestEngine().NewGraphics();
    other->SelectImage(image);
    EXPECT_EQ(other->GetImage(), image);
    for (const TXRefPtr<TXGraphics>& surface : {one, other})
    {
        DrawEverything(*surface);
        ChangeEverything(*surface);
        surface->ClearWithColor(TXColor::WHITE_);
    }
    image->CreateImage(30, 20, TXImage::Format_ARGB32);
    DrawEverything(*one);
    DrawEverything(*other);
    const TXRefPtr<TXGraphics> over = TestEngine().NewGraphics(image.get());
    DrawEverything(*over);
    over->Delete();
    one->CreateCompatibleGraphics(30, 20);
    DrawEverything(*one);
    DrawEverything(*other);
    image->Delete();
    image->CreateImage(30, 20, TXImage::Format_ARGB32);
    one = nullptr;
    DrawEverything(*other);
    other->SelectImage(nullptr);
    other->SelectImage(image);
    EXPECT_TRUE(PaintsOn(*other, *image)) << "alone, it paints";
    other = nullptr;
    EXPECT_FALSE(PixelsOf(*image).paintingActive());
}

TEST_F(HostileImagesTest, RemadeWhileAPainterIsAttached)
{
    QImage canvas(60, 40, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter outside(&canvas);
    outside.setPen(QPen(Qt::green, 3.0));
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXImage> image = surface->GetImage();
    surface->Attach(&outside);
    image->Delete();
    EXPECT_EQ(surface->GetInteralObject(), &outside);
    EXPECT_TRUE(outside.isActive());
    EXPECT_EQ(outside.pen(), QPen(Qt::green, 3.0));
    image->CreateImage(30, 20, TXImage::Format_ARGB32);
    EXPECT_EQ(outside.pen(), QPen(Qt::green, 3.0));
    EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::RED_));
    EXPECT_EQ(canvas.pixel(30, 20), qRgb(255, 0, 0));
    surface->Detach();
    EXPECT_TRUE(PaintsOn(*surface, *image));
}

TEST_F(HostileImagesTest, OnesThatCannotBeDrawnAreBlitted)
{
    const TXRefPtr<TXGraphics> target = NewPaintingSurface();
    for (const int format : {TXImage::Format_Indexed8, TXImage::Format_Mono, TXImage::Format_Alpha8})
    {
        const TXRefPtr<TXImage> image = TestEngine().NewImage();
        image->CreateImage(20, 20, static_cast<TXImage::Format>(format));
        image->Fill(1u);
        const TXRefPtr<TXGraphics> source = TestEngine().NewGraphics();
        source->SelectImage(image);
        source->BiltTo(target.get(), 5, 5);
        target->StretchBlt(TXRect(0, 9, 0, 9), source.get(), TXRect(0, 20, 0, 20));
    }
    EXPECT_TRUE(PaintsOn(*target, *target->GetImage()));
}

TEST_F(HostileImagesTest, IndicesBeyondTheColoursAreTransparentInBlitsAndTextures)
{
    const TXRefPtr<TXImage> image = TestEngine().NewImage();
    image->CreateImage(20, 20, TXImage::Format_Indexed8);
    QImage& indices = PixelsOf(*image);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            indices.scanLine(y)[x] = static_cast<uchar>((x + y) % 3 == 0 ? 1 : 200 + x);
    indices.setColorTable({0xff102030u, 0xff506070u});
    QImage looks = indices.copy();
    looks.setColorTable(QVector<QRgb>(256, 0u));
    looks.setColor(1, 0xff506070u);

    const TXRefPtr<TXGraphics> source = TestEngine().NewGraphics();
    source->SelectImage(image);
    Twins blitted;
    EXPECT_TRUE(source->BiltTo(&blitted.Surface(), 5, 7));
    blitted.Direct().drawImage(5, 7, looks);
    EXPECT_TRUE(blitted.SameWithState());

    const TXRefPtr<TXBrush> brush = TestEngine().NewBrush();
    brush->Create(TXColor::RED_, TXBrush::SolidBrush);
    brush->SetTextureImage(image);
    Twins filled;
    filled.Surface().SelectBrush(brush);
    EXPECT_TRUE(filled.Surface().Rectangle(10, 10, 60, 50));
    QBrush direct(Qt::red);
    direct.setTextureImage(looks);
    filled.Direct().setBrush(direct);
    filled.Direct().drawRect(10, 10, 60, 50);
    EXPECT_TRUE(filled.Same());
}

TEST_F(HostileImagesTest, ClearedWhileTheyArePaintedOnInEveryFormat)
{
    for (int format = QImage::Format_RGB32; format < QImage::NImageFormats; ++format)
    {
        SCOPED_TRACE(format);
        const TXRefPtr<TXImage> image = TestEngine().NewImage();
        image->CreateImage(20, 10, static_cast<TXImage::Format>(format));
        QImage expected(20, 10, static_cast<QImage::Format>(format));
        expected.fill(QColor(200, 100, 50, 255));
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->SelectImage(image);
        EXPECT_TRUE(surface->ClearWithColor(TXColor(200, 100, 50, 255)));
        EXPECT_TRUE(SamePixels(PixelsOf(*image), expected));
    }
}

TEST_F(HostileImagesTest, BlittedOntoItself)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    EXPECT_TRUE(surface->BiltTo(surface.get(), 5, 5));
    EXPECT_TRUE(surface->BiltTo(surface.get(), -5, 0));
    EXPECT_TRUE(PaintsOn(*surface, *surface->GetImage()));
}

TEST_F(HostileImagesTest, AttachedToItsOwnPainter)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->Attach(surface->GetInteralObject());
    DrawEverything(*surface);
    surface->SelectImage(NewPaintedImage());
    DrawEverything(*surface);
    surface->Attach(surface->GetInteralObject());
    surface->Detach();
    surface->SelectBrush(NewBrush(TXColor::RED_));
    EXPECT_TRUE(PaintsOn(*surface, *surface->GetImage()));
    surface->Attach(surface->GetInteralObject());
    surface->Delete();
    DrawEverything(*surface);
}

} // namespace
