#pragma once

#include <functional>
#include <memory>

#include <tests/support/PainterState.h>
#include <tests/support/Twins.h>

#include "ExpectedLabel.h"
#include <tests/support/QuietTest.h>

/// A test that draws labels on a surface and, beside it, directly.
class LabelTest : public QuietTest
{
protected:
    using Change = std::function<void(QPainter&)>;
    using Paint = std::function<void(QPainter&)>;

    explicit LabelTest(int width = 150, int height = 100);

    Twins& Images() { return *twins; }
    TZObjects::TXGraphics& Surface() { return twins->Surface(); }

    /// Success when the surface draws the label as it is drawn directly, answers true, and leaves its painter as it
    /// was. @p change is made to both painters before, on top of a pen of the colour below.
    ::testing::AssertionResult SameAsDirect(Entry entry, const Label& label, const Change& change = {});
    /// The same for a picture that the test paints itself, in a saved state with both hints of antialiasing set.
    ::testing::AssertionResult SameAs(Entry entry, const Label& label, const Paint& paint, const Change& change = {});
    /// Success when the label's picture is another than @p paint makes, so that the test tells the two apart.
    ::testing::AssertionResult DiffersFrom(Entry entry, const Label& label, const Paint& paint);
    /// Success when the entry answers @p result and draws nothing.
    ::testing::AssertionResult DrawsNothing(Entry entry, const Label& label, bool result);

    /// Whether the last compared label left any ink.
    bool LastLeftInk() { return twins->Expected() != background; }
    /// Puts both images back to the background.
    void Wipe();

    /// The colour of the pens of both painters.
    QColor penColor{20, 60, 140, 200};
    /// What happens to the font after the surface has selected it.
    std::function<void(TZObjects::TXFont&)> afterSelecting;

private:
    void Compare(Entry entry, const Label& label, const Paint& paint, const Change& change,
                 ::testing::AssertionResult& result);

    QImage background;
    std::unique_ptr<Twins> twins;
};
