#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

class TXImage;

/// The brush that fills shapes: with a colour, with hatching, or with a repeated image.
///
/// A brush is empty until `Create`. On an empty brush setters do nothing and getters return neutral values. A surface
/// copies the brush in `TXGraphics::SelectBrush`. To apply a later change, select the brush again.
class TXGRAPHICS_API TXBrush : public TXRefBase
{
public:
    /// How a brush covers an area.
    enum BrushStyle : int
    {
        SolidBrush = 1,      ///< The colour.
        HorizontalHatch = 2, ///< Horizontal lines.
        VerticalHatch = 3,   ///< Vertical lines.
        CrossHatch = 4,      ///< Horizontal and vertical lines.
        TextureBrush = 5     ///< A repeated image. `GetStyle` returns it; `Create` takes it for `SolidBrush`.
    };

    TXBrush();
    ~TXBrush() override;

    /// Makes the brush anew. It keeps its reference to a texture image, but does not fill with it.
    /// @param color the colour, alpha included.
    /// @param style 1 to 4; any other number gives `SolidBrush`.
    /// @return true, also when memory is short; the brush is empty then.
    virtual bool Create(const TXColor& color, BrushStyle style) = 0;
    /// Empties the brush. It keeps its reference to a texture image. @return true, also when the brush was empty.
    virtual bool Delete() = 0;
    /// Returns the style. An empty brush, and one without a style of this enumeration, returns `SolidBrush`.
    virtual BrushStyle GetStyle() = 0;
    /// Sets the colour, alpha included, and keeps the style.
    virtual void SetColor(const TXColor& color) = 0;
    /// Returns the colour; opaque black for an empty brush.
    virtual TXColor GetColor() = 0;
    /// Returns the image of the last `SetTextureImage`, or null. The lower-case name is kept for compatibility.
    virtual TXRefPtr<TXImage> textureImage() const = 0;
    /// Fills with repetitions of an image, laid from the surface's origin. The brush copies the pixels as they are now
    /// and keeps a reference to the image. Nothing changes on an empty brush.
    /// @param image the image. One without pixels makes a brush that fills nothing. Null, an absent image, or an
    /// indexed image without a colour table changes nothing.
    virtual void SetTextureImage(TXRefPtr<TXImage> image) = 0;
    /// Returns the backend's brush object, which this brush owns; null while the brush is empty.
    virtual void* GetInternalObject();

protected:
    void* internalObject = nullptr; ///< The backend's brush object. The backend's class owns it.
};

} // namespace TZObjects
