#pragma once

#include <string>

#include <txmap/drawing/NorthArrow.h>

namespace txmap
{

/// Reads the value of --north-arrow, such as "top-right" or "bottom-left:12.5". @throw Failure with `ExitCode::Usage`.
ArrowRequest ParseNorthArrow(const std::string& text);

} // namespace txmap
