#pragma once

#include <txmap/map/MapView.h>

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

/// What a camera over a map in Web Mercator sees.
///
/// Worlds repeat to the east and west without end. A view never shows what lies beyond the outermost latitudes: where
/// the camera would, it moves, and zooms in if the world is less high than the picture, as maps in browsers do.
class MercatorView : public MapView
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

private:
    struct Constrained
    {
        Camera camera;
    };

    MercatorView(double scale, const PixelSize& logicalSize, const Constrained& used);

    Camera camera;
};

} // namespace txmap
