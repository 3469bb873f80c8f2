#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <QPainter>
#include <QPainterPath>

#include <cairo.h>
#include <tests/txpluginqt/graphics/Rings.h>
#include <tests/txpluginqt/text/Label.h>

#include "ModelResources.h"

/// The outside painter of a canvas, and how many of its states are saved.
struct ModelOutside
{
    QPainter& painter;
    int saved = 0;
};

/// What a surface is required to do, said a second time with `QPainter` and cairo in the plainest way: no sharing, no
/// guard, no refusal of numbers that a walk never makes. Operations have the names and arguments of `TXGraphics`.
class ModelSurface : private ModelFollower
{
public:
    using Gradient = TZObjects::TXGraphics::stGradientParams;
    template <class T>
    using Ptr = std::shared_ptr<T>;

    /// A surface with a pen, a brush and a font, and no target.
    ModelSurface();
    /// A surface that paints on an image, or that cannot draw.
    explicit ModelSurface(const Ptr<ModelImage>& painted);
    ~ModelSurface() override;
    ModelSurface(const ModelSurface&) = delete;
    ModelSurface& operator=(const ModelSurface&) = delete;

    // Life.
    bool CreateCompatibleGraphics(int width, int height);
    bool Delete();
    Ptr<ModelImage> SelectImage(const Ptr<ModelImage>& newImage);
    void Attach(ModelOutside* newOutside);
    void Detach() { outside = nullptr; }
    void EnableCairoDrawing(bool on);
    bool CairoDrawingEnabled() const { return cairoEnabled; }

    // State.
    void SelectPen(TZObjects::TXPen::PenStyle style);
    Ptr<ModelPen> SelectPen(const Ptr<ModelPen>& newPen);
    Ptr<ModelBrush> SelectBrush(const Ptr<ModelBrush>& newBrush);
    Ptr<ModelFont> SelectFont(const Ptr<ModelFont>& newFont);
    void SelectGradient(const ModelGradient* gradient);
    std::nullptr_t SelectRgn(std::nullptr_t) { return nullptr; }
    Ptr<ModelPen> GetPen();
    Ptr<ModelBrush> GetBrush();
    Ptr<ModelFont> GetFont();
    Ptr<ModelImage> GetImage() const { return image; }
    void SetTextHorizAlign(int align) { textHorizAlign = align; }
    void SetTextVertAlign(int align) { textVertAlign = align; }
    int GetTextHorizAlign() const { return textHorizAlign; }
    int GetTextVertAlign() const { return textVertAlign; }
    void SetBackGoundColor(const TZObjects::TXColor& color) { background = color; }
    TZObjects::TXColor GetBackGoundColor() const { return background; }
    bool Save(const TZObjects::TXString& fileName);
    void Save();
    void Restore();
    void SetOpacity(double opacity);
    double GetOpacity() const;
    TZObjects::TXPoint SetWindowOrg(const TZObjects::TXPoint& origin);
    TZObjects::TXPoint SetWindowOrg(int x, int y);
    TZObjects::TXPoint GetWindowOrg() const;
    void DPtoLP(TZObjects::TXPoint*, int) {}
    void LPtoDP(TZObjects::TXPoint*, int) {}
    void SetCompositionMode(TZObjects::TXGraphics::TXCompositionMode mode);
    void EnableAntialiasing(bool on);

    // Path.
    bool MoveTo(double x, double y);
    bool LineTo(double x, double y);
    bool CurveTo(double c1x, double c1y, double c2x, double c2y, double x, double y);
    bool QuadTo(double cx, double cy, double x, double y);
    void ClosePath();
    void DrawPath();

    // Shapes.
    bool Line(const TZObjects::TXPoint& from, const TZObjects::TXPoint& to);
    bool Line(double x1, double y1, double x2, double y2);
    bool Polyline(const TZObjects::TXPoint* points, int count);
    bool PolyPolyline(const TZObjects::TXPoint* points, const int* counts, int parts);
    bool Polygon(const TZObjects::TXPoint* points, int count);
    bool Polygon(const TZObjects::TXPoint* points, int count, const Gradient& gradient);
    bool PolyPolygon(const TZObjects::TXPoint* points, const int* counts, int parts);
    bool PolyPolygon(const TZObjects::TXPoint* points, const int* counts, int parts, const Gradient& gradient);
    bool Rectangle(const TZObjects::TXRect& rect);
    bool Rectangle(double x, double y, double w, double h);
    bool Ellipse(const TZObjects::TXPoint& center, int rx, int ry);
    bool Ellipse(const TZObjects::TXRect& rect, int angle, bool fill);
    bool Ellipse(double cx, double cy, double w, double h, int angle, bool fill);
    bool EllipseByRadialGradient(const TZObjects::TXPoint& center, int radius, const TZObjects::TXColor& inner,
                                 const TZObjects::TXColor& outer);
    bool Curve(const TZObjects::TXPoint* points, int count);
    bool Arc(const TZObjects::TXRect& rect, double start, double span);
    bool Arc(double x, double y, double w, double h, double start, double span);
    bool Pie(const TZObjects::TXRect& rect, double start, double span);
    bool Pie(double x, double y, double w, double h, double start, double span);
    bool FillRect(const TZObjects::TXRect& rect, const ModelGradient* gradient);
    bool fillRect(const TZObjects::TXRect& rect, const TZObjects::TXColor& color);

    // Clip.
    void SetClipRegion(const TZObjects::TXPoint* points, const int* counts, int parts, const Gradient& gradient);
    void SetClipRegion(const TZObjects::TXPoint* points, const int* counts, int parts, bool fill,
                       const TZObjects::TXColor& color);
    void RestoreClipRegion();

    // Markers.
    bool VectorMarker(double offsetX, double offsetY, double scaleX, double scaleY, double x, double y, double angle,
                      const TZObjects::TXPoint* points, int count, bool closed);
    bool VectorMarker(const TZObjects::TXPoint& anchor, double scaleX, double scaleY, double angle,
                      const TZObjects::TXPoint* points, int count, bool closed);
    bool VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TZObjects::TXPoint* points,
                      int count, bool closed);
    bool FontMarker(const TZObjects::TXPoint& center, double width, double height, double angle,
                    const TZObjects::TXString& fontName, short character);
    bool FontMarker(double x, double y, double width, double height, double angle, const TZObjects::TXString& fontName,
                    short character);

    // Labels: every overload, by its name.
    bool DrawLabel(Entry entry, const Label& label);

    // Images.
    bool DrawImage(ModelImage* source, double opacity);
    bool DrawImage(const TZObjects::TXRect& dst, ModelImage* source, const TZObjects::TXRect& src, double opacity);
    bool DrawImage4BitmapRotate(const TZObjects::TXRect& dst, ModelImage* source, const TZObjects::TXRect& src,
                                double angle, double opacity);
    bool StretchBlt(const TZObjects::TXRect& dst, ModelSurface* source, const TZObjects::TXRect& src);
    bool BiltTo(ModelSurface* target, int x, int y) const;
    bool ClearWithColor(const TZObjects::TXColor& color);

    /// The painter that all drawing uses; null when there is none.
    QPainter* Painter() const { return outside ? &outside->painter : own.get(); }
    /// The selected font, as it is.
    const Ptr<ModelFont>& Font() const { return font; }
    /// Whether the image drawn last may have any pixels.
    bool DrewRawPixels() const { return drewRawPixels; }
    /// Forgets and returns the warning that the operation before has Qt print; empty for none.
    std::string TakeQtWarning() { return std::exchange(qtWarning, {}); }

private:
    using CairoSurface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
    using CairoContext = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

    void PixelsGo() override;
    void PixelsCame() override;
    void ImageEnds() override { target = nullptr; }
    void Follow(ModelImage* newTarget);
    void Begin(QImage* pixels);
    void EndPainting();
    void ApplyResources();
    void MakeCairoContext();
    void DropCairoContext();
    void SelectCairoFace();

    /// The arguments of `DrawImage` and its sibling.
    struct ImageCall
    {
        const TZObjects::TXRect& dst;
        ModelImage* source;
        const TZObjects::TXRect& src;
        double opacity;
    };
    using DrawInPlace = std::function<void(QPainter&, const QImage& pixels, const TZObjects::TXRect& rect)>;
    using DrawPlaced = std::function<void(QPainter&, const QImage& pixels, const TZObjects::TXRect& to,
                                          const TZObjects::TXRect& from)>;

    /// How many states of the current painter are saved.
    int& SavedStates() { return outside ? outside->saved : saved; }
    /// False without a painter, else true; draws with a painter that is painting.
    bool Paint(const std::function<void(QPainter&)>& draw) const;
    bool PaintMarker(double x, double y, double angle, const QPolygonF& symbol, bool closed);
    bool PaintRings(const QPainterPath& asGiven, const QPainterPath& asPolygons, const Gradient* gradient);
    bool PaintImage(const ImageCall& call, const DrawInPlace& drawInPlace, const DrawPlaced& drawPlaced);
    void FontMarkerWithQt(QPainter& painter, double x, double y, double width, double height, double angle,
                          short character);
    void FontMarkerWithCairo(double x, double y, double height, double angle, const TZObjects::TXString& fontName,
                             short character);
    bool DrawLabelWithQt(Entry entry, const Label& label);
    bool DrawLabelWithCairo(Entry entry, const Label& label);

    std::unique_ptr<QPainter> own;
    ModelOutside* outside = nullptr;
    Ptr<ModelPen> pen;
    Ptr<ModelBrush> brush;
    Ptr<ModelFont> font;
    Ptr<ModelImage> image;
    std::unique_ptr<QPainterPath> path;
    bool cairoEnabled = false;
    CairoSurface cairoSurface{nullptr, cairo_surface_destroy};
    CairoContext cairo{nullptr, cairo_destroy};

    ModelImage* target = nullptr;                   // that the own painter paints on
    std::optional<QPainter::RenderHints> lostHints; // that the own painter had when the target's pixels went
    int saved = 0;                                  // states of the own painter
    std::string qtWarning;
    bool drewRawPixels = false;
    int textHorizAlign = 1;
    int textVertAlign = 1;
    TZObjects::TXColor background{255, 255, 255, 255};
};

/// Calls the model as `Draw` of the tests of labels calls the surface under test.
bool Draw(ModelSurface& surface, Entry entry, const Label& label);

/// To whole units toward zero.
int Truncate(double value);
/// To the nearest whole unit, halves away from zero.
int Nearest(double value);
/// A rectangle whose four numbers are truncated.
QRect TruncatedRect(double x, double y, double w, double h);
