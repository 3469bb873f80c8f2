#pragma once

#include <optional>

#include <txmap/map/MapView.h>

namespace txmap
{

/// What a page of an atlas shows: a box of degrees.
///
/// The scale is the same in both directions of the map. Where a requested box and a requested size have different
/// proportions, the picture shows more than the box: evenly on both sides, but rather on one side than what lies beyond
/// a pole. No place is shown twice and nothing beyond the map's outermost latitudes, so that a picture that is larger
/// than the world has margins.
class AtlasView : public MapView
{
public:
    /// The longer side of a picture whose size is not given.
    static constexpr int kDefaultSide = 2048;

    /// @param projection the projection of the map.
    /// @param box what to show at least; nothing for the whole world.
    /// @param size the size of the picture; nothing for the box's own proportions with a longer side of `kDefaultSide`.
    /// @param scale how large lines and places are drawn; 1 for what suits. In small pictures they are smaller.
    AtlasView(const Projection& projection, const std::optional<GeoBox>& box, const std::optional<PixelSize>& size,
              double scale = 1.0);

private:
    struct Page;

    explicit AtlasView(const Page& page);
};

} // namespace txmap
