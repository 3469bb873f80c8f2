// What the files of tiles hold, and which tiles there are.
#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <set>
#include <string>

#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/tiles/ColorPalette.h>
#include <txmap/tiles/TileCoverage.h>
#include <txmap/tiles/TileImage.h>
#include <txmap/tiles/TileOutput.h>

namespace
{

using namespace txmap;

TilePixels TileOf(int side, int colors, bool opaque)
{
    RandomSource random(3);
    std::vector<std::array<std::uint8_t, 4>> palette;
    for (int i = 0; i < colors; ++i)
        palette.push_back({static_cast<std::uint8_t>(i % 256), static_cast<std::uint8_t>(i / 256),
                           static_cast<std::uint8_t>(random.Int(0, 255)),
                           static_cast<std::uint8_t>(opaque ? 255 : random.Int(1, 255))});
    TilePixels tile;
    tile.size = {side, side};
    for (int i = 0; i < side * side; ++i)
        for (const std::uint8_t channel : palette[static_cast<std::size_t>(i < colors ? i : random.Int(0, colors - 1))])
            tile.rgba.push_back(channel);
    return tile;
}

int FarthestPixel(const TilePixels& tile, const Picture& picture)
{
    int most = 0;
    for (std::size_t i = 0; i < picture.Pixels().size(); ++i)
    {
        Pixel pixel{};
        std::memcpy(pixel.data(), tile.rgba.data() + i * 4, 4);
        most = std::max(most, Distance(pixel, picture.Pixels()[i]));
    }
    return most;
}

class TileFile : public ::testing::Test
{
protected:
    Picture Written(const TilePixels& tile, TileFormat format)
    {
        GDALAllRegister();
        bytes = Encode(tile, format);
        EXPECT_EQ(bytes, Encode(tile, format));
        return Picture(folder.Write(std::string("tile") + SuffixOf(format), bytes));
    }

    TemporaryFolder folder;
    std::string bytes;
};

TEST_F(TileFile, PngHasThePixels)
{
    for (const int colors : {1, 2, 3, 16, 17, 256, 257, 1000})
        for (const bool opaque : {true, false})
        {
            const TilePixels tile = TileOf(64, colors, opaque);
            EXPECT_EQ(FarthestPixel(tile, Written(tile, TileFormat::Png)), 0) << colors << " colours";
        }
}

TEST_F(TileFile, Png8HasAtMost256Colours)
{
    const TilePixels tile = TileOf(64, 1000, true);
    const Picture picture = Written(tile, TileFormat::Png8);
    EXPECT_LE(std::set<Pixel>(picture.Pixels().begin(), picture.Pixels().end()).size(), 256u);
    EXPECT_LT(FarthestPixel(tile, picture), 64);
    const TilePixels few = TileOf(64, 200, false);
    EXPECT_EQ(FarthestPixel(few, Written(few, TileFormat::Png8)), 0);
}

TEST_F(TileFile, OtherFormatsAreNear)
{
    TilePixels tile{{64, 64}, {}};
    for (int i = 0; i < 64 * 64; ++i)
        for (const int channel : {i % 64 * 2, 100, i / 64 * 3, 255})
            tile.rgba.push_back(static_cast<std::uint8_t>(channel));
    for (const TileFormat format : {TileFormat::Jpeg, TileFormat::WebP})
        EXPECT_LT(FarthestPixel(tile, Written(tile, format)), 40) << NameOf(format);
    // What is transparent is white where there is no transparency.
    const TilePixels empty{{64, 64}, std::vector<std::uint8_t>(64 * 64 * 4, 0)};
    EXPECT_EQ(Written(empty, TileFormat::Jpeg).At(30, 30), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(Written(empty, TileFormat::WebP).At(30, 30)[3], 0);
}

TEST(Digest, TellsBytesApart)
{
    std::set<std::string> digests;
    for (int i = 0; i < 1000; ++i)
        digests.insert(DigestOf(std::string(static_cast<std::size_t>(i), 'x')));
    EXPECT_EQ(digests.size(), 1000u);
    // The digests of FNV-1a with 128 bits.
    EXPECT_EQ(DigestOf(""), "6c62272e07bb014262b821756295c58d");
    EXPECT_EQ(DigestOf("a"), "d228cb696f1a8caf78912b704e4a8964");
}

TEST(Coverage, BlocksOfAllShardsAreTheTilesOnce)
{
    for (const std::optional<GeoBox>& box : {std::optional<GeoBox>(), std::optional<GeoBox>({-10, 35, 30, 60}),
                                             std::optional<GeoBox>({170, -50, 200, -30})})
        for (const int shards : {1, 3, 4})
        {
            TileWish wish{0, 5, box, 4, {0, shards}};
            std::set<TileId> seen;
            std::size_t tiles = 0;
            for (wish.shard.number = 0; wish.shard.number < shards; ++wish.shard.number)
                ForEachBlock(wish,
                             [&](const TileBlock& block)
                             {
                                 for (int y = block.y; y < block.y + block.rows; ++y)
                                     for (int x = block.x; x < block.x + block.columns; ++x, ++tiles)
                                     {
                                         seen.insert({block.z, x, y});
                                         EXPECT_EQ(ShardOf(wish, block.z, x, y), wish.shard.number);
                                     }
                                 return true;
                             });
            EXPECT_EQ(tiles, CountTiles(wish));
            EXPECT_EQ(seen.size(), tiles);
        }
}

TEST(Coverage, ABoxHasTheTilesThatItTouches)
{
    const auto tiles = [](const GeoBox& box, int z) { return TilesOf({0, 8, box, 8, {}}, z); };
    EXPECT_EQ(tiles({-180, -85.06, 180, 85.06}, 3).Count(), 64u);
    EXPECT_EQ(tiles({0, 0, 90, 66.51326044311186}, 2).Count(), 1u);
    EXPECT_EQ(tiles({-1, -1, 1, 1}, 2).Count(), 4u);
    const ZoomTiles across = tiles({170, -10, 190, 10}, 4);
    EXPECT_THAT(across.columns, ::testing::ElementsAre(std::pair(0, 0), std::pair(15, 15)));
    EXPECT_EQ(across.firstRow, 7);
    EXPECT_EQ(across.lastRow, 8);
}

} // namespace
