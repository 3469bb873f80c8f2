#pragma once

#include <array>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

struct SpritePicture;

/// Where a line of the picture, in its own pixels, comes to lie.
struct IconStop
{
    double place = 0.0;   ///< In pixels of the map, from the anchor.
    double picture = 0.0; ///< In pixels of the picture.
};

/// The size and place of an icon before it is rotated about its anchor: how its picture is stretched in each direction,
/// in rising order. Between two stops it is stretched evenly.
struct IconShape
{
    const SpritePicture* picture = nullptr; ///< Null for a character of a font.
    std::vector<IconStop> across;
    std::vector<IconStop> down;

    /// In pixels of the map, from the anchor.
    TZObjects::TXRect Box() const
    {
        return {across.front().place, across.back().place, down.front().place, down.back().place};
    }
};

/// An icon beside its anchor.
/// @param anchor which point of it is there: a value of "icon-anchor". @param offset moves it, in logical pixels.
/// @param scale pixels of the map for each logical one of the icon.
IconShape ShapeIcon(const SpritePicture& picture, const std::string& anchor, const std::array<double, 2>& offset,
                    double scale);

/// The same for an icon without a picture that is so many logical pixels wide and high.
IconShape ShapeMark(double size, const std::string& anchor, const std::array<double, 2>& offset, double scale);

/// An icon that is laid around a text.
struct IconTextFit
{
    TZObjects::TXRect text;          ///< In pixels of the map, from the anchor.
    bool width = false;              ///< Whether the icon is as wide as the text.
    bool height = false;             ///< Whether it is as high.
    std::array<double, 4> padding{}; ///< Top, right, bottom, left, in logical pixels.
    std::array<double, 2> offset{};  ///< In logical pixels.
    double scale = 1.0;              ///< Pixels of the map for each logical one.
};

/// The icon around a text: what of the picture is meant for a text encloses it, and what must not be stretched keeps
/// its size.
IconShape FitIcon(const SpritePicture& picture, const IconTextFit& fit);

/// The box around a box that is turned about (0, 0), clockwise, by so many degrees.
TZObjects::TXRect TurnedBox(const TZObjects::TXRect& box, double degrees);

} // namespace txmap
