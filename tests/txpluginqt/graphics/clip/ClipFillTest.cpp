// Setting a clip paints it as well, and nothing of the painter's state but the clip is changed by that.
#include <limits>

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "ClipRegion.h"

using namespace TZObjects;

namespace
{

class ClipFillTest : public SurfaceTest
{
protected:
    static TXGraphics::stGradientParams Gradient(int type)
    {
        TXGraphics::stGradientParams gradient;
        gradient.type = type;
        gradient.startColor = TXColor(250, 20, 30, 120);
        gradient.endColor = TXColor(10, 40, 240, 230);
        gradient.angle = 30.0;
        gradient.middle = 40.0;
        return gradient;
    }

    static Rings Frame()
    {
        Rings frame = Box(20.5, 15, 120, 100);
        frame.Add(Box(50, 40, 90.4, 70).points);
        return frame;
    }
};

TEST_F(ClipFillTest, WithoutFillPaintsNothing)
{
    Twins twins;
    const QImage before = twins.Actual().copy();
    Clip(twins.Surface(), Frame(), false, TXColor(255, 0, 0, 255));
    EXPECT_TRUE(SamePixels(twins.Actual(), before));
    twins.Direct().setClipPath(RoundedPath(Frame()));
    EXPECT_TRUE(SameState(twins.SurfacePainter(), twins.Direct()));
}

TEST_F(ClipFillTest, KeepsTheColoursAlpha)
{
    for (const TXColor& color : {TXColor(200, 100, 50, 128), TXColor(200, 100, 50, 255), TXColor(200, 100, 50, 0)})
    {
        Twins twins;
        Clip(twins.Surface(), Box(10, 20, 110, 90), true, color);
        twins.Direct().fillRect(10, 20, 100, 70, QColor(200, 100, 50, color.getA()));
        EXPECT_TRUE(twins.Same()) << color.getA();
    }
}

TEST_F(ClipFillTest, LeavesHolesOpen)
{
    Twins twins;
    Clip(twins.Surface(), Frame(), true, TXColor(200, 100, 50, 128));
    ClipDirectly(twins.Direct(), Frame(), true, TXColor(200, 100, 50, 128));
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_EQ(twins.Actual().pixel(70, 50), Twins().Actual().pixel(70, 50));
    EXPECT_NE(twins.Actual().pixel(30, 50), Twins().Actual().pixel(30, 50));
}

TEST_F(ClipFillTest, ReachesAllOfTheNewRegionAndNotTheOldOne)
{
    Twins twins;
    Clip(twins.Surface(), Box(0, 0, 40, 40));
    Clip(twins.Surface(), Box(20, 20, 130, 90), true, TXColor(200, 100, 50, 255));
    twins.Direct().fillRect(20, 20, 110, 70, QColor(200, 100, 50));
    EXPECT_TRUE(twins.Same());
    Clip(twins.Surface(), Box(0, 0, 40, 40), Gradient(2));
    ClipDirectly(twins.Direct(), Box(0, 0, 40, 40), Gradient(2));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(ClipFillTest, HasNoOutline)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.setPen(QPen(Qt::black, 12.0)); });
    Clip(twins.Surface(), Box(30, 30, 100, 90), true, TXColor(200, 100, 50, 255));
    twins.Direct().fillRect(30, 30, 70, 60, QColor(200, 100, 50));
    EXPECT_TRUE(twins.Same());
    twins.Wipe();
    Clip(twins.Surface(), Box(30, 30, 100, 90), Gradient(1));
    const QBrush radial = GradientBrush(QRectF(30, 30, 70, 60), Gradient(1));
    twins.Direct().fillRect(30, 30, 70, 60, radial);
    EXPECT_TRUE(twins.Same());
}

TEST_F(ClipFillTest, GradientRunsOverTheBoundsOfTheRoundedRegion)
{
    // The bounds of the whole region and of its rounded points: (3, -3) to (101, 91).
    const Rings region = {{{2.5, 10}, {40, -2.5}, {60.2, 50}}, {}, {{100.5, 30}, {70, 90.6}, {55, 30}}};
    for (const int type : {0, 1, 2})
        for (const double angle : {0.0, 30.0, 90.0, 135.0, 180.0, 250.0, 270.0, 360.0})
        {
            TXGraphics::stGradientParams gradient = Gradient(type);
            gradient.angle = angle;
            Twins twins;
            Clip(twins.Surface(), region, gradient);
            twins.Direct().setClipPath(RoundedPath(region));
            twins.Direct().save();
            twins.Direct().setPen(Qt::NoPen);
            twins.Direct().setBrush(GradientBrush(QRectF(3, -3, 98, 94), gradient));
            twins.Direct().drawPath(RoundedPath(region));
            twins.Direct().restore();
            EXPECT_TRUE(twins.SameWithState()) << "type " << type << ", angle " << angle;
            EXPECT_FALSE(twins.Actual() == Twins().Actual());
        }
}

TEST_F(ClipFillTest, GradientOfNoKindPaintsNothing)
{
    for (const int type : {3, -1, 99, std::numeric_limits<int>::min()})
    {
        Twins twins;
        Clip(twins.Surface(), Frame(), Gradient(type));
        twins.Direct().setClipPath(RoundedPath(Frame()));
        EXPECT_TRUE(twins.SameWithState()) << type;
    }
}

TEST_F(ClipFillTest, GradientWithoutALineClipsAndPaintsNothing)
{
    for (const double angle : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
    {
        Twins twins;
        TXGraphics::stGradientParams gradient = Gradient(0);
        gradient.angle = angle;
        Clip(twins.Surface(), Frame(), gradient);
        twins.Direct().setClipPath(RoundedPath(Frame()));
        EXPECT_TRUE(twins.SameWithState()) << angle;
    }
}

/// Pens and brushes that a careless way of putting back would change.
std::vector<std::function<void(QPainter&)>> Selections()
{
    QPen colouredNoPen(Qt::NoPen);
    colouredNoPen.setColor(QColor(200, 10, 10));
    colouredNoPen.setWidthF(3.5);
    QPen dashed(QColor(1, 2, 3, 90), 4.5, Qt::CustomDashLine, Qt::SquareCap, Qt::BevelJoin);
    dashed.setDashPattern({1.0, 2.0, 3.0, 4.0});
    dashed.setCosmetic(true);
    QLinearGradient gradient(10, 20, 80, 90);
    gradient.setColorAt(0.3, QColor(1, 200, 3, 90));
    QBrush moved(gradient);
    moved.setTransform(QTransform::fromTranslate(3, 4));
    QImage texture(5, 5, QImage::Format_ARGB32_Premultiplied);
    texture.fill(QColor(90, 10, 200));
    return {
        [=](QPainter& p) { p.setPen(colouredNoPen); },
        [=](QPainter& p) { p.setPen(dashed); },
        [](QPainter& p) { p.setPen(Qt::NoPen); },
        [](QPainter& p) { p.setPen(QPen(QBrush(QColor(1, 2, 3), Qt::CrossPattern), 6)); },
        [=](QPainter& p) { p.setBrush(moved); },
        [=](QPainter& p) { p.setBrush(QBrush(texture)); },
        [](QPainter& p) { p.setBrush(Qt::NoBrush); },
        [](QPainter& p) { p.setBrush(QBrush(QColor(1, 2, 3, 4), Qt::DiagCrossPattern)); },
        [=](QPainter& p)
        {
            p.setPen(colouredNoPen);
            p.setBrush(moved);
            p.setBrushOrigin(3, 9);
            p.setOpacity(0.6);
            p.setRenderHints(p.renderHints(), false);
            p.setRenderHint(QPainter::SmoothPixmapTransform);
            p.setCompositionMode(QPainter::CompositionMode_Multiply);
            p.translate(4, -3);
            p.rotate(8);
        },
    };
}

TEST_F(ClipFillTest, LeavesEverythingButTheClipAsItWas)
{
    for (const std::function<void(QPainter&)>& select : Selections())
        for (int kind = 0; kind < 7; ++kind)
        {
            Twins twins;
            twins.Both(select);
            const PainterState before(twins.SurfacePainter());
            const QColor penColor = twins.SurfacePainter().pen().color();
            if (kind < 2)
                Clip(twins.Surface(), Frame(), kind == 1, TXColor(10, 200, 30, 99));
            else
                Clip(twins.Surface(), Frame(), Gradient(kind - 2));
            PainterState after(twins.SurfacePainter());
            EXPECT_TRUE(after.clipping);
            EXPECT_EQ(after.pen.color(), penColor);
            after.clipping = before.clipping;
            after.clip = before.clip;
            EXPECT_TRUE(SameState(after, before)) << "kind " << kind;
            twins.Surface().RestoreClipRegion();
            EXPECT_TRUE(SameState(PainterState(twins.SurfacePainter()), before));
        }
}

TEST_F(ClipFillTest, LeavesTheSelectionAsItWas)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    const TXRefPtr<TXPen> pen = NewPen(TXColor(1, 2, 3, 255), 6.0);
    const TXRefPtr<TXBrush> brush = NewBrush(TXColor(4, 5, 6, 255));
    surface->SelectPen(pen);
    surface->SelectBrush(brush);
    Clip(*surface, Frame(), true, TXColor::RED_);
    Clip(*surface, Frame(), Gradient(0));
    EXPECT_EQ(surface->GetPen(), pen);
    EXPECT_EQ(surface->GetBrush(), brush);
    EXPECT_EQ(PainterOf(*surface).pen(), PenOf(*pen));
    EXPECT_EQ(PainterOf(*surface).brush(), BrushOf(*brush));
}

TEST_F(ClipFillTest, FollowsOpacityAndComposition)
{
    Twins twins;
    twins.Surface().SetOpacity(0.4);
    twins.Surface().SetCompositionMode(TXGraphics::CompositionMode_Multiply);
    twins.Direct().setOpacity(0.4);
    twins.Direct().setCompositionMode(QPainter::CompositionMode_Multiply);
    Clip(twins.Surface(), Frame(), true, TXColor(200, 100, 50, 230));
    ClipDirectly(twins.Direct(), Frame(), true, TXColor(200, 100, 50, 230));
    Clip(twins.Surface(), Box(5, 5, 90, 60), Gradient(0));
    ClipDirectly(twins.Direct(), Box(5, 5, 90, 60), Gradient(0));
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_FALSE(twins.Actual() == Twins().Actual());
}

TEST_F(ClipFillTest, LeavesTheCallersPointsAlone)
{
    const Rings before = Frame();
    const Rings region = before;
    Twins twins;
    Clip(twins.Surface(), region, true, TXColor::RED_);
    Clip(twins.Surface(), region, Gradient(0));
    EXPECT_EQ(region.counts, before.counts);
    EXPECT_EQ(ToQt(region.points), ToQt(before.points));
}

} // namespace
