#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <txmap/symbols/IconShape.h>
#include <txmap/symbols/SymbolProperties.h>
#include <txmap/symbols/text/LineText.h>
#include <txmap/symbols/text/TextBlock.h>

namespace txmap
{

class Sprites;
class SymbolFonts;

/// A place for the text of a symbol, without rotation.
struct TextPlace
{
    const TextBlock* block = nullptr;
    TZObjects::TXPoint centre; ///< Of the block, in pixels from the anchor.
    TZObjects::TXRect box;     ///< With padding, in pixels from the anchor.
    bool isColumn = false;     ///< Whether the text goes down rather than across.
};

/// What a symbol looks like, for all anchors of a feature. Sizes are in pixels of the map.
struct SymbolContent
{
    std::string text;                     ///< All of it, for telling repeated ones; empty for icons alone.
    std::vector<TextPlace> places;        ///< The best first; empty for a text that follows a line.
    const LineText* lineText = nullptr;   ///< A text that follows a line.
    const LineText* columnText = nullptr; ///< The same where the line goes down rather than across.
    double textRotate = 0.0;              ///< In degrees, clockwise.
    double lineShift = 0.0;               ///< Of a text along a line: in reading direction.
    double lineDrop = 0.0;                ///< The same: towards below the text.
    double anchorLength = 0.0;            ///< How long the text is for finding places along lines, in logical pixels.
    double anchorSize = 0.0;              ///< The size of the text for that.

    std::optional<IconShape> icon;
    std::optional<IconShape> columnIcon; ///< The same around a text that goes down.
    double iconScale = 1.0;              ///< Pixels of the map for each logical one of the icon.
    double iconRotate = 0.0;
    bool iconFollowsLine = false;        ///< Whether it turns with the line.
    bool iconTurnsWithMap = false;       ///< Whether it turns with the map.
    bool iconMovesWithText = false;      ///< From the middle of the text in one place to that in another.
    std::array<double, 4> iconPadding{}; ///< Top, right, bottom, left.

    /// The icon beside, or around, the text in one of its places. There must be one.
    const IconShape& IconFor(const TextPlace& place) const
    {
        return place.isColumn && columnIcon ? *columnIcon : *icon;
    }
    /// By how much it moves with the text, in pixels.
    TZObjects::TXPoint IconMove(const TextPlace& place) const
    {
        return iconMovesWithText ? place.centre : TZObjects::TXPoint();
    }
};

/// Makes the content of symbols. Texts that are the same are laid out once.
class SymbolContents
{
public:
    /// All must outlive this object. @param scale pixels of the map for each logical one.
    SymbolContents(const SymbolProperties& properties, const Sprites& sprites, SymbolFonts& fonts, double scale);

    /// The text of a feature, with upper and lower case as the layer wants it.
    Formatted TextOf(const EvaluationContext& context) const;
    /// The content; nothing if there is nothing to show.
    std::optional<SymbolContent> Make(const EvaluationContext& context);

private:
    std::vector<TextSection> Sections(const Formatted& text) const;
    void AddText(const EvaluationContext& context, SymbolContent& content);
    void AddPlaces(const EvaluationContext& context, const std::vector<TextSection>& sections, TextStyle style,
                   SymbolContent& content);
    void AddPlace(const TextBlock& block, const std::string& anchor, const TZObjects::TXPoint& offset, bool isOne,
                  SymbolContent& content) const;
    void FitIcons(const SpritePicture& picture, double size, const EvaluationContext& context,
                  SymbolContent& content) const;
    void AddIcon(const EvaluationContext& context, SymbolContent& content) const;
    VariableAnchorOffsets VariableAnchors(const EvaluationContext& context) const;
    const TextBlock& BlockOf(const std::vector<TextSection>& sections, const TextStyle& style);
    const LineText& LineTextOf(const std::vector<TextSection>& sections, const TextStyle& style);

    const SymbolProperties& properties;
    const Sprites& sprites;
    SymbolFonts& fonts;
    double scale;
    std::unordered_map<std::string, std::unique_ptr<TextBlock>> blocks;
    std::unordered_map<std::string, std::unique_ptr<LineText>> lineTexts;
};

} // namespace txmap
