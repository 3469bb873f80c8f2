#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LoadedLayer.h>
#include <txmap/labels/LabelLayout.h>
#include <txmap/map/AtlasView.h>
#include <txmap/map/FrameShape.h>
#include <txmap/sources/Gdal.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using TZObjects::TXColor;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXString;

namespace
{

/// Letters that are all half as wide as high.
LabelExtent Typewriter(const LabelText& text, const LabelLook& look)
{
    double columns = 0.0;
    const std::vector<TXString> lines = text.text.split(L'\n');
    for (const TXString& line : lines)
        columns = std::max(columns, double(line.length()));
    return {columns * (0.5 * look.size + look.spacing), double(lines.size()) * look.size};
}

LabelScene MakeScene(double width = 800, double height = 400)
{
    LabelScene scene;
    scene.frame = {0, width, 0, height};
    scene.style = ScaledLabelStyle(AtlasStyle().labels, {}, 1.0);
    scene.markerRadius = 3.0;
    return scene;
}

/// Areas of one rectangle each, and places.
class LayerMaker
{
public:
    LayerMaker& Country(const std::string& name, const std::vector<TXRect>& parts, double rank = 0.0)
    {
        Area area{layer.areaPoints.size(), layer.ringSizes.size(), static_cast<int>(parts.size())};
        for (const TXRect& part : parts)
        {
            for (const TXPoint& corner : {TXPoint{part.left, part.top},
                                          {part.right, part.top},
                                          {part.right, part.bottom},
                                          {part.left, part.bottom},
                                          {part.left, part.top}})
                layer.areaPoints.push_back(corner);
            layer.ringSizes.push_back(5);
        }
        layer.areaNames.push_back({layer.areas.size(), {name, false, rank, 0.0}});
        layer.areas.push_back(area);
        return *this;
    }
    LayerMaker& Place(const std::string& name, double x, double y, bool capital = false, double rank = 0.0,
                      double population = 0.0)
    {
        if (!name.empty())
            layer.placeNames.push_back({layer.places.size(), {name, capital, rank, population}});
        layer.places.emplace_back(x, y);
        return *this;
    }
    LabelLayout LayOut(const LabelScene& scene = MakeScene()) const { return LayOutLabels({layer}, scene, Typewriter); }

private:
    MapLayer layer;
};

std::vector<std::string> Names(const LabelLayout& layout)
{
    std::vector<std::string> names;
    for (const PlacedLabel& label : layout.labels)
        names.push_back(label.text.text.toUTF8());
    return names;
}

bool IsWithin(const TXRect& inner, const TXRect& outer)
{
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

bool Overlap(const TXRect& a, const TXRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TXRect WithHalo(const PlacedLabel& label)
{
    const double halo = label.look.halo.width;
    return {label.box.left - halo, label.box.right + halo, label.box.top - halo, label.box.bottom + halo};
}

/// What must hold for every layout.
void ExpectTidy(const LabelLayout& layout, const std::vector<MapLayer>& layers, const LabelScene& scene)
{
    for (std::size_t i = 0; i < layout.labels.size(); ++i)
    {
        EXPECT_TRUE(IsWithin(WithHalo(layout.labels[i]), scene.frame)) << layout.labels[i].text.text.toUTF8();
        for (std::size_t other = 0; other < layout.labels.size(); ++other)
            EXPECT_TRUE(i == other || !Overlap(WithHalo(layout.labels[i]), layout.labels[other].box))
                << layout.labels[i].text.text.toUTF8() << ", " << layout.labels[other].text.text.toUTF8();
    }
    std::set<std::pair<std::size_t, std::size_t>> leftOut;
    for (const LayerPlace& place : layout.leftOut)
        EXPECT_TRUE(leftOut.insert({place.layer, place.place}).second);
    for (std::size_t layer = 0; layer < layers.size(); ++layer)
        for (std::size_t i = 0; i < layers[layer].places.size(); ++i)
        {
            const TXPoint& at = layers[layer].places[i];
            const double r = scene.markerRadius;
            const TXRect marker(at.x - r, at.x + r, at.y - r, at.y + r);
            for (const PlacedLabel& label : layout.labels)
                EXPECT_TRUE(leftOut.count({layer, i}) > 0 || !Overlap(WithHalo(label), marker))
                    << label.text.text.toUTF8();
        }
}

} // namespace

TEST(LabelLayout, PutsANameIntoTheMiddleOfItsCountry)
{
    const LabelLayout layout = LayerMaker().Country("Kenya", {{200, 400, 100, 300}}).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Kenya"));
    const TXRect& box = layout.labels[0].box;
    EXPECT_NEAR((box.left + box.right) / 2, 300, 4);
    EXPECT_NEAR((box.top + box.bottom) / 2, 200, 4);
}

TEST(LabelLayout, NamesACountryOnceInItsLargestPart)
{
    const LabelLayout layout =
        LayerMaker().Country("Fiji", {{10, 100, 10, 60}, {200, 500, 100, 300}, {600, 700, 10, 60}}).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Fiji"));
    EXPECT_TRUE(IsWithin(layout.labels[0].box, {200, 500, 100, 300}));
    const LabelLayout parts = LayerMaker()
                                  .Country("Fiji", {{10, 100, 10, 60}})
                                  .Country("Fiji", {{200, 500, 100, 300}})
                                  .Country("Fiji", {{600, 700, 10, 60}})
                                  .LayOut();
    ASSERT_THAT(Names(parts), ElementsAre("Fiji"));
    EXPECT_TRUE(IsWithin(parts.labels[0].box, {200, 500, 100, 300}));
}

TEST(LabelLayout, GivesLargeCountriesLargerNames)
{
    const LabelLayout layout =
        LayerMaker().Country("Small", {{10, 70, 10, 40}}).Country("Large", {{200, 790, 50, 390}}).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Large", "Small"));
    EXPECT_GT(layout.labels[0].look.size, layout.labels[1].look.size);
    EXPECT_GT(layout.labels[0].look.spacing, 0.0);
}

TEST(LabelLayout, DoesNotSpaceScriptsThatJoinTheirLetters)
{
    const LabelLayout layout = LayerMaker().Country("\xD9\x85\xD8\xB5\xD8\xB1", {{200, 790, 50, 390}}).LayOut();
    ASSERT_EQ(layout.labels.size(), 1u);
    EXPECT_EQ(layout.labels[0].look.spacing, 0.0);
}

TEST(LabelLayout, BreaksANameThatIsTooLongForItsCountry)
{
    EXPECT_THAT(Names(LayerMaker().Country("Dem. Rep. Congo", {{300, 390, 100, 250}}).LayOut()),
                ElementsAre("Dem. Rep.\nCongo"));
}

TEST(LabelLayout, SkipsWhatDoesNotFitIntoThePicture)
{
    EXPECT_THAT(Names(LayerMaker().Country(std::string(200, 'x'), {{0, 800, 0, 400}}).LayOut()), IsEmpty());
    EXPECT_THAT(Names(LayerMaker().Country("Beyond", {{900, 1200, 0, 400}}).LayOut()), IsEmpty());
    EXPECT_THAT(Names(LayerMaker().Country("Kenya", {{0, 12, 0, 6}}).LayOut(MakeScene(12, 6))), IsEmpty());
}

TEST(LabelLayout, UsesThePartOfACountryThatIsVisible)
{
    const LabelLayout layout = LayerMaker().Country("Russia", {{600, 9000, -3000, 150}}).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Russia"));
    EXPECT_TRUE(IsWithin(WithHalo(layout.labels[0]), {600, 800, 0, 150}));
}

TEST(LabelLayout, PrefersRankThenSize)
{
    const std::vector<TXRect> same = {{300, 380, 100, 140}};
    EXPECT_EQ(Names(LayerMaker().Country("Minor", same, 5).Country("Major", same, 2).LayOut()).at(0), "Major");
    EXPECT_EQ(Names(LayerMaker().Country("Minor", same).Country("Major", {{300, 380, 100, 145}}).LayOut()).at(0),
              "Major");
}

TEST(LabelLayout, DoesNotWriteACountrysNameOnItsNeighbours)
{
    const LabelLayout layout = LayerMaker()
                                   .Country("Liechtenstein", {{398, 402, 198, 202}})
                                   .Country("West", {{100, 398, 50, 350}})
                                   .Country("East", {{402, 700, 50, 350}})
                                   .LayOut();
    EXPECT_THAT(Names(layout), ::testing::UnorderedElementsAre("East", "West"));
}

TEST(LabelLayout, WritesTheNameOfAnIslandBesideIt)
{
    const LabelLayout layout = LayerMaker().Country("Mauritius", {{398, 402, 198, 202}}).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Mauritius"));
}

TEST(LabelLayout, TriesRightLeftAboveAndBelowOfAPlace)
{
    const auto boxOf = [](const LabelLayout& layout)
    {
        EXPECT_THAT(Names(layout), ElementsAre("Town"));
        return layout.labels.empty() ? TXRect() : layout.labels[0].box;
    };
    const TXRect right = boxOf(LayerMaker().Place("Town", 400, 200).LayOut());
    EXPECT_GT(right.left, 403);
    EXPECT_NEAR((right.top + right.bottom) / 2, 200, 1e-9);
    // Nameless places hold their ground.
    LayerMaker map;
    map.Place("Town", 400, 200).Place("", 415, 200);
    EXPECT_LT(boxOf(map.LayOut()).right, 397);
    map.Place("", 385, 200);
    EXPECT_LT(boxOf(map.LayOut()).bottom, 197);
    map.Place("", 400, 190);
    EXPECT_GT(boxOf(map.LayOut()).top, 203);
}

TEST(LabelLayout, NamesCapitalsFirstThenByRank)
{
    EXPECT_THAT(Names(LayerMaker()
                          .Place("Village", 100, 100, false, 8)
                          .Place("City", 100, 200, false, 1)
                          .Place("Capital", 100, 300, true, 5)
                          .LayOut()),
                ElementsAre("Capital", "City", "Village"));
}

TEST(LabelLayout, LeavesOutPlacesWithoutRoomForTheirNames)
{
    LayerMaker map;
    for (int i = 0; i < 60; ++i)
        map.Place("Village " + std::to_string(i), 400 + i % 8, 200 + i / 8, i == 33, 3);
    const LabelLayout layout = map.LayOut();
    EXPECT_THAT(Names(layout), ::testing::Contains("Village 33"));
    EXPECT_EQ(layout.labels.size() + layout.leftOut.size(), 60u);
    EXPECT_GT(layout.leftOut.size(), 40u);
}

TEST(LabelLayout, WritesPlacesSmallerThanCountries)
{
    const LabelLayout layout =
        LayerMaker().Country("Tiny", {{10, 60, 10, 40}}).Place("Town", 400, 200, true, 0).LayOut();
    ASSERT_THAT(Names(layout), ElementsAre("Tiny", "Town"));
    EXPECT_LT(layout.labels[1].look.size, layout.labels[0].look.size);
}

TEST(LabelLayout, ScalesWithTheWantedSize)
{
    LabelOptions options;
    options.size = 26;
    options.halo = LabelHalo{4.0, TXColor::RED_};
    const LabelStyle style = ScaledLabelStyle(AtlasStyle().labels, options, 3.0);
    EXPECT_EQ(style.size, 26.0);
    EXPECT_EQ(style.countryHalo.width, 4.0);
    EXPECT_EQ(style.placeHalo.color.GetColor(), TXColor::RED_.GetColor());
    EXPECT_EQ(ScaledLabelStyle(AtlasStyle().labels, {}, 3.0).size, 3.0 * AtlasStyle().labels.size);
}

TEST(LabelLayout, IsTidyOverTheWorld)
{
    PrepareGdal();
    const std::string data = TX_TEST_DATA;
    NameRequest options;
    options.wanted = true;
    for (const Projection projection : {Projection::PlateCarree(), Projection::WebMercator()})
    {
        const AtlasView view(projection, {}, PixelSize{2048, 1024});
        std::vector<MapLayer> layers;
        layers.push_back(LoadedLayer(data + "/countries-50m.json", view, options));
        layers.push_back(LoadedLayer(data + "/places-110m.geojson", view, options));
        LabelScene scene = MakeScene();
        scene.frame = view.Frame();
        const LabelLayout layout = LayOutLabels(layers, scene, Typewriter);
        ExpectTidy(layout, layers, scene);
        EXPECT_GT(layout.labels.size(), 100u);
        EXPECT_THAT(Names(layout), ::testing::IsSupersetOf({"Brazil", "China", "Australia", "Canada", "Algeria"}));
    }
}

TEST(LabelLayout, KeepsNamesInTheOutlineAndLeavesOutPlacesThatCrossIt)
{
    const FrameShape circle = FrameShape::RoundedRectangle({200, 600, 0, 400}, 200);
    LabelScene scene = MakeScene();
    scene.outline = &circle;
    LayerMaker maker;
    for (int i = 0; i < 20; ++i)
        for (int k = 0; k < 10; ++k)
            maker.Place("Town", 20.0 + 40.0 * i, 20.0 + 40.0 * k);
    const LabelLayout layout = maker.LayOut(scene);
    EXPECT_GT(layout.labels.size(), 40u);
    for (const PlacedLabel& label : layout.labels)
        EXPECT_TRUE(circle.Contains(WithHalo(label))) << label.box.left << ", " << label.box.top;
    std::set<std::size_t> leftOut;
    for (const LayerPlace& place : layout.leftOut)
        leftOut.insert(place.place);
    EXPECT_EQ(layout.labels.size() + leftOut.size(), 200u);
    for (std::size_t i = 0; i < 200; ++i)
    {
        const double x = 20.0 + 40.0 * static_cast<double>(i / 10);
        const double y = 20.0 + 40.0 * static_cast<double>(i % 10);
        if (!circle.Contains({x - 3, x + 3, y - 3, y + 3}))
        {
            EXPECT_EQ(leftOut.count(i), 1u) << x << ", " << y;
        }
    }
}

TEST(LabelLayout, KeepsNamesAndPlacesOutOfWhatIsTaken)
{
    LabelScene scene = MakeScene();
    scene.taken = {TXRect(300, 400, 100, 200)};
    LayerMaker maker;
    maker.Place("Under", 350, 150).Place("Cut", 302, 150).Place("Beside", 290, 150).Place("", 310, 110);
    const LabelLayout layout = maker.LayOut(scene);
    EXPECT_THAT(Names(layout), ElementsAre("Beside"));
    EXPECT_FALSE(Overlap(WithHalo(layout.labels[0]), scene.taken[0]));
    EXPECT_EQ(layout.leftOut.size(), 2u);
    const LabelLayout country = LayerMaker().Country("Whole", {TXRect(310, 390, 110, 190)}).LayOut(scene);
    for (const PlacedLabel& label : country.labels)
        EXPECT_FALSE(Overlap(WithHalo(label), scene.taken[0]));
}

TEST(LabelLayout, NamesTwoPlacesOfOneNameThatAreCloseOnce)
{
    LayerMaker maker;
    maker.Place("Twice", 300, 200).Place("Twice", 312, 210).Place("Twice", 600, 200);
    const LabelLayout layout = maker.LayOut();
    EXPECT_THAT(Names(layout), ElementsAre("Twice", "Twice"));
    EXPECT_EQ(layout.leftOut.size(), 1u);
}

TEST(LabelLayout, LeavesOutSuburbs)
{
    LayerMaker maker;
    maker.Place("Town", 300, 200, false, 1.0, 1e6)
        .Place("Suburb", 315, 215, false, 3.0, 1e5)
        .Place("Sister", 288, 185, false, 2.0, 6e5)
        .Place("Capital", 300, 218, true, 5.0, 1e4);
    EXPECT_THAT(Names(maker.LayOut()), ::testing::UnorderedElementsAre("Town", "Sister", "Capital"));
}
