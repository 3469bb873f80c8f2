#pragma once

class QLineF;

namespace txqt
{

/// The angle of a line in degrees as `QLineF::angle` gives it, counter-clockwise from the right, to the last bit or the
/// last but one, and without `atan2`, which takes several times as long.
double LineAngle(const QLineF& line);

} // namespace txqt
