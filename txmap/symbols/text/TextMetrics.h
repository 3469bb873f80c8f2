#pragma once

namespace txmap
{

/// @name Where letters stand in a line, in ems
/// As the renderers of the format place them, whatever the ascent and descent of a font are, so that names in capitals
/// stand about the middle of a line.
/// @{
constexpr double kLettersAboveMiddle = 17.0 / 24.0; ///< From the top of letters with accents to the line's middle.
constexpr double kBaselineBelowTop = 27.5 / 24.0;   ///< From there to the baseline.
constexpr double kBaselineBelowMiddle = kBaselineBelowTop - kLettersAboveMiddle;
/// @}

/// @name Where letters stand in a column, in ems
/// @{
constexpr double kBaselineBelowIdeograph = 0.38; ///< From the middle of an ideograph.
constexpr double kBaselineBesideColumn = 0.35;   ///< From the column's middle to the baseline of turned letters.
/// @}

} // namespace txmap
