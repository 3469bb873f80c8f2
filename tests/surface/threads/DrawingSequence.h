#pragma once

#include <vector>

#include <QImage>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

/// What a sequence of calls has made: a picture now and then, and the numbers that calls have answered.
struct Recording
{
    std::vector<QImage> pictures;
    std::vector<double> numbers;
};

/// Draws @p labels labels through all entries, with Qt and with cairo, and between them shapes, markers, images, clips
/// and whatever else a surface does, and measures. Everything that is used is made here, and the same for the same
/// @p seed.
Recording RecordDrawing(TZObjects::TXGraphicsEngine& engine, unsigned seed, int labels);

/// Success when both have the same pictures and the same numbers.
::testing::AssertionResult SameRecording(const Recording& actual, const Recording& expected);
