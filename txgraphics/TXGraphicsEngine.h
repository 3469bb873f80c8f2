#pragma once

#include <txbase/TXPlugin.h>
#include <txbase/TXString.h>
#include <txgraphics/Export.h>

namespace TZObjects
{

class TXBrush;
class TXFont;
class TXGraphics;
class TXImage;
class TXLinearGradient;
class TXPen;
class TXRadialGradient;
class TXRgn;

/// The factory that a backend plugin hands to its host, and through which the host makes everything else.
///
/// Every `New…` returns a new object without a reference, to be put into a `TXRefPtr`; null when memory is short.
class TXGRAPHICS_API TXGraphicsEngine : public TXPlugin
{
public:
    /// @param name the key under which the engine is known, such as "QT".
    /// @param version the engine's version.
    /// @param description a text for people; may be empty.
    TXGraphicsEngine(const TXString& name, const TXString& version, const TXString& description);
    ~TXGraphicsEngine() override;

    virtual TXBrush* NewBrush() const = 0;
    virtual TXPen* NewPen() const = 0;
    virtual TXFont* NewFont() const = 0;
    /// Null when the backend has no regions.
    virtual TXRgn* NewRgn() const = 0;
    /// A surface that paints on @p image without selecting or holding it. Null gives a surface that cannot draw until
    /// `TXGraphics::CreateCompatibleGraphics`.
    virtual TXGraphics* NewGraphics(TXImage* image) const = 0;
    /// A surface without a target, with a default pen, brush and font selected.
    virtual TXGraphics* NewGraphics() const = 0;
    virtual TXImage* NewImage() const = 0;
    /// See `TXLinearGradient`.
    virtual TXLinearGradient* NewLinearGradient(double x1, double y1, double x2, double y2) = 0;
    /// See `TXRadialGradient`.
    virtual TXRadialGradient* NewRadialGradient(double cx, double cy, double radius) = 0;
    /// A switch for all surfaces of backends that have one. The Qt backend switches per surface and ignores this.
    virtual void EnableAntialiasing(bool on) = 0;

    /// The key under which the engine is known.
    const TXString& GetName() const { return name; }
    /// The engine's version.
    const TXString& GetVersion() const { return version; }
    /// A text for people; may be empty.
    const TXString& GetDescription() const { return description; }

private:
    TXString name;
    TXString version;
    TXString description;
};

} // namespace TZObjects
