#pragma once

#include <memory>
#include <optional>

#include <QPainter>
#include <QPainterPath>

#include <txbase/TXLock.h>
#include <txgraphics/TXGraphics.h>
#include <txpluginqt/cairo/CairoTarget.h>
#include <txpluginqt/resources/TXImageQT.h>
#include <txpluginqt/support/Failures.h>

namespace txqt
{
struct CairoLabel;
struct CairoTextStyle;
struct QtLabel;
} // namespace txqt

/// A surface over a `QPainter`, which paints into the `QImage` of the target image, and a cairo context on the same
/// pixels for labels.
class TXGraphicsQT final : public TZObjects::TXGraphics, private TZObjects::PixelUser
{
    using TXBrush = TZObjects::TXBrush;
    using TXColor = TZObjects::TXColor;
    using TXFont = TZObjects::TXFont;
    using TXGradient = TZObjects::TXGradient;
    using TXImage = TZObjects::TXImage;
    using TXPen = TZObjects::TXPen;
    using TXPoint = TZObjects::TXPoint;
    using TXRect = TZObjects::TXRect;
    using TXRgn = TZObjects::TXRgn;
    using TXString = TZObjects::TXString;
    template <class T>
    using TXRefPtr = TZObjects::TXRefPtr<T>;

public:
    /// Paints on @p image without selecting it; null gives a surface that cannot draw yet.
    explicit TXGraphicsQT(TXImage* image);
    /// Has a default pen, brush and font selected, and no target yet.
    TXGraphicsQT();
    ~TXGraphicsQT() override;
    TXGraphicsQT(const TXGraphicsQT&) = delete;
    TXGraphicsQT& operator=(const TXGraphicsQT&) = delete;

    bool CreateCompatibleGraphics(int width, int height) override;
    bool Delete() override;
    void SelectPen(TXPen::PenStyle style) override;
    TXRefPtr<TXPen> SelectPen(TXRefPtr<TXPen> newPen) override;
    TXRefPtr<TXImage> SelectImage(TXRefPtr<TXImage> newImage) override;
    TXRefPtr<TXFont> SelectFont(TXRefPtr<TXFont> newFont) override;
    TXRefPtr<TXBrush> SelectBrush(TXRefPtr<TXBrush> newBrush) override;
    void SelectGradient(TXGradient* gradient) override;
    TXRefPtr<TXRgn> SelectRgn(TXRefPtr<TXRgn> region) override;
    TXRefPtr<TXPen> GetPen() override;
    TXRefPtr<TXBrush> GetBrush() override;
    TXRefPtr<TXFont> GetFont() override;
    TXRefPtr<TXImage> GetImage() override;

    bool Save(const TXString& fileName) override;
    void Save() override;
    void Restore() override;
    void SetOpacity(const double& opacity) override;
    double GetOpacity() const override;
    using TXGraphics::SetWindowOrg;
    TXPoint SetWindowOrg(int x, int y) override;
    TXPoint GetWindowOrg() const override;
    void DPtoLP(TXPoint* points, int count) override;
    void LPtoDP(TXPoint* points, int count) override;

    bool MoveTo(double x, double y) override;
    bool LineTo(double x, double y) override;
    bool CurveTo(const double& c1x, const double& c1y, const double& c2x, const double& c2y, const double& x,
                 const double& y) override;
    bool QuadTo(const double& cx, const double& cy, const double& x, const double& y) override;
    void ClosePath() override;
    void DrawPath() override;

    using TXGraphics::Line;
    bool Line(double x1, double y1, double x2, double y2) override;
    bool Polyline(const TXPoint* points, int count) override;
    bool Polygon(const TXPoint* points, int count, const stGradientParams& gradient) override;
    bool Polygon(const TXPoint* points, int count) override;
    bool PolyPolygon(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient) override;
    bool PolyPolygon(const TXPoint* points, const int* counts, int parts) override;
    using TXGraphics::Rectangle;
    bool Rectangle(double x, double y, double width, double height) override;
    bool Ellipse(const TXPoint& center, int radiusX, int radiusY) override;
    using TXGraphics::Ellipse;
    bool Ellipse(double cx, double cy, double width, double height, int angle, bool fill) override;
    bool EllipseByRadialGradient(const TXPoint& center, int radius, TXColor inner, TXColor outer) override;
    bool Curve(const TXPoint* points, int count) override;
    using TXGraphics::Arc;
    bool Arc(double x, double y, double width, double height, double start, double span) override;
    using TXGraphics::Pie;
    bool Pie(double x, double y, double width, double height, double start, double span) override;

    bool VectorMarker(const double& offsetX, const double& offsetY, const double& scaleX, const double& scaleY,
                      const double& x, const double& y, const double& angle, const TXPoint* points, int count,
                      bool closed) override;
    using TXGraphics::VectorMarker;
    bool VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TXPoint* points, int count,
                      bool closed) override;
    using TXGraphics::FontMarker;
    bool FontMarker(double x, double y, double width, double height, double angle, TXString fontName,
                    short character) override;

    bool DrawString(double ox, double oy, double left, double right, double top, double bottom, TXTextVertAlign vAlign,
                    TXTextHorizAlign hAlign, const TXString& text, double angle, const double& scale) override;
    bool DrawString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                    double angle, double lineSpacing, const double& scale) override;
    bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                    const TXString& text, double angle, const double& scale) override;
    bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                    const TXString& text, const double& scale) override;
    bool DrawOutlineString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                           TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                           double lineSpacing, const double& scale) override;
    bool DrawOutlineString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                           const TXColor& fill, double angle, double lineSpacing, const double& scale) override;
    bool DrawVerticalString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                            TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                            double columnSpacing, double charSpacing, bool halo, const double& scale) override;
    bool DrawVerticalString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                            const TXColor& fill, double angle, double columnSpacing, double charSpacing, bool halo,
                            const double& scale) override;

    bool DrawImage(TXImage* source, double opacity) override;
    bool DrawImage(const TXRect& dst, TXImage* source, const TXRect& src, double opacity) override;
    bool DrawImage4BitmapRotate(const TXRect& dst, TXImage* source, const TXRect& src, double angle,
                                double opacity) override;
    bool fillRect(const TXRect& rect, const TXColor& color) override;
    bool FillRect(const TXRect& rect, TXGradient* gradient) override;

    void SetClipRegion(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient) override;
    void SetClipRegion(const TXPoint* points, const int* counts, int parts, bool fill, TXColor color) override;
    void RestoreClipRegion() override;

    bool BiltTo(TXGraphics* target, int x, int y) const override;
    bool ClearWithColor(TXColor color) override;
    void SetCompositionMode(TXCompositionMode mode) override;
    TXBrush* NewBrush() const override;
    TXPen* NewPen() const override;
    TXFont* NewFont() const override;
    TXImage* NewImage() const override;
    void EnableAntialiasing(bool on) override;
    void Attach(void* outsidePainter) override;
    void Detach() override;
    void EnableCairoDrawing(bool on) override;
    bool CairoDrawingEnabled() const override;

private:
    void PixelsGoing() override;
    void PixelsChanged() override;
    void ImageEnding() override;

    /// Sets `painter` and with it what the interface hands out.
    void UsePainter(QPainter* current);
    /// The surface's own painter, parked or not; null when it has none.
    QPainter* OwnPainter() const { return attached ? ownPainter : painter; }
    /// Follows the changes of the image that the own painter paints into; null for none.
    /// @return false when memory is short, and the image must not be painted on.
    bool Follow(TXImage* newTarget);
    /// Begins the own painter on @p pixels, or leaves it inactive when Qt cannot paint there.
    /// @return false when memory is short.
    bool Begin(QImage* pixels);
    /// The same on the pixels of @p newTarget, whose changes it follows then.
    bool BeginOn(TXImage* newTarget);
    /// Ends the own painter's painting, if it is, with nothing left on its stack of states.
    void EndPainting();
    /// Puts the selected brush, pen and font into a painter that has just begun.
    void ApplySelection(QPainter& target);
    /// The cairo context, while labels are drawn with cairo and there is one.
    cairo_t* ReadyCairoContext() { return cairoEnabled ? cairo.Ready(image.get(), font.get()) : nullptr; }

    /// "False without a painter, else true", where that is the whole contract. An inactive painter draws nothing.
    template <class Draw>
    bool Paint(Draw draw)
    {
        return painter && (!painter->isActive() || txqt::Succeeds([&] { draw(*painter); }));
    }

    /// Changes the current path, which is made on first use.
    template <class Build>
    bool BuildPath(Build build)
    {
        txqt::Succeeds(
            [&]
            {
                if (!path)
                    path = std::make_unique<QPainterPath>();
                build(*path);
            });
        return true;
    }

    template <class WithCr, class WithQt>
    bool OnTextPath(WithCr withCr, WithQt withQt);
    /// Draws a label with the selected font. @return false when there is none, or no painter, or a number is refused.
    bool DrawStringWithQt(const txqt::QtLabel& label);
    bool DrawStringWithCr(const txqt::CairoLabel& label, const txqt::CairoTextStyle& style, TXTextHorizAlign hAlign);
    bool DrawVerticalStringWithCr(const txqt::CairoLabel& label, const txqt::CairoTextStyle& style,
                                  TXTextVertAlign vAlign);

    /// Clips the cairo context as well, where labels are drawn with one.
    void ClipCairo(const TXPoint* points, const int* counts, int parts);

    /// Draws a symbol whose points `place` puts where they belong in relation to (@p x, @p y).
    template <class Place>
    bool PaintMarker(double x, double y, double angle, const TXPoint* points, int count, bool closed, Place place);
    struct FontSymbol;
    bool PaintFontMarkerWithQt(const FontSymbol& symbol);
    void PaintFontMarkerWithCr(const FontSymbol& symbol);

    struct ImageRequest;
    template <class DrawInPlace, class DrawPlaced>
    bool PaintImage(const ImageRequest& request, DrawInPlace drawInPlace, DrawPlaced drawPlaced);

    QPainter* painter = nullptr;
    TXRefPtr<TXPen> pen;
    TXRefPtr<TXBrush> brush;
    TXRefPtr<TXFont> font;
    TXRefPtr<TXImage> image;
    bool attached = false;
    QPainter* ownPainter = nullptr;
    std::unique_ptr<QPainterPath> path;
    bool cairoEnabled = false;
    txqt::CairoTarget cairo;
    std::unique_ptr<TZObjects::TXLock> cairoLock;

    // The image whose changes the surface follows: the selected one, or the one it was constructed on.
    TZObjects::TXImageQT* target = nullptr;
    // What the own painter painted with when the target's pixels went; empty while it has not lost any.
    std::optional<QPainter::RenderHints> hintsBeforeChange;
};
