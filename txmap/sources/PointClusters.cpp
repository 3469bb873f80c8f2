#include <txmap/sources/PointClusters.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

using TZObjects::TXPoint;

constexpr double kTileSize = 512.0;

/// A point, or several that have become one.
struct Gathered
{
    TXPoint place;
    std::size_t feature = 0; ///< Of a single point.
    double count = 1.0;
    double id = 0.0;     ///< Of a cluster.
    ValueArray shares;   ///< What is accumulated for each property.
    bool isUsed = false; ///< At the zoom that is being made.
};

/// Finds points near others by the cells of a grid.
class Grid
{
public:
    Grid(const std::vector<Gathered>& points, double cell) : points(points), cell(cell)
    {
        for (std::size_t i = 0; i < points.size(); ++i)
            entries.emplace_back(Key(Row(points[i].place.y), Column(points[i].place.x)), i);
        std::sort(entries.begin(), entries.end());
    }

    /// Calls @p visit with each point that is no further than a cell is wide.
    template <class Visit>
    void ForEachNear(const TXPoint& place, Visit visit) const
    {
        for (std::int64_t row = Row(place.y) - 1; row <= Row(place.y) + 1; ++row)
        {
            // The three cells of a row stand side by side.
            const std::int64_t first = Key(row, Column(place.x) - 1);
            const std::int64_t last = Key(row, Column(place.x) + 1);
            for (auto entry = std::lower_bound(entries.begin(), entries.end(), std::pair(first, std::size_t{0}));
                 entry != entries.end() && entry->first <= last; ++entry)
            {
                const TXPoint& other = points[entry->second].place;
                const double dx = other.x - place.x;
                const double dy = other.y - place.y;
                if (dx * dx + dy * dy <= cell * cell)
                    visit(entry->second);
            }
        }
    }

private:
    // Cells are at least a tenth of a pixel at the greatest zoom, so that their numbers stay far below 2^31.
    static std::int64_t Key(std::int64_t row, std::int64_t column) { return row * (std::int64_t{1} << 32) + column; }
    std::int64_t Row(double y) const { return static_cast<std::int64_t>(std::floor(y / cell)); }
    std::int64_t Column(double x) const { return static_cast<std::int64_t>(std::floor(x / cell)); }

    const std::vector<Gathered>& points;
    double cell;
    std::vector<std::pair<std::int64_t, std::size_t>> entries;
};

/// What the attributes of a share look like to the expression that joins it.
class ShareAttributes final : public ExpressionFeature
{
public:
    ShareAttributes(const std::vector<ClusterProperty>& properties, const ValueArray& shares)
        : properties(properties), shares(shares)
    {
    }

    const Value* Property(const std::string& name) const override
    {
        for (std::size_t i = 0; i < properties.size(); ++i)
            if (properties[i].name == name)
                return &shares[i];
        return nullptr;
    }
    ValueObject Properties() const override
    {
        ValueObject all;
        for (std::size_t i = 0; i < properties.size(); ++i)
            all.emplace_back(properties[i].name, shares[i]);
        return all;
    }
    std::string_view GeometryType() const override { return "Point"; }

private:
    const std::vector<ClusterProperty>& properties;
    const ValueArray& shares;
};

void Accumulate(const std::vector<ClusterProperty>& properties, ValueArray& sum, const ValueArray& shares)
{
    const ShareAttributes attributes(properties, shares);
    EvaluationContext context;
    context.zoom = 0.0;
    context.feature = &attributes;
    for (std::size_t i = 0; i < properties.size(); ++i)
    {
        context.accumulated = sum[i];
        sum[i] = properties[i].reduce.EvaluateOrDefault(context);
    }
}

/// The points of the zoom below.
std::vector<Gathered> GatherAt(int zoom, std::vector<Gathered>& points, const ClusterOptions& options,
                               std::size_t pointCount)
{
    const Grid grid(points, options.radius / kTileSize / std::exp2(zoom));
    std::vector<Gathered> result;
    std::vector<std::size_t> near;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        if (points[i].isUsed)
            continue;
        points[i].isUsed = true;
        near.clear();
        double count = points[i].count;
        grid.ForEachNear(points[i].place,
                         [&](std::size_t other)
                         {
                             if (points[other].isUsed)
                                 return;
                             near.push_back(other);
                             count += points[other].count;
                         });
        const bool isCluster = !near.empty() && count >= options.minPoints;
        Gathered gathered = points[i];
        TXPoint sum{gathered.place.x * gathered.count, gathered.place.y * gathered.count};
        for (const std::size_t other : near)
        {
            points[other].isUsed = true;
            if (!isCluster)
                continue;
            sum = {sum.x + points[other].place.x * points[other].count,
                   sum.y + points[other].place.y * points[other].count};
            Accumulate(options.properties, gathered.shares, points[other].shares);
        }
        if (isCluster)
        {
            gathered.place = {sum.x / count, sum.y / count};
            gathered.count = count;
            gathered.id = static_cast<double>(i) * 32.0 + (zoom + 1) + static_cast<double>(pointCount);
        }
        result.push_back(std::move(gathered));
        if (!isCluster)
            for (const std::size_t other : near)
                result.push_back(points[other]);
    }
    for (Gathered& gathered : result)
        gathered.isUsed = false;
    return result;
}

Value Abbreviated(double count)
{
    if (count >= 10000.0)
        return NumberText(std::round(count / 1000.0)) + "k";
    if (count >= 1000.0)
        return NumberText(std::round(count / 100.0) / 10.0) + "k";
    return count;
}

void AddCluster(const Gathered& cluster, const ClusterOptions& options, FeatureSetBuilder& builder)
{
    builder.Begin(GeometryType::Point, cluster.id);
    const auto add = [&](const char* name, Value value) { builder.AddTag(builder.KeyNumber(name), std::move(value)); };
    add("cluster", true);
    add("cluster_id", cluster.id);
    add("point_count", cluster.count);
    add("point_count_abbreviated", Abbreviated(cluster.count));
    for (std::size_t i = 0; i < options.properties.size(); ++i)
        add(options.properties[i].name.c_str(), cluster.shares[i]);
    builder.AddPoint(cluster.place);
    builder.EndPart();
    builder.End();
}

void AddSingle(const FeatureSet& set, const SetFeature& feature, FeatureSetBuilder& builder)
{
    builder.Begin(GeometryType::Point, feature.id);
    for (std::size_t i = feature.firstTag; i < feature.firstTag + feature.tags; ++i)
        builder.AddTag(builder.KeyNumber(set.keys[set.tags[i].key]), set.values[set.tags[i].value]);
    builder.AddPoint(set.points[feature.firstPoint]);
    builder.EndPart();
    builder.End();
}

Expression Compiled(const Json& json, const std::string& where)
{
    CompiledExpression compiled = CompileExpression(json, PropertySpec());
    if (const auto* const errors = std::get_if<std::vector<ParsingError>>(&compiled))
        throw Failure(ExitCode::Data, where + (errors->empty() ? "" : ": " + errors->front().message));
    return std::get<Expression>(std::move(compiled));
}

double Number(const Json& source, const char* member, double usual)
{
    const auto found = source.find(member);
    return found != source.end() && found->is_number() ? found->get<double>() : usual;
}

} // namespace

ClusterOptions ClusterOptions::FromSource(const std::string& name, const Json& source)
{
    ClusterOptions options;
    const int sourceZoom = static_cast<int>(std::clamp(Number(source, "maxzoom", 18.0), 1.0, 24.0));
    options.radius = std::clamp(Number(source, "clusterRadius", 50.0), 1.0, 1e4);
    options.maxZoom = static_cast<int>(
        std::clamp(Number(source, "clusterMaxZoom", sourceZoom - 1.0), 0.0, static_cast<double>(sourceZoom - 1)));
    options.minPoints = static_cast<int>(std::clamp(Number(source, "clusterMinPoints", 2.0), 2.0, 1e9));
    const auto properties = source.find("clusterProperties");
    if (properties == source.end() || !properties->is_object())
        return options;
    for (const auto& [property, pair] : properties->items())
    {
        std::string where = "the source ";
        where.append(name).append(" has a cluster property ").append(property).append(" that is none");
        if (!pair.is_array() || pair.size() != 2)
            throw Failure(ExitCode::Data, where);
        // An operator stands for its use on what is accumulated and the share.
        const Json reduce = pair[0].is_string()
                                ? Json::array({pair[0], Json::array({"accumulated"}), Json::array({"get", property})})
                                : pair[0];
        options.properties.push_back({property, Compiled(pair[1], where), Compiled(reduce, where)});
    }
    return options;
}

UsedProperties ClusterOptions::Used() const
{
    UsedProperties used;
    for (const ClusterProperty& property : properties)
    {
        const UsedProperties more = property.map.Properties();
        used.all = used.all || more.all;
        used.names.insert(more.names.begin(), more.names.end());
    }
    return used;
}

void AddClusters(const FeatureSet& set, const ClusterOptions& options, int zoom, FeatureSetBuilder& builder)
{
    std::vector<Gathered> points;
    FeatureAttributes attributes(set);
    EvaluationContext context;
    context.zoom = 0.0;
    context.feature = &attributes;
    for (std::size_t i = 0; i < set.features.size(); ++i)
    {
        if (set.features[i].type != GeometryType::Point)
            continue;
        Gathered point;
        point.place = set.points[set.features[i].firstPoint];
        point.feature = i;
        attributes.Select(set.features[i]);
        for (const ClusterProperty& property : options.properties)
            point.shares.push_back(property.map.EvaluateOrDefault(context));
        points.push_back(std::move(point));
    }
    const std::size_t count = points.size();
    for (int z = options.maxZoom; z >= zoom; --z)
        points = GatherAt(z, points, options, count);
    for (const Gathered& point : points)
    {
        if (point.count > 1.0)
            AddCluster(point, options, builder);
        else
            AddSingle(set, set.features[point.feature], builder);
    }
}

} // namespace txmap
