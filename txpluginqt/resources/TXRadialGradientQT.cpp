#include <txpluginqt/resources/TXRadialGradientQT.h>

#include <QGradient>

#include <txpluginqt/resources/GradientStops.h>
#include <txpluginqt/support/Conversions.h>

using namespace txqt;

namespace TZObjects
{

TXRadialGradientQT::TXRadialGradientQT(double cx, double cy, double radius) : TXRadialGradient(cx, cy, radius)
{
    internalObject = new QRadialGradient(cx, cy, radius);
}

TXRadialGradientQT::~TXRadialGradientQT() { TXRadialGradientQT::Delete(); }

bool TXRadialGradientQT::Delete()
{
    delete static_cast<QRadialGradient*>(internalObject);
    internalObject = nullptr;
    return true;
}

void TXRadialGradientQT::SetColorAt(double position, const TXColor& color)
{
    // Opaque whatever the colour's alpha, unlike the linear gradient's stops.
    SetStop(static_cast<QGradient*>(internalObject), position, ToOpaqueQColor(color));
}

} // namespace TZObjects
