#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <txmap/map/Mercator.h>

namespace txmap
{

/// Finds which of many boxes lie in a part of the world, in time that grows with what is found. Made once, never
/// changed.
class BoxIndex
{
public:
    /// A box that has no place, because its right is left of its left, is never found.
    explicit BoxIndex(const std::vector<MercatorBox>& boxes);
    ~BoxIndex();

    /// The numbers of the boxes that have a point in common with one of these areas: each once, in ascending order.
    std::vector<std::size_t> Touching(const std::vector<MercatorBox>& areas) const;

private:
    struct Tree;

    std::unique_ptr<const Tree> tree;
};

} // namespace txmap
