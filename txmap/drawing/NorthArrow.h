#pragma once

#include <string>

#include <txbase/TXRect.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Style.h>

namespace txmap
{

class Canvas;

/// Where a north arrow is, and how it is turned.
struct ArrowRequest
{
    bool left = false;   ///< In a corner on the left, else on the right.
    bool bottom = false; ///< In a corner at the bottom, else at the top.
    double angle = 0.0;  ///< By how many degrees it is turned clockwise.
};

/// An arrow with an N that points to the north, in a corner of the map.
class NorthArrow
{
public:
    /// @param request where and how.
    /// @param view what the picture shows.
    /// @param frame what the map is cut to; null for nothing. An arrow that would lie across its outline moves inward.
    /// @param unit what the style calls a pixel, in pixels of the picture.
    NorthArrow(const ArrowRequest& request, const MapView& view, const FrameShape* frame, double unit);

    /// The room that it takes: a square of whole pixels, in which it has room at every angle.
    const TZObjects::TXRect& Box() const { return box; }
    /// Draws it. In a picture that has no room for an arrow that could be recognised, nothing is drawn.
    /// @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(Canvas& canvas, const ArrowStyle& style) const;

private:
    double angle;
    TZObjects::TXRect box;
};

} // namespace txmap
