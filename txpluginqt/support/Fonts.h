#pragma once

namespace txqt
{

/// The largest font size in pixels that reaches Qt or cairo. Above 65,535 FreeType fails, and with it every later new
/// size of the face in the whole process.
constexpr int kLargestFontSize = 40000;

} // namespace txqt
