#pragma once

#include <QImage>

#include <gtest/gtest.h>

/// Success when both images have the same size, format and pixels. A failure names the first differing pixel and leaves
/// the actual, the expected and a difference image in the folder "test-failures" of the build folder.
::testing::AssertionResult SamePixels(const QImage& actual, const QImage& expected);

/// How many pixels differ from the image's top left pixel: 0 for an image that is of one colour all over.
int InkedPixels(const QImage& image);
