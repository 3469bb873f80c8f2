#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include <txmap/sources/FeatureSource.h>
#include <txmap/symbols/SymbolContent.h>
#include <txmap/symbols/SymbolPlacement.h>
#include <txmap/symbols/SymbolProperties.h>

namespace txmap
{

class KeptLines;
class MapView;
class Sprites;
class SymbolFonts;

/// A symbol at one of its anchors.
struct SymbolInstance
{
    const PlacedFeatures* placed = nullptr; ///< Where its feature is.
    const SetFeature* feature = nullptr;
    const SymbolContent* content = nullptr;
    std::size_t order = 0; ///< That of the feature in its set.
    std::size_t part = 0;  ///< How many anchors the feature has before this one.
    double sortKey = 0.0;
    TZObjects::TXPoint place;             ///< The anchor in world coordinates.
    int world = 0;                        ///< In which copy of the world it is.
    TZObjects::TXPoint pixel;             ///< The anchor in the picture.
    double lineAngle = 0.0;               ///< In degrees, clockwise in the picture: that of the line below the anchor.
    std::optional<MercatorBox> tile;      ///< Where the symbol was found.
    const FittedText* fitted = nullptr;   ///< A text that follows its line, if it has room there.
    const LineText* fittedText = nullptr; ///< The text that was fitted.
};

/// The symbols of a layer, in the order in which they are placed.
struct SymbolLayout
{
    SymbolLayout(const StyleLayer& layer, const EvaluationContext& context) : properties(layer, context) {}

    SymbolProperties properties;
    std::vector<SymbolInstance> instances;
    LayerCandidates candidates;  ///< One for each instance.
    TZObjects::TXPoint textMove; ///< By what the layer moves its texts, in pixels.
    TZObjects::TXPoint iconMove;

    std::unique_ptr<SymbolContents> texts;
    std::deque<SymbolContent> contents;
    std::deque<FittedText> fittedTexts;
};

/// What symbols of a layer are made of.
struct SymbolLayerData
{
    const StyleLayer& layer;
    const std::vector<PlacedFeatures>& features;
    const Sprites& sprites;
    const MapView& view;
    SymbolFonts& fonts;
    EvaluationContext context; ///< What expressions may ask beside the feature; its zoom is that of the map.
    /// Where lines are kept for other views of the same sources; null to make them for this one.
    KeptLines* keptLines = nullptr;
};

/// How far around the picture symbols make room for each other, in logical pixels.
constexpr double kSymbolMargin = 100.0;

/// Finds the symbols of a layer that may be seen.
///
/// They are the same, in the same order, in whatever order tiles come: by the sort key, then as in the source, then by
/// place. A point belongs to the tile in which it lies. Lines are divided into those within one tile; for sources
/// without tiles, into those within tiles of the usual size.
std::unique_ptr<SymbolLayout> LayOutSymbols(const SymbolLayerData& data);

} // namespace txmap
