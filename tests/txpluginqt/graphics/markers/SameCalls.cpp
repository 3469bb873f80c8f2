#include "SameCalls.h"

#include "WholeState.h"
#include <tests/support/Recorder.h>

::testing::AssertionResult SameCalls(TZObjects::TXGraphics& surface, const std::function<void(QPainter&)>& change,
                                     const std::function<bool()>& draw,
                                     const std::function<void(QPainter&)>& drawDirectly)
{
    Recorder actual;
    Recorder expected;
    QPainter outside(&actual);
    QPainter direct(&expected);
    for (QPainter* const painter : {&outside, &direct})
        if (change)
            change(*painter);
    surface.Attach(&outside);
    const bool answer = draw();
    surface.Detach();
    drawDirectly(direct);
    EXPECT_EQ(actual.Calls(), expected.Calls());
    if (!answer || expected.Calls().empty())
        return ::testing::AssertionFailure() << "false, or nothing to compare";
    return SameWholeState(WholeState(outside), WholeState(direct));
}
