#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <ogr_geometry.h>
#include <txmap/map/MapLayerBuilder.h>

using namespace txmap;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

const View& Europe()
{
    static const View view(Projection::PlateCarree(), GeoBox{0, 40, 20, 50}, PixelSize{200, 100});
    return view;
}

const View& Pacific()
{
    static const View view(Projection::PlateCarree(), GeoBox{170, -10, 190, 0}, PixelSize{200, 100});
    return view;
}

std::unique_ptr<OGRGeometry> FromText(const std::string& text)
{
    OGRGeometry* geometry = nullptr;
    EXPECT_EQ(OGRGeometryFactory::createFromWkt(text.c_str(), nullptr, &geometry), OGRERR_NONE) << text;
    return std::unique_ptr<OGRGeometry>(geometry);
}

/// One shape of polygons, each given by its rings.
MapLayer LayerOf(const View& view, const std::vector<std::string>& polygons)
{
    std::vector<PolygonPtr> parts;
    parts.reserve(polygons.size());
    for (const std::string& rings : polygons)
        parts.emplace_back(FromText("POLYGON (" + rings + ")").release()->toPolygon());
    MapLayerBuilder builder(view);
    EXPECT_TRUE(builder.AddArea(std::move(parts), 3));
    return builder.Take(LayerRole::Countries);
}

MapLayer LayerOfLine(const View& view, const std::string& points)
{
    MapLayerBuilder builder(view);
    EXPECT_TRUE(builder.AddLine(*FromText("LINESTRING (" + points + ")")->toLineString()));
    return builder.Take(LayerRole::Lines);
}

std::string Rectangle(double west, double south, double east, double north)
{
    const auto corner = [](double x, double y) { return std::to_string(x) + " " + std::to_string(y); };
    return "(" + corner(west, south) + "," + corner(east, south) + "," + corner(east, north) + "," +
           corner(west, north) + "," + corner(west, south) + ")";
}

TXRect BoundsOf(const std::vector<TXPoint>& points)
{
    TXRect bounds(1e300, -1e300, 1e300, -1e300);
    for (const TXPoint& point : points)
    {
        bounds.left = std::min(bounds.left, point.x);
        bounds.right = std::max(bounds.right, point.x);
        bounds.top = std::min(bounds.top, point.y);
        bounds.bottom = std::max(bounds.bottom, point.y);
    }
    return bounds;
}

void ExpectBounds(const TXRect& bounds, double left, double right, double top, double bottom)
{
    EXPECT_NEAR(bounds.left, left, 1e-6);
    EXPECT_NEAR(bounds.right, right, 1e-6);
    EXPECT_NEAR(bounds.top, top, 1e-6);
    EXPECT_NEAR(bounds.bottom, bottom, 1e-6);
}

} // namespace

TEST(MapLayerBuilder, PlacesAShapeWithItsHole)
{
    const MapLayer layer = LayerOf(Europe(), {Rectangle(2, 42, 8, 48) + "," + Rectangle(4, 44, 6, 46)});
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].rings, 2);
    EXPECT_EQ(layer.areas[0].category, 3);
    EXPECT_EQ(layer.ringSizes, (std::vector<int>{5, 5}));
    ASSERT_EQ(layer.areaPoints.size(), 10u);
    ExpectBounds(BoundsOf(layer.areaPoints), 20, 80, 20, 80);
    EXPECT_EQ(layer.areaPoints[0].x, layer.areaPoints[4].x);
    EXPECT_EQ(layer.areaPoints[0].y, layer.areaPoints[4].y);
}

TEST(MapLayerBuilder, SkipsWhatIsOutsideTheView)
{
    EXPECT_TRUE(LayerOf(Europe(), {Rectangle(60, 42, 70, 48)}).areas.empty());
    EXPECT_TRUE(LayerOf(Europe(), {Rectangle(2, -48, 8, -42)}).areas.empty());
    EXPECT_TRUE(LayerOfLine(Europe(), "60 42, 70 48").lines.empty());
    // A part that is outside goes, the others stay.
    const MapLayer layer = LayerOf(Europe(), {Rectangle(60, 42, 70, 48), Rectangle(2, 42, 8, 48)});
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].rings, 1);
}

TEST(MapLayerBuilder, ClipsWhatReachesFarBeyondTheView)
{
    for (const View& view : {Europe(), View(Projection::WebMercator(), GeoBox{0, 40, 20, 50}, PixelSize{200, 100})})
    {
        const MapLayer layer = LayerOf(view, {Rectangle(-170, -89, 5, 89)});
        ASSERT_EQ(layer.areas.size(), 1u);
        const TXRect bounds = BoundsOf(layer.areaPoints);
        EXPECT_LT(bounds.left, -20);
        EXPECT_GT(bounds.left, -600);
        EXPECT_GT(bounds.top, -600);
        EXPECT_LT(bounds.top, -20);
        EXPECT_LT(bounds.bottom, 700);
        EXPECT_GT(bounds.bottom, 120);
        EXPECT_NEAR(bounds.right, view.ToPixel(5, 45).x, 1e-6);
    }
}

TEST(MapLayerBuilder, ClipsFarLinesIntoTheirPieces)
{
    // In, far out to the north, and in again.
    const MapLayer layer = LayerOfLine(Europe(), "5 45, 5 89, 15 89, 15 45");
    EXPECT_EQ(layer.lines.size(), 2u);
    EXPECT_GT(BoundsOf(layer.linePoints).top, -600);
}

TEST(MapLayerBuilder, LeavesNearGeometryUnclipped)
{
    const MapLayer layer = LayerOf(Europe(), {Rectangle(-10, 42, 8, 48)});
    ASSERT_EQ(layer.areaPoints.size(), 5u);
    ExpectBounds(BoundsOf(layer.areaPoints), -100, 80, 20, 80);
}

TEST(MapLayerBuilder, ClipsShapesThatCrossThemselves)
{
    // A bow tie over the whole world, its knot in the view's middle.
    const MapLayer layer = LayerOf(Europe(), {"(-170 -45, 190 135, 190 -45, -170 135, -170 -45)"});
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_FALSE(layer.areaPoints.empty());
    EXPECT_GT(BoundsOf(layer.areaPoints).left, -600);
}

TEST(MapLayerBuilder, ShowsBothSidesOfTheDateLine)
{
    const MapLayer west = LayerOf(Pacific(), {Rectangle(172, -8, 175, -2)});
    ASSERT_EQ(west.areas.size(), 1u);
    ExpectBounds(BoundsOf(west.areaPoints), 20, 50, 20, 80);
    const MapLayer east = LayerOf(Pacific(), {Rectangle(-175, -8, -172, -2)});
    ASSERT_EQ(east.areas.size(), 1u);
    ExpectBounds(BoundsOf(east.areaPoints), 150, 180, 20, 80);
}

TEST(MapLayerBuilder, JoinsWhatIsCutAtTheDateLine)
{
    const MapLayer layer = LayerOf(Pacific(), {Rectangle(178, -8, 180, -2), Rectangle(-180, -8, -177, -2)});
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].rings, 1);
    ExpectBounds(BoundsOf(layer.areaPoints), 80, 130, 20, 80);
}

TEST(MapLayerBuilder, DrawsAnUncutShapeOnTheDateLineAtBothEdgesOfTheWorld)
{
    const View world(Projection::PlateCarree(), {}, PixelSize{360, 180});
    const MapLayer layer = LayerOf(world, {"(175 10, -175 10, -175 20, 175 20, 175 10)"});
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].rings, 2);
    ExpectBounds(BoundsOf(layer.areaPoints), -5, 365, 70, 80);
}

TEST(MapLayerBuilder, PlacesLines)
{
    const MapLayer layer = LayerOfLine(Europe(), "2 42, 8 48, 8 42");
    ASSERT_EQ(layer.lines.size(), 1u);
    EXPECT_EQ(layer.lines[0].count, 3);
    ExpectBounds(BoundsOf(layer.linePoints), 20, 80, 20, 80);
    EXPECT_EQ(LayerOfLine(Pacific(), "175 -5, -175 -5").lines.size(), 1u);
}

TEST(MapLayerBuilder, PlacesPlaces)
{
    MapLayerBuilder builder(Pacific());
    builder.AddPlace(-175, -5);
    builder.AddPlace(175, -5);
    builder.AddPlace(0, -5);
    const MapLayer layer = builder.Take(LayerRole::Any);
    ASSERT_EQ(layer.places.size(), 2u);
    EXPECT_NEAR(layer.places[0].x, 150.0, 1e-6);
    EXPECT_NEAR(layer.places[1].x, 50.0, 1e-6);
}

TEST(MapLayerBuilder, StartsAnewAfterALayer)
{
    MapLayerBuilder builder(Europe());
    builder.AddPlace(5, 45);
    EXPECT_EQ(builder.Take(LayerRole::Any).places.size(), 1u);
    EXPECT_TRUE(builder.Take(LayerRole::Any).places.empty());
}
