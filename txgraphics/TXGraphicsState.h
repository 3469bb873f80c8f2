#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXPoint.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXRefPtr.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>
#include <txgraphics/TXBrush.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXGradient.h>
#include <txgraphics/TXGraphicsTypes.h>
#include <txgraphics/TXImage.h>
#include <txgraphics/TXPen.h>
#include <txgraphics/TXRgn.h>

namespace TZObjects
{

/// The part of a surface that draws nothing: its target, its selected resources and its drawing state.
///
/// `TXGraphics` derives from it, adds everything that draws, and says what holds for all operations. Virtual operations
/// stand in the order of their slots, which hosts and plugins that are built apart rely on.
class TXGRAPHICS_API TXGraphicsState : public TXRefBase, public TXGraphicsTypes
{
public:
    TXGraphicsState();
    ~TXGraphicsState() override;

    /// @name Life
    /// @{

    /// Gives the surface a target of its own size: the selected image, or a new one if none is selected, gets new
    /// pixels of transparent white in the default format. An attached painter is detached. Transform, clip, opacity and
    /// composition mode are reset, antialiasing is as by default, and the selected pen, brush and font stay. Another
    /// surface that paints into the same image draws nothing from then on.
    /// @param width,height the size in pixels. For a size below 1, or one that memory does not hold, the operation
    /// still returns true, and the image is without pixels: see `TXImage::GetWidth`.
    /// @return false when memory is short for the surface's own objects.
    virtual bool CreateCompatibleGraphics(int width, int height) = 0;
    /// Ends painting and detaches an attached painter. Until `CreateCompatibleGraphics` the surface has no painter.
    /// Pen, brush, font and image stay selected.
    /// @return true.
    virtual bool Delete() = 0;
    /// @}

    /// @name Selection
    /// The operations return what was selected before. With null, or without a painter, they return null and change
    /// nothing. Pen, brush and gradient are copied: select them again after a change. For fonts see `TXFont`.
    /// @{

    /// Draws with a black pen of width 1 in this style. The selected pen stays selected, and labels through cairo keep
    /// its colour.
    virtual void SelectPen(TXPen::PenStyle style) = 0;
    /// Selects a pen.
    virtual TXRefPtr<TXPen> SelectPen(TXRefPtr<TXPen> pen) = 0;
    /// Paints into another image. Transform, clip, opacity and composition mode are reset. Pen, brush and font stay,
    /// and so does antialiasing, if it is on by default. While a painter is attached, the image waits for `Detach`.
    /// @param image the image. Null ends painting and drops the present image. The image that is selected already
    /// changes nothing. While another surface paints into an image, this one draws nothing there.
    /// @return the image before; null when @p image was selected already.
    virtual TXRefPtr<TXImage> SelectImage(TXRefPtr<TXImage> image) = 0;
    /// Selects a font, and its face for labels through cairo.
    virtual TXRefPtr<TXFont> SelectFont(TXRefPtr<TXFont> font) = 0;
    /// Selects a brush.
    virtual TXRefPtr<TXBrush> SelectBrush(TXRefPtr<TXBrush> brush) = 0;
    /// Fills with a gradient. The selected brush stays selected. Null, a deleted gradient, or one with coordinates that
    /// are refused changes nothing.
    virtual void SelectGradient(TXGradient* gradient) = 0;
    /// Selects a region, in backends that have them. The Qt backend returns null.
    virtual TXRefPtr<TXRgn> SelectRgn(TXRefPtr<TXRgn> region) = 0;
    /// Returns the selected pen, or null. While a painter is attached, the operation changes the selected pen to the
    /// one that the painter holds.
    virtual TXRefPtr<TXPen> GetPen() = 0;
    /// Returns the selected brush, or null, and changes it as `GetPen` does.
    virtual TXRefPtr<TXBrush> GetBrush() = 0;
    /// Returns the selected font, or null, and changes it as `GetPen` does.
    virtual TXRefPtr<TXFont> GetFont() = 0;
    /// Returns the selected image, or null.
    virtual TXRefPtr<TXImage> GetImage() = 0;
    /// @}

    /// @name Attributes stored for the host
    /// Nothing draws with them.
    /// @{

    /// Stores a horizontal alignment.
    virtual void SetTextHorizAlign(int align);
    /// Stores a vertical alignment.
    virtual void SetTextVertAlign(int align);
    /// Returns the stored horizontal alignment; `TextAlignLeft` until one is set.
    virtual int GetTextHorizAlign() const;
    /// Returns the stored vertical alignment; `TextAlignTop` until one is set.
    virtual int GetTextVertAlign() const;
    /// Stores a background colour. The name is spelled so for compatibility.
    virtual void SetBackGoundColor(const TXColor& color);
    /// Returns the stored background colour; opaque white until one is set. The name is spelled so for compatibility.
    virtual TXColor GetBackGoundColor();
    /// @}

    /// @name State
    /// @{

    /// Writes the selected image to a file. The suffix of @p fileName picks the format.
    /// @return false without an image, and when the file cannot be written, which leaves an older file as it was.
    virtual bool Save(const TXString& fileName) = 0;
    /// Saves the painter's state on its stack: pen, brush, font, transform, clip, opacity, composition mode,
    /// antialiasing.
    virtual void Save() = 0;
    /// Restores the state that was saved last on the painter, by anyone. If there is none, Qt prints a warning.
    virtual void Restore() = 0;
    /// Sets the opacity, which multiplies the alpha of all drawing: 0 shows nothing, 1 all. Numbers beyond are clamped.
    virtual void SetOpacity(const double& opacity) = 0;
    /// Returns the opacity; 0 without a painter.
    virtual double GetOpacity() const = 0;
    /// Moves the origin, as below, by a point truncated to whole units.
    virtual TXPoint SetWindowOrg(TXPoint origin);
    /// Moves the origin by (@p x, @p y) from where it is: two calls add up.
    /// @return the origin before.
    virtual TXPoint SetWindowOrg(int x, int y) = 0;
    /// Returns the origin; (0, 0) without a painter.
    virtual TXPoint GetWindowOrg() const = 0;
    /// Converts device to logical points in place. The Qt backend changes nothing.
    virtual void DPtoLP(TXPoint* points, int count) = 0;
    /// Converts logical to device points in place. The Qt backend changes nothing.
    virtual void LPtoDP(TXPoint* points, int count) = 0;
    /// @}

    /// Returns the painter in use, a `QPainter` for the Qt backend: the attached one, or the surface's own. Null
    /// without a painter. The name is spelled so for compatibility.
    void* GetInteralObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The painter in use. The backend's class keeps it up to date.

private:
    int textHorizAlign = TextAlignLeft;
    int textVertAlign = TextAlignTop;
    TXColor backgroundColor{255, 255, 255, 255};
};

} // namespace TZObjects
