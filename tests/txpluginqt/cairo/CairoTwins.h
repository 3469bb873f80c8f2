#pragma once

#include <memory>

#include <QImage>
#include <QPainter>

#include <cairo.h>
#include <gtest/gtest.h>
#include <txgraphics/txgraphics.h>

#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/text/LabelFont.h>

/// The font and the pen of a label.
struct Look : FontChoice
{
    Look();

    TZObjects::TXColor pen{20, 60, 140, 255};
};

std::ostream& operator<<(std::ostream& out, const Look& look);

/// A pen of the look's colour.
TZObjects::TXRefPtr<TZObjects::TXPen> NewPen(const Look& look);
/// An image of the engine's.
TZObjects::TXRefPtr<TZObjects::TXImage> NewImage(int width, int height, TZObjects::TXImage::Format format);

/// A cairo context over the pixels of an image of 32 bits a pixel.
class DirectCairo
{
public:
    /// How the context under test came about: only the switch chooses font options.
    enum Origin
    {
        Switched,
        Selected
    };

    DirectCairo(QImage& image, Origin origin);
    ~DirectCairo();
    DirectCairo(const DirectCairo&) = delete;
    DirectCairo& operator=(const DirectCairo&) = delete;

    /// Selects the face of the look.
    void Select(const Look& look);
    operator cairo_t*() const { return context; }

private:
    cairo_surface_t* surface;
    cairo_t* context;
};

/// A surface under test with cairo drawing on, and beside it an image of the same pixels with a cairo context that a
/// test draws on directly. Both start over the same uneven background, with the same face.
class CairoTwins
{
public:
    explicit CairoTwins(const Look& look = Look(),
                        TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied,
                        DirectCairo::Origin origin = DirectCairo::Switched, int width = 200, int height = 140);

    TZObjects::TXGraphics& Surface() { return *surface; }
    QPainter& SurfacePainter() { return *static_cast<QPainter*>(surface->GetInteralObject()); }
    TZObjects::TXFont& Font() { return *font; }
    TZObjects::TXImage& Image() { return *image; }
    cairo_t* Direct() { return direct; }
    QImage& Actual() { return *static_cast<QImage*>(image->GetInternalObject()); }
    QImage& Expected() { return expected; }

    /// Selects a font and a pen in the surface, and the face in the direct context.
    void Select(const Look& look);
    /// Puts both images back to the background.
    void Wipe();
    /// Success when both images hold the same pixels.
    ::testing::AssertionResult Same();
    /// Success when both images hold the same pixels, and these are not just the background.
    ::testing::AssertionResult SameAndInked();
    /// True when the surface under test has not drawn anything since the last wipe.
    bool Untouched() { return Actual() == background; }

private:
    QImage background;
    QImage expected;
    TZObjects::TXRefPtr<TZObjects::TXImage> image;
    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
    TZObjects::TXRefPtr<TZObjects::TXFont> font;
    DirectCairo direct;
};
