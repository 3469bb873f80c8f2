#pragma once

#include <cstdint>
#include <vector>

#include <txmap/labels/CollisionIndex.h>

namespace txmap
{

/// How the texts, or the icons, of a layer make room for each other.
struct PlacementRules
{
    Overlap overlap = Overlap::Never;
    bool ignored = false;  ///< Whether others may lie on it.
    bool optional = false; ///< Whether the other part is shown without it.
};

/// What placement knows of a symbol: one or more places for its text, best first, and one for its icon. In pixels.
struct SymbolCandidate
{
    bool hasText = false; ///< Whether there is anything to draw.
    bool hasIcon = false;
    bool followsLine = false;      ///< Whether the text takes circles instead of boxes.
    bool movesIcon = false;        ///< Whether the icon's place depends on that of the text, around which it lies.
    std::uint32_t firstChoice = 0; ///< In `LayerCandidates::choices`.
    std::uint32_t choices = 0;     ///< Where there are several, the text may stand at other sides of its point.
    std::uint32_t firstCircle = 0; ///< In `LayerCandidates::circles`.
    std::uint32_t circles = 0;     ///< None for a text that does not fit on its line.
    TZObjects::TXRect icon;        ///< The box of the icon, with padding, if the text is not shown.
};

/// A place for the text of a symbol.
struct TextChoice
{
    TZObjects::TXRect box;  ///< With padding.
    TZObjects::TXRect icon; ///< The same of an icon whose place depends on that of the text.
};

/// The symbols of a layer, first come first served.
struct LayerCandidates
{
    PlacementRules text;
    PlacementRules icon;
    bool hasTexts = false; ///< Whether any symbol of the layer has one.
    bool hasIcons = false;
    std::vector<SymbolCandidate> symbols;
    std::vector<TextChoice> choices;
    std::vector<CollisionCircle> circles;
};

/// What is shown of a symbol.
struct SymbolVerdict
{
    bool text = false;
    bool icon = false;
    std::uint32_t choice = 0; ///< Which of its places the text takes, from 0.
};

/// Places those symbols of a layer that @p wanted has a mark for, one for each symbol; nothing is shown of others.
void PlaceSymbols(const LayerCandidates& layer, CollisionIndex& index, const std::vector<bool>& wanted,
                  std::vector<SymbolVerdict>& verdicts);

/// The box around all that a symbol may cover.
TZObjects::TXRect ExtentOf(const LayerCandidates& layer, const SymbolCandidate& symbol);

/// Places the symbols of a layer, clear of what is taken already, and takes their room. What comes out depends on the
/// symbols and their order alone.
std::vector<SymbolVerdict> PlaceSymbols(const LayerCandidates& layer, CollisionIndex& index);

} // namespace txmap
