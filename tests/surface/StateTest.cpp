#include <cmath>
#include <limits>

#include <tests/support/PainterState.h>

#include <tests/txpluginqt/graphics/SurfaceTest.h>

using namespace TZObjects;

namespace
{

bool operator==(const TXPoint& a, const QPointF& b) { return a.x == b.x() && a.y == b.y(); }

class StateTest : public SurfaceTest
{
protected:
    StateTest()
        : surface(NewPaintingSurface()), painter(PainterOf(*surface)), idle(TestEngine().NewGraphics()),
          empty(TestEngine().NewGraphics(nullptr))
    {
    }

    TXRefPtr<TXGraphics> surface;
    QPainter& painter;
    TXRefPtr<TXGraphics> idle;
    TXRefPtr<TXGraphics> empty;
};

TEST_F(StateTest, OriginMovesCumulatively)
{
    EXPECT_TRUE(surface->GetWindowOrg() == QPointF(0, 0));
    EXPECT_TRUE(surface->SetWindowOrg(5, 5) == QPointF(0, 0));
    EXPECT_TRUE(surface->SetWindowOrg(5, 5) == QPointF(5, 5));
    EXPECT_TRUE(surface->GetWindowOrg() == QPointF(10, 10));
    EXPECT_TRUE(surface->SetWindowOrg(-30, 7) == QPointF(10, 10));
    EXPECT_TRUE(surface->GetWindowOrg() == QPointF(-20, 17));
    EXPECT_EQ(painter.transform(), QTransform::fromTranslate(-20, 17));
}

TEST_F(StateTest, OriginMovesAlongTheTransform)
{
    painter.rotate(90);
    painter.scale(2, 2);
    surface->SetWindowOrg(10, 3);
    QTransform expected;
    expected.rotate(90);
    expected.scale(2, 2);
    expected.translate(10, 3);
    EXPECT_EQ(painter.transform(), expected);
    EXPECT_TRUE(surface->GetWindowOrg() == QPointF(expected.dx(), expected.dy()));
}

TEST_F(StateTest, OriginByAPointIsTruncated)
{
    EXPECT_TRUE(surface->SetWindowOrg(TXPoint(3.9, -4.9)) == QPointF(0, 0));
    EXPECT_TRUE(surface->GetWindowOrg() == QPointF(3, -4));
}

TEST_F(StateTest, OriginIsZeroWithoutTarget)
{
    for (const TXRefPtr<TXGraphics>& other : {idle, empty})
    {
        EXPECT_TRUE(other->SetWindowOrg(7, 8) == QPointF(0, 0));
        EXPECT_TRUE(other->GetWindowOrg() == QPointF(0, 0));
    }
}

TEST_F(StateTest, Opacity)
{
    EXPECT_EQ(surface->GetOpacity(), 1.0);
    surface->SetOpacity(0.3);
    EXPECT_EQ(surface->GetOpacity(), 0.3);
    EXPECT_EQ(painter.opacity(), 0.3);
    surface->SetOpacity(0.5);
    EXPECT_EQ(surface->GetOpacity(), 0.5) << "it replaces the one before";
    surface->SetOpacity(7.0);
    EXPECT_EQ(surface->GetOpacity(), 1.0);
    surface->SetOpacity(-7.0);
    EXPECT_EQ(surface->GetOpacity(), 0.0);
    empty->SetOpacity(0.5);
    EXPECT_EQ(empty->GetOpacity(), 0.0);
    idle->SetOpacity(0.5);
}

TEST_F(StateTest, CompositionModesAreQtsByNumber)
{
    for (int mode = 0; mode <= 37; ++mode)
    {
        surface->SetCompositionMode(static_cast<TXGraphics::TXCompositionMode>(mode));
        EXPECT_EQ(static_cast<int>(painter.compositionMode()), mode);
    }
    EXPECT_EQ(TXGraphics::CompositionMode_Exclusion, static_cast<int>(QPainter::CompositionMode_Exclusion));
    EXPECT_EQ(TXGraphics::CompositionMode_SourceAtop, static_cast<int>(QPainter::CompositionMode_SourceAtop));
    EXPECT_EQ(TXGraphics::RasterOp_NotDestination, static_cast<int>(QPainter::RasterOp_NotDestination));
    EXPECT_EQ(TXGraphics::RasterOp_SourceXorDestination, static_cast<int>(QPainter::RasterOp_SourceXorDestination));
    empty->SetCompositionMode(TXGraphics::CompositionMode_Plus);
    idle->SetCompositionMode(TXGraphics::CompositionMode_Plus);
}

TEST_F(StateTest, UnknownCompositionModesAreIgnored)
{
    surface->SetCompositionMode(TXGraphics::CompositionMode_Multiply);
    for (const int mode : {-1, 38, 39, 255, 1 << 20, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        surface->SetCompositionMode(static_cast<TXGraphics::TXCompositionMode>(mode));
        EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_Multiply) << mode;
        EXPECT_TRUE(surface->Rectangle(5, 5, 20, 20));
    }
}

TEST_F(StateTest, AntialiasingSwitchesShapesAndText)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    surface->EnableAntialiasing(false);
    EXPECT_EQ(painter.renderHints(), QPainter::SmoothPixmapTransform);
    surface->EnableAntialiasing(true);
    EXPECT_EQ(painter.renderHints(), kAntialiasing | QPainter::SmoothPixmapTransform);
    empty->EnableAntialiasing(true);
    idle->EnableAntialiasing(false);
}

TEST_F(StateTest, TheEnginesSwitchDoesNothing)
{
    TestEngine().EnableAntialiasing(false);
    EXPECT_EQ(painter.renderHints(), FreshHints() | kAntialiasing);
    EXPECT_EQ(PainterOf(*NewPaintingSurface()).renderHints(), FreshHints() | kAntialiasing);
    TestEngine().EnableAntialiasing(true);
}

TEST_F(StateTest, SaveKeepsEverythingAndRestoreBringsItBack)
{
    surface->SelectPen(NewPen(TXColor(1, 2, 3, 4), 5.0));
    surface->SetWindowOrg(3, 4);
    const TXRefPtr<TXPen> pen = NewPen(TXColor::RED_, 2.0);
    const PainterState outer(painter);
    surface->Save();
    surface->SelectPen(pen);
    surface->SelectBrush(NewBrush(TXColor::RED_));
    surface->SelectFont(NewFont(40));
    surface->SetWindowOrg(30, 40);
    surface->SetOpacity(0.1);
    surface->SetCompositionMode(TXGraphics::CompositionMode_Xor);
    surface->EnableAntialiasing(false);
    painter.setClipRect(3, 3, 9, 9);
    const PainterState inner(painter);
    surface->Save();
    surface->SetOpacity(0.9);
    surface->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), inner));
    surface->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), outer));
    EXPECT_EQ(surface->GetPen(), pen) << "the selection itself is not part of the drawing state";
}

TEST_F(StateTest, OneRestoreTooManyChangesNothingAndIsForTheHostToSee)
{
    const PainterState before(painter);
    surface->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), before));
    EXPECT_EQ(TakeMessages(), QStringList("QPainter::restore: Unbalanced save/restore"));
    surface->Save();
    surface->Restore();
    EXPECT_EQ(TakeMessages(), QStringList());
    surface->Restore();
    EXPECT_EQ(TakeMessages().size(), 1);
}

TEST_F(StateTest, RestoreTakesBackWhatTheHostHasSavedOnThePainter)
{
    const PainterState before(painter);
    painter.save();
    painter.setOpacity(0.25);
    painter.translate(3.0, 4.0);
    surface->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), before));
}

TEST_F(StateTest, RestoreTakesBackWhatAnotherSurfaceHasSaved)
{
    const TXRefPtr<TXGraphics> other = TestEngine().NewGraphics(nullptr);
    other->Attach(&painter);
    const PainterState before(painter);
    other->Save();
    other->SetOpacity(0.5);
    surface->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), before));
    surface->Save();
    surface->SetOpacity(0.5);
    other->Restore();
    EXPECT_TRUE(SameState(PainterState(painter), before));
}

TEST_F(StateTest, StatesThatAreLeftWhenPaintingEndsAreTakenBackQuietly)
{
    surface->Save();
    surface->Save();
    painter.save();
    surface->SelectImage(NewPaintedImage());
    surface->Save();
    painter.save();
    surface->CreateCompatibleGraphics(20, 20);
    surface->Save();
    PainterOf(*surface).save();
    surface->GetImage()->CreateImage(30, 30, TXImage::Format_ARGB32);
    surface->Save();
    PainterOf(*surface).save();
    surface->Delete();
    surface->Restore();
    for (const TXRefPtr<TXGraphics>& other : {idle, empty})
    {
        other->Save();
        other->Restore();
        other->Restore();
    }
    const TXRefPtr<TXGraphics> destroyed = NewPaintingSurface();
    destroyed->Save();
}

TEST_F(StateTest, SavedStateBelongsToThePainterThatItWasSavedOn)
{
    QImage canvas(30, 30, QImage::Format_ARGB32_Premultiplied);
    QPainter outside(&canvas);
    surface->SetOpacity(0.5);
    surface->Save();
    surface->SetOpacity(0.25);
    surface->Attach(&outside);
    surface->SetOpacity(0.75);
    surface->Save();
    surface->SetOpacity(0.1);
    surface->Restore();
    EXPECT_EQ(outside.opacity(), 0.75);
    surface->Detach();
    EXPECT_EQ(surface->GetOpacity(), 0.25);
    surface->Restore();
    EXPECT_EQ(surface->GetOpacity(), 0.5);
}

TEST_F(StateTest, DeviceAndLogicalPointsAreTheSame)
{
    surface->SetWindowOrg(30, 40);
    TXPoint points[] = {{1.5, 2.5}, {-3.5, 4.5}};
    for (const TXRefPtr<TXGraphics>& other : {surface, idle, empty})
    {
        other->DPtoLP(points, 2);
        other->LPtoDP(points, 2);
        other->DPtoLP(nullptr, 2);
        other->LPtoDP(nullptr, 2);
        EXPECT_TRUE(points[0] == QPointF(1.5, 2.5));
        EXPECT_TRUE(points[1] == QPointF(-3.5, 4.5));
    }
}

TEST_F(StateTest, AttributesKeptForTheHost)
{
    EXPECT_EQ(surface->GetTextHorizAlign(), TXGraphics::TextAlignLeft);
    EXPECT_EQ(surface->GetTextVertAlign(), TXGraphics::TextAlignTop);
    EXPECT_EQ(surface->GetBackGoundColor().GetColor(), 0xffffffffu);
    surface->SetTextHorizAlign(TXGraphics::TextAlignRight);
    surface->SetTextVertAlign(TXGraphics::TextAlignBottom);
    surface->SetBackGoundColor(TXColor(1, 2, 3, 4));
    EXPECT_EQ(surface->GetTextHorizAlign(), TXGraphics::TextAlignRight);
    EXPECT_EQ(surface->GetTextVertAlign(), TXGraphics::TextAlignBottom);
    EXPECT_EQ(surface->GetBackGoundColor().GetColor(), 0x04010203u);
}

} // namespace
