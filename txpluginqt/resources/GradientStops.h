#pragma once

#include <QColor>
#include <QGradient>

#include <txpluginqt/support/Failures.h>

namespace txqt
{

/// Sets a stop of a gradient that may be null. Positions outside 0 to 1 are ignored, as Qt does, without the warning
/// that it prints; so is NaN, which Qt would sort in anywhere.
inline void SetStop(QGradient* gradient, double position, const QColor& color)
{
    if (gradient && position >= 0.0 && position <= 1.0)
        Succeeds([&] { gradient->setColorAt(position, color); });
}

} // namespace txqt
