#include <cmath>

#include <gtest/gtest.h>
#include <txmap/map/AtlasView.h>

using namespace txmap;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

void ExpectPixel(const MapView& view, double longitude, double latitude, double x, double y)
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

TEST(AtlasView, OfTheWorldInDegreesIsTwiceAsWideAsHigh)
{
    const AtlasView view(Projection::PlateCarree(), {}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 1024);
    EXPECT_EQ(view.Frame(), TXRect(0, 2048, 0, 1024));
    ExpectBox(view.VisibleDegrees(), -180, -90, 180, 90);
    ExpectPixel(view, -180, 90, 0, 0);
    ExpectPixel(view, 180, -90, 2048, 1024);
    ExpectPixel(view, 0, 45, 1024, 256);
}

TEST(AtlasView, OfTheMercatorWorldIsASquare)
{
    const AtlasView view(Projection::WebMercator(), {}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 2048);
    ExpectPixel(view, -180, Projection::WebMercator().MaxLatitude(), 0, 0);
    ExpectPixel(view, 0, 0, 1024, 1024);
}

TEST(AtlasView, OfABoxTakesItsProportions)
{
    const AtlasView wide(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, {});
    EXPECT_EQ(wide.Size().width, 2048);
    EXPECT_EQ(wide.Size().height, 1024);
    ExpectPixel(wide, 10, 50, 0, 0);
    ExpectPixel(wide, 30, 40, 2048, 1024);
    const AtlasView high(Projection::PlateCarree(), GeoBox{10, 40, 15, 60}, {});
    EXPECT_EQ(high.Size().width, 512);
    EXPECT_EQ(high.Size().height, 2048);
}

TEST(AtlasView, OfAThinBoxIsAtLeastAPixelHigh)
{
    const AtlasView view(Projection::PlateCarree(), GeoBox{-180, 0, 180, 0.001}, {});
    EXPECT_EQ(view.Size().width, 2048);
    EXPECT_EQ(view.Size().height, 1);
}

TEST(AtlasView, GrowsTheBoxEvenlyToFillTheSize)
{
    const AtlasView view(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, PixelSize{1000, 1000});
    ExpectBox(view.VisibleDegrees(), 10, 35, 30, 55);
    ExpectPixel(view, 10, 55, 0, 0);
    ExpectPixel(view, 20, 45, 500, 500);
    const AtlasView wide(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, PixelSize{4000, 1000});
    ExpectBox(wide.VisibleDegrees(), 0, 40, 40, 50);
}

TEST(AtlasView, GrowsAMercatorBoxByMapUnits)
{
    // The equator in the middle: the map is symmetric there, so the box stays so.
    const AtlasView view(Projection::WebMercator(), GeoBox{-10, -10, 10, 10}, PixelSize{300, 600});
    EXPECT_NEAR(view.VisibleDegrees().west, -10.0, 1e-6);
    EXPECT_NEAR(view.VisibleDegrees().north, -view.VisibleDegrees().south, 1e-6);
    ExpectPixel(view, 0, 0, 150, 300);
    // Scale by eye: 20 degrees of longitude are 300 pixels, so 1 degree of latitude at the equator is 15, too.
    EXPECT_NEAR(view.ToPixel(0, 0.01).y, 300 - 0.15, 1e-4);
}

TEST(AtlasView, LeavesMarginsBeyondThePoles)
{
    const AtlasView view(Projection::PlateCarree(), {}, PixelSize{400, 400});
    EXPECT_EQ(view.Frame(), TXRect(0, 400, 100, 300));
    ExpectBox(view.VisibleDegrees(), -180, -90, 180, 90);
}

TEST(AtlasView, ShowsNoPlaceTwice)
{
    const AtlasView view(Projection::PlateCarree(), {}, PixelSize{800, 200});
    EXPECT_EQ(view.Frame(), TXRect(200, 600, 0, 200));
    const AtlasView part(Projection::PlateCarree(), GeoBox{20, -80, 40, 80}, PixelSize{1000, 160});
    EXPECT_EQ(part.Frame().Width(), 360.0);
    EXPECT_NEAR(part.VisibleDegrees().west, -150.0, 1e-6);
    EXPECT_NEAR(part.VisibleDegrees().east, 210.0, 1e-6);
}

TEST(AtlasView, CutsTheBoxAtTheProjectionsOutermostLatitude)
{
    const AtlasView view(Projection::WebMercator(), GeoBox{-180, -90, 180, 90}, {});
    EXPECT_EQ(view.Size().height, 2048);
    EXPECT_NEAR(view.VisibleDegrees().north, 85.0511, 1e-4);
}

TEST(AtlasView, OfABoxAcrossTheDateLineIsContinuous)
{
    const AtlasView view(Projection::PlateCarree(), GeoBox{170, -20, 190, -10}, PixelSize{200, 100});
    ExpectPixel(view, 170, -10, 0, 0);
    ExpectPixel(view, 180, -15, 100, 50);
    ExpectPixel(view, 190, -20, 200, 100);
}

TEST(AtlasView, HasItsMiddleBetweenMinus180And180)
{
    for (const double shift : {-360.0, 360.0})
    {
        const AtlasView view(Projection::PlateCarree(), GeoBox{10, 0, 30, 10}.Shifted(shift), {});
        ExpectBox(view.VisibleDegrees(), 10, 0, 30, 10);
    }
}

TEST(AtlasView, GrowsIntoTheWorldAndNotPastThePole)
{
    const AtlasView north(Projection::PlateCarree(), GeoBox{0, 70, 40, 90}, PixelSize{400, 400});
    ExpectBox(north.VisibleDegrees(), 0, 50, 40, 90);
    EXPECT_EQ(north.Frame(), TXRect(0, 400, 0, 400));
    const AtlasView south(Projection::PlateCarree(), GeoBox{0, -85, 40, -70}, PixelSize{400, 400});
    ExpectBox(south.VisibleDegrees(), 0, -90, 40, -50);
    const AtlasView mercator(Projection::WebMercator(), GeoBox{0, 80, 10, 85}, PixelSize{100, 1000});
    EXPECT_NEAR(mercator.VisibleDegrees().north, 85.0511, 1e-4);
    EXPECT_EQ(mercator.Frame(), TXRect(0, 100, 0, 1000));
    // What is higher than the world has the world in its middle.
    const AtlasView high(Projection::PlateCarree(), GeoBox{0, 60, 360, 90}, PixelSize{360, 400});
    EXPECT_EQ(high.Frame(), TXRect(0, 360, 110, 290));
}

TEST(AtlasView, DrawsSmallerInSmallPicturesAndNotLargerInLargeOnes)
{
    const auto scaleOf = [](int height, double scale) {
        return AtlasView(Projection::PlateCarree(), {}, PixelSize{2 * height, height}, scale).Scale();
    };
    EXPECT_EQ(scaleOf(1024, 1.0), 1.0);
    EXPECT_EQ(scaleOf(4096, 1.0), 1.0);
    EXPECT_EQ(scaleOf(768, 1.0), 0.75);
    EXPECT_EQ(scaleOf(100, 1.0), 0.5);
    EXPECT_EQ(scaleOf(4096, 4.0), 4.0);
}

TEST(AtlasView, IsDrawnByTheSameArithmeticAsAStyle)
{
    const AtlasView view(Projection::PlateCarree(), GeoBox{10, 40, 30, 50}, PixelSize{1024, 512}, 2.0);
    EXPECT_NEAR(view.WorldSize(), 18.0 * 1024.0, 1e-6);
    EXPECT_NEAR(512.0 * std::exp2(view.Zoom()) * view.Scale(), view.WorldSize(), 1e-6);
    const TXPoint pixel = view.ToPixels(0).Map(view.MapProjection().ToWorld(20, 45));
    EXPECT_NEAR(pixel.x, 512.0, 1e-6);
    EXPECT_NEAR(pixel.y, 256.0, 1e-6);
    EXPECT_NEAR(view.ToPixels(1).Map(view.MapProjection().ToWorld(20, 45)).x, 512.0 + view.WorldSize(), 1e-6);
}

TEST(GeoBox, MovesEast) { ExpectBox(GeoBox{0, 0, 10, 20}.Shifted(-360), -360, 0, -350, 20); }
