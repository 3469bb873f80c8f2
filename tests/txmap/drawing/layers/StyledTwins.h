#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/PluginSession.h>

/// Draws a style, and the same picture by direct calls on a surface of the same engine. Pictures are 256 pixels a side
/// and show the quarter of the world at zoom 0 around its middle, so that places can be written as pixels.
class StyledTwins : public ::testing::Test
{
protected:
    using Draw = std::function<void(TZObjects::TXGraphics&)>;

    StyledTwins();

    /// A place as it stands in GeoJSON: "[longitude,latitude]", for a pixel.
    static std::string Place(double x, double y);
    /// A GeoJSON geometry of pixels: "Polygon" and "MultiLineString" have one part for each list.
    static std::string Geometry(const std::string& type, const std::vector<std::vector<TZObjects::TXPoint>>& parts);

    /// The pixels of a style that has a source "s" of these features, GeoJSON, and these layers.
    std::vector<unsigned> Styled(const std::string& geoJson, const std::string& layers, double zoom = 0.0,
                                 double bearing = 0.0);
    /// The same with a source "s" of any kind.
    std::vector<unsigned> StyledSource(const std::string& source, const std::string& layers, double zoom = 0.0,
                                       double bearing = 0.0);
    /// The pixels that direct calls draw.
    std::vector<unsigned> Direct(const Draw& draw);

    TZObjects::TXRefPtr<TZObjects::TXPen> Pen(const TZObjects::TXColor& color, double width,
                                              TZObjects::TXPen::PenCapStyle cap = TZObjects::TXPen::FlatCap,
                                              TZObjects::TXPen::PenJoinStyle join = TZObjects::TXPen::MiterJoin);
    TZObjects::TXRefPtr<TZObjects::TXBrush> Brush(const TZObjects::TXColor& color);

    TemporaryFolder folder;
    txmap::PluginSession plugin;
};

/// How many pixels differ.
std::size_t Differing(const std::vector<unsigned>& a, const std::vector<unsigned>& b);
/// How many pixels are not transparent.
std::size_t Drawn(const std::vector<unsigned>& pixels);
