#pragma once

#include <optional>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Color.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// What a pen is made of.
struct PenLook
{
    Color color;
    double width = 1.0; ///< In pixels, 1 or more.
    TZObjects::TXPen::PenCapStyle cap = TZObjects::TXPen::FlatCap;
    TZObjects::TXPen::PenJoinStyle join = TZObjects::TXPen::MiterJoin;
    std::vector<double> dashes; ///< In multiples of the width; empty for a solid line.

    friend bool operator==(const PenLook& a, const PenLook& b)
    {
        return a.color == b.color && a.width == b.width && a.cap == b.cap && a.join == b.join && a.dashes == b.dashes;
    }
};

/// The colour as surfaces take it.
TZObjects::TXColor ToTXColor(const Color& color);

/// What a styled map is drawn on: a surface of the picture's size, and the engine that pens and brushes come from. It
/// selects a pen or brush only if another one is selected.
class MapCanvas
{
public:
    /// @param engine where the surface comes from; it must outlive the canvas.
    /// @throw Failure with `ExitCode::Drawing` when there is no such surface.
    MapCanvas(TZObjects::TXGraphicsEngine& engine, const MapView& view);

    TZObjects::TXGraphicsEngine& Engine() const { return engine; }
    TZObjects::TXGraphics& Surface() const { return *surface; }
    const MapView& View() const { return view; }

    void UsePen(const PenLook& look);
    void UseNoPen();
    void UseBrush(const Color& color);
    /// Fills with thin lines of a colour, a few pixels apart; the picture is seen between them.
    void UseHatch(const Color& color, TZObjects::TXBrush::BrushStyle style);
    /// Fills with a gradient over a box. No pen is selected afterwards.
    void UseGradient(const TZObjects::TXGraphics::stGradientParams& gradient, const TZObjects::TXRect& box);
    void UseNoBrush() { UseBrush({0.0, 0.0, 0.0, 0.0}); }
    /// Fills with an image, laid from the top left of the picture.
    void UseTexture(const TZObjects::TXRefPtr<TZObjects::TXImage>& image);

private:
    TZObjects::TXGraphicsEngine& engine;
    const MapView& view;
    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
    std::optional<PenLook> pen;
    std::optional<Color> brush;
    std::optional<TZObjects::TXBrush::BrushStyle> hatch; ///< Of that brush; nothing for a solid one.
    const TZObjects::TXImage* texture = nullptr;
};

/// Draws with another antialiasing as long as it lives.
class AntialiasingOff
{
public:
    AntialiasingOff(TZObjects::TXGraphics& surface, bool off) : surface(surface), off(off)
    {
        if (off)
            surface.EnableAntialiasing(false);
    }
    ~AntialiasingOff()
    {
        if (off)
            surface.EnableAntialiasing(true);
    }
    AntialiasingOff(const AntialiasingOff&) = delete;
    AntialiasingOff& operator=(const AntialiasingOff&) = delete;

private:
    TZObjects::TXGraphics& surface;
    bool off;
};

} // namespace txmap
