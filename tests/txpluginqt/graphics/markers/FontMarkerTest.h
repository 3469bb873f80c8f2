#pragma once

#include <functional>

#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>
#include <tests/txpluginqt/text/LabelFont.h>

#include "SameCalls.h"
#include "Symbols.h"
#include "WholeState.h"

/// A test that draws characters as markers through Qt, and the same directly with a font of its own.
class FontMarkerTest : public SurfaceTest
{
protected:
    FontMarkerTest() { Select(FontChoice()); }

    void Select(const FontChoice& choice)
    {
        font = MakeFont(choice);
        directFont = DirectFont(choice);
        twins.Surface().SelectFont(font);
        twins.Direct().setFont(directFont);
    }
    ::testing::AssertionResult SameAsDirect()
    {
        // Twice, as the first glyphs of a face may still move its outlines.
        bool answer = true;
        for (int attempt = 0; attempt < 2 && (attempt == 0 || twins.Actual() != twins.Expected()); ++attempt)
        {
            twins.Wipe();
            answer = answer && ::Draw(twins.Surface(), symbol);
            DrawDirectly(twins.Direct(), directFont, symbol);
        }
        if (!answer)
            return ::testing::AssertionFailure() << "the answer is false; " << symbol;
        if (FontOf(*font) != directFont)
            return ::testing::AssertionFailure() << "the selected font differs; " << symbol;
        const auto same = twins.SameWithState();
        return same ? same : ::testing::AssertionFailure() << same.message() << "; " << symbol;
    }
    /// The picture that the test paints itself with the font that the marker has left.
    QImage Painted(const std::function<void(QPainter&)>& paint)
    {
        twins.Wipe();
        paint(twins.Direct());
        return twins.Expected().copy();
    }
    ::testing::AssertionResult SameCalls(const std::function<void(QPainter&)>& change = {})
    {
        return ::SameCalls(
            twins.Surface(), change, [this] { return ::Draw(twins.Surface(), symbol); },
            [this](QPainter& direct) { DrawDirectly(direct, directFont, symbol); });
    }

    /// The selected font is the painter's, which resolves it for its device.
    bool IsIn(const QPainter& painter) const
    {
        return painter.font().toString() == FontOf(*font).toString() &&
               painter.font().styleStrategy() == FontOf(*font).styleStrategy();
    }

    Twins twins{96, 72};
    const QImage untouched = twins.Actual().copy();
    TZObjects::TXRefPtr<TZObjects::TXFont> font;
    QFont directFont;
    CharacterSymbol symbol;
};
