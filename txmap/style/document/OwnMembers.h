#pragma once

#include <string>

#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// Reads what stands in the metadata of a layer because the style format has no word for it: members whose names begin
/// with "txmap:". @param pointer where the metadata stand.
void ReadOwnMembers(const std::string& pointer, StyleLayer& layer, StyleProblems& problems);

} // namespace txmap
