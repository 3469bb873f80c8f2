#include <cmath>

#include <gtest/gtest.h>
#include <txmap/sources/Sprites.h>
#include <txmap/symbols/IconShape.h>
#include <txmap/symbols/PoleOfInaccessibility.h>
#include <txmap/symbols/SymbolAnchor.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

SpritePicture Picture(int width, int height, double ratio = 1.0)
{
    SpritePicture picture;
    picture.pixels.size = {width, height};
    picture.ratio = ratio;
    return picture;
}

void ExpectBox(const TXRect& box, double left, double right, double top, double bottom)
{
    EXPECT_DOUBLE_EQ(box.left, left);
    EXPECT_DOUBLE_EQ(box.right, right);
    EXPECT_DOUBLE_EQ(box.top, top);
    EXPECT_DOUBLE_EQ(box.bottom, bottom);
}

std::string Text(const std::vector<IconStop>& stops)
{
    std::string text;
    for (const IconStop& stop : stops)
        text += (text.empty() ? "" : " ") + std::to_string(std::lround(stop.picture)) + ":" +
                std::to_string(std::lround(stop.place));
    return text;
}

} // namespace

TEST(SymbolAnchor, SaysWhereTheBoxIs)
{
    for (const auto& [name, left, above] : {std::tuple{"center", 0.5, 0.5},
                                            {"left", 0.0, 0.5},
                                            {"right", 1.0, 0.5},
                                            {"top", 0.5, 0.0},
                                            {"bottom", 0.5, 1.0},
                                            {"top-left", 0.0, 0.0},
                                            {"top-right", 1.0, 0.0},
                                            {"bottom-left", 0.0, 1.0},
                                            {"bottom-right", 1.0, 1.0}})
    {
        EXPECT_EQ(AlignmentOf(name).left, left) << name;
        EXPECT_EQ(AlignmentOf(name).above, above) << name;
    }
}

TEST(SymbolAnchor, OffsetsGoAwayFromThePoint)
{
    const double baseline = 7.0 / 24.0;
    const double part = std::sqrt(2.0);
    for (const auto& [name, x, y] : {std::tuple{"center", 0.0, 0.0},
                                     {"left", 2.0, 0.0},
                                     {"right", -2.0, 0.0},
                                     {"top", 0.0, 2.0 - baseline},
                                     {"bottom", 0.0, baseline - 2.0},
                                     {"top-left", part, part - baseline},
                                     {"bottom-right", -part, baseline - part}})
    {
        EXPECT_DOUBLE_EQ(RadialOffset(name, 2.0).x, x) << name;
        EXPECT_DOUBLE_EQ(RadialOffset(name, 2.0).y, y) << name;
    }
    EXPECT_DOUBLE_EQ(RadialOffset("left", -2.0).x, 0.0);
    EXPECT_DOUBLE_EQ(OutwardOffset("bottom-right", {1.0, -2.0}).x, -1.0);
    EXPECT_DOUBLE_EQ(OutwardOffset("bottom-right", {1.0, -2.0}).y, baseline - 2.0);
    EXPECT_DOUBLE_EQ(OutwardOffset("left", {1.0, 2.0}).y, 0.0);
}

TEST(IconShape, StandsAtItsAnchor)
{
    const SpritePicture picture = Picture(40, 20, 2.0);
    ExpectBox(ShapeIcon(picture, "center", {0.0, 0.0}, 1.0).Box(), -10.0, 10.0, -5.0, 5.0);
    ExpectBox(ShapeIcon(picture, "top-left", {0.0, 0.0}, 2.0).Box(), 0.0, 40.0, 0.0, 20.0);
    ExpectBox(ShapeIcon(picture, "bottom", {3.0, -4.0}, 2.0).Box(), -14.0, 26.0, -28.0, -8.0);
}

TEST(IconShape, FitsATextWithPadding)
{
    const SpritePicture picture = Picture(10, 10);
    IconTextFit fit;
    fit.text = {-50.0, 50.0, -8.0, 8.0};
    fit.width = fit.height = true;
    fit.padding = {1.0, 2.0, 3.0, 4.0};
    ExpectBox(FitIcon(picture, fit).Box(), -54.0, 52.0, -9.0, 11.0);
    fit.height = false;
    ExpectBox(FitIcon(picture, fit).Box(), -54.0, 52.0, -5.0, 5.0);
    fit.width = false;
    fit.height = true;
    fit.offset = {10.0, 0.0};
    ExpectBox(FitIcon(picture, fit).Box(), 5.0, 15.0, -9.0, 11.0);
}

TEST(IconShape, StretchesOnlyWhatMayBeStretched)
{
    SpritePicture picture = Picture(20, 10);
    picture.content = {{4.0, 2.0, 16.0, 8.0}};
    picture.stretchX = {{6.0, 9.0}, {11.0, 14.0}};
    picture.stretchY = {{4.0, 6.0}};
    IconTextFit fit;
    fit.text = {0.0, 36.0, 0.0, 10.0};
    fit.width = fit.height = true;
    const IconShape shape = FitIcon(picture, fit);
    // Six pixels of the content keep their size, six become thirty.
    EXPECT_EQ(Text(shape.across), "0:-4 6:2 9:17 11:19 14:34 20:40");
    EXPECT_EQ(Text(shape.down), "0:-2 4:2 6:8 10:12");
    // A text that is too small shrinks the rest.
    fit.text = {0.0, 3.0, 0.0, 10.0};
    EXPECT_EQ(Text(FitIcon(picture, fit).across), "0:-2 6:1 9:1 11:2 14:2 20:5");
}

TEST(IconShape, KeepsProportionsWhereThePictureSaysSo)
{
    SpritePicture picture = Picture(20, 10);
    picture.content = {{0.0, 0.0, 20.0, 10.0}};
    picture.fitWidth = TextFit::StretchOnly;
    picture.fitHeight = TextFit::Proportional;
    IconTextFit fit;
    fit.text = {-10.0, 10.0, -10.0, 10.0};
    fit.width = fit.height = true;
    ExpectBox(FitIcon(picture, fit).Box(), -20.0, 20.0, -10.0, 10.0);
    fit.text = {-50.0, 50.0, -10.0, 10.0};
    ExpectBox(FitIcon(picture, fit).Box(), -50.0, 50.0, -10.0, 10.0);
}

TEST(IconShape, BoxOfWhatIsTurned)
{
    const TXRect box = TurnedBox({0.0, 20.0, 0.0, 10.0}, 90.0);
    EXPECT_NEAR(box.left, -10.0, 1e-12);
    EXPECT_NEAR(box.right, 0.0, 1e-12);
    EXPECT_NEAR(box.top, 0.0, 1e-12);
    EXPECT_NEAR(box.bottom, 20.0, 1e-12);
}

TEST(PoleOfInaccessibility, IsFarthestFromTheEdge)
{
    const std::vector<TXPoint> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
    PolygonRings polygon{{{square.data(), square.size()}}};
    TXPoint pole = PoleOfInaccessibility(polygon, 0.01);
    EXPECT_NEAR(pole.x, 5.0, 0.01);
    EXPECT_NEAR(pole.y, 5.0, 0.01);
    const std::vector<TXPoint> hole = {{1, 1}, {1, 9}, {6, 9}, {6, 1}, {1, 1}};
    polygon.rings.push_back({hole.data(), hole.size()});
    pole = PoleOfInaccessibility(polygon, 0.01);
    EXPECT_NEAR(pole.x, 8.0, 0.05);
    // An angle: the middle of its box is outside.
    const std::vector<TXPoint> angle = {{0, 0}, {10, 0}, {10, 2}, {4, 2}, {4, 10}, {0, 10}, {0, 0}};
    pole = PoleOfInaccessibility({{{angle.data(), angle.size()}}}, 0.01);
    EXPECT_LT(pole.x, 4.0);
}

TEST(PoleOfInaccessibility, OfWhatHasNoArea)
{
    const std::vector<TXPoint> flat = {{3, 4}, {10, 4}, {3, 4}};
    const TXPoint pole = PoleOfInaccessibility({{{flat.data(), flat.size()}}}, 0.01);
    EXPECT_EQ(pole.x, 3.0);
    EXPECT_EQ(pole.y, 4.0);
}
