#pragma once

#include <string>
#include <vector>

namespace txmap
{

struct WarpWindow;

/// The heights of the first band of a file that GDAL reads, brought into a part of the map. NaN where there are none.
/// @throw Failure with `ExitCode::Data`.
std::vector<float> ReadElevations(const std::string& file, const WarpWindow& window);

} // namespace txmap
