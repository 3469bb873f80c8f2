#pragma once

#include <string>

namespace txmap
{

/// A style as it was read from its file. Workers that are started later read the same, whatever the file has become.
struct ServedStyle
{
    std::string file;
    std::string text;
    std::string version; ///< Another one for each time that the style was read.
    bool lenient = false;
    std::string plugin;
};

} // namespace txmap
