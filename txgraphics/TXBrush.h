#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txbase/TXRefPtr.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

class TXImage;

/// The brush that fills shapes: a colour, a hatch in a colour, or a repeated image.
///
/// A brush is empty until `Create`. On an empty brush setters do nothing and getters answer neutral values. A surface
/// copies the brush when it is selected; later changes reach the surface when the brush is selected again.
class TXGRAPHICS_API TXBrush : public TXRefBase
{
public:
    /// What the brush covers an area with.
    enum BrushStyle : int
    {
        SolidBrush = 1,      ///< The colour.
        HorizontalHatch = 2, ///< Horizontal lines.
        VerticalHatch = 3,   ///< Vertical lines.
        CrossHatch = 4,      ///< Horizontal and vertical lines.
        TextureBrush = 5     ///< A repeated image; reported by `GetStyle`, not accepted by `Create`.
    };

    TXBrush();
    ~TXBrush() override;

    /// Makes the brush afresh. The texture image, if there is one, stays referenced.
    /// @param color the colour, alpha included.
    /// @param style 1 to 4; every other value gives `SolidBrush`.
    /// @return true.
    virtual bool Create(const TXColor& color, BrushStyle style) = 0;
    /// Empties the brush; the texture image stays referenced. @return true, also when it was empty.
    virtual bool Delete() = 0;
    /// The style; `SolidBrush` for an empty brush and for everything that has no member of its own.
    virtual BrushStyle GetStyle() = 0;
    /// Sets the colour, alpha included, and keeps the style.
    virtual void SetColor(const TXColor& color) = 0;
    /// The colour; the default colour for an empty brush.
    virtual TXColor GetColor() = 0;
    /// The image given to `SetTextureImage` last; null if there was none.
    virtual TXRefPtr<TXImage> textureImage() const = 0;
    /// Fills with repetitions of @p image, as its pixels are now, from the surface's origin on, and holds a reference
    /// to it. Null, an image without pixels, or an empty brush: nothing happens.
    virtual void SetTextureImage(TXRefPtr<TXImage> image) = 0;
    /// The backend's brush object, owned by this brush; null while the brush is empty.
    virtual void* GetInternalObject();

protected:
    void* internalObject = nullptr; ///< The backend's brush object; the backend class owns it.
};

} // namespace TZObjects
