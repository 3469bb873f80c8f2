#pragma once

#include <utility>

#include <txmap/drawing/PlaceSymbol.h>

/// The shapes of symbols, as options name them.
constexpr std::pair<const char*, txmap::PlaceSymbol::Shape> kSymbolShapes[] = {
    {"circle", txmap::PlaceSymbol::Shape::Circle},     {"square", txmap::PlaceSymbol::Shape::Square},
    {"triangle", txmap::PlaceSymbol::Shape::Triangle}, {"star", txmap::PlaceSymbol::Shape::Star},
    {"cross", txmap::PlaceSymbol::Shape::Cross},       {"diamond", txmap::PlaceSymbol::Shape::Diamond}};
