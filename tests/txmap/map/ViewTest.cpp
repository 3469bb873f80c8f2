#include <gtest/gtest.h>
#include <txmap/map/View.h>

using namespace txmap;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

void ExpectPixel(const View& view, double longitude, double latitude, double x, double y)
{
    const TXPoint pixel = view.ToPixel(longitude, latitude);
    EXPECT_NEAR(pixel.x, x, 1e-6) << longitude << ", " << latitude;
    EXPECT_NEAR(pixel.y, y, 1e-6) << longitude << ", " << latitude;
}

void ExpectBox(const GeoBox& box, double west, double south, double east, double north)
{
    EXPECT_NEAR(box.west, west, 1e-6);
    EXPECT_NEAR(box.south, south, 1e-6);
    EXPECT_NEAR(box.east, east, 1e-6);
    EXPECT_NEAR(box.north, north, 1e-6);
}

} // namespace

TEST(View, OfTheWorldInDegreesIsTwiceAsWideAsHigh)
{
    const View view(Projection::PlateCarree(), {}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 1024);
    EXPECT_EQ(view.Frame(), TXRect(0, 2048, 0, 1024));
    ExpectBox(view.Visible(), -180, -90, 180, 90);
    ExpectPixel(view, -180, 90, 0, 0);
    ExpectPixel(view, 180, -90, 2048, 1024);
    ExpectPixel(view, 0, 45, 1024, 256);
}

TEST(View, OfTheMercatorWorldIsASquare)
{
    const View view(Projection::WebMercator(), {}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 2048);
    ExpectPixel(view, -180, Projection::WebMercator().MaxLatitude(), 0, 0);
    ExpectPixel(view, 0, 0, 1024, 1024);
}

TEST(View, OfABoxTakesItsProportions)
{
    const View wide(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, {});
    EXPECT_EQ(wide.Size().width, 2048);
    EXPECT_EQ(wide.Size().height, 1024);
    ExpectPixel(wide, 10, 50, 0, 0);
    ExpectPixel(wide, 30, 40, 2048, 1024);
    const View high(Projection::PlateCarree(), GeoBox{10, 40, 15, 60}, {});
    EXPECT_EQ(high.Size().width, 512);
    EXPECT_EQ(high.Size().height, 2048);
}

TEST(View, OfAThinBoxIsAtLeastAPixelHigh)
{
    const View view(Projection::PlateCarree(), GeoBox{-180, 0, 180, 0.001}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 1);
}

TEST(View, GrowsTheBoxEvenlyToFillTheSize)
{
    const View view(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, PixelSize{1000, 1000});
    ExpectBox(view.Visible(), 10, 35, 30, 55);
    ExpectPixel(view, 10, 55, 0, 0);
    ExpectPixel(view, 20, 45, 500, 500);
    const View wide(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, PixelSize{4000, 1000});
    ExpectBox(wide.Visible(), 0, 40, 40, 50);
}

TEST(View, GrowsAMercatorBoxByMapUnits)
{
    // The equator in the middle: the map is symmetric there, so the box stays so.
    const View view(Projection::WebMercator(), GeoBox{-10, -10, 10, 10}, PixelSize{300, 600});
    EXPECT_NEAR(view.Visible().west, -10.0, 1e-6);
    EXPECT_NEAR(view.Visible().north, -view.Visible().south, 1e-6);
    ExpectPixel(view, 0, 0, 150, 300);
    // Scale by eye: 20 degrees of longitude are 300 pixels, so 1 degree of latitude at the equator is 15, too.
    EXPECT_NEAR(view.ToPixel(0, 0.01).y, 300 - 0.15, 1e-4);
}

TEST(View, LeavesMarginsBeyondThePoles)
{
    const View view(Projection::PlateCarree(), {}, PixelSize{400, 400});
    EXPECT_EQ(view.Frame(), TXRect(0, 400, 100, 300));
    ExpectBox(view.Visible(), -180, -90, 180, 90);
}

TEST(View, ShowsNoPlaceTwice)
{
    const View view(Projection::PlateCarree(), {}, PixelSize{800, 200});
    EXPECT_EQ(view.Frame(), TXRect(200, 600, 0, 200));
    const View part(Projection::PlateCarree(), GeoBox{20, -80, 40, 80}, PixelSize{1000, 160});
    EXPECT_EQ(part.Frame().Width(), 360.0);
    EXPECT_NEAR(part.Visible().west, -150.0, 1e-6);
    EXPECT_NEAR(part.Visible().east, 210.0, 1e-6);
}

TEST(View, CutsTheBoxAtTheProjectionsOutermostLatitude)
{
    const View view(Projection::WebMercator(), GeoBox{-180, -90, 180, 90}, {});
    EXPECT_EQ(view.Size().height, 2048);
    EXPECT_NEAR(view.Visible().north, 85.0511, 1e-4);
}

TEST(View, OfABoxAcrossTheDateLineIsContinuous)
{
    const View view(Projection::PlateCarree(), GeoBox{170, -20, 190, -10}, PixelSize{200, 100});
    ExpectPixel(view, 170, -10, 0, 0);
    ExpectPixel(view, 180, -15, 100, 50);
    ExpectPixel(view, 190, -20, 200, 100);
}

TEST(View, HasItsMiddleBetweenMinus180And180)
{
    for (const double shift : {-360.0, 360.0})
    {
        const View view(Projection::PlateCarree(), GeoBox{10, 0, 30, 10}.Shifted(shift), {});
        ExpectBox(view.Visible(), 10, 0, 30, 10);
    }
}

TEST(View, HasAClipBoxThatIsLargerThanWhatIsVisible)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
    {
        const View view(projection, GeoBox{10, 40, 30, 50}, PixelSize{800, 600});
        const TXPoint low = view.ToPixel(view.ClipBox().west, view.ClipBox().south);
        const TXPoint high = view.ToPixel(view.ClipBox().east, view.ClipBox().north);
        // At least 20 pixels, the widest that a line reaches in a picture of any size up to 3000 pixels, and no waste.
        EXPECT_LT(low.x, -20);
        EXPECT_GT(low.x, -200);
        EXPECT_GT(low.y, 620);
        EXPECT_LT(low.y, 800);
        EXPECT_GT(high.x, 820);
        EXPECT_LT(high.x, 1000);
        EXPECT_LT(high.y, -20);
        EXPECT_GT(high.y, -200);
    }
}

TEST(GeoBox, IntersectsWhatItTouches)
{
    const GeoBox box{0, 0, 10, 10};
    EXPECT_TRUE(box.Intersects({10, 10, 20, 20}));
    EXPECT_TRUE(box.Intersects({-5, 4, 15, 5}));
    EXPECT_FALSE(box.Intersects({10.1, 0, 20, 10}));
    EXPECT_FALSE(box.Intersects({0, -5, 10, -0.1}));
}

TEST(GeoBox, ContainsWhatLiesInside)
{
    const GeoBox box{0, 0, 10, 10};
    EXPECT_TRUE(box.Contains(box));
    EXPECT_TRUE(box.Contains({1, 1, 2, 2}));
    EXPECT_FALSE(box.Contains({1, 1, 11, 2}));
    EXPECT_FALSE(box.Contains({-1, 1, 2, 2}));
}

TEST(GeoBox, GrowsByItsOwnSize)
{
    ExpectBox(GeoBox{0, 0, 10, 20}.Grown(0.5), -5, -10, 15, 30);
    ExpectBox(GeoBox{0, 0, 10, 20}.Shifted(-360), -360, 0, -350, 20);
}
