#include <algorithm>
#include <cmath>
#include <limits>

#include <txmap/style/operators/GeoJsonGeometry.h>
#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/PlanarGeometry.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Part = LonLatGeometry::Part;
using Type = LonLatGeometry::Type;

/// Measures short distances on the ellipsoid WGS 84 as in a plane that touches it at one latitude.
class Ruler
{
public:
    explicit Ruler(double lat)
    {
        constexpr double kRadians = 3.14159265358979323846 / 180.0;
        constexpr double kEquatorRadius = 6378137.0; // metres
        constexpr double kFlattening = 1.0 / 298.257223563;
        constexpr double kEccentricity2 = kFlattening * (2.0 - kFlattening);
        const double cosine = std::cos(lat * kRadians);
        const double w2 = 1.0 / (1.0 - kEccentricity2 * (1.0 - cosine * cosine));
        const double w = std::sqrt(w2);
        metresPerLon = kRadians * kEquatorRadius * w * cosine;
        metresPerLat = kRadians * kEquatorRadius * w * w2 * (1.0 - kEccentricity2);
    }

    double ToPoint(const LonLat& a, const LonLat& b) const { return std::hypot(East(a, b), North(a, b)); }

    double ToSegment(const LonLat& point, const LonLat& a, const LonLat& b) const
    {
        const double dx = East(a, b);
        const double dy = North(a, b);
        const double px = East(a, point);
        const double py = North(a, point);
        const double length2 = dx * dx + dy * dy;
        const double t = length2 > 0.0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
        return std::hypot(px - t * dx, py - t * dy);
    }

    double BetweenSegments(const LonLat& a, const LonLat& b, const LonLat& c, const LonLat& d) const
    {
        if (SegmentsCross(a, b, c, d))
            return 0.0;
        return std::min({ToSegment(a, c, d), ToSegment(b, c, d), ToSegment(c, a, b), ToSegment(d, a, b)});
    }

    // No two points of two boxes are nearer than this. Boxes whose longitudes may be a turn apart count as near.
    double BetweenBounds(const Bounds& a, const Bounds& b) const
    {
        const double lon = std::max({0.0, a.left - b.right, b.left - a.right});
        const double lat = std::max({0.0, a.bottom - b.top, b.bottom - a.top});
        const double widest = std::max(a.right, b.right) - std::min(a.left, b.left);
        return std::hypot(widest < 180.0 ? lon * metresPerLon : 0.0, lat * metresPerLat);
    }

private:
    double East(const LonLat& from, const LonLat& to) const
    {
        return std::remainder(to.lon - from.lon, 360.0) * metresPerLon;
    }
    double North(const LonLat& from, const LonLat& to) const { return (to.lat - from.lat) * metresPerLat; }

    double metresPerLon;
    double metresPerLat;
};

Bounds BoundsOf(const Part& part)
{
    Bounds bounds;
    for (const LonLat& place : part)
        bounds.Add(place);
    return bounds;
}

Bounds SegmentBounds(const LonLat& a, const LonLat& b)
{
    Bounds bounds;
    bounds.Add(a);
    bounds.Add(b);
    return bounds;
}

// Points or a line, with its bounds. A line of one place is a point.
struct Shape
{
    const Part* places;
    bool isLine;
    Bounds bounds;
};

double BetweenShapes(const Shape& a, const Shape& b, const Ruler& ruler, double best)
{
    if (a.bounds.IsEmpty() || b.bounds.IsEmpty() || ruler.BetweenBounds(a.bounds, b.bounds) >= best)
        return best;
    const Part& p = *a.places;
    const Part& q = *b.places;
    const bool aLine = a.isLine && p.size() > 1;
    const bool bLine = b.isLine && q.size() > 1;
    for (std::size_t i = aLine ? 1 : 0; i < p.size(); ++i)
    {
        const LonLat& from = p[aLine ? i - 1 : i];
        if (ruler.BetweenBounds(SegmentBounds(from, p[i]), b.bounds) >= best)
            continue;
        for (std::size_t j = bLine ? 1 : 0; j < q.size() && best > 0.0; ++j)
        {
            const LonLat& other = q[bLine ? j - 1 : j];
            const double distance = aLine && bLine ? ruler.BetweenSegments(from, p[i], other, q[j])
                                    : aLine        ? ruler.ToSegment(q[j], from, p[i])
                                    : bLine        ? ruler.ToSegment(p[i], other, q[j])
                                                   : ruler.ToPoint(p[i], q[j]);
            best = std::min(best, distance);
        }
    }
    return best;
}

std::vector<Shape> ShapesOf(const LonLatGeometry& geometry)
{
    std::vector<Shape> shapes;
    for (const Part& part : geometry.parts)
        shapes.push_back({&part, geometry.type == Type::LineString, BoundsOf(part)});
    for (const PlanarPolygon& polygon : geometry.polygons)
        for (const Part& ring : polygon)
            shapes.push_back({&ring, true, BoundsOf(ring)});
    return shapes;
}

// Whether a place of one geometry is in a polygon of the other. Outlines that meet are found by their distance.
bool HasPlaceInside(const LonLatGeometry& places, const LonLatGeometry& area)
{
    const auto inside = [&](const Part& part)
    {
        for (const PlanarPolygon& polygon : area.polygons)
            for (const LonLat& place : part)
                if (IsInPolygon(place, polygon, true))
                    return true;
        return false;
    };
    for (const Part& part : places.parts)
        if (inside(part))
            return true;
    for (const PlanarPolygon& polygon : places.polygons)
        for (const Part& ring : polygon)
            if (inside(ring))
                return true;
    return false;
}

const LonLat* FirstPlace(const LonLatGeometry& geometry)
{
    for (const Part& part : geometry.parts)
        if (!part.empty())
            return &part.front();
    for (const PlanarPolygon& polygon : geometry.polygons)
        for (const Part& ring : polygon)
            if (!ring.empty())
                return &ring.front();
    return nullptr;
}

class DistanceNode : public ExpressionNode
{
public:
    DistanceNode(std::vector<LonLatGeometry> geometries, const std::string& key)
        : ExpressionNode(Kind::Number, key), geometries(std::move(geometries))
    {
        for (const LonLatGeometry& geometry : this->geometries)
            shapes.push_back(ShapesOf(geometry));
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        const LonLatGeometry* feature = context.feature ? context.feature->Geometry() : nullptr;
        const LonLat* first = feature ? FirstPlace(*feature) : nullptr;
        if (!first)
            return std::numeric_limits<double>::quiet_NaN();
        const Ruler ruler(first->lat);
        const std::vector<Shape> featureShapes = ShapesOf(*feature);
        double best = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < geometries.size(); ++i)
        {
            if (HasPlaceInside(*feature, geometries[i]) || HasPlaceInside(geometries[i], *feature))
                return 0.0;
            for (const Shape& a : featureShapes)
                for (const Shape& b : shapes[i])
                    best = BetweenShapes(a, b, ruler, best);
        }
        return best;
    }
    void ForEachChild(const Visitor&) const override {}
    unsigned OwnUses() const override { return UsesFeature; }

private:
    std::vector<LonLatGeometry> geometries;
    std::vector<std::vector<Shape>> shapes; ///< Of each geometry.
};

} // namespace

NodePtr ParseDistance(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error("'distance' expression requires exactly one argument, but found " +
                             std::to_string(arguments.size() - 1) + " instead.");
    std::vector<LonLatGeometry> geometries = ReadGeoJson(arguments[1]);
    if (geometries.empty())
        return context.Error(
            "'distance' expression requires valid geojson object that contains polygon geometry type.");
    return std::make_shared<DistanceNode>(std::move(geometries), context.Key());
}

} // namespace txmap
