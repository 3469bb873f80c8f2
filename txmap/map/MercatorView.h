#pragma once

#include <optional>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/map/AffineMatrix.h>
#include <txmap/map/Mercator.h>
#include <txmap/map/View.h>

namespace txmap
{

/// Where someone looks at a map that is drawn from a style.
struct Camera
{
    double longitude = 0.0;
    double latitude = 0.0;
    double zoom = 0.0;    ///< The world is 512 * 2^zoom logical pixels wide.
    double bearing = 0.0; ///< Degrees clockwise from north: the direction that is up in the picture.
};

/// The part of the Web Mercator world that a picture shows, and where each place lies in it.
///
/// Worlds repeat to the east and west without end. A view never shows what lies beyond the outermost latitudes: where
/// the camera would, it moves, and zooms in if the world is less high than the picture, as maps in browsers do.
///
/// A logical pixel is what a style's widths and sizes count in. A picture has `Scale()` real pixels for each of them;
/// all pixel coordinates of this class are real ones, from the top left corner of the picture.
class MercatorView
{
public:
    /// The least and greatest zoom; others are brought to these.
    static constexpr double kMinZoom = -2.0, kMaxZoom = 24.0;

    /// @param camera where to look at; its numbers are finite.
    /// @param size the size of the picture in logical pixels, each of 1 or more.
    /// @param scale real pixels for each logical one, above 0.
    MercatorView(const Camera& camera, const PixelSize& size, double scale = 1.0);

    /// The camera that shows a box as large as possible. Its zoom is limited, so that a box without area is shown, too.
    static Camera Fit(const GeoBox& box, const PixelSize& size, double bearing = 0.0);

    /// The camera as it is used.
    const Camera& UsedCamera() const { return camera; }
    double Zoom() const { return camera.zoom; }
    double Bearing() const { return camera.bearing; }
    double Scale() const { return scale; }
    /// The size in real pixels.
    PixelSize Size() const { return size; }
    /// Real pixels across one world.
    double WorldSize() const { return worldSize; }

    /// Mercator coordinates to pixels, for the world that is so many worlds further east.
    AffineMatrix ToPixels(int world = 0) const;
    /// The pixel of a place in degrees, in the world that its longitude says.
    TZObjects::TXPoint ToPixel(double longitude, double latitude) const
    {
        return toPixels.Map(ToMercator(longitude, latitude));
    }
    /// Mercator coordinates of a pixel, in whichever world it shows.
    TZObjects::TXPoint ToPlace(const TZObjects::TXPoint& pixel) const { return toPlaces.Map(pixel); }

    /// The box around what is visible, across as many worlds as that are, enlarged by so many pixels on each side.
    MercatorBox Visible(double margin = 0.0) const;
    /// The same in degrees; west is below east, and either may lie beyond 180.
    GeoBox VisibleDegrees() const;
    /// The picture, enlarged by so many pixels on each side.
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

private:
    Camera camera;
    PixelSize size;
    double scale;
    double worldSize;
    AffineMatrix toPixels;
    AffineMatrix toPlaces;
};

} // namespace txmap
