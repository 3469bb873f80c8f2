#pragma once

#include <QRect>
#include <QSize>

#include <txbase/TXRect.h>

namespace txqt
{

/// A part of an image, and where it goes.
struct ImagePlacement
{
    TZObjects::TXRect dst; ///< On the target, in pixels.
    TZObjects::TXRect src; ///< In the source, in pixels.

    /// The part of the source, each number truncated.
    QRect Crop() const;
    /// True when that is the whole source, whose size is @p source.
    bool TakesWhole(const QSize& source) const;
    /// True when source and destination are equally large, so that nothing is scaled.
    bool KeepsSize() const;
    /// The size to scale to, truncated.
    QSize ScaledSize() const;
    /// True for a destination that came down to an edge of the target. Left and top are judged differently.
    bool Collapses() const;
};

/// True for an image that stays where it is: both rectangles are the same and begin at the origin.
bool StaysInPlace(const TZObjects::TXRect& dst, const TZObjects::TXRect& src);

/// True when an image that goes to @p dst leaves a trace on a target of @p target pixels, or touches its edge.
bool Reaches(const TZObjects::TXRect& dst, const QSize& target);

/// Cuts off what lies outside the target, and the corresponding part of the source. @p dst must reach the target.
ImagePlacement ClipToTarget(const TZObjects::TXRect& dst, const TZObjects::TXRect& src, const QSize& target);

} // namespace txqt
