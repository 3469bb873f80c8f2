// Which tiles a picture needs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/map/MercatorView.h>
#include <txmap/map/TileCover.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

int ZoomFor(double zoom, double tileSize, bool rounds)
{
    return TileZoom(MercatorView({0.0, 0.0, zoom, 0.0}, {256, 256}), {tileSize, rounds, 0, 22, {}});
}

TEST(TileCover, TakesTheZoomBelowForGeometry)
{
    EXPECT_EQ(ZoomFor(3.0, 512.0, false), 3);
    EXPECT_EQ(ZoomFor(3.99, 512.0, false), 3);
    EXPECT_EQ(ZoomFor(0.0, 512.0, false), 0);
    EXPECT_EQ(ZoomFor(-1.0, 512.0, false), 0);
}

TEST(TileCover, TakesTheNearestZoomForPictures)
{
    EXPECT_EQ(ZoomFor(3.4, 256.0, true), 4);
    EXPECT_EQ(ZoomFor(3.5, 256.0, true), 5);
    EXPECT_EQ(ZoomFor(3.5, 512.0, true), 4);
}

TEST(TileCover, TakesTilesRowByRow)
{
    const MercatorView view({0.0, 0.0, 1.0, 0.0}, {600, 600});
    const std::vector<CoveringTile> tiles = CoveringTiles(view, {});
    ASSERT_THAT(tiles, SizeIs(4));
    EXPECT_EQ(tiles[1].id, (TileId{1, 1, 0}));
    EXPECT_EQ(tiles[2].id, (TileId{1, 0, 1}));
    EXPECT_THAT(tiles[2].worlds, ElementsAre(0));
}

TEST(TileCover, NamesATileOnceForAllItsWorlds)
{
    const MercatorView view({0.0, 0.0, 0.0, 0.0}, {1100, 512});
    const std::vector<CoveringTile> tiles = CoveringTiles(view, {});
    ASSERT_THAT(tiles, SizeIs(1));
    EXPECT_THAT(tiles[0].worlds, ElementsAre(-1, 0, 1));
}

TEST(TileCover, GoesAcrossTheDateLine)
{
    const MercatorView view({180.0, 30.0, 4.0, 0.0}, {400, 200});
    const std::vector<CoveringTile> tiles = CoveringTiles(view, {});
    ASSERT_THAT(tiles, SizeIs(2));
    EXPECT_EQ(tiles[0].id.x, 0);
    EXPECT_THAT(tiles[0].worlds, ElementsAre(1));
    EXPECT_EQ(tiles[1].id.x, 15);
    EXPECT_THAT(tiles[1].worlds, ElementsAre(0));
}

TEST(TileCover, KeepsToTheZoomsThatThereAre)
{
    const MercatorView view({10.1, 50.1, 8.0, 0.0}, {200, 200});
    EXPECT_THAT(CoveringTiles(view, {512.0, false, 9, 12, {}}), IsEmpty());
    const std::vector<CoveringTile> tiles = CoveringTiles(view, {512.0, false, 0, 5, {}});
    ASSERT_THAT(tiles, SizeIs(1));
    EXPECT_EQ(tiles[0].id.z, 5);
}

TEST(TileCover, KeepsToTheBounds)
{
    const MercatorView view({0.0, 0.0, 2.0, 0.0}, {512, 512});
    EXPECT_THAT(CoveringTiles(view, {}), SizeIs(4));
    EXPECT_THAT(CoveringTiles(view, {512.0, false, 0, 22, {0.5, 0.5, 0.6, 0.6}}), SizeIs(1));
    EXPECT_THAT(CoveringTiles(view, {512.0, false, 0, 22, {0.9, 0.9, 1.0, 1.0}}), IsEmpty());
}

TEST(TileCover, LeavesOutTheCornersOfATurnedView)
{
    const MercatorView view({0.0, 0.0, 6.0, 45.0}, {2048, 2048});
    for (const CoveringTile& tile : CoveringTiles(view, {}))
        EXPECT_TRUE(view.Shows(tile.id.Box().Shifted(tile.worlds.front())));
    // The square over the corners of the turned picture is twice as large.
    EXPECT_LT(CoveringTiles(view, {}).size(), 30u);
    EXPECT_GT(CoveringTiles(view, {}).size(), 16u);
}

TEST(TileCover, CountsRowsFromTheSouthWhenAsked)
{
    EXPECT_EQ((TileId{3, 0, 1}.FlippedY()), 6);
    EXPECT_EQ((TileId{0, 0, 0}.FlippedY()), 0);
}

} // namespace
