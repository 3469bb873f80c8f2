#include "PainterState.h"

PainterState::PainterState(const QPainter& painter)
    : pen(painter.pen()), brush(painter.brush()), brushOrigin(painter.brushOrigin()), font(painter.font()),
      transform(painter.worldTransform()), clipping(painter.hasClipping()),
      clip(clipping ? painter.clipPath() : QPainterPath()), opacity(painter.opacity()),
      composition(painter.compositionMode()), hints(painter.renderHints())
{
}

::testing::AssertionResult SameState(const PainterState& actual, const PainterState& expected)
{
    std::string differing;
    const auto compare = [&](bool same, const char* name)
    {
        if (!same)
            differing += std::string(" ") + name;
    };
    compare(actual.pen == expected.pen, "pen");
    compare(actual.brush == expected.brush, "brush");
    compare(actual.brushOrigin == expected.brushOrigin, "brush-origin");
    compare(actual.font == expected.font, "font");
    compare(actual.transform == expected.transform, "transform");
    compare(actual.clipping == expected.clipping, "clipping");
    compare(actual.clip == expected.clip, "clip-path");
    compare(actual.opacity == expected.opacity, "opacity");
    compare(actual.composition == expected.composition, "composition");
    compare(actual.hints == expected.hints, "hints");
    if (differing.empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the painter's state differs in:" << differing;
}

::testing::AssertionResult SameState(const QPainter& actual, const QPainter& expected)
{
    return SameState(PainterState(actual), PainterState(expected));
}
