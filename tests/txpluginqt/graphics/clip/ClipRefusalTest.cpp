// Arguments that are refused change nothing, and surfaces that have nothing to draw on take every clip quietly.
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "TextTwins.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kBeyond = std::nextafter(1e12, 2e12);
const double kRefused[] = {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e13, -1e13, kBeyond, -kBeyond};

class ClipRefusalTest : public SurfaceTest
{
protected:
    using Arguments = std::function<void(const TXPoint*& points, const int*& counts, int& parts)>;

    /// Both operations with the arguments of a region of some points, changed.
    static void ClipInVain(TXGraphics& surface, const Rings& region, const Arguments& change = {})
    {
        const TXPoint* points = region.points.data();
        const int* counts = region.counts.data();
        int parts = static_cast<int>(region.counts.size());
        if (change)
            change(points, counts, parts);
        TXGraphics::stGradientParams gradient;
        gradient.endColor = TXColor::RED_;
        surface.SetClipRegion(points, counts, parts, gradient);
        surface.SetClipRegion(points, counts, parts, true, TXColor::RED_);
        surface.SetClipRegion(points, counts, parts, false, TXColor::RED_);
    }

    /// Expects that neither the pixels nor the painter nor the clip of labels is changed by that.
    static void ExpectRefused(const Rings& region, const Arguments& change = {})
    {
        for (const bool clipped : {false, true})
        {
            TextTwins twins;
            if (clipped)
                twins.Clip(Box(10.5, 20, 80, 60));
            ClipInVain(twins.Surface(), region, change);
            EXPECT_TRUE(twins.Untouched());
            EXPECT_TRUE(twins.Same());
            twins.Label();
            twins.Flood();
            EXPECT_TRUE(twins.SameAndInked());
        }
    }
};

TEST_F(ClipRefusalTest, OfNullPointers)
{
    ExpectRefused(Box(30, 30, 50, 50), [](const TXPoint*& points, const int*&, int&) { points = nullptr; });
    ExpectRefused(Box(30, 30, 50, 50), [](const TXPoint*&, const int*& counts, int&) { counts = nullptr; });
    Rings empty;
    empty.counts = {0, 0};
    ExpectRefused(empty, [](const TXPoint*& points, const int*&, int&) { points = nullptr; });
}

TEST_F(ClipRefusalTest, OfLessThanOnePart)
{
    for (const int number : {0, -1, std::numeric_limits<int>::min()})
        ExpectRefused(Box(30, 30, 50, 50), [&](const TXPoint*&, const int*&, int& parts) { parts = number; });
}

TEST_F(ClipRefusalTest, OfCoordinatesThatAreNotFiniteOrTooFar)
{
    Rings region = Box(30, 30, 50, 50);
    region.Add(Box(35, 35, 40, 40).points);
    region.counts = {0, 4, -3, 4};
    for (const double refused : kRefused)
        for (const std::size_t vertex : {0u, 3u, 7u})
            for (const bool inX : {true, false})
            {
                Rings spoilt = region;
                (inX ? spoilt.points[vertex].x : spoilt.points[vertex].y) = refused;
                ExpectRefused(spoilt);
                ASSERT_FALSE(HasFailure()) << refused << " at " << vertex;
            }
}

TEST_F(ClipRefusalTest, OfMorePointsThanQtCounts)
{
    // No point may be read: there are not as many.
    for (const std::vector<int>& counts : {std::vector<int>{std::numeric_limits<int>::max()},
                                           {1 << 30},
                                           {600000000, 600000000},
                                           {-2000000000, 2000000000},
                                           {2147483647, 2147483647, 2, 4}})
    {
        Rings region = Box(30, 30, 50, 50);
        region.counts = counts;
        ExpectRefused(region);
    }
}

TEST_F(ClipRefusalTest, LooksAtNoPointAfterTheLast)
{
    TextTwins twins;
    Rings region = Box(30, 10, 90, 50);
    region.points.emplace_back(kNaN, kNaN);
    twins.Clip(region, true, TXColor(9, 200, 10, 120));
    twins.Label();
    twins.Clip(region, TXGraphics::stGradientParams());
    EXPECT_TRUE(twins.SameAndInked());
    EXPECT_EQ(twins.SurfacePainter().clipPath(), RoundedPath(Box(30, 10, 90, 50)));
}

TEST_F(ClipRefusalTest, OfNoCoordinateAsFarAsAMillionMillion)
{
    for (const double far : {1e12, -1e12, 3e10, -5e9, 1073741824.0, 1e9, -1e7})
        for (const std::size_t vertex : {0u, 1u, 2u, 3u})
            for (int which = 1; which <= 3; ++which)
            {
                Rings region = Box(10, 10, 80, 60);
                if (which & 1)
                    region.points[vertex].x = far;
                if (which & 2)
                    region.points[vertex].y = far;
                TextTwins twins;
                const PainterState before(twins.SurfacePainter());
                TXGraphics::stGradientParams gradient;
                for (const int type : {0, 1, 2})
                {
                    gradient.type = type;
                    gradient.angle = type == 0 ? far : 0.0;
                    Clip(twins.Surface(), region, gradient);
                    twins.Surface().RestoreClipRegion();
                    EXPECT_TRUE(SameState(PainterState(twins.SurfacePainter()), before));
                }
                Clip(twins.Surface(), region, true, TXColor(1, 2, 3, 200));
                EXPECT_TRUE(twins.SurfacePainter().hasClipping());
                ::Draw(twins.Surface(), Entry::StringAt, WideLabel());
                twins.Surface().fillRect(TXRect(0, 90, 0, 90), TXColor(1, 2, 3, 200));
                twins.Surface().RestoreClipRegion();
                // Whatever that drew, drawing goes on as ever.
                twins.Wipe();
                twins.Label();
                twins.Flood();
                ASSERT_TRUE(twins.SameAndInked()) << far << " at " << vertex << ", " << which;
            }
}

TEST_F(ClipRefusalTest, FarCoordinatesAreKeptToTheLargestThatQtCanAddTo)
{
    const std::pair<double, double> roundings[] = {
        {1073741822.5, 1073741823}, {1073741824, 1073741823}, {1e12, 1073741823}, {700000000.4, 700000000}};
    for (const auto& [given, rounded] : roundings)
    {
        Twins twins;
        Clip(twins.Surface(), Box(-given, 10, given, 60));
        const QPainterPath clip = twins.SurfacePainter().clipPath();
        ASSERT_EQ(clip.elementCount(), 4);
        EXPECT_EQ(clip.elementAt(0).x, -rounded);
        EXPECT_EQ(clip.elementAt(1).x, rounded);
    }
}

TEST_F(ClipRefusalTest, FarEdgesClipAsNearOnesOutsideTheImage)
{
    for (const double far : {1e12, 3e10, 2147483648.0, 1073741824.0, 1073741823.0, 1e9})
        for (const bool withGradient : {false, true})
        {
            Twins twins;
            TXGraphics::stGradientParams invisible;
            invisible.type = 3;
            for (const Rings& region : {Box(30, 20, far, far), Box(-far, -far, 70, 50), Box(-far, 30, far, 60)})
            {
                if (withGradient)
                    Clip(twins.Surface(), region, invisible);
                else
                    Clip(twins.Surface(), region, true, TXColor(200, 10, 90, 120));
                Rings near = region;
                for (TXPoint& point : near.points)
                    point = TXPoint(std::clamp(point.x, -900.0, 900.0), std::clamp(point.y, -900.0, 900.0));
                if (!withGradient)
                    ClipDirectly(twins.Direct(), near, true, TXColor(200, 10, 90, 120));
                else
                    ClipDirectly(twins.Direct(), near);
                twins.Surface().fillRect(TXRect(0, 200, 0, 200), TXColor(20, 180, 90, 150));
                twins.Direct().fillRect(0, 0, 200, 200, QColor(20, 180, 90, 150));
                EXPECT_TRUE(twins.Same()) << far;
            }
        }
}

TEST_F(ClipRefusalTest, WithoutAPainterNothingHappens)
{
    const TXRefPtr<TXGraphics> never = TestEngine().NewGraphics(nullptr);
    const TXRefPtr<TXGraphics> deleted = NewPaintingSurface();
    const TXRefPtr<TXImage> image = deleted->GetImage();
    const QImage before = PixelsOf(*image).copy();
    deleted->Delete();
    for (const TXRefPtr<TXGraphics>& surface : {never, deleted})
        for (const bool cairo : {false, true})
        {
            surface->EnableCairoDrawing(cairo);
            surface->RestoreClipRegion();
            ClipInVain(*surface, Box(5, 5, 30, 30));
            ClipInVain(*surface, Box(5, kNaN, 30, 30));
            surface->RestoreClipRegion();
            EXPECT_EQ(surface->GetInteralObject(), nullptr);
        }
    EXPECT_EQ(PixelsOf(*image), before);
    ASSERT_TRUE(deleted->CreateCompatibleGraphics(60, 40));
    EXPECT_FALSE(PainterOf(*deleted).hasClipping());
}

TEST_F(ClipRefusalTest, WithAnIdlePainterNothingIsDrawnAndNothingPrinted)
{
    QPainter idle;
    QImage canvas(20, 20, QImage::Format_ARGB32_Premultiplied);
    QPainter ended(&canvas);
    const TXRefPtr<TXGraphics> fresh = TestEngine().NewGraphics();
    const TXRefPtr<TXGraphics> dropped = NewPaintingSurface();
    const TXRefPtr<TXGraphics> attached = NewPaintingSurface();
    const TXRefPtr<TXGraphics> outlived = NewPaintingSurface();
    const TXRefPtr<TXImage> image = dropped->SelectImage(nullptr);
    const QImage before = PixelsOf(*image).copy();
    attached->Attach(&idle);
    outlived->Attach(&ended);
    ended.end();
    for (const TXRefPtr<TXGraphics>& surface : {fresh, dropped, attached, outlived})
        for (const bool cairo : {false, true})
        {
            surface->EnableCairoDrawing(cairo);
            surface->RestoreClipRegion();
            ClipInVain(*surface, Box(5, 5, 30, 30));
            surface->RestoreClipRegion();
            EXPECT_FALSE(PainterOf(*surface).isActive());
        }
    EXPECT_EQ(PixelsOf(*image), before);
    for (const TXRefPtr<TXGraphics>& surface : {attached, outlived})
    {
        surface->Detach();
        EXPECT_FALSE(PainterOf(*surface).hasClipping());
        EXPECT_TRUE(SamePixels(PixelsOf(*surface->GetImage()), before));
    }
}

} // namespace
