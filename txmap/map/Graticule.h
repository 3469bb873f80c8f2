#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/MapView.h>

namespace txmap
{

/// A meridian or a parallel across the picture, in pixels.
struct GraticuleLine
{
    TZObjects::TXPoint from;
    TZObjects::TXPoint to;
};

/// The distance in degrees between lines that suits a view: a round number that gives some six to twelve of them.
double SuitableStep(const MapView& view);

/// The meridians and parallels at multiples of @p step degrees within a view; none for a step of 0 or less, and none
/// where lines would be closer than a few pixels.
std::vector<GraticuleLine> MakeGraticule(const MapView& view, double step);

} // namespace txmap
