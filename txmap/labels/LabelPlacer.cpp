#include <txmap/labels/LabelPlacer.h>

namespace txmap
{

using TZObjects::TXRect;

void LabelPlacer::Block(const TXRect& box) { taken.Take(box, Overlap::Never); }

void LabelPlacer::Release(const TXRect& box) { taken.Release(box); }

bool LabelPlacer::IsFree(const TXRect& box) const
{
    // Written so that a box with a NaN is refused.
    const bool inside =
        box.left >= frame.left && box.right <= frame.right && box.top >= frame.top && box.bottom <= frame.bottom;
    return inside && taken.IsFree(box, Overlap::Never);
}

bool LabelPlacer::Place(const TXRect& box)
{
    if (!IsFree(box))
        return false;
    Block(box);
    return true;
}

} // namespace txmap
