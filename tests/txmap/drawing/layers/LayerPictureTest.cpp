#include <algorithm>

#include <tests/txmap/drawing/layers/CurvedCircle.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txmap/map/LineShape.h>

using namespace TZObjects;

namespace
{

const std::vector<TXPoint> kRing = {{40.3, 50.2}, {200.6, 60.4}, {180.1, 210.7}, {60.2, 190.3}, {40.3, 50.2}};
const std::vector<TXPoint> kLine = {{20.3, 30.4}, {120.6, 80.2}, {60.4, 150.7}, {230.2, 220.1}};

TXPoint Moved(const TXPoint& point, double dx, double dy) { return {point.x + dx, point.y + dy}; }

std::vector<TXPoint> Moved(std::vector<TXPoint> points, double dx, double dy)
{
    for (TXPoint& point : points)
        point = Moved(point, dx, dy);
    return points;
}

void FillRing(TXGraphics& surface, const std::vector<TXPoint>& ring)
{
    const int count = static_cast<int>(ring.size());
    surface.PolyPolygon(ring.data(), &count, 1);
}

void StrokeLine(TXGraphics& surface, const std::vector<TXPoint>& line)
{
    surface.Polyline(line.data(), static_cast<int>(line.size()));
}

class LayerPicture : public StyledTwins
{
protected:
    std::vector<unsigned> Fill(const std::string& paint)
    {
        return Styled(Geometry("Polygon", {kRing}),
                      R"({"id": "f", "type": "fill", "source": "s", "paint": {)" + paint + "}}");
    }
    std::vector<unsigned> Line(const std::string& paint, const std::string& layout = "")
    {
        return Styled(Geometry("LineString", {kLine}), R"({"id": "l", "type": "line", "source": "s", "paint": {)" +
                                                           paint + R"(}, "layout": {)" + layout + "}}");
    }
    void ExpectSame(const std::vector<unsigned>& styled, const Draw& draw)
    {
        EXPECT_GT(Drawn(styled), 50u);
        EXPECT_EQ(Differing(styled, Direct(draw)), 0u);
    }
};

} // namespace

TEST_F(LayerPicture, Background)
{
    ExpectSame(Styled("null", R"({"id": "b", "type": "background",
                   "paint": {"background-color": "#102030", "background-opacity": 0.4}})"),
               [](TXGraphics& surface) {
                   surface.fillRect({0, 256, 0, 256}, {16, 32, 48, 102});
               });
}

TEST_F(LayerPicture, FillHasAnOutlineOfItsColour)
{
    ExpectSame(Fill(R"("fill-color": "#804020")"),
               [&](TXGraphics& surface)
               {
                   surface.SelectBrush(Brush({128, 64, 32, 255}));
                   surface.SelectPen(Pen({128, 64, 32, 255}, 1.0, TXPen::FlatCap, TXPen::BevelJoin));
                   FillRing(surface, kRing);
               });
}

TEST_F(LayerPicture, FillWithOpacityHasNone)
{
    ExpectSame(Fill(R"("fill-color": "#804020", "fill-opacity": 0.4)"),
               [&](TXGraphics& surface)
               {
                   surface.SelectBrush(Brush({128, 64, 32, 102}));
                   FillRing(surface, kRing);
               });
}

TEST_F(LayerPicture, FillWithAHatch)
{
    for (const auto& [name, style] : {std::pair{"horizontal", TXBrush::HorizontalHatch},
                                      {"vertical", TXBrush::VerticalHatch},
                                      {"cross", TXBrush::CrossHatch}})
        ExpectSame(Styled(Geometry("Polygon", {kRing}), R"({"id": "f", "type": "fill", "source": "s", "paint": {
                       "fill-color": "#804020"}, "metadata": {"txmap:hatch": ")" +
                                                            std::string(name) + "\"}}"),
                   [&](TXGraphics& surface)
                   {
                       const auto brush = Brush({128, 64, 32, 255});
                       brush->Create({128, 64, 32, 255}, style);
                       surface.SelectBrush(brush);
                       FillRing(surface, kRing);
                   });
}

TEST_F(LayerPicture, FillWithoutAntialiasing)
{
    ExpectSame(Fill(R"("fill-color": "#804020", "fill-antialias": false)"),
               [&](TXGraphics& surface)
               {
                   surface.EnableAntialiasing(false);
                   surface.SelectBrush(Brush({128, 64, 32, 255}));
                   FillRing(surface, kRing);
               });
}

TEST_F(LayerPicture, FillWithOutline)
{
    ExpectSame(Fill(R"("fill-color": "#804020", "fill-outline-color": "#0000ff99")"),
               [&](TXGraphics& surface)
               {
                   surface.SelectBrush(Brush({128, 64, 32, 255}));
                   FillRing(surface, kRing);
                   surface.SelectPen(Pen({0, 0, 255, 153}, 1.0, TXPen::FlatCap, TXPen::BevelJoin));
                   StrokeLine(surface, kRing);
               });
}

TEST_F(LayerPicture, FillIsTranslatedWithTheMapOrThePicture)
{
    const auto draw = [&](TXGraphics& surface)
    {
        surface.SelectBrush(Brush({0, 0, 0, 102}));
        FillRing(surface, Moved(kRing, 10.0, -20.0));
    };
    ExpectSame(Fill(R"("fill-opacity": 0.4, "fill-translate": [10, -20])"), draw);
    ExpectSame(Fill(R"("fill-opacity": 0.4, "fill-translate": [10, -20], "fill-translate-anchor": "viewport")"), draw);

    const std::string data = Geometry("Polygon", {kRing});
    const std::string start = R"({"id": "f", "type": "fill", "source": "s", "paint": {"fill-opacity": 0.4)";
    const auto turned = Styled(data, start + R"(, "fill-translate": [10, -20]}})", 0.0, 90.0);
    ExpectSame(turned,
               [&](TXGraphics& surface)
               {
                   // East is up.
                   std::vector<TXPoint> ring;
                   for (const TXPoint& point : Moved(kRing, 10.0, -20.0))
                       ring.emplace_back(point.y, 256.0 - point.x);
                   surface.SelectBrush(Brush({0, 0, 0, 102}));
                   FillRing(surface, ring);
               });
}

TEST_F(LayerPicture, FillsAreOrderedBySortKey)
{
    const auto feature = [&](const char* color, double shift, int key)
    {
        return R"({"type": "Feature", "properties": {"c": ")" + std::string(color) + R"(", "k": )" +
               std::to_string(key) + R"(}, "geometry": )" + Geometry("Polygon", {Moved(kRing, shift, 0.0)}) + "}";
    };
    const std::string data = R"({"type": "FeatureCollection", "features": [)" + feature("#ff0000", 0.0, 2) + "," +
                             feature("#00ff00", 30.0, 1) + "]}";
    ExpectSame(Styled(data, R"({"id": "f", "type": "fill", "source": "s", "layout": {"fill-sort-key": ["get", "k"]},
                   "paint": {"fill-color": ["get", "c"], "fill-opacity": 0.4}})"),
               [&](TXGraphics& surface)
               {
                   surface.SelectBrush(Brush({0, 255, 0, 102}));
                   FillRing(surface, Moved(kRing, 30.0, 0.0));
                   surface.SelectBrush(Brush({255, 0, 0, 102}));
                   FillRing(surface, kRing);
               });
}

TEST_F(LayerPicture, LayerOpacityIsThatOfTheWholeLayer)
{
    const std::string data = Geometry("MultiLineString", {kLine, Moved(kLine, 0.0, 5.0)});
    const auto styled = Styled(data, R"({"id": "l", "type": "line", "source": "s",
        "paint": {"line-color": "#ff0000", "line-width": 9, "line-layer-opacity": 0.5}})");
    for (const unsigned pixel : styled)
        ASSERT_LE(pixel >> 24, 128u);
    EXPECT_GT(Drawn(styled), 500u);
}

TEST_F(LayerPicture, LineWithCapsAndJoins)
{
    const auto draw = [&](TXPen::PenCapStyle cap, TXPen::PenJoinStyle join)
    {
        return [=](TXGraphics& surface)
        {
            surface.SelectPen(Pen({0, 0, 255, 128}, 7.0, cap, join));
            StrokeLine(surface, kLine);
        };
    };
    const std::string paint = R"("line-color": "#0000ff80", "line-width": 7)";
    ExpectSame(Line(paint, R"("line-join": "bevel")"), draw(TXPen::FlatCap, TXPen::BevelJoin));
    ExpectSame(Line(paint, R"("line-cap": "round", "line-join": "round")"), draw(TXPen::RoundCap, TXPen::RoundJoin));
    ExpectSame(Line(paint, R"("line-cap": "square", "line-join": "miter", "line-miter-limit": 10)"),
               draw(TXPen::SquareCap, TXPen::MiterJoin));
}

TEST_F(LayerPicture, ThinLinesArePalerAndNeverInvisible)
{
    ExpectSame(Line(R"("line-color": "#000", "line-width": 0.5)", R"("line-join": "bevel")"),
               [&](TXGraphics& surface)
               {
                   surface.SelectPen(Pen({0, 0, 0, 143}, 1.0, TXPen::FlatCap, TXPen::BevelJoin));
                   StrokeLine(surface, kLine);
               });
    EXPECT_EQ(Drawn(Line(R"("line-width": 0)")), 0u);
}

TEST_F(LayerPicture, LineOffsetAndGap)
{
    const auto beside = [&](TXGraphics& surface, double offset, const txmap::OffsetCorners& corners)
    { StrokeLine(surface, txmap::OffsetLine(kLine.data(), kLine.size(), offset, corners)); };
    ExpectSame(Line(R"("line-width": 2, "line-offset": 6)", R"("line-join": "bevel")"),
               [&](TXGraphics& surface)
               {
                   surface.SelectPen(Pen({0, 0, 0, 255}, 2.0, TXPen::FlatCap, TXPen::BevelJoin));
                   beside(surface, 6.0, {});
               });
    ExpectSame(Line(R"("line-width": 2, "line-gap-width": 6)", R"("line-join": "bevel")"),
               [&](TXGraphics& surface)
               {
                   surface.SelectPen(Pen({0, 0, 0, 255}, 2.0, TXPen::FlatCap, TXPen::BevelJoin));
                   beside(surface, -4.0, {1.05, false, false});
                   beside(surface, 4.0, {1.05, false, false});
               });
}

TEST_F(LayerPicture, DashesCountInWidths)
{
    const std::vector<TXPoint> line = {{20.3, 100.4}, {100.3, 100.4}};
    ExpectSame(Styled(Geometry("LineString", {line}), R"({"id": "l", "type": "line", "source": "s",
                   "paint": {"line-width": 4, "line-dasharray": [3, 2]}})"),
               [&](TXGraphics& surface)
               {
                   surface.SelectPen(Pen({0, 0, 0, 255}, 4.0));
                   for (double x = 20.3; x < 100.0; x += 20.0)
                       StrokeLine(surface, {{x, 100.4}, {x + 12.0, 100.4}});
               });
}

TEST_F(LayerPicture, GradientFollowsTheLine)
{
    const std::vector<TXPoint> line = {{20.0, 100.0}, {220.0, 100.0}};
    const auto styled = Styled(Geometry("LineString", {line}), R"({"id": "l", "type": "line", "source": "s",
        "paint": {"line-width": 10, "line-gradient": ["interpolate", ["linear"], ["line-progress"], 0, "#ff0000",
        1, "#0000ff"]}})");
    for (int x = 25; x < 215; x += 10)
    {
        const unsigned pixel = styled[100 * 256 + static_cast<std::size_t>(x)];
        EXPECT_EQ(pixel >> 24, 255u);
        EXPECT_NEAR(pixel & 255, (x + 0.5 - 20.0) / 200.0 * 255.0, 3.0) << x;
    }
}

TEST_F(LayerPicture, BlurFadesInward)
{
    const std::vector<TXPoint> line = {{20.0, 100.0}, {220.0, 100.0}};
    const auto styled = Styled(Geometry("LineString", {line}), R"({"id": "l", "type": "line", "source": "s",
        "paint": {"line-width": 20, "line-blur": 9}})");
    const auto alpha = [&](std::size_t y) { return styled[y * 256 + 120] >> 24; };
    EXPECT_NEAR(alpha(100), 255.0, 8.0);
    EXPECT_EQ(alpha(88), 0u);
    // Half a pixel outside of the edge nothing is there, and everything 10 pixels further in.
    for (std::size_t y = 90; y < 99; ++y)
        EXPECT_NEAR(alpha(y), (static_cast<double>(y) + 0.5 - 89.5) / 10.0 * 255.0, 16.0) << y;
}

TEST_F(LayerPicture, CircleBlurOverItsWholeRadiusAndBeyond)
{
    for (const double blur : {0.5, 1.0, 2.0})
    {
        const auto styled = Styled(R"({"type": "Point", "coordinates": )" + Place(128.5, 128.5) + "}",
                                   R"({"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": 40,
            "circle-blur": )" + std::to_string(blur) +
                                       "}}");
        for (std::size_t distance = 0; distance < 44; ++distance)
        {
            const double part = std::clamp((1.0 - static_cast<double>(distance) / 40.0) / blur, 0.0, 1.0);
            EXPECT_NEAR(styled[128 * 256 + 128 + distance] >> 24, part * part * (3.0 - 2.0 * part) * 255.0, 1.0)
                << blur << " at " << distance;
        }
    }
}

TEST_F(LayerPicture, CircleStrokePassesIntoItsBlurredFill)
{
    const auto styled = Styled(R"({"type": "Point", "coordinates": )" + Place(128.5, 128.5) + "}",
                               R"({"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": 30,
        "circle-color": "#f00", "circle-stroke-width": 10, "circle-stroke-color": "#00f", "circle-blur": 0.25}})");
    // At the border of the fill only the stroke is there, the width of the blur further in only the fill.
    EXPECT_EQ(styled[128 * 256 + 128 + 30], 0xff0000ffu);
    EXPECT_EQ(styled[128 * 256 + 128 + 20], 0xffff0000u);
    EXPECT_NEAR(styled[128 * 256 + 128 + 25] >> 16 & 255, 127.5, 1.0);
}

TEST_F(LayerPicture, CircleWithFractions)
{
    const auto styled = Styled(R"({"type": "Point", "coordinates": )" + Place(100.3, 80.7) + "}",
                               R"({"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": 12.4,
        "circle-color": "#ff000080", "circle-stroke-width": 3.2, "circle-stroke-color": "#0000ff",
        "circle-stroke-opacity": 0.502
}
})");
    const TXPoint centre(100.3, 80.7);
    ExpectSame(styled,
               [&](TXGraphics& surface)
               {
                   surface.SelectBrush(Brush({255, 0, 0, 128}));
                   AddCurvedCircle(surface, centre, 12.4 - 0.5);
                   surface.DrawPath();
                   surface.SelectBrush(Brush({0, 0, 255, 128}));
                   AddCurvedCircle(surface, centre, 12.4 + 3.2 - 0.5);
                   AddCurvedCircle(surface, centre, 12.4 - 0.5);
                   surface.DrawPath();
               });
}

TEST_F(LayerPicture, WorldsRepeatAcrossTheDateLine)
{
    // At zoom -1 the world is 256 pixels wide; at zoom 0 half of it is seen, so that a copy needs a place near its
    // edge.
    const auto styled = Styled(R"({"type": "Point", "coordinates": [180, 0]})",
                               R"({"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": 140}})");
    EXPECT_NE(styled[128 * 256 + 2] >> 24, 0u);
    EXPECT_NE(styled[128 * 256 + 253] >> 24, 0u);
}

TEST_F(LayerPicture, SortKeysMayBeNumbersOfInhabitants)
{
    const auto town = [](const char* color, const char* people)
    {
        return R"({"type": "Feature", "properties": {"color": ")" + std::string(color) + R"(", "people": )" + people +
               R"(}, "geometry": {"type": "Point", "coordinates": )" + Place(100, 100) + "}}";
    };
    const std::vector<unsigned> drawn =
        Styled(R"({"type": "FeatureCollection", "features": [)" + town("#ff0000", "14987000") + "," +
                   town("#0000ff", "3300000") + "]}",
               R"({"id": "c", "type": "circle", "source": "s", "layout": {"circle-sort-key": ["get", "people"]},
            "paint": {"circle-radius": 20, "circle-color": ["get", "color"]}})");
    EXPECT_EQ(drawn[100 * 256 + 100], 0xFFFF0000u);
}

TEST_F(LayerPicture, LinesWiderThanThePictureCoverIt)
{
    for (const char* const width : {"4000", "1e6", "1e12"})
    {
        const std::vector<unsigned> drawn = Line(R"("line-color": "#804020", "line-width": )" + std::string(width));
        EXPECT_EQ(std::count(drawn.begin(), drawn.end(), 0xFF804020u), 256 * 256) << width;
    }
}
