// With cairo drawing on, the overload with a colour clips labels too.
#include <tests/support/ImageCompare.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "TextTwins.h"

using namespace TZObjects;

namespace
{

constexpr TXImage::Format kFormats[] = {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied};

ShortLabel SomeLabel(Random& random)
{
    ShortLabel call;
    call.x = random.Real(-10.0, 50.0);
    call.y = random.Real(-10.0, 50.0);
    call.left = call.dx = random.Real(-5.0, 20.0);
    call.top = call.dy = random.Real(-5.0, 20.0);
    call.text = random.Chance(50) ? L"Hamburg" : L"Ham\nburgo";
    call.angle = random.Chance(50) ? 0.0 : random.Real(-90.0, 90.0);
    call.scale = random.Real(0.7, 2.0);
    call.fill = random.Color();
    call.halo = random.Chance(50);
    return call;
}

Look SomeLook(Random& random)
{
    Look look;
    look.bold = random.Chance(50);
    look.halo = random.Chance(30);
    look.underline = random.Chance(30);
    look.letterSpacing = random.Chance(40) ? -3.0 : 0.0;
    look.pen = random.Color();
    return look;
}

class CairoClipTest : public SurfaceTest
{
protected:
    /// One clipping or drawing operation on both sides.
    static void DoSomething(Random& random, TextTwins& twins)
    {
        const int kind = random.Int(1, 100);
        if (kind <= 30)
        {
            const Rings region = SomeRegion(random);
            const TXColor color = random.Color();
            twins.Clip(region, random.Chance(50), color);
        }
        else if (kind <= 40)
        {
            const Rings region = SomeRegion(random);
            twins.Clip(region, SomeGradient(random));
        }
        else if (kind <= 55)
            twins.RestoreClip();
        else if (kind <= 65)
            twins.Flood();
        else
            twins.Label(SomeLabel(random), random.OneOf(kAllEntries));
    }

    /// What a label looks like on white, with a clip or without.
    static QImage Picture(const std::function<void(cairo_t*)>& clip)
    {
        QImage image(100, 76, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        DirectCairo direct(image, DirectCairo::Switched);
        direct.Select(Look());
        clip(direct);
        DrawDirectly(direct, Entry::StringAt, WideLabel(), Look());
        return image;
    }
};

TEST_F(CairoClipTest, LabelsAreClippedAsDirectCairoDoes)
{
    int inked = 0;
    for (const TXImage::Format format : kFormats)
        for (unsigned i = 0; i < 200; ++i)
        {
            Random random(5600 + i);
            const Look look = SomeLook(random);
            TextTwins twins(format, look);
            const Rings region = SomeRegion(random);
            twins.Clip(region);
            ASSERT_TRUE(twins.Untouched());
            twins.Label(SomeLabel(random), random.OneOf(kAllEntries));
            ASSERT_TRUE(twins.Same()) << "format " << format << ", case " << i;
            inked += !twins.Untouched();
        }
    EXPECT_GE(inked, 120) << "too few labels were seen";
}

TEST_F(CairoClipTest, OverloadsAndLiftingMixWithShapesAndLabelsInAnyOrder)
{
    int inked = 0;
    for (const TXImage::Format format : kFormats)
        for (unsigned i = 0; i < 200; ++i)
        {
            Random random(5700 + i);
            TextTwins twins(format, SomeLook(random));
            for (int step = random.Int(4, 12); step > 0; --step)
            {
                DoSomething(random, twins);
                ASSERT_TRUE(twins.Same()) << "format " << format << ", case " << i << ", " << step << " steps to go";
            }
            inked += !twins.Untouched();
        }
    EXPECT_GE(inked, 200);
}

TEST_F(CairoClipTest, IsNotRoundedForLabels)
{
    const Rings region = Box(12.5, -2.5, 61.3, 40.7);
    const Rings rounded = Box(13, -3, 61, 41);
    const QImage exact = Picture([&](cairo_t* context) { ClipDirectly(context, region); });
    ASSERT_FALSE(exact == Picture([&](cairo_t* context) { ClipDirectly(context, rounded); }));
    TextTwins twins;
    twins.Actual().fill(Qt::white);
    Clip(twins.Surface(), region);
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, WideLabel()));
    EXPECT_TRUE(SamePixels(twins.Actual(), exact));
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(rounded));
}

TEST_F(CairoClipTest, IsReplacedForShapesAndNarrowedForLabels)
{
    const Rings first = Box(10, 10, 60, 50);
    const Rings second = Box(40, 5, 95, 70);
    TextTwins twins;
    twins.Actual().fill(Qt::white);
    Clip(twins.Surface(), first);
    Clip(twins.Surface(), second);
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(second));
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, WideLabel()));
    EXPECT_TRUE(
        SamePixels(twins.Actual(), Picture([&](cairo_t* context) { ClipDirectly(context, Box(40, 10, 60, 50)); })));

    twins.Surface().RestoreClipRegion();
    twins.Actual().fill(Qt::white);
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, WideLabel()));
    EXPECT_TRUE(SamePixels(twins.Actual(), Picture([](cairo_t*) {})));
}

TEST_F(CairoClipTest, ByAGradientDoesNotConcernLabels)
{
    TextTwins twins;
    twins.Clip(Box(30, 20, 60, 50), TXGraphics::stGradientParams());
    twins.Label();
    twins.Flood();
    EXPECT_TRUE(twins.SameAndInked());

    // A clip of labels stays as well.
    twins.Clip(Box(10, 10, 60, 60));
    twins.Clip(Box(30, 20, 90, 50), TXGraphics::stGradientParams());
    twins.Label();
    twins.Flood();
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(CairoClipTest, IsOddEvenForLabelsWhoseOwnGlyphsAreNot)
{
    Look look;
    look.letterSpacing = -8.0;
    look.bold = true;
    ShortLabel call = WideLabel();
    call.scale = 1.7;
    Rings region = Box(5, 5, 80, 70);
    region.Add(Box(20, 15, 95, 50).points);

    TextTwins twins(TXImage::Format_ARGB32_Premultiplied, look);
    twins.Clip(region);
    twins.Label(call);
    EXPECT_TRUE(twins.SameAndInked());

    // The glyphs do overlap, and the region's parts too: by the other rule both would be drawn otherwise.
    TextTwins otherGlyphs(TXImage::Format_ARGB32_Premultiplied, look);
    ClipDirectly(otherGlyphs.DirectContext(), region);
    cairo_set_fill_rule(otherGlyphs.DirectContext(), CAIRO_FILL_RULE_EVEN_ODD);
    DrawDirectly(otherGlyphs.DirectContext(), Entry::StringAt, call, look);
    EXPECT_FALSE(otherGlyphs.Expected() == twins.Actual());

    TextTwins otherRegion(TXImage::Format_ARGB32_Premultiplied, look);
    cairo_rectangle(otherRegion.DirectContext(), 5, 5, 75, 65);
    cairo_rectangle(otherRegion.DirectContext(), 20, 15, 75, 35);
    cairo_clip(otherRegion.DirectContext());
    DrawDirectly(otherRegion.DirectContext(), Entry::StringAt, call, look);
    EXPECT_FALSE(otherRegion.Expected() == twins.Actual());
}

TEST_F(CairoClipTest, WithoutAreaClipsAllLabelsAway)
{
    Rings none;
    none.counts = {0, -2, 0};
    for (const Rings& region : {none, Rings{{{20, 20}}}, Rings{{{20, 20}, {60, 50}}},
                                Rings{{{20, 20}}, {{9, 9}, {9, 60}}}, Box(200, 200, 300, 300)})
    {
        TextTwins twins;
        twins.Clip(region, true, TXColor::RED_);
        twins.Label();
        EXPECT_TRUE(twins.Same());
        EXPECT_TRUE(twins.Untouched());
        twins.RestoreClip();
        twins.Label();
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(CairoClipTest, SkipsPartsWithoutPointsForLabels)
{
    Rings frame = Box(10, 10, 90, 70);
    frame.Add(Box(40, 30, 60, 50).points);
    Rings gaps = frame;
    gaps.counts = {0, -4, 4, -2147483647 - 1, 0, 4, 0};
    TextTwins twins;
    Clip(twins.Surface(), gaps);
    ClipDirectly(twins.Direct(), frame);
    ClipDirectly(twins.DirectContext(), frame);
    twins.Label();
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(CairoClipTest, OfFarCoordinatesIsWhatDirectCairoMakesOfThem)
{
    for (const double far : {1e12, -1e12, 2147483648.0, -8388609.0, 8388607.9, 40000.5})
        for (std::size_t vertex = 0; vertex < 4; ++vertex)
            for (const bool inX : {true, false})
            {
                Rings region = Box(10, 10, 80, 60);
                (inX ? region.points[vertex].x : region.points[vertex].y) = far;
                TextTwins twins;
                Clip(twins.Surface(), region);
                ClipDirectly(twins.DirectContext(), region);
                twins.Label();
                EXPECT_TRUE(SamePixels(twins.Actual(), twins.Expected())) << far << " at " << vertex;
            }
}

TEST_F(CairoClipTest, OfLabelsIsInPixelsWhereverTheOriginIs)
{
    TextTwins twins;
    twins.Surface().SetWindowOrg(25, 10);
    twins.Direct().translate(25, 10);
    twins.Clip(Box(10, 10, 60, 50), true, TXColor(200, 10, 90, 120));
    twins.Label();
    twins.Flood();
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(CairoClipTest, FillsCoverTheLabelsBeforeAndLieUnderThoseAfter)
{
    for (const TXImage::Format format : kFormats)
    {
        TextTwins twins(format);
        TXGraphics::stGradientParams gradient;
        gradient.startColor = TXColor(200, 200, 20, 200);
        gradient.endColor = TXColor(200, 20, 200, 200);
        for (int round = 0; round < 2; ++round)
        {
            twins.Label();
            twins.Clip(Box(5, 5, 90, 60), true, TXColor(200, 10, 90, 120));
            twins.Label(WideLabel(), Entry::VerticalAt);
            twins.Clip(Box(20, 15, 95, 70), gradient);
            twins.Label();
            EXPECT_TRUE(twins.SameAndInked()) << format;
            twins.RestoreClip();
            twins.Label(WideLabel(), Entry::OutlineAt);
            EXPECT_TRUE(twins.SameAndInked()) << format;
        }
    }
}

TEST_F(CairoClipTest, FollowsEveryKindOfLabel)
{
    for (const Entry entry : kAllEntries)
    {
        Look look;
        look.underline = look.strikeOut = look.halo = true;
        TextTwins twins(TXImage::Format_ARGB32_Premultiplied, look);
        for (const TXString text : {L"Hag", L"", L"\n\n", L" \n", L"Hag"})
        {
            ShortLabel call = WideLabel();
            call.text = text;
            twins.Label(call, entry);
            twins.Clip(Box(4.3, 2.6, 70.5, 60.5));
            twins.Label(WideLabel(), entry);
            EXPECT_TRUE(twins.SameAndInked()) << entry;
        }
    }
}

} // namespace
