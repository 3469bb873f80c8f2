#include <cmath>
#include <string>

#include <gtest/gtest.h>
#include <txmap/cli/ParseNorthArrow.h>
#include <txmap/drawing/NorthArrow.h>
#include <txmap/map/AtlasView.h>

using namespace txmap;
using TZObjects::TXRect;

namespace
{

TXRect BoxOf(const std::string& text, const MapView& view, const FrameShape* frame = nullptr, double unit = 1.0)
{
    return NorthArrow(ParseNorthArrow(text), view, frame, unit).Box();
}

const AtlasView kWorld{Projection::PlateCarree(), {}, PixelSize{1000, 500}};

} // namespace

TEST(NorthArrow, LiesInItsCornerOfTheWorld)
{
    const TXRect topRight = BoxOf("top-right", kWorld);
    EXPECT_LT(topRight.right, 1000.0);
    EXPECT_GT(topRight.left, 850.0);
    EXPECT_GT(topRight.top, 0.0);
    EXPECT_LT(topRight.bottom, 150.0);
    EXPECT_EQ(topRight.Width(), topRight.Height());
    const TXRect bottomLeft = BoxOf("bottom-left", kWorld);
    EXPECT_EQ(bottomLeft.left, 1000.0 - topRight.right);
    EXPECT_EQ(bottomLeft.bottom, 500.0 - topRight.top);
    const AtlasView high{Projection::PlateCarree(), {}, PixelSize{1000, 900}};
    EXPECT_EQ(BoxOf("top-left", high).top, 200.0 + topRight.top);
}

TEST(NorthArrow, HasWholePixelsAndRoomInAnyPicture)
{
    for (int side = 1; side < 2500; side += 7)
    {
        const AtlasView view{Projection::PlateCarree(), {}, PixelSize{2 * side, side}};
        const TXRect box = BoxOf("top-right", view, nullptr, side / 1024.0);
        EXPECT_EQ(box.left, std::floor(box.left));
        EXPECT_EQ(static_cast<int>(box.Width()) % 2, 0);
        EXPECT_LE(box.Width(), 0.3 * side);
        EXPECT_GE(box.top, 0.0);
        EXPECT_LE(box.right, 2.0 * side);
    }
}

TEST(NorthArrow, MovesInwardUntilItLiesInTheFrame)
{
    const FrameShape frame = FrameShape::RoundedRectangle({0, 1000, 0, 500}, 250);
    const TXRect box = BoxOf("top-right", kWorld, &frame);
    EXPECT_TRUE(frame.Contains(box));
    EXPECT_GT(box.left, 600.0);
    EXPECT_LT(box.bottom, 250.0);
    const FrameShape part = FrameShape::Polygon({{100, 100}, {600, 100}, {600, 400}, {100, 400}});
    EXPECT_TRUE(part.Contains(BoxOf("top-right", kWorld, &part)));
    EXPECT_GT(BoxOf("top-right", kWorld, &part).left, 450.0);
}

TEST(NorthArrow, StaysOnThePaperBesideTheMap)
{
    const FrameShape half = FrameShape::Polygon({{0, 0}, {0, 500}, {1000, 500}});
    EXPECT_EQ(BoxOf("top-right", kWorld, &half).right, BoxOf("top-right", kWorld).right);
    EXPECT_NE(BoxOf("top-left", kWorld, &half).top, BoxOf("top-left", kWorld).top);
}

TEST(NorthArrow, StaysInItsCornerWhereTheFrameHasNoRoom)
{
    const FrameShape sliver = FrameShape::Polygon({{0, 500}, {1000, 30}, {1000, 50}});
    EXPECT_EQ(BoxOf("top-right", kWorld, &sliver).right, BoxOf("top-right", kWorld).right);
}
