#pragma once

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <txmap/style/Expression.h>
#include <txmap/style/document/LayerTables.h>
#include <txmap/style/document/StyleProblem.h>

namespace txmap
{

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
    std::string hatch;             ///< What the metadata say that areas are hatched with; empty for nothing.
    bool textThroughCairo = false; ///< Whether the metadata say that cairo draws texts.
    bool textIsVertical = false;   ///< Whether the metadata say that texts stand in columns.
    std::string markFont;          ///< The font of a character that the metadata say is an icon; empty for none.
    std::string markCharacter;     ///< The character.

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
