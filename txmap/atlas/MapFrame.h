#pragma once

#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/MapView.h>

namespace txmap
{

/// What a map is cut to.
struct FrameRequest
{
    enum class Kind
    {
        Rounded, ///< The part of the picture that the world covers, with rounded corners.
        Polygon, ///< Corners in pixels.
        File     ///< The areas of a layer of vector data.
    };

    Kind kind = Kind::Rounded;
    double radius = -1.0; ///< Of rounded corners, in pixels; negative for what suits the picture.
    std::vector<TZObjects::TXPoint> corners;
    std::string source; ///< As `LayerRequest::source`.
};

/// The frame on a map.
/// @param lineWidth how wide its outline will be drawn; that of a rounded frame lies in the picture as a whole.
/// @throw Failure, with `ExitCode::Data` when the file cannot be used, and with `ExitCode::Usage` when the corners have
/// nothing of the map between them.
FrameShape MakeFrame(const FrameRequest& request, const MapView& view, double lineWidth);

} // namespace txmap
