#include <txmap/symbols/SymbolLayout.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include <txmap/map/MapView.h>
#include <txmap/sources/PassingFeatures.h>
#include <txmap/symbols/LayerLines.h>
#include <txmap/symbols/LineAnchors.h>
#include <txmap/symbols/LineTiles.h>
#include <txmap/symbols/PlacementGrid.h>
#include <txmap/symbols/PoleOfInaccessibility.h>
#include <txmap/symbols/RepeatedTexts.h>
#include <txmap/symbols/SymbolCandidates.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.141592653589793;
constexpr double kTileSize = 512.0;
// Symbols whose anchors lie farther outside than this, in logical pixels, are not looked at.
constexpr double kAnchorMargin = 512.0;
// How exact the place in an area is found, in logical pixels.
constexpr double kPolePrecision = 2.0;

/// How far around the picture anchors matter, in pixels.
double MarginOf(const MapView& view)
{
    return view.GridOrigin() ? PlacementGrid(view).Margin() : kAnchorMargin * view.Scale();
}

/// Finds the anchors of one set of features.
class AnchorSearch
{
public:
    AnchorSearch(const SymbolLayerData& data, SymbolLayout& layout, const PlacedFeatures& placed)
        : data(data), layout(layout), placed(placed), attributes(*placed.features), context(data.context),
          margin(MarginOf(data.view)), picture(data.view.PictureBox(margin)),
          layoutZoom(std::max(0.0, std::floor(data.view.Zoom()))), worldSize(kTileSize * std::exp2(layoutZoom))
    {
        context.feature = &attributes;
        context.tileZoom = placed.tileZoom;
    }

    void Run()
    {
        if (layout.properties.stand == SymbolStand::Line)
            return AddLines();
        for (const PassedFeature& passed : PassingFeatures(data.layer, placed, "symbol-sort-key", data.context, Seen()))
        {
            Begin(passed);
            if (!MayBeSeen(placed.features->BoundsOf(*passed.feature)))
                continue;
            if (layout.properties.stand == SymbolStand::LineCenter)
                AddMiddles();
            else if (passed.feature->type == GeometryType::Polygon)
                AddPoles();
            else
                AddPoints();
        }
    }

private:
    void Begin(const PassedFeature& passed)
    {
        current = passed;
        content = nullptr;
        isMade = false;
        anchors = 0;
        attributes.Select(*passed.feature);
    }

    /// The content of the current feature, made when it is first wanted; null if there is nothing to show.
    const SymbolContent* Content()
    {
        if (!isMade)
        {
            isMade = true;
            if (std::optional<SymbolContent> made = layout.texts->Make(context); made)
                content = &layout.contents.emplace_back(std::move(*made));
        }
        return content;
    }

    bool MayBeSeen(const MercatorBox& box) const
    {
        return std::any_of(placed.worlds.begin(), placed.worlds.end(),
                           [&](int world) { return data.view.Shows(box.Shifted(world), margin); });
    }

    /// The parts of the world in which anchors matter; with a zoom, the whole tiles of it.
    std::vector<MercatorBox> Seen(std::optional<int> zoom = std::nullopt) const
    {
        std::vector<MercatorBox> seen;
        for (const int world : placed.worlds)
        {
            const MercatorBox box = data.view.Visible(margin).Shifted(-world);
            seen.push_back(zoom ? WholeTiles(box, *zoom) : box);
        }
        return seen;
    }

    /// Adds the current feature's symbol at an anchor, in each world where it may be seen.
    void AddPoint(const TXPoint& place)
    {
        if (placed.tile && !(place.x >= placed.tile->left && place.x < placed.tile->right &&
                             place.y >= placed.tile->top && place.y < placed.tile->bottom))
            return;
        for (const int world : placed.worlds)
            AddInstance(place, world);
    }

    SymbolInstance* AddInstance(const TXPoint& place, int world)
    {
        const std::size_t part = anchors++;
        const TXPoint pixel = data.view.ToPixels(world).Map(place);
        if (!(pixel.x >= picture.left && pixel.x <= picture.right && pixel.y >= picture.top &&
              pixel.y <= picture.bottom) ||
            !Content())
            return nullptr;
        SymbolInstance instance;
        instance.placed = &placed;
        instance.feature = current.feature;
        instance.content = content;
        instance.order = static_cast<std::size_t>(current.feature - placed.features->features.data());
        instance.part = part;
        instance.sortKey = current.sortKey;
        instance.place = place;
        instance.world = world;
        instance.pixel = pixel;
        instance.tile = placed.tile;
        layout.instances.push_back(instance);
        return &layout.instances.back();
    }

    void AddPoints()
    {
        placed.features->ForEachPart(*current.feature,
                                     [&](const TXPoint* points, std::size_t count)
                                     {
                                         if (count > 0)
                                             AddPoint(points[0]);
                                     });
    }

    void AddPoles()
    {
        PolygonRings polygon;
        double turn = 0.0;
        const auto end = [&]
        {
            if (!polygon.rings.empty())
                AddPoint(PoleOfInaccessibility(polygon, kPolePrecision / worldSize));
            polygon.rings.clear();
        };
        placed.features->ForEachPart(*current.feature,
                                     [&](const TXPoint* points, std::size_t count)
                                     {
                                         const double area = TwiceSignedArea(points, count);
                                         if (count == 0)
                                             return;
                                         if (polygon.rings.empty() && turn == 0.0)
                                             turn = area;
                                         if ((area > 0.0) == (turn > 0.0))
                                             end();
                                         polygon.rings.push_back({points, count});
                                     });
        end();
    }

    /// A line of the layout, in its pixels.
    LineAnchorNeeds NeedsOf(const SymbolContent& shown, double overscaling) const
    {
        LineAnchorNeeds needs;
        needs.spacing = layout.properties.spacing;
        needs.labelLength = shown.anchorLength;
        needs.textSize = shown.anchorSize;
        needs.hasText = !shown.text.empty();
        needs.maxAngle = layout.properties.textMaxAngle;
        needs.overscaling = overscaling;
        return needs;
    }

    void AddMiddles()
    {
        placed.features->ForEachPart(*current.feature,
                                     [&](const TXPoint* points, std::size_t count)
                                     {
                                         if (count < 2 || !Content())
                                             return;
                                         const TiledLine line = WholeLine(points, count, worldSize);
                                         const auto anchor = MiddleAnchor(line.points, NeedsOf(*content, 1.0));
                                         if (!anchor)
                                             return;
                                         const TXPoint place = line.ToWorld(anchor->point);
                                         if (placed.tile && !placed.tile->Contains(place))
                                             return;
                                         for (const int world : placed.worlds)
                                             AddOnLine(line, *anchor, place, world);
                                     });
    }

    /// The lines of all features, or of those that may be seen.
    std::shared_ptr<const LayerLines> JoinLines()
    {
        // With what is far away a line may be one whose direction, and place among others, depends on it.
        const bool joinsAll = data.view.GridOrigin().has_value();
        std::vector<PassedFeature> passing =
            PassingFeatures(data.layer, placed, "symbol-sort-key", data.context,
                            joinsAll ? std::vector<MercatorBox>{placed.features->bounds} : Seen());
        if (!joinsAll)
            passing.erase(std::remove_if(passing.begin(), passing.end(),
                                         [&](const PassedFeature& passed)
                                         { return !MayBeSeen(placed.features->BoundsOf(*passed.feature)); }),
                          passing.end());
        return std::make_shared<const LayerLines>(*placed.features, passing,
                                                  [&](const PassedFeature& passed)
                                                  {
                                                      Begin(passed);
                                                      return layout.texts->TextOf(context).ToString();
                                                  });
    }

    void AddLines()
    {
        if (!data.keptLines || !data.view.GridOrigin() || placed.tile)
        {
            const std::shared_ptr<const LayerLines> lines = JoinLines();
            for (const LayerLines::Line& line : lines->All())
                AddLine(line);
            return;
        }
        const std::shared_ptr<const LayerLines> lines =
            data.keptLines->Find(data.layer, placed.features, data.view.Zoom(), [this] { return JoinLines(); });
        for (const LayerLines::Line* const line : lines->Near(Seen(LineTileZoom())))
            AddLine(*line);
    }

    int LineTileZoom() const { return static_cast<int>(std::min(layoutZoom, 18.0)); }

    void AddLine(const LayerLines::Line& line)
    {
        if (!isMade || current.feature != line.owner.feature)
            Begin(line.owner);
        if (Content())
            AddLine(line.points);
    }

    void AddLine(const std::vector<TXPoint>& points)
    {
        for (const int world : placed.worlds)
        {
            const std::vector<TiledLine> lines =
                placed.tile
                    ? LinesInTile(points, *placed.tile, worldSize)
                    : LinesInTiles(points, LineTileZoom(), data.view.Visible(margin).Shifted(-world), worldSize);
            for (const TiledLine& line : lines)
                AddAlong(line, world);
        }
    }

    void AddAlong(const TiledLine& line, int world)
    {
        const double tilesAcross = 1.0 / (line.tile.right - line.tile.left);
        const double overscaling = std::max(1.0, worldSize / kTileSize / tilesAcross);
        LineAnchorNeeds needs = NeedsOf(*content, overscaling);
        needs.isContinued = line.isContinued;
        RepeatedTexts& repeated =
            tiles.try_emplace({world, line.tile.left, line.tile.top}, needs.spacing / 2.0).first->second;
        const double side = (line.tile.right - line.tile.left) * worldSize;
        for (const LineAnchor& anchor : AnchorsAlong(line.points, needs))
        {
            // The neighbouring tiles have the same line along their common edge.
            if (anchor.point.x >= side || anchor.point.y >= side ||
                (!content->text.empty() && !repeated.Add(content->text, anchor.point)))
                continue;
            if (SymbolInstance* const added = AddOnLine(line, anchor, line.ToWorld(anchor.point), world); added)
                added->tile = line.tile;
        }
    }

    SymbolInstance* AddOnLine(const TiledLine& line, const LineAnchor& anchor, const TXPoint& place, int world)
    {
        SymbolInstance* const added = AddInstance(place, world);
        if (!added)
            return nullptr;
        added->lineAngle = anchor.angle * 180.0 / kPi - data.view.Bearing();
        if (content->lineText)
            FitText(line, anchor, *added);
        return added;
    }

    void FitText(const TiledLine& line, const LineAnchor& anchor, SymbolInstance& instance)
    {
        const AffineMatrix toPixels = data.view.ToPixels(instance.world);
        PixelLine pixels;
        pixels.reserve(line.points.size());
        for (const TXPoint& point : line.points)
            pixels.push_back(toPixels.Map(line.ToWorld(point)));
        LineFit fit;
        fit.maxAngle = layout.properties.textMaxAngle;
        fit.keepUpright = layout.properties.textKeepUpright;
        fit.alongOffset = content->lineShift;
        fit.sideOffset = content->lineDrop;
        const double distance = anchor.distance * data.view.WorldSize() / worldSize;
        instance.fittedText = content->lineText;
        std::optional<FittedText> fitted = FitAlong(*content->lineText, pixels, distance, fit);
        if (fitted && content->columnText && GoesDown(*fitted))
        {
            instance.fittedText = content->columnText;
            fitted = FitAlong(*content->columnText, pixels, distance, fit);
        }
        if (fitted && layout.properties.textRotationAlignment == "viewport-glyph")
            for (FittedCluster& cluster : fitted->clusters)
                cluster.angle = 0.0;
        if (fitted)
            instance.fitted = &layout.fittedTexts.emplace_back(std::move(*fitted));
    }

    static bool GoesDown(const FittedText& text)
    {
        const TXPoint& first = text.clusters.front().at;
        const TXPoint& last = text.clusters.back().at;
        return std::abs(last.y - first.y) > std::abs(last.x - first.x);
    }

    const SymbolLayerData& data;
    SymbolLayout& layout;
    const PlacedFeatures& placed;
    FeatureAttributes attributes;
    EvaluationContext context;
    double margin;
    TZObjects::TXRect picture;
    double layoutZoom;
    double worldSize; ///< Layout pixels across the world: logical ones at a whole zoom.
    PassedFeature current;
    const SymbolContent* content = nullptr;
    bool isMade = false;
    std::size_t anchors = 0; ///< Of the current feature, seen or not.
    std::map<std::tuple<int, double, double>, RepeatedTexts> tiles;
};

/// By what a layer moves its texts or icons, in pixels. @param part "text" or "icon".
TXPoint MoveOf(const SymbolLayerData& data, const std::string& part)
{
    const double zoom = data.view.Zoom();
    const auto by =
        LayerProperty<std::array<double, 2>>(data.layer, (part + "-translate").c_str(), zoom, data.context).Constant();
    const auto anchor =
        LayerProperty<std::string>(data.layer, (part + "-translate-anchor").c_str(), zoom, data.context).Constant();
    const double scale = data.view.Scale();
    if (anchor == "viewport")
        return {by[0] * scale, by[1] * scale};
    const AffineMatrix matrix = data.view.ToPixels();
    const double factor = scale / data.view.WorldSize();
    return {(matrix.xx * by[0] + matrix.xy * by[1]) * factor, (matrix.yx * by[0] + matrix.yy * by[1]) * factor};
}

void Sort(SymbolLayout& layout)
{
    const SymbolOrder order = layout.properties.order;
    std::sort(layout.instances.begin(), layout.instances.end(),
              [&](const SymbolInstance& a, const SymbolInstance& b)
              {
                  const auto first = [&](const SymbolInstance& one) {
                      return order == SymbolOrder::SortKey ? one.sortKey
                                                           : (order == SymbolOrder::Downward ? -one.pixel.y : 0.0);
                  };
                  const auto rest = [](const SymbolInstance& one)
                  { return std::make_tuple(one.order, one.part, one.place.x, one.place.y, one.world); };
                  const double firstA = first(a);
                  const double firstB = first(b);
                  return firstA != firstB ? firstA < firstB : rest(a) < rest(b);
              });
}

} // namespace

std::unique_ptr<SymbolLayout> LayOutSymbols(const SymbolLayerData& data)
{
    auto layout = std::make_unique<SymbolLayout>(data.layer, data.context);
    layout->texts = std::make_unique<SymbolContents>(layout->properties, data.sprites, data.fonts, data.view.Scale());
    layout->textMove = MoveOf(data, "text");
    layout->iconMove = MoveOf(data, "icon");
    for (const PlacedFeatures& placed : data.features)
        AnchorSearch(data, *layout, placed).Run();
    Sort(*layout);
    MakeCandidates(data.view, *layout);
    return layout;
}

} // namespace txmap
