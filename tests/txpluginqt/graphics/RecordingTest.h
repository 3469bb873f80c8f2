#pragma once

#include <QPainter>
#include <QPicture>

#include "SurfaceTest.h"

/// A surface that records into a picture through an outside painter, and a painter that records beside it.
class RecordingTest : public SurfaceTest
{
protected:
    RecordingTest();
    ~RecordingTest() override;

    /// Ends both recordings.
    void End();

    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
    QPicture recorded;
    QPicture direct;
    QPainter recording;
    QPainter directly;
};
