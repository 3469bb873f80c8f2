#pragma once

#include <memory>
#include <vector>

#include <txmap/map/DateLine.h>
#include <txmap/map/MapLayer.h>
#include <txmap/map/View.h>

class OGRGeometry;
class OGRLineString;

namespace txmap
{

/// Places geometry in degrees on the map: in every world that the view shows, joined at the date line. What is outside
/// the view is skipped, and what reaches far beyond it clipped, so that no coordinate is farther away than the view's
/// own size.
class MapLayerBuilder
{
public:
    /// @param view what the picture shows; it must outlive the builder.
    explicit MapLayerBuilder(const View& view) : view(view) {}

    /// Adds the polygons of one shape. @return false when the geometry library cannot clip it.
    bool AddArea(std::vector<PolygonPtr> polygons, int category, const FeatureName& name = {});
    /// Adds a line. @return false when the geometry library cannot clip it.
    bool AddLine(const OGRLineString& line);
    /// Adds a place. @return whether it is visible.
    bool AddPlace(double longitude, double latitude, const FeatureName& name = {});
    /// Hands over what was added, and starts anew.
    MapLayer Take(LayerRole role);

private:
    bool IsVisible(const GeoBox& box) const;
    bool SeesDateLine() const;
    bool AddPolygon(const OGRPolygon& polygon, Area& area);
    bool PlaceRings(const OGRGeometry& geometry, double offset, Area& area);
    void AppendRings(const OGRGeometry& geometry, double offset, Area& area);
    void AppendLines(const OGRGeometry& geometry, double offset);

    const View& view;
    MapLayer layer;
};

} // namespace txmap
