#pragma once

#include <txbase/TXPoint.h>

namespace txmap
{

class MapView;
struct SymbolInstance;
struct SymbolLayout;
struct SymbolProperties;

/// @name By how many degrees a symbol is turned about its anchor, clockwise
/// @{
double TextAngle(const SymbolProperties& properties, const SymbolInstance& instance, const MapView& view);
double IconAngle(const SymbolProperties& properties, const SymbolInstance& instance, const MapView& view);
/// @}

/// Fills the layout's candidates: what placement knows of its instances.
void MakeCandidates(const MapView& view, SymbolLayout& layout);

} // namespace txmap
