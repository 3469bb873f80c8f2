#pragma once

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/style/Color.h>
#include <txmap/style/Expression.h>
#include <txmap/style/document/LayerTables.h>
#include <txmap/style/document/StyleProblem.h>

namespace txmap
{

/// Thin lines that fill areas.
enum class Hatch
{
    Horizontal,
    Vertical,
    Cross
};

/// Two colours that pass into each other over the bounds of each area.
struct AreaGradient
{
    enum class Kind
    {
        Linear,
        Radial,
        Conical
    };

    Kind kind = Kind::Linear;
    Color from;
    Color to;
    double angle = 0.0; ///< Of linear ones: the direction in degrees, clockwise from the right.
};

/// A shape that is drawn at points: one with a name, or corners in radii, y downward.
struct LayerMarker
{
    std::string shape; ///< Empty for corners.
    std::vector<TZObjects::TXPoint> corners;
};

/// What a layer is cut to: areas, of which odd-even is inside, or the picture without a margin.
struct LayerClip
{
    std::vector<std::vector<TZObjects::TXPoint>> rings; ///< In degrees, closed; empty for a margin.
    double margin = 0.0;                                ///< In logical pixels.
    double radius = 0.0;                                ///< Of the corners within the margin.
};

/// A layer of a style, compiled.
struct StyleLayer
{
    std::string id;
    std::string pointer; ///< Where it stands in the style.
    LayerType type = LayerType::Background;
    std::string source; ///< Empty for backgrounds.
    std::string sourceLayer;
    double minZoom = -std::numeric_limits<double>::infinity();
    double maxZoom = std::numeric_limits<double>::infinity();
    bool visible = true;
    std::optional<Expression> filter;             ///< Nothing lets every feature pass.
    std::map<std::string, Expression> properties; ///< Those that are set or have a default.
    Json metadata = Json::object();
    // What the style format has no word for stands in the metadata.
    std::optional<Hatch> hatch;           ///< What areas are hatched with.
    std::optional<AreaGradient> gradient; ///< What areas are filled with in place of their colour.
    std::optional<LayerMarker> marker;    ///< What is drawn in place of circles.
    std::optional<LayerClip> clip;
    std::optional<Color> polarColor; ///< What the colour of a background passes into at the poles.
    double tolerance = 0.0;          ///< Corners of lines that are closer count as one, in logical pixels; 0 for none.
    bool textThroughCairo = false;   ///< Whether the metadata say that cairo draws texts.
    bool textIsVertical = false;     ///< Whether the metadata say that texts stand in columns.
    std::string markFont;            ///< The font of a character that the metadata say is an icon; empty for none.
    std::string markCharacter;       ///< The character.

    /// A property, or null if it is not set and has no default.
    const Expression* Find(const std::string& name) const
    {
        const auto found = properties.find(name);
        return found == properties.end() ? nullptr : &found->second;
    }
    /// Whether it is drawn at a zoom.
    bool IsShownAt(double zoom) const { return visible && zoom >= minZoom && zoom < maxZoom; }
};

/// A source of a style.
struct StyleSource
{
    std::string name;
    std::string pointer;
    std::string type;
    Json json; ///< As the style has it.
};

/// Where pictures for patterns and icons lie: `address`.json and `address`.png.
struct StyleSprite
{
    std::string id; ///< Comes before the names of its pictures; "default" for none.
    std::string address;
};

/// A style, read and compiled.
struct MapStyle
{
    std::optional<double> longitude;
    std::optional<double> latitude;
    std::optional<double> zoom;
    double bearing = 0.0;
    std::vector<StyleSource> sources;
    std::vector<StyleSprite> sprites;
    std::vector<StyleLayer> layers;
    Value globalState = Value(ValueObject());
    Json metadata = Json::object();

    /// Null where there is no source of that name.
    const StyleSource* FindSource(const std::string& name) const;
};

/// What was read of a style, and all that is wrong with it. What is wrong is left out of the style.
struct StyleReading
{
    MapStyle style;
    std::vector<StyleProblem> problems;
};

/// Reads a style of version 8. Never fails: everything that is wrong is a problem.
StyleReading ReadStyle(const std::string& text);

} // namespace txmap
