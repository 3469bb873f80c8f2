#include <txmap/map/MapLayerBuilder.h>

#include <ogr_geometry.h>

#include <cmath>
#include <iterator>
#include <utility>

#include <txmap/map/PixelPath.h>

namespace txmap
{
namespace
{

constexpr double kTurn = 360.0;
// Data lies between -360 and 360 degrees, the middle of the view between -180 and 180.
constexpr double kWorlds[] = {-2.0 * kTurn, -kTurn, 0.0, kTurn, 2.0 * kTurn};
// Geometry is clipped only where it reaches beyond the view by more than the view's own size: clipping costs more than
// drawing, and coordinates that are a picture away do no harm.
constexpr double kFarBeyond = 1.0;

OGRPolygon Rectangle(const GeoBox& box)
{
    OGRLinearRing ring;
    ring.addPoint(box.west, box.south);
    ring.addPoint(box.west, box.north);
    ring.addPoint(box.east, box.north);
    ring.addPoint(box.east, box.south);
    ring.closeRings();
    OGRPolygon rectangle;
    rectangle.addRing(&ring);
    return rectangle;
}

/// The part of a geometry in a box; null when the geometry library gives up.
std::unique_ptr<OGRGeometry> Clipped(const OGRGeometry& geometry, const GeoBox& box)
{
    const OGRPolygon rectangle = Rectangle(box);
    std::unique_ptr<OGRGeometry> part(geometry.Intersection(&rectangle));
    if (part)
        return part;
    // Rings that touch or cross themselves stop the library; mended, they do not.
    const std::unique_ptr<OGRGeometry> valid(geometry.MakeValid());
    part.reset(valid ? valid->Intersection(&rectangle) : nullptr);
    return part;
}

bool IsCollection(OGRwkbGeometryType type) { return OGR_GT_IsSubClassOf(type, wkbGeometryCollection); }

} // namespace

bool MapLayerBuilder::IsVisible(const GeoBox& box) const
{
    for (const double offset : kWorlds)
        if (view.ClipBox().Intersects(box.Shifted(offset)))
            return true;
    return false;
}

bool MapLayerBuilder::SeesDateLine() const
{
    return std::floor((view.ClipBox().east + 180.0) / kTurn) > std::floor((view.ClipBox().west + 180.0) / kTurn);
}

MapLayer MapLayerBuilder::Take(LayerRole role)
{
    layer.role = role;
    return std::exchange(layer, MapLayer());
}

bool MapLayerBuilder::AddPlace(double longitude, double latitude, const FeatureName& name)
{
    const std::size_t before = layer.places.size();
    const GeoBox place{longitude, latitude, longitude, latitude};
    for (const double offset : kWorlds)
        if (view.ClipBox().Contains(place.Shifted(offset)))
            layer.places.push_back(view.ToPixel(longitude + offset, latitude));
    const bool visible = layer.places.size() > before;
    if (visible && !name.text.empty())
        layer.placeNames.push_back({before, name});
    return visible;
}

bool MapLayerBuilder::AddLine(const OGRLineString& line)
{
    OGRLineString continuous(line);
    UnwrapLine(continuous);
    const GeoBox box = BoxOf(continuous);
    const GeoBox near = view.ClipBox().Grown(kFarBeyond);
    for (const double offset : kWorlds)
    {
        const GeoBox moved = box.Shifted(offset);
        if (!view.ClipBox().Intersects(moved))
            continue;
        std::unique_ptr<OGRGeometry> part;
        if (!near.Contains(moved))
        {
            part = Clipped(continuous, view.ClipBox().Shifted(-offset));
            if (!part)
                return false;
        }
        AppendLines(part ? *part : continuous, offset);
    }
    return true;
}

void MapLayerBuilder::AppendLines(const OGRGeometry& geometry, double offset)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (IsCollection(type))
        for (const OGRGeometry* const part : *geometry.toGeometryCollection())
            AppendLines(*part, offset);
    if (type != wkbLineString)
        return;
    const std::size_t first = layer.linePoints.size();
    const int count = AppendLine(view, *geometry.toLineString(), offset, layer.linePoints);
    if (count > 0)
        layer.lines.push_back({first, count});
}

bool MapLayerBuilder::AddArea(std::vector<PolygonPtr> polygons, int category, const FeatureName& name)
{
    Area area{layer.areaPoints.size(), layer.ringSizes.size(), 0, category};
    std::vector<PolygonPtr> cut;
    for (const PolygonPtr& polygon : polygons)
        UnwrapPolygon(*polygon);
    for (PolygonPtr& polygon : polygons)
    {
        if (!IsVisible(BoxOf(*polygon)))
            continue;
        if (SeesDateLine() && EndsAtDateLine(*polygon))
            cut.push_back(std::move(polygon));
        else if (!AddPolygon(*polygon, area))
            return false;
    }
    if (!cut.empty())
    {
        const std::vector<PolygonPtr> joined = JoinAcrossDateLine(cut);
        for (const PolygonPtr& polygon : joined)
            if (!PlaceRings(*polygon, 0.0, area))
                return false;
        // Where joining fails, the parts are drawn as they were cut.
        if (joined.empty())
            for (const PolygonPtr& polygon : cut)
                if (!AddPolygon(*polygon, area))
                    return false;
    }
    if (area.rings == 0)
        return true;
    if (!name.text.empty())
        layer.areaNames.push_back({layer.areas.size(), name});
    layer.areas.push_back(area);
    return true;
}

bool MapLayerBuilder::AddPolygon(const OGRPolygon& polygon, Area& area)
{
    for (const double offset : kWorlds)
        if (!PlaceRings(polygon, offset, area))
            return false;
    return true;
}

bool MapLayerBuilder::PlaceRings(const OGRGeometry& geometry, double offset, Area& area)
{
    const GeoBox moved = BoxOf(geometry).Shifted(offset);
    if (!view.ClipBox().Intersects(moved))
        return true;
    if (view.ClipBox().Grown(kFarBeyond).Contains(moved))
    {
        AppendRings(geometry, offset, area);
        return true;
    }
    const std::unique_ptr<OGRGeometry> part = Clipped(geometry, view.ClipBox().Shifted(-offset));
    if (part)
        AppendRings(*part, offset, area);
    return part != nullptr;
}

void MapLayerBuilder::AppendRings(const OGRGeometry& geometry, double offset, Area& area)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (IsCollection(type))
        for (const OGRGeometry* const part : *geometry.toGeometryCollection())
            AppendRings(*part, offset, area);
    if (type != wkbPolygon)
        return;
    for (const OGRLinearRing* const ring : *geometry.toPolygon())
    {
        const int count = AppendRing(view, *ring, offset, layer.areaPoints);
        if (count == 0)
            continue;
        layer.ringSizes.push_back(count);
        ++area.rings;
    }
}

} // namespace txmap
