#include <tests/txpluginqt/graphics/RecordingTest.h>

#include "ClipRegion.h"

using namespace TZObjects;

namespace
{

/// A picture holds every call, so that nothing can be done in another order, or left out, unseen.
class ClipPictureTest : public RecordingTest
{
protected:
    void Clip(const Rings& region, bool fill, const TXColor& color)
    {
        ::Clip(*surface, region, fill, color);
        ClipDirectly(directly, region, fill, color);
    }

    void Clip(const Rings& region, const TXGraphics::stGradientParams& gradient)
    {
        ::Clip(*surface, region, gradient);
        ClipDirectly(directly, region, gradient);
    }

    void RestoreClip()
    {
        surface->RestoreClipRegion();
        directly.setClipping(false);
    }

    void DrawLater()
    {
        surface->Rectangle(10, 20, 60, 40);
        directly.drawRect(10, 20, 60, 40);
    }

    /// True when both pictures hold the same calls. Ends both recordings.
    bool SameRecord()
    {
        End();
        return recorded.size() == direct.size() && recorded.size() > 0 &&
               QByteArray(recorded.data(), static_cast<int>(recorded.size())) ==
                   QByteArray(direct.data(), static_cast<int>(direct.size()));
    }
};

TEST_F(ClipPictureTest, HoldsTheClipAndItsFill)
{
    Clip(Box(10.5, 20, 70, 60), true, TXColor(200, 10, 90, 120));
    DrawLater();
    EXPECT_TRUE(SameRecord());
}

TEST_F(ClipPictureTest, HoldsTheClipAndItsGradient)
{
    TXGraphics::stGradientParams gradient;
    gradient.endColor = TXColor(200, 10, 90, 120);
    gradient.angle = 30;
    Clip(Box(10.5, 20, 70, 60), gradient);
    DrawLater();
    EXPECT_TRUE(SameRecord());
}

TEST_F(ClipPictureTest, HoldsNothingButTheClipWithoutFill)
{
    Clip(Box(10.5, 20, 70, 60), false, TXColor(200, 10, 90, 120));
    EXPECT_TRUE(SameRecord());
}

TEST_F(ClipPictureTest, HoldsThatClippingIsSwitchedOnAgain)
{
    for (int round = 0; round < 3; ++round)
    {
        Clip(Box(10.5, 20, 70, 60), round == 0, TXColor(200, 10, 90, 120));
        DrawLater();
        RestoreClip();
        DrawLater();
        Clip(Box(30, 20, 50, 80), TXGraphics::stGradientParams());
        RestoreClip();
    }
    EXPECT_TRUE(SameRecord());
}

TEST_F(ClipPictureTest, HoldsRandomClips)
{
    Random random(5500);
    for (int i = 0; i < 400; ++i)
    {
        const Rings region = SomeRegion(random);
        const TXColor color = random.Color();
        const TXGraphics::stGradientParams gradient = SomeGradient(random);
        switch (random.Int(0, 3))
        {
        case 0:
            Clip(region, gradient);
            break;
        case 1:
            RestoreClip();
            break;
        default:
            Clip(region, random.Chance(70), color);
        }
        if (random.Chance(70))
            DrawLater();
        const QPen pen = random.Pen();
        const QBrush brush = random.Brush();
        for (QPainter* const painter : {&recording, &directly})
        {
            painter->setPen(pen);
            painter->setBrush(brush);
        }
        ASSERT_EQ(recording.clipPath(), directly.clipPath()) << i;
        ASSERT_EQ(recording.hasClipping(), directly.hasClipping()) << i;
    }
    EXPECT_TRUE(SameRecord());
}

} // namespace
