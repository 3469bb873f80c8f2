#pragma once

#include <cstddef>
#include <set>
#include <vector>

namespace txmap
{

class FeatureSet;

/// The group of a feature that takes no part.
constexpr std::size_t kNoGroup = static_cast<std::size_t>(-1);

/// Which groups of areas have a border in common, or nearly: whose outlines run through the same cell of a fine grid.
/// Borders need not be the same point by point.
/// @param groups the group of each feature, below @p count or `kNoGroup`.
std::vector<std::set<std::size_t>> FindNeighbours(const FeatureSet& set, const std::vector<std::size_t>& groups,
                                                  std::size_t count);

} // namespace txmap
