#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXGradient.h>
#include <txgraphics/TXGraphicsState.h>
#include <txgraphics/TXGraphicsTypes.h>
#include <txgraphics/TXImage.h>
#include <txgraphics/TXPen.h>

namespace TZObjects
{

/// A drawing surface. A map renderer draws everything through one.
///
/// **Coordinates** are doubles in surface units: pixels of the target image, counted from the window origin, x to the
/// right and y downward. **Angles** are in degrees. Rotations turn clockwise on screen; `Arc` and `Pie` run
/// counter-clockwise.
///
/// **State.** A surface draws with the pen, brush and font that were selected last. An operation leaves pen, brush,
/// clip, opacity, composition mode, antialiasing and origin as they were, unless it says otherwise.
///
/// **Failure.** Nothing throws. An operation that returns `bool` returns false, and draws nothing, in two cases: the
/// surface has no painter (see `Delete`), or the operation refuses an argument. It refuses null, too few points, and
/// coordinates that are not finite or beyond ±10^12. Operations on whole units refuse no number: NaN counts as 0, and
/// one that is too large as the largest. A surface that has a painter but no pixels returns true and draws nothing, for
/// example before it has a target.
///
/// **Ownership.** `New…` operations return an object without a reference; put it into a `TXRefPtr`. A surface holds
/// references to what is selected. It reads points, counts and texts during the call only.
///
/// **Threads.** One thread at a time uses a surface and all that is selected into it.
class TXGRAPHICS_API TXGraphics : public TXGraphicsState
{
public:
    TXGraphics();
    ~TXGraphics() override;

    /// @name The current path
    /// A path can be built without a target. The operations return true; a coordinate that is refused adds nothing.
    /// @{

    /// Begins a sub-path at a point.
    virtual bool MoveTo(double x, double y) = 0;
    /// Adds a line to a point. A path that begins with it begins at the origin.
    virtual bool LineTo(double x, double y) = 0;
    /// Adds a cubic Bézier curve with two control points to (@p x, @p y).
    virtual bool CurveTo(const double& c1x, const double& c1y, const double& c2x, const double& c2y, const double& x,
                         const double& y) = 0;
    /// Adds a quadratic Bézier curve with one control point to (@p x, @p y).
    virtual bool QuadTo(const double& cx, const double& cy, const double& x, const double& y) = 0;
    /// Closes the sub-path with a line.
    virtual void ClosePath() = 0;
    /// Fills and outlines the path, then empties it. Without a painter the path stays.
    virtual void DrawPath() = 0;
    /// @}

    /// @name Shapes
    /// The brush fills areas by the odd-even rule, then the pen outlines them. Overloads that take `TXPoint` or
    /// `TXRect` where others take numbers call those.
    /// @{

    /// Draws a line.
    virtual bool Line(TXPoint from, TXPoint to);
    /// Draws a line between points that are rounded to whole units, halves away from zero.
    virtual bool Line(double x1, double y1, double x2, double y2) = 0;
    /// Draws an open line through one point or more. If all points round to the same pixel, it draws the first as a
    /// dot, so that a feature too small for the scale can be seen.
    virtual bool Polyline(const TXPoint* points, int count) = 0;
    /// Draws several polylines.
    /// @param points the points of all parts, one part after another.
    /// @param counts the number of points of each part; a part without points is skipped.
    /// @param parts the number of parts.
    /// @return false also if one of them fails.
    virtual bool PolyPolyline(const TXPoint* points, const int* counts, int parts);
    /// Draws a polygon of three points or more, filled with a gradient and not outlined. Afterwards the surface has no
    /// pen, and the gradient as brush, until others are selected.
    virtual bool Polygon(const TXPoint* points, int count, const stGradientParams& gradient) = 0;
    /// Draws a polygon of three points or more.
    virtual bool Polygon(const TXPoint* points, int count) = 0;
    /// Draws one shape of several rings, as below. On an image it ignores the gradient; on any other target it fills as
    /// `Polygon` with a gradient does, and leaves behind what that does.
    virtual bool PolyPolygon(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient) = 0;
    /// Draws one shape of several rings, of which inner ones are holes. @p points and @p counts are as in
    /// `PolyPolyline`. A ring is outlined as given: repeat its first point to close the outline.
    virtual bool PolyPolygon(const TXPoint* points, const int* counts, int parts) = 0;
    /// Draws a rectangle.
    virtual bool Rectangle(const TXRect& rect);
    /// Draws a rectangle. Position and size are truncated to whole units.
    virtual bool Rectangle(double x, double y, double width, double height) = 0;
    /// Draws an ellipse by its radii. The centre is truncated to whole units.
    virtual bool Ellipse(const TXPoint& center, int radiusX, int radiusY) = 0;
    /// Draws the ellipse in a rectangle; the rest is as below.
    virtual bool Ellipse(const TXRect& rect, int angle, bool fill);
    /// Draws an ellipse.
    /// @param cx,cy the centre.
    /// @param width,height the diameters; the rectangle about them is truncated to whole units.
    /// @param angle rotates the ellipse, unless it is a circle.
    /// @param fill fills it; otherwise it is outlined only.
    virtual bool Ellipse(double cx, double cy, double width, double height, int angle, bool fill) = 0;
    /// Draws a disc coloured from @p inner at the centre to @p outer at the rim. Afterwards the surface has no pen, and
    /// the gradient as brush, until others are selected.
    virtual bool EllipseByRadialGradient(const TXPoint& center, int radius, TXColor inner, TXColor outer) = 0;
    /// Draws a smooth curve through the points, as `Polyline` does; see `TXMathUtil::CurveToPolyline`.
    /// @return true with a painter, whatever was drawn.
    virtual bool Curve(const TXPoint* points, int count) = 0;
    /// Draws a part of the ellipse in a rectangle.
    virtual bool Arc(const TXRect& rect, double start, double span);
    /// Draws a part of the ellipse in a rectangle.
    /// @param x,y,width,height the rectangle, truncated to whole units.
    /// @param start where the part begins: degrees counter-clockwise from three o'clock, truncated to sixteenths.
    /// @param span how far the part goes, counter-clockwise, in the same measure.
    virtual bool Arc(double x, double y, double width, double height, double start, double span) = 0;
    /// Draws the sector of an ellipse in a rectangle.
    virtual bool Pie(const TXRect& rect, double start, double span);
    /// Draws the sector between the centre and the `Arc` of the same arguments.
    virtual bool Pie(double x, double y, double width, double height, double start, double span) = 0;
    /// @}

    /// @name Markers
    /// @{

    /// Draws a symbol with its origin at an offset, rotated about another point.
    /// @param offsetX,offsetY the origin of the symbol, before rotation.
    /// @param scaleX,scaleY multiply the coordinates of the points.
    /// @param x,y the centre of rotation.
    /// @param angle rotates the symbol, clockwise.
    /// @param points,count the points of the symbol.
    /// @param closed draws a polygon; otherwise a polyline.
    virtual bool VectorMarker(const double& offsetX, const double& offsetY, const double& scaleX, const double& scaleY,
                              const double& x, const double& y, const double& angle, const TXPoint* points, int count,
                              bool closed) = 0;
    /// Draws a symbol with its origin at a point.
    virtual bool VectorMarker(const TXPoint& anchor, double scaleX, double scaleY, double angle, const TXPoint* points,
                              int count, bool closed);
    /// Draws a symbol with its origin at (@p x, @p y), rotated about that point; the rest is as above.
    virtual bool VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TXPoint* points,
                              int count, bool closed) = 0;
    /// Draws a font symbol at a point.
    virtual bool FontMarker(const TXPoint& center, double width, double height, double angle, TXString fontName,
                            short character);
    /// Draws a symbol that is a character of a font. The selected font keeps the name and, through Qt, the size. A low
    /// symbol, below 10 units through Qt and below 15 through cairo, is drawn twice so that thin strokes can be seen.
    /// @param x,y the centre; through cairo in pixels of the selected image.
    /// @param width the width of the box; through Qt the symbol is centred in it, cairo ignores it.
    /// @param height the height of the box and the size of the font; below 1 the font has 1 pixel.
    /// @param angle rotates the symbol; through cairo only from 1 degree on, and never backwards.
    /// @param fontName the face.
    /// @param character a UTF-16 unit.
    /// @return false without a painter or a font. Through cairo it is true without a selected image.
    virtual bool FontMarker(double x, double y, double width, double height, double angle, TXString fontName,
                            short character) = 0;
    /// @}

    /// @name Labels
    /// The page @ref labels in TXGraphicsTypes.h explains tags, rich and plain labels, and the two text paths. Angles
    /// turn clockwise. Through Qt a label is false without a selected font, through cairo without a selected image.
    /// Vertical labels, and those at the font's own angle, are false without a font in any case.
    /// @{

    /// Draws a label in a box. A plain label begins at the top left of the box. A rich one is aligned to the box.
    /// @param ox,oy the centre of rotation and scaling. A rich label is scaled from there, but rotated about its top
    /// left.
    /// @param left,top the top left of the box.
    /// @param right the right edge of the box; ignored, except by a rich label that is aligned right.
    /// @param bottom ignored.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest; a single line ignores it. A rich label gets its left edge at
    /// @p left, its right edge at @p right, or its middle at @p ox.
    /// @param text the label.
    /// @param angle rotates the label.
    /// @param scale multiplies the size.
    virtual bool DrawString(double ox, double oy, double left, double right, double top, double bottom,
                            TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text, double angle,
                            const double& scale) = 0;

    /// Draws a label at a point, with extra space between its lines.
    /// @param x,y the top left, at scale 1 and without rotation.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest. A single line and a rich label ignore it.
    /// @param text the label.
    /// @param angle rotates the label.
    /// @param lineSpacing the extra space, multiplied by @p scale. Through cairo it is not multiplied when the font has
    /// a word spacing. A rich label ignores it.
    /// @param scale multiplies the size.
    virtual bool DrawString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                            double angle, double lineSpacing, const double& scale) = 0;

    /// Draws a label at a point plus an offset. Through Qt a plain label lies one unit higher than with other
    /// overloads.
    /// @param x,y the top left, at scale 1 and without rotation.
    /// @param dx,dy the offset; a rich label ignores it.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest. A single line and a rich label ignore it.
    /// @param text the label.
    /// @param angle rotates the label.
    /// @param scale multiplies the size.
    virtual bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                            const TXString& text, double angle, const double& scale) = 0;

    /// Draws a label at a point plus an offset, as above, rotated by the selected font's angle.
    /// @param x,y the top left, at scale 1 and without rotation.
    /// @param dx,dy the offset; a rich label ignores it.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest. A single line and a rich label ignore it.
    /// @param text the label.
    /// @param scale multiplies the size.
    virtual bool DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                            const TXString& text, const double& scale) = 0;

    /// Draws a label with a halo of the selected font's halo colour and width.
    /// @param ox,oy the centre of rotation and scaling.
    /// @param left,top the top left.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest; a single line ignores it.
    /// @param text the label.
    /// @param fill the colour of the text, alpha included.
    /// @param angle rotates the label.
    /// @param lineSpacing extra space between lines, multiplied by @p scale as in `DrawString`.
    /// @param scale multiplies the size.
    virtual bool DrawOutlineString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                   TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                   double lineSpacing, const double& scale) = 0;

    /// Draws a label with a halo, as above, at a point. Tags are drawn as they stand.
    /// @param x,y the top left, at scale 1 and without rotation. Through Qt the label's middle ignores @p lineSpacing.
    /// @param vAlign ignored.
    /// @param hAlign aligns lines against the widest; a single line ignores it.
    /// @param text the label.
    /// @param fill the colour of the text, alpha included.
    /// @param angle rotates the label.
    /// @param lineSpacing extra space between lines, multiplied by @p scale as in `DrawString`.
    /// @param scale multiplies the size.
    virtual bool DrawOutlineString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                   const TXString& text, const TXColor& fill, double angle, double lineSpacing,
                                   const double& scale) = 0;

    /// Draws a label of columns, from left to right.
    /// @param ox,oy the centre of rotation and scaling.
    /// @param left,top the top left. Through cairo the first baseline lies below it by half the font's ascent and half
    /// the height of the first character.
    /// @param vAlign aligns columns through cairo; ignored through Qt.
    /// @param hAlign aligns columns through Qt; ignored through cairo.
    /// @param text the label; each line is a column.
    /// @param fill the colour of the text, alpha included.
    /// @param angle rotates the label.
    /// @param columnSpacing extra space between columns, multiplied by @p scale.
    /// @param charSpacing extra space between the characters of a column, multiplied by @p scale. Ignored through
    /// cairo, where the font's word spacing applies.
    /// @param halo asks for a halo; through cairo the font's halo must be on as well.
    /// @param scale multiplies the size.
    virtual bool DrawVerticalString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                    TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                    double columnSpacing, double charSpacing, bool halo, const double& scale) = 0;

    /// Draws a label of columns, as above, at a point. Tags are drawn as they stand.
    /// @param x,y the top left, at scale 1 and without rotation; through cairo as above.
    /// @param vAlign aligns columns through cairo; ignored through Qt.
    /// @param hAlign aligns columns through Qt; ignored through cairo.
    /// @param text the label; each line is a column.
    /// @param fill the colour of the text, alpha included.
    /// @param angle rotates the label.
    /// @param columnSpacing extra space between columns, multiplied by @p scale.
    /// @param charSpacing extra space between the characters of a column, multiplied by @p scale. Ignored through
    /// cairo, where the font's word spacing applies.
    /// @param halo asks for a halo; through cairo the font's halo must be on as well.
    /// @param scale multiplies the size.
    virtual bool DrawVerticalString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                    const TXString& text, const TXColor& fill, double angle, double columnSpacing,
                                    double charSpacing, bool halo, const double& scale) = 0;
    /// @}

    /// @name Images
    /// Both operations with a destination clip it to the selected image. They return false without a selected image,
    /// even while a painter is attached.
    /// @{

    /// Draws a whole image at the origin. @p opacity multiplies its alpha, from 0 to 1.
    /// @return false for null, otherwise true, whatever was drawn.
    virtual bool DrawImage(TXImage* image, double opacity) = 0;
    /// Draws a part of an image into a rectangle, scaled fast. Composition mode source-over stays behind, unless both
    /// rectangles are the same and begin at the origin.
    /// @param dst the rectangle. It is clipped as if the window origin were (0, 0).
    /// @param image the image; null is false.
    /// @param src the part, in pixels of the image.
    /// @param opacity multiplies the image's alpha, from 0 to 1. A rectangle that ends at the left edge of the target
    /// is false and leaves the opacity behind.
    virtual bool DrawImage(const TXRect& dst, TXImage* image, const TXRect& src, double opacity) = 0;
    /// Draws a part of an image into a rectangle, scaled smoothly and rotated.
    /// @param dst,image,src,opacity as above; the composition mode stays as it was.
    /// @param angle rotates about the middle of the drawn part.
    virtual bool DrawImage4BitmapRotate(const TXRect& dst, TXImage* image, const TXRect& src, double angle,
                                        double opacity) = 0;
    /// Fills a rectangle, truncated to whole units, with a colour. Pen and brush are not used. The name differs from
    /// the next one by its first letter, for compatibility.
    virtual bool fillRect(const TXRect& rect, const TXColor& color) = 0;
    /// Fills a rectangle, truncated to whole units, with a gradient in surface units. Pen and brush are not used.
    /// @return false also for a gradient that `SelectGradient` refuses.
    virtual bool FillRect(const TXRect& rect, TXGradient* gradient) = 0;
    /// @}

    /// @name Clipping
    /// A region consists of the rings of a `PolyPolygon`, rounded to whole units, and replaces the one before. A region
    /// that is refused changes nothing; one without area clips everything away.
    /// @{

    /// Clips to a region and fills it with a gradient. Labels through cairo are not clipped.
    virtual void SetClipRegion(const TXPoint* points, const int* counts, int parts,
                               const stGradientParams& gradient) = 0;
    /// Clips to a region and, if @p fill says so, fills it with a colour. It clips labels through cairo too: there the
    /// region is in pixels of the selected image and not rounded, and it narrows the one before.
    virtual void SetClipRegion(const TXPoint* points, const int* counts, int parts, bool fill, TXColor color) = 0;
    /// Lifts the clip, for labels through cairo too.
    virtual void RestoreClipRegion() = 0;
    /// @}

    /// @name Whole surfaces
    /// @{

    /// Draws a part of another surface's image into a rectangle, as `DrawImage` with opacity 1.
    /// @return false also without a source or its image.
    virtual bool StretchBlt(const TXRect& dst, const TXGraphics* source, const TXRect& srcRect);
    /// Draws this surface's image onto another surface. The name is spelled so for compatibility.
    /// @param target the other surface; null gives false.
    /// @param x,y the top left, in the target's units.
    /// @return false also when one of the surfaces has no image, or the target no painter.
    virtual bool BiltTo(TXGraphics* target, int x, int y) const = 0;
    /// Sets every pixel of the selected image to a colour, regardless of clip, opacity and an attached painter.
    /// @return false without an image.
    virtual bool ClearWithColor(TXColor color) = 0;
    /// Sets how drawing combines with the pixels that are there. A number outside the enumeration changes nothing.
    virtual void SetCompositionMode(TXCompositionMode mode) = 0;
    /// @}

    /// @name Factories
    /// The same as those of `TXGraphicsEngine`.
    /// @{

    /// Makes an empty brush.
    virtual TXBrush* NewBrush() const = 0;
    /// Makes an empty pen.
    virtual TXPen* NewPen() const = 0;
    /// Makes an empty font.
    virtual TXFont* NewFont() const = 0;
    /// Makes an absent image.
    virtual TXImage* NewImage() const = 0;
    /// @}

    /// @name Painter and text path
    /// @{

    /// Switches antialiasing of shapes and text.
    virtual void EnableAntialiasing(bool on) = 0;
    /// Draws with the host's own painter until `Detach`. Nothing is set on it: it draws with the pen, brush, font and
    /// hints that it has, until something is selected. Whatever is selected and set then stays in it after `Detach`.
    /// Labels through cairo still go into the selected image, and fail without one.
    /// @param painter the painter, a `QPainter` for the Qt backend. It is neither owned nor ended; it must live until
    /// `Detach`. Null changes nothing; another painter replaces an attached one.
    virtual void Attach(void* painter) = 0;
    /// Draws with the surface's own painter again. It has the pen, brush and font from before `Attach`: select again
    /// what was selected in between.
    virtual void Detach() = 0;
    /// Switches labels and font markers to cairo, or back to the backend's own text, in the same pixels. It takes the
    /// face of the selected font. Switched on before an image is selected, it makes labels false until one is. Text is
    /// hinted, and antialiased better, only when the switch comes after the image.
    virtual void EnableCairoDrawing(bool on) = 0;
    /// Returns true when labels go through cairo.
    virtual bool CairoDrawingEnabled() const = 0;
    /// @}
};

} // namespace TZObjects
