#pragma once

#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// A region object. A backend without region objects returns null for it; the Qt backend does. Clip with
/// `TXGraphics::SetClipRegion`.
class TXGRAPHICS_API TXRgn : public TXRefBase
{
public:
    TXRgn();
    ~TXRgn() override;

    /// Returns the backend's region object, which this region owns.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's region object. The backend's class owns it.
};

} // namespace TZObjects
