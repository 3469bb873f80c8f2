#include <txmap/symbols/SymbolPlacement.h>

#include <algorithm>
#include <optional>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

class LayerPlacement
{
public:
    LayerPlacement(const LayerCandidates& layer, CollisionIndex& index) : layer(layer), index(index) {}

    SymbolVerdict Place(const SymbolCandidate& symbol)
    {
        SymbolVerdict verdict;
        const std::optional<std::uint32_t> choice = ChooseBox(symbol);
        verdict.choice = choice.value_or(0);
        bool text = symbol.hasText && (symbol.followsLine ? FitsOnLine(symbol) : choice.has_value());
        const TXRect icon = symbol.movesIcon && choice ? Choice(symbol, *choice).icon : symbol.icon;
        bool shownIcon = symbol.hasIcon && index.IsFree(icon, layer.icon.overlap);

        // Of text and icon, none is shown without the other unless that one is optional or absent.
        const bool iconAlone = layer.text.optional || !symbol.hasText;
        const bool textAlone = layer.icon.optional || !symbol.hasIcon;
        if (!iconAlone && !textAlone)
            text = shownIcon = text && shownIcon;
        else if (!textAlone)
            text = text && shownIcon;
        else if (!iconAlone)
            shownIcon = text && shownIcon;

        if (text && !layer.text.ignored)
            TakeText(symbol, verdict.choice);
        if (shownIcon && !layer.icon.ignored)
            index.Take(icon, layer.icon.overlap);
        verdict.text = text || (symbol.hasText && AlwaysShows(symbol, choice, layer.text, layer.icon, layer.hasIcons));
        verdict.icon = shownIcon || (symbol.hasIcon && layer.icon.overlap == Overlap::Always &&
                                     (layer.text.overlap == Overlap::Always || !layer.hasTexts || layer.text.optional));
        return verdict;
    }

private:
    const TextChoice& Choice(const SymbolCandidate& symbol, std::uint32_t choice) const
    {
        return layer.choices[symbol.firstChoice + choice];
    }

    /// What may overlap everything is shown even where its other part has no room; a text along a line needs the line.
    static bool AlwaysShows(const SymbolCandidate& symbol, const std::optional<std::uint32_t>& choice,
                            const PlacementRules& rules, const PlacementRules& other, bool hasOthers)
    {
        return rules.overlap == Overlap::Always && (other.overlap == Overlap::Always || !hasOthers || other.optional) &&
               (symbol.followsLine ? symbol.circles > 0 : choice.has_value());
    }

    bool FitsOnLine(const SymbolCandidate& symbol) const
    {
        const CollisionCircle* const first = layer.circles.data() + symbol.firstCircle;
        bool reaches = false;
        for (const CollisionCircle* circle = first; circle != first + symbol.circles; ++circle)
        {
            if (!index.Reaches(*circle))
                continue;
            reaches = true;
            if (!index.IsFree(*circle, layer.text.overlap))
                return false;
        }
        return reaches;
    }

    bool FitsBox(const SymbolCandidate& symbol, const TextChoice& choice, Overlap overlap) const
    {
        // An icon around the text that must not overlap moves with it, and needs room there.
        const bool needsIcon =
            symbol.movesIcon && symbol.hasIcon && symbol.choices > 1 && layer.icon.overlap == Overlap::Never;
        return index.IsFree(choice.box, overlap) && (!needsIcon || index.IsFree(choice.icon, overlap));
    }

    /// The first place that is free; if the text may overlap, the first on which it may then lie.
    std::optional<std::uint32_t> ChooseBox(const SymbolCandidate& symbol) const
    {
        if (symbol.choices == 1)
            return FitsBox(symbol, Choice(symbol, 0), layer.text.overlap) ? std::optional<std::uint32_t>(0)
                                                                          : std::nullopt;
        for (const Overlap overlap : {Overlap::Never, layer.text.overlap})
        {
            for (std::uint32_t choice = 0; choice < symbol.choices; ++choice)
                if (FitsBox(symbol, Choice(symbol, choice), overlap))
                    return choice;
            if (layer.text.overlap == Overlap::Never)
                break;
        }
        return std::nullopt;
    }

    void TakeText(const SymbolCandidate& symbol, std::uint32_t choice)
    {
        if (!symbol.followsLine)
            return index.Take(Choice(symbol, choice).box, layer.text.overlap);
        const CollisionCircle* const first = layer.circles.data() + symbol.firstCircle;
        std::for_each(first, first + symbol.circles,
                      [&](const CollisionCircle& circle) { index.Take(circle, layer.text.overlap); });
    }

    const LayerCandidates& layer;
    CollisionIndex& index;
};

} // namespace

std::vector<SymbolVerdict> PlaceSymbols(const LayerCandidates& layer, CollisionIndex& index)
{
    LayerPlacement placement(layer, index);
    std::vector<SymbolVerdict> verdicts;
    verdicts.reserve(layer.symbols.size());
    for (const SymbolCandidate& symbol : layer.symbols)
        verdicts.push_back(placement.Place(symbol));
    return verdicts;
}

void PlaceSymbols(const LayerCandidates& layer, CollisionIndex& index, const std::vector<bool>& wanted,
                  std::vector<SymbolVerdict>& verdicts)
{
    LayerPlacement placement(layer, index);
    verdicts.resize(layer.symbols.size());
    for (std::size_t i = 0; i < layer.symbols.size(); ++i)
        if (wanted[i])
            verdicts[i] = placement.Place(layer.symbols[i]);
}

TXRect ExtentOf(const LayerCandidates& layer, const SymbolCandidate& symbol)
{
    TXRect extent{1e300, -1e300, 1e300, -1e300};
    const auto add = [&](const TXRect& box)
    {
        if (box.left <= box.right && box.top <= box.bottom)
            extent = {std::min(extent.left, box.left), std::max(extent.right, box.right), std::min(extent.top, box.top),
                      std::max(extent.bottom, box.bottom)};
    };
    if (symbol.hasIcon)
        add(symbol.icon);
    for (std::uint32_t i = 0; i < symbol.choices; ++i)
    {
        const TextChoice& choice = layer.choices[symbol.firstChoice + i];
        add(choice.box);
        if (symbol.hasIcon && symbol.movesIcon)
            add(choice.icon);
    }
    for (std::uint32_t i = 0; i < symbol.circles; ++i)
    {
        const CollisionCircle& circle = layer.circles[symbol.firstCircle + i];
        add({circle.centre.x - circle.radius, circle.centre.x + circle.radius, circle.centre.y - circle.radius,
             circle.centre.y + circle.radius});
    }
    return extent;
}

} // namespace txmap
