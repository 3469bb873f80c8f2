#pragma once

#include <string>

#include <tests/txpluginqt/cairo/CairoTwins.h>

#include "Symbols.h"

/// A marker in direct cairo calls, with the face that is selected in the context.
void DrawDirectly(cairo_t* context, const CharacterSymbol& symbol, const TZObjects::TXColor& color);

/// Success when both contexts would go on drawing alike, and neither has failed.
::testing::AssertionResult SameContextState(cairo_t* actual, cairo_t* expected);

/// A surface that draws markers through cairo, and beside it a context that draws the same directly.
class CairoMarkerTwins : public CairoTwins
{
public:
    using CairoTwins::CairoTwins;

    /// Draws on both. @return the surface's answer.
    bool Draw(const CharacterSymbol& symbol, const Look& look);
    /// Draws nothing and selects the face that the marker asks for, where the font has another name.
    void SelectDirectly(const CharacterSymbol& symbol, const Look& look);
    /// The context under test.
    cairo_t* Context();
    /// Success when the pixels and the states of both contexts are the same.
    ::testing::AssertionResult SameWithState();
};
