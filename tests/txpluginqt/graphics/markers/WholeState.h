#pragma once

#include <QPainter>

#include <tests/support/PainterState.h>

/// Everything of a painter that a marker could leave changed, the parts of its transform among it.
struct WholeState
{
    explicit WholeState(const QPainter& painter)
        : state(painter), worldMatrixEnabled(painter.worldMatrixEnabled()), viewEnabled(painter.viewTransformEnabled()),
          combined(painter.combinedTransform()), window(painter.window()), viewport(painter.viewport()),
          background(painter.background()), backgroundMode(painter.backgroundMode())
    {
    }

    PainterState state;
    bool worldMatrixEnabled;
    bool viewEnabled;
    QTransform combined;
    QRect window;
    QRect viewport;
    QBrush background;
    Qt::BGMode backgroundMode;
};

/// Success when both states are the same in every respect; a failure names what differs.
inline ::testing::AssertionResult SameWholeState(const WholeState& actual, const WholeState& expected)
{
    if (const auto same = SameState(actual.state, expected.state); !same)
        return same;
    if (actual.worldMatrixEnabled != expected.worldMatrixEnabled)
        return ::testing::AssertionFailure() << "the world matrix is " << (actual.worldMatrixEnabled ? "on" : "off");
    if (actual.viewEnabled != expected.viewEnabled || actual.window != expected.window ||
        actual.viewport != expected.viewport)
        return ::testing::AssertionFailure() << "the view differs";
    if (actual.combined != expected.combined)
        return ::testing::AssertionFailure() << "the combined transform differs";
    if (actual.background != expected.background || actual.backgroundMode != expected.backgroundMode)
        return ::testing::AssertionFailure() << "the background differs";
    return ::testing::AssertionSuccess();
}
