#include <txmap/symbols/SymbolProperties.h>

#include <algorithm>

namespace txmap
{
namespace
{

// Places along lines are found with the size that a text has there, so that they stay as the map is enlarged.
constexpr double kZoomOfAnchors = 18.0;

/// Properties of one layer at one zoom that are the same for all features.
class Constants
{
public:
    Constants(const StyleLayer& layer, const EvaluationContext& context) : layer(layer), context(context) {}

    template <class T>
    T Of(const std::string& name, const T& fallback = T()) const
    {
        return LayerProperty<T>(layer, name.c_str(), *context.zoom, context, fallback).Constant();
    }

    /// @param part "text" or "icon".
    PlacementRules Rules(const std::string& part) const
    {
        PlacementRules rules;
        const auto overlap = Of<std::string>(part + "-overlap");
        if (overlap == "always" || (overlap.empty() && Of<bool>(part + "-allow-overlap")))
            rules.overlap = Overlap::Always;
        else if (overlap == "cooperative")
            rules.overlap = Overlap::Cooperative;
        rules.ignored = Of<bool>(part + "-ignore-placement");
        rules.optional = Of<bool>(part + "-optional");
        return rules;
    }

private:
    const StyleLayer& layer;
    const EvaluationContext& context;
};

SymbolOrder OrderOf(const StyleLayer& layer, const Constants& constants, bool mayOverlap)
{
    const auto order = constants.Of<std::string>("symbol-z-order");
    const Expression* const key = layer.Find("symbol-sort-key");
    if (order != "viewport-y" && key && !key->IsFeatureConstant())
        return SymbolOrder::SortKey;
    return order != "source" && mayOverlap ? SymbolOrder::Downward : SymbolOrder::Source;
}

} // namespace

SymbolProperties::SymbolProperties(const StyleLayer& layer, const EvaluationContext& context)
    : iconImage(layer, "icon-image", *context.zoom, context), iconSize(layer, "icon-size", *context.zoom, context, 1.0),
      iconRotate(layer, "icon-rotate", *context.zoom, context),
      iconPadding(layer, "icon-padding", *context.zoom, context, {2.0, 2.0, 2.0, 2.0}),
      iconOffset(layer, "icon-offset", *context.zoom, context),
      iconAnchor(layer, "icon-anchor", *context.zoom, context, "center"),
      iconRotationAlignment(layer, "icon-rotation-alignment", *context.zoom, context, "auto"),
      textField(layer, "text-field", *context.zoom, context), textFont(layer, "text-font", *context.zoom, context),
      textSize(layer, "text-size", *context.zoom, context, 16.0),
      textMaxWidth(layer, "text-max-width", *context.zoom, context, 10.0),
      textLetterSpacing(layer, "text-letter-spacing", *context.zoom, context),
      textJustify(layer, "text-justify", *context.zoom, context, "center"),
      textRadialOffset(layer, "text-radial-offset", *context.zoom, context),
      textVariableAnchorOffset(layer, "text-variable-anchor-offset", *context.zoom, context),
      textAnchor(layer, "text-anchor", *context.zoom, context, "center"),
      textRotate(layer, "text-rotate", *context.zoom, context),
      textTransform(layer, "text-transform", *context.zoom, context, "none"),
      textOffset(layer, "text-offset", *context.zoom, context)
{
    const Constants constants(layer, context);
    const auto placement = constants.Of<std::string>("symbol-placement");
    stand = placement == "line" ? SymbolStand::Line
                                : (placement == "line-center" ? SymbolStand::LineCenter : SymbolStand::Point);
    spacing = std::max(1.0, constants.Of<double>("symbol-spacing", 250.0));
    avoidsEdges = constants.Of<bool>("symbol-avoid-edges");
    iconRules = constants.Rules("icon");
    textRules = constants.Rules("text");
    const auto overlaps = [](const PlacementRules& rules) { return rules.overlap != Overlap::Never || rules.ignored; };
    order = OrderOf(layer, constants, overlaps(iconRules) || overlaps(textRules));

    iconKeepUpright = constants.Of<bool>("icon-keep-upright");
    const auto fit = constants.Of<std::string>("icon-text-fit");
    iconFitsWidth = fit == "width" || fit == "both";
    iconFitsHeight = fit == "height" || fit == "both";
    iconFitPadding = constants.Of<std::array<double, 4>>("icon-text-fit-padding");

    if (const Expression* const size = layer.Find("text-size"); size && !size->IsZoomConstant())
        textSizeOfAnchors = size->AtZoom(kZoomOfAnchors);
    textLineHeight = constants.Of<double>("text-line-height", 1.2);
    textVariableAnchor = constants.Of<std::vector<std::string>>("text-variable-anchor");
    textMaxAngle = constants.Of<double>("text-max-angle", 45.0);
    textWritingMode = constants.Of<std::vector<std::string>>("text-writing-mode");
    textPadding = constants.Of<double>("text-padding", 2.0);
    textKeepUpright = constants.Of<bool>("text-keep-upright", true);
    textRotationAlignment = constants.Of<std::string>("text-rotation-alignment", "auto");
    textEngine = layer.textThroughCairo ? TextPath::Cairo : TextPath::Qt;
    textIsVertical = layer.textIsVertical;
    hasMark = !layer.markCharacter.empty();
}

bool SymbolProperties::TextFollowsLine() const
{
    return stand != SymbolStand::Point && textRotationAlignment != "viewport";
}

bool SymbolProperties::TextTurnsWithMap() const
{
    return stand == SymbolStand::Point && textRotationAlignment == "map";
}

} // namespace txmap
