#pragma once

#include <string>

#include <txmap/atlas/MapFrame.h>

namespace txmap
{

/// Reads the value of --frame: "rounded", "rounded:RADIUS", corners such as "10,10 90,10 50,80", or else a file.
/// @throw Failure with `ExitCode::Usage`.
FrameRequest ParseFrame(const std::string& text);

} // namespace txmap
