#include "Images.h"
#include "ResourceTest.h"

#include <vector>

#include <QPainter>
#include <QTemporaryDir>
#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

constexpr QRgb kGreen = 0xff00ff00u;

// Surfaces that paint into an image while the image changes.
class ImageFollowTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(image);
        ASSERT_TRUE(surface);
        image->CreateImage(6, 6, TXImage::Format_ARGB32_Premultiplied);
        image->Fill(TXColor::BLACK_);
        surface->SelectImage(image);
        ASSERT_TRUE(PaintsIntoTheImage());
    }

    // Whether a filled rectangle of the surface appears in the image as it is now.
    bool PaintsIntoTheImage() { return PaintsIntoTheImage(*surface); }
    bool PaintsIntoTheImage(TXGraphics& by)
    {
        image->Fill(TXColor::BLACK_);
        by.fillRect(TXRect(0, 2, 0, 2), TXColor(0, 255, 0, 255));
        return image->GetPixel(1, 1).GetColor() == kGreen;
    }

    TXRefPtr<TXImage> image{TestEngine().NewImage()};
    TXRefPtr<TXGraphics> surface{TestEngine().NewGraphics()};
};

} // namespace

TEST_F(ImageFollowTest, PaintingGoesOnAfterEveryCreatingOperation)
{
    std::vector<QRgb> memory(64, 0xff000000u);
    auto* const bytes = reinterpret_cast<unsigned char*>(memory.data());
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath("a.png").toUtf8();
    ASSERT_TRUE(Pattern(7, 7, QImage::Format_ARGB32).save(folder.filePath("a.png")));
    QByteArray file = Encoded(Pattern(9, 9, QImage::Format_ARGB32), "PNG");
    auto* const data = reinterpret_cast<unsigned char*>(file.data());

    EXPECT_TRUE(image->CreateImage(20, 20, TXImage::Format_RGB32));
    EXPECT_TRUE(PaintsIntoTheImage());
    EXPECT_TRUE(image->CreateImage(bytes, 8, 8, TXImage::Format_ARGB32));
    EXPECT_TRUE(PaintsIntoTheImage());
    EXPECT_EQ(memory[9], kGreen);
    EXPECT_TRUE(image->CreateImage(bytes, 4, 4));
    EXPECT_TRUE(PaintsIntoTheImage());
    EXPECT_EQ(memory[5], kGreen);
    EXPECT_TRUE(image->CreateCompatibleImage(nullptr, 5, 5));
    EXPECT_TRUE(PaintsIntoTheImage());
    EXPECT_TRUE(image->CreateCompatibleImage(path.constData()));
    EXPECT_TRUE(PaintsIntoTheImage());
    EXPECT_TRUE(image->Load(data, file.size(), nullptr));
    EXPECT_TRUE(PaintsIntoTheImage());
    image->SetBits(data, static_cast<unsigned int>(file.size()));
    EXPECT_TRUE(PaintsIntoTheImage());
}

TEST_F(ImageFollowTest, RefusedArgumentsDoNotDisturbPainting)
{
    unsigned char byte = 0;
    EXPECT_FALSE(image->Load(nullptr, 10, nullptr));
    EXPECT_FALSE(image->Load(&byte, 0, nullptr));
    EXPECT_FALSE(image->CreateCompatibleImage(nullptr));
    image->SetBits(&byte, 0x80000000u);
    EXPECT_TRUE(PaintsIntoTheImage());
}

TEST_F(ImageFollowTest, PaintingEndsWithThePixelsAndBeginsWithNewOnes)
{
    unsigned char noImage[] = "no image";
    const auto expectNothingToPaintOn = [this]
    {
        surface->fillRect(TXRect(0, 2, 0, 2), TXColor(0, 255, 0, 255));
        EXPECT_EQ(image->GetPixel(1, 1).GetColor(), TXColor().GetColor());
    };
    image->Delete();
    expectNothingToPaintOn();
    image->CreateImage(4, 4, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsIntoTheImage());

    EXPECT_FALSE(image->Load(noImage, sizeof noImage, nullptr));
    expectNothingToPaintOn();
    image->CreateImage(4, 4, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsIntoTheImage());

    EXPECT_FALSE(image->CreateCompatibleImage("/no such folder/no such file.png"));
    expectNothingToPaintOn();
    image->CreateImage(4, 4, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsIntoTheImage());

    image->SetBits(noImage, sizeof noImage);
    expectNothingToPaintOn();
    image->CreateImage(4, 4, TXImage::Format_Indexed8);
    surface->fillRect(TXRect(0, 2, 0, 2), TXColor(0, 255, 0, 255));
    image->CreateImage(0, 0, TXImage::Format_ARGB32);
    expectNothingToPaintOn();
    image->CreateImage(4, 4, TXImage::Format_ARGB32);
    EXPECT_TRUE(PaintsIntoTheImage());
}

TEST_F(ImageFollowTest, SelectionAndHintsCarryOver)
{
    const TXRefPtr<TXPen> pen(TestEngine().NewPen());
    pen->Create(TXPen::SolidLine, 3.0, TXColor::RED_, TXPen::FlatCap, TXPen::BevelJoin);
    surface->SelectPen(pen);
    const TXRefPtr<TXBrush> brush(TestEngine().NewBrush());
    brush->Create(TXColor(1, 2, 3, 4), TXBrush::CrossHatch);
    surface->SelectBrush(brush);
    surface->EnableAntialiasing(true);

    image->CreateImage(20, 20, TXImage::Format_ARGB32);

    const auto* const painter = static_cast<QPainter*>(surface->GetInteralObject());
    ASSERT_TRUE(painter->isActive());
    EXPECT_EQ(painter->device(), &QtImage(*image));
    EXPECT_EQ(painter->pen(), *static_cast<QPen*>(pen->GetInternalObject()));
    EXPECT_EQ(painter->brush(), *static_cast<QBrush*>(brush->GetInternalObject()));
    EXPECT_TRUE(painter->testRenderHint(QPainter::Antialiasing));
    EXPECT_EQ(surface->GetImage(), image);
}

TEST_F(ImageFollowTest, ASurfaceMadeOnAnImageFollowsItToo)
{
    const TXRefPtr<TXImage> other(TestEngine().NewImage());
    other->CreateImage(5, 5, TXImage::Format_ARGB32);
    other->Fill(TXColor::BLACK_);
    image = other;
    const TXRefPtr<TXGraphics> onImage(TestEngine().NewGraphics(other.get()));
    EXPECT_TRUE(PaintsIntoTheImage(*onImage));
    other->CreateImage(9, 9, TXImage::Format_RGB32);
    EXPECT_TRUE(PaintsIntoTheImage(*onImage));
    other->Delete();
    onImage->fillRect(TXRect(0, 2, 0, 2), TXColor::RED_);
    other->CreateImage(3, 3, TXImage::Format_RGB32);
    EXPECT_TRUE(PaintsIntoTheImage(*onImage));
}

TEST_F(ImageFollowTest, AnImageMayEndBeforeASurfaceThatDoesNotHoldIt)
{
    TXRefPtr<TXImage> ending(TestEngine().NewImage());
    ending->CreateImage(5, 5, TXImage::Format_ARGB32);
    const TXRefPtr<TXGraphics> onImage(TestEngine().NewGraphics(ending.get()));
    ending = nullptr;
    onImage->fillRect(TXRect(0, 2, 0, 2), TXColor::RED_);
    EXPECT_TRUE(onImage->CreateCompatibleGraphics(4, 4));
    EXPECT_TRUE(onImage->fillRect(TXRect(0, 2, 0, 2), TXColor::RED_));
    EXPECT_EQ(onImage->GetImage()->GetPixel(1, 1).GetColor(), TXColor::RED_.GetColor());
}

TEST_F(ImageFollowTest, ASurfaceMayEndBeforeItsImageChanges)
{
    surface = nullptr;
    image->CreateImage(4, 4, TXImage::Format_RGB32);
    EXPECT_FALSE(QtImage(*image).paintingActive());
    image->Delete();
}

TEST_F(ImageFollowTest, AnImageThatIsNoLongerSelectedIsLeftAlone)
{
    surface->SelectImage(nullptr);
    image->CreateImage(4, 4, TXImage::Format_RGB32);
    EXPECT_FALSE(QtImage(*image).paintingActive());
    EXPECT_FALSE(PaintsIntoTheImage());
}
