#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include <txmap/map/DateLine.h>
#include <txmap/map/Mercator.h>
#include <txmap/sources/FeatureSet.h>

namespace txmap
{

/// A world further on each side, for data that crosses the date line or counts from 0 to 360.
constexpr double kFarthestLongitude = 540.0;

/// The part of the repeating worlds that a picture shows. What lies outside is not kept.
class VisibleWorlds
{
public:
    explicit VisibleWorlds(const MercatorBox& visible) : visible(visible) {}

    /// True when some copy of a box is seen.
    bool Shows(const MercatorBox& box) const
    {
        return box.top <= visible.bottom && visible.top <= box.bottom &&
               std::ceil(visible.left - box.right) <= std::floor(visible.right - box.left);
    }

private:
    MercatorBox visible;
};

/// Puts features into a set: begin a feature, add its attributes and its parts in any order, and end it.
class FeatureSetBuilder
{
public:
    /// @param set what features are added to; it must outlive the builder.
    /// @param visible drops parts of which no copy is seen, and features without parts; nothing to keep all.
    /// @param keepsWhole drops only features of which no part is seen.
    explicit FeatureSetBuilder(FeatureSet& set, const std::optional<VisibleWorlds>& visible = std::nullopt,
                               bool keepsWhole = false)
        : set(set), visible(visible), keepsWhole(keepsWhole)
    {
    }

    /// Makes lines and rings continuous that go on at the other side of the map behind the date line, and closes rings
    /// that run round a pole beyond it. Without it, an edge across the map is taken for what it says.
    void JoinAtDateLine() { joins = true; }

    void Begin(GeometryType type, Value id = {});
    /// Changes the type of the feature that has begun.
    void SetType(GeometryType type) { feature.type = type; }
    void SetId(Value id) { feature.id = std::move(id); }

    /// The number of an attribute's name.
    std::uint32_t KeyNumber(const std::string& name);
    /// The number of a value that is given to several features.
    std::uint32_t ValueNumber(Value value);
    void AddTag(std::uint32_t key, std::uint32_t value) { set.tags.push_back({key, value}); }
    void AddTag(std::uint32_t key, Value value) { AddTag(key, ValueNumber(std::move(value))); }

    /// Adds a position in degrees to the part that is being made. Positions beyond all worlds that a map shows go to
    /// their edge.
    void AddPosition(const TZObjects::TXPoint& degrees);
    /// Adds a point in world coordinates.
    void AddPoint(const TZObjects::TXPoint& point) { set.points.push_back(point); }
    /// How many points that part has.
    std::size_t PartSize() const { return set.points.size() - partStart; }
    /// Ends the part. Lines of one point and rings that enclose nothing are dropped. A ring is closed if it is not.
    void EndPart();
    /// Ends a ring and turns it, so that outer rings turn clockwise in the picture and holes do not.
    void EndRing(bool outer);
    /// Ends the feature. @return false if nothing of it is kept.
    bool End();
    /// Takes back the feature that was ended last.
    void DropLast();

    /// The box around all parts, whether they were dropped or not. Its right is left of its left if there were none.
    const MercatorBox& Extent() const { return extent; }

private:
    void CloseRing();
    void KeepPart();
    void DropFrom(const SetFeature& dropped);

    FeatureSet& set;
    std::optional<VisibleWorlds> visible;
    bool keepsWhole;
    bool joins = false;
    WorldSpan outerSpan; ///< Of the last outer ring.
    MercatorBox extent{1e300, 1e300, -1e300, -1e300};
    MercatorBox featureBox; ///< Around the parts that were kept of the feature.
    SetFeature feature;
    std::size_t partStart = 0;
};

} // namespace txmap
