// Vector tiles as features, and what becomes of broken ones.
#include <random>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/TestTile.h>
#include <txmap/sources/VectorTileReader.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

/// A tile with a layer of each type.
TestTile World()
{
    TestTile tile;
    tile.layers.push_back(
        {"places",
         {{1, TestTile::Points({{1024, 2048}}), {0, 0, 1, 1}, 7},
          {1, TestTile::Points({{0, 0}, {4096, 4096}}), {0, 2, 2, 3}, 0}},
         {"name", "population", "capital"},
         {TestTile::Text("Here"), TestTile::Uint(12345), TestTile::Text("There"), TestTile::Bool(true)}});
    tile.layers.push_back({"roads", {{2, TestTile::Lines({{{0, 0}, {2048, 2048}}, {{10, 10}, {20, 10}, {20, 30}}})}}});
    tile.layers.push_back({"water",
                           {{3, TestTile::Lines({{{0, 0}, {4096, 0}, {4096, 4096}, {0, 4096}},
                                                 {{1024, 1024}, {1024, 2048}, {2048, 2048}, {2048, 1024}}},
                                                true)}}});
    return tile;
}

FeatureSet Read(const std::string& data, const std::string& layer, const TileId& id = {},
                const WantedProperties& properties = std::nullopt)
{
    FeatureSet set;
    ReadVectorTile(data, id, {{layer, properties, &set}});
    return set;
}

std::string Complaint(const TestTile& tile)
{
    try
    {
        Read(tile.Encoded(), tile.layers.at(0).name);
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "accepted";
}

std::string ComplaintAboutGeometry(int type, const std::vector<std::uint32_t>& geometry)
{
    TestTile tile;
    tile.layers.push_back({"layer", {{type, geometry}}});
    return Complaint(tile);
}

TEST(VectorTileReader, ReadsPointsWithTheirAttributes)
{
    const FeatureSet set = Read(World().Encoded(), "places");
    ASSERT_THAT(set.features, SizeIs(2));
    const SetFeature& here = set.features[0];
    EXPECT_EQ(here.type, GeometryType::Point);
    EXPECT_EQ(here.id.Number(), 7.0);
    EXPECT_EQ(set.Property(here, "name")->String(), "Here");
    EXPECT_EQ(set.Property(here, "population")->Number(), 12345.0);
    EXPECT_EQ(set.Property(here, "capital"), nullptr);
    EXPECT_EQ(set.points[0].x, 0.25);
    EXPECT_EQ(set.points[0].y, 0.5);
    const SetFeature& there = set.features[1];
    EXPECT_TRUE(there.id.IsNull());
    EXPECT_EQ(there.parts, 2u);
    EXPECT_TRUE(set.Property(there, "capital")->Boolean());
}

TEST(VectorTileReader, ReadsLinesAndClosesRings)
{
    const FeatureSet roads = Read(World().Encoded(), "roads");
    EXPECT_THAT(roads.counts, ElementsAre(2, 3));
    const FeatureSet water = Read(World().Encoded(), "water");
    EXPECT_THAT(water.counts, ElementsAre(5, 5));
    const LonLatGeometry degrees = water.ToDegrees(water.features[0]);
    ASSERT_THAT(degrees.polygons, SizeIs(1));
    EXPECT_THAT(degrees.polygons[0], SizeIs(2));
    EXPECT_NEAR(degrees.polygons[0][0][0].lon, -180.0, 1e-9);
}

TEST(VectorTileReader, PutsTilesWhereTheyBelong)
{
    const FeatureSet set = Read(World().Encoded(), "places", {3, 5, 2});
    EXPECT_EQ(set.points[0].x, (5 + 0.25) / 8.0);
    EXPECT_EQ(set.points[0].y, (2 + 0.5) / 8.0);
}

TEST(VectorTileReader, ReadsWantedAttributesAlone)
{
    const FeatureSet set = Read(World().Encoded(), "places", {}, std::set<std::string>{"population"});
    EXPECT_EQ(set.Property(set.features[0], "name"), nullptr);
    EXPECT_EQ(set.Property(set.features[0], "population")->Number(), 12345.0);
    EXPECT_THAT(set.values, SizeIs(1));
}

TEST(VectorTileReader, ReadsEveryKindOfValue)
{
    TestTile tile;
    tile.layers.push_back({"layer",
                           {{1, TestTile::Points({{0, 0}}), {0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5}}},
                           {"a", "b", "c", "d", "e", "f"},
                           {TestTile::Float(0.5f), TestTile::Number(1e10), TestTile::Int(-3), TestTile::Sint(-9),
                            TestTile::Bool(false), TestTile::Text("ü")}});
    const FeatureSet set = Read(tile.Encoded(), "layer");
    const auto number = [&](const char* name) { return set.Property(set.features[0], name)->Number(); };
    EXPECT_EQ(number("a"), 0.5);
    EXPECT_EQ(number("b"), 1e10);
    EXPECT_EQ(number("c"), -3.0);
    EXPECT_EQ(number("d"), -9.0);
    EXPECT_FALSE(set.Property(set.features[0], "e")->Boolean());
    EXPECT_EQ(set.Property(set.features[0], "f")->String(), "ü");
}

TEST(VectorTileReader, AnswersExpressions)
{
    const FeatureSet set = Read(World().Encoded(), "places");
    FeatureAttributes attributes(set);
    attributes.Select(set.features[0]);
    EXPECT_EQ(attributes.GeometryType(), "Point");
    EXPECT_EQ(attributes.Id().Number(), 7.0);
    EXPECT_THAT(attributes.Properties(), SizeIs(2));
    EXPECT_NEAR(attributes.Geometry()->parts[0][0].lon, -90.0, 1e-9);
    attributes.Select(set.features[1]);
    EXPECT_THAT(attributes.Geometry()->parts[0], SizeIs(2));
}

TEST(VectorTileReader, LeavesLayersAloneThatNobodyWants)
{
    TestTile tile = World();
    tile.layers[0].features[0].geometry = {99};
    EXPECT_THAT(Read(tile.Encoded(), "roads").features, SizeIs(1));
    EXPECT_THAT(Read(tile.Encoded(), "no such layer").features, IsEmpty());
    EXPECT_THAT(Read("", "roads").features, IsEmpty());
}

TEST(VectorTileReader, RefusesBrokenLayers)
{
    TestTile tile = World();
    tile.layers[0].version = 3;
    EXPECT_THAT(Complaint(tile), HasSubstr("version 3"));
    tile = World();
    tile.layers[0].extent = 0;
    EXPECT_THAT(Complaint(tile), HasSubstr("an extent of 0"));
    tile = World();
    tile.layers[1].name = "places";
    EXPECT_THAT(Complaint(tile), HasSubstr("two layers are called places"));
    tile = World();
    tile.layers[0].name.clear();
    EXPECT_THAT(Complaint(tile), HasSubstr("has no name"));
    tile = World();
    tile.layers[0].features[0].tags = {0, 99};
    EXPECT_THAT(Complaint(tile), HasSubstr("an attribute that is not there"));
    tile.layers[0].features[0].tags = {99, 0};
    EXPECT_THAT(Complaint(tile), HasSubstr("an attribute that is not there"));
    tile.layers[0].features[0].tags = {0};
    EXPECT_THAT(Complaint(tile), HasSubstr("has no value"));
    tile = World();
    tile.layers[0].features[0].type = 4;
    EXPECT_THAT(Complaint(tile), HasSubstr("type 4"));
}

TEST(VectorTileReader, RefusesBrokenGeometry)
{
    EXPECT_THAT(ComplaintAboutGeometry(1, {}), HasSubstr("no geometry"));
    EXPECT_THAT(ComplaintAboutGeometry(1, {0xFFFFFFF8u | 1u, 2, 2}), HasSubstr("ends too early"));
    EXPECT_THAT(ComplaintAboutGeometry(1, {1}), HasSubstr("wrong count"));
    EXPECT_THAT(ComplaintAboutGeometry(1, {(1u << 3) | 2u, 0, 0}), HasSubstr("unexpected command"));
    EXPECT_THAT(ComplaintAboutGeometry(2, {(1u << 3) | 1u, 0, 0}), HasSubstr("ends too early"));
    EXPECT_THAT(ComplaintAboutGeometry(2, {(2u << 3) | 1u, 0, 0, 0, 0}), HasSubstr("wrong count"));
    EXPECT_THAT(ComplaintAboutGeometry(3, {(1u << 3) | 1u, 0, 0, (2u << 3) | 2u, 2, 2, 4, 4}),
                HasSubstr("ends too early"));
    EXPECT_THAT(ComplaintAboutGeometry(3, {(1u << 3) | 1u, 0, 0, (2u << 3) | 2u, 2, 2, 4, 4, (2u << 3) | 7u}),
                HasSubstr("wrong count"));
    const std::uint32_t far = 0xFFFFFFFEu;
    EXPECT_THAT(ComplaintAboutGeometry(1, {(2u << 3) | 1u, far, 0, far, 0}), HasSubstr("out of range"));
}

TEST(VectorTileReader, RefusesEveryTruncationOrReadsAllLayersBefore)
{
    const std::string whole = World().Encoded();
    int refused = 0;
    for (std::size_t size = 1; size < whole.size(); ++size)
    {
        try
        {
            Read(whole.substr(0, size), "water");
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_THAT(error.what(), HasSubstr("is a broken vector tile"));
            ++refused;
        }
    }
    // Only where a layer ends, what is left is a tile again.
    EXPECT_EQ(refused, static_cast<int>(whole.size()) - 3);
}

TEST(VectorTileReader, SurvivesMutations)
{
    const std::string whole = World().Encoded();
    int refused = 0;
    for (unsigned seed = 0; seed < 2000; ++seed)
    {
        std::mt19937 random(seed);
        const auto any = [&](std::size_t below)
        { return std::uniform_int_distribution<std::size_t>(0, below - 1)(random); };
        std::string data = whole;
        for (std::size_t change = any(6) + 1; change > 0; --change)
        {
            const std::size_t at = any(data.size());
            switch (any(4))
            {
            case 0:
                data[at] = static_cast<char>(any(256));
                break;
            case 1:
                data.erase(at, any(8) + 1);
                break;
            case 2:
                data.insert(at, std::string(any(8) + 1, static_cast<char>(any(256))));
                break;
            default:
                data[at] = static_cast<char>(data[at] ^ (1 << any(8)));
            }
            if (data.empty())
                data = "x";
        }
        FeatureSet places, roads, water;
        try
        {
            ReadVectorTile(data, {2, 1, 1}, {{"places", {}, &places}, {"roads", {}, &roads}, {"water", {}, &water}});
        }
        catch (const std::runtime_error&)
        {
            ++refused;
        }
        for (const FeatureSet* set : {&places, &roads, &water})
            for (const SetFeature& feature : set->features)
            {
                FeatureAttributes attributes(*set);
                attributes.Select(feature);
                attributes.Properties();
                attributes.Geometry();
            }
    }
    EXPECT_GT(refused, 1000);
}

} // namespace
