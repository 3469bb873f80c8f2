#pragma once

#include <string>
#include <string_view>
#include <variant>

#include <txmap/map/GeoBox.h>

namespace txmap
{

/// The greatest zoom and the longest side in pixels that are drawn for a request.
constexpr int kMostServedZoom = 22;
constexpr int kLongestServedSide = 2048;

/// A tile of 512 logical pixels.
struct TileRequest
{
    int zoom = 0;
    int column = 0; ///< From the west.
    int row = 0;    ///< From the north.
    int scale = 1;  ///< Pixels for each logical one.
    /// The state of the style that the client has seen; empty for whatever there is.
    std::string version;
};

/// A picture of a box.
struct ViewRequest
{
    GeoBox box;
    PixelSize size; ///< In logical pixels.
    int scale = 1;
};

/// A file of the page; the page itself has an empty name.
struct FileRequest
{
    std::string name;
};

struct StyleRequest
{
};

struct HealthRequest
{
};

/// What the page asks again and again, to see whether the style has changed.
struct StateRequest
{
};

/// What is not there, or must not be asked for this way.
struct BadRequest
{
    int status = 404;
    std::string reason;
};

using MapRequest =
    std::variant<BadRequest, TileRequest, ViewRequest, FileRequest, StyleRequest, HealthRequest, StateRequest>;

/// What a target such as "/3/4/2@2x.png" asks for. It is taken literally: there are no folders to walk in.
MapRequest ReadTarget(std::string_view target);

} // namespace txmap
