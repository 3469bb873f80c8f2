#pragma once

#include <vector>

#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>

#include "ExpectedImage.h"
#include "Pictures.h"

/// A test of drawing images.
class ImageTest : public SurfaceTest
{
protected:
    /// A new image with a picture of its own.
    static TZObjects::TXRefPtr<TZObjects::TXImage>
    NewSource(int width, int height, QImage::Format format = QImage::Format_ARGB32_Premultiplied);
    /// A new image of these pixels.
    static TZObjects::TXRefPtr<TZObjects::TXImage> NewImageOf(const QImage& pixels);

    /// Calls the operation of the first twin's surface, paints @p pixels directly on the other, and compares the
    /// answers.
    static ImageOutcome DrawBoth(Twins& twins, ImageOperation operation, const ImageCall& call,
                                 TZObjects::TXImage& image, const QImage& pixels);
    /// The same with the image's own pixels.
    static ImageOutcome DrawBoth(Twins& twins, ImageOperation operation, const ImageCall& call,
                                 TZObjects::TXImage& image);
    /// Gives both painters a state in which hardly anything is as it was at the beginning.
    static void Unsettle(Twins& twins);
    /// Success when everything that an operation could change, in the picture or in the painter, is the same on both.
    static ::testing::AssertionResult SameInAll(Twins& twins);
};
