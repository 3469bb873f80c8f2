#pragma once

#include <optional>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/map/Projection.h>

namespace txmap
{

/// A box of degrees. `east` is greater than `west`, beyond 180 where the box crosses the date line.
struct GeoBox
{
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;

    /// True when the two have a point in common.
    bool Intersects(const GeoBox& other) const
    {
        return west <= other.east && other.west <= east && south <= other.north && other.south <= north;
    }
    /// True when the other box lies in this one.
    bool Contains(const GeoBox& other) const
    {
        return west <= other.west && other.east <= east && south <= other.south && other.north <= north;
    }
    /// This box, moved east by so many degrees.
    GeoBox Shifted(double degrees) const { return {west + degrees, south, east + degrees, north}; }
    /// This box, larger on every side by its own width and height times @p factor.
    GeoBox Grown(double factor) const;
};

/// The size of a picture in pixels.
struct PixelSize
{
    int width = 0;
    int height = 0;
};

/// What part of the world a picture shows, and where each place lies in it.
///
/// The scale is the same in both directions of the map. Where a requested box and a requested size have different
/// proportions, the picture shows more than the box, evenly on both sides. No place is shown twice and nothing beyond
/// the map's outermost latitudes, so that a picture that is larger than the world has margins.
class View
{
public:
    /// The longer side of a picture whose size is not given.
    static constexpr int kDefaultSide = 2048;

    /// @param projection the projection of the map.
    /// @param box what to show at least; nothing for the whole world.
    /// @param size the size of the picture; nothing for the box's own proportions with a longer side of `kDefaultSide`.
    View(Projection projection, const std::optional<GeoBox>& box, const std::optional<PixelSize>& size);

    PixelSize Size() const { return size; }
    /// The pixel position of a place in degrees.
    TZObjects::TXPoint ToPixel(double longitude, double latitude) const
    {
        const TZObjects::TXPoint place = projection.Forward(longitude, latitude);
        return {(place.x - origin.x) * scale, (origin.y - place.y) * scale};
    }
    const Projection& MapProjection() const { return projection; }
    /// The map coordinates of the picture's top left corner.
    const TZObjects::TXPoint& Origin() const { return origin; }
    /// Pixels for each unit of the map.
    double Scale() const { return scale; }
    /// The part of the picture that the world covers, in whole pixels; the rest is margin.
    const TZObjects::TXRect& Frame() const { return frame; }
    /// The degrees that the frame shows. Its centre lies between -180 and 180.
    const GeoBox& Visible() const { return visible; }
    /// The degrees within which geometry matters: what is visible and, around it, room for the width of any line.
    const GeoBox& ClipBox() const { return clipBox; }

private:
    TZObjects::TXPoint ToDegrees(double pixelX, double pixelY) const
    {
        return projection.Inverse(origin.x + pixelX / scale, origin.y - pixelY / scale);
    }

    Projection projection;
    PixelSize size;
    TZObjects::TXPoint origin;
    double scale;
    TZObjects::TXRect frame;
    GeoBox visible;
    GeoBox clipBox;
};

} // namespace txmap
