#include <txmap/symbols/SymbolCandidates.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/MapView.h>
#include <txmap/symbols/SymbolLayout.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kTileSize = 512.0;

TXRect Moved(const TXRect& box, const TXPoint& by)
{
    return {box.left + by.x, box.right + by.x, box.top + by.y, box.bottom + by.y};
}

/// Tells what reaches beyond the tile of a symbol.
class TileEdges
{
public:
    TileEdges(const MapView& view, const SymbolInstance& instance) : view(view), world(instance.world)
    {
        if (instance.tile)
            tile = *instance.tile;
        else
        {
            const double side = std::exp2(-std::max(0.0, std::floor(view.Zoom())));
            const double left = std::floor(instance.place.x / side) * side;
            const double top = std::floor(instance.place.y / side) * side;
            tile = {left, top, left + side, top + side};
        }
    }

    bool Cross(const TXRect& box) const
    {
        for (const double x : {box.left, box.right})
            for (const double y : {box.top, box.bottom})
            {
                const TXPoint place = view.ToPlace({x, y});
                if (!tile.Contains(TXPoint(place.x - world, place.y)))
                    return true;
            }
        return false;
    }

private:
    const MapView& view;
    int world;
    MercatorBox tile;
};

class CandidateMaker
{
public:
    CandidateMaker(const MapView& view, SymbolLayout& layout) : view(view), layout(layout) {}

    SymbolCandidate Make(const SymbolInstance& instance)
    {
        const SymbolContent& content = *instance.content;
        SymbolCandidate candidate;
        candidate.hasText = content.lineText || !content.places.empty();
        candidate.hasIcon = content.icon.has_value();
        candidate.followsLine = content.lineText != nullptr;
        candidate.movesIcon = (content.iconMovesWithText || content.columnIcon) && !content.places.empty();
        candidate.firstChoice = static_cast<std::uint32_t>(layout.candidates.choices.size());
        candidate.firstCircle = static_cast<std::uint32_t>(layout.candidates.circles.size());
        if (candidate.followsLine)
            AddCircles(instance);
        else
            AddChoices(instance, candidate.hasIcon && candidate.movesIcon);
        candidate.choices = static_cast<std::uint32_t>(layout.candidates.choices.size()) - candidate.firstChoice;
        candidate.circles = static_cast<std::uint32_t>(layout.candidates.circles.size()) - candidate.firstCircle;
        if (candidate.hasIcon)
        {
            candidate.icon = IconBox(instance, *content.icon, {});
            if (layout.properties.avoidsEdges && TileEdges(view, instance).Cross(candidate.icon))
                candidate.hasIcon = candidate.hasText = false;
        }
        return candidate;
    }

private:
    void AddCircles(const SymbolInstance& instance)
    {
        if (!instance.fitted)
            return;
        std::vector<CollisionCircle>& circles = layout.candidates.circles;
        const std::size_t first = circles.size();
        const TileEdges edges(view, instance);
        const double padding = layout.properties.textPadding * view.Scale();
        for (const LineCircle& circle : instance.fitted->circles)
        {
            const TXPoint centre(circle.center.x + layout.textMove.x, circle.center.y + layout.textMove.y);
            const double radius = circle.radius + padding;
            if (layout.properties.avoidsEdges &&
                edges.Cross({centre.x - radius, centre.x + radius, centre.y - radius, centre.y + radius}))
                return circles.resize(first);
            circles.push_back({centre, radius});
        }
    }

    void AddChoices(const SymbolInstance& instance, bool movesIcon)
    {
        const SymbolContent& content = *instance.content;
        const double angle = TextAngle(layout.properties, instance, view);
        const TXPoint anchor(instance.pixel.x + layout.textMove.x, instance.pixel.y + layout.textMove.y);
        const TileEdges edges(view, instance);
        for (const TextPlace& place : content.places)
        {
            TXRect box = Moved(TurnedBox(place.box, angle), anchor);
            // A place that is left out stays in the list, so that its number is that of the text.
            if (layout.properties.avoidsEdges && edges.Cross(box))
                box = {0.0, -1.0, 0.0, -1.0};
            TextChoice choice{box, {}};
            if (movesIcon)
                choice.icon = IconBox(instance, content.IconFor(place), content.IconMove(place));
            layout.candidates.choices.push_back(choice);
        }
    }

    TXRect IconBox(const SymbolInstance& instance, const IconShape& icon, const TXPoint& move) const
    {
        TXRect box = icon.Box();
        const auto padding = [&](std::size_t side) { return instance.content->iconPadding[side] * view.Scale(); };
        box = {box.left - padding(3), box.right + padding(1), box.top - padding(0), box.bottom + padding(2)};
        return Moved(TurnedBox(box, IconAngle(layout.properties, instance, view)),
                     {instance.pixel.x + layout.iconMove.x + move.x, instance.pixel.y + layout.iconMove.y + move.y});
    }

    const MapView& view;
    SymbolLayout& layout;
};

} // namespace

double TextAngle(const SymbolProperties& properties, const SymbolInstance& instance, const MapView& view)
{
    return instance.content->textRotate - (properties.TextTurnsWithMap() ? view.Bearing() : 0.0);
}

double IconAngle(const SymbolProperties& properties, const SymbolInstance& instance, const MapView& view)
{
    const SymbolContent& content = *instance.content;
    if (!content.iconFollowsLine)
        return content.iconRotate - (content.iconTurnsWithMap ? view.Bearing() : 0.0);
    const double line = std::remainder(instance.lineAngle, 360.0);
    const bool isTurned = properties.iconKeepUpright && std::abs(line) > 90.0;
    return content.iconRotate + line + (isTurned ? 180.0 : 0.0);
}

void MakeCandidates(const MapView& view, SymbolLayout& layout)
{
    LayerCandidates& candidates = layout.candidates;
    candidates.text = layout.properties.textRules;
    candidates.icon = layout.properties.iconRules;
    CandidateMaker maker(view, layout);
    candidates.symbols.reserve(layout.instances.size());
    for (const SymbolInstance& instance : layout.instances)
    {
        const SymbolCandidate& candidate = candidates.symbols.emplace_back(maker.Make(instance));
        candidates.hasTexts = candidates.hasTexts || candidate.hasText;
        candidates.hasIcons = candidates.hasIcons || candidate.hasIcon;
    }
}

} // namespace txmap
