// Where places lie in pictures that are drawn from a style.
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/map/MercatorView.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

void ExpectAt(const TXPoint& point, double x, double y, double tolerance = 1e-6)
{
    EXPECT_NEAR(point.x, x, tolerance);
    EXPECT_NEAR(point.y, y, tolerance);
}

TEST(Mercator, IsASquareOfSideOne)
{
    ExpectAt(ToMercator(-180.0, kMercatorMaxLatitude), 0.0, 0.0, 1e-12);
    ExpectAt(ToMercator(0.0, 0.0), 0.5, 0.5, 1e-15);
    ExpectAt(ToMercator(190.0, -90.0), 190.0 / 360.0 + 0.5, 1.0, 1e-15);
    ExpectAt(ToMercator(0.0, 1e300), 0.5, 0.0, 1e-15);
}

TEST(Mercator, GoesThereAndBack)
{
    for (const double latitude : {-85.0, -33.3, 0.0, 1e-6, 48.137, 85.0})
        ExpectAt(FromMercator(ToMercator(11.575, latitude)), 11.575, latitude, 1e-10);
}

TEST(MercatorView, PutsTheCameraInTheMiddle)
{
    const MercatorView view({11.575, 48.137, 9.3, 0.0}, {800, 600});
    ExpectAt(view.ToPixel(11.575, 48.137), 400.0, 300.0);
    EXPECT_NEAR(view.WorldSize(), 512.0 * std::exp2(9.3), 1e-6);
    const TXPoint east = view.ToPixel(11.585, 48.137);
    EXPECT_NEAR(east.x, 400.0 + 0.01 / 360.0 * view.WorldSize(), 1e-6);
    EXPECT_NEAR(east.y, 300.0, 1e-6);
}

TEST(MercatorView, IsDenserWithAScale)
{
    const MercatorView view({0.0, 0.0, 3.0, 0.0}, {400, 300}, 2.0);
    EXPECT_EQ(view.Size().width, 800);
    EXPECT_EQ(view.Size().height, 600);
    EXPECT_EQ(view.WorldSize(), 8192.0);
    ExpectAt(view.ToPixel(0.0, 0.0), 400.0, 300.0);
}

TEST(MercatorView, TurnsSoThatTheBearingIsUp)
{
    const MercatorView view({0.0, 0.0, 4.0, 90.0}, {500, 500});
    const TXPoint east = view.ToPixel(1.0, 0.0);
    EXPECT_NEAR(east.x, 250.0, 1e-6);
    EXPECT_LT(east.y, 250.0);
    const TXPoint north = view.ToPixel(0.0, 1.0);
    EXPECT_LT(north.x, 250.0);
    EXPECT_NEAR(north.y, 250.0, 1e-6);
}

TEST(MercatorView, FindsThePlaceOfAPixel)
{
    const MercatorView view({170.0, -40.0, 5.5, 33.0}, {640, 480}, 1.5);
    const TXPoint place = ToMercator(171.5, -41.0);
    const TXPoint back = view.ToPlace(view.ToPixel(171.5, -41.0));
    ExpectAt(back, place.x, place.y, 1e-12);
}

TEST(MercatorView, ShowsNothingBeyondThePoles)
{
    const MercatorView moved({10.0, 84.0, 2.0, 0.0}, {512, 1024});
    EXPECT_NEAR(moved.Visible().top, 0.0, 1e-12);
    EXPECT_EQ(moved.Zoom(), 2.0);
    const MercatorView zoomed({10.0, 40.0, 0.0, 0.0}, {1024, 1024});
    EXPECT_EQ(zoomed.Zoom(), 1.0);
    EXPECT_NEAR(zoomed.Visible().top, 0.0, 1e-12);
    EXPECT_NEAR(zoomed.Visible().bottom, 1.0, 1e-12);
    EXPECT_NEAR(zoomed.UsedCamera().longitude, 10.0, 1e-12);
}

TEST(MercatorView, FitsABox)
{
    const GeoBox box{5.0, 45.0, 15.0, 55.0};
    const PixelSize size{900, 500};
    const MercatorView view(MercatorView::Fit(box, size), size);
    EXPECT_NEAR(view.ToPixel(10.0, 55.0).y, 0.0, 1e-6);
    EXPECT_NEAR(view.ToPixel(10.0, 45.0).y, 500.0, 1e-6);
    EXPECT_NEAR(view.ToPixel(10.0, 50.0).x, 450.0, 1e-6);
    const GeoBox visible = view.VisibleDegrees();
    EXPECT_LT(visible.west, 5.0);
    EXPECT_NEAR(visible.south, 45.0, 1e-9);
}

TEST(MercatorView, FitsABoxThatIsTurned)
{
    const GeoBox box{5.0, 45.0, 15.0, 55.0};
    const PixelSize size{700, 500};
    const MercatorView view(MercatorView::Fit(box, size, 30.0), size);
    TXRect around{1e9, -1e9, 1e9, -1e9};
    for (const TXPoint corner : {view.ToPixel(5, 45), view.ToPixel(15, 45), view.ToPixel(5, 55), view.ToPixel(15, 55)})
        around = {std::min(around.left, corner.x), std::max(around.right, corner.x), std::min(around.top, corner.y),
                  std::max(around.bottom, corner.y)};
    EXPECT_NEAR(around.top, 0.0, 1e-6);
    EXPECT_NEAR(around.bottom, 500.0, 1e-6);
    EXPECT_GE(around.left, 0.0);
}

TEST(MercatorView, FitsABoxAcrossTheDateLineAndOneWithoutArea)
{
    const PixelSize size{500, 500};
    const MercatorView pacific(MercatorView::Fit({170.0, -10.0, 200.0, 10.0}, size), size);
    EXPECT_NEAR(pacific.UsedCamera().longitude, -175.0, 1e-9);
    EXPECT_EQ(MercatorView::Fit({10.0, 10.0, 10.0, 10.0}, size).zoom, MercatorView::kMaxZoom);
}

TEST(MercatorView, NamesTheWorldsThatShow)
{
    const MercatorView world({0.0, 0.0, 0.0, 0.0}, {1100, 512});
    EXPECT_THAT(world.WorldsThatShow(MercatorBox{}), ElementsAre(-1, 0, 1));
    EXPECT_THAT(world.WorldsThatShow({0.4, 0.4, 0.6, 0.6}), ElementsAre(-1, 0, 1));
    const MercatorView pacific({180.0, 0.0, 4.0, 0.0}, {512, 512});
    EXPECT_THAT(pacific.WorldsThatShow(MercatorBox{}), ElementsAre(0, 1));
    EXPECT_THAT(pacific.WorldsThatShow({0.4, 0.4, 0.6, 0.6}), IsEmpty());
    EXPECT_THAT(pacific.WorldsThatShow({0.99, 0.5, 1.01, 0.5}), ElementsAre(0));
    EXPECT_THAT(pacific.WorldsThatShow({-0.01, 0.5, 0.01, 0.5}), ElementsAre(1));
}

TEST(MercatorView, KnowsWhatATurnedViewDoesNotShow)
{
    const MercatorView view({0.0, 0.0, 6.0, 45.0}, {400, 400});
    const MercatorBox visible = view.Visible();
    const double side = 0.1 * (visible.right - visible.left);
    EXPECT_FALSE(view.Shows({visible.left, visible.top, visible.left + side, visible.top + side}));
    EXPECT_TRUE(view.Shows({visible.left, 0.5 - side, visible.left + side, 0.5 + side}));
    EXPECT_TRUE(view.Shows({visible.left, visible.top, visible.left + side, visible.top + side}, 400.0));
}

TEST(MercatorView, GivesEveryPixelToOneTile)
{
    const MercatorView view({1.0, 2.0, 3.37, 0.0}, {700, 500});
    const MercatorBox west{0.375, 0.375, 0.5, 0.5}, east{0.5, 0.375, 0.625, 0.5};
    EXPECT_EQ(view.PixelsOf(west)->right, view.PixelsOf(east)->left);
    EXPECT_EQ(view.PixelsOf(west)->right, std::round(view.PixelsOf(west)->right));
    EXPECT_EQ(view.AlignedToPixels(west).right, view.AlignedToPixels(east).left);
    EXPECT_NEAR(view.ToPixels().Map({view.AlignedToPixels(west).right, 0.5}).x, view.PixelsOf(west)->right, 1e-9);
    const MercatorView turned({1.0, 2.0, 3.37, 5.0}, {700, 500});
    EXPECT_FALSE(turned.PixelsOf(west));
    EXPECT_EQ(turned.AlignedToPixels(west).right, 0.5);
}

} // namespace
