#pragma once

#include <string>

#include <txmap/atlas/AreaColors.h>

namespace txmap
{

/// Reads the value of --color-ramp: an attribute with two colours, or with two numbers, behind it.
/// @throw Failure with `ExitCode::Usage`.
ColorRamp ParseColorRamp(const std::string& text);

} // namespace txmap
