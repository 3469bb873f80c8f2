#pragma once

#include <map>
#include <string>

#include <txmap/serve/ContentCache.h>

namespace txmap
{

/// The files of the page, by name.
using PageFiles = std::map<std::string, ContentPointer>;

/// Where the page is: beside the program, in a build folder as where the system is installed.
std::string PageFolder();

/// Reads the files of the page. Requests only ever find what was read here.
PageFiles ReadPageFiles(const std::string& folder);

} // namespace txmap
