// Properties of drawn layers against the same pictures by direct calls.
#include <gdal_priv.h>

#include <tests/txmap/drawing/layers/CurvedCircle.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>

using namespace TZObjects;

namespace
{

using Points = std::vector<TXPoint>;

const Points kRing = {{40.3, 50.2}, {200.6, 60.4}, {180.1, 210.7}, {60.2, 190.3}, {40.3, 50.2}};
const Points kLine = {{20.3, 30.4}, {120.6, 80.2}, {60.4, 150.7}, {230.2, 220.1}};

Points Moved(Points points, double dx, double dy)
{
    for (TXPoint& point : points)
        point = {point.x + dx, point.y + dy};
    return points;
}

/// Where points come to lie when east is up.
Points EastUp(Points points)
{
    for (TXPoint& point : points)
        point = {point.y, 256.0 - point.x};
    return points;
}

class LayerProperty : public StyledTwins
{
protected:
    void ExpectSame(const std::vector<unsigned>& styled, const Draw& draw)
    {
        EXPECT_GT(Drawn(styled), 50u);
        EXPECT_EQ(Differing(styled, Direct(draw)), 0u);
    }

    std::vector<unsigned> Circle(const std::string& paint, double bearing = 0.0)
    {
        return Styled(R"({"type": "Point", "coordinates": )" + Place(90.3, 70.7) + "}",
                      R"({"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": 12)" + paint + "}}",
                      0.0, bearing);
    }
    Draw CircleAt(double x, double y, const TXColor& color)
    {
        return [=](TXGraphics& surface)
        {
            surface.SelectBrush(Brush(color));
            AddCurvedCircle(surface, {x, y}, 11.5);
            surface.DrawPath();
        };
    }

    std::vector<unsigned> Line(const std::string& paint, double bearing = 0.0)
    {
        return Styled(Geometry("LineString", {kLine}),
                      R"({"id": "l", "type": "line", "source": "s",
                      "layout": {"line-join": "bevel"}, "paint": {"line-width": 7)" +
                          paint + "}}",
                      0.0, bearing);
    }
    Draw LineThrough(const Points& points, const TXColor& color)
    {
        return [=](TXGraphics& surface)
        {
            surface.SelectPen(Pen(color, 7.0, TXPen::FlatCap, TXPen::BevelJoin));
            surface.Polyline(points.data(), static_cast<int>(points.size()));
        };
    }

    /// A feature of a colour, an opacity of a third of it, and a sort key.
    static std::string Colored(const char* color, int key, const std::string& geometry)
    {
        return R"({"type": "Feature", "properties": {"c": ")" + std::string(color) + R"(", "k": )" +
               std::to_string(key) + R"(}, "geometry": )" + geometry + "}";
    }

    /// A roof that falls to the west and to the east.
    std::vector<unsigned> Relief(const std::string& paint, double bearing = 0.0)
    {
        GDALAllRegister();
        std::string grid = "ncols 64\nnrows 64\nxllcorner -8\nyllcorner -8\ncellsize 0.25\n";
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                grid += std::to_string(100000 - 3000 * std::abs(x - 32)) + (x < 63 ? " " : "\n");
        folder.Write("roof.asc", grid);
        folder.Write("roof.prj", R"(GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563]],)"
                                 R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433]])");
        return StyledSource(R"({"type": "raster-dem", "url": "roof.asc"})",
                            R"({"id": "h", "type": "hillshade", "source": "s", "paint": {
            "hillshade-shadow-color": "#ff0000", "hillshade-highlight-color": "#00ff00",
            "hillshade-accent-color": "#0000ff00")" +
                                paint + "}}",
                            0.0, bearing);
    }
};

unsigned At(const std::vector<unsigned>& pixels, int x, int y) { return pixels[static_cast<std::size_t>(y * 256 + x)]; }

} // namespace

TEST_F(LayerProperty, CircleOpacityAndTranslation)
{
    ExpectSame(Circle(R"(, "circle-color": "#804020", "circle-opacity": 0.4)"),
               CircleAt(90.3, 70.7, {128, 64, 32, 102}));
    const std::string translated = R"(, "circle-translate": [10, -20])";
    ExpectSame(Circle(translated), CircleAt(100.3, 50.7, {0, 0, 0, 255}));
    ExpectSame(Circle(translated, 90.0), CircleAt(50.7, 256.0 - 100.3, {0, 0, 0, 255}));
    ExpectSame(Circle(translated + R"(, "circle-translate-anchor": "viewport")", 90.0),
               CircleAt(80.7, 256.0 - 110.3, {0, 0, 0, 255}));
}

TEST_F(LayerProperty, CirclesThatLieOnTheMapOrThePictureAreTheSameFromAbove)
{
    EXPECT_EQ(Differing(Circle(R"(, "circle-pitch-alignment": "map", "circle-pitch-scale": "viewport")"), Circle("")),
              0u);
}

TEST_F(LayerProperty, LineOpacityAndTranslation)
{
    ExpectSame(Line(R"(, "line-color": "#804020", "line-opacity": 0.4)"), LineThrough(kLine, {128, 64, 32, 102}));
    const std::string translated = R"(, "line-translate": [10, -20])";
    const TXColor black(0, 0, 0, 255);
    ExpectSame(Line(translated), LineThrough(Moved(kLine, 10.0, -20.0), black));
    ExpectSame(Line(translated, 90.0), LineThrough(EastUp(Moved(kLine, 10.0, -20.0)), black));
    ExpectSame(Line(translated + R"(, "line-translate-anchor": "viewport")", 90.0),
               LineThrough(Moved(EastUp(kLine), 10.0, -20.0), black));
}

TEST_F(LayerProperty, LinesAreOrderedBySortKey)
{
    const std::string data = R"({"type": "FeatureCollection", "features": [)" +
                             Colored("#ff0000", 2, Geometry("LineString", {kLine})) + "," +
                             Colored("#00ff00", 1, Geometry("LineString", {Moved(kLine, 3.0, 0.0)})) + "]}";
    ExpectSame(Styled(data, R"({"id": "l", "type": "line", "source": "s", "layout": {"line-sort-key": ["get", "k"],
                   "line-join": "bevel"}, "paint": {"line-color": ["get", "c"], "line-width": 7}})"),
               [&](TXGraphics& surface)
               {
                   LineThrough(Moved(kLine, 3.0, 0.0), {0, 255, 0, 255})(surface);
                   LineThrough(kLine, {255, 0, 0, 255})(surface);
               });
}

TEST_F(LayerProperty, FillLayerOpacityIsThatOfTheWholeLayer)
{
    const std::string data = R"({"type": "FeatureCollection", "features": [)" +
                             Colored("#ff0000", 1, Geometry("Polygon", {kRing})) + "," +
                             Colored("#ff0000", 1, Geometry("Polygon", {Moved(kRing, 30.0, 0.0)})) + "]}";
    const auto styled = Styled(data, R"({"id": "f", "type": "fill", "source": "s",
                   "paint": {"fill-color": "#ff0000", "fill-layer-opacity": 0.4}})");
    EXPECT_NEAR(At(styled, 60, 100) >> 24, 102.0, 1.0);
    EXPECT_EQ(At(styled, 120, 100), At(styled, 60, 100));
    EXPECT_EQ(At(styled, 215, 100), At(styled, 60, 100));
}

TEST_F(LayerProperty, LayersAreMultiplied)
{
    // Every channel of one of the two is all or nothing, so that their product is exact.
    const std::string ground = R"({"id": "b", "type": "background", "paint": {"background-color": "#804020"}}, )";
    const std::string magenta = R"("#ff00ff")";
    const TXColor product(128, 0, 32, 255);
    const auto onGround = [&](const Draw& draw)
    {
        return [&, draw](TXGraphics& surface)
        {
            surface.fillRect({0, 256, 0, 256}, {128, 64, 32, 255});
            surface.EnableAntialiasing(false);
            draw(surface);
        };
    };
    const Points square = {{40, 60}, {200, 60}, {200, 190}, {40, 190}, {40, 60}};
    ExpectSame(Styled(Geometry("Polygon", {square}),
                      ground + R"({"id": "f", "type": "fill", "source": "s", "paint": {"fill-antialias": false,
                          "fill-layer-blend": "multiply", "fill-color": )" +
                          magenta + "}}"),
               onGround(
                   [&](TXGraphics& surface) {
                       surface.fillRect({40, 200, 60, 190}, product);
                   }));
    ExpectSame(Styled(Geometry("LineString", {{{20, 100}, {220, 100}}}),
                      ground + R"({"id": "l", "type": "line", "source": "s", "paint": {"line-width": 20,
                          "line-layer-blend": "multiply", "line-color": )" +
                          magenta + "}}"),
               onGround(
                   [&](TXGraphics& surface) {
                       surface.fillRect({20, 220, 90, 110}, product);
                   }));

    const TXRefPtr<TXImage> image(plugin.Engine().NewImage());
    image->CreateImage(2, 2, TXImage::Format_ARGB32);
    image->Fill(0xffff00ffu);
    image->Save(TXString(folder / "magenta.png"));
    ExpectSame(StyledSource(R"({"type": "image", "url": "magenta.png", "coordinates": [)" + Place(64, 64) + "," +
                                Place(192, 64) + "," + Place(192, 192) + "," + Place(64, 192) + "]}",
                            ground + R"({"id": "r", "type": "raster", "source": "s", "paint": {
                                "raster-resampling": "nearest", "raster-layer-blend": "multiply"}})"),
               onGround(
                   [&](TXGraphics& surface) {
                       surface.fillRect({64, 192, 64, 192}, product);
                   }));
}

TEST_F(LayerProperty, ReliefIsStrongerWithExaggeration)
{
    const auto alpha = [](const std::vector<unsigned>& pixels) { return At(pixels, 122, 128) >> 24; };
    EXPECT_GT(alpha(Relief(R"(, "hillshade-exaggeration": 0.9)")),
              alpha(Relief(R"(, "hillshade-exaggeration": 0.2)")) + 10);
    EXPECT_EQ(Drawn(Relief(R"(, "hillshade-exaggeration": 0)")), 0u);
}

TEST_F(LayerProperty, ReliefHasItsLightFromAHeight)
{
    const std::string basic = R"(, "hillshade-method": "basic", "hillshade-illumination-altitude": )";
    EXPECT_GT(Differing(Relief(basic + "10"), Relief(basic + "70")), 20u);
}

TEST_F(LayerProperty, ReliefHasItsLightFromThePictureOrTheMap)
{
    // The light is in the west of the map, which is below when east is up. From there it lights the western slope.
    const std::string west = R"(, "hillshade-illumination-direction": 270, "hillshade-illumination-anchor": )";
    const auto isLit = [](unsigned pixel) { return (pixel >> 8 & 255) > (pixel >> 16 & 255); };
    const auto ofMap = Relief(west + R"("map")", 90.0);
    EXPECT_TRUE(isLit(At(ofMap, 128, 128 + 6)));
    EXPECT_FALSE(isLit(At(ofMap, 128, 128 - 6)));
    // Light from the left of the picture is that from the north of the map, along the roof.
    const auto ofPicture = Relief(west + R"("viewport")", 90.0);
    EXPECT_GT(Differing(ofMap, ofPicture), 20u);
    EXPECT_EQ(Differing(Relief(west + R"("map")"), Relief(west + R"("viewport")")), 0u);
}

TEST_F(LayerProperty, HiddenLayersAreNotDrawn)
{
    for (const char* const type : {"fill", "line", "circle"})
        for (const char* const visibility : {"visible", "none"})
        {
            const auto styled =
                Styled(Geometry("Polygon", {kRing}), R"({"id": "l", "source": "s", "type": ")" + std::string(type) +
                                                         R"(", "layout": {"visibility": ")" + visibility + "\"}}");
            EXPECT_EQ(Drawn(styled) > 0, std::string(visibility) == "visible") << type;
        }
    EXPECT_EQ(Drawn(Styled("null", R"({"id": "b", "type": "background", "layout": {"visibility": "none"}})")), 0u);
}
