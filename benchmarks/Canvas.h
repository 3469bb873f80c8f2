#pragma once

#include <memory>

#include <QImage>
#include <QPainter>

#include <cairo.h>
#include <txgraphics/txgraphics.h>

#include "AggCanvas.h"

/// The engine of the plugin, loaded at run time as hosts do.
TZObjects::TXGraphicsEngine& Engine();

void SetCairoColor(cairo_t* context, const TZObjects::TXColor& color);

/// How shapes are filled and outlined. Widths of 0 are no outline.
struct Look
{
    TZObjects::TXColor fill{214, 196, 148, 255};
    TZObjects::TXColor outline{70, 60, 90, 255};
    double width = 1.0;
    bool filled = true;
};

/// A surface of the plugin, and twins of its picture for those that compete with it. All have the same size, the same
/// format (32 bits, premultiplied), the same background, and draw with antialiasing.
class Canvas
{
public:
    explicit Canvas(int width = 1024, int height = 1024);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    TZObjects::TXGraphics& Surface() { return *surface; }
    QPainter& Direct() { return direct; }
    cairo_t* Cairo() { return cairo.get(); }
    AggCanvas& Agg() { return agg; }
    /// A cairo context over the picture that `Direct` paints on, for what is compared with the plugin's cairo path.
    cairo_t* DirectCairo() { return directCairo.get(); }

    /// Lets the direct painter paint on the picture of another canvas's surface, which must outlive this one.
    void PaintDirectlyOn(Canvas& other);
    /// Selects pen and brush, in all.
    void Use(const Look& look);
    /// Puts all pictures back to the background.
    void Wipe();
    /// How many pixels of the surface's picture differ from that of the direct painter.
    long DifferingPixels() const;

private:
    using CairoPtr = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;
    static CairoPtr CairoOn(QImage& picture);
    QImage& Ours() const;
    void BeginDirect();

    QImage background;
    TZObjects::TXRefPtr<TZObjects::TXImage> image;
    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
    QImage twin;
    QImage cairoTwin;
    QImage aggTwin;
    QPainter direct;
    CairoPtr directCairo;
    CairoPtr cairo;
    AggCanvas agg;
};

/// A scene's canvas with a function to begin, and one that compares.
struct Stage
{
    std::shared_ptr<Canvas> canvas = std::make_shared<Canvas>();

    /// Contenders who have that canvas. The ways are still to be set.
    struct Contenders Contenders() const;
};
