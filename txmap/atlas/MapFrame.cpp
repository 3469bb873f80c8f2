#include <txmap/atlas/MapFrame.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

#include <txmap/atlas/AtlasSources.h>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/MapLayerReader.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

// As a part of the shorter side of the map.
constexpr double kUsualRadius = 0.06;

MapLayer ReadAreas(const std::string& source, const MapView& view)
{
    try
    {
        SourceDiagnostics diagnostics(true);
        const auto areas = MakeFeatureSource("frame", {{"type", "geojson"}, {"data", source}}, SourceFolder(""));
        FeatureRequest request;
        request.layers[""] = std::set<std::string>();
        request.joinsAtDateLine = true;
        request.geometry = GeometryType::Polygon;
        areas->Load(view, request, diagnostics);
        // So far around the picture, no edge is seen where an area is cut.
        return ReadMapLayer(areas->Features(""), view, {}, false, kAtlasMargin);
    }
    catch (const Failure& failure)
    {
        throw Failure(failure.Code(), std::string("--frame ") + failure.what());
    }
}

} // namespace

FrameShape MakeFrame(const FrameRequest& request, const MapView& view, double lineWidth)
{
    const TXRect& map = view.Frame();
    if (request.kind == FrameRequest::Kind::Rounded)
    {
        const double side = std::min(map.Width(), map.Height());
        // In the tiniest picture there is something in the frame.
        const double inset = std::min(lineWidth / 2.0, side / 4.0);
        return FrameShape::RoundedRectangle({map.left + inset, map.right - inset, map.top + inset, map.bottom - inset},
                                            request.radius < 0.0 ? kUsualRadius * side : request.radius);
    }
    if (request.kind == FrameRequest::Kind::Polygon)
    {
        FrameShape shape = FrameShape::Polygon(request.corners);
        if (shape.Misses(map))
            throw Failure(ExitCode::Usage, "--frame: there is nothing of the map between its corners");
        return shape;
    }
    FrameShape shape = FrameShape::Areas(ReadAreas(request.source, view));
    if (shape.Misses(map))
        throw Failure(ExitCode::Data, "--frame " + request.source + ": has no area in the part of the world shown");
    return shape;
}

} // namespace txmap
