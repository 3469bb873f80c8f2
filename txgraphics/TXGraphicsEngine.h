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

/// The factory of a backend. A plugin hands it to its host, which makes everything else with it.
///
/// Every `New…` operation returns a new object without a reference, or null when memory is short. Put the object into a
/// `TXRefPtr`.
class TXGRAPHICS_API TXGraphicsEngine : public TXPlugin
{
public:
    /// Names the engine.
    /// @param name the key that `TXGraphicsEngineManager` knows the engine by, such as "QT".
    /// @param version the engine's version.
    /// @param description a text for people; may be empty.
    TXGraphicsEngine(const TXString& name, const TXString& version, const TXString& description);
    ~TXGraphicsEngine() override;

    /// Makes an empty brush; call its `Create` next.
    virtual TXBrush* NewBrush() const = 0;
    /// Makes an empty pen; call its `Create` next.
    virtual TXPen* NewPen() const = 0;
    /// Makes an empty font; call its `Create` next.
    virtual TXFont* NewFont() const = 0;
    /// Makes a region; null when the backend has no region objects, as the Qt backend.
    virtual TXRgn* NewRgn() const = 0;
    /// Makes a surface that paints on an image. The image is neither selected nor held: `TXGraphics::GetImage` returns
    /// null, labels through cairo and image drawing fail, and painting ends with the image. No pen, brush or font is
    /// selected, and shapes are not antialiased until `TXGraphics::EnableAntialiasing`. To have all that, make a
    /// surface without a target and select the image.
    /// @param image the image. Null makes a surface that cannot draw before `TXGraphics::CreateCompatibleGraphics`.
    virtual TXGraphics* NewGraphics(TXImage* image) const = 0;
    /// Makes a surface without a target. A default pen (solid, 1 wide, black), brush (transparent) and font are
    /// selected. Give it a target with `TXGraphics::SelectImage` or `TXGraphics::CreateCompatibleGraphics`.
    virtual TXGraphics* NewGraphics() const = 0;
    /// Makes an absent image.
    virtual TXImage* NewImage() const = 0;
    /// Makes a linear gradient.
    /// @param x1,y1 position 0, in surface units.
    /// @param x2,y2 position 1.
    virtual TXLinearGradient* NewLinearGradient(double x1, double y1, double x2, double y2) = 0;
    /// Makes a radial gradient.
    /// @param cx,cy the centre, position 0, in surface units.
    /// @param radius the distance from the centre to position 1.
    virtual TXRadialGradient* NewRadialGradient(double cx, double cy, double radius) = 0;
    /// Switches antialiasing of all surfaces, in backends with such a switch. The Qt backend ignores it; use
    /// `TXGraphics::EnableAntialiasing` or `TXGraphicsEngineManager::EnableAntialiasing`.
    virtual void EnableAntialiasing(bool on) = 0;

    /// Returns the key that `TXGraphicsEngineManager` knows the engine by.
    const TXString& GetName() const { return name; }
    /// Returns the engine's version.
    const TXString& GetVersion() const { return version; }
    /// Returns a text for people; may be empty.
    const TXString& GetDescription() const { return description; }

private:
    TXString name;
    TXString version;
    TXString description;
};

} // namespace TZObjects
