#include <cmath>

#include <txmap/style/operators/GeoJsonGeometry.h>
#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/PlanarGeometry.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Part = LonLatGeometry::Part;

// Where features come with no grid of their own, fine enough for every map.
constexpr int kFinestZoom = 16;
constexpr double kTileUnits = 8192.0;
constexpr double kPi = 3.14159265358979323846;

double WorldSize(int zoom) { return std::ldexp(kTileUnits, zoom); }

// Units of the grid of a zoom in Web Mercator. Places beyond the world go on to the left and right of it.
LonLat ToGrid(const LonLat& place, double worldSize)
{
    const double lat = std::max(-89.9, std::min(89.9, place.lat));
    const double x = (180.0 + place.lon) / 360.0;
    const double y = (180.0 - 180.0 / kPi * std::log(std::tan(kPi / 4.0 + lat * kPi / 360.0))) / 360.0;
    return {std::round(x * worldSize), std::round(y * worldSize)};
}

Part ToGrid(const Part& part, double worldSize)
{
    Part points;
    points.reserve(part.size());
    for (const LonLat& place : part)
        points.push_back(ToGrid(place, worldSize));
    return points;
}

/// The polygons on the grid of a zoom.
struct Area
{
    std::vector<PlanarPolygon> polygons;
    Bounds bounds;
    double worldSize = 0.0;
};

Area MakeArea(const std::vector<PlanarPolygon>& polygons, int zoom)
{
    Area area;
    area.worldSize = WorldSize(zoom);
    for (const PlanarPolygon& polygon : polygons)
    {
        area.polygons.emplace_back();
        for (const Part& ring : polygon)
        {
            area.polygons.back().push_back(ToGrid(ring, area.worldSize));
            for (const LonLat& point : area.polygons.back().back())
                area.bounds.Add(point);
        }
    }
    return area;
}

// The copy of the world in which a point is near the polygons.
LonLat Nearest(LonLat point, const Area& area)
{
    const double half = area.worldSize / 2.0;
    const auto shift = [&](double side) {
        return point.lon - side > half ? -area.worldSize : side - point.lon > half ? area.worldSize : 0.0;
    };
    if (point.lon <= area.bounds.left || point.lon >= area.bounds.right)
    {
        const double first = shift(area.bounds.left);
        point.lon += first != 0.0 ? first : shift(area.bounds.right);
    }
    return point;
}

bool PointsWithin(const std::vector<Part>& parts, const Area& area)
{
    bool any = false;
    for (const Part& part : parts)
        for (const LonLat& place : part)
        {
            const LonLat point = Nearest(ToGrid(place, area.worldSize), area);
            bool inside = false;
            for (const PlanarPolygon& polygon : area.polygons)
                inside = inside || IsInPolygon(point, polygon, false);
            if (!inside)
                return false;
            any = true;
        }
    return any;
}

bool LineInPolygon(const Part& line, const PlanarPolygon& polygon)
{
    for (const LonLat& point : line)
        if (!IsInPolygon(point, polygon, false))
            return false;
    for (std::size_t i = 1; i < line.size(); ++i)
        for (const Part& ring : polygon)
            for (std::size_t j = 1; j < ring.size(); ++j)
                if (SegmentsCross(line[i - 1], line[i], ring[j - 1], ring[j]))
                    return false;
    return true;
}

bool LinesWithin(const std::vector<Part>& parts, const Area& area)
{
    std::vector<Part> lines;
    Bounds bounds;
    for (const Part& part : parts)
    {
        lines.push_back(ToGrid(part, area.worldSize));
        for (const LonLat& point : lines.back())
            bounds.Add(point);
    }
    // Lines around half the world or more stay where they are.
    if (bounds.right - bounds.left <= area.worldSize / 2.0)
    {
        bounds = Bounds();
        for (Part& line : lines)
            for (LonLat& point : line)
            {
                point = Nearest(point, area);
                bounds.Add(point);
            }
    }
    if (lines.empty() || !bounds.IsInside(area.bounds))
        return false;
    for (const Part& line : lines)
    {
        bool inside = false;
        for (const PlanarPolygon& polygon : area.polygons)
            inside = inside || LineInPolygon(line, polygon);
        if (!inside)
            return false;
    }
    return true;
}

class WithinNode : public ExpressionNode
{
public:
    WithinNode(std::vector<PlanarPolygon> polygons, const std::string& key)
        : ExpressionNode(Kind::Boolean, key), polygons(std::move(polygons)),
          finest(MakeArea(this->polygons, kFinestZoom))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        const LonLatGeometry* geometry = context.feature ? context.feature->Geometry() : nullptr;
        if (!geometry)
            return false;
        if (!context.tileZoom)
            return IsWithin(*geometry, finest);
        return IsWithin(*geometry, MakeArea(polygons, std::max(0, std::min(*context.tileZoom, 30))));
    }
    void ForEachChild(const Visitor&) const override {}
    unsigned OwnUses() const override { return UsesFeature; }

private:
    static bool IsWithin(const LonLatGeometry& geometry, const Area& area)
    {
        switch (geometry.type)
        {
        case LonLatGeometry::Type::Point:
            return PointsWithin(geometry.parts, area);
        case LonLatGeometry::Type::LineString:
            return LinesWithin(geometry.parts, area);
        default:
            return false;
        }
    }

    std::vector<PlanarPolygon> polygons;
    Area finest;
};

} // namespace

NodePtr ParseWithin(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error("'within' expression requires exactly one argument, but found " +
                             std::to_string(arguments.size() - 1) + " instead.");
    std::vector<PlanarPolygon> polygons;
    for (LonLatGeometry& geometry : ReadGeoJson(arguments[1]))
        for (PlanarPolygon& polygon : geometry.polygons)
            polygons.push_back(std::move(polygon));
    if (polygons.empty())
        return context.Error("'within' expression requires valid geojson object that contains polygon geometry type.");
    return std::make_shared<WithinNode>(std::move(polygons), context.Key());
}

} // namespace txmap
