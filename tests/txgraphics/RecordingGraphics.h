#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <txgraphics/TXGraphics.h>

/// A surface that draws nothing and writes down which operations of a backend were called, with their arguments. What
/// the base class implements is left to it, so that a test sees what that calls.
class RecordingGraphics : public TZObjects::TXGraphics
{
public:
    using Points = const TZObjects::TXPoint*;
    using Counts = const int*;
    using Rect = TZObjects::TXRect;
    using Text = const TZObjects::TXString&;
    using Color = const TZObjects::TXColor&;
    using D = const double&;

    /// The calls in order, each written as `Operation(argument, ...)`; pointers are written as they print.
    std::vector<std::string> calls;
    /// What operations that return `bool` answer, in turn; true when used up.
    std::vector<bool> answers;
    /// The target image.
    TZObjects::TXRefPtr<TZObjects::TXImage> image;

    /// How a call is written.
    template <class... Arguments>
    static std::string Call(const std::string& operation, const Arguments&... arguments)
    {
        std::ostringstream text;
        text.precision(17);
        text << std::boolalpha << operation << '(';
        int written = 0;
        ((text << (written++ > 0 ? ", " : ""), Write(text, arguments)), ...);
        text << ")";
        return text.str();
    }

    void SetInternalObject(void* object) { internalObject = object; }

    // What the base class implements stays visible beside what is overridden here.
    using TXGraphics::Arc;
    using TXGraphics::Ellipse;
    using TXGraphics::FontMarker;
    using TXGraphics::Line;
    using TXGraphics::Pie;
    using TXGraphics::Rectangle;
    using TXGraphics::SetWindowOrg;
    using TXGraphics::VectorMarker;

    bool CreateCompatibleGraphics(int width, int height) override { return Do("CreateCompatible", width, height); }
    bool Delete() override { return Do("Delete"); }
    void SelectPen(TZObjects::TXPen::PenStyle style) override { Do("SelectPen", int{style}); }
    TZObjects::TXRefPtr<TZObjects::TXPen> SelectPen(TZObjects::TXRefPtr<TZObjects::TXPen>) override { return nullptr; }
    TZObjects::TXRefPtr<TZObjects::TXImage> SelectImage(TZObjects::TXRefPtr<TZObjects::TXImage> selected) override
    {
        return std::exchange(image, std::move(selected));
    }
    TZObjects::TXRefPtr<TZObjects::TXFont> SelectFont(TZObjects::TXRefPtr<TZObjects::TXFont>) override
    {
        return nullptr;
    }
    TZObjects::TXRefPtr<TZObjects::TXBrush> SelectBrush(TZObjects::TXRefPtr<TZObjects::TXBrush>) override
    {
        return nullptr;
    }
    void SelectGradient(TZObjects::TXGradient* gradient) override { Do("SelectGradient", gradient); }
    TZObjects::TXRefPtr<TZObjects::TXRgn> SelectRgn(TZObjects::TXRefPtr<TZObjects::TXRgn>) override { return nullptr; }
    TZObjects::TXRefPtr<TZObjects::TXPen> GetPen() override { return nullptr; }
    TZObjects::TXRefPtr<TZObjects::TXBrush> GetBrush() override { return nullptr; }
    TZObjects::TXRefPtr<TZObjects::TXFont> GetFont() override { return nullptr; }
    TZObjects::TXRefPtr<TZObjects::TXImage> GetImage() override { return image; }
    bool Save(Text fileName) override { return Do("Save", fileName); }
    void Save() override { Do("Save"); }
    void Restore() override { Do("Restore"); }
    void SetOpacity(D opacity) override { Do("SetOpacity", opacity); }
    double GetOpacity() const override { return 1.0; }
    TZObjects::TXPoint SetWindowOrg(int x, int y) override
    {
        Do("SetWindowOrg", x, y);
        return {-7.5, 8.25};
    }
    TZObjects::TXPoint GetWindowOrg() const override { return {}; }
    void DPtoLP(TZObjects::TXPoint*, int) override { Do("DPtoLP"); }
    void LPtoDP(TZObjects::TXPoint*, int) override { Do("LPtoDP"); }
    bool MoveTo(double x, double y) override { return Do("MoveTo", x, y); }
    bool LineTo(double x, double y) override { return Do("LineTo", x, y); }
    bool CurveTo(D, D, D, D, D, D) override { return Do("CurveTo"); }
    bool QuadTo(D, D, D, D) override { return Do("QuadTo"); }
    void ClosePath() override { Do("ClosePath"); }
    void DrawPath() override { Do("DrawPath"); }
    bool Line(double x1, double y1, double x2, double y2) override { return Do("Line", x1, y1, x2, y2); }
    bool Polyline(Points points, int count) override { return Do("Polyline", points, count); }
    bool Polygon(Points, int, const stGradientParams&) override { return Do("Polygon with a gradient"); }
    bool Polygon(Points, int) override { return Do("Polygon"); }
    bool PolyPolygon(Points, Counts, int, const stGradientParams&) override
    {
        return Do("PolyPolygon with a gradient");
    }
    bool PolyPolygon(Points, Counts, int) override { return Do("PolyPolygon"); }
    bool Rectangle(double x, double y, double width, double height) override
    {
        return Do("Rectangle", x, y, width, height);
    }
    bool Ellipse(const TZObjects::TXPoint&, int, int) override { return Do("Ellipse by radii"); }
    bool Ellipse(double cx, double cy, double width, double height, int angle, bool fill) override
    {
        return Do("Ellipse", cx, cy, width, height, angle, fill);
    }
    bool EllipseByRadialGradient(const TZObjects::TXPoint&, int, TZObjects::TXColor, TZObjects::TXColor) override
    {
        return Do("EllipseByRadialGradient");
    }
    bool Curve(Points, int) override { return Do("Curve"); }
    bool Arc(double x, double y, double width, double height, double start, double span) override
    {
        return Do("Arc", x, y, width, height, start, span);
    }
    bool Pie(double x, double y, double width, double height, double start, double span) override
    {
        return Do("Pie", x, y, width, height, start, span);
    }
    bool VectorMarker(D, D, D, D, D, D, D, Points, int, bool) override { return Do("VectorMarker with an offset"); }
    bool VectorMarker(double x, double y, double scaleX, double scaleY, double angle, Points points, int count,
                      bool closed) override
    {
        return Do("VectorMarker", x, y, scaleX, scaleY, angle, points, count, closed);
    }
    bool FontMarker(double x, double y, double width, double height, double angle, TZObjects::TXString fontName,
                    short character) override
    {
        return Do("FontMarker", x, y, width, height, angle, fontName, character);
    }
    bool DrawString(double, double, double, double, double, double, TXTextVertAlign, TXTextHorizAlign, Text, double,
                    D) override
    {
        return Do("DrawString in a box");
    }
    bool DrawString(double, double, TXTextVertAlign, TXTextHorizAlign, Text, double, double, D) override
    {
        return Do("DrawString with line spacing");
    }
    bool DrawString(double, double, double, double, TXTextVertAlign, TXTextHorizAlign, Text, double, D) override
    {
        return Do("DrawString with an angle");
    }
    bool DrawString(double, double, double, double, TXTextVertAlign, TXTextHorizAlign, Text, D) override
    {
        return Do("DrawString");
    }
    bool DrawOutlineString(double, double, double, double, TXTextVertAlign, TXTextHorizAlign, Text, Color, double,
                           double, D) override
    {
        return Do("DrawOutlineString about an origin");
    }
    bool DrawOutlineString(double, double, TXTextVertAlign, TXTextHorizAlign, Text, Color, double, double, D) override
    {
        return Do("DrawOutlineString");
    }
    bool DrawVerticalString(double, double, double, double, TXTextVertAlign, TXTextHorizAlign, Text, Color, double,
                            double, double, bool, D) override
    {
        return Do("DrawVerticalString about an origin");
    }
    bool DrawVerticalString(double, double, TXTextVertAlign, TXTextHorizAlign, Text, Color, double, double, double,
                            bool, D) override
    {
        return Do("DrawVerticalString");
    }
    bool DrawImage(TZObjects::TXImage* drawn, double opacity) override { return Do("DrawImage", drawn, opacity); }
    bool DrawImage(const Rect& dst, TZObjects::TXImage* drawn, const Rect& src, double opacity) override
    {
        return Do("DrawImage", dst, drawn, src, opacity);
    }
    bool DrawImage4BitmapRotate(const Rect&, TZObjects::TXImage*, const Rect&, double, double) override
    {
        return Do("DrawImage4BitmapRotate");
    }
    bool fillRect(const Rect&, Color) override { return Do("fillRect"); }
    bool FillRect(const Rect&, TZObjects::TXGradient*) override { return Do("FillRect"); }
    void SetClipRegion(Points, Counts, int, const stGradientParams&) override { Do("SetClipRegion with a gradient"); }
    void SetClipRegion(Points, Counts, int, bool, TZObjects::TXColor) override { Do("SetClipRegion"); }
    void RestoreClipRegion() override { Do("RestoreClipRegion"); }
    bool BiltTo(TXGraphics*, int, int) const override { return false; }
    bool ClearWithColor(TZObjects::TXColor) override { return Do("ClearWithColor"); }
    void SetCompositionMode(TXCompositionMode mode) override { Do("SetCompositionMode", int{mode}); }
    TZObjects::TXBrush* NewBrush() const override { return nullptr; }
    TZObjects::TXPen* NewPen() const override { return nullptr; }
    TZObjects::TXFont* NewFont() const override { return nullptr; }
    TZObjects::TXImage* NewImage() const override { return nullptr; }
    void EnableAntialiasing(bool on) override { Do("EnableAntialiasing", on); }
    void Attach(void* painter) override { Do("Attach", painter); }
    void Detach() override { Do("Detach"); }
    void EnableCairoDrawing(bool on) override { Do("EnableCairoDrawing", on); }
    bool CairoDrawingEnabled() const override { return false; }

private:
    template <class Argument>
    static void Write(std::ostream& text, const Argument& argument)
    {
        text << argument;
    }
    static void Write(std::ostream& text, const Rect& rect)
    {
        text << "[" << rect.left << " " << rect.right << " " << rect.top << " " << rect.bottom << "]";
    }
    static void Write(std::ostream& text, Text string) { text << '"' << string.toUTF8() << '"'; }

    template <class... Arguments>
    bool Do(const char* operation, const Arguments&... arguments)
    {
        calls.push_back(Call(operation, arguments...));
        const std::size_t turn = calls.size() - 1;
        return turn >= answers.size() || answers[turn];
    }
};
