#pragma once

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>
#include <tests/support/QuietTest.h>
#include <txgraphics/txgraphics.h>

/// A test of surfaces.
class SurfaceTest : public QuietTest
{
protected:
    /// A new image over the uneven background of the test twins.
    static TZObjects::TXRefPtr<TZObjects::TXImage>
    NewPaintedImage(int width = 60, int height = 40,
                    TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied);
    /// A surface that paints on a new image of that kind.
    static TZObjects::TXRefPtr<TZObjects::TXGraphics>
    NewPaintingSurface(int width = 60, int height = 40,
                       TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied);
    /// A solid pen.
    static TZObjects::TXRefPtr<TZObjects::TXPen> NewPen(const TZObjects::TXColor& color, double width);
    /// A solid brush.
    static TZObjects::TXRefPtr<TZObjects::TXBrush> NewBrush(const TZObjects::TXColor& color);
    /// A font of that height.
    static TZObjects::TXRefPtr<TZObjects::TXFont> NewFont(int height);

    struct Resources
    {
        TZObjects::TXRefPtr<TZObjects::TXPen> pen;
        TZObjects::TXRefPtr<TZObjects::TXBrush> brush;
        TZObjects::TXRefPtr<TZObjects::TXFont> font;
    };
    /// Selects new resources that no default is like.
    static Resources SelectResources(TZObjects::TXGraphics& surface);
    /// The surface has these selected, and its painter holds them and is otherwise as one that has just begun.
    static void ExpectOnly(const Resources& resources, TZObjects::TXGraphics& surface);

    /// The painter that a surface draws with now.
    static QPainter& PainterOf(TZObjects::TXGraphics& surface);
    /// The Qt image behind an image.
    static QImage& PixelsOf(TZObjects::TXImage& image);
    /// The Qt pen, brush and font behind a resource.
    static const QPen& PenOf(TZObjects::TXPen& pen);
    static const QBrush& BrushOf(TZObjects::TXBrush& brush);
    static const QFont& FontOf(TZObjects::TXFont& font);
    /// The hints that a painter has when it has just begun on an image.
    static QPainter::RenderHints FreshHints();
    static constexpr QPainter::RenderHints kAntialiasing = QPainter::Antialiasing | QPainter::TextAntialiasing;
};
