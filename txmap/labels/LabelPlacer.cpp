#include <txmap/labels/LabelPlacer.h>

#include <boost/geometry.hpp>

namespace txmap
{

using TZObjects::TXRect;

void LabelPlacer::Block(const TXRect& box) { taken.insert(ToBox(box)); }

void LabelPlacer::Release(const TXRect& box) { taken.remove(ToBox(box)); }

bool LabelPlacer::IsFree(const TXRect& box) const
{
    // Written so that a box with a NaN is refused.
    const bool inside =
        box.left >= frame.left && box.right <= frame.right && box.top >= frame.top && box.bottom <= frame.bottom;
    return inside && taken.qbegin(boost::geometry::index::intersects(ToBox(box))) == taken.qend();
}

bool LabelPlacer::Place(const TXRect& box)
{
    if (!IsFree(box))
        return false;
    Block(box);
    return true;
}

} // namespace txmap
