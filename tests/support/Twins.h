#pragma once

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

/// A surface under test, painting on an image, and beside it an image of the same pixels with a `QPainter` that a test
/// paints with directly. Both start over the same uneven background, so that every blend shows, with the same
/// antialiased painter, a pen and a brush.
class Twins
{
public:
    explicit Twins(int width = 160, int height = 120,
                   TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied);
    Twins(const Twins&) = delete;
    Twins& operator=(const Twins&) = delete;

    /// The surface under test.
    TZObjects::TXGraphics& Surface() { return *surface; }
    /// The painter that the surface under test draws with.
    QPainter& SurfacePainter();
    /// The painter on the twin image.
    QPainter& Direct() { return direct; }

    /// Applies the same change of state to both painters.
    template <class Change>
    void Both(Change change)
    {
        change(SurfacePainter());
        change(direct);
    }

    /// The image that the surface paints on.
    QImage& Actual();
    /// The twin image.
    QImage& Expected() { return expected; }

    /// Success when both images hold the same pixels.
    ::testing::AssertionResult Same();
    /// Success when both images hold the same pixels and both painters are in the same state.
    ::testing::AssertionResult SameWithState();
    /// Puts both images back to the background.
    void Wipe();

private:
    TZObjects::TXRefPtr<TZObjects::TXImage> image;
    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
    QImage expected;
    QPainter direct;
};

/// An uneven, translucent background that is the same every time.
void PaintBackground(QImage& image);
