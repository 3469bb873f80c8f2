#include "RecordingTest.h"

RecordingTest::RecordingTest() : surface(TestEngine().NewGraphics()), recording(&recorded), directly(&direct)
{
    surface->Attach(&recording);
    for (QPainter* const painter : {&recording, &directly})
    {
        painter->setPen(QPen(QColor(20, 60, 140, 200), 2.5));
        painter->setBrush(QColor(230, 170, 40, 150));
    }
}

RecordingTest::~RecordingTest() { surface->Detach(); }

void RecordingTest::End()
{
    surface->Detach();
    recording.end();
    directly.end();
}
