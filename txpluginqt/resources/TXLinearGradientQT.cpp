#include <txpluginqt/resources/TXLinearGradientQT.h>

#include <QGradient>

#include <txpluginqt/resources/GradientStops.h>
#include <txpluginqt/support/Conversions.h>

using namespace txqt;

namespace TZObjects
{

TXLinearGradientQT::TXLinearGradientQT(double x1, double y1, double x2, double y2) : TXLinearGradient(x1, y1, x2, y2)
{
    internalObject = new QLinearGradient(x1, y1, x2, y2);
}

TXLinearGradientQT::~TXLinearGradientQT() { TXLinearGradientQT::Delete(); }

bool TXLinearGradientQT::Delete()
{
    delete static_cast<QLinearGradient*>(internalObject);
    internalObject = nullptr;
    return true;
}

void TXLinearGradientQT::SetColorAt(double position, const TXColor& color)
{
    SetStop(static_cast<QGradient*>(internalObject), position, ToQColor(color));
}

} // namespace TZObjects
