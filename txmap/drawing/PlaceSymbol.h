#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// What stands for a place on the map.
struct PlaceSymbol
{
    enum class Shape
    {
        Circle,
        Square,
        Triangle,
        Star,
        Cross,
        Diamond,
        Character ///< Of a symbol font.
    };

    Shape shape = Shape::Circle;
    std::optional<double> size;  ///< Its longer side, or the size of the font, in pixels; nothing for what suits.
    std::string face;            ///< The symbol font.
    char16_t character = 0;      ///< Of the font.
    std::string text = "circle"; ///< As the command line has it.
};

/// What shapes are called.
constexpr std::pair<std::string_view, PlaceSymbol::Shape> kPlaceShapes[] = {
    {"circle", PlaceSymbol::Shape::Circle},     {"square", PlaceSymbol::Shape::Square},
    {"triangle", PlaceSymbol::Shape::Triangle}, {"star", PlaceSymbol::Shape::Star},
    {"cross", PlaceSymbol::Shape::Cross},       {"diamond", PlaceSymbol::Shape::Diamond}};

/// The shape of one of these names; nothing for any other.
std::optional<PlaceSymbol::Shape> ShapeOf(std::string_view name);

/// The corners of a shape with its centre of gravity at the origin; its longer side is 1. None for a character.
std::vector<TZObjects::TXPoint> CornersOf(PlaceSymbol::Shape shape);

/// How large a shape is beside a circle that looks just as important.
double UsualSize(PlaceSymbol::Shape shape);

} // namespace txmap
