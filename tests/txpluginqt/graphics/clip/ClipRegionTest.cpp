// What is drawn later is clipped to the region.
#include <tests/support/ImageCompare.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "ClipRegion.h"

using namespace TZObjects;

namespace
{

const TXRect kEverywhere(-500, 500, -500, 500);

/// Shapes and labels after a clip, on the surface and directly. The label goes through a second surface whose clip is
/// set directly, as labels are compared with Qt elsewhere.
class Later
{
public:
    explicit Later(Twins& twins) : twins(twins), beside(TestEngine().NewGraphics()), font(TestEngine().NewFont())
    {
        font->Create();
        font->SetFontHeight(24);
        beside->Attach(&twins.Direct());
        twins.Surface().SelectFont(font);
        beside->SelectFont(font);
    }
    ~Later() { beside->Detach(); }
    Later(const Later&) = delete;
    Later& operator=(const Later&) = delete;

    void Flood() const
    {
        EXPECT_TRUE(twins.Surface().fillRect(kEverywhere, TXColor(40, 200, 90, 150)));
        twins.Direct().fillRect(QRect(-500, -500, 1000, 1000), QColor(40, 200, 90, 150));
    }

    void Shapes() const
    {
        EXPECT_TRUE(twins.Surface().Rectangle(5, 8, 70, 40));
        twins.Direct().drawRect(5, 8, 70, 40);
        EXPECT_TRUE(twins.Surface().Ellipse(TXPoint(50, 30), 60, 30));
        twins.Direct().drawEllipse(QPoint(50, 30), 60, 30);
    }

    void Label(const TXString& text = L"Hamburg\nHafen") const
    {
        for (TXGraphics* const surface : {&twins.Surface(), beside.get()})
            EXPECT_TRUE(surface->DrawString(2, 4, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, text, 10, 0, 1));
    }

private:
    Twins& twins;
    TXRefPtr<TXGraphics> beside;
    TXRefPtr<TXFont> font;
};

void DrawSomething(Random& random, Twins& twins)
{
    const Later later(twins);
    if (twins.Direct().brush().gradient())
        twins.Both(AvoidUncertainEdges);
    if (random.Chance(50))
        later.Flood();
    else
        later.Shapes();
    if (random.Chance(25))
        later.Label();
}

class ClipRegionTest : public SurfaceTest
{
};

TEST_F(ClipRegionTest, WithAColourClipsAndFillsAsQtDoes)
{
    ForRandomCases(5100, 600,
                   [](Random& random, Twins& twins)
                   {
                       const Rings region = SomeRegion(random);
                       const TXColor color = random.Color();
                       const bool fill = random.Chance(60);
                       Clip(twins.Surface(), region, fill, color);
                       ClipDirectly(twins.Direct(), region, fill, color);
                       ASSERT_TRUE(twins.SameWithState());
                       DrawSomething(random, twins);
                   });
}

TEST_F(ClipRegionTest, WithAGradientClipsAndFillsAsQtDoes)
{
    ForRandomCases(5200, 600,
                   [](Random& random, Twins& twins)
                   {
                       const Rings region = SomeRegion(random);
                       const TXGraphics::stGradientParams gradient = SomeGradient(random);
                       twins.Both(AvoidUncertainEdges);
                       Clip(twins.Surface(), region, gradient);
                       ClipDirectly(twins.Direct(), region, gradient);
                       ASSERT_TRUE(twins.SameWithState());
                       DrawSomething(random, twins);
                   });
}

TEST_F(ClipRegionTest, IsLiftedAsQtDoes)
{
    // With other seeds some turned texture on pixels that are not premultiplied shows where Qt's buffers lie.
    ForRandomCases(5302, 400,
                   [](Random& random, Twins& twins)
                   {
                       const Rings region = SomeRegion(random);
                       const bool fill = random.Chance(20);
                       const TXColor color = random.Color();
                       Clip(twins.Surface(), region, fill, color);
                       ClipDirectly(twins.Direct(), region, fill, color);
                       twins.Surface().RestoreClipRegion();
                       twins.Direct().setClipping(false);
                       ASSERT_TRUE(twins.SameWithState());
                       DrawSomething(random, twins);
                       // The region is switched off, not forgotten.
                       if (random.Chance(50))
                           twins.Both([](QPainter& painter) { painter.setClipping(true); });
                   });
}

/// One of the operations of clipping, or of those that concern the clip, on both sides.
void DoSomething(Random& random, Twins& twins, int& saved)
{
    const int kind = random.Int(1, 100);
    if (kind <= 35)
    {
        const Rings region = SomeRegion(random);
        const TXColor color = random.Color();
        Clip(twins.Surface(), region, color.getA() > 99, color);
        ClipDirectly(twins.Direct(), region, color.getA() > 99, color);
    }
    else if (kind <= 60)
    {
        const Rings region = SomeRegion(random);
        const TXGraphics::stGradientParams gradient = SomeGradient(random);
        twins.Both(AvoidUncertainEdges);
        Clip(twins.Surface(), region, gradient);
        ClipDirectly(twins.Direct(), region, gradient);
    }
    else if (kind <= 75)
    {
        twins.Surface().RestoreClipRegion();
        twins.Direct().setClipping(false);
    }
    else if (kind <= 85)
    {
        const int x = random.Int(-20, 20);
        const int y = random.Int(-20, 20);
        twins.Surface().SetWindowOrg(x, y);
        twins.Direct().translate(x, y);
    }
    else if (kind <= 93 || saved == 0)
    {
        twins.Surface().Save();
        twins.Direct().save();
        ++saved;
    }
    else
    {
        twins.Surface().Restore();
        twins.Direct().restore();
        --saved;
    }
}

TEST_F(ClipRegionTest, IsReplacedMovedSavedAndLiftedInAnyOrder)
{
    ForRandomCases(5400, 400,
                   [](Random& random, Twins& twins)
                   {
                       int saved = 0;
                       for (int i = random.Int(2, 8); i > 0; --i)
                       {
                           DoSomething(random, twins, saved);
                           ASSERT_TRUE(twins.SameWithState());
                           if (random.Chance(30))
                               DrawSomething(random, twins);
                       }
                       DrawSomething(random, twins);
                       for (; saved > 0; --saved)
                       {
                           twins.Surface().Restore();
                           twins.Direct().restore();
                       }
                   });
}

TEST_F(ClipRegionTest, OfHalvesIsRoundedAwayFromZero)
{
    const Rings region = {
        {{2.5, -2.5}, {60.49999, -0.5}, {60.5, 50.5}, {0.49999999999999994, 40.5}, {-0.49999, 30.2}, {-1.5, 20.7}}};
    QPainterPath expected;
    expected.addPolygon(QPolygonF({QPointF(3, -3), {60, -1}, {61, 51}, {1, 41}, {0, 30}, {-2, 21}}));
    Twins withColor;
    Clip(withColor.Surface(), region);
    EXPECT_EQ(withColor.SurfacePainter().clipPath(), expected);
    Twins withGradient;
    Clip(withGradient.Surface(), region, TXGraphics::stGradientParams());
    EXPECT_EQ(withGradient.SurfacePainter().clipPath(), expected);
    withColor.Direct().setClipPath(expected);
    Later(withColor).Flood();
    EXPECT_TRUE(withColor.SameWithState());
}

TEST_F(ClipRegionTest, ReplacesTheOneBefore)
{
    const Rings first = Box(10, 10, 70, 60);
    const Rings second = Box(40, 30, 120, 100);
    for (const bool withGradient : {false, true})
    {
        Twins twins;
        QPainterPath box;
        box.addRect(40, 30, 80, 70);
        TXGraphics::stGradientParams invisible;
        invisible.type = 7;
        for (const Rings& region : {first, second})
            if (withGradient)
                Clip(twins.Surface(), region, invisible);
            else
                Clip(twins.Surface(), region);
        EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(second));
        EXPECT_TRUE(twins.Surface().fillRect(kEverywhere, TXColor(40, 200, 90, 150)));
        twins.Direct().setClipPath(box);
        twins.Direct().fillRect(40, 30, 80, 70, QColor(40, 200, 90, 150));
        EXPECT_TRUE(twins.Same());
    }
}

TEST_F(ClipRegionTest, ReplacesAClipThatThePainterHad)
{
    Twins twins;
    twins.Both(
        [](QPainter& painter)
        {
            painter.setClipRect(QRect(0, 0, 30, 30));
            painter.setClipRect(QRect(5, 5, 100, 10), Qt::IntersectClip);
        });
    Clip(twins.Surface(), Box(20, 10, 90, 80));
    twins.Direct().setClipPath(RoundedPath(Box(20, 10, 90, 80)), Qt::ReplaceClip);
    Later(twins).Flood();
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_NE(twins.Actual().pixel(80, 70), Twins().Actual().pixel(80, 70));
}

TEST_F(ClipRegionTest, IsOddEven)
{
    Rings frame = Box(10, 10, 110, 90);
    frame.Add(Box(40, 30, 80, 70).points);
    Rings reversed = frame;
    reversed.ReverseLast();
    Rings overlapping = Box(10, 10, 80, 70);
    overlapping.Add(Box(40, 30, 110, 90).points);
    for (const Rings& region : {frame, reversed, overlapping})
    {
        Twins twins;
        Clip(twins.Surface(), region);
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        path.addPath(RoundedPath(region));
        twins.Direct().setClipPath(path);
        Later(twins).Flood();
        EXPECT_TRUE(twins.SameWithState());
        EXPECT_EQ(twins.Actual().pixel(60, 50), Twins().Actual().pixel(60, 50)) << "the hole was drawn on";
        EXPECT_NE(twins.Actual().pixel(20, 20), Twins().Actual().pixel(20, 20));
    }
}

TEST_F(ClipRegionTest, PartsWithoutPointsAreLeftOut)
{
    Rings frame = Box(10, 10, 110, 90);
    frame.Add(Box(40, 30, 80, 70).points);
    Rings zeros = frame;
    zeros.counts = {0, 4, 0, 0, 4, 0};
    Rings negative = frame;
    negative.counts = {-4, 4, -2147483647 - 1, 4, -1};
    for (const Rings& region : {zeros, negative})
    {
        Twins twins;
        Clip(twins.Surface(), region, true, TXColor(9, 99, 200, 77));
        ClipDirectly(twins.Direct(), frame, true, TXColor(9, 99, 200, 77));
        Later(twins).Flood();
        EXPECT_TRUE(twins.SameWithState());
        Clip(twins.Surface(), region, TXGraphics::stGradientParams());
        ClipDirectly(twins.Direct(), frame, TXGraphics::stGradientParams());
        EXPECT_TRUE(twins.SameWithState());
    }
}

TEST_F(ClipRegionTest, WithoutAreaClipsEverythingAway)
{
    Rings nothing;
    nothing.counts = {0, 0};
    Rings negative = nothing;
    negative.counts = {-3};
    for (const Rings& region : {nothing, negative, Rings{{{20, 20}}}, Rings{{{20, 20}, {60, 50}}},
                                Rings{{{20, 20}}, {{9, 9}}, {{9, 9}, {50, 50}}}, Box(500, 500, 600, 600)})
        for (const bool withGradient : {false, true})
        {
            Twins twins;
            if (withGradient)
            {
                Clip(twins.Surface(), region, TXGraphics::stGradientParams());
                ClipDirectly(twins.Direct(), region, TXGraphics::stGradientParams());
            }
            else
            {
                Clip(twins.Surface(), region, true, TXColor::RED_);
                ClipDirectly(twins.Direct(), region, true, TXColor::RED_);
            }
            EXPECT_TRUE(twins.SurfacePainter().hasClipping());
            Later(twins).Flood();
            EXPECT_TRUE(twins.SameWithState());
            EXPECT_TRUE(SamePixels(twins.Actual(), Twins().Actual()));
        }
}

TEST_F(ClipRegionTest, ClipsLabels)
{
    for (const TXString text : {L"Hamburg\nHafen", L"<BOL>Ham</BOL>burg"})
        for (int round = 0; round < 2; ++round)
        {
            Twins twins;
            const Later later(twins);
            // The first label of a face may move Qt's outlines a little.
            later.Label(text);
            twins.Wipe();
            Clip(twins.Surface(), Box(20.5, 10, 60, 50));
            ClipDirectly(twins.Direct(), Box(20.5, 10, 60, 50));
            later.Label(text);
            EXPECT_TRUE(twins.SameWithState());
            const QImage clipped = twins.Actual().copy();
            EXPECT_FALSE(clipped == Twins().Actual());
            twins.Surface().RestoreClipRegion();
            twins.Direct().setClipping(false);
            twins.Wipe();
            later.Label(text);
            EXPECT_TRUE(twins.SameWithState());
            EXPECT_FALSE(twins.Actual() == clipped);
        }
}

TEST_F(ClipRegionTest, ClipsImagesAndPaths)
{
    Twins twins;
    const TXRefPtr<TXImage> source = NewPaintedImage(60, 50);
    source->Fill(TXColor(200, 10, 60, 180));
    Clip(twins.Surface(), Box(20, 15, 90, 80));
    ClipDirectly(twins.Direct(), Box(20, 15, 90, 80));
    twins.Surface().DrawImage(source.get(), 0.5);
    twins.Direct().setOpacity(0.5);
    twins.Direct().drawImage(0, 0, PixelsOf(*source));
    twins.Direct().setOpacity(1.0);
    twins.Surface().MoveTo(5, 5);
    twins.Surface().LineTo(150, 20);
    twins.Surface().LineTo(50, 110);
    twins.Surface().DrawPath();
    QPainterPath path(QPointF(5, 5));
    path.lineTo(150, 20);
    path.lineTo(50, 110);
    twins.Direct().drawPath(path);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(ClipRegionTest, OfVeryManyPointsIsTaken)
{
    Rings region;
    for (int i = 0; i < 3000; ++i)
        region.Add(Box(i % 60 * 2.7, i / 60 * 2.4, i % 60 * 2.7 + 1.6, i / 60 * 2.4 + 1.2).points);
    Twins twins;
    Clip(twins.Surface(), region, true, TXColor(9, 99, 200, 77));
    ClipDirectly(twins.Direct(), region, true, TXColor(9, 99, 200, 77));
    Later(twins).Flood();
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
