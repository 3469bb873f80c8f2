// Images that cairo can draw on and images that it cannot, and targets that change under the surface.
#include <cstdint>
#include <vector>

#include <QBuffer>

#include <tests/support/ImageCompare.h>
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

using namespace TZObjects;

namespace
{

/// Memory of the host's with a margin before and after that nobody may touch.
class GuardedMemory
{
public:
    explicit GuardedMemory(std::size_t size) : bytes(kMargin + size + kMargin, kFresh), size(size) {}

    unsigned char* Data() { return bytes.data() + kMargin; }
    bool IsFresh() const { return Count(0, bytes.size()) == bytes.size(); }
    bool IsFreshOutside() const
    {
        return Count(0, kMargin) == kMargin && Count(kMargin + size, bytes.size()) == kMargin;
    }

private:
    static constexpr std::size_t kMargin = 1 << 16;
    static constexpr unsigned char kFresh = 0xAB;

    std::size_t Count(std::size_t from, std::size_t to) const
    {
        std::size_t fresh = 0;
        for (std::size_t i = from; i < to; ++i)
            fresh += bytes[i] == kFresh;
        return fresh;
    }

    std::vector<unsigned char> bytes;
    std::size_t size;
};

TXRefPtr<TXGraphics> NewSurface()
{
    TXRefPtr<TXGraphics> surface(TestEngine().NewGraphics());
    surface->SelectFont(MakeFont(Look()));
    surface->SelectPen(NewPen(Look()));
    return surface;
}

/// A label over the whole of a small image.
ShortLabel BigCall()
{
    ShortLabel call;
    call.x = call.y = call.left = call.top = call.dx = call.dy = 0;
    call.text = L"HHHH\nHHHH";
    call.scale = 3;
    return call;
}

QImage& Pixels(TXImage& image) { return *static_cast<QImage*>(image.GetInternalObject()); }

/// Selects the image in a surface with cairo on, by both ways, and expects that every label answers false.
void ExpectRefused(TXImage& image)
{
    const TXRefPtr<TXGraphics> before = NewSurface();
    before->EnableCairoDrawing(true);
    before->SelectImage(&image);
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*before, entry, BigCall())) << entry;
    before->SelectImage(nullptr);

    const TXRefPtr<TXGraphics> after = NewSurface();
    after->SelectImage(&image);
    after->EnableCairoDrawing(true);
    EXPECT_TRUE(after->CairoDrawingEnabled());
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*after, entry, BigCall())) << entry;

    // The surface goes on with an image that cairo can draw on.
    TXRefPtr<TXImage> good = NewImage(60, 40, TXImage::Format_ARGB32_Premultiplied);
    good->Fill(TXColor::WHITE_);
    after->SelectImage(good);
    EXPECT_TRUE(::Draw(*after, Entry::StringAt, BigCall()));
    EXPECT_GT(InkedPixels(Pixels(*good)), 0);
}

class Targets : public QuietTest
{
};

TEST_F(Targets, OfOtherThan32BitsMakeLabelsFalse)
{
    for (const int format : {1, 2, 3, 7, 8, 9, 10, 11, 12, 13, 14, 15, 23, 24})
    {
        SCOPED_TRACE(format);
        TXRefPtr<TXImage> image = NewImage(37, 9, static_cast<TXImage::Format>(format));
        image->Fill(0u);
        const QImage before = Pixels(*image).copy();
        ExpectRefused(*image);
        EXPECT_TRUE(Pixels(*image) == before);
    }
}

TEST_F(Targets, InTheHostsMemoryAreNeverOverrun)
{
    for (const int format : {1, 3, 7, 8, 9, 10, 11, 13, 14, 15})
    {
        SCOPED_TRACE(format);
        const QImage shape(37, 9, static_cast<QImage::Format>(format));
        GuardedMemory memory(static_cast<std::size_t>(shape.sizeInBytes()));
        TXRefPtr<TXImage> image(TestEngine().NewImage());
        image->CreateImage(memory.Data(), 37, 9, static_cast<TXImage::Format>(format));
        ExpectRefused(*image);
        image->Delete();
        EXPECT_TRUE(memory.IsFresh());
    }
}

TEST_F(Targets, InTheHostsMemoryOf32BitsAreDrawnInPlace)
{
    for (const auto format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied, TXImage::Format_RGB32})
    {
        GuardedMemory memory(37 * 4 * 9);
        TXRefPtr<TXImage> image(TestEngine().NewImage());
        image->CreateImage(memory.Data(), 37, 9, format);
        QImage expected = Pixels(*image).copy();
        const TXRefPtr<TXGraphics> surface = NewSurface();
        surface->SelectImage(image);
        surface->EnableCairoDrawing(true);
        {
            DirectCairo direct(expected, DirectCairo::Switched);
            direct.Select(Look());
            for (const Entry entry : kAllEntries)
            {
                EXPECT_TRUE(::Draw(*surface, entry, BigCall())) << entry;
                DrawDirectly(direct, entry, BigCall(), Look());
            }
        }
        const QImage inPlace(memory.Data(), 37, 9, static_cast<QImage::Format>(static_cast<int>(format)));
        EXPECT_TRUE(SamePixels(inPlace, expected));
        EXPECT_FALSE(memory.IsFresh());
        EXPECT_TRUE(memory.IsFreshOutside());
        surface->SelectImage(nullptr);
    }
}

TEST_F(Targets, WiderOrHigherThanCairoReachesMakeLabelsFalse)
{
    for (const bool wide : {true, false})
    {
        const int width = wide ? 32768 : 2;
        const int height = wide ? 2 : 32768;
        TXRefPtr<TXImage> image = NewImage(width, height, TXImage::Format_ARGB32_Premultiplied);
        image->Fill(TXColor::WHITE_);
        ExpectRefused(*image);
        EXPECT_EQ(InkedPixels(Pixels(*image)), 0);

        TXRefPtr<TXImage> largest = NewImage(wide ? 32767 : 32, wide ? 2 : 32767, TXImage::Format_ARGB32_Premultiplied);
        largest->Fill(TXColor::WHITE_);
        const TXRefPtr<TXGraphics> surface = NewSurface();
        surface->SelectImage(largest);
        surface->EnableCairoDrawing(true);
        ShortLabel call = BigCall();
        call.y = -30;
        EXPECT_TRUE(::Draw(*surface, Entry::StringAt, call));
        EXPECT_GT(InkedPixels(Pixels(*largest)), 0);
    }
}

TEST_F(Targets, WithoutPixelsMakeLabelsFalse)
{
    TXRefPtr<TXImage> absent(TestEngine().NewImage());
    const TXRefPtr<TXGraphics> surface = NewSurface();
    surface->EnableCairoDrawing(true);
    surface->SelectImage(absent);
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(*surface, entry, BigCall())) << entry;
    surface->EnableCairoDrawing(false);
    surface->EnableCairoDrawing(true);
    EXPECT_FALSE(::Draw(*surface, Entry::StringAt, BigCall()));

    TXRefPtr<TXImage> empty = NewImage(0, 0, TXImage::Format_ARGB32);
    surface->SelectImage(empty);
    EXPECT_FALSE(::Draw(*surface, Entry::StringAt, BigCall()));
}

TEST_F(Targets, DeletedUnderTheSurfaceMakeLabelsFalse)
{
    CairoTwins twins;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, BigCall()));
    twins.Image().Delete();
    for (const Entry entry : kAllEntries)
        EXPECT_FALSE(::Draw(twins.Surface(), entry, BigCall())) << entry;
    twins.Surface().EnableCairoDrawing(false);
    twins.Surface().EnableCairoDrawing(true);
    EXPECT_FALSE(::Draw(twins.Surface(), Entry::StringAt, BigCall()));
}

/// What a label draws on white pixels after a change of the image, with the face that was selected before.
void ExpectDrawnOnNewPixels(CairoTwins& twins, const Look& look)
{
    twins.Image().Fill(TXColor::WHITE_);
    QImage expected = twins.Actual().copy();
    {
        DirectCairo direct(expected, DirectCairo::Selected);
        direct.Select(look);
        DrawDirectly(direct, Entry::StringAt, BigCall(), look);
    }
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, BigCall()));
    EXPECT_TRUE(SamePixels(twins.Actual(), expected));
    EXPECT_GT(InkedPixels(twins.Actual()), 0);
}

TEST_F(Targets, CreatedAnewUnderTheSurfaceAreDrawnOn)
{
    Look look;
    look.bold = true;
    CairoTwins twins(look);
    // Larger, smaller, the same, and after a time without pixels.
    twins.Image().CreateImage(400, 300, TXImage::Format_ARGB32_Premultiplied);
    ExpectDrawnOnNewPixels(twins, look);
    twins.Image().CreateImage(50, 40, TXImage::Format_ARGB32);
    ExpectDrawnOnNewPixels(twins, look);
    twins.Image().Delete();
    EXPECT_FALSE(::Draw(twins.Surface(), Entry::StringAt, BigCall()));
    twins.Image().CreateCompatibleImage(nullptr, 90, 70);
    ExpectDrawnOnNewPixels(twins, look);
    twins.Image().CreateImage(90, 70, TXImage::Format_RGB16);
    EXPECT_FALSE(::Draw(twins.Surface(), Entry::StringAt, BigCall()));
    twins.Image().CreateImage(90, 70, TXImage::Format_ARGB32);
    ExpectDrawnOnNewPixels(twins, look);
}

TEST_F(Targets, LoadedUnderTheSurfaceAreDrawnOn)
{
    QImage picture(70, 50, QImage::Format_ARGB32);
    picture.fill(QColor(10, 20, 30, 40));
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(picture.save(&buffer, "PNG"));
    buffer.close();

    CairoTwins twins;
    ASSERT_TRUE(twins.Image().Load(reinterpret_cast<unsigned char*>(file.data()), file.size(), nullptr));
    ASSERT_EQ(twins.Actual().size(), picture.size());
    ExpectDrawnOnNewPixels(twins, Look());
    twins.Image().SetBits(file.constData(), static_cast<unsigned int>(file.size()));
    ExpectDrawnOnNewPixels(twins, Look());
}

TEST_F(Targets, OutliveTheHostsReferenceAsLongAsTheSurfaceHoldsThem)
{
    const TXRefPtr<TXGraphics> surface = NewSurface();
    TXRefPtr<TXImage> image = NewImage(60, 40, TXImage::Format_ARGB32_Premultiplied);
    image->Fill(TXColor::WHITE_);
    surface->SelectImage(image);
    surface->EnableCairoDrawing(true);
    image = nullptr;
    EXPECT_TRUE(::Draw(*surface, Entry::StringAt, BigCall()));
    EXPECT_GT(InkedPixels(Pixels(*surface->GetImage())), 0);
}

} // namespace
