// Vector tiles of every kind of store, for a view.
#include <filesystem>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestTile.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/VectorTileSource.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
namespace fs = std::filesystem;

namespace
{

std::string TileNamed(const std::string& name)
{
    TestTile tile;
    tile.layers.push_back(
        {"places", {{1, TestTile::Points({{2048, 2048}}), {0, 0}}}, {"name"}, {TestTile::Text(name)}});
    return tile.Encoded();
}

const MercatorView kWorld{{0.0, 0.0, 1.0, 0.0}, {1024, 1024}};

/// What a source has in a view: the names of its places, and what it complained about.
class Loaded
{
public:
    Loaded(const std::string& json, const TemporaryFolder& folder, const MercatorView& view = kWorld)
    {
        VectorTileSource source(Json::parse(json), SourceFolder(folder.Path().string()));
        source.Load(view, {{{"places", std::nullopt}}, 0.0, false}, diagnostics);
        placed = source.Features("places");
        for (const PlacedFeatures& part : placed)
            for (const SetFeature& feature : part.features->features)
                names.push_back(part.features->Property(feature, "name")->String());
    }

    SourceDiagnostics diagnostics{false};
    std::vector<PlacedFeatures> placed;
    std::vector<std::string> names;
};

void WriteTile(const TemporaryFolder& folder, const std::string& name, const std::string& data)
{
    fs::create_directories((folder.Path() / name).parent_path());
    folder.Write(name, data);
}

std::string RefusalOfSource(const std::string& json, const TemporaryFolder& folder)
{
    return RefusalOf(ExitCode::Data,
                     [&] { VectorTileSource(Json::parse(json), SourceFolder(folder.Path().string())); });
}

TEST(VectorTileSource, ReadsFilesOfATemplate)
{
    const TemporaryFolder folder;
    WriteTile(folder, "tiles/1/0/0.pbf", TileNamed("north-west"));
    WriteTile(folder, "tiles/1/1/1.pbf", Gzipped(TileNamed("south-east")));
    const Loaded loaded(R"({"type": "vector", "tiles": ["tiles/{z}/{x}/{y}.pbf"]})", folder);
    EXPECT_THAT(loaded.names, ElementsAre("north-west", "south-east"));
    EXPECT_THAT(loaded.diagnostics.Warnings(), IsEmpty());
    EXPECT_EQ(loaded.placed[1].tile->left, 0.5);
    EXPECT_EQ(loaded.placed[1].features->points[0].x, 0.75);
    EXPECT_THAT(loaded.placed[1].worlds, ElementsAre(0));
}

TEST(VectorTileSource, CountsRowsFromTheSouthForTms)
{
    const TemporaryFolder folder;
    WriteTile(folder, "1/0/0.pbf", TileNamed("south-west"));
    const Loaded loaded(R"({"type": "vector", "scheme": "tms", "tiles": ["{z}/{x}/{y}.pbf"]})", folder);
    EXPECT_THAT(loaded.names, ElementsAre("south-west"));
    EXPECT_EQ(loaded.placed[0].tile->top, 0.5);
}

TEST(VectorTileSource, TakesAFileAddress)
{
    const TemporaryFolder folder;
    WriteTile(folder, "with space/1/0/0.pbf", TileNamed("here"));
    const Loaded loaded(R"({"type": "vector", "tiles": ["file://)" + folder.Path().string() +
                            R"(/with%20space/{z}/{x}/{y}.pbf"]})",
                        folder);
    EXPECT_THAT(loaded.names, ElementsAre("here"));
}

TEST(VectorTileSource, ReadsATileJsonAndItsZooms)
{
    const TemporaryFolder folder;
    WriteTile(folder, "set/0/0/0.pbf", TileNamed("world"));
    folder.Write("set/tiles.json", R"({"tilejson": "3.0.0", "tiles": ["{z}/{x}/{y}.pbf"], "maxzoom": 0})");
    const Loaded loaded(R"({"type": "vector", "url": "set/tiles.json"})", folder);
    EXPECT_THAT(loaded.names, ElementsAre("world"));
    EXPECT_EQ(loaded.placed[0].tileZoom, 0);
    // What the source says itself comes first.
    const Loaded none(R"({"type": "vector", "url": "set/tiles.json", "minzoom": 2, "maxzoom": 3})", folder);
    EXPECT_THAT(none.names, IsEmpty());
}

TEST(VectorTileSource, ReadsMbTiles)
{
    const TemporaryFolder folder;
    WriteMbTiles(folder / "set.mbtiles", {{1, 0, 0, Gzipped(TileNamed("north-west"))}, {1, 1, 0, TileNamed("ne")}},
                 {{"maxzoom", "1"}, {"minzoom", "0"}, {"bounds", "-180,0,180,85"}, {"json", "{"}});
    const Loaded loaded(R"({"type": "vector", "url": "mbtiles://set.mbtiles"})", folder);
    EXPECT_THAT(loaded.names, ElementsAre("north-west", "ne"));
    const Loaded enlarged(R"({"type": "vector", "url": "mbtiles://)" + folder / "set.mbtiles" + R"("})", folder,
                          MercatorView({-90.0, 50.0, 6.0, 0.0}, {300, 300}));
    EXPECT_THAT(enlarged.names, ElementsAre("north-west"));
    EXPECT_EQ(enlarged.placed[0].tileZoom, 1);
}

TEST(VectorTileSource, DrawsATileInEveryWorld)
{
    const TemporaryFolder folder;
    WriteTile(folder, "0/0/0.pbf", TileNamed("world"));
    const Loaded loaded(R"({"type": "vector", "tiles": ["{z}/{x}/{y}.pbf"], "maxzoom": 0})", folder,
                        MercatorView({0.0, 0.0, 0.0, 0.0}, {1100, 512}));
    ASSERT_THAT(loaded.placed, SizeIs(1));
    EXPECT_THAT(loaded.placed[0].worlds, ElementsAre(-1, 0, 1));
}

TEST(VectorTileSource, SaysOnceWhichTileIsBroken)
{
    const TemporaryFolder folder;
    WriteTile(folder, "1/0/0.pbf", TileNamed("good"));
    WriteTile(folder, "1/1/0.pbf", "no tile at all");
    WriteTile(folder, "1/0/1.pbf", Gzipped(TileNamed("cut")).substr(0, 40));
    WriteTile(folder, "1/1/1.pbf", "");
    const std::string json = R"({"type": "vector", "tiles": ["{z}/{x}/{y}.pbf"]})";
    const Loaded loaded(json, folder);
    EXPECT_THAT(loaded.names, ElementsAre("good"));
    EXPECT_THAT(loaded.diagnostics.Warnings(),
                ElementsAre(HasSubstr("1/1/0.pbf: is a broken vector tile"),
                            HasSubstr("1/0/1.pbf: is compressed data that ends too early")));
    VectorTileSource source(Json::parse(json), SourceFolder(folder.Path().string()));
    SourceDiagnostics strict(true);
    EXPECT_THAT(RefusalOf(ExitCode::Data,
                          [&] {
                              source.Load(kWorld, {{{"places", std::nullopt}}, 0.0, false}, strict);
                          }),
                HasSubstr("1/1/0.pbf: is a broken"));
}

TEST(VectorTileSource, KeepsToItsMemoryWhateverIsPacked)
{
    const TemporaryFolder folder;
    WriteTile(folder, "1/0/0.pbf", Gzipped(std::string(100 << 20, '\0')));
    const Loaded loaded(R"({"type": "vector", "tiles": ["{z}/{x}/{y}.pbf"]})", folder);
    EXPECT_THAT(loaded.diagnostics.Warnings(), ElementsAre(HasSubstr("unpacks to more than 64 MiB")));
}

TEST(VectorTileSource, RefusesWhatCannotBe)
{
    const TemporaryFolder folder;
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector"})", folder), HasSubstr("names no tiles"));
    for (const char* const address : {"https://a.org/{z}/{x}/{y}.pbf", "HTTP://a.org/{z}", "//a.org/{z}",
                                      "/vsicurl/http://a.org/{z}", "/vsizip//vsis3/bucket/{z}"})
        EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "tiles": [")" + std::string(address) + R"("]})", folder),
                    HasSubstr("would be fetched over a network"));
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "pmtiles://x.pmtiles"})", folder), HasSubstr("not known"));
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "none.json"})", folder), HasSubstr("no such file"));
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "mbtiles://none"})", folder), HasSubstr("no such file"));
    folder.Write("bad.json", "[1, 2");
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "bad.json"})", folder), HasSubstr("is no TileJSON"));
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "mbtiles://bad.json"})", folder),
                HasSubstr("cannot be read as MBTiles"));
    folder.Write("deep.json", std::string(1 << 20, '['));
    EXPECT_THAT(RefusalOfSource(R"({"type": "vector", "url": "deep.json"})", folder), HasSubstr("is no TileJSON"));
    folder.Write("deeper.json",
                 R"({"tiles": ["{z}"], "bounds": )" + std::string(100000, '[') + std::string(100000, ']') + "}");
    EXPECT_EQ(RefusalOfSource(R"({"type": "vector", "url": "deeper.json"})", folder), "accepted");
}

TEST(VectorTileSource, GivesUpOnADatabaseThatComputesForEver)
{
    const TemporaryFolder folder;
    WriteDatabase(folder / "set.mbtiles",
                  "CREATE VIEW tiles AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                  "SELECT i AS zoom_level, i AS tile_column, -i AS tile_row, 'x' AS tile_data FROM n;");
    const Loaded loaded(R"({"type": "vector", "url": "mbtiles://set.mbtiles", "maxzoom": 0})", folder);
    EXPECT_THAT(loaded.names, IsEmpty());
    EXPECT_THAT(loaded.diagnostics.Warnings(), ElementsAre(HasSubstr("not found in reasonable time")));
}

TEST(VectorTileSource, SurvivesMutationsOfPackedTiles)
{
    const TemporaryFolder folder;
    const std::string whole = Gzipped(TileNamed("here"));
    for (unsigned seed = 0; seed < 300; ++seed)
    {
        std::mt19937 random(seed);
        std::string data = whole;
        data[random() % data.size()] = static_cast<char>(random());
        WriteTile(folder, "1/0/0.pbf", data);
        const Loaded loaded(R"({"type": "vector", "tiles": ["{z}/{x}/{y}.pbf"]})", folder);
        EXPECT_LE(loaded.diagnostics.Warnings().size(), 1u);
    }
}

/// Two layers with a place each, one of them with two attributes.
std::string TileOfTwoLayers()
{
    TestTile tile;
    tile.layers.push_back({"places",
                           {{1, TestTile::Points({{2048, 2048}}), {0, 0, 1, 1}}},
                           {"name", "kind"},
                           {TestTile::Text("here"), TestTile::Text("town")}});
    tile.layers.push_back({"roads", {{2, TestTile::Lines({{{0, 0}, {4096, 4096}}}), {}}}, {}, {}});
    return tile.Encoded();
}

class KeptTiles : public ::testing::Test
{
protected:
    KeptTiles()
    {
        for (const char* const name : {"1/0/0.pbf", "1/1/0.pbf", "1/0/1.pbf", "1/1/1.pbf"})
            WriteTile(folder, name, TileOfTwoLayers());
    }

    VectorTileSource Source(std::size_t mostBytes = VectorTileSource::kMostBytes) const
    {
        return {Json::parse(R"({"type": "vector", "tiles": ["{z}/{x}/{y}.pbf"], "maxzoom": 1})"),
                SourceFolder(folder.Path().string()), mostBytes};
    }

    TemporaryFolder folder;
    SourceDiagnostics diagnostics{true};
    const MercatorView corner{{-90.0, 50.0, 3.0, 0.0}, {200, 200}}; ///< Shows one tile.
};

TEST_F(KeptTiles, AreDecodedOnceForViewsThatShareThem)
{
    VectorTileSource source = Source();
    for (int i = 0; i < 3; ++i)
    {
        source.Load(kWorld, {{{"places", std::nullopt}, {"roads", std::nullopt}}}, diagnostics);
        EXPECT_THAT(source.Features("places"), SizeIs(4));
        source.Load(corner, {{{"roads", std::set<std::string>()}}}, diagnostics);
        EXPECT_THAT(source.Features("roads"), SizeIs(1));
        EXPECT_THAT(source.Features("places"), IsEmpty());
    }
    EXPECT_EQ(source.DecodedTiles(), 4u);
}

TEST_F(KeptTiles, AreDecodedAgainForLayersAndAttributesThatAreMissing)
{
    VectorTileSource source = Source();
    const auto kind = [&]
    {
        const FeatureSet& set = *source.Features("places").at(0).features;
        return set.Property(set.features.at(0), "kind");
    };
    source.Load(corner, {{{"places", std::set<std::string>{"name"}}}}, diagnostics);
    EXPECT_EQ(source.DecodedTiles(), 1u);
    EXPECT_EQ(kind(), nullptr);
    source.Load(corner, {{{"places", std::set<std::string>{"kind"}}}}, diagnostics);
    EXPECT_EQ(source.DecodedTiles(), 2u);
    EXPECT_EQ(kind()->String(), "town");
    source.Load(corner, {{{"places", std::set<std::string>{"kind"}}, {"roads", std::nullopt}}}, diagnostics);
    EXPECT_EQ(source.DecodedTiles(), 3u);
    EXPECT_THAT(source.Features("roads"), SizeIs(1));
    source.Load(corner, {{{"places", std::nullopt}}}, diagnostics);
    EXPECT_EQ(source.DecodedTiles(), 4u);
    // With all attributes there is nothing that is missing.
    source.Load(corner, {{{"places", std::set<std::string>{"name"}}}}, diagnostics);
    EXPECT_EQ(source.DecodedTiles(), 4u);
}

TEST_F(KeptTiles, KeepToTheirMemory)
{
    VectorTileSource all = Source();
    all.Load(kWorld, {{{"places", std::nullopt}}}, diagnostics);
    const std::size_t one = all.KeptBytes() / 4;
    VectorTileSource source = Source(one * 5 / 2);
    for (int i = 0; i < 3; ++i)
    {
        source.Load(kWorld, {{{"places", std::nullopt}}}, diagnostics);
        EXPECT_THAT(source.Features("places"), SizeIs(4));
        EXPECT_EQ(source.KeptBytes(), 2 * one);
    }
    EXPECT_GT(source.DecodedTiles(), 4u);
}

TEST_F(KeptTiles, AreReadBeyondTheViewForLayersThatReachIntoIt)
{
    VectorTileSource source = Source();
    // The tile in the north-west, up to 60 pixels from those beside it.
    const MercatorView view({-90.0, 66.5, 3.0, 0.0}, {1900, 1900});
    source.Load(view, {{{"places", std::nullopt}, {"roads", std::nullopt}}}, diagnostics);
    ASSERT_THAT(source.Features("places"), SizeIs(1));
    FeatureRequest request{{{"places", std::nullopt}, {"roads", std::nullopt}}};
    request.layerMargins = {{"places", 200.0}};
    source.Load(view, request, diagnostics);
    EXPECT_THAT(source.Features("places"), SizeIs(4));
    EXPECT_THAT(source.Features("roads"), SizeIs(1));
}

} // namespace
