#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <txmap/symbols/SymbolLayout.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

class KeptLines;
class MapCanvas;
class MapData;
class MapView;
struct DrawingReport;
struct MapStyle;

/// The symbols of all layers of a style, placed: first come the layers above, as they are seen best.
class PlacedSymbols
{
public:
    struct Layer
    {
        std::unique_ptr<SymbolLayout> layout;
        std::vector<SymbolVerdict> verdicts; ///< One for each instance.
    };

    /// @param report hears of fonts that are missing, and how long this takes.
    /// @param keptLines see `SymbolLayerData`.
    PlacedSymbols(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report,
                  KeptLines* keptLines);

    /// Null for a layer without symbols.
    const Layer* Find(const StyleLayer& layer) const;

private:
    /// Places the symbols of a picture that joins others without a seam.
    void PlaceInCells(const MapView& view, const MapStyle& style, DrawingReport& report);

    std::unique_ptr<SymbolFonts> fonts;
    std::map<const StyleLayer*, Layer> layers;
};

} // namespace txmap
