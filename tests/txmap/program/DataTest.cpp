#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>

#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <tests/txmap/support/ProgramRun.h>

namespace
{

GDALDatasetUniquePtr Open(const std::string& file)
{
    GDALAllRegister();
    return GDALDatasetUniquePtr(GDALDataset::Open(DataFile(file).c_str(), GDAL_OF_VECTOR));
}

class CountriesFile : public ::testing::TestWithParam<const char*>
{
protected:
    GDALDatasetUniquePtr dataset = Open(GetParam());
    OGRLayer* countries = dataset ? dataset->GetLayerByName("countries") : nullptr;
};

} // namespace

TEST(Data, IsSmall)
{
    std::uintmax_t bytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TX_TEST_DATA))
        bytes += entry.is_regular_file() ? entry.file_size() : 0;
    EXPECT_LT(bytes, 7u * 1024 * 1024);
}

TEST_P(CountriesFile, NamesAndColoursEveryCountry)
{
    ASSERT_TRUE(countries);
    EXPECT_GE(countries->GetFeatureCount(), 170);
    for (const OGRFeatureUniquePtr& country : countries)
    {
        const std::string name = country->GetFieldAsString("name");
        EXPECT_NE(name, "");
        const int colour = country->GetFieldAsInteger("mapcolor");
        EXPECT_EQ(colour == 0, name == "Antarctica") << name;
        EXPECT_TRUE(colour >= 0 && colour <= 7) << name;
    }
}

TEST_P(CountriesFile, GivesNeighboursDifferentColours)
{
    ASSERT_TRUE(countries);
    // Neighbours share an edge, and an edge the same two points.
    using Point = std::pair<double, double>;
    std::map<std::pair<Point, Point>, std::pair<int, std::string>> edges;
    int shared = 0;
    for (const OGRFeatureUniquePtr& country : countries)
    {
        const int colour = country->GetFieldAsInteger("mapcolor");
        const std::string name = country->GetFieldAsString("name");
        for (const OGRGeometry* const part : *country->GetGeometryRef()->toGeometryCollection())
            for (const OGRLinearRing* const ring : *part->toPolygon())
                for (int i = 1; i < ring->getNumPoints(); ++i)
                {
                    Point from{ring->getX(i - 1), ring->getY(i - 1)};
                    Point to{ring->getX(i), ring->getY(i)};
                    if (to < from)
                        std::swap(from, to);
                    const auto [found, isNew] = edges.try_emplace({from, to}, colour, name);
                    if (isNew || found->second.second == name)
                        continue;
                    ++shared;
                    EXPECT_NE(found->second.first, colour) << name << ", " << found->second.second;
                }
    }
    EXPECT_GT(shared, 1000);
}

TEST_P(CountriesFile, IsCutAtTheDateLine)
{
    ASSERT_TRUE(countries);
    for (const OGRFeatureUniquePtr& country : countries)
        for (const OGRGeometry* const part : *country->GetGeometryRef()->toGeometryCollection())
        {
            const bool isAntarctica = std::string(country->GetFieldAsString("name")) == "Antarctica";
            OGREnvelope box;
            part->getEnvelope(&box);
            EXPECT_TRUE(isAntarctica || box.MaxX - box.MinX < 180.0) << country->GetFieldAsString("name");
            EXPECT_TRUE(box.MinX >= -180.0 && box.MaxX <= 180.0);
        }
}

TEST_P(CountriesFile, HasItsBordersAsLines)
{
    OGRLayer* const borders = dataset ? dataset->GetLayerByName("borders") : nullptr;
    ASSERT_TRUE(borders);
    const OGRFeatureUniquePtr feature(borders->GetNextFeature());
    ASSERT_TRUE(feature);
    EXPECT_EQ(wkbFlatten(feature->GetGeometryRef()->getGeometryType()), wkbMultiLineString);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, CountriesFile,
                         ::testing::Values("countries-110m.json", "countries-50m.json", "countries-10m.json"),
                         [](const auto& test)
                         {
                             const std::string name = test.param;
                             return "At" + name.substr(10, name.find('.') - 10);
                         });

TEST(Data, HasRiversLakesAndPlaces)
{
    for (const auto& [file, type, count] :
         {std::tuple{"rivers-50m.json", 1, 400}, {"lakes-50m.json", 2, 200}, {"places-110m.geojson", 0, 200}})
    {
        const GDALDatasetUniquePtr dataset = Open(file);
        ASSERT_TRUE(dataset) << file;
        OGRLayer* const layer = dataset->GetLayer(0);
        EXPECT_GE(layer->GetFeatureCount(), count) << file;
        for (const OGRFeatureUniquePtr& feature : layer)
            ASSERT_EQ(feature->GetGeometryRef()->getDimension(), type) << file;
    }
}
