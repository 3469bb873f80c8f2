#pragma once

#include "CairoSymbols.h"

/// A test that draws characters as markers through cairo, and the same directly.
class CairoFontMarkerTest : public QuietTest
{
protected:
    ::testing::AssertionResult SameAsDirect()
    {
        twins.Wipe();
        if (!twins.Draw(symbol, look))
            return ::testing::AssertionFailure() << "the answer is false; " << symbol;
        const auto same = twins.SameWithState();
        return same ? same : ::testing::AssertionFailure() << same.message() << "; " << symbol;
    }
    void Select(const Look& newLook)
    {
        look = newLook;
        twins.Select(look);
    }

    Look look;
    CairoMarkerTwins twins;
    CharacterSymbol symbol;
};
