#pragma once

#include <string>
#include <vector>

#include <txmap/render/StyleFile.h>

namespace txmap
{

/// Joins databases that shards of a run made to one. What is doubled is warned of; of different tiles of the same
/// place, that of the first part stays.
/// @param tell takes how many tiles there are.
/// @throw Failure: with `kTilesMissing` when tiles are missing, after the rest was written; with `ExitCode::Data` when
/// parts do not belong together.
void MergeTiles(const std::vector<std::string>& parts, const std::string& output, const MessageSink& warn,
                const MessageSink& tell);

} // namespace txmap
