#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include <txmap/labels/TextPath.h>
#include <txmap/style/document/LayerProperty.h>
#include <txmap/symbols/SymbolPlacement.h>

namespace txmap
{

/// Where the symbols of a feature stand.
enum class SymbolStand
{
    Point,     ///< At its points, at the start of its lines, in the middle of its areas.
    Line,      ///< Along its lines, again and again.
    LineCenter ///< In the middle of its lines.
};

/// The order in which the symbols of a layer are placed.
enum class SymbolOrder
{
    SortKey, ///< By the sort key, then as in the source.
    Source,
    Downward ///< The lowest in the picture first, and drawn last.
};

/// The layout properties of a symbol layer at one zoom: those that are the same for all features as they are, the
/// others to be evaluated.
struct SymbolProperties
{
    /// @param context what expressions may ask beside the feature; its zoom is that of the map.
    SymbolProperties(const StyleLayer& layer, const EvaluationContext& context);

    SymbolStand stand = SymbolStand::Point;
    SymbolOrder order = SymbolOrder::Source;
    double spacing = 250.0;
    bool avoidsEdges = false;

    PlacementRules iconRules;
    LayerProperty<std::string> iconImage;
    LayerProperty<double> iconSize;
    LayerProperty<double> iconRotate;
    LayerProperty<std::array<double, 4>> iconPadding;
    LayerProperty<std::array<double, 2>> iconOffset;
    LayerProperty<std::string> iconAnchor;
    LayerProperty<std::string> iconRotationAlignment;
    bool iconKeepUpright = false;
    bool iconFitsWidth = false; ///< To its text.
    bool iconFitsHeight = false;
    std::array<double, 4> iconFitPadding{};

    PlacementRules textRules;
    LayerProperty<Formatted> textField;
    LayerProperty<std::vector<std::string>> textFont;
    LayerProperty<double> textSize;
    std::optional<Expression> textSizeOfAnchors; ///< The size that places along lines are found with.
    LayerProperty<double> textMaxWidth;
    double textLineHeight = 1.2;
    LayerProperty<double> textLetterSpacing;
    LayerProperty<std::string> textJustify;
    LayerProperty<double> textRadialOffset;
    std::vector<std::string> textVariableAnchor;
    LayerProperty<VariableAnchorOffsets> textVariableAnchorOffset;
    LayerProperty<std::string> textAnchor;
    double textMaxAngle = 45.0;
    std::vector<std::string> textWritingMode;
    LayerProperty<double> textRotate;
    double textPadding = 2.0;
    bool textKeepUpright = true;
    LayerProperty<std::string> textTransform;
    LayerProperty<std::array<double, 2>> textOffset;
    std::string textRotationAlignment;

    TextPath textEngine = TextPath::Qt;
    bool textIsVertical = false; ///< All texts stand in columns.
    bool hasMark = false;        ///< A character of a font is the icon of features without a picture.

    bool TextFollowsLine() const;
    bool TextTurnsWithMap() const;
    bool FitsIconToText() const { return iconFitsWidth || iconFitsHeight; }
};

} // namespace txmap
