#pragma once

#include <txbase/TXRect.h>
#include <txmap/labels/CollisionIndex.h>

namespace txmap
{

/// Finds out where there is room for boxes: inside a frame, and clear of all boxes before.
class LabelPlacer
{
public:
    explicit LabelPlacer(const TZObjects::TXRect& frame) : frame(frame), taken(frame) {}

    /// Takes a box, wherever it is, which no later one may touch.
    void Block(const TZObjects::TXRect& box);
    /// Gives a box back that was taken.
    void Release(const TZObjects::TXRect& box);
    /// True when a box lies in the frame and touches no other.
    bool IsFree(const TZObjects::TXRect& box) const;
    /// Takes the box if it is free. @return whether it was.
    bool Place(const TZObjects::TXRect& box);

private:
    TZObjects::TXRect frame;
    CollisionIndex taken;
};

} // namespace txmap
