#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// A colour gradient, used as a brush by `TXGraphics::SelectGradient` and `TXGraphics::FillRect`.
///
/// Hold a gradient in a `TXRefPtr`, or delete it through its virtual destructor. Do not copy gradients: a copy refers
/// to the same backend object, and whichever is deleted first frees it for both.
class TXGRAPHICS_API TXGradient : public TXRefBase
{
public:
    TXGradient();
    TXGradient(const TXGradient& other);
    TXGradient& operator=(const TXGradient& other);

    /// The backend's gradient object, owned by this gradient; null after `Delete`.
    virtual void* GetInternalObject();
    /// Frees the backend's gradient object. @return true, also when there was none.
    virtual bool Delete() = 0;
    ~TXGradient() override;
    /// Sets the colour at @p position, 0 at the start and 1 at the end; other positions are ignored. Linear gradients
    /// keep the colour's alpha, radial ones make it opaque. Does nothing after `Delete`.
    virtual void SetColorAt(double position, const TXColor& color) = 0;

protected:
    void* internalObject = nullptr; ///< The backend's gradient object; the backend class owns it.
};

} // namespace TZObjects
