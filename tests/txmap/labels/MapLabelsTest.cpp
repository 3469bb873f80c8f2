#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/MapLabels.h>
#include <txmap/sources/GeometryReader.h>
#include <txmap/sources/VectorSource.h>

using namespace TZObjects;
using ::testing::HasSubstr;

namespace
{

bool HasLatin(char32_t character) { return character < 0x250; }

/// Reads features with names into a picture of the world in which a pixel is a degree.
class NamesOf
{
public:
    explicit NamesOf(const std::string& features, const std::string& field = "", LayerRole role = LayerRole::Any)
    {
        PrepareGdal();
        const TemporaryFolder folder;
        const std::string file =
            folder.Write("in.geojson", R"({"type":"FeatureCollection","features":[)" + features + "]}");
        LabelOptions options;
        options.wanted = true;
        options.field = field;
        GeometryReader reader(view, "", 7, options);
        layer = reader.Read(VectorSource(file), role);
        missing = reader.Names().AreMissing();
    }

    MapLayer layer;
    bool missing = false;

private:
    const View view{Projection::PlateCarree(), {}, PixelSize{360, 180}};
};

std::string Point(const std::string& properties)
{
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":{"type":"Point","coordinates":[1,2]}})";
}

std::string Square(const std::string& properties)
{
    return R"({"type":"Feature","properties":{)" + properties +
           R"(},"geometry":{"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,9],[0,0]]]}})";
}

} // namespace

TEST(MissingCharacters, AreNamedOnceEach)
{
    EXPECT_EQ(MissingCharacters({L"Kenya", L"S\xE3o"}, &HasLatin), "");
    const std::string message = MissingCharacters({L"\x5317\x4EAC", L"\x5317 \xE000"}, &HasLatin);
    EXPECT_THAT(message, HasSubstr("U+4EAC, U+5317, U+E000"));
    EXPECT_EQ(message.find("U+5317"), message.rfind("U+5317"));
    EXPECT_EQ(message.find('\n'), std::string::npos);
}

TEST(MissingCharacters, AreMissingWhereTheMessageSays)
{
    EXPECT_EQ(MissingCharacters({L"\x5317"}, &HasLatin, "nothing here has"),
              "nothing here has U+5317, which labels contain");
    EXPECT_EQ(MissingCharacters({L"\x5317"}, &HasLatin), "no installed font has U+5317, which labels contain");
}

TEST(MissingCharacters, AreCountedWhenTheyAreMany)
{
    std::wstring text;
    for (wchar_t c = 0x4E00; c < 0x4E00 + 30; ++c)
        text += c;
    EXPECT_THAT(MissingCharacters({text}, &HasLatin), HasSubstr("U+4E07 and 22 more"));
}

TEST(MissingCharacters, AreNotThoseWithoutAShape)
{
    EXPECT_EQ(MissingCharacters({L"a\x200D\xFE0F\x2009 \n\x200E"}, [](char32_t c) { return c == U'a'; }), "");
}

TEST(FontCatalog, KnowsTheFontsThatAreInstalled)
{
    EXPECT_TRUE(FontCatalog::Has("DejaVu Sans"));
    EXPECT_TRUE(FontCatalog::Has("dejavu sans"));
    EXPECT_TRUE(FontCatalog::Has("sans-serif"));
    EXPECT_FALSE(FontCatalog::Has("No Such Face"));
    EXPECT_FALSE(FontCatalog::Has("DejaVu"));
    EXPECT_EQ(FontCatalog::Resolved("DejaVu Sans"), "DejaVu Sans");
    EXPECT_TRUE(FontCatalog::Has(FontCatalog::Resolved("No Such Face")));
}

TEST(FontCatalog, KnowsTheirCharacters)
{
    EXPECT_TRUE(FontCatalog::HasCharacter(U'A'));
    EXPECT_TRUE(FontCatalog::HasCharacter(0x5317));
    EXPECT_FALSE(FontCatalog::HasCharacter(0x12000));
}

TEST(FontCatalog, KnowsTheCharactersOfOneFace)
{
    const auto latin = FontCatalog::CharactersOf("DejaVu Sans");
    EXPECT_TRUE(latin(U'A'));
    EXPECT_TRUE(latin(0x416));
    EXPECT_FALSE(latin(0x5317));
    EXPECT_FALSE(latin(0x12000));
    EXPECT_TRUE(FontCatalog::CharactersOf("WenQuanYi Micro Hei")(0x5317));
    // Cairo draws in another face where there is none of the name.
    EXPECT_TRUE(FontCatalog::CharactersOf("No Such Face")(U'A'));
    EXPECT_FALSE(FontCatalog::CharactersOf("No Such Face")(0x12000));
}

TEST(FeatureNames, AreReadAsTheyAre)
{
    const NamesOf names(Point(R"("name":"A < B","adm0cap":1,"scalerank":3,"pop_max":500)") + "," +
                        Point(R"("name":"")") + "," + Point(R"("name":null)") + "," + Square(R"("name":"C")"));
    ASSERT_EQ(names.layer.placeNames.size(), 1u);
    EXPECT_EQ(names.layer.placeNames[0].index, 0u);
    EXPECT_EQ(names.layer.placeNames[0].name.text, "A < B");
    EXPECT_TRUE(names.layer.placeNames[0].name.capital);
    EXPECT_EQ(names.layer.placeNames[0].name.rank, 3.0);
    EXPECT_EQ(names.layer.placeNames[0].name.population, 500.0);
    ASSERT_EQ(names.layer.areaNames.size(), 1u);
    EXPECT_EQ(names.layer.areaNames[0].name.text, "C");
    EXPECT_EQ(names.layer.places.size(), 3u);
}

TEST(FeatureNames, ComeFromTheFieldThatIsAskedFor)
{
    EXPECT_EQ(NamesOf(Point(R"("name":"a","name_de":"b")"), "name_de").layer.placeNames[0].name.text, "b");
    EXPECT_EQ(NamesOf(Point(R"("name":"a","size":42)"), "size").layer.placeNames[0].name.text, "42");
    EXPECT_EQ(NamesOf(Point(R"("admin":"a")")).layer.placeNames[0].name.text, "a");
}

TEST(FeatureNames, AreMissingWhereNoLayerHasTheField)
{
    EXPECT_TRUE(NamesOf(Point(R"("name":"a")"), "flavour").missing);
    EXPECT_TRUE(NamesOf(Point(R"("kind":"a")")).missing);
    EXPECT_FALSE(NamesOf(Point(R"("name":"a")"), "NAME").missing);
    EXPECT_FALSE(NamesOf("", "flavour").missing);
}

TEST(FeatureNames, AreNotThoseOfWater)
{
    EXPECT_TRUE(NamesOf(Square(R"("name":"Lake")"), "", LayerRole::Lakes).layer.areaNames.empty());
}

TEST(FeatureNames, AreWrittenAtOneOfSeveralPoints)
{
    const NamesOf names(R"({"type":"Feature","properties":{"name":"a"},"geometry":{"type":"MultiPoint",)"
                        R"("coordinates":[[1,1],[2,2],[3,3]]}})");
    EXPECT_EQ(names.layer.places.size(), 3u);
    EXPECT_EQ(names.layer.placeNames.size(), 1u);
}

TEST(MissingNames, SayWhatToDo)
{
    LabelOptions options;
    EXPECT_THAT(MissingNames(options), HasSubstr("--label-field"));
    options.field = "flavour";
    EXPECT_THAT(MissingNames(options), HasSubstr("--label-field flavour"));
}
