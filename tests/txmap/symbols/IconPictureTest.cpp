// Icons of a style against the same pictures by direct calls.
#include <algorithm>
#include <cmath>
#include <fstream>

#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>

using namespace TZObjects;

namespace
{

/// A sprite with pictures of 8 x 6 in the four colours of a 2 x 2 board: "board", the same for twice as many pixels as
/// "dense", and a field of distances as "field".
class IconPicture : public StyledTwins
{
protected:
    IconPicture()
    {
        board = MakeBoard();
        std::ofstream(folder / "sprite.json") << R"({"board": {"x": 0, "y": 0, "width": 8, "height": 6},
            "dense": {"x": 0, "y": 0, "width": 8, "height": 6, "pixelRatio": 2},
            "field": {"x": 8, "y": 0, "width": 24, "height": 24, "sdf": true},
            "plate": {"x": 0, "y": 0, "width": 8, "height": 6, "content": [2, 2, 6, 4], "stretchX": [[2, 6]],
                      "stretchY": [[2, 4]]}})";
        const TXRefPtr<TXImage> sprite(plugin.Engine().NewImage());
        sprite->CreateImage(32, 24, TXImage::Format_ARGB32);
        sprite->Fill(0u);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                sprite->SetPixel(x, y, ColorAt(x, y));
        // The distance to a square in the middle that is 8 pixels wide.
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x)
            {
                const double inside = 4.0 - std::max(std::abs(x - 11.5), std::abs(y - 11.5));
                sprite->SetPixel(8 + x, y, {0, 0, 0, static_cast<int>(std::clamp(192.0 + 32.0 * inside, 0.0, 255.0))});
            }
        sprite->Save(TXString(folder / "sprite.png"));
    }

    static TXColor ColorAt(int x, int y)
    {
        return x < 4 ? (y < 3 ? TXColor(255, 0, 0, 255) : TXColor(0, 255, 0, 255))
                     : (y < 3 ? TXColor(0, 0, 255, 255) : TXColor(0, 0, 0, 255));
    }

    TXRefPtr<TXImage> MakeBoard()
    {
        TXRefPtr<TXImage> image(plugin.Engine().NewImage());
        image->CreateImage(8, 6, TXImage::Format_ARGB32);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                image->SetPixel(x, y, ColorAt(x, y));
        return image;
    }

    std::vector<unsigned> Icon(const std::string& layout, const TXPoint& at = {100.0, 100.0},
                               const std::string& paint = "", double bearing = 0.0)
    {
        return Styled(R"({"type": "Point", "coordinates": )" + Place(at.x, at.y) + "}",
                      R"({"id": "i", "type": "symbol", "source": "s", "layout": {)" + layout + R"(}, "paint": {)" +
                          paint + "}}",
                      0.0, bearing);
    }

    /// The board with its top left at a pixel.
    std::vector<unsigned> BoardAt(double x, double y, double opacity = 1.0)
    {
        return Direct(
            [&](TXGraphics& surface) {
                surface.DrawImage({x, x + 8.0, y, y + 6.0}, board.get(), {0.0, 8.0, 0.0, 6.0}, opacity);
            });
    }

    static unsigned At(const std::vector<unsigned>& pixels, int x, int y)
    {
        return pixels[static_cast<std::size_t>(y * 256 + x)];
    }

    TXRefPtr<TXImage> board;
};

const char* const kBoard = R"("icon-image": "board")";

} // namespace

TEST_F(IconPicture, LiesOnWholePixels)
{
    EXPECT_EQ(Differing(Icon(kBoard), BoardAt(96, 97)), 0u);
    EXPECT_EQ(Differing(Icon(kBoard, {100.4, 100.4}), BoardAt(96, 97)), 0u);
    EXPECT_EQ(Differing(Icon(kBoard, {100.6, 99.6}), BoardAt(97, 97)), 0u);
    EXPECT_EQ(Differing(Icon(kBoard, {2.0, 254.0}), BoardAt(-2, 251)), 0u);
}

TEST_F(IconPicture, AnchorsAndOffsets)
{
    const std::string layout = kBoard;
    for (const auto& [anchor, x, y] : {std::tuple{"left", 100, 97},
                                       {"right", 92, 97},
                                       {"top", 96, 100},
                                       {"bottom", 96, 94},
                                       {"top-left", 100, 100},
                                       {"top-right", 92, 100},
                                       {"bottom-left", 100, 94},
                                       {"bottom-right", 92, 94},
                                       {"center", 96, 97}})
        EXPECT_EQ(Differing(Icon(layout + R"(, "icon-anchor": ")" + anchor + "\""), BoardAt(x, y)), 0u) << anchor;
    EXPECT_EQ(Differing(Icon(layout + R"(, "icon-offset": [10, -5])"), BoardAt(106, 92)), 0u);
}

TEST_F(IconPicture, HangsBelowTheLineWithinATextAsInBrowsers)
{
    const std::string text = R"("text-font": ["DejaVu Sans"], "text-field": ["format", ["image", "board"], {}])";
    EXPECT_EQ(Differing(Icon(text + R"(, "text-size": 24)"), BoardAt(96, 104)), 0u);
}

TEST_F(IconPicture, OpacityAndTranslation)
{
    EXPECT_EQ(Differing(Icon(kBoard, {100, 100}, R"("icon-opacity": 0.4)"), BoardAt(96, 97, 0.4)), 0u);
    EXPECT_EQ(Drawn(Icon(kBoard, {100, 100}, R"("icon-opacity": 0)")), 0u);
    EXPECT_EQ(Differing(Icon(kBoard, {100, 100}, R"("icon-translate": [7, 9])"), BoardAt(103, 106)), 0u);
    // East is up, and the place is in the middle, which stays.
    EXPECT_EQ(Differing(Icon(kBoard, {128, 128}, R"("icon-translate": [7, 9])", 90.0), BoardAt(133, 118)), 0u);
    EXPECT_EQ(
        Differing(Icon(kBoard, {128, 128}, R"("icon-translate": [7, 9], "icon-translate-anchor": "viewport")", 90.0),
                  BoardAt(131, 134)),
        0u);
}

TEST_F(IconPicture, SizeAndRatio)
{
    const std::vector<unsigned> twice = Icon(R"("icon-image": "board", "icon-size": 2)");
    EXPECT_EQ(At(twice, 94, 96), 0xffff0000u);
    EXPECT_EQ(At(twice, 105, 104), 0xff000000u);
    EXPECT_EQ(At(twice, 90, 100), 0u);
    // Twice as many pixels for twice the size are drawn as they are.
    EXPECT_EQ(Differing(Icon(R"("icon-image": "dense", "icon-size": 2)"), BoardAt(96, 97)), 0u);
    EXPECT_LT(Drawn(Icon(R"("icon-image": "dense")")), 40u);
}

TEST_F(IconPicture, RotationTurnsClockwise)
{
    const std::vector<unsigned> turned = Icon(R"("icon-image": "board", "icon-size": 2, "icon-rotate": 90)");
    EXPECT_EQ(At(turned, 104, 95), 0xffff0000u);
    EXPECT_EQ(At(turned, 95, 95), 0xff00ff00u);
    EXPECT_EQ(At(turned, 104, 104), 0xff0000ffu);
    // What turns with the map is turned back by its bearing.
    EXPECT_EQ(Differing(Icon(R"("icon-image": "board", "icon-size": 2, "icon-rotation-alignment": "map")", {128, 128},
                             "", -90.0),
                        Icon(R"("icon-image": "board", "icon-size": 2, "icon-rotate": 90)", {128, 128})),
              0u);
}

TEST_F(IconPicture, DistanceFieldsHaveColourAndHalo)
{
    const std::string field = R"("icon-image": "field")";
    const std::vector<unsigned> red = Icon(field, {100, 100}, R"("icon-color": "#ff0000")");
    EXPECT_EQ(At(red, 99, 99), 0xffff0000u);
    EXPECT_EQ(At(red, 92, 99), 0u);
    const std::vector<unsigned> halo =
        Icon(field, {100, 100}, R"("icon-color": "#ff0000", "icon-halo-color": "#0000ff", "icon-halo-width": 4)");
    EXPECT_EQ(At(halo, 99, 99), 0xffff0000u);
    EXPECT_EQ(At(halo, 94, 99), 0xff0000ffu);
    EXPECT_EQ(At(halo, 90, 99), 0u);
}

TEST_F(IconPicture, PlatesStretchAroundTheirText)
{
    const std::vector<unsigned> plate =
        Icon(R"("icon-image": "plate", "icon-text-fit": "both", "text-field": "mm mm mm", "text-font": ["DejaVu Sans"],
             "text-size": 20, "icon-text-fit-padding": [3, 3, 3, 3])");
    // Its corners keep their size, and its colours meet in the middle.
    EXPECT_EQ(At(plate, 60, 90), 0xffff0000u);
    EXPECT_EQ(At(plate, 140, 90), 0xff0000ffu);
    EXPECT_EQ(At(plate, 60, 113), 0xff00ff00u);
    EXPECT_EQ(At(plate, 100, 80), 0u);
}

TEST_F(IconPicture, PlatesGoDownWithAColumn)
{
    const auto plate = [&](const std::string& modes, const std::string& more = {})
    {
        return Icon(R"("icon-image": "plate", "icon-text-fit": "both", "text-field": "東京都駅前", "text-size": 20,
             "text-font": ["DejaVu Sans"], "text-max-width": 20, "icon-text-fit-padding": [3, 3, 3, 3],
             "text-writing-mode": )" +
                    modes + more);
    };
    const std::vector<unsigned> down = plate(R"(["vertical"])");
    const std::vector<unsigned> across = plate(R"(["horizontal"])");
    const unsigned red = 0xffff0000u;
    EXPECT_EQ(At(across, 100 - 50, 100 - 8), red);
    EXPECT_EQ(At(across, 100 - 8, 100 - 50), 0u);
    EXPECT_EQ(At(down, 100 - 8, 100 - 50), red);
    EXPECT_EQ(At(down, 100 - 50, 100 - 8), 0u);
    EXPECT_EQ(Differing(plate(R"(["vertical", "horizontal"])"), down), 0u);
    EXPECT_EQ(Differing(plate(R"(["horizontal", "vertical"])"), across), 0u);
    const std::string sides = R"(, "text-variable-anchor": ["center"])";
    EXPECT_EQ(Differing(plate(R"(["vertical"])", sides), down), 0u);
}

TEST_F(IconPicture, AlongALineTheyTurnWithIt)
{
    const std::string line = Geometry("LineString", {{{128, 20}, {128, 230}}});
    const auto along = [&](const std::string& more)
    {
        return Styled(line, R"({"id": "i", "type": "symbol", "source": "s", "layout": {"icon-image": "board",
                      "icon-size": 2, "symbol-placement": "line-center")" +
                                more + "}}");
    };
    const auto alone = [&](double angle) {
        return Icon(R"("icon-image": "board", "icon-size": 2, "icon-rotate": )" + std::to_string(angle), {128, 125});
    };
    EXPECT_EQ(Differing(along(""), alone(90.0)), 0u);
    EXPECT_EQ(Differing(along(R"(, "icon-rotation-alignment": "viewport")"), alone(0.0)), 0u);
}

TEST_F(IconPicture, WhatRunsLeftwardsMayBeKeptUpright)
{
    const auto along = [&](const std::string& more)
    {
        return Styled(Geometry("LineString", {{{230, 128}, {20, 128}}}),
                      R"({"id": "i", "type": "symbol", "source": "s", "layout": {"icon-image": "board",
                      "icon-size": 2, "symbol-placement": "line-center")" +
                          more + "}}");
    };
    const auto alone = [&](const char* angle) {
        return Icon(R"("icon-image": "board", "icon-size": 2, "icon-rotate": )" + std::string(angle), {125, 128});
    };
    EXPECT_EQ(Differing(along(""), alone("180")), 0u);
    EXPECT_EQ(Differing(along(R"(, "icon-keep-upright": true)"), alone("0")), 0u);
}

TEST_F(IconPicture, TheLowestLiesOnTop)
{
    const std::string points =
        R"({"type": "MultiPoint", "coordinates": [)" + Place(100, 104) + "," + Place(100, 100) + "]}";
    const auto drawn = [&](const std::string& order)
    {
        return Styled(points, R"({"id": "i", "type": "symbol", "source": "s", "layout": {"icon-image": "board",
                      "icon-overlap": "always", "symbol-z-order": ")" +
                                  order + "\"}}");
    };
    const auto direct = [&](double first, double second)
    {
        return Direct(
            [&](TXGraphics& surface)
            {
                for (const double y : {first, second})
                    surface.DrawImage({96.0, 104.0, y, y + 6.0}, board.get(), {0.0, 8.0, 0.0, 6.0}, 1.0);
            });
    };
    EXPECT_EQ(Differing(drawn("viewport-y"), direct(97, 101)), 0u);
    EXPECT_EQ(Differing(drawn("auto"), direct(97, 101)), 0u);
    EXPECT_EQ(Differing(drawn("source"), direct(101, 97)), 0u);
}

TEST_F(IconPicture, StrangeNumbersDrawNothingOrSomething)
{
    for (const char* const strange :
         {R"("icon-size": ["/", 1, 0])", R"("icon-size": ["sqrt", -1])", R"("icon-rotate": ["/", 1, 0])",
          R"("icon-offset": ["literal", [1e12, 0]])", R"("icon-size": 1e12)",
          R"("icon-padding": ["literal", [1e12, 1e12, 1e12, 1e12]])"})
        Icon(std::string(kBoard) + ", " + strange);
    EXPECT_EQ(Drawn(Icon(R"("icon-image": "nothing")")), 0u);
    EXPECT_EQ(Drawn(Icon(R"("icon-image": "board", "icon-size": 0)")), 0u);
}

TEST_F(IconPicture, CharactersOfFontsAreIcons)
{
    const std::vector<unsigned> mark =
        Styled(R"({"type": "Point", "coordinates": )" + Place(100, 100) + "}",
               R"({"id": "i", "type": "symbol", "source": "s", "layout": {"icon-size": 2, "icon-rotate": 30},
                   "paint": {"icon-color": "#ff0000", "icon-opacity": 0.4},
                   "metadata": {"txmap:font-marker": {"font": "DejaVu Sans", "character": "★"}}})");
    EXPECT_GT(Drawn(mark), 100u);
    EXPECT_EQ(Differing(mark, Direct(
                                  [&](TXGraphics& surface)
                                  {
                                      const TXRefPtr<TXFont> font(plugin.Engine().NewFont());
                                      font->Create();
                                      surface.SelectFont(font);
                                      surface.SelectPen(Pen({255, 0, 0, 102}, 1.0));
                                      surface.FontMarker(100.0, 100.0, 48.0, 48.0, 30.0, TXString("DejaVu Sans"),
                                                         static_cast<short>(0x2605));
                                  })),
              0u);
}
