#pragma once

#include <cstdint>

#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXRefPtr.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXGradient.h>
#include <txgraphics/TXImage.h>
#include <txgraphics/TXPen.h>
#include <txgraphics/TXRgn.h>

namespace TZObjects
{

/// A drawing surface: everything that a map renderer draws goes through one.
///
/// **Coordinates** are doubles, x to the right and y downward, in the surface's logical units: pixels of the target
/// image, moved by the window origin. **Angles** are in degrees; rotations turn clockwise on screen, while the spans of
/// arcs and pies run counter-clockwise from three o'clock.
///
/// **State**: the surface draws with the pen, brush and font selected last. Unless an operation says otherwise it
/// leaves pen, brush, clip, opacity, composition, hints and origin as it found them.
///
/// **Failure**: nothing throws. Operations that return `bool` answer false, and draw nothing, when the surface cannot
/// draw (see `Delete`) or an argument is refused: a null pointer, too few points, or a coordinate that is not finite or
/// lies farther than 10^12 from the origin. Operations that snap to whole pixels take NaN as 0 and saturate instead.
///
/// **Ownership**: `New…` return raw pointers without a reference; put them into a `TXRefPtr`. Everything selected is
/// held by reference. Points, counts and texts are read during the call only.
///
/// **Threads**: a surface and what is selected into it are used by one thread at a time.
class TXGRAPHICS_API TXGraphics : public TXRefBase
{
public:
    /// Where a label lies relative to its anchor, vertically.
    enum TXTextVertAlign : int
    {
        TextAlignTop = 1,     ///< Top.
        TextAlignVCenter = 2, ///< Middle.
        TextAlignBottom = 3   ///< Bottom.
    };

    /// How the lines of a label lie against its widest line.
    enum TXTextHorizAlign : int
    {
        TextAlignLeft = 1,    ///< Left edges meet.
        TextAlignHCenter = 2, ///< Centred.
        TextAlignRight = 3    ///< Right edges meet.
    };

    /// How drawn pixels combine with those that are there. Porter-Duff modes first, then blend modes, then the bitwise
    /// raster operations. Values outside the enumeration are ignored.
    enum TXCompositionMode : int
    {
        CompositionMode_SourceOver = 0,
        CompositionMode_DestinationOver = 1,
        CompositionMode_Clear = 2,
        CompositionMode_Source = 3,
        CompositionMode_Destination = 4,
        CompositionMode_SourceIn = 5,
        CompositionMode_DestinationIn = 6,
        CompositionMode_SourceOut = 7,
        CompositionMode_DestinationOut = 8,
        CompositionMode_SourceAtop = 9,
        CompositionMode_DestinationAtop = 10,
        CompositionMode_Xor = 11,
        CompositionMode_Plus = 12,
        CompositionMode_Multiply = 13,
        CompositionMode_Screen = 14,
        CompositionMode_Overlay = 15,
        CompositionMode_Darken = 16,
        CompositionMode_Lighten = 17,
        CompositionMode_ColorDodge = 18,
        CompositionMode_ColorBurn = 19,
        CompositionMode_HardLight = 20,
        CompositionMode_SoftLight = 21,
        CompositionMode_Difference = 22,
        CompositionMode_Exclusion = 23,
        RasterOp_SourceOrDestination = 24,
        RasterOp_SourceAndDestination = 25,
        RasterOp_SourceXorDestination = 26,
        RasterOp_NotSourceAndNotDestination = 27,
        RasterOp_NotSourceOrNotDestination = 28,
        RasterOp_NotSourceXorDestination = 29,
        RasterOp_NotSource = 30,
        RasterOp_NotSourceAndDestination = 31,
        RasterOp_SourceAndNotDestination = 32,
        RasterOp_NotSourceOrDestination = 33,
        RasterOp_SourceOrNotDestination = 34,
        RasterOp_ClearDestination = 35,
        RasterOp_SetDestination = 36,
        RasterOp_NotDestination = 37
    };

    /// A gradient that an operation computes over the bounding rectangle of what it fills.
    struct stGradientParams
    {
        std::int32_t type = 0; ///< 0 linear, 1 radial, 2 conical; anything else fills nothing.
        TXColor startColor;    ///< The colour at position 0.
        TXColor endColor;      ///< The colour at position 1.
        double angle = 0.0;    ///< Linear only: the direction in degrees, clockwise from the x axis.
        double middle = 50.0;  ///< Linear only: where the opaque mean of both colours lies, in percent.
    };

    TXGraphics();
    ~TXGraphics() override;

    /// @name Life of the surface
    /// @{
    /// Gives the surface a target of its own size: the selected image, or a new one when none is selected, is made
    /// afresh in the default format, transparent white. An attached painter is detached. Transform, clip, opacity and
    /// composition start anew; pen, brush and font are applied again.
    /// @return false when the image cannot be made.
    virtual bool CreateCompatibleGraphics(int width, int height) = 0;
    /// Ends painting for good: an attached painter is detached, and the surface cannot draw until
    /// `CreateCompatibleGraphics`. Pen, brush, font and image stay selected. @return true.
    virtual bool Delete() = 0;

    /// @}
    /// @name Selection
    /// The selecting operations return what was selected before. A null argument, or a surface that cannot draw, gives
    /// null and changes nothing.
    /// @{
    /// Draws with a thin black pen of the style from now on; the selected pen is not changed and stays selected.
    virtual void SelectPen(TXPen::PenStyle style) = 0;
    virtual TXRefPtr<TXPen> SelectPen(TXRefPtr<TXPen> pen) = 0;
    /// Paints into @p image from now on. Pen, brush, font and the antialiasing hints carry over; transform, clip,
    /// opacity and composition start anew. Null ends painting and drops the image. The image already selected gives
    /// null and changes nothing.
    virtual TXRefPtr<TXImage> SelectImage(TXRefPtr<TXImage> image) = 0;
    virtual TXRefPtr<TXFont> SelectFont(TXRefPtr<TXFont> font) = 0;
    virtual TXRefPtr<TXBrush> SelectBrush(TXRefPtr<TXBrush> brush) = 0;
    /// Fills with @p gradient from now on; the selected brush is not changed and stays selected. The gradient is
    /// copied. Null, a deleted gradient or one with coordinates that are not finite changes nothing.
    virtual void SelectGradient(TXGradient* gradient) = 0;
    /// Regions are optional; a backend without them returns null.
    virtual TXRefPtr<TXRgn> SelectRgn(TXRefPtr<TXRgn> region) = 0;
    /// The selected pen. While a painter is attached, the pen carries what that painter holds.
    virtual TXRefPtr<TXPen> GetPen() = 0;
    /// The selected brush. While a painter is attached, the brush carries what that painter holds.
    virtual TXRefPtr<TXBrush> GetBrush() = 0;
    /// The selected font. While a painter is attached, the font carries what that painter holds.
    virtual TXRefPtr<TXFont> GetFont() = 0;
    /// The target image; null if none is selected.
    virtual TXRefPtr<TXImage> GetImage() = 0;

    /// @}
    /// @name Attributes kept for the host
    /// Drawing operations take their alignment as arguments and do not read these.
    /// @{
    virtual void SetTextHorizAlign(int align);
    virtual void SetTextVertAlign(int align);
    /// `TextAlignLeft` until set.
    virtual int GetTextHorizAlign() const;
    /// `TextAlignTop` until set.
    virtual int GetTextVertAlign() const;
    virtual void SetBackGoundColor(const TXColor& color);
    /// Opaque white until set.
    virtual TXColor GetBackGoundColor();

    /// @}
    /// @name State
    /// @{
    /// Writes the target image to a file; the format follows the name's suffix.
    /// @return false without an image or when the file cannot be written; a file that was there before is kept then.
    virtual bool Save(const TXString& fileName) = 0;
    /// Keeps the drawing state (pen, brush, font, transform, clip, opacity, composition, hints) on a stack.
    virtual void Save() = 0;
    /// Takes the state kept last back.
    virtual void Restore() = 0;
    /// Multiplies the alpha of all drawing, 0 (nothing) to 1 (as is); values beyond are clamped.
    virtual void SetOpacity(const double& opacity) = 0;
    /// 0 when the surface has no painter.
    virtual double GetOpacity() const = 0;
    /// The same by a point, truncated to whole units. Calls the overload below.
    virtual TXPoint SetWindowOrg(TXPoint origin);
    /// Moves the origin by (@p x, @p y), on top of what it was moved before. @return the origin before the call.
    virtual TXPoint SetWindowOrg(int x, int y) = 0;
    /// The origin; (0, 0) when the surface has no painter.
    virtual TXPoint GetWindowOrg() const = 0;
    /// Converts device to logical points in place. The Qt backend leaves them unchanged.
    virtual void DPtoLP(TXPoint* points, int count) = 0;
    /// Converts logical to device points in place. The Qt backend leaves them unchanged.
    virtual void LPtoDP(TXPoint* points, int count) = 0;

    /// @}
    /// @name The current path
    /// Building needs no target and returns true; a coordinate that is refused adds nothing.
    /// @{
    virtual bool MoveTo(double x, double y) = 0;
    virtual bool LineTo(double x, double y) = 0;
    /// A cubic Bézier curve with control points (@p c1x, @p c1y) and (@p c2x, @p c2y) to (@p x, @p y).
    virtual bool CurveTo(const double& c1x, const double& c1y, const double& c2x, const double& c2y, const double& x,
                         const double& y) = 0;
    /// A quadratic Bézier curve with control point (@p cx, @p cy) to (@p x, @p y).
    virtual bool QuadTo(const double& cx, const double& cy, const double& x, const double& y) = 0;
    /// Closes the current sub-path with a line; nothing without a path.
    virtual void ClosePath() = 0;
    /// Fills and outlines the path, then empties it. When the surface cannot draw the path is kept.
    virtual void DrawPath() = 0;

    /// @}
    /// @name Shapes
    /// Areas are filled with the brush, odd-even, and outlined with the pen.
    /// @{
    /// The same by points. Calls the overload below.
    virtual bool Line(TXPoint from, TXPoint to);
    /// A line between points rounded to whole units, halves away from zero.
    virtual bool Line(double x1, double y1, double x2, double y2) = 0;
    /// An open line through at least one point. When all points round to the pixel of the first, only that point is
    /// drawn, so that a feature too small for the scale still leaves a dot.
    virtual bool Polyline(const TXPoint* points, int count) = 0;
    /// Several polylines: @p points holds the parts one after another, @p counts the length of each of the @p parts.
    /// Empty parts are skipped. Calls `Polyline` for each. @return false for null, no part, or a part that failed.
    virtual bool PolyPolyline(const TXPoint* points, const int* counts, int parts);
    /// A polygon of at least three points, closed, filled with a gradient and not outlined. The surface keeps no pen
    /// and the gradient as brush until they are selected again.
    virtual bool Polygon(const TXPoint* points, int count, const stGradientParams& gradient) = 0;
    /// A polygon of at least three points, closed.
    virtual bool Polygon(const TXPoint* points, int count) = 0;
    /// A shape of several rings with a gradient. On an image target the gradient is ignored and the shape drawn as by
    /// the overload without one; on other targets the surface keeps no pen and the gradient as brush afterwards.
    virtual bool PolyPolygon(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient) = 0;
    /// One shape of several rings, inner rings being holes. @p points holds the rings one after another, @p counts the
    /// length of each of the @p parts; rings without points are skipped. A ring is outlined as given: repeat its first
    /// point for a closed outline. The points are read in place, never copied.
    virtual bool PolyPolygon(const TXPoint* points, const int* counts, int parts) = 0;
    /// The same by edges. Calls the overload below with left, top, width and height.
    virtual bool Rectangle(const TXRect& rect);
    /// A rectangle; all four numbers are truncated to whole units.
    virtual bool Rectangle(double x, double y, double width, double height) = 0;
    /// An ellipse about a centre, truncated to whole units, with two radii.
    virtual bool Ellipse(const TXPoint& center, int radiusX, int radiusY) = 0;
    /// The ellipse in a rectangle. Calls the overload below with centre, width and height.
    virtual bool Ellipse(const TXRect& rect, int angle, bool fill);
    /// An ellipse about (@p cx, @p cy) with full diameters, rotated by @p angle unless it is a circle; without @p fill
    /// only the outline.
    virtual bool Ellipse(double cx, double cy, double width, double height, int angle, bool fill) = 0;
    /// A disc coloured from @p inner at the centre to @p outer at the rim. The surface keeps no pen and the gradient as
    /// brush until they are selected again.
    virtual bool EllipseByRadialGradient(const TXPoint& center, int radius, TXColor inner, TXColor outer) = 0;
    /// A smooth curve through all points, drawn as a polyline.
    virtual bool Curve(const TXPoint* points, int count) = 0;
    /// The same by edges. Calls the overload below with left, top, width and height.
    virtual bool Arc(const TXRect& rect, double start, double span);
    /// A stretch of the ellipse in a rectangle truncated to whole units: @p start and @p span in degrees,
    /// counter-clockwise from three o'clock, truncated to sixteenths.
    virtual bool Arc(double x, double y, double width, double height, double start, double span) = 0;
    /// The same by edges. Calls the overload below with left, top, width and height.
    virtual bool Pie(const TXRect& rect, double start, double span);
    /// The sector that belongs to `Arc`.
    virtual bool Pie(double x, double y, double width, double height, double start, double span) = 0;

    /// @}
    /// @name Markers
    /// @{
    /// A symbol of points: scaled by (@p scaleX, @p scaleY), moved by (@p offsetX, @p offsetY) and rotated by @p angle
    /// about (@p x, @p y). Closed symbols are polygons, open ones polylines.
    virtual bool VectorMarker(const double& offsetX, const double& offsetY, const double& scaleX, const double& scaleY,
                              const double& x, const double& y, const double& angle, const TXPoint* points, int count,
                              bool closed) = 0;
    /// The same by an anchor point. Calls the overload below.
    virtual bool VectorMarker(const TXPoint& anchor, double scaleX, double scaleY, double angle, const TXPoint* points,
                              int count, bool closed);
    /// A symbol of points: scaled, rotated by @p angle, and placed with its origin at (@p x, @p y).
    virtual bool VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TXPoint* points,
                              int count, bool closed) = 0;
    /// The same by a centre point. Calls the overload below.
    virtual bool FontMarker(const TXPoint& center, double width, double height, double angle, TXString fontName,
                            short character);
    /// A symbol that is one character (a UTF-16 unit) of a font, centred on (@p x, @p y) and rotated by @p angle. The
    /// selected font takes the name, and on the Qt path the size, and keeps them.
    virtual bool FontMarker(double x, double y, double width, double height, double angle, TXString fontName,
                            short character) = 0;

    /// @}
    /// @name Labels
    /// "\n" separates lines. @p scale multiplies the size. The text's colour is the pen's unless one is given. Labels
    /// may carry the tags <BOL>, <ITA>, <UND>, <ACP>, <SCP>. A font must be selected.
    /// @{
    /// A label in the box (@p left, @p right, @p top, @p bottom), rotated about (@p ox, @p oy).
    virtual bool DrawString(double ox, double oy, double left, double right, double top, double bottom,
                            TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text, double angle,
                            const double& scale) = 0;
    /// A label with its top left at (@p x, @p y), rotated about its centre, with extra space between lines.
    virtual bool DrawString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                            double angle, double lineSpacing, const double& scale) = 0;
    /// A label with its top left at (@p x + @p dx, @p y + @p dy), rotated about its centre.
    virtual bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                            const TXString& text, double angle, const double& scale) = 0;
    /// The same, rotated by the selected font's angle.
    virtual bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                            const TXString& text, const double& scale) = 0;
    /// A label with a halo, its top left at (@p left, @p top), rotated about (@p ox, @p oy).
    virtual bool DrawOutlineString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                   TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                   double lineSpacing, const double& scale) = 0;
    /// A label with a halo and its top left at (@p x, @p y), rotated about its centre. Tags are drawn as they stand.
    virtual bool DrawOutlineString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                   const TXString& text, const TXColor& fill, double angle, double lineSpacing,
                                   const double& scale) = 0;
    /// A label of columns, its top left at (@p left, @p top), rotated about (@p ox, @p oy): characters are stacked,
    /// lines become columns from left to right.
    virtual bool DrawVerticalString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                    TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                    double columnSpacing, double charSpacing, bool halo, const double& scale) = 0;
    /// A label of columns with its top left at (@p x, @p y), rotated about its centre. Tags are drawn as they stand.
    virtual bool DrawVerticalString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                    const TXString& text, const TXColor& fill, double angle, double columnSpacing,
                                    double charSpacing, bool halo, const double& scale) = 0;

    /// @}
    /// @name Images
    /// @p opacity multiplies the image's alpha, 0 to 1.
    /// @{
    /// Draws the whole image at the origin. @return false for null only.
    virtual bool DrawImage(TXImage* image, double opacity) = 0;
    /// Draws the part @p src of the image into @p dst, both clipped to the target.
    virtual bool DrawImage(const TXRect& dst, TXImage* image, const TXRect& src, double opacity) = 0;
    /// The same with smooth scaling, rotated by @p angle about the centre of what is drawn.
    virtual bool DrawImage4BitmapRotate(const TXRect& dst, TXImage* image, const TXRect& src, double angle,
                                        double opacity) = 0;
    /// Fills a rectangle, truncated to whole units, with a colour; pen and brush are not used.
    virtual bool fillRect(const TXRect& rect, const TXColor& color) = 0;
    /// Fills a rectangle, truncated to whole units, with a gradient in surface coordinates; pen and brush are not used.
    /// False for null and for a gradient that `SelectGradient` refuses.
    virtual bool FillRect(const TXRect& rect, TXGradient* gradient) = 0;
    /// @}
    /// @name Clipping
    /// A region is given as the rings of `PolyPolygon` are, odd-even, and replaces the one before.
    /// @{
    /// Clips to a region and fills it with a gradient.
    virtual void SetClipRegion(const TXPoint* points, const int* counts, int parts,
                               const stGradientParams& gradient) = 0;
    /// Clips to a region and, with @p fill, fills it with a colour. Labels through cairo are clipped as well, in pixels
    /// of the image, and within the clip that they have already.
    virtual void SetClipRegion(const TXPoint* points, const int* counts, int parts, bool fill, TXColor color) = 0;
    /// Lifts the clip.
    virtual void RestoreClipRegion() = 0;

    /// @}
    /// @name Whole surfaces
    /// @{
    /// Draws the part @p srcRect of another surface's image into @p dst. Calls `DrawImage` with opacity 1.
    /// @return false for null or a source without an image.
    virtual bool StretchBlt(const TXRect& dst, const TXGraphics* source, const TXRect& srcRect);
    /// Draws this surface's image onto @p target with its top left at (@p x, @p y) in the target's units.
    /// @return false for null, or when either has no image or the target cannot draw.
    virtual bool BiltTo(TXGraphics* target, int x, int y) const = 0;
    /// Gives every pixel of the target image the colour, regardless of clip and opacity. @return false without an
    /// image.
    virtual bool ClearWithColor(TXColor color) = 0;
    /// Sets how drawing combines with what is there.
    virtual void SetCompositionMode(TXCompositionMode mode) = 0;

    /// @}
    /// @name Factories
    /// A new object without a reference, null when memory is short.
    /// @{
    virtual TXBrush* NewBrush() const = 0;
    virtual TXPen* NewPen() const = 0;
    virtual TXFont* NewFont() const = 0;
    virtual TXImage* NewImage() const = 0;

    /// @}
    /// @name Painter and text path
    /// @{
    /// Switches antialiasing of shapes and text.
    virtual void EnableAntialiasing(bool on) = 0;
    /// Draws with an outside painter (the backend's painter object) until `Detach`; it is neither owned nor ended here.
    /// Null does nothing.
    virtual void Attach(void* painter) = 0;
    /// Goes back to the surface's own painter.
    virtual void Detach() = 0;
    /// Draws labels through cairo instead of the backend's own text, on the same pixels.
    virtual void EnableCairoDrawing(bool on) = 0;
    virtual bool CairoDrawingEnabled() const = 0;

    /// @}

    /// The backend's current painter: the attached one while there is one. Null when the surface cannot draw.
    void* GetInteralObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's current painter; the backend class keeps it up to date.

private:
    int textHorizAlign = TextAlignLeft;
    int textVertAlign = TextAlignTop;
    TXColor backgroundColor{255, 255, 255, 255};
};

} // namespace TZObjects
