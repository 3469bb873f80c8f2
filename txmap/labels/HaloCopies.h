#pragma once

#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// By how far the copies of a label are moved that together make its halo, for backends whose strokes have spikes where
/// letters have sharp corners: over the whole disc, so that thin letters leave no gaps in a wide halo.
/// @param width how far the halo reaches beyond the letters, in pixels; none for 0 and less.
std::vector<TZObjects::TXPoint> HaloCopies(double width);

} // namespace txmap
