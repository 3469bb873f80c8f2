#include <txpluginqt/engine/TXGraphicsEngineQT.h>

#include <txpluginqt/engine/QtApplication.h>
#include <txpluginqt/graphics/TXGraphicsQT.h>
#include <txpluginqt/resources/TXBrushQT.h>
#include <txpluginqt/resources/TXFontQT.h>
#include <txpluginqt/resources/TXImageQT.h>
#include <txpluginqt/resources/TXLinearGradientQT.h>
#include <txpluginqt/resources/TXPenQT.h>
#include <txpluginqt/resources/TXRadialGradientQT.h>
#include <txpluginqt/support/Failures.h>

using namespace txqt;

namespace TZObjects
{

TXGraphicsEngineQT::TXGraphicsEngineQT() : TXGraphicsEngine("QT", "0.1", "") { EnsureApplication(); }

TXGraphicsEngineQT::~TXGraphicsEngineQT() = default;

TXBrush* TXGraphicsEngineQT::NewBrush() const { return NewOrNull<TXBrushQT>(); }

TXPen* TXGraphicsEngineQT::NewPen() const { return NewOrNull<TXPenQT>(); }

TXFont* TXGraphicsEngineQT::NewFont() const { return NewOrNull<TXFontQT>(); }

TXRgn* TXGraphicsEngineQT::NewRgn() const { return nullptr; }

TXGraphics* TXGraphicsEngineQT::NewGraphics(TXImage* image) const { return NewOrNull<TXGraphicsQT>(image); }

TXGraphics* TXGraphicsEngineQT::NewGraphics() const { return NewOrNull<TXGraphicsQT>(); }

TXImage* TXGraphicsEngineQT::NewImage() const { return NewOrNull<TXImageQT>(); }

TXLinearGradient* TXGraphicsEngineQT::NewLinearGradient(double x1, double y1, double x2, double y2)
{
    return NewOrNull<TXLinearGradientQT>(x1, y1, x2, y2);
}

TXRadialGradient* TXGraphicsEngineQT::NewRadialGradient(double cx, double cy, double radius)
{
    return NewOrNull<TXRadialGradientQT>(cx, cy, radius);
}

// Antialiasing is a matter of each surface here.
void TXGraphicsEngineQT::EnableAntialiasing(bool) {}

} // namespace TZObjects
