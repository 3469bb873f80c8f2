#pragma once

#include <txbase/TXRefBase.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

/// A region object. Backends without regions hand out null and clip through `TXGraphics::SetClipRegion`.
class TXGRAPHICS_API TXRgn : public TXRefBase
{
public:
    TXRgn();
    ~TXRgn() override;

    /// The backend's region object, owned by this region.
    void* GetInternalObject() const { return internalObject; }

protected:
    void* internalObject = nullptr; ///< The backend's region object; the backend class owns it.
};

} // namespace TZObjects
