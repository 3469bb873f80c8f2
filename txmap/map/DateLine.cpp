#include <txmap/map/DateLine.h>

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>

namespace txmap
{
namespace
{

constexpr double kTurn = 360.0;
constexpr double kDateLine = 180.0;
constexpr double kCrossing = 270.0;
// Data that was cut ends at the date line up to rounding, and at the pole up to what its makers took for one.
constexpr double kDateLineTolerance = 1e-6;
constexpr double kNearPole = 89.9;
constexpr double kBeyondPole = 95.0;

bool NearDateLine(double longitude) { return std::abs(std::abs(longitude) - kDateLine) <= kDateLineTolerance; }

/// The longitudes of a line, each nearest to the one before. Empty when they are that already.
std::vector<double> ContinuousLongitudes(const OGRLineString& line)
{
    std::vector<double> longitudes;
    double shift = 0.0;
    for (int i = 1; i < line.getNumPoints(); ++i)
    {
        const double step = line.getX(i) - line.getX(i - 1);
        if (std::abs(step) > kCrossing)
            shift += step > 0.0 ? -kTurn : kTurn;
        if (longitudes.empty() && shift != 0.0)
            for (int before = 0; before < i; ++before)
                longitudes.push_back(line.getX(before));
        if (!longitudes.empty())
            longitudes.push_back(line.getX(i) + shift);
    }
    return longitudes;
}

void SetLongitudes(OGRLineString& line, const std::vector<double>& longitudes)
{
    for (std::size_t i = 0; i < longitudes.size(); ++i)
        line.setPoint(static_cast<int>(i), longitudes[i], line.getY(static_cast<int>(i)));
}

/// True when a line is left without width: it did not cross the date line but runs along the whole map.
bool IsFlat(const std::vector<double>& longitudes)
{
    const auto [west, east] = std::minmax_element(longitudes.begin(), longitudes.end());
    return *east - *west <= kDateLineTolerance;
}

/// True when a ring has an edge from one side of the map to the other, at its own northern or southern end: the edge
/// with which a shape that fills the whole width of the map ends.
bool HasWorldEdge(const OGRLinearRing& ring)
{
    OGREnvelope box;
    ring.getEnvelope(&box);
    for (int i = 1; i < ring.getNumPoints(); ++i)
    {
        const double y = ring.getY(i);
        const bool across = std::abs(ring.getX(i) - ring.getX(i - 1)) >= kTurn - kDateLineTolerance;
        if (across && y == ring.getY(i - 1) && (y == box.MinY || y == box.MaxY))
            return true;
    }
    return false;
}

/// Closes a ring that runs once round a pole, by way of the pole that it runs round.
void CloseBeyondPole(OGRLinearRing& ring)
{
    double latitudes = 0.0;
    for (int i = 0; i < ring.getNumPoints(); ++i)
        latitudes += ring.getY(i);
    const double pole = std::copysign(kBeyondPole, latitudes);
    const double last = ring.getX(ring.getNumPoints() - 1);
    const double first = ring.getX(0);
    ring.addPoint(last, pole);
    ring.addPoint(first, pole);
    ring.addPoint(first, ring.getY(0));
}

void UnwrapRing(OGRLinearRing& ring)
{
    const std::vector<double> longitudes = ContinuousLongitudes(ring);
    const bool roundThePole = !longitudes.empty() && std::abs(longitudes.back() - longitudes.front()) > kTurn / 2.0;
    if (!roundThePole)
        UnwrapLine(ring);
    else if (!HasWorldEdge(ring))
    {
        SetLongitudes(ring, longitudes);
        CloseBeyondPole(ring);
    }
}

void MoveEast(OGRLinearRing& ring, double degrees)
{
    for (int i = 0; i < ring.getNumPoints(); ++i)
        ring.setPoint(i, ring.getX(i) + degrees, ring.getY(i));
}

/// A copy that ends exactly at the date line where it ended nearly there, and goes on beyond a pole that it ended at.
PolygonPtr Tidied(const OGRPolygon& polygon)
{
    PolygonPtr copy(polygon.clone());
    for (OGRLinearRing* const ring : *copy)
        for (int i = 0; i < ring->getNumPoints(); ++i)
        {
            double x = ring->getX(i);
            double y = ring->getY(i);
            if (NearDateLine(x))
                x = std::copysign(kDateLine, x);
            if (std::abs(y) > kNearPole)
                y = std::copysign(kBeyondPole, y);
            ring->setPoint(i, x, y);
        }
    return copy;
}

PolygonPtr Shifted(const OGRPolygon& polygon, double degrees)
{
    PolygonPtr copy(polygon.clone());
    for (OGRLinearRing* const ring : *copy)
        MoveEast(*ring, degrees);
    return copy;
}

/// Takes the polygons out of a geometry, at whatever depth they are; none out of null.
void TakePolygons(std::unique_ptr<OGRGeometry> geometry, std::vector<PolygonPtr>& polygons)
{
    const OGRwkbGeometryType type = geometry ? wkbFlatten(geometry->getGeometryType()) : wkbNone;
    if (type == wkbPolygon)
        polygons.emplace_back(geometry.release()->toPolygon());
    if (!OGR_GT_IsSubClassOf(type, wkbGeometryCollection))
        return;
    for (const OGRGeometry* const part : *geometry->toGeometryCollection())
        TakePolygons(std::unique_ptr<OGRGeometry>(part->clone()), polygons);
}

} // namespace

GeoBox BoxOf(const OGRGeometry& geometry)
{
    OGREnvelope box;
    geometry.getEnvelope(&box);
    return {box.MinX, box.MinY, box.MaxX, box.MaxY};
}

void UnwrapLine(OGRLineString& line)
{
    const std::vector<double> longitudes = ContinuousLongitudes(line);
    if (!longitudes.empty() && !IsFlat(longitudes))
        SetLongitudes(line, longitudes);
}

void UnwrapPolygon(OGRPolygon& polygon)
{
    GeoBox outer;
    bool first = true;
    for (OGRLinearRing* const ring : polygon)
    {
        UnwrapRing(*ring);
        const GeoBox box = BoxOf(*ring);
        if (first)
            outer = box;
        first = false;
        if (box.west >= outer.west && box.east <= outer.east)
            continue;
        const double distance = (outer.west + outer.east - box.west - box.east) / 2.0;
        MoveEast(*ring, std::round(distance / kTurn) * kTurn);
    }
}

bool EndsAtDateLine(const OGRPolygon& polygon)
{
    const GeoBox box = BoxOf(polygon);
    return NearDateLine(box.west) || NearDateLine(box.east) || box.east - box.west >= kTurn - kDateLineTolerance;
}

std::vector<PolygonPtr> JoinAcrossDateLine(const std::vector<PolygonPtr>& polygons)
{
    OGRMultiPolygon worlds;
    for (const PolygonPtr& polygon : polygons)
    {
        PolygonPtr tidied = Tidied(*polygon);
        worlds.addGeometryDirectly(Shifted(*tidied, -kTurn).release());
        worlds.addGeometryDirectly(Shifted(*tidied, kTurn).release());
        worlds.addGeometryDirectly(tidied.release());
    }
    std::vector<PolygonPtr> joined;
    TakePolygons(std::unique_ptr<OGRGeometry>(worlds.UnionCascaded()), joined);
    if (!joined.empty())
        return joined;

    // Rings that touch or cross themselves stop the library; mended, they do not.
    OGRMultiPolygon mended;
    for (const OGRPolygon* const polygon : worlds)
    {
        std::vector<PolygonPtr> parts;
        TakePolygons(std::unique_ptr<OGRGeometry>(polygon->MakeValid()), parts);
        for (PolygonPtr& part : parts)
            mended.addGeometryDirectly(part.release());
    }
    TakePolygons(std::unique_ptr<OGRGeometry>(mended.UnionCascaded()), joined);
    return joined;
}

} // namespace txmap
