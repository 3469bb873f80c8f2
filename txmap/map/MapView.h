#pragma once

#include <optional>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/map/AffineMatrix.h>
#include <txmap/map/GeoBox.h>
#include <txmap/map/Projection.h>

namespace txmap
{

/// What part of the world a picture shows, and where each place lies in it: a projection, which brings degrees to world
/// coordinates, and one affine matrix for each world that is seen, which brings these to pixels. `MercatorView` makes
/// one of a camera, `AtlasView` of a box.
///
/// A logical pixel is what a style's widths and sizes count in. A picture has `Scale()` real pixels for each of them;
/// all pixel coordinates of this class are real ones, from the top left corner of the picture.
class MapView
{
public:
    /// The logical pixels across the world at zoom 0.
    static constexpr double kTileSize = 512.0;

    const Projection& MapProjection() const { return projection; }
    /// The world is `kTileSize` * 2^zoom logical pixels wide.
    double Zoom() const { return zoom; }
    /// Degrees clockwise from north: the direction that is up in the picture.
    double Bearing() const { return bearing; }
    double Scale() const { return scale; }
    /// The size in real pixels.
    PixelSize Size() const { return size; }
    /// Real pixels across one world.
    double WorldSize() const { return worldSize; }
    /// The part of the picture that the map fills, in whole pixels; the rest is margin.
    const TZObjects::TXRect& Frame() const { return frame; }
    /// Where the top left corner of the picture lies in the pixels of the world, in whole pixels, for a picture that
    /// joins others without a seam. What is drawn then depends on places in the world, not on where the picture begins.
    /// Nothing for other pictures.
    const std::optional<TZObjects::TXPoint>& GridOrigin() const { return gridOrigin; }

    /// World coordinates to pixels, for the world that is so many worlds further east.
    AffineMatrix ToPixels(int world = 0) const;
    /// The pixel of a place in degrees, in the world that its longitude says.
    TZObjects::TXPoint ToPixel(double longitude, double latitude) const
    {
        return toPixels.Map(projection.ToWorld(longitude, latitude));
    }
    /// World coordinates of a pixel, in whichever world it shows.
    TZObjects::TXPoint ToPlace(const TZObjects::TXPoint& pixel) const { return toPlaces.Map(pixel); }

    /// The box around what is visible, across as many worlds as that are, enlarged by so many pixels on each side.
    MercatorBox Visible(double margin = 0.0) const;
    /// The same in degrees; west is below east, and either may lie beyond 180.
    GeoBox VisibleDegrees() const;
    /// The frame, enlarged by so many pixels on each side.
    TZObjects::TXRect PictureBox(double margin = 0.0) const;

    /// True when the view, enlarged by so many pixels, and a box have a point in common; exact for turned views, too.
    bool Shows(const MercatorBox& box, double margin = 0.0) const;
    /// How many worlds a box has to be moved to the east to be seen, once for each of its copies that are seen.
    std::vector<int> WorldsThatShow(const MercatorBox& box, double margin = 0.0) const;

    /// The pixels that belong to a tile: those whose centres lie in it, so that neighbouring tiles share none and leave
    /// none out. Nothing for turned views, in which a tile is no rectangle of pixels.
    std::optional<TZObjects::TXRect> PixelsOf(const MercatorBox& tile, int world = 0) const;
    /// A tile, its edges moved to the nearest edges of pixels: where its fills are cut so that no seam shows. As it is
    /// in turned views.
    MercatorBox AlignedToPixels(const MercatorBox& tile) const;

protected:
    /// What a view is made of.
    struct Parts
    {
        PixelSize size; ///< Of the picture.
        double scale = 1.0;
        double zoom = 0.0;
        double bearing = 0.0;
        TZObjects::TXPoint centre; ///< What is in the middle of the picture, in world coordinates.
    };

    /// The map fills the picture.
    MapView(const Projection& projection, const Parts& parts);
    void SetFrame(const TZObjects::TXRect& shown) { frame = shown; }
    void SetGridOrigin(const TZObjects::TXPoint& origin);

private:
    Projection projection;
    PixelSize size;
    double scale;
    double zoom;
    double bearing;
    double worldSize;
    AffineMatrix toPixels;
    AffineMatrix toPlaces;
    TZObjects::TXRect frame;
    std::optional<TZObjects::TXPoint> gridOrigin;
};

} // namespace txmap
