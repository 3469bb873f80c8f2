#pragma once

#include <txbase/TXColor.h>
#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// A colour gradient, which `TXGraphics::SelectGradient` and `TXGraphics::FillRect` fill with.
///
/// Hold a gradient in a `TXRefPtr`, or delete it through its virtual destructor.
///
/// Do not copy gradients. A copy shares the backend's object with its source, and each of the two frees it: after one
/// has gone, the other must not be used or destroyed.
class TXGRAPHICS_API TXGradient : public TXRefBase
{
public:
    TXGradient();
    /// Shares the backend's object with @p other; see above.
    TXGradient(const TXGradient& other);
    /// Shares the backend's object with @p other and leaks this gradient's own; see above.
    TXGradient& operator=(const TXGradient& other);

    /// Returns the backend's gradient object, which this gradient owns; null after `Delete`.
    virtual void* GetInternalObject();
    /// Frees the backend's gradient object. @return true, also when there was none.
    virtual bool Delete() = 0;
    ~TXGradient() override;
    /// Sets the colour at a position. Linear gradients keep the colour's alpha, radial ones make it opaque. Does
    /// nothing after `Delete`.
    /// @param position from 0 (start) to 1 (end); any other number changes nothing.
    /// @param color the colour there.
    virtual void SetColorAt(double position, const TXColor& color) = 0;

protected:
    void* internalObject = nullptr; ///< The backend's gradient object. The backend's class owns it.
};

} // namespace TZObjects
